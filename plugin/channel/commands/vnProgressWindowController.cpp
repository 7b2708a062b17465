#include "channel/commands/vnProgressWindowController.h"

#include "platform/Localization.h"
#include "platform/Presenter.h"
#include "platform/Registry.h"

namespace vorn {

void vnProgressWindowController::domodalSheet(const HostObject&) {
  Registry::platform().presenter->beginProgress(localizedString("CommunicationProgressTitle"));
}

void vnProgressWindowController::abortDomodal() {
  if (Presenter* presenter = Registry::platform().presenter) presenter->endProgress();
}

}  // namespace vorn
