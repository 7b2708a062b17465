#pragma once

#include <cstdint>
#include <string>

namespace vorn {

// The places of the panel where a text may be too long. The number is the length to which it is cut, in UTF-16
// units, the mark at the end included.
enum class LongText : std::int32_t {
  popupItem = 45,
  // The expression of the chosen authentication's domains, and the same on a line wider than 490 points.
  domains = 45,
  domainsOnWideLine = 30,
  joinBeforeHostLine = 65,
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

}  // namespace vorn
