#include "channel/discovery/vnClientNotRunningError.h"

#include "channel/discovery/vnAppHelper.h"
#include "channel/transport/vnIPCChannel.h"
#include "channel/transport/vnIPCConstants.h"
#include "platform/Localization.h"
#include "platform/Registry.h"
#include "platform/TracedAlert.h"

namespace vorn {

namespace {

// From its newer versions on the host may not start programs; the agent does it then.
void launchClient() {
  vnAppHelper& applications = vnAppHelper::sharedInstance();
  if (applications.isOutlookVersionLargeThan2016()) {
    vnIPCChannel::sendIPCMessageWithoutData(kIPCPluginLaunchClient);
  } else {
    applications.LaunchVornClient();
  }
}

}  // namespace

vnClientNotRunningError& vnClientNotRunningError::sharedInstance() {
  return Registry::shared<vnClientNotRunningError>();
}

void vnClientNotRunningError::showClientError(const HostObject& window, const OptionalText& message,
                                              std::optional<int> code) {
  const Presenter::Alert alert{"",
                               message.value_or(""),
                               {localizedString("Button_LaunchClient"), localizedString("Button_Cancel")},
                               Presenter::kWarningIcon};
  showTracedAlert(
      window, alert,
      [](Presenter::Answer answer) {
        if (answer == Presenter::Answer::defaultButton) launchClient();
      },
      code);
}

void vnClientNotRunningError::showClientErrorWithoutLaunchClient(const HostObject& window,
                                                                 const OptionalText& message) {
  showTracedAlert(window, {"", message.value_or(""), {localizedString("OK")}, Presenter::kWarningIcon},
                  [](Presenter::Answer) {});
}

}  // namespace vorn
