#include <unicode/stringoptions.h>
#include <unicode/unistr.h>

#include <string_view>

#include "channel/commands/vnAPICommitMeeting.h"
#include "platform/Registry.h"
#include "platform/Surroundings.h"
#include "util/Utf16.h"
#include "util/vnOLUtils.h"

// The service calls time zones by other names than the host.

namespace vorn {

namespace {

bool isAscii(char character) { return static_cast<unsigned char>(character) < 0x80; }

char lower(char character) {
  return character >= 'A' && character <= 'Z' ? static_cast<char>(character + ('a' - 'A')) : character;
}

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
  std::size_t same = 0;
  for (; same < a.size() && same < b.size(); ++same) {
    if (!isAscii(a[same]) || !isAscii(b[same])) break;
    if (lower(a[same]) != lower(b[same])) return false;
  }
  if (same == a.size() && same == b.size()) return true;
  const auto unicode = [same](std::string_view text) {
    const std::string_view rest = text.substr(same);
    return icu::UnicodeString::fromUTF8(icu::StringPiece(rest.data(), static_cast<std::int32_t>(rest.size())));
  };
  return unicode(a).caseCompare(unicode(b), U_FOLD_CASE_DEFAULT) == 0;
}

// The second of exactly two parts of the first line whose first part is the name.
OptionalText mappedName(std::string_view map, std::string_view name) {
  while (!map.empty()) {
    const std::size_t end = map.find('\n');
    const std::string_view line = map.substr(0, end);
    map.remove_prefix(end == std::string_view::npos ? map.size() : end + 1);

    const std::size_t separator = line.find(';');
    if (separator == std::string_view::npos) continue;
    if (line.find(';', separator + 1) != std::string_view::npos) continue;
    if (equalsIgnoringCase(line.substr(0, separator), name)) return std::string(line.substr(separator + 1));
  }
  return std::nullopt;
}

}  // namespace

OptionalText vnAPICommitMeeting::getJodaTimezoneName(const OptionalText& name) {
  OptionalText mapped;
  if (name && !name->empty()) {
    const auto map = Registry::platform().surroundings->resource("timezones_map", "txt");
    if (map && isValidUtf8(*map)) mapped = mappedName(*map, *name);
  }
  return vnOLUtils::trimAllSpaceAndNewLine(mapped ? mapped : name);
}

}  // namespace vorn
