#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "lab/host/HostControl.h"
#include "lab/host/HostOptions.h"
#include "util/HostObject.h"

namespace vornlab {

// What a person does at a stand-in host and sees of it, by what is meant. Whatever the host's classes are made of,
// each act sends the selectors that the host would send, so that hooks see every one.
//
// An editor that has closed answers false, 0 or "", and an act in it does nothing. Texts are UTF-8, times seconds
// since 1970. Main thread only.
class HostFace {
 public:
  // An editor window, by number; 0 is none. A number is not used again.
  using EditorId = std::uint64_t;
  using Options = HostOptions;
  using Control = HostControl;

  HostFace() = default;
  virtual ~HostFace() = default;
  HostFace(const HostFace&) = delete;
  HostFace& operator=(const HostFace&) = delete;

  // -- The main window

  // Opens it after the plug-in has loaded, and closes it again; nothing when that is so already.
  virtual void openMainWindow() = 0;
  virtual void closeMainWindow() = 0;
  // Each pane loads with its tab of the ribbon: mail with 0, the calendar with 2.
  virtual void showMailPane() = 0;
  virtual void showCalendarPane() = 0;
  // Another tab, which puts its own chunks into the ribbon.
  virtual void chooseRibbonTab(std::uint32_t tab) = 0;
  // As the host does when its window changes its size by much: another ribbon with the same tab.
  virtual void rebuildRibbon() = 0;
  // Drags an item from the palette to the right end of the toolbar; false when the host does not know it.
  virtual bool addToolbarItem(std::string_view identifier) = 0;
  // Controls of the ribbon, and of the toolbar, which asks each item first whether it may be used. A click answers
  // false for a control that is not there, hidden or disabled.
  virtual Control ribbonControl(const ControlName& name) const = 0;
  virtual bool clickRibbon(const ControlName& name) = 0;
  virtual Control toolbarControl(const ControlName& name) const = 0;
  virtual bool clickToolbar(const ControlName& name) = 0;

  // -- Editors

  // Opens an editor as a double click does, by the place among the store's events. 0 when there is no such
  // appointment.
  virtual EditorId openEditorAt(std::size_t eventIndex) = 0;
  // Opens the editor in which a cancellation is written; its send takes the appointment off the calendar.
  virtual EditorId openCancellation(std::string_view uid, std::string_view recurrenceId) = 0;
  // Opens an editor for a new appointment of half an hour, which enters the calendar when it is saved.
  virtual EditorId openNew(double startSeconds) = 0;
  // The editors that are open, in the order of opening.
  virtual std::vector<EditorId> editors() const = 0;

  virtual void typeSubject(EditorId editor, std::string_view text) = 0;
  virtual void typeLocation(EditorId editor, std::string_view text) = 0;
  // The body as HTML.
  virtual void typeBody(EditorId editor, std::string_view html) = 0;
  virtual void typeTimes(EditorId editor, double startSeconds, double endSeconds) = 0;

  // The plug-in's bar in the header of the editor; absent when none has come up.
  virtual vorn::HostObject barView(EditorId editor) const = 0;
  // The bar's control of that name, and a click on it: a button, or an item of the menu that a button opens.
  virtual Control barControl(EditorId editor, const ControlName& name) const = 0;
  virtual bool clickBar(EditorId editor, const ControlName& name) = 0;

  // The ways to finish. Each returns when the host's own call has returned; a plug-in may have put the work off,
  // and isOpen() and isDirty() then tell when it is over.
  virtual void save(EditorId editor) = 0;
  virtual void saveAndClose(EditorId editor) = 0;
  // The host's other selector that does so, which reports an error by a pointer.
  virtual void saveAndCloseOrTell(EditorId editor) = 0;
  // Stores the meeting, counts it as sent and closes; no message goes anywhere.
  virtual void send(EditorId editor) = 0;
  virtual void closeWithoutSaving(EditorId editor) = 0;

  // Chooses the account that the appointment is sent from; the plug-in looks at it anew.
  virtual void changeFromField(EditorId editor) = 0;
  // Whether the host, before it stores a meeting, finds changes that the attendees should hear of.
  virtual bool findsChangesForAttendees(EditorId editor) const = 0;

  virtual bool isOpen(EditorId editor) const = 0;
  virtual bool isDirty(EditorId editor) const = 0;
  virtual bool hasAttendees(EditorId editor) const = 0;
  // What the editor shows now.
  virtual std::string subject(EditorId editor) const = 0;
  virtual std::string location(EditorId editor) const = 0;
  virtual std::string body(EditorId editor) const = 0;

  // -- The calendar's surface

  // The event as the calendar's grid shows it, without an editor, by its place among the store's events; absent
  // when there is none. It lives as long as a copy of the reference.
  virtual vorn::HostObject eventOnGrid(std::size_t eventIndex) const = 0;

  // What a person does on the calendar's surface, with no editor open and the main window on the screen, to the
  // appointment of that UID; a RECURRENCE-ID names an item of a series that was changed on its own, "" the single
  // appointment or the whole series.
  //
  // Each selects the appointment in the grid and sends the selector that the host would send. When a hook lets it
  // through, the change is stored at once, through saveRecord like any other; when a plug-in takes the act over,
  // the grid goes on showing what is stored. A plug-in's own work may follow later. True when the change was
  // stored by the time the act returns; false as well for an appointment that is not there.
  //
  // Moves it to another start with its length kept.
  virtual bool drag(std::string_view uid, std::string_view recurrenceId, double newStartSeconds) = 0;
  // Moves its edges: another start, and another length in seconds.
  virtual bool resize(std::string_view uid, std::string_view recurrenceId, double startSeconds,
                      double durationSeconds) = 0;
  // Types another subject into its tile.
  virtual bool rename(std::string_view uid, std::string_view recurrenceId, std::string_view subject) = 0;
  // Deletes it. The main window need not be open.
  virtual bool deleteFromCalendar(std::string_view uid, std::string_view recurrenceId) = 0;
  // Cancels it as a meeting: the attendees are told, which counts as sent, and it is deleted. The main window need
  // not be open.
  virtual bool cancelMeeting(std::string_view uid, std::string_view recurrenceId) = 0;

  // -- For questions to the plug-in

  // The objects behind an editor, absent when it has closed.
  virtual vorn::HostObject viewController(EditorId editor) const = 0;
  virtual vorn::HostObject window(EditorId editor) const = 0;
  // How often a meeting was sent to its attendees since the host began.
  virtual int sentCount() const = 0;
};

}  // namespace vornlab
