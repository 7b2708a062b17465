#include "channel/discovery/VersionNumber.h"

#include "util/Value.h"

namespace vorn {

VersionNumber VersionNumber::parse(std::string_view text) {
  VersionNumber version;
  for (std::int64_t* part : {&version.major, &version.minor, &version.third}) {
    const std::size_t dot = text.find('.');
    *part = Value(text.substr(0, dot)).integerValue();
    if (dot == std::string_view::npos) break;
    text.remove_prefix(dot + 1);
  }
  return version;
}

}  // namespace vorn
