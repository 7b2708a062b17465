#pragma once

#include <optional>
#include <string>

#include "util/HostObject.h"

namespace vorn {

// The plain alert with one button. Main thread only.
class vnAlertHelper {
 public:
  static vnAlertHelper& sharedInstance();

  // Shows the message as a sheet on the window, or by itself when the window is absent, and returns at once. An
  // empty message gives an alert without text. The code is the one of the error that it tells of.
  void showAlertMessage(const HostObject& window, const std::string& message, std::optional<int> code = {});
};

}  // namespace vorn
