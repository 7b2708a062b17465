#include "channel/commands/vnAPIGetMeeting.h"

#include "channel/commands/ClientRequests.h"
#include "channel/commands/MeetingReply.h"
#include "channel/commands/vnMeetingCommand.h"
#include "channel/discovery/vnClientFeatureMgr.h"
#include "data/vnProfileKeys.h"
#include "util/vnOLUtils.h"

namespace vorn {

namespace {

constexpr std::string_view kNewMeeting = "new";

// The same other number so often in a row is no other window's, and so many others are no answers to this
// question.
constexpr int kMostTimesTold = 4;
constexpr int kMostRepeats = 100;

std::string toldNumber(const Value& meeting, std::string_view key) {
  return vnOLUtils::trimAllSpace(meeting[key].stringValue()).value_or("");
}

}  // namespace

void vnAPIGetMeeting::setData(const std::string& meetingKey, const std::string& invitationLanguage) {
  m_meetingKey = meetingKey;
  m_timesTold = m_repeats = 0;
  if (!invitationLanguage.empty()) m_invitationLanguage = invitationLanguage;
}

int vnAPIGetMeeting::doAction(const HostObject& parentWindow) {
  if (const int code = beginRequest(parentWindow); code != 0) return code;
  sendRequest(RequestAction::kCarrier, getAPIData());
  return 0;
}

std::string vnAPIGetMeeting::getAPIData() {
  std::string content = std::to_string(InnerOperation::kGetMeeting) + ";" + m_meetingKey;
  if (!vnClientFeatureMgr::sharedInstance().isVornClientSupportSourceForGetMeeting()) return content;
  content.append(";").append(kRequestSource).append(m_isForPMI ? ";1" : ";0");
  if (!m_invitationLanguage.empty()) content.append(";").append(m_invitationLanguage);
  return content;
}

std::optional<CommandResult> vnAPIGetMeeting::onVornFeedback(const std::string& content) {
  if (!isPending()) return std::nullopt;
  const auto reply = MeetingReply::read(content);
  if (reply && isAboutAnother(reply->meeting)) {
    // What was refused is not carried out because another window is answered.
    if (!hasGoneOut()) return std::nullopt;
    if (!insistsOn(reply->meeting)) {
      sendRequest(RequestAction::kCarrier, getAPIData());
      return std::nullopt;
    }
  }
  const auto window = takeSuccess(VnCmdGetMeeting, content);
  if (!window || !reply) return std::nullopt;
  reply->feed(m_owner->getMeetingHelper(), false, m_isForPMI);
  if (!m_owner->checkScheduleForEmailValidity()) {
    m_owner->setMeetingKey("");
    m_owner->changeUIWithScheduleForEmainError(*window);
    return std::nullopt;
  }
  return CommandResult{*window, VnCmdGetMeeting, reply->meeting};
}

// Replies name no request, and one that never came leaves its window waiting: the next answer to anybody would be
// taken for it, and another meeting's invitation written into the appointment.
bool vnAPIGetMeeting::isAboutAnother(const Value& meeting) const {
  const std::string asked = vnOLUtils::trimAllSpace(m_meetingKey).value_or("");
  const std::string told = toldNumber(meeting, vn_MeetingKey);
  // A personal meeting goes by either of its numbers.
  const std::string original = toldNumber(meeting, vn_MeetingData_OriginalMeetingNumber);
  return !asked.empty() && asked != kNewMeeting && !told.empty() && told != asked && original != asked;
}

bool vnAPIGetMeeting::insistsOn(const Value& meeting) {
  const std::string told = toldNumber(meeting, vn_MeetingKey);
  m_timesTold = told == m_toldInstead ? m_timesTold + 1 : 1;
  m_toldInstead = told;
  return m_timesTold > kMostTimesTold || ++m_repeats > kMostRepeats;
}

}  // namespace vorn
