#include "host/proxies/vnECCalendarEvent.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "host/proxies/MeetingOwners.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "host/proxies/vnECCalendarEventAttendee.h"
#include "host/proxies/vnOLCalendarDate.h"
#include "util/vnOLUtils.h"

namespace vorn {

namespace {

constexpr std::string_view kChangedItemPrefix = "content.";

}  // namespace

std::string durationText(double seconds) {
  const double minutes = seconds / kSecondsPerMinute;
  if (std::isnan(minutes)) return "0";
  // The host counts in 32 bits.
  constexpr double least = std::numeric_limits<std::int32_t>::min();
  constexpr double most = std::numeric_limits<std::int32_t>::max();
  return std::to_string(static_cast<std::int64_t>(std::clamp(minutes, least, most)));
}

vnECCalendarEvent::vnECCalendarEvent(const HostObject& delegate) : vnDelegateBase("ECCalendarEvent", delegate) {
  if (const HostObject held = account()) m_ecEmailAccount.emplace(held);
  if (const HostObject held = recordUID()) m_ecRecordUID.emplace(held);
}

OptionalText vnECCalendarEvent::location() const { return getOneMergedItem("location").optionalText(); }

Value vnECCalendarEvent::getOneItem(std::string_view item) const { return getOLItemID(item); }

Value vnECCalendarEvent::getOneMergedItem(std::string_view item) const {
  const Value& typed = m_unCommitedChange[std::string(kChangedItemPrefix).append(item)];
  if (typed.isAbsent()) return getOneItem(item);
  if (typed.isNull() && item == "summary") return "";
  return typed;
}

OptionalText vnECCalendarEvent::UUID() const {
  if (const OptionalText own = getOneItem("UUID").optionalText()) return own;
  const OptionalText inText = meetingOwners().uuidInCalendarText(iCalendarRepresentation());
  return inText && !inText->empty() ? inText : UUIDString();
}

Value vnECCalendarEvent::getVnMeetingData() const {
  Value data = Value::dictionary();
  data.set(vn_ApptInfo_Subject, getOneMergedItem("summary"));
  data.set(vn_ApptInfo_Location, getOneMergedItem("location"));
  const vnOLCalendarDate start(getOneMergedItem("startTime").object());
  const vnOLCalendarDate end(getOneMergedItem("endTime").object());
  data.set(vn_ApptInfo_Duration, durationText(end.timeIntervalSinceDate(start.delegate())));
  data.set(vn_ApptInfo_Body, getEmailBody());
  data.set(vn_ApptInfo_VnOIProperty, olmUCInband());
  data.set(vn_ApptInfo_StartTime, start.getVnMeetingData());
  data.set(vn_ApptInfo_EndTime, end.getVnMeetingData());
  const bool belongsToSeries = vnOLUtils::isValidInstance(getOneMergedItem("recurrence"));
  const bool isItemOfSeries = belongsToSeries && isOccurrenceOrModifiedException();
  data.set(vn_ApptInfo_Recurrence, belongsToSeries && !isItemOfSeries);
  // An item of a series shares the series' UUID, so it must not be known by it.
  if (!isItemOfSeries) data.set(vn_ApptInfo_OlApptUUID, UUID());
  data.set(vn_ApptInfo_Attendees, getVnAttendeesData());
  return data;
}

Value vnECCalendarEvent::getVnAttendeesData() const {
  const Value attendees = attendeeList();
  if (attendees.count() == 0) return {};
  Value list = Value::array();
  for (const Value& attendee : attendees.items()) {
    list.append(vnECCalendarEventAttendee(attendee.object()).getVnMeetingData());
  }
  return list;
}

std::string vnECCalendarEvent::getVnDuration() const {
  const vnOLCalendarDate end(getOneMergedItem("endTime").object());
  return durationText(end.timeIntervalSinceDate(getOneMergedItem("startTime").object()));
}

bool vnECCalendarEvent::isValidHostAppointment() const { return isOwner() && account(); }

OptionalText vnECCalendarEvent::emailAddress() const {
  return m_ecEmailAccount ? m_ecEmailAccount->emailAddress() : OptionalText();
}

OptionalText vnECCalendarEvent::curFromAddress() const {
  return m_ecEmailAccount ? m_ecEmailAccount->curFromAddress() : OptionalText();
}

bool vnECCalendarEvent::shouldDisableCalendarHTMLBody() const {
  return m_ecEmailAccount && m_ecEmailAccount->shouldDisableCalendarHTMLBodyForAccount();
}

bool vnECCalendarEvent::isGoogleCalendar() const {
  constexpr std::int64_t googleServiceType = 2;
  return m_ecEmailAccount && (m_ecEmailAccount->isGmailAccount() ||
                              m_ecEmailAccount->serviceOutlookAccountType() == googleServiceType);
}

Value vnECCalendarEvent::recordID() const { return m_ecRecordUID ? m_ecRecordUID->recordID() : Value(); }

}  // namespace vorn
