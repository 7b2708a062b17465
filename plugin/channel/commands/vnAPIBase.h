#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "channel/commands/MeetingCommandOwner.h"
#include "channel/commands/vnProgressUIMgr.h"
#include "platform/RunLoop.h"
#include "util/HostObject.h"
#include "util/Value.h"

namespace vorn {

// How the client stands.
enum ClientStatus : int {
  kClientNotInstalled = 0,
  kClientNotRunning = 1,
  kClientRunning = 2,
  // Its version is too old, whether it runs or not.
  kClientNotSupported = 3,
};

// What a reply is to the meeting manager: the number that it goes by, and the data, absent when there are none.
struct CommandResult {
  HostObject parentWindow;
  std::uint64_t command;
  Value data;
};

// What every request to the desktop client has in common: the gate before it, the timers and the progress sheet
// beside it, and the error behind it.
//
// A command is used again for each request of its kind. Main thread only.
class vnAPIBase {
 public:
  vnAPIBase();
  virtual ~vnAPIBase() = default;
  vnAPIBase(const vnAPIBase&) = delete;
  vnAPIBase& operator=(const vnAPIBase&) = delete;

  // Whether the progress sheet is shown while the client works; true at first.
  bool showCommunicationDlg() const { return m_showCommunicationDlg; }
  void setShowCommunicationDlg(bool show) { m_showCommunicationDlg = show; }
  // The manager whose request this is; null when there is none. Each kind of command sees of it what it needs.
  CommandErrorOwner* meetingMgr() const { return m_pMeetingMgr; }
  virtual void setMeetingMgr(MeetingCommandOwner* meetingMgr) { m_pMeetingMgr = meetingMgr; }
  // The code of the last check or reply, and the reply's own words for it.
  std::int32_t errorCode() const { return m_errorCode; }
  const std::string& errorCodeStr() const { return m_errorCodeStr; }
  const std::string& errorMoreInfo() const { return m_errorMoreInfo; }
  // Whether errors are kept from the user.
  bool silentAPIError() const { return m_silentAPIError; }
  void setSilentAPIError(bool silent) { m_silentAPIError = silent; }

  // The gate of a request. Answers 0 when it may go out, with the timers started; otherwise the code, which the
  // user has been told.
  int action(const HostObject& parentWindow);
  // The first step of every reply: reads the error, closes the sheet and stops the timers. The number is the
  // reply's and is not looked at.
  void onfeedback(std::uint64_t replyNumber, const std::string& content);
  void onTimeOut(RunLoop::Timer& timer);
  // The time for the reply to the last request runs: none has come yet.
  bool isTimed() const { return myTimer && myTimer->isValid(); }
  // Lets go of the timers, which go on running, find nobody, and stop when they find this command gone.
  void releaseTimer();
  // Stops the timers and lets go of them.
  void invalidateTimer();

  // The code for the client's present status, which is stored too; 0 while it runs.
  int checkVornAppError();
  static ClientStatus GetVornCLientStatus();
  // "Fail" after an error, otherwise "Success".
  std::string getAPIResult() const;
  void parseFeedbackError(const std::string& content);
  int convertToErrorCode(const std::string& text);

  // Tells the user about an error, unless this command is silent. A code without a text of its own gives an alert
  // without text.
  void popupErrorMsg(const HostObject& parentWindow, int code);
  // Shows the text as it stands, whether or not this command is silent. The second argument is no code,
  // whatever the name says.
  static void popupWarnWithErrorMsg(const HostObject& parentWindow, const std::string& message);

  // True when the settings of the window's meeting use the personal meeting ID.
  bool isPMIMeeting(const HostObject& parentWindow);
  // True for a number that must be left alone: none at all, or a personal meeting ID of the user or of a person
  // whom the user schedules for. The name suggests the reverse.
  static bool checkMeetingNumberValidity(const std::string& number);
  // Notes in the site configuration what outlasts the profile: the personal meeting ID, the trash-can link and
  // the domain. Nothing when the profile has no such ID.
  static void saveUserProfileInfoToLocal();

 protected:
  // The time for the reply begins once more when it has run out.
  void keepTime();
  // 0 while the client can answer; otherwise the code, of which the user has been told.
  int refusalCode(const HostObject& parentWindow);
  // Closes the sheet and stops the timers.
  void endWait();

