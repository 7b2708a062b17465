#include "channel/commands/vnAPICommitMeeting.h"

#include <string_view>

#include "channel/commands/ErrorCodes.h"
#include "channel/commands/vnAPIKeys.h"
#include "channel/commands/vnMeetingCommand.h"
#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "invitation/TimeUtils.h"
#include "platform/Localization.h"
#include "util/vnOLUtils.h"

namespace vorn {

namespace {

// The command that the panel finishes when its user has put right what was refused.
vnMeetingCommand wayOfNextCommit(bool isUpdate) { return isUpdate ? VnCmdChangeSettings : VnCmdAdd; }

}  // namespace

void vnAPICommitMeeting::setData(const Value& data) {
  m_dataMeetingInfo = Value::dictionary();
  m_dataMeetingInfo.addEntries(data);
}

int vnAPICommitMeeting::doAction(const HostObject& parentWindow) {
  if (!hasValidMeetingInfo()) return 0;
  if (checkMeetingInfoError()) return 0;
  // Without a manager nobody could show what is wrong, and the client decides.
  if (m_owner && !validateSecurityState()) {
    reopenSettings(parentWindow, isUpdateMeeting(), ErrorCode::kPasscodeUnfit);
    return 0;
  }
  if (m_owner && !validateTemplateState()) {
    m_owner->setMeetingAction(wayOfNextCommit(isUpdateMeeting()));
    // A copy, since the user's answer may bring the next request's data during the call.
    m_owner->showCommitWarning(parentWindow, Value(m_dataMeetingInfo));
    return 0;
  }
  if (m_owner && !validateTrackingFieldsState()) {
    reopenSettings(parentWindow, isUpdateMeeting(), ErrorCode::kTrackingFieldMissing);
    return 0;
  }
  // A head without its document would mean a meeting of nothing to the client. Asked before the gate, whose timers
  // and progress would have to be taken back. The alert says that the two sides do not understand each other.
  const OptionalText document = documentText();
  if (!document) {
    popupErrorMsg(parentWindow, ErrorCode::kEmptyReply);
    return 0;
  }
  if (const int code = beginRequest(parentWindow); code != 0) return code;
  sendRequest(RequestAction::kCarrier, contentOf(document));
  return 0;
}

void vnAPICommitMeeting::reopenSettings(const HostObject& parentWindow, bool isUpdate, int code) {
  m_owner->setMeetingAction(wayOfNextCommit(isUpdate));
  m_owner->showSettingsWindowWithCommitError(parentWindow, code);
}

bool vnAPICommitMeeting::checkMeetingInfoError() {
  bool stop = false;
  const Value& apptInfo = m_dataMeetingInfo[vn_Outlook_ApptInfo];
  if (apptInfo.count() > 0) {
    const Value& start = apptInfo[vn_ApptInfo_StartTime][vn_ApptInfo_CalDate_UTCTime];
    if (Value(TimeUtils::stringToTimestamp(start.optionalText())).integerValue() == 0) {
      // The window of this request is stored only later, so the alert belongs to that of a pending one, if any.
      popupWarnWithErrorMsg(m_parentWindow, localizedString("LN_Schedule_ErrorMessage_InvalidStartTime"));
      stop = true;
    }
  }
  const std::string key = m_dataMeetingInfo[vn_MeetingKey].stringValue();
  return stop || (!key.empty() && checkMeetingNumberValidity(key));
}

bool vnAPICommitMeeting::validateSecurityState() {
  const vnUserProfileHelper& profile = vnUserProfileHelper::sharedInstance();
  if (!profile.isEnableWaitingRoomNewLogic() || !profile.isWaitingRoomLockedOff()) return true;
  const Value& setting = m_dataMeetingInfo[vn_Setting];
  if (setting.isAbsent()) return true;
  return setting[vn_Setting_IsSignedInUsersMeetingOn].boolValue() ||
         !setting[vn_Setting_MeetingPassword].text().empty();
}

bool vnAPICommitMeeting::validateTemplateState() {
  const Value& setting = m_dataMeetingInfo[vn_Setting];
  const std::string chosen =
      setting[vn_Setting_MeetingTemplate][vn_Setting_MeetingTemplate_TemplateId].stringValue();
  if (chosen.empty()) return true;
  const vnUserProfileHelper& profile = vnUserProfileHelper::sharedInstance();
  const std::string& person = setting[vn_Setting_ScheduleFor].text();
  // Then the service decides.
  if (!profile.knowsTemplates(person)) return true;
  const Value templates = profile.getMeetingTemplates(person);
  for (const Value& known : templates.items()) {
    if (known[vn_Setting_MeetingTemplate_TemplateId].stringValue() == chosen) return true;
  }
  return false;
}

bool vnAPICommitMeeting::validateTrackingFieldsState() {
  for (const Value& field : m_dataMeetingInfo[vn_Setting][vn_Setting_TrackingFields].items()) {
    if (field[vn_Setting_TrackingFields_Required].boolValue() &&
        field[vn_Setting_TrackingFields_MtValue].stringValue().empty()) {
      return false;
    }
  }
  return true;
}

std::optional<CommandResult> vnAPICommitMeeting::onVornFeedback(int operation, const std::string& content) {
  if (isDropped()) return std::nullopt;
  const bool isUpdate = operation == InnerOperation::kUpdate;
  const std::uint64_t replyNumber = isUpdate ? VnCmdUpdate : VnCmdSchedule;
  const auto window = takeReply(replyNumber, content);
  if (!window) return std::nullopt;

  const int code = errorCode();
  if (code == ErrorCode::kPasscodeTooWeak || code == ErrorCode::kPasscodeUnfit ||
      code == ErrorCode::kSecurityOptionMissing) {
    reopenSettings(*window, isUpdate, code);
    return std::nullopt;
  }
  if (code == ErrorCode::kPMIDisabled) updateSettingToNotUsePMI();
  if (code != 0) {
    popupErrorMsg(*window, code);
    if (m_owner) m_owner->resetMeetingItemWhenUpdateError(*window);
    return std::nullopt;
  }

  const std::size_t separator = content.find(';');
  if (separator == std::string::npos) return std::nullopt;
  const std::string number = content.substr(0, separator);
  // An invitation may hold semicolons of its own.
  const std::string_view invitation = std::string_view(content).substr(separator + 1);
  if (number.empty() || number == "0") {
    popupWarnWithErrorMsg(*window, content);
    return std::nullopt;
  }
  return CommandResult{*window, replyNumber,
                       Value::dictionaryFromPairs({{vn_MeetingKey, vnOLUtils::trimAllSpace(number)},
                                                   {vn_API_Para_InvitationEmail, invitation},
                                                   {keyVNResult, getAPIResult()}})};
}

void vnAPICommitMeeting::updateSettingToNotUsePMI() {
  const JsonTextFile profile(vnCommon::getVnUserProfilePath(vnUserProfileHelper::sharedInstance().getUID()));
  // A missing file stays missing.
  if (profile.read().isPresent()) profile.setKey(vn_Setting_IsPMI, false);
}

}  // namespace vorn
