#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "lab/objc/ObjcSession.h"
#include "lab/outlook/CalendarStore.h"
#include "lab/outlook/HostControl.h"
#include "lab/shell/LabOptions.h"
#include "lab/shell/MeetCommand.h"

namespace vornlab {

// The laboratory with the host in the Objective-C runtime of this process, without windows, and what a person does
// in it. Main thread only.
class ObjcLab final : public MeetingLab, public ObjcSession {
 public:
  // Throws LabError when something cannot be started.
  ObjcLab(const LabOptions& options, CalendarStore& calendar, const std::string& userAddress);

  // The editor opens, a person clicks Add when the bar offers it, and saves or sends.
  MeetResult take(const CalendarEvent& event, MeetingRoad::Aim aim = MeetingRoad::Aim::add) override;
  std::size_t requests() override { return requestCount(); }
  std::size_t replies() override { return replyCount(); }

  // What a person does on the calendar's grid, with the appointment selected there; times in seconds since 1970.
  // Each sends what the host would send, and answers what came of it: whether the host has done it.
  bool drag(const CalendarEvent& event, double newStart);
  bool resize(const CalendarEvent& event, double newStart, double seconds);
  bool rename(const CalendarEvent& event, const std::string& subject);
  bool deleteFromCalendar(const CalendarEvent& event);
  // Whether the host, asked about an editor in which only that item was typed, such as "content.summary", finds a
  // change that attendees hear of.
  bool findsChangesForAttendees(const CalendarEvent& event, const std::string& item);

  // What a person sees and does in the main window: its panes, which bring a tab of the ribbon along, its ribbon,
  // and its toolbar.
  void showMailPane();
  void showCalendarPane();
  void chooseRibbonTab(std::uint32_t tab);
  void rebuildRibbon(bool hasAddins = true);
  HostControl ribbonControl(const ControlName& name) const;
  bool clickRibbon(const ControlName& name);
  // Drags an item from the palette to the right end; false when the host does not know it.
  bool addToolbarItem(const std::string& identifier);
  HostControl toolbarControl(const ControlName& name) const;
  bool clickToolbar(const ControlName& name);

  // The bar of the editor that was opened last.
  HostControl barControl(const ControlName& name) const;
  std::size_t openEditors() const;
  void openEditor(const CalendarEvent& event);
  // Closes them all without saving, and waits until the plug-in has cleared up.
  void closeEditors();
  // The views of exactly that class which have been made and have not ended.
  std::size_t livingViews(const std::string& className) const;

 private:
  // The plug-in clears up a hundredth of a second after a window has closed.
  static constexpr double kClearingSeconds = 0.02;
  // Answers why the road ended, or "".
  std::string walk(const CalendarEvent& event, MeetResult& result, MeetingRoad::Aim aim);
  // Selects the appointment for the time of the act, which is given the host's objects.
  bool onGrid(const CalendarEvent& event, const std::function<bool(void* grid, void* selected)>& act);
};

}  // namespace vornlab
