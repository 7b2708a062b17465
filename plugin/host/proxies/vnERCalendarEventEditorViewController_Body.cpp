// The body of the appointment that an editor shows.

#include "host/proxies/HostViews.h"
#include "host/proxies/MeetingOwners.h"
#include "host/proxies/vnERCalendarEventEditorViewController.h"
#include "host/proxies/vnOLWordMailEditorContent.h"
#include "util/CharacterSets.h"
#include "util/HtmlText.h"

namespace vorn {

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

bool vnERCalendarEventEditorViewController::isCurrentEmailBodyEmpty() const {
  return isBodyContentEmpty(bodyContent());
}

bool vnERCalendarEventEditorViewController::isBodyContentEmpty(const Value& body) const {
  if (body.text().empty()) return true;
  return trimmed(htmlToPlainText(body.text()), isWhitespaceOrNewline).empty();
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
    meetingOwners().noteNewBody(content.optionalText());
  }
  if (!event) return;
  event->setIsBodyHTML(!plainTextOnly);
  event->displayReadyBody();
}

void vnERCalendarEventEditorViewController::updateEmailBody(const Value& content) {
  displayEmailContent(content, true);
}

void vnERCalendarEventEditorViewController::updateEmailBodyWithVornContent(const OptionalText& invitation,
                                                                           bool isHTML) {
  MeetingOwners& owners = meetingOwners();
  if (const HostObject document = composeDocument()) {
    const Value source = askHost(askHost(document, "documentElement").object(), "outerHTML");
    const OptionalText changed =
        owners.mailBodyWithVornContent(delegate(), source.optionalText(), invitation, isHTML);
    if (changed) askHost(askHost(document, "body").object(), "setInnerHTML:", {*changed});
    return;
  }
  displayEmailContent(
      owners.mailBodyWithVornContent(delegate(), bodyContent().optionalText(), invitation, isHTML).value_or(""),
      isHTML);
}

void vnERCalendarEventEditorViewController::updateEmailBodyForPAC(const OptionalText& invitation, bool isHTML) {
  MeetingOwners& owners = meetingOwners();
  if (const HostObject document = composeDocument()) {
    if (!invitation || invitation->empty()) return;
    const Value source = askHost(askHost(document, "documentElement").object(), "outerHTML");
    const OptionalText changed = owners.mailBodyWithPACText(source.optionalText(), invitation, isHTML);
    if (changed) askHost(askHost(document, "body").object(), "setInnerHTML:", {*changed});
    return;
  }
  const OptionalText changed = owners.mailBodyWithPACText(bodyContent().optionalText(), invitation, isHTML);
  if (changed) displayEmailContent(*changed, isHTML);
}

HostObject vnERCalendarEventEditorViewController::composeDocument() const {
  const HostObject compose = firstSubviewOfKind(view(), "ComposeView");
  return askHost(askHost(compose, "mainFrame").object(), "DOMDocument").object();
}

}  // namespace vorn
