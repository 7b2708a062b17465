#pragma once

#include <optional>
#include <string>

#include "host/proxies/vnDelegateBase.h"
#include "host/proxies/vnECEmailAccount.h"
#include "host/proxies/vnECRecordUID.h"

namespace vorn {

// An appointment as the host holds it, together with what the user has typed and not stored.
//
// Bodies are handed out as values, which share their text: a body may be many megabytes.
class vnECCalendarEvent : public vnDelegateBase {
 public:
  explicit vnECCalendarEvent(const HostObject& delegate);

  OptionalText summary() const { return text("summary"); }
  // The typed location, or the stored one when none was typed.
  OptionalText location() const;
  bool isRecurring() const { return flag("isRecurring"); }
  HostObject startTime() const { return object("startTime"); }
  HostObject endTime() const { return object("endTime"); }
  Value duration() const { return getOLItemID("duration"); }
  Value recurrence() const { return getOLItemID("recurrence"); }
  Value body() const { return getOLItemID("body"); }
  Value attendeeList() const { return getOLItemID("attendeeList"); }
  bool isBodyHTML() const { return flag("isBodyHTML"); }
  bool isOccurrence() const { return flag("isOccurrence"); }
  bool isModifiedException() const { return flag("isModifiedException"); }
  OptionalText exchangeID() const { return text("exchangeID"); }
  // The two places of the stored record. They may hold something that is no text.
  Value olmUCCapabilities() const { return getOLItemID("olmUCCapabilities"); }
  Value olmUCInband() const { return getOLItemID("olmUCInband"); }
  OptionalText olmOnlineMeetingInternalLink() const { return text("olmOnlineMeetingInternalLink"); }
  bool isOwner() const { return flag("isOwner"); }
  HostObject account() const { return object("account"); }
  bool isOrganizer() const { return flag("isOrganizer"); }
  Value exportAsICS() const { return getOLItemID("exportAsICS"); }
  bool isMeeting() const { return flag("isMeeting"); }
  Value organizer() const { return getOLItemID("organizer"); }
  HostObject seriesMasterRecord() const { return object("seriesMasterRecord"); }
  OptionalText iCalendarRepresentation() const { return text("iCalendarRepresentation"); }
  OptionalText calendarUID() const { return text("calendarUID"); }
  HostObject recordUID() const { return object("recordUID"); }
  Value recurringMasterRecordUID() const { return getOLItemID("recurringMasterRecordUID"); }
  OptionalText UUIDString() const { return text("UUIDString"); }
  OptionalText exchangeOrEasID() const { return text("exchangeOrEasID"); }
  Value recurrenceId() const { return getOLItemID("recurrenceId"); }
  std::int64_t sequence() const { return number("sequence"); }
  Value recurrenceType(const Value& argument) const { return getOLItemID("recurrenceType:", argument); }
  Value timeZone(const Value& argument) const { return getOLItemID("timeZone:", argument); }
  HostObject getOccurrenceWithRecurrenceID(const Value& recurrenceId) const {
    return getOLItemID("getOccurrenceWithRecurrenceID:", recurrenceId).object();
  }

  void setLocation(const Value& location) const { getOLItemID("setLocation:", location); }
  void setSummary(const Value& summary) const { getOLItemID("setSummary:", summary); }
  void setBody(const Value& body) const { getOLItemID("setBody:", body); }
  void setIsBodyHTML(bool isHTML) const { getOLItemID("setIsBodyHTML:", isHTML); }
  void setOlmUCInband(const Value& record) const { getOLItemID("setOlmUCInband:", record); }
  void displayReadyBody() const { getOLItemID("displayReadyBody"); }

  // The typed and unsaved values, keyed "content." and the item's name. Absent means none.
  void setUnCommitedChanges(const Value& changes) { m_unCommitedChange = changes; }
  Value getOneItem(std::string_view item) const;
  // The typed value when there is one, else the stored one. A typed null is "" for the summary and is passed on
  // for every other item.
  Value getOneMergedItem(std::string_view item) const;
  Value getEmailBody() const { return getOneMergedItem("body"); }

  // From the item "UUID", the iCalendar text, or UUIDString, in this order.
  OptionalText UUID() const;
  // The plain form of the appointment, keyed vn_ApptInfo_*.
  Value getVnMeetingData() const;
  // One dictionary for each attendee; absent when there are none.
  Value getVnAttendeesData() const;
  // Whole minutes from start to end, cut toward zero, as decimal text.
  std::string getVnDuration() const;

  bool isValidHostAppointment() const;
  bool isSupportedOwner() const { return isOwner(); }
  bool accountNotReady() const { return !account(); }
  OptionalText emailAddress() const;
  OptionalText curFromAddress() const;
  bool shouldDisableCalendarHTMLBody() const;
  bool isGoogleCalendar() const;
  Value recordID() const;

  bool isVornMeeting() const { return !getVnMeetingKey().empty(); }
  // The key of the appointment's meeting: from its record, then from its window's manager, then from its text.
  // An occurrence or a modified exception has only its own record. "" when there is none.
  std::string getVnMeetingKey() const;
  std::string meetingKeyFromProperty() const;
  // The stored record's raw value.
  Value getVnOIData() const;
  bool isVnOIDataFromUIInband() const;
  // Whether this item may have a meeting of its own.
  bool isSupportVorn() const;
  bool seriesIsVornMeeting() const;
  bool occurrenceIsSingleVornMeeting() const;
  // True as soon as subject, location, start, end or recurrence differ from the record.
  bool isVnMeetingItemChanged(const Value& apptInfo) const;

 private:
  bool isOccurrenceOrModifiedException() const;

  Value m_unCommitedChange;
  std::optional<vnECEmailAccount> m_ecEmailAccount;
  std::optional<vnECRecordUID> m_ecRecordUID;
};

inline constexpr double kSecondsPerMinute = 60.0;

// A length in seconds as an appointment's plain form holds it: whole minutes, cut toward zero, as decimal text.
std::string durationText(double seconds);

}  // namespace vorn
