#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>

#include "lab/outlook/CalendarStore.h"
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
  MeetResult take(const CalendarEvent& event) override;
  std::size_t requests() override { return journalled("\"event\":\"request\""); }
  std::size_t replies() override { return journalled("\"event\":\"reply\""); }

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

  // Runs the loop until the client has answered everything and nothing more has come to it for a moment. False
  // when that takes too long.
  bool waitForQuiet();

 private:
  // The plug-in clears up a hundredth of a second after a window has closed.
  static constexpr double kClearingSeconds = 0.02;

  void loadBundle(const std::filesystem::path& bundle);
  // Answers why the road ended, or "".
  std::string walk(const CalendarEvent& event, MeetResult& result);
  bool waitUntil(const std::function<bool()>& condition, double seconds);
  void passTime(double seconds);
  // Selects the appointment for the time of the act, which is given the host's objects.
  bool onGrid(const CalendarEvent& event, const std::function<bool(void* grid, void* selected)>& act);
  std::size_t journalled(const char* what) const;

  LabOptions m_options;
  World m_world;
  ClientProcess m_client;
  CalendarStore& m_calendar;
  int (*m_answer)(const char*, const vorn::Value*, vorn::Value*) = nullptr;
  // Retained.
  void* m_mainWindowController = nullptr;
};

}  // namespace vornlab
