#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>

#include "lab/outlook/CalendarStore.h"
#include "lab/shell/ClientProcess.h"
#include "lab/shell/LabOptions.h"
#include "lab/shell/MeetReport.h"
#include "lab/shell/World.h"

namespace vornlab {

// Gives this process a world folder of its own, as home, for user defaults and for everything else, and starts the
// program anew in it: Foundation reads such things once, before main(). Returns the folder, in the new run; who
// runs there removes it at the end. Throws LabError when that is impossible.
std::filesystem::path enterOwnWorld(char** arguments);

// The laboratory with the host in the Objective-C runtime of this process: the client's process, the host's
// classes over a calendar, and the bundle, loaded as such a host loads it. The client is stopped with this object;
// the bundle stays, for there is no way to take it out of the runtime again. One in a process. Main thread only.
class ObjcLab {
 public:
  // Returns when the plug-in has connected to the client. The calendar must outlive this object. Throws LabError
  // when something cannot be started.
  ObjcLab(const LabOptions& options, CalendarStore& calendar, const std::string& userAddress);
  ~ObjcLab();
  ObjcLab(const ObjcLab&) = delete;
  ObjcLab& operator=(const ObjcLab&) = delete;

  // Leads one appointment through the road: the editor opens, a person clicks Add when the bar offers it, and
  // saves or sends. Throws LabError only when the person wants the program to end.
  MeetResult take(const CalendarEvent& event);

  // Envelopes that the client has taken and given.
  std::size_t requests() const { return journalled("\"event\":\"request\""); }
  std::size_t replies() const { return journalled("\"event\":\"reply\""); }

 private:
  void loadBundle(const std::filesystem::path& bundle);
  // Answers why the road ended, or "".
  std::string walk(const CalendarEvent& event, MeetResult& result);
  bool waitUntil(const std::function<bool()>& condition, double seconds);
  void passTime(double seconds);
  // Runs the loop until the client has answered everything and nothing more has come to it for a moment. False
  // when that takes too long.
  bool waitForQuiet();
  std::size_t journalled(const char* what) const;

  LabOptions options_;
  World world_;
  ClientProcess client_;
  CalendarStore& calendar_;
  // Retained.
  void* mainWindowController_ = nullptr;
};

}  // namespace vornlab
