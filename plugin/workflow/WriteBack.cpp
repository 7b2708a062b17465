#include "workflow/WriteBack.h"

#include "channel/commands/vnAPIKeys.h"
#include "data/vnSettingKeys.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "host/proxies/vnOLPropertyKeys.h"
#include "util/TextSearch.h"
#include "util/vnOLUtils.h"
#include "workflow/LocationRule.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnMeetingMgr.h"

namespace vorn {

namespace {

// Stored in the place of the digest when nobody knows which invitation the body holds. It differs from the digest
// of every text, so that a cancel, which compares with that of the empty text, finds a difference; and from "",
// with which a first invitation is still to be written.
constexpr const char* kUnknownInvitation = "-";

}  // namespace

void WriteBack::startOver() {
  m_due = Due::nothing;
  m_holdsOnlyUsersWords = false;
}

void WriteBack::startWithoutInvitation() {
  m_due = Due::firstInvitation;
  m_holdsOnlyUsersWords = true;
}

void WriteBack::startFromRecord(const OptionalText& digest) {
  startOver();
  if (digest == "") startWithoutInvitation();
  if (digest == kUnknownInvitation) m_holdsOnlyUsersWords = true;
}

void WriteBack::updateMailBodyForSchedule(MeetingWindow& window) {
  vnGetMeetingHelper& meeting = *m_manager.getMeetingHelper();
  const bool isHTML = meeting.supportHtmlEmail();
  const OptionalText invitation = isHTML ? meeting.getInviteHtmlEmail() : meeting.getInviteEmail();
  m_manager.emailBodyMgr()->updateMailBody(window.editor(), invitation, false, isHTML);
  if (!window.proxy().isValidConnection()) return;
  // Without an invitation, or into a body that the host has not brought yet, nothing was written. Of a meeting
  // that has one already, a reply without it leaves that one.
  const bool hasNone = invitation.value_or("").empty();
  m_isInvitationWritten = window.proxy().knowsBody() && !hasNone;
  const bool leavesWhatStands = hasNone && m_due < Due::invitation;
  m_due = m_isInvitationWritten || leavesWhatStands ? Due::nothing : std::max(m_due, Due::invitation);
  if (m_isInvitationWritten) m_holdsOnlyUsersWords = false;
  // It may not have come with the meeting, so the next save asks anew.
  if (isDue()) meeting.setIsForGetMeetingByUUID(true);
}

void WriteBack::updateVnKeyInfoToAppointment(MeetingWindow& window, const Value& meetingInfo,
                                             bool commitFinished) {
  vnMeetingDataMgr& data = *m_manager.meetingDataMgr();
  if (commitFinished) {
    window.proxy().saveVnDataToOLProperty(m_isInvitationWritten
                                              ? data.getVnDataForOLProperty(meetingInfo)
                                              : data.getVnDataForOLProperty(meetingInfo, digestOfWhatStands()));
    data.setEncodeMailBody(m_isInvitationWritten ? m_manager.getEncodeMail() : digestOfWhatStands());
  }
  vnECCalendarEvent* event = window.event();
  if (!event) return;
  // An appointment without a title takes the service's topic.
  if (vnOLUtils::trimAllSpace(event->summary()).value_or("").empty()) {
    event->setSummary(meetingInfo[vn_Outlook_ApptInfo][vn_ApptInfo_Subject]);
  }
  updateLocation(window, meetingInfo[vn_Meeting_JoinUrl].optionalText());
}

// A digest tells that its invitation stands in the body: with that of one that was not written, the next save
// would not write it either.
OptionalText WriteBack::digestOfWhatStands() const {
  if (m_due == Due::firstInvitation) return "";
  const OptionalText& digest = m_manager.meetingDataMgr()->encodeMailBody();
  return isEmpty(digest) ? kUnknownInvitation : digest;
}

void WriteBack::updateLocation(MeetingWindow& window, const OptionalText& joinUrl) {
  vnMeetingDataMgr& data = *m_manager.meetingDataMgr();
  const LocationRule rule(data);
  const OptionalText storedJoinUrl = data.getOldJoinUrl();
  const bool hasField = window.proxy().getLocationFromUI().has_value();
  const OptionalText oldJoinUrl = !hasField && storedJoinUrl ? storedJoinUrl : data.joinUrl();
  std::string userLocation = rule.getOLUserInputLocation(window).value_or("");
  userLocation = replacingAll(userLocation, "&from=addon", "");
  userLocation = replacingAll(userLocation, "?from=addon", "");

  data.setJoinUrl(joinUrl);
  // Without a bar there is no location of ours, and nobody to leave anything for.
  if (!window.bar()) return;
  const OptionalText ours = rule.getVnLocation(window);
  const bool isDue = rule.needUpdateLocation(window, m_manager.getMeetingAction(), oldJoinUrl);
  OptionalText location = ours;
  if (ours && !userLocation.empty()) location = userLocation + "; " + *ours;
  if (isDue && location) window.showLocation(*location);

  ApptSaveData& left = vnApptDataForSaveRecord::sharedInstance().of(window.bar());
  if (ours) left.setVnLocation(ours);
  if (storedJoinUrl) left.setJoinURLFromProperty(storedJoinUrl);
  if (!isDue) {
    left.setOLNewLocation("");
  } else if (location) {
    left.setOLNewLocation(location);
  }
}

void WriteBack::updateVnMeetingInfoToAppointmentForDelete(MeetingWindow& window, const Value& response) {
  // A delete on the calendar has no editor to write into.
  if (!window.proxy().isValidConnection()) return;
  // A body that has not got its invitation yet has no bookmarks but such as the user has brought from elsewhere.
  if (m_due != Due::firstInvitation) {
    const OptionalText invitation = response[vn_API_Para_InvitationEmail].optionalText();
    m_manager.emailBodyMgr()->updateMailBody(window.editor(), invitation, true, false);
  }
  // The empty text clears the stored record. That of the same meeting in the older place goes, too, where the next
  // opening would find it again.
  window.proxy().saveVnDataToOLProperty("");
  const Value older = MeetingOpening::meetingRecord(window.proxy().olmUCCapabilities());
  const OptionalText& key = m_manager.meetingDataMgr()->meetingKey();
  if (older.isPresent() && older[vn_OLProperty_MeetingKey].optionalText() == key)
    window.proxy().setOlmUCCapabilities("");

  const LocationRule rule(*m_manager.meetingDataMgr());
  const std::string location = rule.withoutOurUrls(window.shownLocation().value_or(""));
  window.showLocation(location);
  if (!window.bar()) return;
  ApptSaveData& left = vnApptDataForSaveRecord::sharedInstance().of(window.bar());
  left.setOLNewLocation(location);
  left.setNeedClearLocation(true);
}

}  // namespace vorn
