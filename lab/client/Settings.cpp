#include "lab/client/Settings.h"

#include <algorithm>
#include <charconv>

namespace vornlab {
namespace {

std::int64_t wholeNumber(const std::string& text) {
  std::int64_t value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

}  // namespace

const nlohmann::json& memberOf(const nlohmann::json& object, const char* name) {
  static const nlohmann::json kMissing;
  if (!object.is_object()) return kMissing;
  const auto found = object.find(name);
  return found == object.end() ? kMissing : *found;
}

bool flagOf(const nlohmann::json& object, const char* name) {
  const auto& value = memberOf(object, name);
  if (value.is_boolean()) return value.get<bool>();
  return value.is_number() && value.get<double>() != 0;
}

std::int64_t numberOf(const nlohmann::json& object, const char* name, std::int64_t fallback) {
  const auto& value = memberOf(object, name);
  if (value.is_number_integer()) return value.get<std::int64_t>();
  if (value.is_boolean()) return value.get<bool>() ? 1 : 0;
  if (value.is_string()) return wholeNumber(value.get_ref<const std::string&>());
  return fallback;
}

std::string textOf(const nlohmann::json& object, const char* name) {
  const auto& value = memberOf(object, name);
  if (value.is_string()) return value.get<std::string>();
  return value.is_number_integer() ? value.dump() : std::string();
}

std::vector<std::string> listOf(const nlohmann::json& object, const char* name) {
  std::vector<std::string> list;
  const auto& value = memberOf(object, name);
  if (value.is_array()) {
    for (const auto& item : value) {
      if (item.is_string() && !item.get_ref<const std::string&>().empty()) list.push_back(item.get<std::string>());
    }
  } else if (value.is_string()) {
    const auto& text = value.get_ref<const std::string&>();
    std::size_t begin = 0;
    while (begin < text.size()) {
      const auto end = std::min(text.find_first_of(";,", begin), text.size());
      if (end > begin) list.push_back(text.substr(begin, end - begin));
      begin = end + 1;
    }
  }
  return list;
}

}  // namespace vornlab
