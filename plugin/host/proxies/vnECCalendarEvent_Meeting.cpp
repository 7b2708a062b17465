// Which meeting stands behind an appointment, and whether it may have one.

#include "host/proxies/MeetingOwners.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "host/proxies/vnECCalendarEvent.h"
#include "host/proxies/vnOLCalendarDate.h"
#include "host/proxies/vnOLPropertyKeys.h"
#include "util/vnOLUtils.h"

namespace vorn {

bool vnECCalendarEvent::isOccurrenceOrModifiedException() const { return isOccurrence() || isModifiedException(); }

std::string vnECCalendarEvent::getVnMeetingKey() const {
  std::string key = meetingKeyFromProperty();
  if (!key.empty()) return key;
  // The window and the text of an item show the series' meeting, which is not the item's own.
  if (isOccurrenceOrModifiedException()) return {};
  key = meetingOwners().meetingKeyForEvent(delegate());
  if (!key.empty()) return key;
  return meetingOwners().meetingNumberInCalendarText(iCalendarRepresentation()).value_or("");
}

std::string vnECCalendarEvent::meetingKeyFromProperty() const {
  const Value record = vnOLUtils::toArrayOrNSDictionary(getVnOIData().optionalText());
  return record[vn_OLProperty_MeetingKey].text();
}

Value vnECCalendarEvent::getVnOIData() const {
  return isVnOIDataFromUIInband() ? olmUCInband() : olmUCCapabilities();
}

bool vnECCalendarEvent::isVnOIDataFromUIInband() const {
  const OptionalText inband = olmUCInband().optionalText();
  if (!inband || inband->empty()) return false;
  return vnOLUtils::toArrayOrNSDictionary(inband).contains(vn_OLProperty_MeetingKey);
}

bool vnECCalendarEvent::isSupportVorn() const {
  if (!isSupportedOwner()) return false;
  if (!isOccurrenceOrModifiedException()) return true;
  if (!seriesIsVornMeeting() || !isVornMeeting()) return true;
  return occurrenceIsSingleVornMeeting();
}

bool vnECCalendarEvent::seriesIsVornMeeting() const {
  const HostObject series = seriesMasterRecord();
  return series && vnECCalendarEvent(series).isVornMeeting();
}

bool vnECCalendarEvent::occurrenceIsSingleVornMeeting() const {
  const HostObject series = seriesMasterRecord();
  if (!series) return false;
  const std::string own = meetingKeyFromProperty();
  return !own.empty() && own != vnECCalendarEvent(series).meetingKeyFromProperty();
}

bool vnECCalendarEvent::isVnMeetingItemChanged(const Value& apptInfo) const {
  const auto differs = [&](std::string_view key, const OptionalText& now) {
    return apptInfo[key].text() != now.value_or("");
  };
  const auto timeDiffers = [&](std::string_view key, const HostObject& now) {
    return apptInfo[key][vn_ApptInfo_CalDate_UTCTime].text() != vnOLCalendarDate(now).UTCTime().value_or("");
  };
  return differs(vn_ApptInfo_Subject, summary()) || differs(vn_ApptInfo_Location, location()) ||
         timeDiffers(vn_ApptInfo_StartTime, startTime()) || timeDiffers(vn_ApptInfo_EndTime, endTime()) ||
         apptInfo[vn_ApptInfo_Recurrence].boolValue() != vnOLUtils::isValidInstance(recurrence());
}

}  // namespace vorn
