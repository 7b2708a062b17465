#include "workflow/vnScheduleErrorMessage.h"

#include <string>

#include "channel/commands/vnAPIKeys.h"
#include "platform/Localization.h"
#include "platform/NotificationCenter.h"
#include "platform/Registry.h"
#include "platform/TracedAlert.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

vnScheduleErrorMessage& vnScheduleErrorMessage::sharedInstance() {
  return Registry::shared<vnScheduleErrorMessage>();
}

void vnScheduleErrorMessage::showMessage(const HostObject& parentWindow) {
  m_session = std::make_shared<vnScheduleErrorMessage*>(this);
  m_scheduleLimitation.initFields(true);
  const Control& notAgain = m_scheduleLimitation.notShowAgainSwitch();
  Presenter::Alert alert{
      "",
      m_scheduleLimitation.message(),
      {localizedString("Button_Continue"), localizedString("LN_Schedule_ErrorMessage_BackToEdit_35312")},
      Presenter::kWarningIcon,
      notAgain.text};
  alert.link = vnScheduleLimitationViewController::upgrade();
  showTracedAlert(parentWindow, alert,
                  [session = std::weak_ptr<vnScheduleErrorMessage*>(m_session)](Presenter::Answer answer) {
                    if (const auto open = session.lock()) (*open)->onAnswer(answer);
                  });
}

void vnScheduleErrorMessage::onAnswer(const Presenter::Answer& answer) {
  const bool isOK = answer.button == 0;
  if (isOK) {
    m_scheduleLimitation.notShowAgainSwitch().on = answer.notAgain;
    vnScheduleLimitationViewController::saveShowMessageAgainToUserProfile(m_scheduleLimitation.wish());
  }
  abortDomodal();
  postCommitCommand(isOK);
}

void vnScheduleErrorMessage::postCommitCommand(bool isOK) {
  Value answer = Value::dictionary();
  answer.set(keyButtonClickIsOK, isOK);
  answer.set(keyApptWindowID, m_olApptWindowID);
  Registry::platform().notificationCenter->post(notify_ScheduleErrorMessage_Commit, this, answer);
}

void vnScheduleErrorMessage::cleanup() {
  abortDomodal();
  m_olApptWindowID.reset();
}

}  // namespace vorn
