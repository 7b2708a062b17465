#pragma once

#include <memory>

#include "platform/Presenter.h"
#include "util/HostObject.h"
#include "util/Value.h"
#include "workflow/vnScheduleLimitationViewController.h"

namespace vorn {

// The notice that stops a save because the account's plan does not allow the appointment. The user continues all
// the same, and may want no such notice any more, or goes back to editing; either answer is posted as
// notify_ScheduleErrorMessage_Commit, with this object as the notification's. Each manager has one of its own.
// Main thread only.
class vnScheduleErrorMessage {
 public:
  // The one that belongs to no manager.
  static vnScheduleErrorMessage& sharedInstance();

  vnScheduleErrorMessage() = default;
  vnScheduleErrorMessage(const vnScheduleErrorMessage&) = delete;
  vnScheduleErrorMessage& operator=(const vnScheduleErrorMessage&) = delete;

  // The appointment's window that the answer names.
  void setOLApptWindowID(const OptionalText& windowId) { m_olApptWindowID = windowId; }
  // Puts the notice on the window and returns; the answer may come during the call. A notice that is still open is
  // replaced: only the last one's answer counts.
  void showMessage(const HostObject& parentWindow);
  // Ends the notice without an answer; one that comes later is not posted.
  void abortDomodal() { m_session.reset(); }
  void postCommitCommand(bool isOK);
  static bool notShowMessageAgain() { return vnScheduleLimitationViewController::notShowMessageAgain(); }

  void cleanup();

 private:
  void onAnswer(const Presenter::Answer& answer);

  OptionalText m_olApptWindowID;
  ControlSet m_controls;
  vnScheduleLimitationViewController m_scheduleLimitation{m_controls};
  // Lives as long as the notice is open, and brings its answer to this object.
  std::shared_ptr<vnScheduleErrorMessage*> m_session;
};

}  // namespace vorn
