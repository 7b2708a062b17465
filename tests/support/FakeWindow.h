#pragma once

#include <memory>
#include <string>

#include "host/proxies/vnERCalendarEventEditorViewController.h"
#include "tests/support/FakeHost.h"
#include "tests/support/TestPlatform.h"
#include "workflow/MeetingBar.h"
#include "workflow/WorkflowDirectory.h"
#include "workflow/vnActionAdditionViewMonitor.h"
#include "workflow/vnActionResultMgr.h"
#include "workflow/vnMeetingMgrMonitor.h"

namespace vorn {

// Makes the few host classes that an open appointment window consists of, with what they answer.
inline void defineWindowClasses(EmbeddedClassRuntime& runtime) {
  FakeHost host(runtime);
  host.teachUnnoted("ERCalendarEventEditorWindowController", {"window", "editorViewController"});
  host.teachUnnoted("ERCalendarEventEditorViewController",
                    {"content", "attendeeList", "locationTextField", "uncommittedChanges", "isDirty", "view",
                     "isDelegating", "currentEmailAccount", "setLocation:", "setIsDirty:", "setOlmUCInband:"});
  host.teachUnnoted("ECCalendarEvent",
                    {"summary", "location", "body", "attendeeList", "UUID", "olmUCInband", "olmUCCapabilities",
                     "isOwner", "recurrenceId", "recordUID", "account", "iCalendarRepresentation", "endTime",
                     "setLocation:", "setSummary:", "setBody:"});
  runtime.defineClass("ECMutableCalendarEvent", "ECCalendarEvent");
  host.teachUnnoted("NSView", {"window"});
  host.teachUnnoted("NSTextField", {"stringValue", "setStringValue:"});
  host.teachUnnoted("ECCalendarEventAttendee", {"name", "attendeeType", "emailAddress"});
  host.teachUnnoted("ECEmailAccount", {"emailAddress", "shouldDisableCalendarHTMLBodyForAccount"});
  host.teachUnnoted("ECRecordUID", {"recordID", "recordExists"});
  host.teachUnnoted("OLWordMailEditor", {"editorContent", "bodyContent"});
  host.teach("OLWordMailEditor", {"switchToPlainText", "switchToHTMLText"});
}

// A bar that says what a test wants, over the host's objects or over none.
class FakeBar final : public MeetingBar, public FakeEditor {
 public:
  HostObject window() override { return ownWindow; }
  HostObject editorWindowController() override { return windowController; }
  HostObject editorViewController() override { return editor; }
  HostObject ecCalendarEvent() override { return event; }
  vnERCalendarEventEditorViewController* editorProxy() override { return proxy.get(); }
  void attachToEditor() override {}
  HostObject olWordMailEditor() override { return bodyEditor; }
  OptionalText getAppointmentWindowID() override {
    return ownWindow ? OptionalText(ownWindow.windowId()) : std::nullopt;
  }
  HostObject editorViewWindow() override { return ownWindow; }
  bool currentIsVornMeeting() override { return hasMeeting; }
  bool isSupportVorn() override { return supported; }
  bool isDeleteVornMeeting() override { return dataStatus == VnDataDeleted; }
  bool blockDeleteVornMeeting() override { return blocked; }
  bool fromFieldChanged() override { return fromChanged; }
  int getVnDataStatus() override { return dataStatus; }
  int olUIAction() override { return action; }
  void setOLUIAction(const Value& value) override { action = static_cast<int>(value.integerValue()); }
  bool getActionResult() override { return result.getActionResult(); }
  void setActionResultData(const Value& response) override { result.setActionResultData(response); }
  void setActionToSuccess() override { result.setActionResult(true); }
  void onUIChanged(int status) override { shown = status; }
  void updateSupportVornButtonFlag(const HostObject&) override {}
  void autoAddToVnMeeting() override { ++autoAdds; }
  void autoRemoveVornMeeting() override { ++autoRemoves; }
  void setAutoUpdateVornMeetingFlag() override {}
  void getMeetingByApptUUID() override { ++asksByUUID; }

  HostObject bodyEditor;
  std::unique_ptr<vnERCalendarEventEditorViewController> proxy;
  bool hasMeeting = false;
  bool supported = true;
  bool blocked = false;
  bool fromChanged = false;
  int dataStatus = VnDataNone;
  int action = 0;
  int shown = VnUINotMeeting;
  int autoAdds = 0;
  int autoRemoves = 0;
  int asksByUUID = 0;
  vnActionResultMgr result;
};

// One open window: the host's objects, its bar and its manager, listed as the real ones are.
struct FakeWindow {
  explicit FakeWindow(TestPlatform& test) : host(test.classRuntime) {
    static_cast<FakeEditor&>(*bar) = FakeEditor::open(host);
    bar->bodyEditor = host.object("OLWordMailEditor");
    set(bar->bodyEditor, "editorContent", bar->bodyEditor);
    set(bar->editor, "view", host.object("NSView", {{"window", bar->ownWindow}}));
    set(bar->editor, "locationTextField", field);
    bar->proxy = std::make_unique<vnERCalendarEventEditorViewController>(bar->editor);
    vnActionAdditionViewMonitor::sharedInstance().addVnActionAdditionViewInstance(bar);
    vnMeetingMgrMonitor::sharedInstance().addInstanceToList(manager, bar);
  }

  void set(const HostObject& object, const char* key, const Value& value) { host.set(object, key, value); }
  Value get(const HostObject& object, const char* key) const { return host.get(object, key); }
  void showLocation(const std::string& text) { set(field, "stringValue", text); }
  // The selectors by which the body was given another form.
  std::string bodySwitch() const {
    std::string all;
    for (const char* selector : {"switchToPlainText", "switchToHTMLText"}) {
      if (!host.calls(bar->bodyEditor, selector).empty()) all += selector;
    }
    return all;
  }
  // The From field shows this address, as one's own or as that of somebody on whose behalf the window is open.
  void sendFrom(const char* address, bool isDelegating) {
    const HostObject account = host.object("ECEmailAccount", {{"emailAddress", address}});
    set(bar->event, "account", account);
    set(bar->editor, "currentEmailAccount", account);
    set(bar->editor, "isDelegating", isDelegating);
    bar->proxy = std::make_unique<vnERCalendarEventEditorViewController>(bar->editor);
  }
  void invite(const char* name, int type) {
    Value list = get(bar->event, "attendeeList");
    list.append(host.object(
        "ECCalendarEventAttendee",
        {{"name", name}, {"emailAddress", std::string(name) + "@vorn.example"}, {"attendeeType", type}}));
    set(bar->event, "attendeeList", list);
    set(bar->editor, "attendeeList", list);
  }

  FakeHost host;
  std::shared_ptr<FakeBar> bar = std::make_shared<FakeBar>();
  std::shared_ptr<vnMeetingMgr> manager = vnMeetingMgr::create();
  HostObject field = host.object("NSTextField");
};

}  // namespace vorn
