#pragma once

#include <string>

#include "settings/rules/TextSource.h"

namespace vorn {

// Each text is its key without what is the same in all, and without the number at its end, and the values that
// were put in.
inline std::string textOfKey(std::string_view key, std::initializer_list<std::string_view> values) {
  const std::size_t number = key.find_last_of('_');
  const bool endsWithNumber = key.find_first_not_of("0123456789", number + 1) == std::string_view::npos;
  std::string text(endsWithNumber ? key.substr(0, number) : key);
  text.erase(0, std::string_view("LN_").size());
  for (const std::string_view value : values) text.append("(").append(value).append(")");
  return text;
}

}  // namespace vorn
