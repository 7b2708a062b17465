#include "fuzz/Fuzzing.h"
#include "invitation/vnICalendarContentParse.h"

// The small reader of an appointment's iCalendar text.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vorn::fuzzing::check;
  const std::string text(reinterpret_cast<const char*>(data), size);
  vorn::vnICalendarContentParse reader(text);
  reader.getEvent();
  reader.getLocation();
  reader.getUUID();
  reader.getDTStamp();
  reader.getDescriptionWithVornInvitation();
  reader.getMeetingNumberByVornKey();
  const vorn::OptionalText number = reader.getMeetingNumberFromDescription(text);
  check(!number || number->empty() || (number->size() >= 9 && number->size() <= 12),
        "a meeting number has 9 to 12 digits");
  reader.parseMeetingNumberWithJoinUrlFromDescription(text);
  reader.cutStrToFirstNotDigitNumber(text);
  reader.findNumberFromStr(text, 12);
  return 0;
}
