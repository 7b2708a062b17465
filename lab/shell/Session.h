#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "lab/outlook/CalendarStore.h"
#include "lab/outlook/OutlookHost.h"
#include "lab/shell/ClientProcess.h"
#include "lab/shell/LabOptions.h"
#include "lab/shell/LoadedPlugin.h"
#include "lab/shell/RoadTrace.h"
#include "lab/shell/World.h"
#include "platform/NotificationCenter.h"
#include "platform/embedded/AsioRunLoop.h"
#include "platform/embedded/EmbeddedClassRuntime.h"
#include "platform/embedded/EmbeddedDistributedNotifications.h"
#include "platform/embedded/EmbeddedPresenter.h"
#include "platform/embedded/EmbeddedSurroundings.h"
#include "platform/embedded/EmbeddedUserDefaults.h"
#include "platform/embedded/EmbeddedWorkspace.h"

namespace vornlab {

// The version in a text such as "10.15.0"; absent for any other text.
std::optional<vorn::Surroundings::Version> parseSystemVersion(const std::string& text);

// The plug-in clears up a hundredth of a second after a window has closed, and what it clears is shared by all
// windows: the next editor has to wait for it.
constexpr double kClearingSeconds = 0.011;

// A running laboratory: the world, the client's process, the host with a calendar, and the plug-in loaded into it.
// Everything is stopped, the youngest first, when this object ends.
class Session {
 public:
  // Returns when the client listens and the plug-in has connected to it, or at once on a machine without a client.
  // The calendar must outlive this object. Throws LabError when something cannot be started.
  Session(const LabOptions& options, CalendarStore& calendar, const OutlookHost::Options& hostOptions);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // Ends the client as a crash does, or asks it to end, and starts it again. Each returns when it is so.
  void killClient();
  void stopClient();
  void restartClient();
  bool clientIsRunning() { return m_client.isRunning(); }
  // True on a system whose plug-in needs no connection.
  bool talksByNotifications() const;
  // Saves a choice of the user, in JSON or else as a plain text: into the plug-in's profile of the signed-in user,
  // or into the user's defaults. It counts from the next time that the plug-in looks. Throws LabError.
  void saveInProfile(const std::string& key, const std::string& value);
  void saveInUserDefaults(const std::string& key, const std::string& value);

  const World& world() const { return m_world; }
  const ClientProcess& client() const { return m_client; }
  OutlookHost& host() { return m_host; }
  vorn::EmbeddedClassRuntime& runtime() { return m_runtime; }
  RoadTrace& trace() { return m_trace; }
  vorn::EmbeddedPresenter& presenter() { return m_presenter; }
  // Why the client could not be started or reached; "" when it was, and when none was wanted.
  const std::string& clientTrouble() const { return m_clientTrouble; }

  // What the plug-in answers to one of its questions for people who support users.
  vorn::Value ask(const std::string& question, const vorn::Value& parameters = vorn::Value());

  // Runs the host's loop until the condition holds or the seconds are over, and answers whether it holds. Throws
  // LabError when the person wants the program to end.
  bool waitUntil(const std::function<bool()>& condition, double seconds);
  // Runs the loop until all calls that are put off by at most these seconds have run.
  void passTime(double seconds);

  enum class Quiet { reached, clientGone, timeout };
  // Runs the loop until every request since the given counts has its reply and nothing more is due at once.
  Quiet waitForQuiet(std::size_t sentBefore, std::size_t receivedBefore, double seconds);

 private:
  vorn::Platform platform();
  void prepareClient();
  void startClient();
  void waitForConnection();
  // Takes a step that needs the client. When it fails and the session goes on without a client, keeps the reason.
  void attempt(void (Session::*step)());
  bool hasConnected() const;

  LabOptions m_options;
  World m_world;
  ClientProcess m_client;
  vorn::AsioRunLoop m_runLoop;
  // Null when no bus answers.
  std::unique_ptr<vorn::EmbeddedDistributedNotifications> m_notifications;
  vorn::NotificationCenter m_center;
  vorn::EmbeddedClassRuntime m_runtime;
  vorn::EmbeddedUserDefaults m_userDefaults;
  vorn::EmbeddedWorkspace m_workspace;
  vorn::EmbeddedSurroundings m_surroundings;
  vorn::EmbeddedPresenter m_presenter;
  RoadTrace m_trace;
  OutlookHost m_host;
  std::string m_clientTrouble;
  // Bytes that an earlier session left in the journal of a world that stays.
  std::size_t m_journalBefore = 0;
  std::optional<LoadedPlugin> m_plugin;
};

}  // namespace vornlab
