#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace vorn {

// The text behind a key in the bundle's "Localizable" table; the key itself when the table has none. The table
// is read once. Main thread only.
std::string localizedString(std::string_view key);

// The format with each "%@" replaced, in order, and "%%" by a percent sign. A placeholder without an argument
// becomes nothing; an argument without a placeholder is not used. What an argument holds is not looked at again.
std::string formatText(std::string_view format, std::initializer_list<std::string_view> arguments);

}  // namespace vorn
