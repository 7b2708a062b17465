#include "channel/commands/vnAlertHelper.h"

#include "platform/Registry.h"
#include "platform/TracedAlert.h"

namespace vorn {

vnAlertHelper& vnAlertHelper::sharedInstance() { return Registry::shared<vnAlertHelper>(); }

void vnAlertHelper::showAlertMessage(const HostObject& window, const std::string& message,
                                     std::optional<int> code) {
  showTracedAlert(
      window, {"", message, {"OK"}, Presenter::kWarningIcon}, [](Presenter::Answer) {}, code);
}

}  // namespace vorn
