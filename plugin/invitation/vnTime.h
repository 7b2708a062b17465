#pragma once

#include <cstdint>
#include <ctime>
#include <string>

#include "util/Value.h"

namespace vorn {

// The time stamp of calendar texts, "20260131T235959Z". Main thread only.
class vnTime {
 public:
  // The present time.
  static std::string getCurrentTime();
  // Seconds since 1970 in UTC as a stamp; "" for a null pointer, for -1 and for what cannot be broken down.
  static std::string getStringFromTime(const std::time_t* time);
  // The digits of a stamp read as one number, such as 20260131235959: good for comparison only. 0 for absence and
  // for text that begins with no number.
  static std::int64_t getTimeFromStr(const OptionalText& stamp);
};

}  // namespace vorn
