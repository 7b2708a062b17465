#include "settings/VnSettingWindowController.h"

#include <utility>

#include "channel/commands/vnAPIKeys.h"
#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "platform/Localization.h"
#include "platform/NotificationCenter.h"
#include "platform/Registry.h"
#include "settings/PanelSections.h"
#include "settings/rules/ControlKeys.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

VnSettingWindowController::VnSettingWindowController(std::string apptWindowID, const HostObject& parentWindow)
    : m_context(std::move(apptWindowID), parentWindow) {}

// -- On the screen -----------------------------------------------------------------------------------------------

void VnSettingWindowController::awake() {
  m_mySettingViewController = std::make_unique<VnSettingViewController>(m_context);
  m_banners = std::make_unique<Banners>(m_mySettingViewController->controls(), m_context);
  m_banners->myScheduleLimitationViewController.setEmbedSettingWindowMode(true);
  m_mySettingViewController->setRefreshTarget([this](bool forPMI) { refreshUseWebSettingTipViewUI(forPMI); });
  initFields(true);
}

void VnSettingWindowController::initFields(bool first) {
  if (!m_mySettingViewController) return;
  const ControlSet::Change change(m_mySettingViewController->controls());
  if (first) {
    m_mySettingViewController->initFields(m_context.meetingInfo());
  } else {
    m_mySettingViewController->updateUIItemsForNextTime();
  }
  m_banners->myScheduleLimitationViewController.initFields(m_context.durationExceedThanMaxMins());
  m_banners->myPluginTurnoffViewController.initFields();
  m_banners->myUserSettingTipViewController.setIsForPMI(m_mySettingViewController->settingData().usePMI());
  m_banners->myUserSettingTipViewController.initFields();
  m_banners->myEpidemicTipViewController.initFields();
}

void VnSettingWindowController::showWindowSheet() {
  if (!m_mySettingViewController) awake();
  if (m_sheet) return;
  m_sheet = Registry::platform().presenter->showPanel(
      m_context.parentWindow(), localizedString("ChangeVornSettingsLabel"), panelSections(),
      m_mySettingViewController->controls(), [weak = weak_from_this()](const std::string& key) {
        if (const auto self = weak.lock()) self->userUsed(key);
      });
}

void VnSettingWindowController::userUsed(const std::string& key) {
  if (key == control_key::buttonContinue) return m_myButtonGroupViewController.onClickContinue();
  if (key == control_key::buttonCancel) return m_myButtonGroupViewController.onClickCancel();
  m_mySettingViewController->userChanged(key);
  m_banners->myScheduleLimitationViewController.userChanged(key);
  m_banners->myPluginTurnoffViewController.userChanged(key);
  m_banners->myUserSettingTipViewController.userChanged(key);
}

// A reply for a panel that the user has left meanwhile comes too late: it would change what he has committed, or
// dismissed. So does a personal meeting when he has chosen another person's since, or a number of its own: the
// meeting would be made in somebody else's name.
void VnSettingWindowController::refreshUI(bool forPMI) {
  if (!m_sheet) return;
  if (forPMI) return m_mySettingViewController->onPMIMeetingInfo();
  m_mySettingViewController->refreshUI(false);
}

void VnSettingWindowController::refreshUseWebSettingTipViewUI(bool forPMI) {
  if (!m_banners) return;
  m_banners->myUserSettingTipViewController.setIsForPMI(forPMI);
  m_banners->myUserSettingTipViewController.initFields();
}

void VnSettingWindowController::closeSubWindows() {
  if (m_mySettingViewController) m_mySettingViewController->closeSubWindows();
}

std::int64_t VnSettingWindowController::getPasswordRuleResult() const {
  return m_mySettingViewController ? m_mySettingViewController->getPasswordRuleResult() : 0;
}

void VnSettingWindowController::resetPasswordRuleUI() {
  if (m_mySettingViewController) m_mySettingViewController->resetPasswordRuleUI();
}

bool VnSettingWindowController::checkIfDeletedTemplate() const {
  return m_mySettingViewController && m_mySettingViewController->checkIfDeletedTemplate();
}

void VnSettingWindowController::resetTemplateBoxUI() {
  if (m_mySettingViewController) m_mySettingViewController->resetTemplateBoxUI();
}

bool VnSettingWindowController::getDataCenterIfSelected() const {
  return m_mySettingViewController && m_mySettingViewController->getDataCenterIfSelected();
}

