#pragma once

#include <functional>
#include <memory>
#include <string>

#include "lab/shell/EmbeddedSession.h"
#include "platform/embedded/EmbeddedWorkspace.h"
#include "platform/embedded/VirtualRunLoop.h"
#include "tests/road/world/InProcessClient.h"
#include "tests/support/FakePorts.h"

namespace vorn {

// A session in one process and on the virtual clock: the plug-in is linked in, and the client a few calls away.
// One at a time.
class InProcessSession final : public vornlab::EmbeddedSession {
 public:
  // Throws LabError when the world cannot be made.
  InProcessSession(const vornlab::LabOptions& options, vornlab::CalendarStore& calendar,
                   const vornlab::OutlookHost::Options& hostOptions);
  ~InProcessSession() override;

  static std::unique_ptr<vornlab::LabSession> start(const vornlab::LabOptions& options,
                                                    vornlab::CalendarStore& calendar,
                                                    const vornlab::OutlookHost::Options& hostOptions) {
    return std::make_unique<InProcessSession>(options, calendar, hostOptions);
  }

  InProcessClient& client() { return m_client; }
  using EmbeddedSession::runLoop;

  using LabSession::ask;
  Value ask(const std::string& question, const Value& parameters) override;
  bool clientIsRunning() override { return m_client.isRunning(); }
  void killClient() override { m_client.end(); }
  void stopClient() override { m_client.end(); }
  void restartClient() override;
  void setFaults(const std::string& rules) override { m_client.setFaults(rules); }
  vornlab::MeetingStore& meetings() override { return m_client.service().meetings(); }
  bool talksByNotifications() const override { return false; }
  void saveInUserDefaults(const std::string& key, const std::string& value) override;
  bool waitUntil(const std::function<bool()>& condition, double seconds) override;

 private:
  // Applications as they lie in the world; the client runs when the one in this process does.
  class Applications;
  struct Ground;

  InProcessSession(const vornlab::LabOptions& options, vornlab::CalendarStore& calendar,
                   const vornlab::OutlookHost::Options& hostOptions, Ground ground);

  InProcessClient m_client;
  std::unique_ptr<Workspace> m_workspace;
  // The world's own are brought to the disk at each change.
  MemoryUserDefaults m_userDefaults;
};

}  // namespace vorn
