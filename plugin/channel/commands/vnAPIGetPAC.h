#pragma once

#include <optional>
#include <string>

#include "channel/commands/vnAPIBase.h"

namespace vorn {

// Asks for the account's personal audio conferences. Main thread only.
class vnAPIGetPAC : public vnAPIWindowCommand {
 public:
  // Sends the request; 0, or the code for which it was refused. With a client that knows no such conferences it
  // gives 0 too, and a request that is pending stays as it is.
  int doAction(const HostObject& parentWindow);
  // The reply goes to the conferences' reader as it came, and the manager hears only that it has come.
  std::optional<CommandResult> onVornFeedback(const std::string& content);
};

}  // namespace vorn
