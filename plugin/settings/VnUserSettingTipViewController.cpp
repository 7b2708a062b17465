#include "settings/VnUserSettingTipViewController.h"

#include "data/NotAgainFlags.h"
#include "data/vnUserProfileHelper.h"
#include "platform/Registry.h"
#include "platform/Workspace.h"
#include "settings/PanelParts.h"
#include "settings/rules/NoticeRules.h"

namespace vorn {

using Kind = Control::Kind;

namespace {

constexpr const char* kTipView = "userSettingTipView";

}  // namespace

VnUserSettingTipViewController::VnUserSettingTipViewController(ControlSet& controls,
                                                               const SettingsContext& context)
    : m_context(context),
      m_view(controls.add(Kind::box, kTipView)),
      m_text(controls.add(Kind::label, "userSettingTipText", kTipView)),
      m_changeSettingsLink(controls.add(Kind::link, "userSettingTipChangeSettingsLink", kTipView)),
      m_closeButton(controls.add(Kind::button, "userSettingTipCloseButton", kTipView)) {}

void VnUserSettingTipViewController::initFields() {
  m_text.text = panelText("LN_Schedule_UserSetting_Tip_169898");
  m_changeSettingsLink.text = panelText("LN_Schedule_UserSetting_ChangeSettings_169898");
  m_closeButton.text = panelText("LN_Schedule_Tip_Close");
  updateCtrlPos();
}

void VnUserSettingTipViewController::updateCtrlPos() {
  const panel_rules::Notices notices = panel_rules::noticesFor(
      {.notShowUserSettingMessage = not_again::userSettingTip().isSet(),
       .isShowUseWebSettingTipView = vnUserProfileHelper::sharedInstance().isShowUseWebSettingTipView(),
       .isForUpdateVornMeeting = m_context.isForUpdateVornMeeting(),
       .isForPMI = m_isForPMI});
  m_view.hidden = !notices.userSettingTip;
}

void VnUserSettingTipViewController::userChanged(std::string_view key) {
  if (key == m_changeSettingsLink.key) {
    Registry::platform().workspace->openWebPage(vnUserProfileHelper::sharedInstance().getProfileSettingURL());
  }
  if (key != m_closeButton.key) return;
  not_again::userSettingTip().set(true);
  updateCtrlPos();
}

}  // namespace vorn
