#include "data/MeetingRecords.h"

#include "data/vnSettingKeys.h"

namespace vorn {

Value trackingFieldDictionary(const _sTrackingField& field) {
  return Value::dictionaryFromPairs({{vn_Setting_TrackingFields_Id, field.id},
                                     {vn_Setting_TrackingFields_Field, field.trackField},
                                     {vn_Setting_TrackingFields_Value, field.trackValue},
                                     {vn_Setting_TrackingFields_MtValue, field.mtValue},
                                     {vn_Setting_TrackingFields_Required, field.required}});
}

Value textArray(const std::vector<std::string>& texts) { return Value::Array(texts.begin(), texts.end()); }

}  // namespace vorn
