#include "settings/rules/CountryRules.h"

#include <string_view>
#include <unordered_set>
#include <utility>

#include "util/CharacterSets.h"
#include "util/Utf16.h"

namespace vorn::panel_rules {

namespace {

using Codes = std::unordered_set<std::string>;

Codes codesIn(const Value& list) {
  Codes codes;
  for (const Value& code : list.items()) codes.insert(code.text());
  return codes;
}

std::vector<std::string> countriesOf(const CountryConflict& conflict,
                                     const VNAvailableDialinCountryContent& content) {
  const Value& maximum = conflict.maximumDialinCountry["maximumDialinCountries"];
  std::vector<std::string> countries;
  if (maximum.isArray()) {
    for (const Value& code : maximum.items()) countries.push_back(code.text());
    return countries;
  }
  // An account that names no limit has none: nobody may lose what they have chosen to a list that never came.
  Codes known;
  for (const VNCountryListItemInfo& country : content.allCountries) {
    if (known.insert(country.countryCode).second) countries.push_back(country.countryCode);
  }
  for (const Value& code : content.selectedCountries.items()) {
    if (known.insert(code.text()).second) countries.push_back(code.text());
  }
  return countries;
}

// The countries that are reached through a data centre which the meeting does not use.
Codes countriesOfUnusedCenters(const CountryConflict& conflict) {
  const Codes selected = codesIn(conflict.selectedDcs);
  Codes unused;
  for (const Value& center : conflict.webUncheckedDCInfos.items()) {
    const std::string& dc = center["dc"].text();
    if (!selected.contains(dc)) unused.insert(dc);
  }
  Codes countries;
  for (const Value& center : conflict.maximumDialinCountry["pstnDcWithCountries"].items()) {
    if (unused.contains(center["dcName"].text())) countries.merge(codesIn(center["dcCountries"]));
  }
  return countries;
}

// The allowed countries in the order of the account's list, and which they are.
struct Allowed {
  std::vector<std::string> inOrder{};
  Codes codes{};
};

Allowed allowedCountries(const CountryConflict& conflict, const VNAvailableDialinCountryContent& content) {
  constexpr std::int64_t kAllowRegions = 0;
  constexpr std::int64_t kBlockRegions = 1;
  const Codes regions = codesIn(conflict.selectedRegions);
  const Codes removed = countriesOfUnusedCenters(conflict);
  Allowed allowed;
  for (std::string& country : countriesOf(conflict, content)) {
    if (conflict.regionPolicyType == kAllowRegions && !regions.contains(country)) continue;
    if (conflict.regionPolicyType == kBlockRegions && regions.contains(country)) continue;
    if (removed.contains(country)) continue;
    allowed.codes.insert(country);
    allowed.inOrder.push_back(std::move(country));
  }
  return allowed;
}

}  // namespace

std::string CountryNames::replaceCountryName(const std::string& code) const {
  if (code.empty()) return "";
  if (code == "HK") return texts("LN_Schedule_Enable_DataCenterRegion_HK_151084", {});
  if (code == "MO") return texts("LN_Audiooption_CountryName_Macau_49437", {});
  if (code == "TW") {
    return texts(isTaiWanZH ? "LN_Audiooption_CountryName_TaiWan_WithChina_115980"
                            : "LN_Audiooption_CountryName_TaiWan_49437",
                 {});
  }
  return nameOf(code);
}

SelectedCountries selectedCountries(const Value& codes, const CountryNames& names) {
  const auto name = [&](std::size_t index) { return names.replaceCountryName(codes.at(index).text()); };
  std::string text;
  switch (codes.count()) {
    case 0: text = names.texts("LN_Schedule_AllowDenyWindow_NodialinCountries_188713", {}); break;
    case 1: text = names.texts("LN_Schedule_Selected_One_DialinCountry_16058", {name(0)}); break;
    case 2: text = names.texts("LN_Schedule_Selected_Two_DialinCountry_16058", {name(0), name(1)}); break;
    default:
      text = names.texts("LN_Schedule_Selected_Morethan_Two_DialinCountry_16058",
                         {name(0), std::to_string(codes.count() - 1)});
  }
  return {.text = shownText(LongText::selectedCountries, text), .isRed = codes.count() == 0};
}

NarrowedCountries updateDialinCountryForConflict(const CountryConflict& conflict,
                                                 VNAvailableDialinCountryContent content,
                                                 const CountryNames& names) {
  const Allowed allowed = allowedCountries(conflict, content);
  NarrowedCountries result{.content = std::move(content)};
  Value kept = Value::array();
  Codes keptCodes;
  for (const Value& code : result.content.selectedCountries.items()) {
    if (allowed.codes.contains(code.text())) {
      kept.append(code);
      keptCodes.insert(code.text());
    } else {
      result.isChanged = true;
    }
  }
  result.content.selectedCountries = std::move(kept);
  result.content.allCountries.clear();
  for (const std::string& code : allowed.inOrder) {
    std::string name = names.replaceCountryName(code);
    if (name.empty()) continue;
    result.content.allCountries.push_back({code, std::move(name), keptCodes.contains(code), false});
  }
  return result;
}

CountrySearch countrySearch(const std::string& typed, bool isEntered) {
  constexpr std::size_t kLongest = 256;
  constexpr std::size_t kShortestWithBlank = 2;
  std::string_view text = utf16Prefix(typed, kLongest);
  text.remove_prefix(leading(text, isWhitespaceOrNewline).size());
  if (!isEntered || utf16Length(text) < kShortestWithBlank) return {.text = std::string(text)};
  const std::size_t last = previousCharacter(text, text.size());
  if (!isWhitespace(characterAt(text, last))) return {.text = std::string(text)};
  return {.text = std::string(text.substr(0, last)), .flipsEntered = true};
}

}  // namespace vorn::panel_rules
