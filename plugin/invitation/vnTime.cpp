#include "invitation/vnTime.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "platform/Registry.h"
#include "platform/Surroundings.h"

namespace vorn {

namespace {

std::string FormatGmt(std::time_t time) {
  std::tm parts{};
  if (time == -1 || !::gmtime_r(&time, &parts)) return {};
  std::array<char, 256> text;
  const std::size_t length = std::strftime(text.data(), text.size(), "%Y%m%dT%H%M%SZ", &parts);
  return std::string(text.data(), length);
}

}  // namespace

std::string vnTime::getCurrentTime() {
  Surroundings* surroundings = Registry::platform().surroundings;
  if (!surroundings) return {};
  const auto now = static_cast<std::time_t>(surroundings->currentTime());
  return getStringFromTime(&now);
}

std::string vnTime::getStringFromTime(const std::time_t* time) { return time ? FormatGmt(*time) : std::string(); }

std::int64_t vnTime::getTimeFromStr(const OptionalText& stamp) {
  if (!stamp) return 0;
  std::string digits = *stamp;
  std::erase_if(digits, [](char c) { return c == 'T' || c == 'Z'; });
  return std::strtoll(digits.c_str(), nullptr, 10);
}

}  // namespace vorn
