// The small reader of an appointment's iCalendar text.

#include "fuzz/Fuzzing.h"
#include "invitation/vnICalendarContentParse.h"
#include "util/Utf16.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vorn::fuzzing::check;
  const std::string text(reinterpret_cast<const char*>(data), size);
  vorn::vnICalendarContentParse reader(text);
  const vorn::OptionalText event = reader.getEvent();
  check(!event || text.find(*event) != std::string::npos, "an event is a part of the text");
  for (const vorn::OptionalText& answer :
       {reader.getLocation(), reader.getUUID(), reader.getMeetingNumberByVornKey(),
        reader.getDescriptionWithVornInvitation()}) {
    check(!answer || (event && event->find(*answer) != std::string::npos), "an answer is a part of the event");
  }
  reader.getDTStamp();
  const vorn::OptionalText number = reader.getMeetingNumberFromDescription(text);
  // Digits of any script are digits to the platform.
  const std::size_t digits = number ? vorn::utf16Length(*number) : 0;
  check(!number || (digits >= 9 && digits <= 12), "a meeting number has 9 to 12 digits");
  reader.parseMeetingNumberWithJoinUrlFromDescription(text);
  reader.cutStrToFirstNotDigitNumber(text);
  reader.findNumberFromStr(text, 12);
  return 0;
}
