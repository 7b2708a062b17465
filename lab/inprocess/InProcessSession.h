#pragma once

#include <functional>
#include <memory>
#include <string>

#include "lab/inprocess/InProcessClient.h"
#include "lab/inprocess/MemoryUserDefaults.h"
#include "lab/shell/EmbeddedSession.h"
#include "platform/embedded/EmbeddedWorkspace.h"
#include "platform/embedded/VirtualRunLoop.h"

namespace vornlab {

// A session in one process and on the virtual clock: the plug-in is linked in, and the client a few calls away.
// One at a time.
class InProcessSession final : public EmbeddedSession {
 public:
  // Throws LabError when the world cannot be made.
  InProcessSession(const LabOptions& options, CalendarStore& calendar, const OutlookHost::Options& hostOptions);
  ~InProcessSession() override;

  static std::unique_ptr<LabSession> start(const LabOptions& options, CalendarStore& calendar,
                                           const OutlookHost::Options& hostOptions) {
    return std::make_unique<InProcessSession>(options, calendar, hostOptions);
  }

  InProcessClient& client() { return m_client; }
  using EmbeddedSession::runLoop;

  using LabSession::ask;
  vorn::Value ask(const std::string& question, const vorn::Value& parameters) override;
  bool clientIsRunning() override { return m_client.isRunning(); }
  void killClient() override { m_client.end(); }
  void stopClient() override { m_client.end(); }
  void restartClient() override;
  void setFaults(const std::string& rules) override { m_client.setFaults(rules); }
  MeetingStore& meetings() override { return m_client.service().meetings(); }
  bool talksByNotifications() const override { return false; }
  void saveInUserDefaults(const std::string& key, const std::string& value) override;
  bool waitUntil(const std::function<bool()>& condition, double seconds) override;

 private:
  // Applications as they lie in the world; the client runs when the one in this process does.
  class Applications;
  struct Ground;

  InProcessSession(const LabOptions& options, CalendarStore& calendar, const OutlookHost::Options& hostOptions,
                   Ground ground);

  InProcessClient m_client;
  std::unique_ptr<vorn::Workspace> m_workspace;
  // The world's own are brought to the disk at each change.
  MemoryUserDefaults m_userDefaults;
};

}  // namespace vornlab
