#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "lab/host/EditorState.h"
#include "lab/outlook/OutlookHost.h"

namespace vornlab {

using vorn::Arguments;
using vorn::HostObject;
using vorn::OptionalText;
using vorn::Value;

// What an NSView, or an NSTextField, holds.
struct HostView {
  Value frame;
  HostObject superview;
  // Of the content view only; the views below find it by going up.
  HostObject window;
  std::vector<HostObject> subviews;
  bool isHidden = false;
  std::string text;
  // What was set at it by its name, such as "toolTip".
  Value properties = Value::dictionary();
};

// What a menu, an item of one, or an image holds, likewise.
struct HostThing {
  Value properties = Value::dictionary();
};

struct HostWindow {
  HostObject controller;
  HostObject contentView;
  HostObject toolbar;
  bool isVisible = true;
};

// What an OLWordMailEditor and its content hold.
struct HostComposeView {
  HostObject viewController;
  std::shared_ptr<EditorState> state;
};

// An editor window with its objects.
struct HostEditor {
  OutlookHost::EditorId id = 0;
  HostObject windowController;
  HostObject viewController;
  HostObject window;
  HostObject contentView;
  HostObject header;
  HostObject locationField;
  HostObject event;
  HostObject wordEditor;
  HostObject wordContent;
  std::shared_ptr<EditorState> state = std::make_shared<EditorState>();
};

// The calendar's grid in the main window; all absent while that is closed.
struct HostGrid {
  HostObject view;
  HostObject controller;
  HostObject wrapper;
  // Lives as long as it is selected.
  HostObject selectedEvent;
};

// The ribbon in the main window; all absent while that is closed.
struct HostRibbon {
  HostObject view;
  HostObject container;
  std::uint32_t tab = 0;
};

// What an NSToolbar holds.
struct HostToolbar {
  HostObject delegate;
  std::vector<HostObject> items;
};

struct HostWorld;

// A call of one of the host's methods.
struct HostCall {
  HostWorld& world;
  const HostObject& self;
  const Arguments& arguments;

  // The first argument, and any other; absent when there is none.
  Value first() const { return at(0); }
  Value at(std::size_t index) const { return index < arguments.size() ? arguments[index] : Value(); }
};

// A row of a table of methods; and one that works on what the receiver stands for, such as an open editor.
struct HostMethod {
  std::string_view selector;
  Value (*answer)(const HostCall& call);
};
template <typename State>
struct HostMethodOn {
  std::string_view selector;
  Value (*answer)(const HostCall& call, State& state);
};

// What all classes of the stand-in host share.
struct HostWorld : HostState, std::enable_shared_from_this<HostWorld> {
  vorn::EmbeddedClassRuntime& runtime;
  vorn::HostRunLoop& runLoop;
  vorn::NotificationCenter& center;
  HostObject application;
  HostObject account;
  HostObject appDelegate;
  HostObject eventResponder;
  HostObject mainWindowController;
  HostGrid grid;
  HostRibbon ribbon;
  // The editor whose window the event comes from that the application handles at present; null for none.
  std::shared_ptr<HostEditor> editorOfCurrentEvent;
  // One object for each name, so that the same zone is the same object.
  std::map<std::string, HostObject> timeZones;
  std::map<OutlookHost::EditorId, std::shared_ptr<HostEditor>> editors;
  OutlookHost::EditorId lastEditor = 0;
  // The item that the person chooses in the next menu, and whether that could be done.
  std::optional<ControlName> menuChoice;
  bool hasChosen = false;

  HostWorld(vorn::EmbeddedClassRuntime& classes, vorn::HostRunLoop& loop, vorn::NotificationCenter& notifications,
            OutlookHost::Options chosen)
      : runtime(classes), runLoop(loop), center(notifications) {
    options = std::move(chosen);
  }

  Value send(const HostObject& receiver, std::string_view selector, const Arguments& arguments = {}) const {
    return runtime.send(receiver, selector, arguments);
  }
  HostObject classNamed(std::string_view name) const {
    return runtime.classObject(runtime.NSClassFromString(name));
  }

  // Defines the methods of a class by a table.
  void define(std::string_view className, std::span<const HostMethod> rows);
  // The same on what the receiver stands for, which `find` gives for an object, as a pointer or an optional.
  // Without that the answer is absent.
  template <typename State, std::size_t Rows, typename Find>
  void defineOn(std::string_view className, const HostMethodOn<State> (&rows)[Rows], Find find) {
    for (const HostMethodOn<State>& row : rows) {
      runtime.setInstanceMethod(
          className, row.selector,
          [this, find, answer = row.answer](const HostObject& self, const Arguments& arguments) {
            auto state = find(self);
            return state ? answer({*this, self, arguments}, *state) : Value();
          });
    }
  }

