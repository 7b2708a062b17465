#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "lab/client/MeetingStore.h"
#include "lab/shell/ClientProcess.h"
#include "lab/shell/LabOptions.h"
#include "lab/shell/World.h"

namespace vornlab {

// The client's side of a session in real time, whatever runtime its host stands in: the client as a process of its
// own, the agent where it is one, what they do wrong, and what the service knows. They end with this object.
class ClientSide {
 public:
  // Runs the host's loop until the condition holds or the seconds are over, and answers whether it holds.
  using WaitUntil = std::function<bool(const std::function<bool()>& condition, double seconds)>;

  // The world outlives this.
  ClientSide(LabOptions options, const World& world, WaitUntil waitUntil);
  ClientSide(const ClientSide&) = delete;
  ClientSide& operator=(const ClientSide&) = delete;

  // Starts what the options want; `hasBus`: whether a session bus answers. Returns when it listens. Throws
  // LabError.
  void prepare(bool hasBus);
  // Returns when the plug-in has connected to the client, if it is one that does. Throws LabError when it does not
  // within the seconds.
  void waitForConnection(double seconds) const;

  const ClientProcess& process() const { return m_client; }
  // What the client is started with; a change counts from its next start on.
  LabOptions& options() { return m_options; }
  const LabOptions& options() const { return m_options; }
  // True on a system whose plug-in needs no connection.
  bool talksByNotifications() const;

  // As the session's operations of these names.
  bool isRunning();
  void kill();
  void stop();
  void restart();
  void setFaults(const std::string& rules);
  MeetingStore& meetings();

 private:
  void start();
  // Sends the signal to the client that the agent has started, and waits until it is over.
  void endLaunchedClient(int signal);
  std::string transport() const;
  bool hasConnected() const;

  LabOptions m_options;
  const World& m_world;
  WaitUntil m_waitUntil;
  ClientProcess m_client;
  ClientProcess m_agent;
  bool m_hasBus = false;
  std::optional<MeetingStore> m_meetings;
  std::size_t m_faultsSaid = 0;
  // Bytes that an earlier session left in the journal of a world that stays.
  std::size_t m_journalBefore = 0;
};

}  // namespace vornlab
