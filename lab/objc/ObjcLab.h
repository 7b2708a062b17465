#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

#include "lab/outlook/CalendarStore.h"
#include "lab/outlook/HostControl.h"
#include "lab/shell/ClientProcess.h"
#include "lab/shell/LabOptions.h"
#include "lab/shell/MeetCommand.h"
#include "lab/shell/World.h"
#include "util/Value.h"

namespace vornlab {

// Gives this process a world folder of its own, as home, for user defaults and for everything else, and starts the
// program anew in it: Foundation reads such things once, before main(). Returns the folder, in the new run; who
// runs there removes it at the end. Throws LabError when that is impossible.
std::filesystem::path enterOwnWorld(char** arguments);

// The laboratory with the host in the Objective-C runtime of this process: the client's process, the host's
// classes over a calendar, and the bundle, loaded as such a host loads it. The client is stopped with this object;
// the bundle stays, for there is no way to take it out of the runtime again. One in a process. Main thread only.
class ObjcLab final : public MeetingLab {
 public:
  // Returns when the plug-in has connected to the client, or at once when none is wanted. The calendar must
  // outlive this object. Throws LabError when something cannot be started.
  ObjcLab(const LabOptions& options, CalendarStore& calendar, const std::string& userAddress);
  ~ObjcLab() override;
  ObjcLab(const ObjcLab&) = delete;
  ObjcLab& operator=(const ObjcLab&) = delete;

  // The editor opens, a person clicks Add when the bar offers it, and saves or sends.
  MeetResult take(const CalendarEvent& event, MeetingRoad::Aim aim = MeetingRoad::Aim::add) override;
  std::size_t requests() override { return journalled({kRequest}); }
  std::size_t replies() override { return journalled({"\"event\":\"reply\""}); }

  // What the plug-in answers to one of its questions for people who support users. Throws LabError for a question
  // that it does not know.
  vorn::Value ask(const std::string& question, const vorn::Value& parameters = vorn::Value());
  // What it sees in an appointment, in groups.
  vorn::Value inspect(const CalendarEvent& event);

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
  // Runs the loop for a time, in seconds.
  void passTime(double seconds);

  // Runs the loop until the client has answered everything and nothing more has come to it for a moment. False
  // when that takes too long.
  bool waitForQuiet();

 private:
  // The plug-in clears up a hundredth of a second after a window has closed.
  static constexpr double kClearingSeconds = 0.02;
  static constexpr std::string_view kRequest = "\"event\":\"request\"";

  void loadBundle(const std::filesystem::path& bundle);
  // Answers why the road ended, or "".
  std::string walk(const CalendarEvent& event, MeetResult& result, MeetingRoad::Aim aim);
  bool waitUntil(const std::function<bool()>& condition, double seconds);
  // Selects the appointment for the time of the act, which is given the host's objects.
  bool onGrid(const CalendarEvent& event, const std::function<bool(void* grid, void* selected)>& act);
  // The lines of the client's journal that hold all of these.
  std::size_t journalled(std::initializer_list<std::string_view> parts) const;

  LabOptions m_options;
  World m_world;
  ClientProcess m_client;
  CalendarStore& m_calendar;
  int (*m_answer)(const char*, const vorn::Value*, vorn::Value*) = nullptr;
  // Retained.
  void* m_mainWindowController = nullptr;
};

}  // namespace vornlab
