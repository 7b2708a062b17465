#pragma once

// The countries whose dial-in numbers an invitation lists: their names, what the panel says of the chosen ones,
// what the account, the data centres and the join regions leave of them, and how they are searched. Pure
// functions.

#include <cstdint>
#include <functional>
#include <string>

#include "data/VNAvailableDialinCountryContent.h"
#include "settings/rules/LongTexts.h"
#include "settings/rules/TextSource.h"
#include "util/Value.h"

namespace vorn::panel_rules {

// How countries are called.
struct CountryNames {
  // The name of a code in the user's language; the code itself when it has none.
  std::function<std::string(const std::string& code)> nameOf;
  TextSource texts;
  // Of the account.
  bool isTaiWanZH = false;

  // replaceCountryName:; "" for an empty code.
  std::string replaceCountryName(const std::string& code) const;
};

// updateSelectedCountriesDesField.
struct SelectedCountries {
  ShownText text{};
  // Nothing is chosen, which is a fault.
  bool isRed = false;

  bool operator==(const SelectedCountries&) const = default;
};
SelectedCountries selectedCountries(const Value& codes, const CountryNames& names);

// What may take countries away.
struct CountryConflict {
  // "maximumDialinCountry" of the account or of the person.
  Value maximumDialinCountry{};
  // The data centres that the account has not checked, and the codes of those that the meeting adds.
  Value webUncheckedDCInfos{};
  Value selectedDcs{};
  // 0 allows the regions, 1 blocks them; any other leaves all countries.
  std::int64_t regionPolicyType = 2;
  Value selectedRegions{};
};

struct NarrowedCountries {
  VNAvailableDialinCountryContent content{};
  // A selected country was taken away.
  bool isChanged = false;
};

// updateDialinCountryForConflict, for the content whose selection is to be narrowed. Time linear in all lists.
NarrowedCountries updateDialinCountryForConflict(const CountryConflict& conflict,
                                                 VNAvailableDialinCountryContent content,
                                                 const CountryNames& names);

// What the search field's text means.
struct CountrySearch {
  std::string text{};
  // A blank at the end chooses the entered country or takes it back, and is no part of the text.
  bool flipsEntered = false;

  bool operator==(const CountrySearch&) const = default;
};
CountrySearch countrySearch(const std::string& typed, bool isEntered);

}  // namespace vorn::panel_rules
