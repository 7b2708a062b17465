#pragma once

namespace vorn {

class VnSettingWindowController;

// The panel's Continue and Cancel. The sheet outlives it; either click may end both. Main thread only.
class ButtonGroupViewController {
 public:
  explicit ButtonGroupViewController(VnSettingWindowController& windowController)
      : m_myWindowController(windowController) {}

  void onClickContinue();
  void onClickCancel();
  void postCommitCommand(bool isOK);

 private:
  VnSettingWindowController& m_myWindowController;
};

}  // namespace vorn
