#include "channel/commands/vnAPIGetMeeting.h"

#include "channel/commands/ClientRequests.h"
#include "channel/commands/MeetingReply.h"
#include "channel/commands/vnMeetingCommand.h"
#include "channel/discovery/vnClientFeatureMgr.h"
#include "data/vnProfileKeys.h"

namespace vorn {

namespace {

// A service that answers with another number each time is believed in the end.
constexpr int kMostRepeats = 4;

}  // namespace

void vnAPIGetMeeting::setData(const std::string& meetingKey, const std::string& invitationLanguage) {
  m_meetingKey = meetingKey;
  m_repeatsLeft = kMostRepeats;
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
  if (reply && isAboutAnother(reply->meeting) && m_repeatsLeft > 0) {
    --m_repeatsLeft;
    sendRequest(RequestAction::kCarrier, getAPIData());
    return std::nullopt;
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
  const std::string told = meeting[vn_MeetingKey].stringValue();
  // A personal meeting goes by either of its numbers.
  const std::string original = meeting[vn_MeetingData_OriginalMeetingNumber].stringValue();
  return !m_meetingKey.empty() && m_meetingKey != "new" && !told.empty() && told != m_meetingKey &&
         original != m_meetingKey;
}

}  // namespace vorn
