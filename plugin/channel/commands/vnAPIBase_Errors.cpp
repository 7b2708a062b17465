// What the user is told about an error.

#include <string>
#include <string_view>
#include <utility>

#include "channel/commands/AlternateHostsMessage.h"
#include "channel/commands/ErrorCodes.h"
#include "channel/commands/vnAPIBase.h"
#include "channel/commands/vnAPIKeys.h"
#include "channel/commands/vnAlertHelper.h"
#include "channel/discovery/vnClientNotRunningError.h"
#include "data/NotAgainFlags.h"
#include "data/vnSettingData.h"
#include "data/vnUserProfileHelper.h"
#include "platform/Localization.h"
#include "platform/NotificationCenter.h"
#include "platform/Registry.h"

namespace vorn {

namespace {

// Codes whose text is that of one key. A code that stands nowhere has no text, and 3403 and 3113 are among them:
// they come here only from commands that never ask for what they complain of.
constexpr std::pair<int, std::string_view> kMessageKeys[] = {
    {ErrorCode::kNoClient, "NoVornClient"},
    {ErrorCode::kNoInternet, "InternetError"},
    {ErrorCode::kClientNotRunning, "VornClientNotRunning"},
    {ErrorCode::kClientTooOld, "NotSupportedVornClientVersion"},
    {ErrorCode::kNotSignedIn, "VornClientNotSignIn"},
    {ErrorCode::kEmptyReply, "SystemError"},
    {ErrorCode::kMeetingNotFound, "MeetingNotFound"},
    {ErrorCode::kMeetingInProgress, "LN_Delete_ErrorMessage_3002_MeetingInProgress_47107"},
    {ErrorCode::kNotMeetingHost, "LN_Schedule_ErrorMessage_3003_NotMeetingHost_56339"},
    {ErrorCode::kPastMeeting, "LN_Schedule_ErrorMessage_PastMeeting"},
    {ErrorCode::kNotAllowed, "LN_Schedule_NotAllowed_332953"},
    {ErrorCode::kPasscodeUnfit, "LN_Schedule_PasswordDoNotMeetRequirements_136704"},
    {ErrorCode::kNetwork, "NetworkConnectionError"},
};

// Also of a user whose profile has been cleared since.
bool hidesSettings() { return not_again::settingsPanel(vnUserProfileHelper::sharedInstance().getUID()).isSet(); }

}  // namespace

void vnAPIBase::popupErrorMsg(const HostObject& parentWindow, int code) {
  if (m_silentAPIError) return;
  const std::string message = messageForCode(parentWindow, code);
  if (code == ErrorCode::kClientNotRunning) {
    vnClientNotRunningError::sharedInstance().showClientError(parentWindow, message, code);
  } else {
    vnAlertHelper::sharedInstance().showAlertMessage(parentWindow, message, code);
  }
}

void vnAPIBase::popupWarnWithErrorMsg(const HostObject& parentWindow, const std::string& message) {
  vnAlertHelper::sharedInstance().showAlertMessage(parentWindow, message, 0);
}

std::string vnAPIBase::messageForCode(const HostObject& parentWindow, int code) {
  if (code >= ErrorCode::kAlternateHostsFirst && code <= ErrorCode::kAlternateHostsLast)
    return refusedAlternateHosts(parentWindow);
  if (code == ErrorCode::kPMIDisabled) return disabledPMIMessage(parentWindow);
  if (code == ErrorCode::kUnknown) return m_errorCodeStr;
  if (code == ErrorCode::kPMINeedsPassword) {
    vnUserProfileHelper& profile = vnUserProfileHelper::sharedInstance();
    const std::string room = vnSettingData::getFormatRoomMeetingId(profile.roomMeetingID());
    return formatText(localizedString("JBHPMIRequiredPassword"), {profile.userName(), room});
  }
  for (const auto& [known, key] : kMessageKeys) {
    if (known == code) return localizedString(key);
  }
  return "";
}

std::string vnAPIBase::refusedAlternateHosts(const HostObject& parentWindow) {
  if (m_errorMoreInfo.empty()) return m_errorCodeStr;
  const Value emails = vorn::refusedAlternateHosts(m_errorMoreInfo);
  // The settings panel of that window takes the hosts off its list.
  Registry::platform().notificationCenter->post(
      notify_Schedule_AlternateHostError, nullptr,
      Value::dictionaryFromPairs({{"emails", emails}, {keyApptWindowID, parentWindow.windowId()}}));
  return getAlternateHostDisplayError(emails);
}

std::string vnAPIBase::disabledPMIMessage(const HostObject& parentWindow) {
  const std::string key = m_pMeetingMgr ? m_pMeetingMgr->meetingKey().value_or("") : "";
  const std::string otherHost = m_pMeetingMgr ? m_pMeetingMgr->scheduleForEmail().value_or("") : "";
  const std::string name =
      m_pMeetingMgr && !otherHost.empty() ? m_pMeetingMgr->getDisplayNameWithOnbehalfEmail(otherHost) : "";
  const std::string otherEnding = name.ends_with('s') ? "ScheduleForOtherWithSSuffix" : "ScheduleForOther";

  if (key.empty() && hidesSettings()) {
    if (otherHost.empty()) return localizedString("LN_Schedule_DisablePMI_Message_153612");
    return formatText(localizedString("LN_Schedule_DisablePMI_Message_" + otherEnding + "_153612"), {name});
  }
  const std::string newId = key.empty() || isPMIMeeting(parentWindow)
                                ? localizedString("LN_Schedule_MeetingID_OneTime_106192")
                                : formatText(localizedString("LN_Schedule_MeetingID_OneTime_Edit_106192"), {key});
  if (otherHost.empty()) return formatText(localizedString("LN_Update_Meeting_Error_DisablePMI_153612"), {newId});
  return formatText(localizedString("LN_Update_Meeting_Error_DisablePMI_" + otherEnding + "_153612"),
                    {name, newId});
}

}  // namespace vorn
