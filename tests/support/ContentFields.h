#pragma once

#include <string>
#include <vector>

namespace vorn {

// What stands before, between and behind the semicolons of a content, read by no code of the plug-in's.
inline std::vector<std::string> contentFields(const std::string& content) {
  std::vector<std::string> fields(1);
  for (const char c : content) {
    if (c == ';') {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  return fields;
}

}  // namespace vorn
