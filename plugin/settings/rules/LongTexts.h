#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace vorn {

// The places of the panel where a text may be too long. The number is the length to which it is cut, in UTF-16
// units, the mark at the end included.
enum class LongText : std::int32_t {
  popupItem = 45,
  // The expression of the chosen authentication's domains, and the same where its line would be too wide.
  domains = 45,
  domainsOnWideLine = 30,
  joinBeforeHostLine = 65,
  // Behind the times, where that line would be too wide.
  joinBeforeHostEnd = 10,
  optionTitle = 65,
  prompt = 70,
  selectedCountries = 55,
  regions = 38,
  // Of the window of join regions.
  regionChoice = 50,
  templateTip = 55,
  templateLink = 22,
};

// A text as the panel shows it.
struct ShownText {
  std::string text;
  // The whole text where the shown one was cut; "" otherwise.
  std::string toolTip{};

  bool operator==(const ShownText&) const = default;
};

// Time linear in the text.
ShownText shownText(LongText place, const std::string& text);

// Whether the texts stand beside each other in a line of the panel, which is 490 points wide. What the panel shows
// does not hang on a screen, so a letter counts as wide as one is on average.
bool fitInOneLine(std::initializer_list<std::string_view> texts);

}  // namespace vorn
