#pragma once

#include <memory>
#include <string>

#include "platform/DistributedNotifications.h"
#include "platform/NotificationCenter.h"
#include "util/Value.h"

namespace vorn {

// The client's version: from its bundle, or as the agent told it last.
//
// Main thread only. The version is not held in memory.
class vnGetClientVersionHelper {
 public:
  static vnGetClientVersionHelper& sharedInstance();

  // Begins to listen to the agent.
  vnGetClientVersionHelper();

  // The version of the moment; "" when it is unknown.
  static std::string getVornClientVersion();
  // Remembers the version in the site configuration.
  static void saveClientVersionToLocal(const OptionalText& version);

  // Asks the agent for the version; the answer is stored when it comes.
  void getClientVersion();
  // Takes the agent's answer, an envelope.
  void onMessageResponseFromPluginAgent(const Value& envelope);

 private:
  NotificationCenter::Subscription m_fromSocket;
  std::unique_ptr<DistributedNotifications::Subscription> m_fromAgent;
};

}  // namespace vorn
