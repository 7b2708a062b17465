#pragma once

#include <memory>
#include <optional>
#include <string>

#include "lab/shell/ClientProcess.h"
#include "lab/shell/EmbeddedSession.h"
#include "lab/shell/LoadedPlugin.h"
#include "lab/shell/WatchSession.h"
#include "platform/embedded/EmbeddedDistributedNotifications.h"
#include "platform/embedded/EmbeddedWorkspace.h"

namespace vornlab {

// A session in real time: the client is a process of its own, and the plug-in a bundle that is loaded by its path.
class Session final : public EmbeddedSession {
 public:
  // Returns when the client listens and the plug-in has connected to it, or at once on a machine without a client.
  // The calendar must outlive this object. Throws LabError when something cannot be started.
  Session(const LabOptions& options, CalendarStore& calendar, const OutlookHost::Options& hostOptions);
  ~Session() override;

  static std::unique_ptr<LabSession> start(const LabOptions& options, CalendarStore& calendar,
                                           const OutlookHost::Options& hostOptions) {
    return std::make_unique<Session>(options, calendar, hostOptions);
  }

  const ClientProcess& client() const { return m_client; }
  // Why the client could not be started or reached; "" when it was, and when none was wanted.
  const std::string& clientTrouble() const { return m_clientTrouble; }

  using LabSession::ask;
  vorn::Value ask(const std::string& question, const vorn::Value& parameters) override;

  // The one that was started here, or by the agent.
  bool clientIsRunning() override;
  void killClient() override;
  void stopClient() override;
  void restartClient() override;
  void setFaults(const std::string& rules) override;
  MeetingStore& meetings() override;
  bool talksByNotifications() const override;

  bool waitUntil(const std::function<bool()>& condition, double seconds) override;

 private:
  void prepareClient();
  void startClient();
  // Sends the signal to the client that the agent has started, and waits until it is over.
  void endLaunchedClient(int signal);
  std::string transport() const;
  void waitForConnection();
  // Takes a step that needs the client. When it fails and the session goes on without a client, keeps the reason.
  void attempt(void (Session::*step)());
  bool hasConnected() const;

  ClientProcess m_client;
  ClientProcess m_agent;
  // Null when no bus answers.
  std::unique_ptr<vorn::EmbeddedDistributedNotifications> m_notifications;
  vorn::EmbeddedWorkspace m_workspace;
  std::string m_clientTrouble;
  std::optional<MeetingStore> m_meetings;
  std::size_t m_faultsSaid = 0;
  // Bytes that an earlier session left in the journal of a world that stays.
  std::size_t m_journalBefore = 0;
  // Absent when nobody can watch.
  std::optional<WatchSession> m_watch;
  std::optional<LoadedPlugin> m_plugin;
};

}  // namespace vornlab
