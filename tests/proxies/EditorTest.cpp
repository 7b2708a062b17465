#include <gtest/gtest.h>

#include "host/proxies/vnApptInfoKeys.h"
#include "host/proxies/vnERCalendarEventEditorViewController.h"
#include "host/proxies/vnOLWordMailEditor.h"
#include "tests/proxies/FakeOwners.h"
#include "tests/support/FakeHost.h"
#include "tests/support/TestPlatform.h"

namespace vorn {
namespace {

class Editor : public testing::Test {
 protected:
  Editor() {
    host.teach("ECCalendarEvent", {"setBody:", "setIsBodyHTML:", "displayReadyBody"});
    host.teach("ERCalendarEventEditorViewController", {"setIsDirty:", "setLocation:", "setOlmUCInband:"});
    host.teach("OLWordMailEditor", {"switchToPlainText", "switchToHTMLText",
                                    "insertText:atLocation:isHTML:", "displayHTMLContent:readOnly:"});
  }
  HostObject editorOn(const HostObject& event) {
    return host.object("ERCalendarEventEditorViewController", {{"content", event}, {"isDirty", false}});
  }
  static Value typed(const std::string& key, const Value& value) { return Value(Value::Dictionary{{key, value}}); }
  HostObject wordMailWithBody(const Value& body) {
    // The host's class of a content has no name that could be relied on.
    const HostObject content = host.object("SomeContent", {{"bodyContent", body}});
    return host.object("OLWordMailEditor", {{"editorContent", content}});
  }

