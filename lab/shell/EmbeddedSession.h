#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "lab/client/Account.h"
#include "lab/outlook/EmbeddedScreen.h"
#include "lab/outlook/OutlookHost.h"
#include "lab/shell/LabSession.h"
#include "platform/NotificationCenter.h"
#include "platform/Platform.h"
#include "platform/embedded/EmbeddedClassRuntime.h"
#include "platform/embedded/EmbeddedPresenter.h"
#include "platform/embedded/EmbeddedSurroundings.h"
#include "platform/embedded/EmbeddedUserDefaults.h"
#include "platform/embedded/HostRunLoop.h"

namespace vornlab {

// The part of a session that is the same wherever the client and the plug-in run: the world's folders, and the
// host in the class runtime of our own, on the run loop that whoever starts it brings along.
class EmbeddedSession : public LabSession {
 public:
  const World& world() const override { return m_world; }
  OutlookHost& host() override { return m_host; }
  HostScreen& screen() override { return m_screen; }
  vorn::EmbeddedClassRuntime& runtime() { return m_runtime; }
  RoadTrace& trace() override { return m_trace; }
  vorn::EmbeddedPresenter& presenter() { return m_presenter; }

  void saveInProfile(const std::string& key, const std::string& value) override;
  void saveInUserDefaults(const std::string& key, const std::string& value) override;

  double now() const override { return m_runLoop->now(); }
  void passTime(double seconds) override;
  void clearUp() override;

 protected:
  // Where the surroundings say nothing of home, applications and the system, they are the world's. Throws
  // LabError.
  EmbeddedSession(const LabOptions& options, const OutlookHost::Options& hostOptions,
                  std::unique_ptr<vorn::HostRunLoop> runLoop, vorn::EmbeddedSurroundings::Options surroundings);

  // The ports that every session has; the workspace and the notifications are the derived one's.
  vorn::Platform commonPlatform();
  const LabOptions& options() const { return m_options; }
  const Account& account() const { return m_account; }
  vorn::HostRunLoop& runLoop() { return *m_runLoop; }

 private:
  LabOptions m_options;
  Account m_account;
  World m_world;
  std::unique_ptr<vorn::HostRunLoop> m_runLoop;
  vorn::NotificationCenter m_center;
  vorn::EmbeddedClassRuntime m_runtime;
  vorn::EmbeddedUserDefaults m_userDefaults;
  vorn::EmbeddedSurroundings m_surroundings;
  vorn::EmbeddedPresenter m_presenter;
  EmbeddedScreen m_screen{m_presenter};
  RoadTrace m_trace;
  OutlookHost m_host;
};

}  // namespace vornlab
