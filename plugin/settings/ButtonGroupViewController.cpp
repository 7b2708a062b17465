#include "settings/ButtonGroupViewController.h"

#include "settings/VnSettingWindowController.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

void ButtonGroupViewController::onClickContinue() {
  // The passcode, the data centre and the template have no group yet that could refuse.
  m_myWindowController.endSheet();
  postCommitCommand(true);
}

void ButtonGroupViewController::onClickCancel() {
  m_myWindowController.endSheet();
  postCommitCommand(false);
}

void ButtonGroupViewController::postCommitCommand(bool isOK) {
  m_myWindowController.postSettingCommitCommand(
      Value::dictionaryFromPairs({{keyVNUserOperator, keyVNSettingCommit}, {keyButtonClickIsOK, isOK}}));
}

}  // namespace vorn
