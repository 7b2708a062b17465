#pragma once

#include <string>

#include "settings/rules/TextSource.h"

namespace vorn {

// Each text is the last words of its key, without the number behind them, and the values that were put in.
inline std::string textOfKey(std::string_view key, std::initializer_list<std::string_view> values) {
  std::string text(key.substr(0, key.find_last_of('_')));
  text.erase(0, std::string_view("LN_").size());
  for (const std::string_view value : values) text.append("(").append(value).append(")");
  return text;
}

}  // namespace vorn
