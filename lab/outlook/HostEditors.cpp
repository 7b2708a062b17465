// The editor of an appointment: its window, its controllers, and what a save is.

#include <algorithm>

#include "lab/outlook/HostWorld.h"

namespace vornlab {

namespace {

constexpr double kHeaderHeight = 120;
constexpr double kBodyHeight = 480;
constexpr double kFieldHeight = 22;
constexpr std::string_view kWindowControllerClass = "ERCalendarEventEditorWindowController";
constexpr std::string_view kViewControllerClass = "ERCalendarEventEditorViewController";

}  // namespace

std::shared_ptr<HostEditor> HostWorld::editor(OutlookHost::EditorId id) const {
  const auto found = editors.find(id);
  return found == editors.end() ? nullptr : found->second;
}

std::shared_ptr<HostEditor> HostWorld::editorOf(const HostObject& part) const {
  const auto found = std::find_if(editors.begin(), editors.end(), [&](const auto& entry) {
    return entry.second->viewController == part || entry.second->windowController == part ||
           entry.second->window == part;
  });
  return found == editors.end() ? nullptr : found->second;
}

OutlookHost::EditorId HostWorld::openEditor(const CalendarEvent& stored, std::string_view selector) {
  const Value controller = send(classNamed(kWindowControllerClass), selector, {makeEditorEvent(stored)});
  const auto opened = editorOf(controller.object());
  return opened ? opened->id : 0;
}

HostObject HostWorld::openWindow(const HostObject& shown, bool isCancelMode) {
  const auto held = event(shown);
  if (!held) return {};
  const auto made = std::make_shared<HostEditor>();
  made->id = ++lastEditor;
  // The editor works on an event of its own, which ends with the window.
  made->event = shown;
  made->isCancelMode = isCancelMode;
  made->windowController = runtime.create(kWindowControllerClass);
  made->viewController = runtime.create(kViewControllerClass);
  const auto window = std::make_shared<HostWindow>();
  made->window = runtime.create("NSWindow", window);
  window->controller = made->windowController;
  const double width = options.headerWidth;
  made->contentView = makeView("NSView", rectangle(0, 0, width, kHeaderHeight + kBodyHeight));
  window->contentView = made->contentView;
  view(made->contentView)->window = made->window;
  editors.emplace(made->id, made);

  // The header is drawn before it has a window, and whoever watches its making puts something into it.
  made->header = makeView(options.headerViewClass, rectangle(0, kBodyHeight, width, kHeaderHeight));
  send(made->contentView, "addSubview:", {made->header});
  made->locationField = makeView("NSTextField", rectangle(80, 40, width - 100, kFieldHeight));
  send(made->header, "addSubview:", {made->locationField});
  send(made->locationField, "setStringValue:", {send(shown, "location").text()});

  made->compose->viewController = made->viewController;
  made->wordEditor = runtime.create("OLWordMailEditor", made->compose);
  made->wordContent = runtime.create("OLWordMailEditorContent", made->compose);
  send(made->viewController, "hostWordMailEditor:", {made->wordEditor});
  send(made->header, "drawRect:", {rectangle(0, 0, width, kHeaderHeight)});
  return made->windowController;
}

bool HostWorld::saveEditor(HostEditor& editor) {
  const auto shown = event(editor.event);
  if (!shown) return false;
  Value changes = Value::dictionary();
  constexpr std::size_t prefix = std::string_view("content.").size();
  for (const auto& [name, typed] : editor.uncommitted.entries()) {
    changes.set(std::string_view(name).substr(prefix), typed);
  }
  if (editor.compose->isPlainText) changes.set("isBodyHTML", false);
  if (!storeChanges(*shown, changes)) return false;
  editor.uncommitted = Value::dictionary();
  editor.loadedHtml = editor.compose->html;
  send(editor.viewController, "setIsDirty:", {false});
  return true;
}

void HostWorld::showInEditor(HostEditor& editor, const HostObject& shown) {
  // Whoever has looked at the former event may still hold it while the present call goes on.
  runLoop.post([weak = weak_from_this(), former = editor.event] {
    if (const auto world = weak.lock()) world->runtime.destroy(former);
  });
  editor.event = shown;
  editor.uncommitted = Value::dictionary();
  send(editor.locationField, "setStringValue:", {send(shown, "location").text()});
  send(editor.viewController, "loadEventIntoWordMail");
  send(editor.viewController, "setIsDirty:", {false});
}

void HostWorld::showSeriesInEditor(const std::shared_ptr<HostEditor>& editor) {
  const HostObject series = editor ? send(editor->event, "seriesMasterRecord").object() : HostObject();
  const auto state = event(series);
  const auto stored = state ? state->stored() : std::nullopt;
  if (stored) showInEditor(*editor, makeEditorEvent(*stored));
}

void HostWorld::retireEditor(const std::shared_ptr<HostEditor>& editor) {
  if (editors.erase(editor->id) == 0) return;
  // The host lets go of its objects when its own calls have unwound. Others may still hold references to them.
  runLoop.post([weak = weak_from_this(), editor] {
    const auto world = weak.lock();
    if (!world) return;
    world->destroyViews(editor->contentView);
    for (const HostObject& object : {editor->wordContent, editor->wordEditor, editor->event,
                                     editor->viewController, editor->window, editor->windowController}) {
      world->runtime.destroy(object);
    }
  });
}

void HostWorld::defineEditors() {
  const std::string_view windows = kWindowControllerClass;
  const std::string_view editing = kViewControllerClass;
  runtime.defineClass(windows, "NSWindowController");
  runtime.defineClass(editing, "NSViewController");

  const auto show = [this](bool isCancelMode) {
    return [this, isCancelMode](const HostObject&, const Arguments& arguments) {
      return Value(openWindow(firstOf(arguments).object(), isCancelMode));
    };
  };
  for (const char* selector :
       {"showWindowForMeeting:", "showWindowForEvent:", "showWindowForEvent:isMeeting:fromMessage:"}) {
    runtime.setClassMethod(windows, selector, show(false));
  }
  runtime.setClassMethod(windows, "showCancellationWindowForMeeting:", show(true));
  const auto showNew = [this](const HostObject& self, const Arguments&) {
    constexpr double halfAnHour = 1800;
    const auto state = std::make_shared<HostEvent>();
    state->store = store;
    CalendarTime start;
    start.seconds = newEventStart;
    CalendarTime end = start;
    end.seconds += halfAnHour;
    state->changed.set("startTime", makeDate(start));
    state->changed.set("endTime", makeDate(end));
    return send(self, "showWindowForEvent:", {runtime.create("ECCalendarEvent", state)});
  };
  runtime.setClassMethod(windows, "showWindowForNewEvent", showNew);
  runtime.setClassMethod(windows, "showWindowForNewMeeting", showNew);

  method(windows, "window", [this](const HostObject& self, const Arguments&) {
    const auto held = editorOf(self);
    return held ? held->window : HostObject();
  });
  method(windows, "editorViewController", [this](const HostObject& self, const Arguments&) {
    const auto held = editorOf(self);
    return held ? held->viewController : HostObject();
  });
  action(windows, "close", [this](const HostObject& self, const Arguments&) {
    if (const auto held = editorOf(self)) send(held->window, "close");
  });

  // A method of an editor that is open; one that has closed answers absent.
  const auto onEditor = [this](std::string_view selector, auto body) {
    method(kViewControllerClass, selector, [this, body](const HostObject& self, const Arguments& arguments) {
      const auto held = editorOf(self);
      return held ? Value(body(held, arguments)) : Value();
    });
  };
  using Held = std::shared_ptr<HostEditor>;
  onEditor("content", [](const Held& held, const Arguments&) { return held->event; });
  onEditor("view", [](const Held& held, const Arguments&) { return held->contentView; });
  onEditor("window", [](const Held& held, const Arguments&) { return held->window; });
  onEditor("locationTextField", [](const Held& held, const Arguments&) { return held->locationField; });
  onEditor("uncommittedChanges", [](const Held& held, const Arguments&) { return held->uncommitted; });
  onEditor("isDirty", [](const Held& held, const Arguments&) { return held->isDirty; });
  onEditor("isCancelMode", [](const Held& held, const Arguments&) { return held->isCancelMode; });
  onEditor("isDelegating", [this](const Held&, const Arguments&) { return options.delegating; });
  onEditor("hasMultipleAccounts", [](const Held&, const Arguments&) { return false; });
  onEditor("currentEmailAccount", [this](const Held&, const Arguments&) { return account; });
  const std::pair<const char*, const char*> passedOn[] = {{"attendeeList", "attendeeList"},
                                                          {"meetingOrganizer", "organizer"},
                                                          {"olmUCInband", "olmUCInband"},
                                                          {"olmUCCapabilities", "olmUCCapabilities"}};
  for (const auto& [selector, asked] : passedOn) {
    onEditor(selector,
             [this, asked = asked](const Held& held, const Arguments&) { return send(held->event, asked); });
  }
  onEditor("isOccurrenceOrException", [this](const Held& held, const Arguments&) {
    return send(held->event, "isOccurrence").boolValue() || send(held->event, "isModifiedException").boolValue();
  });
  onEditor("recurrenceStringForCurrentEvent", [this](const Held& held, const Arguments&) {
    return Value(send(send(held->event, "recurrence").object(), "format").text());
  });
  // The typed value where there is one, otherwise the event's.
  const auto shown = [this](const Held& held, const char* item) {
    const Value& typed = held->uncommitted[std::string("content.") + item];
    return typed.isAbsent() ? send(held->event, item) : typed;
  };
  onEditor("getSubject:", [shown](const Held& held, const Arguments&) { return shown(held, "summary").text(); });
  onEditor("getLocation:",
           [this](const Held& held, const Arguments&) { return send(held->locationField, "stringValue"); });
  onEditor("getStartTime:andEndTime:",
           [shown](const Held& held, const Arguments&) { return shown(held, "startTime"); });

  action(editing, "setIsDirty:", [this](const HostObject& self, const Arguments& arguments) {
    if (const auto held = editorOf(self)) held->isDirty = firstOf(arguments).boolValue();
  });
  action(editing, "setIsCancelMode:", [this](const HostObject& self, const Arguments& arguments) {
    if (const auto held = editorOf(self)) held->isCancelMode = firstOf(arguments).boolValue();
  });
  action(editing, "fromFieldModified:", [](const HostObject&, const Arguments&) {});
  action(editing, "switchToRecurrenceDidEnd:returnCode:contextInfo:",
         [this](const HostObject& self, const Arguments& arguments) {
           constexpr int wholeSeries = 1;
           if (argumentAt(arguments, 1).integerValue() == wholeSeries) showSeriesInEditor(editorOf(self));
         });
  // Takes the changes as text: attendees hear of every change that it names.
  method(editing, "checkMeetingChangesForAttendees:", [](const HostObject&, const Arguments& arguments) {
    return firstOf(arguments).text().find("content.") != std::string::npos;
  });
  runtime.defineClass("OLCalendarEventViewResponder", "NSObject");
  eventResponder = runtime.create("OLCalendarEventViewResponder");
  action("OLCalendarEventViewResponder", "switchToRecurringSeries:", [this](const HostObject&, const Arguments&) {
    showSeriesInEditor(editorOfCurrentEvent);
  });
  action(editing, "setLocation:", [this](const HostObject& self, const Arguments& arguments) {
    const auto held = editorOf(self);
    if (!held) return;
    send(held->locationField, "setStringValue:", {firstOf(arguments).text()});
    held->uncommitted.set("content.location", firstOf(arguments).text());
    send(self, "setIsDirty:", {true});
  });
  for (const std::string selector : {"setOlmUCInband:", "setOlmUCCapabilities:"}) {
    action(editing, selector, [this, selector](const HostObject& self, const Arguments& arguments) {
      const auto held = editorOf(self);
      if (!held) return;
      send(held->event, selector, arguments);
      send(self, "setIsDirty:", {true});
    });
  }

  method(editing, "save", [this](const HostObject& self, const Arguments&) {
    const auto held = editorOf(self);
    return held && saveEditor(*held);
  });
  action(editing, "save:", [this](const HostObject& self, const Arguments&) { send(self, "save"); });
  // 0 when it is done; the window stays open when the appointment could not be stored.
  const auto saveAndCloseWindow = [this](const HostObject& self, const Arguments& arguments) {
    constexpr int done = 0;
    constexpr int notDone = -1;
    if (!send(self, "save").boolValue()) return notDone;
    const auto held = editorOf(self);
    if (held && firstOf(arguments).boolValue()) send(held->windowController, "close");
    return done;
  };
  method(editing, "saveAndCloseWindow:", saveAndCloseWindow);
  method(editing, "saveAndCloseWindow:andReturnError:", saveAndCloseWindow);
  action(editing, "saveAndClose:", [this](const HostObject& self, const Arguments&) {
    send(self, "saveAndCloseWindow:", {true});
  });
  action(editing, "sendMeetingPostValidate", [this](const HostObject& self, const Arguments&) {
    const auto held = editorOf(self);
    if (!held || !send(self, "save").boolValue()) return;
    ++sentCount;
    // A cancellation that has gone out takes the meeting off one's own calendar.
    const auto shown = event(held->event);
    if (held->isCancelMode && shown && shown->index) store->eventAt(*shown->index).remove();
    send(held->windowController, "close");
  });
}

}  // namespace vornlab
