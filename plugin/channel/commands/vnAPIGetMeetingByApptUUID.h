#pragma once

#include <optional>
#include <string>

#include "channel/commands/vnAPIBase.h"

namespace vorn {

// Asks for a meeting by the host's UUID of its appointment. It is asked unbidden, so nothing of it is ever shown.
// Main thread only.
class vnAPIGetMeetingByApptUUID : public vnAPICommandFor<GetMeetingOwner> {
 public:
  vnAPIGetMeetingByApptUUID() { setSilentAPIError(true); }

  void setData(const std::string& olUUID) { m_olUUID = olUUID; }
  // Sends the request; 0, or the code for which it was refused.
  int doAction(const HostObject& parentWindow);
  std::string getAPIData();
  // An empty reply is no answer: the request goes on waiting.
  std::optional<CommandResult> onVornFeedback(const std::string& content);

 private:
  std::string m_olUUID;
};

}  // namespace vorn