void VnSettingWindowController::resetDataCenterBoxUI() {
  if (m_mySettingViewController) m_mySettingViewController->resetDataCenterBoxUI();
}

// -- Its end -----------------------------------------------------------------------------------------------------

void VnSettingWindowController::postSettingCommitCommand(const Value& command) {
  const bool isOK = command[keyButtonClickIsOK].boolValue();
  if (m_mySettingViewController) {
    m_mySettingViewController->checkPMISettingsCompliance();
    m_mySettingViewController->onSettingsCommit(isOK);
  }
  // The manager's answer may load the panel, and its banners, once more.
  const std::optional<bool> noMoreNotices =
      m_banners ? m_banners->myScheduleLimitationViewController.wish() : std::nullopt;
  Value told = command;
  told.set(keyApptWindowID, m_context.windowId());
  // The manager acts on the commit before the choices are saved.
  Registry::platform().notificationCenter->post(notify_SettingCommit, nullptr, told);
  if (!isOK) return;
  saveSettingsToUserProfile();
  vnScheduleLimitationViewController::saveShowMessageAgainToUserProfile(noMoreNotices);
}

void VnSettingWindowController::saveSettingsToUserProfile() {
  const bool notAgain = vnScheduleLimitationViewController::notShowMessageAgain();
  Value settings = getVnSettingsData();
  // Somebody else's countries are no choice of the user's.
  if (!settings[vn_Setting_ScheduleFor].text().empty()) settings.erase(vn_Setting_AvailableDialinCountry);
  settings.set(vn_Setting_ScheduleFor, "");
  settings.set(vn_Setting_AlternateHosts, "");
  settings.erase(vn_Setting_MeetingPassword);
  settings.set(vn_Setting_NotShowUpgradeMessageAgain, notAgain);
  JsonTextFile(vnCommon::getVnUserProfilePath(vnUserProfileHelper::sharedInstance().getUID())).write(settings);
}

// -- What the workflow asks --------------------------------------------------------------------------------------

Value VnSettingWindowController::getVnSettingsData() {
  return m_mySettingViewController ? m_mySettingViewController->getSettingsData() : Value();
}

Value VnSettingWindowController::settingsToCommit() {
  return m_mySettingViewController ? m_mySettingViewController->settingsToCommit() : Value();
}

std::string VnSettingWindowController::getScheduldForEmailFromUI() {
  if (!m_mySettingViewController) return "";
  if (m_sheet) return m_mySettingViewController->getScheduldForEmailFromUI();
  // The controls of a panel that the user has left may show what he has dismissed.
  const vnSettingData& record = m_mySettingViewController->settingData();
  return record.usePMI() ? record.scheduleForEmail().value_or("") : "";
}

Value VnSettingWindowController::getSiteMeetingInfo() {
  return m_mySettingViewController ? m_mySettingViewController->getSiteMeetingInfo() : Value();
}

void VnSettingWindowController::setPMIMeetingInfo(const Value& meetingInfo) {
  if (m_mySettingViewController) m_mySettingViewController->setPMIMeetingInfo(meetingInfo);
}

void VnSettingWindowController::updatePasswordAfterCommit(const OptionalText& passcode) {
  if (m_mySettingViewController) m_mySettingViewController->updatePasswordAfterCommit(passcode);
}

void VnSettingWindowController::filterInvalidAlternateHosts(const Value& emails) {
  if (m_mySettingViewController) m_mySettingViewController->filterInvalidAlternateHosts(emails);
}

// The user who has opened the panel again goes on from what it shows: Continue would send a record that went back
// under the controls. A dismissed panel goes back all the same.
void VnSettingWindowController::resetMeetingItemWhenUpdateError() {
  if (m_sheet) return commitRefused();
  if (m_mySettingViewController) m_mySettingViewController->resetMeetingItemWhenUpdateError();
}

void VnSettingWindowController::commitRefused() {
  if (m_mySettingViewController) m_mySettingViewController->commitRefused();
}

void VnSettingWindowController::commitStands() {
  if (m_mySettingViewController) m_mySettingViewController->commitStands();
}

void VnSettingWindowController::setScheduleForListInfo(bool forOther) {
  if (m_sheet) m_mySettingViewController->setScheduleForListInfo(forOther);
}

}  // namespace vorn
