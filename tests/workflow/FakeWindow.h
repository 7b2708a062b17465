#pragma once

#include <memory>
#include <string>

#include "host/proxies/vnERCalendarEventEditorViewController.h"
#include "tests/support/TestPlatform.h"
#include "workflow/MeetingBar.h"
#include "workflow/WorkflowDirectory.h"
#include "workflow/vnActionAdditionViewMonitor.h"
#include "workflow/vnActionResultMgr.h"
#include "workflow/vnMeetingMgrMonitor.h"

namespace vorn {

// Makes the few host classes that an open appointment window consists of.
inline void defineWindowClasses(EmbeddedClassRuntime& runtime) {
  for (const char* name : {"NSWindow", "NSView", "NSTextField", "ERCalendarEventEditorWindowController",
                           "ERCalendarEventEditorViewController", "ECCalendarEvent", "ECCalendarEventAttendee",
                           "ECEmailAccount", "ECRecordUID", "OLWordMailEditor"}) {
    runtime.defineClass(name);
  }
  runtime.defineClass("ECMutableCalendarEvent", "ECCalendarEvent");
  const auto answers = [&](const char* className, const char* key) {
    runtime.setInstanceMethod(className, key, [&runtime, key](const HostObject& self, const Arguments&) {
      return (*runtime.state<Value>(self))[key];
    });
  };
  const auto takes = [&](const char* className, const char* selector, const char* key) {
    runtime.setInstanceMethod(className, selector,
                              [&runtime, key](const HostObject& self, const Arguments& arguments) {
                                runtime.state<Value>(self)->set(key, arguments.at(0));
                                return Value();
                              });
  };
  for (const char* key : {"content", "attendeeList", "locationTextField", "uncommittedChanges", "isDirty", "view",
                          "isDelegating", "currentEmailAccount"}) {
    answers("ERCalendarEventEditorViewController", key);
  }
  takes("ERCalendarEventEditorViewController", "setLocation:", "editorLocation");
  takes("ERCalendarEventEditorViewController", "setIsDirty:", "isDirty");
  takes("ERCalendarEventEditorViewController", "setOlmUCInband:", "record");
  answers("NSView", "window");
  answers("NSTextField", "stringValue");
  takes("NSTextField", "setStringValue:", "stringValue");
  for (const char* key :
       {"summary", "location", "body", "attendeeList", "UUID", "olmUCInband", "olmUCCapabilities", "isOwner",
        "recurrenceId", "recordUID", "account", "iCalendarRepresentation", "endTime"}) {
    answers("ECCalendarEvent", key);
  }
  takes("ECCalendarEvent", "setLocation:", "location");
  takes("ECCalendarEvent", "setSummary:", "summary");
  takes("ECCalendarEvent", "setBody:", "body");
  for (const char* key : {"name", "attendeeType", "emailAddress"}) answers("ECCalendarEventAttendee", key);
  for (const char* key : {"emailAddress", "shouldDisableCalendarHTMLBodyForAccount"})
    answers("ECEmailAccount", key);
  for (const char* key : {"recordID", "recordExists"}) answers("ECRecordUID", key);
  for (const char* key : {"editorContent", "bodyContent"}) answers("OLWordMailEditor", key);
  for (const char* format : {"switchToPlainText", "switchToHTMLText"}) {
    runtime.setInstanceMethod("OLWordMailEditor", format,
                              [&runtime, format](const HostObject& self, const Arguments&) {
                                runtime.state<Value>(self)->set("format", format);
                                return Value();
                              });
  }
}

class FakeBar final : public MeetingBar {
 public:
  HostObject window() override { return ownWindow; }
  HostObject editorWindowController() override { return windowController; }
  HostObject editorViewController() override { return editor; }
  HostObject ecCalendarEvent() override { return event; }
  vnERCalendarEventEditorViewController* editorProxy() override { return proxy.get(); }
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
  void setAutoUpdateVornMeetingFlag() override {}
  void getMeetingByApptUUID() override { ++asksByUUID; }

  HostObject ownWindow, windowController, editor, event, bodyEditor;
  std::unique_ptr<vnERCalendarEventEditorViewController> proxy;
  bool hasMeeting = false;
  bool supported = true;
  bool blocked = false;
  bool fromChanged = false;
  int dataStatus = VnDataNone;
  int action = 0;
  int shown = VnUINotMeeting;
  int autoAdds = 0;
  int asksByUUID = 0;
  vnActionResultMgr result;
};

// One open window: the host's objects, its bar and its manager, listed as the real ones are.
struct FakeWindow {
  explicit FakeWindow(TestPlatform& test) : runtime(test.classRuntime) {
    const auto make = [&](const char* name) {
      return runtime.create(name, std::make_shared<Value>(Value::dictionary()));
    };
    bar->ownWindow = make("NSWindow");
    bar->bodyEditor = make("OLWordMailEditor");
    bar->windowController = make("ERCalendarEventEditorWindowController");
    bar->editor = make("ERCalendarEventEditorViewController");
    bar->event = make("ECCalendarEvent");
    const HostObject view = make("NSView");
    field = make("NSTextField");
    set(view, "window", bar->ownWindow);
    set(bar->bodyEditor, "editorContent", bar->bodyEditor);
    set(bar->editor, "content", bar->event);
    set(bar->editor, "view", view);
    set(bar->editor, "locationTextField", field);
    bar->proxy = std::make_unique<vnERCalendarEventEditorViewController>(bar->editor);
    vnActionAdditionViewMonitor::sharedInstance().addVnActionAdditionViewInstance(bar);
    vnMeetingMgrMonitor::sharedInstance().addInstanceToList(manager, bar);
  }

  void set(const HostObject& object, const char* key, const Value& value) {
    runtime.state<Value>(object)->set(key, value);
  }
  Value get(const HostObject& object, const char* key) const { return (*runtime.state<Value>(object))[key]; }
  void showLocation(const std::string& text) { set(field, "stringValue", text); }
  // The From field shows this address, as one's own or as that of somebody on whose behalf the window is open.
  void sendFrom(const char* address, bool isDelegating) {
    const HostObject account = runtime.create(
        "ECEmailAccount", std::make_shared<Value>(Value::dictionaryFromPairs({{"emailAddress", address}})));
    set(bar->event, "account", account);
    set(bar->editor, "currentEmailAccount", account);
    set(bar->editor, "isDelegating", isDelegating);
    bar->proxy = std::make_unique<vnERCalendarEventEditorViewController>(bar->editor);
  }
  void invite(const char* name, int type) {
    const HostObject attendee = runtime.create(
        "ECCalendarEventAttendee",
        std::make_shared<Value>(Value::dictionaryFromPairs(
            {{"name", name}, {"emailAddress", std::string(name) + "@vorn.example"}, {"attendeeType", type}})));
    Value list = get(bar->event, "attendeeList");
    list.append(attendee);
    set(bar->event, "attendeeList", list);
    set(bar->editor, "attendeeList", list);
  }

  EmbeddedClassRuntime& runtime;
  std::shared_ptr<FakeBar> bar = std::make_shared<FakeBar>();
  std::shared_ptr<vnMeetingMgr> manager = vnMeetingMgr::create();
  HostObject field;
};

}  // namespace vorn
