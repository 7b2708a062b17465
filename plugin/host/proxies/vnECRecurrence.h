#pragma once

#include "host/proxies/vnDelegateBase.h"

namespace vorn {

// The recurrence of a series.
class vnECRecurrence : public vnDelegateBase {
 public:
  explicit vnECRecurrence(const HostObject& delegate) : vnDelegateBase("ECRecurrence", delegate) {}

  Value format() const { return getOLItemID("format"); }
  std::int64_t patternType() const { return number("patternType"); }
  std::int64_t recurrenceType() const { return number("recurrenceType"); }
  Value pattern() const { return getOLItemID("pattern"); }
  HostObject endDate() const { return object("endDate"); }
  HostObject startDate() const { return object("startDate"); }
  std::int64_t endType() const { return number("endType"); }
  std::int64_t occurrenceCount() const { return number("occurrenceCount"); }
  bool checkOverlapInRecurrence() const { return flag("checkOverlapInRecurrence"); }
  std::int64_t patternOccurrenceCount() const { return number("patternOccurrenceCount"); }

  // "recurrenceInfo" with getRecurrenceInfo(); an empty dictionary when the host's object is not valid.
  Value getVnMeetingData() const;
  // "endDateType"; "occurrences" unless the end type is 0; the calendar-date entries of the pattern's two ends.
  Value getRecurrenceInfo() const;
  // Always absent: the host's pattern is not read.
  Value getRecurrencePattern(const Value& pattern) const;
};

}  // namespace vorn
