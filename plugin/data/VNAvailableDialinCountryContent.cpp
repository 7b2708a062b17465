#include "data/VNAvailableDialinCountryContent.h"

#include <string_view>
#include <unordered_set>

#include "channel/store/vnCommon.h"
#include "data/vnProfileKeys.h"
#include "data/vnSettingKeys.h"

namespace vorn {

VNAvailableDialinCountryContent VNAvailableDialinCountryContent::selectionFromProfile(
    const Value& availableDialinCountry) {
  VNAvailableDialinCountryContent content;
  content.hash = availableDialinCountry[vn_Setting_DialinCountry_Hash].optionalText();
  content.includeTollfree = availableDialinCountry[vn_Setting_DialinCountry_IncludeTollfree].boolValue();
  const Value& selected = availableDialinCountry[vn_Setting_DialinCountry_SelectedCountries];
  // The service sends one empty text when nothing is selected.
  const bool nothingSelected = selected.count() == 1 && selected.at(0).text().empty();
  if (selected.isArray() && !nothingSelected) content.selectedCountries = selected;
  content.enableShowIncludeTollfree =
      availableDialinCountry[vn_Setting_DialinCountry_EnableShowIncludeTollfree].boolValue();
  return content;
}

VNAvailableDialinCountryContent VNAvailableDialinCountryContent::fromProfile(const Value& availableDialinCountry) {
  VNAvailableDialinCountryContent content = selectionFromProfile(availableDialinCountry);
  std::unordered_set<std::string_view> selection;
  for (const Value& code : content.selectedCountries.items()) selection.insert(code.text());
  for (const Value& entry : availableDialinCountry[vn_Profile_AllCountries].items()) {
    const std::string& code = entry.text();
    if (code.empty()) continue;
    content.allCountries.push_back(
        {code, vnCommon::getCountryNameByCode(code).value_or(code), selection.contains(code), false});
  }
  return content;
}

}  // namespace vorn
