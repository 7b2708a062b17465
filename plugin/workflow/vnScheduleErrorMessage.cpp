#include "workflow/vnScheduleErrorMessage.h"

#include <string>

#include "channel/commands/vnAPIKeys.h"
#include "data/NotAgainFlags.h"
#include "data/vnUserProfileHelper.h"
#include "licence/vnLicencePolicy.h"
#include "platform/Localization.h"
#include "platform/NotificationCenter.h"
#include "platform/Registry.h"
#include "platform/TraceStep.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

namespace {

// The user whose plan asks for the notice, who is known longer than the profile is.
OptionalText user() { return vnUserProfileHelper::sharedInstance().lastKnownUserId(); }

SavedProfileFlag notAgainFlag() { return not_again::accountLimitation(user()); }

}  // namespace

vnScheduleErrorMessage& vnScheduleErrorMessage::sharedInstance() {
  return Registry::shared<vnScheduleErrorMessage>();
}

void vnScheduleErrorMessage::showMessage(const HostObject& parentWindow) {
  Presenter* presenter = Registry::platform().presenter;
  if (!presenter) return;
  m_session = std::make_shared<vnScheduleErrorMessage*>(this);
  const std::string limit = std::to_string(vnLicencePolicy::kLongestUnpaidMeetingMinutes);
  const Presenter::Alert alert{
      "",
      formatText(localizedString("LN_Schedule_Limitation_Duration"), {limit}),
      {localizedString("Button_Continue"), localizedString("LN_Schedule_ErrorMessage_BackToEdit_35312")},
      Presenter::kWarningIcon,
      localizedString("LN_Schedule_Limitation_NotShowAgain")};
  traceStep("alert", [&] { return Value::dictionaryFromPairs({{"message", alert.message}}); });
  presenter->showAlert(parentWindow, alert,
                       [session = std::weak_ptr<vnScheduleErrorMessage*>(m_session)](Presenter::Answer answer) {
                         if (const auto open = session.lock()) (*open)->onAnswer(answer);
                       });
}

void vnScheduleErrorMessage::onAnswer(const Presenter::Answer& answer) {
  const bool isOK = answer.button == 0;
  if (isOK) saveShowMessageAgainToUserProfile(answer.notAgain);
  abortDomodal();
  postCommitCommand(isOK);
}

void vnScheduleErrorMessage::postCommitCommand(bool isOK) {
  Value answer = Value::dictionary();
  answer.set(keyButtonClickIsOK, isOK);
  answer.set(keyApptWindowID, m_olApptWindowID);
  Registry::platform().notificationCenter->post(notify_ScheduleErrorMessage_Commit, this, answer);
}

bool vnScheduleErrorMessage::notShowMessageAgain() { return notAgainFlag().isSet(); }

// A switch that says what is kept already makes no file.
void vnScheduleErrorMessage::saveShowMessageAgainToUserProfile(bool notAgain) {
  if (notAgain != notShowMessageAgain()) notAgainFlag().set(notAgain);
}

void vnScheduleErrorMessage::cleanup() {
  abortDomodal();
  m_olApptWindowID.reset();
}

}  // namespace vorn
