#include "channel/commands/vnProgressUIMgr.h"

namespace vorn {

void vnProgressUIMgr::showCommunication(const HostObject& parentWindow) {
  if (showProgressWindow_) return;
  showProgressWindow_ = true;
  progressWindow_.domodalSheet(parentWindow);
}

void vnProgressUIMgr::closeCommunication() {
  if (!showProgressWindow_) return;
  progressWindow_.abortDomodal();
  showProgressWindow_ = false;
}

}  // namespace vorn
