#include "settings/ButtonGroupViewController.h"

#include "settings/VnSettingWindowController.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

void ButtonGroupViewController::onClickContinue() {
  m_myWindowController.closeSubWindows();
  if (m_myWindowController.getPasswordRuleResult() != 0) return m_myWindowController.resetPasswordRuleUI();
  if (!m_myWindowController.getDataCenterIfSelected()) return m_myWindowController.resetDataCenterBoxUI();
  if (m_myWindowController.checkIfDeletedTemplate()) return m_myWindowController.resetTemplateBoxUI();
  m_myWindowController.endSheet();
  postCommitCommand(true);
}

void ButtonGroupViewController::onClickCancel() {
  m_myWindowController.closeSubWindows();
  m_myWindowController.endSheet();
  postCommitCommand(false);
}

void ButtonGroupViewController::postCommitCommand(bool isOK) {
  m_myWindowController.postSettingCommitCommand(
      Value::dictionaryFromPairs({{keyVNUserOperator, keyVNSettingCommit}, {keyButtonClickIsOK, isOK}}));
}

}  // namespace vorn
