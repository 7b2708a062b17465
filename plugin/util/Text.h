#pragma once

#include <string>
#include <string_view>

namespace vorn {

// Small operations on UTF-8 text that the platform's own text class would give. All take time linear in the sizes.

// An upper-case letter of ASCII in lower case; any other byte as it is.
constexpr char asciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }
std::string asciiLower(std::string text);
// The same the other way round.
std::string asciiUpper(std::string text);

// The text in the form in which texts that differ only in case are equal, independent of language.
std::string caseFolded(std::string_view text);
bool equalIgnoringCase(std::string_view a, std::string_view b);

}  // namespace vorn
