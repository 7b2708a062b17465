// A meeting as the client sends it, the JSON layer and the binary layer together, and the record that the
// workflow makes of the two.

#include "data/vnGetMeetingHelper.h"
#include "fuzz/Fuzzing.h"
#include "platform/Registry.h"
#include "util/EncodeUtils.h"
#include "util/vStringUtils.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vorn::fuzzing::Input input(data, size);
  const bool isPacked = input.byte() % 2 == 0;
  const std::string json(input.part());
  const std::string message(input.rest());

  vorn::Registry::install({});
  {
    vorn::vnGetMeetingHelper meeting;
    meeting.setMeetingData(vorn::vStringUtils::toArrayOrNSDictionary(json), true);
    meeting.setPBMeetingData(isPacked ? vorn::EncodeUtils::base64Encode(message) : message);
    const vorn::Value info = meeting.getMeetingInfo();
    vorn::fuzzing::check(info.isDictionary(), "the record is a dictionary");
    meeting.getTrackingFields();
    meeting.getAlternateHosts();
    meeting.getExtInfoNodeValue("olApptUUID");
  }
  vorn::Registry::reset();
  return 0;
}
