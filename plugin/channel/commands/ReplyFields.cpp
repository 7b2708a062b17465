#include "channel/commands/ReplyFields.h"

#include "util/vnOLUtils.h"

namespace vorn {

std::vector<std::string_view> leadingFields(std::string_view text, char separator, std::size_t limit) {
  std::vector<std::string_view> fields;
  std::size_t start = 0;
  while (fields.size() < limit) {
    const std::size_t end = text.find(separator, start);
    fields.push_back(text.substr(start, end == std::string_view::npos ? end : end - start));
    if (end == std::string_view::npos) break;
    start = end + 1;
  }
  return fields;
}

Value dictionaryFromJSON(const OptionalText& text) {
  Value parsed = vnOLUtils::toArrayOrNSDictionary(text);
  return parsed.isDictionary() ? parsed : Value();
}

Value dictionaryOrEmpty(const Value& value) { return value.isDictionary() ? value : Value::dictionary(); }

}  // namespace vorn
