#pragma once

#include <memory>
#include <optional>
#include <string>

#include "lab/shell/ClientSide.h"
#include "lab/shell/EmbeddedSession.h"
#include "lab/shell/LoadedPlugin.h"
#include "lab/shell/watch/WatchSession.h"
#include "platform/embedded/EmbeddedDistributedNotifications.h"
#include "platform/embedded/EmbeddedWorkspace.h"

namespace vornlab {

// A session in real time: the client is a process of its own, and the plug-in a bundle that is loaded by its path.
class Session final : public EmbeddedSession {
 public:
  // Returns when the client listens and the plug-in has connected to it, or at once on a machine without a client.
  // The calendar must outlive this object. Throws LabError when something cannot be started.
  Session(const LabOptions& options, CalendarStore& calendar, const HostOptions& hostOptions);
  ~Session() override;

  static std::unique_ptr<LabSession> start(const LabOptions& options, CalendarStore& calendar,
                                           const HostOptions& hostOptions) {
    return std::make_unique<Session>(options, calendar, hostOptions);
  }

  const ClientProcess& client() const { return m_client.process(); }
  // Why the client could not be started or reached; "" when it was, and when none was wanted.
  const std::string& clientTrouble() const { return m_clientTrouble; }

  using LabSession::ask;
  vorn::Value ask(const std::string& question, const vorn::Value& parameters) override;

  // The one that was started here, or by the agent.
  bool clientIsRunning() override { return m_client.isRunning(); }
  void killClient() override { m_client.kill(); }
  void stopClient() override { m_client.stop(); }
  void restartClient() override { m_client.restart(); }
  void setFaults(const std::string& rules) override { m_client.setFaults(rules); }
  MeetingStore& meetings() override { return m_client.meetings(); }
  bool talksByNotifications() const override { return m_client.talksByNotifications(); }

  bool waitUntil(const std::function<bool()>& condition, double seconds) override;

 private:
  // Takes a step that needs the client. When it fails and the session goes on without a client, keeps the reason.
  void attempt(const std::function<void()>& step);

  // Null when no bus answers.
  std::unique_ptr<vorn::EmbeddedDistributedNotifications> m_notifications;
  vorn::EmbeddedWorkspace m_workspace;
  // From the first wait to the session's end.
  std::shared_ptr<vorn::RunLoop::Timer> m_lookAgain;
  ClientSide m_client;
  std::string m_clientTrouble;
  // Absent when nobody can watch.
  std::optional<WatchSession> m_watch;
  std::optional<LoadedPlugin> m_plugin;
};

}  // namespace vornlab