  TestPlatform world;
  FakeHost host{world.classRuntime};
  FakeOwners owners;
  HostObject event = host.object("ECCalendarEvent", {{"summary", "stored"}});
};

TEST_F(Editor, HandsOutANewEventProxyWhenItShowsAnotherEvent) {
  const HostObject editor = editorOn(event);
  vnERCalendarEventEditorViewController proxy(editor);
  const vnECCalendarEvent* first = proxy.ecCalendarEvent();
  ASSERT_TRUE(first);
  EXPECT_EQ(first->getOneMergedItem("summary"), Value("stored"));
  host.set(editor, "uncommittedChanges", typed("content.summary", "typed"));
  EXPECT_EQ(proxy.ecCalendarEvent(), first);
  EXPECT_EQ(first->getOneMergedItem("summary"), Value("typed")) << "it knows what is typed later";

  const HostObject other = host.object("ECCalendarEvent", {{"summary", "other"}});
  host.set(editor, "content", other);
  ASSERT_TRUE(proxy.ecCalendarEvent());
  EXPECT_EQ(proxy.ecCalendarEvent()->delegate(), other);
  EXPECT_FALSE(proxy.canGetApptKeyInfoForCompareMeetingChanged()) << "nobody asks it";
  host.set(editor, "content", Value());
  EXPECT_FALSE(proxy.ecCalendarEvent());
}

TEST_F(Editor, ReadingTheChangesCountsAsOpeningTheSettingsAndKeepsTheDirtyMark) {
  const HostObject editor = editorOn(event);
  host.set(editor, "isDirty", true);
  vnERCalendarEventEditorViewController proxy(editor);
  EXPECT_FALSE(proxy.vnSettingOpened());
  proxy.uncommittedChanges();
  EXPECT_TRUE(proxy.vnSettingOpened());
  EXPECT_EQ(host.get(editor, "isDirty"), Value(true));
}

TEST_F(Editor, OnlyChangesOfTheKeyItemsAreChangesOfTheAppointment) {
  const std::pair<const char*, bool> cases[] = {{"content.startTime", true},    {"content.endTime", true},
                                                {"content.summary", true},      {"content.recurrence", true},
                                                {"content.attendeeList", true}, {"content.body", false},
                                                {"content.location", false}};
  for (const auto& [key, changed] : cases) {
    const HostObject editor = editorOn(event);
    host.set(editor, "uncommittedChanges", typed(key, nullptr));
    EXPECT_EQ(vnERCalendarEventEditorViewController(editor).isOutlookAppointmentItemChanged(), changed) << key;
  }
}

TEST_F(Editor, SchedulesForSomebodyElseOnlyAsADelegateWithAReadyAccount) {
  const HostObject account = host.object("ECAccount", {{"emailAddress", "boss@x.org"}});
  struct {
    const char* why;
    bool delegating, fromClient, accountReady, expected;
  } const cases[] = {{"a delegate", true, false, true, true},
                     {"no delegate", false, false, true, false},
                     {"made by the client", true, true, true, false},
                     {"an account that is not ready", true, false, false, false}};
  for (const auto& c : cases) {
    host.set(event, "account", c.accountReady ? Value(account) : Value());
    owners.openFromClient = c.fromClient;
    const HostObject editor = editorOn(event);
    host.set(editor, "isDelegating", c.delegating);
    host.set(editor, "currentEmailAccount", account);
    vnERCalendarEventEditorViewController proxy(editor);
    EXPECT_EQ(proxy.isOnBehalf(), c.expected) << c.why;
    EXPECT_EQ(proxy.onbehalfEmailAddress(), c.expected ? OptionalText("boss@x.org") : std::nullopt) << c.why;
    EXPECT_EQ(proxy.getVnMeetingData().contains(vn_ApptInfo_OnbehalfEmailAddress), c.expected) << c.why;
  }
}

TEST_F(Editor, ABodyIsEmptyWhenAReaderSeesNothing) {
  const vnERCalendarEventEditorViewController proxy(editorOn(event));
  for (const Value& empty : {Value(), Value(""), Value("<html><body>&nbsp;<br> \n</body></html>"), Value(nullptr),
                             Value("<!-- <img src=a> --><script>'<img>'</script><p title='<img>'></p>")}) {
    EXPECT_TRUE(proxy.isBodyContentEmpty(empty)) << empty.text();
  }
  // The long one comes from the parser in several runs.
  for (const std::string& full :
       {std::string("<p>a</p>"), std::string("<p><IMG SRC='cid:1'></p>"), std::string("<object data=x></object>"),
        std::string("<svg/>"), "<p>" + std::string(5000, 'a') + "</p>"}) {
    EXPECT_FALSE(proxy.isBodyContentEmpty(full)) << full;
  }
  EXPECT_TRUE(proxy.isCurrentEmailBodyEmpty());
  owners.wordMailEditor = wordMailWithBody("<p>a</p>");
  EXPECT_FALSE(proxy.isCurrentEmailBodyEmpty());
}

TEST_F(Editor, AnAccountWithoutHTMLGetsPlainTextAndNothingIsNoted) {
  const HostObject wordMail = wordMailWithBody("source");
  owners.wordMailEditor = wordMail;
  host.set(event, "account", host.object("ECAccount", {{"shouldDisableCalendarHTMLBodyForAccount", true}}));
  vnERCalendarEventEditorViewController proxy(editorOn(event));
  proxy.displayEmailContent("text", true);
  EXPECT_EQ(host.calls(wordMail, "switchToPlainText").size(), 1u);
  EXPECT_EQ(host.get(event, "isBodyHTML"), Value(false));
  EXPECT_EQ(owners.noted, std::nullopt);
}

TEST_F(Editor, WithoutAManagerAnInvitationIsEmptyAndThePersonalAudioTextIsNot) {
  owners.hasManager = false;
  owners.wordMailEditor = wordMailWithBody("source");
  vnERCalendarEventEditorViewController proxy(editorOn(event));
  proxy.updateEmailBodyWithVornContent("invitation", true);
  EXPECT_EQ(host.get(event, "body"), Value(""));
  proxy.updateEmailBodyForPAC("call", false);
  EXPECT_EQ(host.get(event, "body"), Value("source|call"));
}

TEST_F(Editor, TheOlderComposeViewIsWrittenThroughItsDocument) {
  const HostObject body = host.object("DOMBody", {{"setInnerHTML:", Value()}});
  const HostObject root = host.object("DOMElement", {{"outerHTML", "<html/>"}});
  const HostObject document = host.object("DOMDocument", {{"documentElement", root}, {"body", body}});
  const HostObject frame = host.object("WebFrame", {{"DOMDocument", document}});
  const HostObject compose = host.object("ComposeView", {{"mainFrame", frame}});
  const HostObject view = host.object("NSView", {{"subviews", Value(Value::Array{compose})}});
  const HostObject editor = editorOn(event);
  host.set(editor, "view", view);
  vnERCalendarEventEditorViewController proxy(editor);
  owners.hasManager = false;
  proxy.updateEmailBodyWithVornContent("invitation", true);
  EXPECT_EQ(host.get(body, "innerHTML"), Value("<html/>+invitation"));
  proxy.updateEmailBodyForPAC("call", false);
  EXPECT_EQ(host.get(body, "innerHTML"), Value("<html/>|call"));
  proxy.updateEmailBodyForPAC("", false);
  EXPECT_EQ(host.calls(body, "setInnerHTML:").size(), 2u) << "nothing to add";
  EXPECT_TRUE(proxy.isCurrentEmailBodyEmpty());
  host.set(root, "outerHTML", "<html>agenda</html>");
  EXPECT_FALSE(proxy.isCurrentEmailBodyEmpty());
  EXPECT_TRUE(host.calls(event, "setBody:").empty());
}

TEST_F(Editor, TheFormatChangesOnlyWithABodyEditorAndAnEvent) {
  const HostObject wordMail = wordMailWithBody("source");
  const HostObject editor = editorOn(event);
  vnERCalendarEventEditorViewController proxy(editor);
  proxy.convertBodyContentFormat(true);
  owners.wordMailEditor = wordMail;
  host.set(editor, "content", Value());
  proxy.convertBodyContentFormat(true);
  EXPECT_TRUE(host.calls(wordMail, "switchToHTMLText").empty());
  host.set(editor, "content", event);
  proxy.convertBodyContentFormat(true);
  proxy.convertBodyContentFormat(false);
  EXPECT_EQ(host.calls(wordMail, "switchToHTMLText").size(), 1u);
  EXPECT_EQ(host.calls(wordMail, "switchToPlainText").size(), 1u);
}

TEST(WordMailEditor, ShowsABodyInTheRichestFormThatTheHostHas) {
  const std::pair<std::vector<std::string>, Arguments> cases[] = {
      {{"displayHTMLContent:readOnly:signatureEditor:activateEditor:",
        "displayHTMLContent:readOnly:signatureEditor:", "displayHTMLContent:readOnly:"},
       {"b", false, true, true}},
      {{"displayHTMLContent:readOnly:signatureEditor:", "displayHTMLContent:readOnly:"}, {"b", false, true}},
      {{"displayHTMLContent:readOnly:"}, {"b", false}},
  };
  for (const auto& [selectors, expected] : cases) {
    TestPlatform world;
    FakeHost host(world.classRuntime);
    const HostObject editor = host.object("SomeWordMailEditor", {{"insertHTMLContent:atLocation:", Value()}});
    for (const std::string& selector : selectors) host.set(editor, selector, Value());
    vnOLWordMailEditor(editor).displayHTMLContent("b", false);
    EXPECT_EQ(host.calls(editor, "insertHTMLContent:atLocation:"), (std::vector<Arguments>{{"b", 0}}));
    EXPECT_EQ(host.calls(editor, selectors.front()), (std::vector<Arguments>{expected}));
  }
}

}  // namespace
}  // namespace vorn
