#include "host/proxies/vnECCalendarEventAttendee.h"

#include "host/proxies/vnApptInfoKeys.h"

namespace vorn {

Value vnECCalendarEventAttendee::getVnMeetingData() const {
  return Value::dictionaryFromPairs({{vn_ApptInfo_AttendeeName, name()},
                                     {vn_ApptInfo_AttendeeEmail, emailAddress()},
                                     {vn_ApptInfo_AttendeeType, std::to_string(attendeeType())}});
}

}  // namespace vorn
