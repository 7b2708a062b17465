#pragma once

#include <optional>
#include <string>

#include "channel/commands/vnAPIBase.h"

namespace vorn {

// Asks for the people whom the user may schedule for. Main thread only.
class vnAPIGetScheduleForList : public vnAPIWindowCommand {
 public:
  // Sends the request; 0, or the code for which it was refused.
  int doAction(const HostObject& parentWindow);
  // A reply that is no JSON counts as an empty list.
  std::optional<CommandResult> onVornFeedback(const std::string& content);
};

}  // namespace vorn
