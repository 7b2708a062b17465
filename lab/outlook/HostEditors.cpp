// The editor of an appointment: its window, its controllers, and what a save is.

#include <algorithm>
#include <chrono>

#include "lab/outlook/HostWorld.h"

namespace vornlab {

namespace {

constexpr double kHeaderHeight = 120;
constexpr double kBodyHeight = 480;
constexpr double kFieldHeight = 22;
constexpr std::string_view kWindowControllerClass = "ERCalendarEventEditorWindowController";
constexpr std::string_view kViewControllerClass = "ERCalendarEventEditorViewController";

// -- The window controller ---------------------------------------------------------------------------------------

Value showNew(const HostCall& call) {
  HostWorld& world = call.world;
  const auto state = std::make_shared<HostEvent>();
  state->store = world.store;
  CalendarTime start;
  const std::chrono::duration<double> now = std::chrono::system_clock::now().time_since_epoch();
  start.seconds = world.takeNewStart(now.count());
  CalendarTime end = start;
  end.seconds += HostState::kHalfAnHour;
  state->changed.set("startTime", world.makeDate(start));
  state->changed.set("endTime", world.makeDate(end));
  return world.send(call.self, "showWindowForEvent:", {world.runtime.create("ECCalendarEvent", state)});
}

Value showEvent(const HostCall& call) { return call.world.openWindow(call.first().object(), false); }

constexpr HostMethod kWindowOpeners[] = {
    {"showWindowForMeeting:", showEvent},
    {"showWindowForEvent:", showEvent},
    {"showWindowForEvent:isMeeting:fromMessage:", showEvent},
    {"showCancellationWindowForMeeting:",
     [](const HostCall& call) { return Value(call.world.openWindow(call.first().object(), true)); }},
    {"showWindowForNewEvent", showNew},
    {"showWindowForNewMeeting", showNew},
};

using EditorMethod = HostMethodOn<HostEditor>;

constexpr EditorMethod kOfWindowController[] = {
    {"window", [](const HostCall&, HostEditor& editor) { return Value(editor.window); }},
    {"editorViewController", [](const HostCall&, HostEditor& editor) { return Value(editor.viewController); }},
    {"close", [](const HostCall& call, HostEditor& editor) { return call.world.send(editor.window, "close"); }},
};

// -- The view controller: what it tells --------------------------------------------------------------------------

// The typed value where there is one, otherwise the event's.
Value shownItem(const HostCall& call, const HostEditor& editor, const char* item) {
  const Value& typed = editor.uncommitted[std::string("content.") + item];
  return typed.isAbsent() ? call.world.send(editor.event, item) : typed;
}

constexpr EditorMethod kReaders[] = {
    {"content", [](const HostCall&, HostEditor& editor) { return Value(editor.event); }},
    {"view", [](const HostCall&, HostEditor& editor) { return Value(editor.contentView); }},
    {"window", [](const HostCall&, HostEditor& editor) { return Value(editor.window); }},
    {"locationTextField", [](const HostCall&, HostEditor& editor) { return Value(editor.locationField); }},
    {"uncommittedChanges", [](const HostCall&, HostEditor& editor) { return editor.uncommitted; }},
    {"isDirty", [](const HostCall&, HostEditor& editor) { return Value(editor.isDirty); }},
    {"isCancelMode", [](const HostCall&, HostEditor& editor) { return Value(editor.isCancelMode); }},
    {"isDelegating", [](const HostCall& call, HostEditor&) { return Value(call.world.options.delegating); }},
    {"hasMultipleAccounts", [](const HostCall&, HostEditor&) { return Value(false); }},
    {"currentEmailAccount", [](const HostCall& call, HostEditor&) { return Value(call.world.account); }},
    {"attendeeList",
     [](const HostCall& call, HostEditor& editor) { return call.world.send(editor.event, "attendeeList"); }},
    {"meetingOrganizer",
     [](const HostCall& call, HostEditor& editor) { return call.world.send(editor.event, "organizer"); }},
    {"olmUCInband",
     [](const HostCall& call, HostEditor& editor) { return call.world.send(editor.event, "olmUCInband"); }},
    {"olmUCCapabilities",
     [](const HostCall& call, HostEditor& editor) { return call.world.send(editor.event, "olmUCCapabilities"); }},
    {"isOccurrenceOrException",
     [](const HostCall& call, HostEditor& editor) {
       const auto is = [&](const char* question) { return call.world.send(editor.event, question).boolValue(); };
       return Value(is("isOccurrence") || is("isModifiedException"));
     }},
    {"recurrenceStringForCurrentEvent",
     [](const HostCall& call, HostEditor& editor) {
       const HostObject recurrence = call.world.send(editor.event, "recurrence").object();
       return Value(call.world.send(recurrence, "format").text());
     }},
    {"getSubject:",
     [](const HostCall& call, HostEditor& editor) { return Value(shownItem(call, editor, "summary").text()); }},
    {"getLocation:", [](const HostCall& call,
                        HostEditor& editor) { return call.world.send(editor.locationField, "stringValue"); }},
    {"getStartTime:andEndTime:",
     [](const HostCall& call, HostEditor& editor) { return shownItem(call, editor, "startTime"); }},
};

// -- The view controller: what changes it ------------------------------------------------------------------------

Value storeRecord(const HostCall& call, HostEditor& editor, const char* selector) {
  call.world.send(editor.event, selector, call.arguments);
  return call.world.send(call.self, "setIsDirty:", {true});
}

constexpr EditorMethod kChanges[] = {
    {"setIsDirty:",
     [](const HostCall& call, HostEditor& editor) {
       editor.isDirty = call.first().boolValue();
       return Value();
     }},
    {"setIsCancelMode:",
     [](const HostCall& call, HostEditor& editor) {
       editor.isCancelMode = call.first().boolValue();
       return Value();
     }},
    {"setLocation:",
     [](const HostCall& call, HostEditor& editor) {
       const std::string text = call.first().text();
       call.world.send(editor.locationField, "setStringValue:", {text});
       editor.uncommitted.set("content.location", text);
       return call.world.send(call.self, "setIsDirty:", {true});
     }},
    {"setOlmUCInband:",
     [](const HostCall& call, HostEditor& editor) { return storeRecord(call, editor, "setOlmUCInband:"); }},
    {"setOlmUCCapabilities:",
     [](const HostCall& call, HostEditor& editor) { return storeRecord(call, editor, "setOlmUCCapabilities:"); }},
    {"sendMeetingPostValidate",
     [](const HostCall& call, HostEditor& editor) {
       HostWorld& world = call.world;
       if (!world.send(call.self, "save").boolValue()) return Value();
       ++world.sentCount;
       // A cancellation that has gone out takes the meeting off one's own calendar.
       const auto shown = world.event(editor.event);
       if (editor.isCancelMode && shown && shown->index) world.store->eventAt(*shown->index).remove();
       return world.send(editor.windowController, "close");
     }},
};

// 0 when it is done; the window stays open when the appointment could not be stored.
Value saveAndCloseWindow(const HostCall& call) {
  constexpr int done = 0;
  constexpr int notDone = -1;
  if (!call.world.send(call.self, "save").boolValue()) return notDone;
  const auto held = call.world.editorOf(call.self);
  if (held && call.first().boolValue()) call.world.send(held->windowController, "close");
  return done;
}

// These answer also when the editor has closed.
constexpr HostMethod kSaving[] = {
    {"save",
     [](const HostCall& call) {
       const auto held = call.world.editorOf(call.self);
       return Value(held && call.world.saveEditor(*held));
     }},
    {"save:",
     [](const HostCall& call) {
       call.world.send(call.self, "save");
       return Value();
     }},
    {"saveAndCloseWindow:", saveAndCloseWindow},
    {"saveAndCloseWindow:andReturnError:", saveAndCloseWindow},
    {"saveAndClose:",
     [](const HostCall& call) {
       call.world.send(call.self, "saveAndCloseWindow:", {true});
       return Value();
     }},
    {"fromFieldModified:", [](const HostCall&) { return Value(); }},
    {"switchToRecurrenceDidEnd:returnCode:contextInfo:",
     [](const HostCall& call) {
       constexpr int wholeSeries = 1;
       if (call.at(1).integerValue() == wholeSeries) {
         call.world.showSeriesInEditor(call.world.editorOf(call.self));
       }
       return Value();
     }},
    // Takes the changes as text: attendees hear of every change that it names.
    {"checkMeetingChangesForAttendees:",
     [](const HostCall& call) { return Value(call.first().text().find("content.") != std::string::npos); }},
};

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
  const auto openEditor = [this](const HostObject& self) { return editorOf(self); };
  runtime.defineClass(kWindowControllerClass, "NSWindowController");
  for (const auto& [selector, answer] : kWindowOpeners) {
    runtime.setClassMethod(kWindowControllerClass, selector,
                           [this, answer = answer](const HostObject& self, const Arguments& arguments) {
                             return answer({*this, self, arguments});
                           });
  }
  defineOn(kWindowControllerClass, kOfWindowController, openEditor);

  runtime.defineClass(kViewControllerClass, "NSViewController");
  defineOn(kViewControllerClass, kReaders, openEditor);
  defineOn(kViewControllerClass, kChanges, openEditor);
  define(kViewControllerClass, kSaving);

  runtime.defineClass("OLCalendarEventViewResponder", "NSObject");
  eventResponder = runtime.create("OLCalendarEventViewResponder");
  action("OLCalendarEventViewResponder", "switchToRecurringSeries:", [this](const HostObject&, const Arguments&) {
    showSeriesInEditor(editorOfCurrentEvent);
  });
}

}  // namespace vornlab
