#pragma once

#include <string>
#include <vector>

#include "util/Value.h"

namespace vorn {

// Region codes as rules take them, and as dictionaries have them. Anything but an array is none.
inline std::vector<std::string> regionCodes(const Value& codes) {
  std::vector<std::string> all;
  for (const Value& code : codes.items()) all.push_back(code.text());
  return all;
}

inline Value regionCodes(const std::vector<std::string>& codes) {
  Value all = Value::array();
  for (const std::string& code : codes) all.append(code);
  return all;
}

}  // namespace vorn
