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

// -- The window controller ---------------------------------------------------------------------------------------

Value showNew(const HostCall& call) {
  const HostObject event = call.world.makeEditorEvent(Appointment::newOne(call.world));
  return call.world.send(call.self, "showWindowForEvent:", {event});
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

template <auto Part>
Value part(const HostCall&, HostEditor& editor) {
  return editor.*Part;
}

Value uncommittedChanges(const HostCall& call, HostEditor& editor) {
  Value changes = Value::dictionary();
  for (const auto& [name, value] : editor.state->uncommitted()) {
    changes.set(name, std::visit([&call](const auto& typed) { return call.world.valueOf(typed); }, value));
  }
  return changes;
}

// The typed value where there is one, otherwise the event's.
Value subject(const HostCall& call, HostEditor& editor) {
  const OptionalText& typed = editor.state->typed.summary;
  return typed ? *typed : call.world.send(editor.event, "summary").text();
}
Value start(const HostCall& call, HostEditor& editor) {
  const auto& typed = editor.state->typed.start;
  return typed ? call.world.valueOf(typed) : call.world.send(editor.event, "startTime");
}

constexpr EditorMethod kReaders[] = {
    {"content", part<&HostEditor::event>},
    {"view", part<&HostEditor::contentView>},
    {"window", part<&HostEditor::window>},
    {"locationTextField", part<&HostEditor::locationField>},
    {"uncommittedChanges", uncommittedChanges},
    {"getSubject:", subject},
    {"getStartTime:andEndTime:", start},
    {"isDirty", [](const HostCall&, HostEditor& editor) { return Value(editor.state->isDirty); }},
    {"isCancelMode", [](const HostCall&, HostEditor& editor) { return Value(editor.state->isCancelMode); }},
    {"isDelegating", [](const HostCall& call, HostEditor&) { return Value(call.world.options.delegating); }},
    {"hasMultipleAccounts", [](const HostCall&, HostEditor&) { return Value(false); }},
    {"currentEmailAccount", [](const HostCall& call, HostEditor&) { return Value(call.world.account); }},
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
    {"getLocation:", [](const HostCall& call,
                        HostEditor& editor) { return call.world.send(editor.locationField, "stringValue"); }},
};

// What the editor has its event answer.
constexpr std::pair<const char*, const char*> kAskedOfEvent[] = {{"attendeeList", "attendeeList"},
                                                                 {"meetingOrganizer", "organizer"},
                                                                 {"olmUCInband", "olmUCInband"},
                                                                 {"olmUCCapabilities", "olmUCCapabilities"}};

// -- The view controller: what changes it ------------------------------------------------------------------------

Value becomesDirty(const HostCall& call) { return call.world.send(call.self, "setIsDirty:", {true}); }

constexpr EditorMethod kChanges[] = {
    {"setIsDirty:",
     [](const HostCall& call, HostEditor& editor) {
       editor.state->isDirty = call.first().boolValue();
       return Value();
     }},
    {"setIsCancelMode:",
     [](const HostCall& call, HostEditor& editor) {
       editor.state->isCancelMode = call.first().boolValue();
       return Value();
     }},
    {"setLocation:",
     [](const HostCall& call, HostEditor& editor) {
       editor.state->typed.location = call.first().text();
       call.world.send(editor.locationField, "setStringValue:", {*editor.state->typed.location});
       return becomesDirty(call);
     }},
    {"setOlmUCInband:",
     [](const HostCall& call, HostEditor& editor) {
       call.world.send(editor.event, "setOlmUCInband:", call.arguments);
       return becomesDirty(call);
     }},
    {"setOlmUCCapabilities:",
     [](const HostCall& call, HostEditor& editor) {
       call.world.send(editor.event, "setOlmUCCapabilities:", call.arguments);
       return becomesDirty(call);
     }},
    {"hostWordMailEditor:",
     [](const HostCall& call, HostEditor&) { return call.world.send(call.self, "loadEventIntoWordMail"); }},
    {"loadEventIntoWordMail",
     [](const HostCall& call, HostEditor& editor) {
       editor.state->load(call.world.send(editor.event, "body").text());
       return Value();
     }},
    {"contentDidChange",
     [](const HostCall& call, HostEditor& editor) {
       return editor.state->contentDidChange() ? becomesDirty(call) : Value();
     }},
    // Stores the meeting and closes; no message goes anywhere.
    {"sendMeetingPostValidate",
     [](const HostCall& call, HostEditor& editor) {
       HostWorld& world = call.world;
       if (!world.send(call.self, "save").boolValue()) return Value();
       world.event(editor.event)->hasBeenSent(world, editor.state->isCancelMode);
       return world.send(editor.windowController, "close");
     }},
};

// The window stays open when the appointment could not be stored.
Value saveAndCloseWindow(const HostCall& call) {
  if (!call.world.send(call.self, "save").boolValue()) return EditorState::kNotDone;
  const auto held = call.world.editorOf(call.self);
  if (held && call.first().boolValue()) call.world.send(held->windowController, "close");
  return EditorState::kDone;
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
       if (call.at(1).integerValue() == EditorState::kWholeSeries)
         call.world.showSeriesInEditor(call.world.editorOf(call.self));
       return Value();
     }},
    {"checkMeetingChangesForAttendees:",
     [](const HostCall& call) { return Value(EditorState::namesChanges(call.first().text())); }},
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

