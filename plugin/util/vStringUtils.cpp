#include "util/vStringUtils.h"

#include <simdjson.h>

#include "util/JsonWriter.h"

namespace vorn {

namespace {

constexpr std::size_t kDeepestNesting = 512;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

Value valueOf(const simdjson::dom::element& element) {
  using Type = simdjson::dom::element_type;
  switch (element.type()) {
    case Type::ARRAY: {
      Value::Array items;
      for (const auto& item : simdjson::dom::array(element)) items.push_back(valueOf(item));
      return items;
    }
    case Type::OBJECT: {
      Value::Dictionary entries;
      for (const auto& [key, value] : simdjson::dom::object(element)) {
        entries.insert_or_assign(std::string(key), valueOf(value));
      }
      return entries;
    }
    case Type::INT64: return std::int64_t(element);
    case Type::UINT64: return std::uint64_t(element);
    case Type::DOUBLE: return double(element);
    case Type::STRING: return std::string_view(element);
    case Type::BOOL: return bool(element);
    default: return nullptr;
  }
}

}  // namespace

bool vStringUtils::isNullString(const Value& object) { return !object.isPresent(); }

OptionalText vStringUtils::toJSONData(const Value& content) {
  // The platform's writer takes these two only, and raises for anything else.
  if (!content.isDictionary() && !content.isArray()) return std::nullopt;
  return JsonWriter(kDeepestNesting).write(content);
}

OptionalText vStringUtils::toJSONString(const Value& content) { return toJSONData(content); }

Value vStringUtils::toArrayOrNSDictionaryWithData(const OptionalText& data) {
  if (!data) return {};
  std::string_view json = *data;
  if (json.starts_with(kByteOrderMark)) json.remove_prefix(kByteOrderMark.size());
  simdjson::dom::parser parser;
  if (json.empty() || parser.allocate(json.size(), kDeepestNesting)) return {};
  simdjson::dom::element root;
  if (parser.parse(json.data(), json.size()).get(root)) return {};
  return valueOf(root);
}

Value vStringUtils::toArrayOrNSDictionary(const OptionalText& text) {
  if (isNullString(text)) return {};
  return toArrayOrNSDictionaryWithData(stringToNSData(text));
}

OptionalText vStringUtils::stringToNSData(const OptionalText& text) { return text; }

}  // namespace vorn
