#include "channel/commands/vnAPIBase.h"

#include <string_view>
#include <utility>

#include "channel/commands/ErrorCodes.h"
#include "channel/commands/ReplyFields.h"
#include "channel/commands/vnAPIKeys.h"
#include "channel/discovery/vnAppHelper.h"
#include "channel/discovery/vnClientFeatureMgr.h"
#include "channel/transport/vnIPCChannel.h"
#include "platform/NotificationCenter.h"
#include "platform/Registry.h"
#include "platform/TraceStep.h"

namespace vorn {

namespace {

constexpr double kReplySeconds = 60.0;
constexpr double kActivationSeconds = 2.0;
constexpr std::int8_t kActivations = 2;

constexpr std::string_view kErrorMark = "0;Error ";

// The client's words for an error. 3018 counts as 3001, and the client's own error 2 as the network's 5003; the
// plug-in's code 2 is another thing.
constexpr std::pair<std::string_view, int> kErrors[] = {
    {"0;Error 3001", ErrorCode::kMeetingNotFound},
    {"0;Error 3018", ErrorCode::kMeetingNotFound},
    {"0;Error 2", ErrorCode::kNetwork},
    {"0;Error 5003", ErrorCode::kNetwork},
    {"0;Error 3068", ErrorCode::kPMINeedsPassword},
    {"0;Error 1113", ErrorCode::kAlternateHostsFirst},
    {"0;Error 1114", ErrorCode::kAlternateHostsFirst + 1},
    {"0;Error 1115", ErrorCode::kAlternateHostsLast},
    {"0;Error 3070", ErrorCode::kPastMeeting},
    {"0;Error VornClientNotSignIn", ErrorCode::kNotSignedIn},
    {"0;Error 3002", ErrorCode::kMeetingInProgress},
    {"0;Error 3003", ErrorCode::kNotMeetingHost},
    {"0;Error 3402", ErrorCode::kPasscodeUnfit},
    {"0;Error 3403", ErrorCode::kPasscodeTooWeak},
    {"0;Error 3105", ErrorCode::kPMIDisabled},
    {"0;Error 3113", ErrorCode::kSecurityOptionMissing},
    {"0;Error 3161", ErrorCode::kNotAllowed},
};

}  // namespace

vnAPIBase::vnAPIBase() : m_self(std::make_shared<vnAPIBase*>(this)) {}

int vnAPIBase::refusalCode(const HostObject& parentWindow) {
  const int code = checkVornAppError();
  if (code != 0) {
    traceStep("refused", [code] { return Value::dictionaryFromPairs({{"code", code}}); });
    popupErrorMsg(parentWindow, code);
  }
  return code;
}

int vnAPIBase::action(const HostObject& parentWindow) {
  if (const int code = refusalCode(parentWindow); code != 0) return code;
  releaseTimer();
  keepTime();
  m_activeVornAppCount = 0;
  m_activeVornAppTimer = startTimer(kActivationSeconds, RunLoop::Repeats::yes);
  if (m_showCommunicationDlg) myProgressUI.showCommunication(parentWindow);
  vnAppHelper::sharedInstance().silentActiveVornClient();
  return 0;
}

std::shared_ptr<RunLoop::Timer> vnAPIBase::startTimer(double seconds, RunLoop::Repeats repeats) {
  return Registry::platform().runLoop->scheduledTimer(
      seconds, repeats, [self = std::weak_ptr<vnAPIBase*>(m_self)](RunLoop::Timer& fired) {
        if (const auto command = self.lock()) {
          (*command)->onTimeOut(fired);
        } else {
          // Or one more would go on for ever with each window that closes while a request waits.
          fired.invalidate();
        }
      });
}

void vnAPIBase::keepTime() {
  if (!isTimed()) myTimer = startTimer(kReplySeconds, RunLoop::Repeats::no);
}

void vnAPIBase::onTimeOut(RunLoop::Timer& timer) {
  if (&timer == myTimer.get()) {
    // The request stays open and its reply is taken whenever it comes: only the sheet goes.
    myProgressUI.closeCommunication();
    onWaitEnded();
  } else if (&timer == m_activeVornAppTimer.get()) {
    if (m_activeVornAppCount < kActivations) {
      vnAppHelper::sharedInstance().silentActiveVornClient();
      ++m_activeVornAppCount;
    } else {
      m_activeVornAppTimer->invalidate();
      m_activeVornAppTimer.reset();
    }
  }
  // Any other timer belongs to an earlier request and was let go of.
}

void vnAPIBase::releaseTimer() {
  myTimer.reset();
  m_activeVornAppTimer.reset();
}

void vnAPIBase::invalidateTimer() {
  if (myTimer) myTimer->invalidate();
  if (m_activeVornAppTimer) m_activeVornAppTimer->invalidate();
  releaseTimer();
}

void vnAPIBase::onfeedback(std::uint64_t, const std::string& content) {
  parseFeedbackError(content);
  endWait();
  onWaitEnded();
}

void vnAPIBase::endWait() {
  myProgressUI.closeCommunication();
  invalidateTimer();
}

int vnAPIBase::checkVornAppError() {
  m_errorCode = [] {
    switch (GetVornCLientStatus()) {
      case kClientNotInstalled: return ErrorCode::kNoClient;
      case kClientNotSupported: return ErrorCode::kClientTooOld;
      case kClientRunning: return ErrorCode::kNone;
      default: return ErrorCode::kClientNotRunning;
    }
  }();
  return m_errorCode;
}

ClientStatus vnAPIBase::GetVornCLientStatus() {
  const vnAppHelper::OneLook oneLook;
  vnAppHelper& client = vnAppHelper::sharedInstance();
  if (!client.isVornusInstalled()) return kClientNotInstalled;
  if (!vnClientFeatureMgr::sharedInstance().isSupportedVornClientVersion()) return kClientNotSupported;
  return client.isVornRunning() ? kClientRunning : kClientNotRunning;
}

std::string vnAPIBase::getAPIResult() const { return std::string(m_errorCode != 0 ? keyVNFail : keyVNSuccess); }

void vnAPIBase::parseFeedbackError(const std::string& content) {
  const auto fields = leadingFields(content, ';', 3);
  if (fields.size() < 3) {
    // The text of an earlier reply stays.
    m_errorCodeStr = content;
  } else {
    m_errorCodeStr = content.substr(0, fields[0].size() + 1 + fields[1].size());
    m_errorMoreInfo = fields[2];
  }
  m_errorCode = convertToErrorCode(m_errorCodeStr);
}

int vnAPIBase::convertToErrorCode(const std::string& text) {
  // What the client is now outranks what its reply says.
  if (const int code = checkVornAppError(); code != 0) return code;
  if (text.empty()) return ErrorCode::kEmptyReply;
  for (const auto& [words, code] : kErrors) {
    if (text == words) return code;
  }
  return text.find(kErrorMark) != std::string::npos ? ErrorCode::kUnknown : ErrorCode::kNone;
}

int vnAPIWindowCommand::beginRequest(const HostObject& parentWindow) {
  m_parentWindow = parentWindow;
  m_isEarlierOut = isWaiting();
  m_lastRequest = LastRequest::refused;
  return action(parentWindow);
}

void vnAPIWindowCommand::sendRequest(unsigned requestAction, const OptionalText& content) {
  keepTime();
  const bool isSent = vnIPCChannel::sendIPCMessageToVornClient(requestAction, content);
  m_lastRequest = isSent ? LastRequest::sent : LastRequest::dropped;
  if (!isSent) onWaitEnded();
}

void vnAPIWindowCommand::sendAgain(unsigned requestAction, const OptionalText& content) {
  m_isEarlierOut = true;
  sendRequest(requestAction, content);
}

int vnAPIWindowCommand::sendBareRequest(const HostObject& parentWindow, unsigned requestAction) {
  if (const int code = beginRequest(parentWindow); code != 0) return code;
  sendRequest(requestAction, std::to_string(requestAction));
  return 0;
}

void vnAPIWindowCommand::letGo() {
  endWait();
  m_parentWindow = HostObject();
}

// Whoever holds something back meanwhile hears of every end, also of one that brings nothing; but not of a letting
// go, whose caller knows what it does.
void vnAPIWindowCommand::onWaitEnded() {
  Registry::platform().notificationCenter->post(
      notify_ClientWaitEnded, nullptr, Value::dictionaryFromPairs({{keyApptWindowID, m_parentWindow.windowId()}}));
}

std::optional<HostObject> vnAPIWindowCommand::takeReply(std::uint64_t replyNumber, const std::string& content) {
  if (!isPending()) return std::nullopt;
  onfeedback(replyNumber, content);
  return std::exchange(m_parentWindow, HostObject());
}

std::optional<HostObject> vnAPIWindowCommand::takeSuccess(std::uint64_t replyNumber, const std::string& content) {
  const auto window = takeReply(replyNumber, content);
  if (!window || errorCode() == 0) return window;
  popupErrorMsg(*window, errorCode());
  return std::nullopt;
}

}  // namespace vorn