 private:
  std::string messageForCode(const HostObject& parentWindow, int code);
  std::string refusedAlternateHosts(const HostObject& parentWindow);
  std::string disabledPMIMessage(const HostObject& parentWindow);

  // Nobody waits any more: the reply has come or takes too long.
  virtual void onWaitEnded() {}

  std::shared_ptr<RunLoop::Timer> startTimer(double seconds, RunLoop::Repeats repeats);

  std::shared_ptr<RunLoop::Timer> myTimer;
  vnProgressUIMgr myProgressUI;
  bool m_showCommunicationDlg = true;
  CommandErrorOwner* m_pMeetingMgr = nullptr;
  std::int32_t m_errorCode = 0;
  std::string m_errorCodeStr;
  std::string m_errorMoreInfo;
  bool m_silentAPIError = false;
  std::shared_ptr<RunLoop::Timer> m_activeVornAppTimer;
  std::int8_t m_activeVornAppCount = 0;

  // What the timers hold instead of this command, because a timer that was let go of may outlive it.
  std::shared_ptr<vnAPIBase*> m_self;
};

// A command that waits for its reply with a window. The window is all that ties a reply to a request, so a request
// from an absent window is never taken to be pending, and a request that was refused at the gate still is.
class vnAPIWindowCommand : public vnAPIBase {
 public:
  // A reply is waited for: a request has gone out, be it one before the last, and its reply has neither come nor
  // taken too long. Nobody answers what the channel dropped.
  bool isWaiting() const { return isOut() && isTimed(); }
  // The same, however long it takes.
  bool mayBeAnswered() const { return m_parentWindow && isOut(); }
  // Nothing is waited for any more, and a reply that comes before the next request is nobody's.
  virtual void letGo();

 protected:
  // The last request was neither refused at the gate nor dropped by the channel.
  bool hasGoneOut() const { return m_lastRequest == LastRequest::sent; }
  // The last request has, or one before it that was waited for.
  bool isOut() const { return hasGoneOut() || m_isEarlierOut; }
  // The channel dropped the last request, and none before it was waited for. A reply about one meeting is then
  // another window's; after a refusal at the gate it is not known to be.
  bool isDropped() const { return m_lastRequest == LastRequest::dropped && !m_isEarlierOut; }
  // What was asked before the last request was another thing, and nobody waits for the answer.
  void forgetEarlier() { m_isEarlierOut = false; }
  // Remembers the window and passes the gate: 0 when the request may go out.
  int beginRequest(const HostObject& parentWindow);
  // Gives the channel the request for which the gate was passed.
  void sendRequest(unsigned requestAction, const OptionalText& content);
  // The same once more, for an answer that has not come: dropped, it leaves the one before waited for.
  void sendAgain(unsigned requestAction, const OptionalText& content);
  // A request whose whole content is its own number: 0 when the gate was passed.
  int sendBareRequest(const HostObject& parentWindow, unsigned requestAction);
  // A reply would be taken: a window is pending, and somebody is there to answer to.
  bool isPending() const { return meetingMgr() && m_parentWindow; }
  // Takes a reply when one is pending: reads its error and answers the window, which is pending no longer. Absent
  // when none is.
  std::optional<HostObject> takeReply(std::uint64_t replyNumber, const std::string& content);
  // The same for a reply that is no error. Of an error the user is told, and it is absent.
  std::optional<HostObject> takeSuccess(std::uint64_t replyNumber, const std::string& content);

  void onWaitEnded() override;

  HostObject m_parentWindow;

 private:
  enum class LastRequest { refused, dropped, sent };

  LastRequest m_lastRequest = LastRequest::refused;
  // When the last request was made, the reply to one before it was waited for.
  bool m_isEarlierOut = false;
};

// One for which the manager has to do more than hear of its reply.
template <typename Owner>
class vnAPICommandFor : public vnAPIWindowCommand {
 public:
  void setMeetingMgr(MeetingCommandOwner* meetingMgr) override {
    vnAPIWindowCommand::setMeetingMgr(meetingMgr);
    m_owner = meetingMgr;
  }

 protected:
  // The manager; null when there is none.
  Owner* m_owner = nullptr;
};

}  // namespace vorn
