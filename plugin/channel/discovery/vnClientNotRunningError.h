#pragma once

#include <optional>

#include "util/Value.h"

namespace vorn {

// The alert that tells the user that the client does not run, and offers to launch it. Main thread only.
class vnClientNotRunningError {
 public:
  static vnClientNotRunningError& sharedInstance();

  // A sheet on the window, or an alert by itself without one. The code is the one of the error that it tells of.
  void showClientError(const HostObject& window, const OptionalText& message, std::optional<int> code = {});
  // The same without the offer. No caller here.
  void showClientErrorWithoutLaunchClient(const HostObject& window, const OptionalText& message);
};

}  // namespace vorn
