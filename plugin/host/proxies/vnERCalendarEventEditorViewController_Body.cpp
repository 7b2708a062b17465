// The body of the appointment that an editor shows.

#include "host/proxies/HostViews.h"
#include "host/proxies/MeetingOwners.h"
#include "host/proxies/vnERCalendarEventEditorViewController.h"
#include "host/proxies/vnOLWordMailEditorContent.h"
#include "util/HtmlText.h"

namespace vorn {

namespace {

OptionalText htmlOf(const HostObject& document) {
  return askHost(askHost(document, "documentElement").object(), "outerHTML").optionalText();
}

void showInDocument(const HostObject& document, const OptionalText& html) {
  askHost(askHost(document, "body").object(), "setInnerHTML:", {html.value_or("")});
}

}  // namespace

std::optional<vnOLWordMailEditor> vnERCalendarEventEditorViewController::olWordMailEditor() const {
  const HostObject editor = meetingOwners().wordMailEditorForEditor(delegate());
  if (!editor) return {};
  return vnOLWordMailEditor(editor);
}

HostObject vnERCalendarEventEditorViewController::olWordMailEditorContent() const {
  const std::optional<vnOLWordMailEditor> editor = olWordMailEditor();
  return editor ? editor->editorContent() : HostObject();
}

Value vnERCalendarEventEditorViewController::bodyContent() const {
  const HostObject content = olWordMailEditorContent();
  return content ? vnOLWordMailEditorContent(content).bodyContent() : Value();
}

// The older view has its body in the document alone: taken for empty, it would be written anew at every save, over
// what a person has put in place of an invitation that is the same as before.
bool vnERCalendarEventEditorViewController::isCurrentEmailBodyEmpty() const {
  const HostObject document = composeDocument();
  return isBodyContentEmpty(document ? Value(htmlOf(document)) : bodyContent());
}

bool vnERCalendarEventEditorViewController::isBodyContentEmpty(const Value& body) const {
  return htmlShowsNothing(body.text());
}

void vnERCalendarEventEditorViewController::setInitBodyContent() {
  setInitBodyContent(uncommittedChanges()["content.body"]);
}

void vnERCalendarEventEditorViewController::setInitBodyContent(const Value& body) {
  if (!body.text().empty()) m_initBodyContent = body;
}

void vnERCalendarEventEditorViewController::convertBodyContentFormat(bool toHTML) {
  const std::optional<vnOLWordMailEditor> editor = olWordMailEditor();
  if (!editor || !ecCalendarEvent()) return;
  if (toHTML) {
    editor->switchToHTMLText();
  } else {
    editor->switchToPlainText();
  }
}

void vnERCalendarEventEditorViewController::displayEmailContent(const Value& content, bool) {
  const std::optional<vnOLWordMailEditor> editor = olWordMailEditor();
  if (editor) editor->displayHTMLContent(content, false);
  const vnECCalendarEvent* event = ecCalendarEvent();
  const bool plainTextOnly = event && event->shouldDisableCalendarHTMLBody();
  if (event) event->setBody(content);
  if (plainTextOnly) {
    if (editor) editor->switchToPlainText();
  } else {
    meetingOwners().noteNewBody(delegate(), content.optionalText());
  }
  if (!event) return;
  event->setIsBodyHTML(!plainTextOnly);
  event->displayReadyBody();
}

void vnERCalendarEventEditorViewController::updateEmailBody(const Value& content) {
  displayEmailContent(content, true);
}

bool vnERCalendarEventEditorViewController::knowsBody() const {
  const HostObject document = composeDocument();
  return document ? htmlOf(document).has_value() : bodyContent().isPresent();
}

// An absent result is shown as an empty body by both kinds of view. But of a body that is not known nothing is
// shown, nor of one in which a cancelled meeting's invitation is not found: an empty body would take what the user
// wrote.
void vnERCalendarEventEditorViewController::updateEmailBodyWithVornContent(const OptionalText& invitation,
                                                                           bool isHTML) {
  MeetingOwners& owners = meetingOwners();
  const HostObject document = composeDocument();
  const OptionalText source = document ? htmlOf(document) : bodyContent().optionalText();
  if (!source) return;
  const OptionalText changed =
      document ? owners.mailBodyWithVornContent(delegate(), source, invitation, isHTML)
               : owners.getMailBodyWithVornContentFor1520(delegate(), source, invitation, isHTML);
  const bool isDelete = invitation.value_or("").empty();
  if (!changed && isDelete) return;
  if (document) {
    showInDocument(document, changed);
  } else {
    displayEmailContent(changed.value_or(""), isHTML);
  }
}

// Here an absent result is one of a body that is not known. The text is plainly added, so nothing is shown then:
// an empty body would take what the user wrote.
void vnERCalendarEventEditorViewController::updateEmailBodyForPAC(const OptionalText& invitation, bool isHTML) {
  MeetingOwners& owners = meetingOwners();
  if (const HostObject document = composeDocument()) {
    if (!invitation || invitation->empty()) return;
    const OptionalText changed = owners.mailBodyWithPACText(htmlOf(document), invitation, isHTML);
    if (changed) showInDocument(document, changed);
    return;
  }
  const OptionalText changed = owners.mailBodyWithPACText(bodyContent().optionalText(), invitation, isHTML);
  if (changed) displayEmailContent(changed, isHTML);
}

// The web document of the host's older compose view; the newer one has none.
HostObject vnERCalendarEventEditorViewController::composeDocument() const {
  const HostObject compose = firstSubviewOfKind(view(), "ComposeView");
  return askHost(askHost(compose, "mainFrame").object(), "DOMDocument").object();
}

}  // namespace vorn
