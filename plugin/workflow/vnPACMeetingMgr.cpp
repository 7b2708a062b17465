#include "workflow/vnPACMeetingMgr.h"

#include <string_view>
#include <vector>

#include "channel/commands/vnAPIKeys.h"
#include "channel/commands/vnAlertHelper.h"
#include "data/vnGetPACHelper.h"
#include "data/vnUserProfileHelper.h"
#include "platform/Localization.h"
#include "platform/Registry.h"
#include "util/vnOLUtils.h"
#include "workflow/WholeWords.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnMeetingMgr.h"

namespace vorn {

namespace {

// As it is looked for: blanks at the ends of what the client tells do not outlast a location field.
std::string bare(const OptionalText& text) { return vnOLUtils::trimRLSpace(text).value_or(""); }

// How the helper writes the id of a conference that has none.
constexpr std::string_view kNoMeetingID = "0";

// Absent for a conference that has none.
OptionalText meetingID(std::int64_t account) {
  const OptionalText id = vnGetPACHelper::sharedInstance().pacMeetingID(account);
  return id == kNoMeetingID ? std::nullopt : id;
}

// Each number of the list with the blank before it, and once more without, as another place in the list would have
// left it.
void addNumbers(std::string_view numbers, std::vector<std::string>& parts) {
  for (;;) {
    const std::size_t comma = numbers.find(',');
    const std::string number(numbers.substr(0, comma));
    const std::string itself = bare(number);
    // A number that is not filled in leaves a blank in the list, and no blank of the user's may go for it.
    if (!itself.empty()) parts.insert(parts.end(), {number, itself});
    if (comma == std::string_view::npos) return;
    numbers.remove_prefix(comma + 1);
  }
}

// What an add can have left in a location, of every account. The place of a conference is not among them: it is
// written in words, and the same words may be the user's own.
std::vector<std::string> partsOfAllAccounts() {
  const vnGetPACHelper& conferences = vnGetPACHelper::sharedInstance();
  std::vector<std::string> parts;
  for (std::int64_t account = 1; account <= conferences.pacCount(); ++account) {
    parts.push_back(bare(conferences.dedicatedDailinNumber(account)));
    addNumbers(conferences.pacDialInNumberWithCommaSeparator(account).value_or(""), parts);
    if (const OptionalText id = meetingID(account)) parts.push_back(*id);
  }
  return parts;
}

void tellThatItIsTurnedOff(const HostObject& parentWindow) {
  vnAlertHelper::sharedInstance().showAlertMessage(parentWindow, localizedString("WarnMsg_PACIsDisabled"));
}

}  // namespace

vnPACMeetingMgr& vnPACMeetingMgr::sharedInstance() { return Registry::shared<vnPACMeetingMgr>(); }

std::uint64_t vnPACMeetingMgr::account() const {
  return m_pMeetingMgr ? m_pMeetingMgr->meetingDataMgr()->pacAccountNo() : 0;
}

// -- Add ---------------------------------------------------------------------------------------------------------

int vnPACMeetingMgr::addPACMeeting(MeetingWindow& window, std::uint64_t account) {
  if (!m_pMeetingMgr) return 0;
  m_pMeetingMgr->meetingDataMgr()->setPACAccountNo(account);
  if (account != 0 && window.bar())
    vnApptDataForSaveRecord::sharedInstance().of(window.bar()).setIsPACMeeting(true);
  executeGetPAC(window);
  return 0;
}

void vnPACMeetingMgr::executeGetPAC(MeetingWindow& window) {
  m_isUnderWay = true;
  m_written.reset();
  vnUserProfileHelper::sharedInstance().setIsAccountChanged(false);
  m_pMeetingMgr->apiMgr()->getPAC(window.parentWindow(),
                                  Value::dictionaryFromPairs({{vn_API_Call_Para_ShowCommunicationDlg, true}}));
}

int vnPACMeetingMgr::onGetPACActionFinished(const Value& data) {
  if (!m_pMeetingMgr || m_pMeetingMgr->state() != VnStatePAC) return 0;
  MeetingWindow window = MeetingWindow::ofReply(data);
  schedulePACMeeting(window);
  return 0;
}

void vnPACMeetingMgr::schedulePACMeeting(MeetingWindow& window) {
  if (!m_pMeetingMgr || !window.bar()) return;
  const vnGetPACHelper& conferences = vnGetPACHelper::sharedInstance();
  const auto index = static_cast<std::int64_t>(account());
  const bool isHTML = conferences.supportHtmlInvitationMail(index);
  const OptionalText invitation =
      isHTML ? conferences.htmlInvitationMail(index) : conferences.invitationMail(index);
  if (isEmpty(invitation)) {
    tellThatItIsTurnedOff(window.parentWindow());
    window.bar()->onUIChanged(VnUINotMeeting);
    return;
  }
  // The reply with the profile may have carried out this add before that with the conferences comes.
  if (invitation != m_written) {
    m_pMeetingMgr->emailBodyMgr()->updateMailBodyForPAC(window.editor(), invitation, isHTML);
  }
  m_written = invitation;
  updateLocation(window);
  m_isUnderWay = false;
}

bool vnPACMeetingMgr::isAdded() const { return account() != 0 && !m_isUnderWay; }

// -- The location ------------------------------------------------------------------------------------------------

void vnPACMeetingMgr::updateLocation(MeetingWindow& window) {
  const vnECCalendarEvent* event = window.event();
  if (!event) return;
  const HostObject appointment = window.proxy().content();
  if (m_added && m_added->appointment != appointment) m_added.reset();
  // What stands in the field may not have reached the appointment yet, and is the user's all the same.
  const OptionalText typed = window.proxy().getLocationFromUI();
  const OptionalText before = isEmpty(typed) ? event->location() : typed;
  const std::string dialIn = bare(getLocationWithPACAccountNo(account()));
  const OptionalText own = ownWords(before);
  // What the last add has left goes also for a conference that has nothing to put in its place.
  const OptionalText location = dialIn.empty() ? own : getNewLocationForPAC(before);
  if (!location) return;
  // A place that the user's words end with already was not added.
  const bool isOurs = location != own;
  m_added = isOurs ? std::optional(Added{appointment, dialIn, timesInWhole(*location, dialIn)}) : std::nullopt;
  window.showLocation(*location);
}

OptionalText vnPACMeetingMgr::getNewLocationForPAC(const OptionalText& location) const {
  const OptionalText dialIn = getLocationWithPACAccountNo(account());
  // At a store nobody asks for another conference: what an add has left stays, as it does in the body, when the
  // service tells nothing of it any more.
  if (bare(dialIn).empty()) return getOLUserInputString(location);
  const std::string own = ownWords(location).value_or("");
  if (own.empty()) return dialIn;
  // Only a place can still be there, from an add that this window knows nothing of or in the user's own words.
  return endsInWhole(own, bare(dialIn)) ? own : own + " " + *dialIn;
}

OptionalText vnPACMeetingMgr::getLocationWithPACAccountNo(std::uint64_t account) const {
  const vnGetPACHelper& conferences = vnGetPACHelper::sharedInstance();
  const auto index = static_cast<std::int64_t>(account);
  const OptionalText dedicated = conferences.dedicatedDailinNumber(index);
  if (!isEmpty(dedicated)) return dedicated;
  const OptionalText place = conferences.pacLocation(index);
  if (!isEmpty(place)) return place;
  const OptionalText numbers = conferences.pacDialInNumberWithCommaSeparator(index);
  // Without numbers an id stands by itself: a comma before it would say that something is missing.
  if (isEmpty(numbers)) return meetingID(index);
  return *numbers + ", " + conferences.pacMeetingID(index).value_or("");
}

OptionalText vnPACMeetingMgr::getOLUserInputString(const OptionalText& location) const {
  if (isEmpty(location)) return std::nullopt;
  return vnOLUtils::trimRLSpace(withoutWhole(*location, partsOfAllAccounts()));
}

OptionalText vnPACMeetingMgr::ownWords(const OptionalText& location) const {
  if (isEmpty(location)) return std::nullopt;
  return getOLUserInputString(withoutLastAdd(location)).value_or("");
}

// The last add goes as it was written, also when the service tells something else today. Where its words do not
// stand as often as then, the user has taken ours out, and what is left is theirs.
OptionalText vnPACMeetingMgr::withoutLastAdd(const OptionalText& location) const {
  if (!location || !m_added || timesInWhole(*location, m_added->dialIn) < m_added->times) return location;
  return withoutLastWhole(*location, m_added->dialIn);
}

}  // namespace vorn
