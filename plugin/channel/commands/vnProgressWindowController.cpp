#include "channel/commands/vnProgressWindowController.h"

#include "platform/Localization.h"
#include "platform/Registry.h"

namespace vorn {

void vnProgressWindowController::domodalSheet(const HostObject&) {
  Presenter* presenter = Registry::platform().presenter;
  if (presenter) m_session = presenter->beginProgress(localizedString("CommunicationProgressTitle"));
}

}  // namespace vorn