  // Each defines the classes of one subject. The views come first: the others build on them.
  void defineViews();
  void defineControls();
  void defineDates();
  void defineEvents();
  void defineRecords();
  void defineAccounts();
  void defineEditors();
  void defineComposeView();
  void defineMainWindow();
  void defineToolbar();
  void defineRibbon();
  void defineGrid();

  // Defines an instance method as a function of the receiver and the arguments.
  template <typename Method>
  void method(std::string_view className, std::string_view selector, Method body) {
    runtime.setInstanceMethod(className, selector, [body](const HostObject& self, const Arguments& arguments) {
      return Value(body(self, arguments));
    });
  }
  // The same for a method without a result.
  template <typename Action>
  void action(std::string_view className, std::string_view selector, Action body) {
    runtime.setInstanceMethod(className, selector, [body](const HostObject& self, const Arguments& arguments) {
      body(self, arguments);
      return Value();
    });
  }

  // A button with an action; or the item with it of the menu that a view opens, and that view.
  struct Control {
    HostObject view;
    HostObject item;
  };
  // Anywhere below the view, or at it; absent when there is none.
  Control controlNamed(const HostObject& root, const ControlName& name) const;
  Control controlAt(const HostObject& view, const ControlName& name) const;
  // The toolbar's item that is the control, or whose view opens a menu with it; an item shows nothing else.
  Control toolbarControl(const ControlName& name) const;
  // As a person does: false when the control cannot be seen or is disabled.
  bool press(const Control& control, const ControlName& name);
  OutlookHost::Control look(const Control& control) const;
  // What was set at a view, a menu, an item or an image.
  Value& properties(const HostObject& object);

  std::shared_ptr<HostView> view(const HostObject& object);
  HostObject makeView(std::string_view className, const Value& frame);
  void addSubview(const HostObject& superview, const HostObject& subview);
  void removeFromSuperview(const HostObject& object);
  HostObject windowOf(const HostObject& view);
  // Ends the view and all views below it.
  void destroyViews(const HostObject& object);

  HostObject makeDate(const CalendarTime& time) const;
  // What a date tells; absent for what is none.
  std::optional<CalendarTime> timeOf(const Value& date) const;
  HostObject timeZone(const std::string& name);

  // An appointment as somebody looks at it, which lives as long as a copy of the reference; and one of an editor's
  // own, which lives until the editor lets go of it.
  HostObject makeEvent(const Appointment& shown) const;
  HostObject makeEditorEvent(const Appointment& shown) const;
  // What an ECCalendarEvent, the record of a save, an ECRecurrence or an ECRecordUID stands for; null for others.
  std::shared_ptr<Appointment> event(const HostObject& object) const { return runtime.state<Appointment>(object); }
  // What the model tells, as the host's classes answer it.
  template <typename Plain>
  Value valueOf(const Plain& plain) const {
    return plain;
  }
  Value valueOf(const CalendarTime& time) const { return makeDate(time); }
  Value valueOf(const std::optional<CalendarTime>& time) const { return time ? Value(makeDate(*time)) : Value(); }
  Value valueOf(const std::optional<Appointment>& other) const;
  Value valueOf(const std::vector<CalendarAttendee>& attendees) const;

  // Stores these changes and those in memory through a record of its own; false when they were not stored.
  bool storeChanges(Appointment& shown, const AppointmentChanges& changes);

  // Builds the ribbon with the chunks of the tab that is active; the one before ends.
  void buildRibbon();
  // Shows the tab's chunks in the ribbon that stands, and draws it.
  void showRibbonTab(std::uint32_t tab);
  void fillMainWindow(HostWindow& window);
  void fillToolbar(HostWindow& window);
  void emptyMainWindow();
  // Selects an appointment in the grid and gives its event; absent when either is not there.
  HostObject selectInGrid(std::string_view uid, std::string_view recurrenceId);

  // Opens an editor through one of the class methods that show a window; 0 when none has come up.
  OutlookHost::EditorId openEditor(const Appointment& shown, std::string_view selector);
  HostObject openWindow(const HostObject& event, bool isCancelMode);
  // Shows another appointment in an open editor.
  void showInEditor(HostEditor& editor, const HostObject& event);
  void showSeriesInEditor(const std::shared_ptr<HostEditor>& editor);
  std::shared_ptr<HostEditor> editor(OutlookHost::EditorId id) const;
  // The open editor with that window, window controller or view controller; null when there is none.
  std::shared_ptr<HostEditor> editorOf(const HostObject& part) const;
  bool saveEditor(HostEditor& editor);
  // Ends the editor of a window that has closed.
  void retireEditor(const std::shared_ptr<HostEditor>& editor);
};

// The first argument, and any other; absent when there is none.
Value firstOf(const Arguments& arguments);
Value argumentAt(const Arguments& arguments, std::size_t index);
Value rectangle(double x, double y, double width, double height);

}  // namespace vornlab
