#pragma once

#include <memory>
#include <string>

#include "platform/Presenter.h"
#include "settings/ButtonGroupViewController.h"
#include "settings/VnSettingViewController.h"
#include "settings/VnUserSettingTipViewController.h"
#include "settings/vnEpidemicTipViewController.h"
#include "settings/vnPluginTurnoffViewController.h"
#include "workflow/SettingsPanel.h"
#include "workflow/vnScheduleLimitationViewController.h"

namespace vorn {

// The sheet of one appointment window. What it forwards gives the neutral value until the sheet has been shown for
// the first time, which is when its options are made and loaded.
//
// It lives in a shared pointer, because what the user does in it may end its window. Main thread only.
class VnSettingWindowController final : public SettingsPanel,
                                        public std::enable_shared_from_this<VnSettingWindowController> {
 public:
  VnSettingWindowController(std::string apptWindowID, const HostObject& parentWindow);
  VnSettingWindowController(const VnSettingWindowController&) = delete;
  VnSettingWindowController& operator=(const VnSettingWindowController&) = delete;

  // The first time with the meeting of the window's manager, later with what the user has set.
  void initFields(bool first);
  // Shows the sheet on the window; nothing when it is on the screen already.
  void showWindowSheet();
  // Takes the sheet off the screen. The options stay.
  void endSheet() { m_sheet.reset(); }
  // Nothing without a sheet.
  void refreshUI(bool forPMI);
  void refreshUseWebSettingTipViewUI(bool forPMI);

  // The end of the panel, as its buttons tell it: the record commits or goes back, the manager is told, and a
  // commit becomes the user's choice for the next meeting.
  void postSettingCommitCommand(const Value& command);
  // Without a passcode and without people.
  void saveSettingsToUserProfile();

  // The windows beside the sheet close with every press and scroll in it.
  void closeSubWindows();
  // The failed rules of the passcode; 0 when none is asked for.
  std::int64_t getPasswordRuleResult() const;
  void resetPasswordRuleUI();
  // The chosen template is gone.
  bool checkIfDeletedTemplate() const;
  void resetTemplateBoxUI();
  // False when data centres are wanted and none is chosen.
  bool getDataCenterIfSelected() const;
  void resetDataCenterBoxUI();

  // Null before the sheet was shown.
  VnSettingViewController* mySettingViewController() { return m_mySettingViewController.get(); }

  Value getVnSettingsData() override;
  Value settingsToCommit() override;
  std::string getScheduldForEmailFromUI() override;
  Value getSiteMeetingInfo() override;
  void setPMIMeetingInfo(const Value& meetingInfo) override;
  void updatePasswordAfterCommit(const OptionalText& passcode) override;
  void filterInvalidAlternateHosts(const Value& emails) override;
  void resetMeetingItemWhenUpdateError() override;
  void commitRefused() override;
  void commitStands() override;
  void setScheduleForListInfo(bool forOther) override;

 private:
  void awake();
  void userUsed(const std::string& key);

  SettingsContext m_context;
  // What stands above the options, in the options' controls.
  struct Banners {
    Banners(ControlSet& controls, const SettingsContext& context)
        : myScheduleLimitationViewController(controls),
          myPluginTurnoffViewController(controls),
          myUserSettingTipViewController(controls, context),
          myEpidemicTipViewController(controls) {}

    vnScheduleLimitationViewController myScheduleLimitationViewController;
    vnPluginTurnoffViewController myPluginTurnoffViewController;
    VnUserSettingTipViewController myUserSettingTipViewController;
    vnEpidemicTipViewController myEpidemicTipViewController;
  };

  std::unique_ptr<VnSettingViewController> m_mySettingViewController;
  std::unique_ptr<Banners> m_banners;
  ButtonGroupViewController m_myButtonGroupViewController{*this};
  std::unique_ptr<Presenter::Panel> m_sheet;
};

}  // namespace vorn
