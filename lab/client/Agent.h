#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "lab/client/Journal.h"
#include "lab/client/NotificationBus.h"

namespace vornlab {

// What the agent does when it is spoken to. It tells the version, shows the About dialog, which here is a line in
// the journal and on the error output, and has the client started.
class Agent {
 public:
  static constexpr std::string_view kVersionQuestion = "VornOutlookPlugin.GetClientVersion";

  // Without `launch` there is nothing to start: the client itself plays the agent, so it runs. The journal must
  // outlive the agent.
  Agent(Journal& journal, std::string version, std::function<void()> launch = {});

  // Whether a notification is meant for the agent.
  static bool isMeant(std::string_view name);
  // Does what one of those asks for. Throws NotificationError when the answer cannot be sent.
  void take(const std::string& name, NotificationBus& bus);

 private:
  void answerVersion(NotificationBus& bus);

  Journal& m_journal;
  std::string m_version;
  std::function<void()> m_launch;
};

}  // namespace vornlab
