#include "channel/commands/vnAlertHelper.h"

#include "platform/Presenter.h"
#include "platform/Registry.h"

namespace vorn {

vnAlertHelper& vnAlertHelper::sharedInstance() { return Registry::shared<vnAlertHelper>(); }

void vnAlertHelper::showAlertMessage(const HostObject& window, const std::string& message) {
  Presenter* presenter = Registry::platform().presenter;
  if (!presenter) return;
  presenter->showAlert(window, {"", message, {"OK"}, Presenter::kWarningIcon}, [](Presenter::Answer) {});
}

}  // namespace vorn
