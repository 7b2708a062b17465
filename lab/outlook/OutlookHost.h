#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "lab/outlook/CalendarStore.h"
#include "lab/outlook/HostControl.h"
#include "platform/NotificationCenter.h"
#include "platform/embedded/EmbeddedClassRuntime.h"
#include "platform/embedded/HostRunLoop.h"

namespace vornlab {

struct HostWorld;

// The stand-in host: its classes, and what a person does at it.
//
// The classes live in the class runtime, so hooks see every call, those of the host itself included. Each
// operation here is one act of a person and sends the selector that the host would send. An editor that has closed
// answers false, 0 or "". The classes answer as long as this object lives. Main thread only.
class OutlookHost {
 public:
  // An editor window, by number; 0 is none. A number is not used again.
  using EditorId = std::uint64_t;

  struct Options {
    // The address of the person whose calendar this is. When it is set, an appointment with another ORGANIZER is
    // somebody else's; when it is not, every appointment is one's own.
    std::string userAddress;
    std::string userName = "Calendar Owner";
    // The account writes plain text bodies only.
    bool plainTextOnly = false;
    // The editor is open on behalf of the account's owner.
    bool delegating = false;
    // The class of the header view that an editor builds: this one or "OLAutoLayoutAttachmentsAcceptingView".
    std::string headerViewClass = "OLCalendarHeaderContainerView";
    double headerWidth = 900;
    // The identifiers in the main window's toolbar, from left to right.
    std::vector<std::string> toolbar = {"OLNewItem", "NSToolbarFlexibleSpaceItem", "OLSearchItem"};
    // The window has a toolbar, and the mail's tab of the ribbon the chunk of the store of add-ins.
    bool hasToolbar = true;
    bool hasAddinsChunk = true;
  };

  OutlookHost(vorn::EmbeddedClassRuntime& runtime, vorn::HostRunLoop& runLoop, vorn::NotificationCenter& center,
              Options options);
  ~OutlookHost();
  OutlookHost(const OutlookHost&) = delete;
  OutlookHost& operator=(const OutlookHost&) = delete;

  // Defines the host's classes; to be called once, before a plug-in loads.
  void defineClasses();
  // Shows the calendar of the store, which outlives the host or the next open(). Editors that are open stay with
  // theirs.
  void open(CalendarStore& store);
  // Opens the main window, after the plug-in has loaded, and closes it again.
  void openMainWindow();
  void closeMainWindow();

  // Opens an editor as a double click does. 0 when there is no such appointment.
  EditorId openEditor(std::string_view uid, std::string_view recurrenceId = {});
  // Opens the editor in which a cancellation is written; its send takes the appointment off the calendar.
  EditorId openCancellation(std::string_view uid, std::string_view recurrenceId = {});
  // The same as openEditor() by the place among the store's events, for files with double or missing UIDs.
  EditorId openEditorAt(std::size_t eventIndex);
  // The event as the calendar's grid shows it, without an editor, by the same place; absent when there is none. It
  // lives as long as a copy of the reference.
  vorn::HostObject eventOnGrid(std::size_t eventIndex) const;
  // Opens an editor for a new appointment of half an hour, which enters the calendar when it is saved.
  EditorId openNew(double startSeconds);
  // The editors that are open, in the order of opening.
  std::vector<EditorId> editors() const;

  void typeSubject(EditorId editor, std::string_view text);
  void typeLocation(EditorId editor, std::string_view text);
  // The body as HTML.
  void typeBody(EditorId editor, std::string_view html);
  void typeTimes(EditorId editor, double startSeconds, double endSeconds);

  // The plug-in's bar in the header of the editor; absent when none has come up.
  vorn::HostObject barView(EditorId editor) const;
  using Control = HostControl;
  // The bar's control of that name.
  Control barControl(EditorId editor, const ControlName& name) const;
  // Clicks it: a button, or an item of the menu that a button opens. False when it is not there, hidden or
  // disabled.
  bool clickBar(EditorId editor, const ControlName& name);

