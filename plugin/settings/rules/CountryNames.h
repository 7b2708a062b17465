#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "settings/rules/TextSource.h"

namespace vorn::panel_rules {

// The name of a country in the panel: some have one of their own, the others the system's for the code, which is
// the code itself where the system knows none. "" for an empty code.
std::string replaceCountryName(const std::string& code, bool isTaiWanZH, const TextSource& texts,
                               const std::function<std::string(const std::string& code)>& systemName);

}  // namespace vorn::panel_rules
