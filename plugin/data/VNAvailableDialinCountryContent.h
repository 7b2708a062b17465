#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/VNCountryListItemInfo.h"
#include "util/Value.h"

namespace vorn {

// The dial-in countries that an account offers, and those that are selected.
struct VNAvailableDialinCountryContent {
  OptionalText hash;
  bool includeTollfree = false;
  std::vector<VNCountryListItemInfo> allCountries;
  // An array of codes.
  Value selectedCountries = Value::array();
  bool enableShowIncludeTollfree = false;

  void clear() { *this = {}; }

  // From the "availableDialinCountry" of an account's or a person's dictionary; the codes get their names in the
  // user's language. Time linear in the lists.
  static VNAvailableDialinCountryContent fromProfile(const Value& availableDialinCountry);
  // The same without those that are offered, whose names take most of the time.
  static VNAvailableDialinCountryContent selectionFromProfile(const Value& availableDialinCountry);
};

}  // namespace vorn
