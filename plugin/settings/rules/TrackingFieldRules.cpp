#include "settings/rules/TrackingFieldRules.h"

#include "data/vnSettingKeys.h"
#include "util/vnOLUtils.h"

namespace vorn::panel_rules {

vnTrackingFieldContent trackingFieldOf(const Value& dictionary) {
  return {.id = dictionary[vn_Setting_TrackingFields_Id].text(),
          .trackingField = dictionary[vn_Setting_TrackingFields_Field].text(),
          .trackingValue = dictionary[vn_Setting_TrackingFields_Value].text(),
          .mtValue = dictionary[vn_Setting_TrackingFields_MtValue].text(),
          .required = dictionary[vn_Setting_TrackingFields_Required].boolValue()};
}

Value trackingFieldWith(const vnTrackingFieldContent& content, const std::string& mtValue) {
  return Value::dictionaryFromPairs({{vn_Setting_TrackingFields_Id, content.id},
                                     {vn_Setting_TrackingFields_Field, content.trackingField},
                                     {vn_Setting_TrackingFields_Value, content.trackingValue},
                                     {vn_Setting_TrackingFields_MtValue, mtValue},
                                     {vn_Setting_TrackingFields_Required, content.required}});
}

std::vector<std::string> offeredTrackingValues(std::string_view trackingValue) {
  constexpr std::string_view kSeparator = "^^^";
  std::vector<std::string> values;
  // A field without offered values takes what is typed; an empty entry would offer nothing.
  if (trackingValue.empty()) return values;
  for (;;) {
    const std::size_t end = trackingValue.find(kSeparator);
    values.emplace_back(trackingValue.substr(0, end));
    if (end == std::string_view::npos) return values;
    trackingValue.remove_prefix(end + kSeparator.size());
  }
}

std::string trackingFieldValue(const std::string& typed) {
  return vnOLUtils::trimAllSpaceAndNewLine(typed).value_or("");
}

}  // namespace vorn::panel_rules
