#pragma once

#include "host/proxies/vnDelegateBase.h"

namespace vorn {

// One attendee of an event. Type 2 is a room or a resource.
class vnECCalendarEventAttendee : public vnDelegateBase {
 public:
  explicit vnECCalendarEventAttendee(const HostObject& delegate)
      : vnDelegateBase(ownClassName(delegate), delegate) {}

  OptionalText name() const { return text("name"); }
  std::int64_t attendeeType() const { return number("attendeeType"); }
  OptionalText emailAddress() const { return text("emailAddress"); }

  // "name", "email" and "type" (decimal text). The dictionary ends at the first absent value, so an attendee
  // without a name gives an empty one.
  Value getVnMeetingData() const;
};

}  // namespace vorn
