#pragma once

#include <string>

namespace vorn {

// A row in the list of dial-in countries.
struct VNCountryListItemInfo {
  std::string countryCode;
  std::string countryName;
  bool selected = false;
  // Keyboard or mouse focus.
  bool isEntered = false;
};

}  // namespace vorn
