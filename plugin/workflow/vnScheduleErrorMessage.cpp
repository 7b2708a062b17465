#include "workflow/vnScheduleErrorMessage.h"

#include <string>

#include "channel/commands/vnAPIKeys.h"
#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "licence/vnLicencePolicy.h"
#include "platform/Localization.h"
#include "platform/NotificationCenter.h"
#include "platform/Presenter.h"
#include "platform/Registry.h"
#include "platform/TraceStep.h"
#include "workflow/SettingsPanel.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

vnScheduleErrorMessage& vnScheduleErrorMessage::sharedInstance() {
  return Registry::shared<vnScheduleErrorMessage>();
}

void vnScheduleErrorMessage::showMessage(const HostObject& parentWindow) {
  m_session = std::make_shared<vnScheduleErrorMessage*>(this);
  const std::string limit = std::to_string(vnLicencePolicy::kLongestUnpaidMeetingMinutes);
  Presenter::Alert alert;
  alert.message = formatText(localizedString("LN_Schedule_Limitation_Duration"), {limit});
  alert.defaultButton = localizedString("Button_Continue");
  alert.alternateButton = localizedString("LN_Schedule_ErrorMessage_BackToEdit_35312");
  alert.icon = "warning.png";
  traceStep("alert", [&] { return Value::dictionaryFromPairs({{"message", alert.message}}); });
  Registry::platform().presenter->showAlert(
      parentWindow, alert,
      [session = std::weak_ptr<vnScheduleErrorMessage*>(m_session)](Presenter::Answer answer) {
        if (const auto open = session.lock()) (*open)->onAnswer(answer == Presenter::Answer::defaultButton);
      });
}

void vnScheduleErrorMessage::onAnswer(bool isOK) {
  SettingsPanels* panels = settingsPanels();
  if (isOK && panels) panels->saveShowMessageAgainToUserProfile();
  abortDomodal();
  postCommitCommand(isOK);
}

void vnScheduleErrorMessage::postCommitCommand(bool isOK) {
  Value answer = Value::dictionary();
  answer.set(keyButtonClickIsOK, isOK);
  answer.set(keyApptWindowID, m_olApptWindowID);
  Registry::platform().notificationCenter->post(notify_ScheduleErrorMessage_Commit, this, answer);
}

bool vnScheduleErrorMessage::notShowMessageAgain() {
  // The user whose plan asks for the notice, who is known longer than the profile is.
  const JsonTextFile savedProfile(
      vnCommon::getVnUserProfilePath(vnUserProfileHelper::sharedInstance().lastKnownUserId()));
  return savedProfile.read()[vn_Setting_NotShowUpgradeMessageAgain].boolValue();
}

void vnScheduleErrorMessage::cleanup() {
  abortDomodal();
  m_olApptWindowID.reset();
}

}  // namespace vorn
