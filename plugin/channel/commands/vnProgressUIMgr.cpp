#include "channel/commands/vnProgressUIMgr.h"

namespace vorn {

void vnProgressUIMgr::showCommunication(const HostObject& parentWindow) {
  if (m_showProgressWindow) return;
  m_showProgressWindow = true;
  m_progressWindow.domodalSheet(parentWindow);
}

void vnProgressUIMgr::closeCommunication() {
  if (!m_showProgressWindow) return;
  m_progressWindow.abortDomodal();
  m_showProgressWindow = false;
}

}  // namespace vorn