OutlookHost::EditorId HostWorld::openEditor(const Appointment& shown, std::string_view selector) {
  const Value controller = send(classNamed(kWindowControllerClass), selector, {makeEditorEvent(shown)});
  const auto opened = editorOf(controller.object());
  return opened ? opened->id : 0;
}

HostObject HostWorld::openWindow(const HostObject& shown, bool isCancelMode) {
  if (!event(shown)) return {};
  const auto made = std::make_shared<HostEditor>();
  made->id = ++lastEditor;
  // The editor works on an event of its own, which ends with the window.
  made->event = shown;
  made->state->isCancelMode = isCancelMode;
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

  const auto compose = std::make_shared<HostComposeView>(HostComposeView{made->viewController, made->state});
  made->wordEditor = runtime.create("OLWordMailEditor", compose);
  made->wordContent = runtime.create("OLWordMailEditorContent", compose);
  send(made->viewController, "hostWordMailEditor:", {made->wordEditor});
  send(made->header, "drawRect:", {rectangle(0, 0, width, kHeaderHeight)});
  return made->windowController;
}

bool HostWorld::saveEditor(HostEditor& editor) {
  const auto shown = event(editor.event);
  if (!shown || !storeChanges(*shown, editor.state->changes())) return false;
  editor.state->saved(send(editor.event, "isMeeting").boolValue());
  send(editor.viewController, "setIsDirty:", {false});
  return true;
}

void HostWorld::showInEditor(HostEditor& editor, const HostObject& shown) {
  // Whoever has looked at the former event may still hold it while the present call goes on.
  runLoop.post([weak = weak_from_this(), former = editor.event] {
    if (const auto world = weak.lock()) world->runtime.destroy(former);
  });
  editor.event = shown;
  editor.state->forgetTyped();
  send(editor.locationField, "setStringValue:", {send(shown, "location").text()});
  send(editor.viewController, "loadEventIntoWordMail");
  send(editor.viewController, "setIsDirty:", {false});
}

void HostWorld::showSeriesInEditor(const std::shared_ptr<HostEditor>& editor) {
  const HostObject series = editor ? send(editor->event, "seriesMasterRecord").object() : HostObject();
  if (const auto shown = event(series)) showInEditor(*editor, makeEditorEvent(*shown));
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
  for (const auto& [selector, asked] : kAskedOfEvent) {
    method(kViewControllerClass, selector, [this, asked = asked](const HostObject& self, const Arguments&) {
      const auto held = editorOf(self);
      return held ? send(held->event, asked) : Value();
    });
  }
  defineOn(kViewControllerClass, kChanges, openEditor);
  define(kViewControllerClass, kSaving);

  runtime.defineClass("OLCalendarEventViewResponder", "NSObject");
  eventResponder = runtime.create("OLCalendarEventViewResponder");
  action("OLCalendarEventViewResponder", "switchToRecurringSeries:", [this](const HostObject&, const Arguments&) {
    showSeriesInEditor(editorOfCurrentEvent);
  });
}

}  // namespace vornlab
