#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include "lab/client/MeetingStore.h"
#include "lab/host/HostFace.h"
#include "lab/host/HostScreen.h"
#include "lab/ics/CalendarStore.h"
#include "lab/shell/LabOptions.h"
#include "lab/shell/RoadTrace.h"
#include "lab/shell/World.h"

namespace vornlab {

// The plug-in clears up a hundredth of a second after a window has closed, and what it clears is shared by all
// windows: the next editor has to wait for it.
constexpr double kClearingSeconds = 0.011;

// A running laboratory: the world, a client, the host with a calendar, and the plug-in loaded into it. What
// commands and scenarios do, they do to one of these; where the client and the plug-in run, and on which clock, is
// the business of whoever starts it. Everything ends with this object. Main thread only.
//
// Times are seconds on the session's own clock.
class LabSession {
 public:
  LabSession() = default;
  virtual ~LabSession() = default;
  LabSession(const LabSession&) = delete;
  LabSession& operator=(const LabSession&) = delete;

  virtual const World& world() const = 0;
  virtual HostFace& host() = 0;
  virtual HostScreen& screen() = 0;
  virtual RoadTrace& trace() = 0;

  // What the plug-in answers to one of its questions for people who support users. Throws LabError for a question
  // that it does not know.
  virtual vorn::Value ask(const std::string& question, const vorn::Value& parameters) = 0;
  vorn::Value ask(const std::string& question) { return ask(question, vorn::Value()); }

  // -- The client

  virtual bool clientIsRunning() = 0;
  // Ends the client as a crash does, or asks it to end, and starts it again. Each returns when it is so.
  virtual void killClient() = 0;
  virtual void stopClient() = 0;
  virtual void restartClient() = 0;
  // What the client does wrong from its next reply on, in place of what it did before, in the language of its
  // faults; "" for nothing. Throws LabError in a session that was started without LabOptions::takesFaults.
  virtual void setFaults(const std::string& rules) = 0;
  // What the service knows, also while no client runs; valid until the next call. Throws LabError where the
  // meetings are in a client's memory, and StoreError.
  virtual MeetingStore& meetings() = 0;
  // True on a system whose plug-in needs no connection.
  virtual bool talksByNotifications() const = 0;

  // -- The user

  // Saves a choice of the user, in JSON or else as a plain text: into the plug-in's profile of the signed-in user,
  // or into the user's defaults. It counts from the next time that the plug-in looks. Throws LabError.
  virtual void saveInProfile(const std::string& key, const std::string& value) = 0;
  virtual void saveInUserDefaults(const std::string& key, const std::string& value) = 0;

  // -- Time

  // Only differences mean something.
  virtual double now() const = 0;
  // Runs the host's loop until the condition holds or the seconds are over, and answers whether it holds. Throws
  // LabError when the person wants the program to end.
  virtual bool waitUntil(const std::function<bool()>& condition, double seconds) = 0;
  // Runs the loop until all calls that are put off by at most these seconds have run.
  virtual void passTime(double seconds) = 0;
  // Runs what clears up behind a window that has closed; where nothing else is due, nobody waits for the clock.
  virtual void clearUp() { passTime(kClearingSeconds); }

  enum class Quiet { reached, clientGone, timeout };
  // Runs the loop until every request since the given counts has its reply and nothing more is due at once.
  Quiet waitForQuiet(std::size_t sentBefore, std::size_t receivedBefore, double seconds);
};

// Starts a session over a calendar, which must outlive it. Throws LabError when something cannot be started.
using StartSession = std::function<std::unique_ptr<LabSession>(const LabOptions& options, CalendarStore& calendar,
                                                               const HostOptions& hostOptions)>;

}  // namespace vornlab
