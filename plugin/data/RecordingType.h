#pragma once

#include <cstdint>

namespace vorn {

// How a meeting is recorded by itself, as the record and the messages number it. It also says whether the account
// could have recorded in the other way.
enum RecordingType : std::int32_t {
  kRecordingNone = 0,
  kRecordingLocalOfBoth = 1,
  kRecordingCloudOfBoth = 2,
  kRecordingOnlyLocal = 3,
  kRecordingOnlyCloud = 4,
  // The account can record in neither way.
  kRecordingUnavailable = 5,
};

}  // namespace vorn
