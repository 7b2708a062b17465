#include "lab/shell/ReportForm.h"

#include <cmath>
#include <nlohmann/json.hpp>

namespace vornlab {

nlohmann::ordered_json jsonOf(const vorn::Value& value) {
  using Json = nlohmann::ordered_json;
  switch (value.kind()) {
    case vorn::Value::Kind::boolean: return value.boolValue();
    case vorn::Value::Kind::integer: return value.integerValue();
    case vorn::Value::Kind::real: return value.realValue();
    case vorn::Value::Kind::text: return value.text();
    case vorn::Value::Kind::array: {
      Json list = Json::array();
      for (const vorn::Value& item : value.items()) list.push_back(jsonOf(item));
      return list;
    }
    case vorn::Value::Kind::dictionary: {
      Json object = Json::object();
      for (const auto& [key, entry] : value.entries()) object[key] = jsonOf(entry);
      return object;
    }
    default: return nullptr;
  }
}

double roundedSeconds(double seconds) { return std::round(seconds * 1000) / 1000; }

}  // namespace vornlab
