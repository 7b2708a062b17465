#pragma once

#include <optional>
#include <string>

#include "channel/commands/vnAPIBase.h"

namespace vorn {

// Asks for the account's profile, which goes to the profile reader before the manager hears of it. Main thread
// only.
class vnAPIGetUserProfile : public vnAPIWindowCommand {
 public:
  // Sends the request; 0, or the code for which it was refused.
  int doAction(const HostObject& parentWindow);
  // A reply that is no JSON counts as an empty profile.
  std::optional<CommandResult> onVornFeedback(const std::string& content);
};

}  // namespace vorn
