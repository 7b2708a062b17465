// The service calls time zones by other names than the host.

#include <string>
#include <string_view>

#include "channel/commands/vnAPICommitMeeting.h"
#include "platform/Registry.h"
#include "platform/Surroundings.h"
#include "util/Text.h"
#include "util/Utf16.h"
#include "util/vnOLUtils.h"

namespace vorn {

namespace {

// The second of exactly two parts of the first line whose first part is the name.
OptionalText mappedName(std::string_view map, std::string_view name) {
  while (!map.empty()) {
    const std::size_t end = map.find('\n');
    const std::string_view line = map.substr(0, end);
    map.remove_prefix(end == std::string_view::npos ? map.size() : end + 1);

    const std::size_t separator = line.find(';');
    if (separator == std::string_view::npos) continue;
    if (line.find(';', separator + 1) != std::string_view::npos) continue;
    if (equalIgnoringCase(line.substr(0, separator), name)) return std::string(line.substr(separator + 1));
  }
  return std::nullopt;
}

}  // namespace

OptionalText vnAPICommitMeeting::getJodaTimezoneName(const OptionalText& name) {
  OptionalText mapped;
  if (!name.value_or("").empty()) {
    const auto map = Registry::platform().surroundings->resource("timezones_map", "txt");
    if (map && isValidUtf8(*map)) mapped = mappedName(*map, *name);
  }
  return vnOLUtils::trimAllSpaceAndNewLine(mapped ? mapped : name);
}

}  // namespace vorn
