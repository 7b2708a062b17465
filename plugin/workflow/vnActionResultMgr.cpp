#include "workflow/vnActionResultMgr.h"

#include "channel/commands/vnAPIKeys.h"
#include "workflow/vnActionAdditionViewMonitor.h"

namespace vorn {

void vnActionResultMgr::setActionResultData(const Value& response) {
  m_bActionSucceed = response[keyVNResult].text() == keyVNSuccess;
}

bool vnActionResultMgr::getActionResultWithCalEventEditorViewCtrl(const HostObject& editor) const {
  const auto bar = barOfEditor(editor);
  return bar && bar->getActionResult();
}

}  // namespace vorn
