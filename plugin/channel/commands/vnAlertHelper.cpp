#include "channel/commands/vnAlertHelper.h"

#include "platform/Presenter.h"
#include "platform/Registry.h"

namespace vorn {

vnAlertHelper& vnAlertHelper::sharedInstance() { return Registry::shared<vnAlertHelper>(); }

void vnAlertHelper::showAlertMessage(const HostObject& window, const std::string& message) {
  Presenter::Alert alert;
  alert.message = message;
  alert.defaultButton = "OK";
  alert.icon = "warning.png";
  Registry::platform().presenter->showAlert(window, alert, [](Presenter::Answer) {});
}

}  // namespace vorn
