#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

#include "lab/outlook/CalendarStore.h"
#include "lab/shell/ClientProcess.h"
#include "lab/shell/LabOptions.h"
#include "lab/shell/World.h"
#include "util/Value.h"

namespace vornlab {

// Gives this process a world folder of its own, as home, for user defaults and for everything else, and starts the
// program anew in it: Foundation reads such things once, before main(). Returns the folder, in the new run; who
// runs there removes it at the end. Throws LabError when that is impossible.
std::filesystem::path enterOwnWorld(char** arguments);

// The world, the client's process, and the host's classes over a calendar in the Objective-C runtime of this
// process, with the bundle loaded as such a host loads it. The client is stopped with this object; the bundle
// stays, for there is no way to take it out of the runtime again. One in a process. Main thread only.
class ObjcSession {
 public:
  // Returns when the plug-in has connected to the client, or at once when none is wanted. The calendar must
  // outlive this object. Throws LabError when something cannot be started.
  ObjcSession(const LabOptions& options, CalendarStore& calendar, const std::string& userAddress);
  virtual ~ObjcSession();
  ObjcSession(const ObjcSession&) = delete;
  ObjcSession& operator=(const ObjcSession&) = delete;

  const LabOptions& options() const { return m_options; }
  CalendarStore& calendar() { return m_calendar; }
  // The requests that the client has had so far, and its replies.
  std::size_t requestCount() const { return journalled({kRequest}); }
  std::size_t replyCount() const { return journalled({"\"event\":\"reply\""}); }

  // What the plug-in answers to one of its questions for people who support users. Throws LabError for a question
  // that it does not know.
  vorn::Value ask(const std::string& question, const vorn::Value& parameters = vorn::Value());
  // What it sees in an appointment, in groups.
  vorn::Value inspect(const CalendarEvent& event);

  // Runs the loop until the condition holds or the seconds are over, and answers whether it holds. Throws
  // Interrupted when the person wants the program to end.
  bool waitUntil(const std::function<bool()>& condition, double seconds);
  // Runs the loop for a time, in seconds.
  void passTime(double seconds);
  // Runs the loop until the client has answered everything and nothing more has come to it for a moment. False
  // when that takes too long.
  bool waitForQuiet();

 protected:
  // The controller of the host's main window, an object of its class.
  void* mainWindowController() const { return m_mainWindowController; }
  // Lets the loop do what is due, for at most a moment.
  virtual void turn();

 private:
  static constexpr std::string_view kRequest = "\"event\":\"request\"";

  void loadBundle(const std::filesystem::path& bundle);
  // The lines of the client's journal that hold all of these.
  std::size_t journalled(std::initializer_list<std::string_view> parts) const;

  LabOptions m_options;
  World m_world;
  ClientProcess m_client;
  CalendarStore& m_calendar;
  int (*m_answer)(const char*, const vorn::Value*, vorn::Value*) = nullptr;
  // Retained.
  void* m_applicationDelegate = nullptr;
  void* m_mainWindowController = nullptr;
};

}  // namespace vornlab
