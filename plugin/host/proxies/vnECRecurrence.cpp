#include "host/proxies/vnECRecurrence.h"

#include "host/proxies/vnApptInfoKeys.h"
#include "host/proxies/vnOLCalendarDate.h"

namespace vorn {

Value vnECRecurrence::getVnMeetingData() const {
  Value data = Value::dictionary();
  if (isValidConnection()) data.set(vn_ApptInfo_RecurrenceInfo, getRecurrenceInfo());
  return data;
}

Value vnECRecurrence::getRecurrenceInfo() const {
  Value info = Value::dictionary();
  info.addEntries(getRecurrencePattern(pattern()));
  const std::int64_t type = endType();
  info.set(vn_ApptInfo_Recurrence_EndDateType, type);
  if (type != 0) info.set(vn_ApptInfo_Recurrence_Occurrences, occurrenceCount());
  info.set(vn_ApptInfo_Recurrence_DatePatternStart, vnOLCalendarDate(startDate()).getVnMeetingData());
  info.set(vn_ApptInfo_Recurrence_DatePatternEnd, vnOLCalendarDate(endDate()).getVnMeetingData());
  return info;
}

Value vnECRecurrence::getRecurrencePattern(const Value&) const { return {}; }

}  // namespace vorn
