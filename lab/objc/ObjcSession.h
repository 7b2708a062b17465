#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "lab/client/Account.h"
#include "lab/ics/CalendarStore.h"
#include "lab/objc/ObjcHost.h"
#include "lab/objc/OwnWorld.h"
#include "lab/objc/PlayedSystem.h"
#include "lab/shell/ClientSide.h"
#include "lab/shell/LabSession.h"

namespace vornlab {

// A session in real time whose host is the one of true Objective-C classes in this process, into which the bundle
// is loaded as such a host loads it. The bundle stays, for there is no way to take it out of the runtime again, so
// there is one such session in a process, which is started in the world of its own (OwnWorld.h). Main thread only.
class ObjcSession : public LabSession {
 public:
  // Returns when the plug-in has connected to the client, or at once when none is wanted. The calendar must
  // outlive this object. Throws LabError when something cannot be started.
  ObjcSession(const LabOptions& options, CalendarStore& calendar, const HostOptions& hostOptions);
  ~ObjcSession() override;

  const World& world() const override { return m_world; }
  ObjcHost& host() override { return m_host; }
  // Where a person sits before the screen there is nothing to be told here, and this throws LabError.
  HostScreen& screen() override;
  RoadTrace& trace() override { return m_trace; }

  using LabSession::ask;
  vorn::Value ask(const std::string& question, const vorn::Value& parameters) override;

  bool clientIsRunning() override { return m_client.isRunning(); }
  void killClient() override { m_client.kill(); }
  void stopClient() override { m_client.stop(); }
  void restartClient() override { m_client.restart(); }
  void setFaults(const std::string& rules) override { m_client.setFaults(rules); }
  MeetingStore& meetings() override { return m_client.meetings(); }
  bool talksByNotifications() const override { return m_client.talksByNotifications(); }

  void saveInProfile(const std::string& key, const std::string& value) override;
  void saveInUserDefaults(const std::string& key, const std::string& value) override;

  double now() const override;
  bool waitUntil(const std::function<bool()>& condition, double seconds) override;
  void passTime(double seconds) override;
  using LabSession::waitForQuiet;
  // The same since the beginning, and for a moment longer, in which the plug-in may do what it has put off. False
  // when that takes too long, or nobody is there to reply.
  bool waitForQuiet();

  const LabOptions& options() const { return m_options; }
  CalendarStore& calendar() { return m_calendar; }
  // The requests that the plug-in has sent so far.
  std::size_t requestCount() const { return m_trace.sent(); }

 protected:
  // The controller of the host's main window, an object of its class.
  void* mainWindowController() const { return m_host.mainWindowController(); }
  // Lets the loop do what is due, for at most a moment.
  virtual void turn();
  // What the client is started with; a change counts from its next start on.
  LabOptions& clientOptions() { return m_client.options(); }
  const LabOptions& clientOptions() const { return m_client.options(); }

 private:
  void loadBundle(const std::filesystem::path& bundle);

  LabOptions m_options;
  Account m_account;
  World m_world;
  CalendarStore& m_calendar;
  // Whom the plug-in tells what it does. It stays, also when this cannot be started, and the trace does not.
  class InstalledTrace {
   public:
    explicit InstalledTrace(vorn::Trace& trace);
    ~InstalledTrace();
    InstalledTrace(const InstalledTrace&) = delete;
    InstalledTrace& operator=(const InstalledTrace&) = delete;

   private:
    static void install(vorn::Trace* trace);
  };
  RoadTrace m_trace;
  std::optional<InstalledTrace> m_installedTrace;
  PlayedSystem m_system;
  ObjcHost m_host;
  ClientSide m_client;
  int (*m_answer)(const char*, const vorn::Value*, vorn::Value*) = nullptr;
};

}  // namespace vornlab