  // The three ways to finish. Each returns when the host's own call has returned; a plug-in may have put the work
  // off, and isOpen() and isDirty() then tell when it is over.
  void save(EditorId editor);
  void saveAndClose(EditorId editor);
  // Stores the meeting, counts it as sent and closes; no message goes anywhere.
  void send(EditorId editor);
  void closeWithoutSaving(EditorId editor);

  // Goes from an item of a series that is open to the whole series: by the menu, and by the answer to the question
  // whether the series is meant (1; 0 stays with the item). What was typed is dropped by a change.
  void switchToSeries(EditorId editor);
  void answerSeriesQuestion(EditorId editor, int returnCode);
  // Chooses the account that the appointment is sent from; the plug-in looks at it anew.
  void changeFromField(EditorId editor);
  // Whether the host, before it stores a meeting, finds changes that the attendees should hear of.
  bool findsChangesForAttendees(EditorId editor) const;

  // What a person does on the calendar's surface, with no editor open and the main window on the screen, to the
  // appointment of that UID; a RECURRENCE-ID names an item of a series that was changed on its own, "" the single
  // appointment or the whole series.
  //
  // Each selects the appointment in the grid and sends the selector that the host would send. When a hook lets it
  // through, the change is stored at once, through saveRecord like any other; when a plug-in takes the act over,
  // the grid goes on showing what is stored. A plug-in's own work may follow later. True when the change was
  // stored by the time the act returns; false as well for an appointment that is not there.
  //
  // Moves it to another start with its length kept; times in seconds since 1970.
  bool drag(std::string_view uid, std::string_view recurrenceId, double newStartSeconds);
  // Moves its edges: another start, and another length in seconds.
  bool resize(std::string_view uid, std::string_view recurrenceId, double startSeconds, double durationSeconds);
  // Types another subject into its tile.
  bool rename(std::string_view uid, std::string_view recurrenceId, std::string_view subject);
  // Deletes it. The main window need not be open.
  bool deleteFromCalendar(std::string_view uid, std::string_view recurrenceId);
  // Cancels it as a meeting: the attendees are told, which counts as sent, and it is deleted. The main window need
  // not be open.
  bool cancelMeeting(std::string_view uid, std::string_view recurrenceId);

  // In the main window. Each pane loads with its tab of the ribbon: mail with 0, the calendar with 2.
  void showMailPane();
  void showCalendarPane();
  // Another tab, which puts its own chunks into the ribbon.
  void chooseRibbonTab(std::uint32_t tab);
  // As the host does when its window changes its size by much: another ribbon with the same tab.
  void rebuildRibbon();
  // The identifiers of the items that the main window's toolbar shows, from left to right.
  std::vector<std::string> toolbarItems() const;
  // Drags an item from the palette to the right end; false when the host does not know it.
  bool addToolbarItem(std::string_view identifier);
  // Controls of the ribbon, and of the toolbar, which asks each item first whether it may be used.
  Control ribbonControl(const ControlName& name) const;
  bool clickRibbon(const ControlName& name);
  Control toolbarControl(const ControlName& name) const;
  bool clickToolbar(const ControlName& name);

  bool isOpen(EditorId editor) const;
  bool isDirty(EditorId editor) const;
  bool hasAttendees(EditorId editor) const;
  // What the editor shows now.
  std::string subject(EditorId editor) const;
  std::string location(EditorId editor) const;
  std::string body(EditorId editor) const;

  // The objects behind an editor, absent when it has closed.
  vorn::HostObject event(EditorId editor) const;
  vorn::HostObject viewController(EditorId editor) const;
  vorn::HostObject windowController(EditorId editor) const;
  vorn::HostObject window(EditorId editor) const;
  vorn::HostObject headerView(EditorId editor) const;

  // How often a meeting was sent to its attendees, and a record stored, since the host began.
  int sentCount() const;
  int storedCount() const;

 private:
  std::shared_ptr<HostWorld> m_world;
};

}  // namespace vornlab
