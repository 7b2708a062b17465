#include "channel/commands/vnAPIGetMeeting.h"

#include <algorithm>
#include <vector>

#include "channel/commands/ClientRequests.h"
#include "channel/commands/MeetingReply.h"
#include "channel/commands/vnMeetingCommand.h"
#include "channel/discovery/vnClientFeatureMgr.h"
#include "data/vnGetMeetingHelper.h"
#include "data/vnProfileKeys.h"
#include "host/proxies/vnMeetingInfoKeys.h"
#include "platform/Registry.h"
#include "platform/RunLoop.h"
#include "util/vnOLUtils.h"

namespace vorn {

namespace {

constexpr std::string_view kNewMeeting = "new";

// The same other number so often in a row is no answer to a window that has gone, and after so many others it is
// of no use to ask once more.
constexpr int kMostTimesTold = 4;
constexpr int kMostRepeats = 100;

// What the fetches on their way ask for: the answer to one is heard by all.
class AskedNumbers {
 public:
  // It stands here as long as the result lives.
  std::shared_ptr<const std::string> add(std::string number) {
    std::erase_if(m_numbers, [](const auto& each) { return each.expired(); });
    auto added = std::make_shared<const std::string>(std::move(number));
    m_numbers.push_back(added);
    return added;
  }
  // Without a number, which "" and "0" are not, nothing was asked for.
  bool contain(const std::string& number) const {
    return !number.empty() && number != "0" &&
           std::any_of(m_numbers.begin(), m_numbers.end(), [&](const auto& each) {
             const auto asked = each.lock();
             return asked && *asked == number;
           });
  }

 private:
  std::vector<std::weak_ptr<const std::string>> m_numbers;
};

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
  const std::string number = askedNumber();
  const bool isAskedAnew = m_onItsWay && *m_onItsWay == number;
  if (!isAskedAnew) m_onItsWay.reset();
  const int code = beginRequest(parentWindow);
  // The answer about one number is not that about another.
  if (!isAskedAnew) forgetEarlier();
  if (code != 0) return code;
  sendRequest(RequestAction::kCarrier, getAPIData());
  if (hasGoneOut()) m_onItsWay = Registry::shared<AskedNumbers>().add(number);
  return 0;
}

void vnAPIGetMeeting::letGo() {
  vnAPIWindowCommand::letGo();
  m_onItsWay.reset();
}

// Or an answer that never comes would keep its number from everybody for as long as the command lives.
void vnAPIGetMeeting::onWaitEnded() {
  if (!isWaiting()) m_onItsWay.reset();
  vnAPIWindowCommand::onWaitEnded();
}

std::string vnAPIGetMeeting::askedNumber() const { return vnOLUtils::trimAllSpace(m_meetingKey).value_or(""); }

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
  if (!reply && isDropped()) return std::nullopt;
  if (reply && isAboutAnother(reply->meeting)) {
    // What was refused is not carried out because another window is answered.
    if (!isOut()) return std::nullopt;
    if (!insistsOn(reply->meeting)) {
      if (++m_repeats <= kMostRepeats) sendAgain(RequestAction::kCarrier, getAPIData());
      return std::nullopt;
    }
  }
  // Others that wait hear of the same reply in this turn of the loop.
  Registry::platform().runLoop->performAfter(0, nullptr, "answered", [answered = std::move(m_onItsWay)] {});
  const auto window = takeSuccess(VnCmdGetMeeting, content);
  if (!window || !reply) return std::nullopt;
  reply->feed(m_owner->getMeetingHelper(), false, m_isForPMI);
  if (!m_owner->checkScheduleForEmailValidity()) {
    m_owner->setMeetingKey("");
    // Or a meeting that is added next would start from the stranger's, passcode and all.
    if (vnGetMeetingHelper* helper = m_owner->getMeetingHelper()) helper->forgetMeeting();
    m_owner->changeUIWithScheduleForEmainError(*window);
    return std::nullopt;
  }
  return CommandResult{*window, VnCmdGetMeeting, reply->meeting};
}

// Replies name no request, and one that never came leaves its window waiting: the next answer to anybody would be
// taken for it, and another meeting's invitation written into the appointment.
bool vnAPIGetMeeting::isAboutAnother(const Value& meeting) const {
  const std::string asked = askedNumber();
  const std::string told = toldNumber(meeting, vn_MeetingKey);
  // A personal meeting goes by either of its numbers.
  const std::string original = toldNumber(meeting, vn_MeetingData_OriginalMeetingNumber);
  return !asked.empty() && asked != kNewMeeting && !told.empty() && told != asked && original != asked;
}

bool vnAPIGetMeeting::insistsOn(const Value& meeting) {
  const std::string told = toldNumber(meeting, vn_MeetingKey);
  const AskedNumbers& everybodys = Registry::shared<AskedNumbers>();
  if (everybodys.contain(told) || everybodys.contain(toldNumber(meeting, vn_MeetingData_OriginalMeetingNumber))) {
    return false;
  }
  m_timesTold = told == m_toldInstead ? m_timesTold + 1 : 1;
  m_toldInstead = told;
  return m_timesTold > kMostTimesTold;
}

}  // namespace vorn
