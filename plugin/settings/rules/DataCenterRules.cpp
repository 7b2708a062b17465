#include "settings/rules/DataCenterRules.h"

#include <string_view>
#include <unordered_set>

namespace vorn::panel_rules {

std::vector<DataCenter> dataCenters(const Value& offered, const Value& chosen) {
  std::unordered_set<std::string_view> codes;
  for (const Value& code : chosen.items()) codes.insert(code.text());
  std::vector<DataCenter> centers;
  centers.reserve(offered.count());
  for (const Value& center : offered.items()) {
    const std::string& dc = center["dc"].text();
    centers.push_back({dc, center["name"].text(), codes.contains(dc)});
  }
  return centers;
}

Value chosenAfterClick(const Value& chosen, const DataCenter& clicked) {
  Value result = Value::array();
  for (const Value& code : chosen.items()) {
    if (code.text() != clicked.dc) result.append(code);
  }
  if (!clicked.bChecked) result.append(clicked.dc);
  return result;
}

std::string dataCenterTitle(const DataCenter& center, const TextSource& texts) {
  // Codes and keys are not alike in all of them.
  static constexpr struct {
    std::string_view dc;
    std::string_view key;
  } kTitles[] = {{"US", "LN_Schedule_Enable_DataCenterRegion_US_151084"},
                 {"HK", "LN_Schedule_Enable_DataCenterRegion_HK_151084"},
                 {"CA", "LN_Schedule_Enable_DataCenterRegion_CA_151084"},
                 {"TY", "LN_Schedule_Enable_DataCenterRegion_TY_151084"},
                 {"EU", "LN_Schedule_Enable_DataCenterRegion_EU_151084"},
                 {"LA", "LN_Schedule_Enable_DataCenterRegion_LA_151084"},
                 {"AU", "LN_Schedule_Enable_DataCenterRegion_AU_151084"},
                 {"SG", "LN_Schedule_Enable_DataCenterRegion_SG_151084"},
                 {"IN", "LN_Schedule_Enable_DataCenterRegion_IN_151084"},
                 {"DE", "LN_Schedule_Enable_DataCenterRegion_DE_183088"},
                 {"CN", "LN_Schedule_Enable_DataCenterRegion_CN_151084"},
                 {"NL", "LN_Schedule_Enable_DataCenterRegion_NL_183088"},
                 {"SE", "LN_Schedule_Enable_DataCenterRegion_SE_187366"},
                 {"IE", "LN_Schedule_Enable_DataCenterRegion_IE_187366"}};
  for (const auto& [dc, key] : kTitles) {
    if (dc == center.dc) return texts(key, {});
  }
  return center.name;
}

}  // namespace vorn::panel_rules
