#include "util/vStringUtils.h"

#include <simdjson.h>

#include <algorithm>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "util/JsonWriter.h"

namespace vorn {

namespace {

constexpr std::size_t kDeepestNesting = 512;
constexpr std::size_t kUsualMembers = 64;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// Makes values of what simdjson has read.
class ValueBuilder {
 public:
  ValueBuilder() { m_members.reserve(kUsualMembers); }

  // Gives `take` what the value is to be made of, so that it is made in its place.
  template <typename Take>
  void read(const simdjson::dom::element& element, const Take& take) {
    using Type = simdjson::dom::element_type;
    switch (element.type()) {
      case Type::ARRAY: return take(arrayOf(element));
      case Type::OBJECT: return take(dictionaryOf(element));
      case Type::INT64: return take(std::int64_t(element));
      case Type::UINT64: return take(std::uint64_t(element));
      case Type::DOUBLE: return take(double(element));
      case Type::STRING: return take(std::string_view(element));
      case Type::BOOL: return take(bool(element));
      default: return take(nullptr);
    }
  }

 private:
  struct Member {
    std::string_view key;
    std::size_t position;
    simdjson::dom::element value;
    friend bool operator<(const Member& a, const Member& b) {
      return std::tie(a.key, a.position) < std::tie(b.key, b.position);
    }
  };

  Value::Array arrayOf(const simdjson::dom::array& array) {
    Value::Array items;
    items.reserve(array.size());
    for (const auto& item : array) {
      read(item, [&items](auto&& value) { items.emplace_back(std::forward<decltype(value)>(value)); });
    }
    return items;
  }

  // The members are put in order before anything is made of them, while moving one is cheap.
  Value::Dictionary dictionaryOf(const simdjson::dom::object& object) {
    const std::size_t first = m_members.size();
    for (const auto& [key, value] : object) m_members.push_back({key, m_members.size(), value});
    const std::size_t end = m_members.size();
    std::sort(m_members.begin() + first, m_members.end());
    std::vector<Value::Dictionary::Entry> entries;
    entries.reserve(end - first);
    for (std::size_t i = first; i < end; ++i) {
      const Member member = m_members[i];
      const bool isOverruled = i + 1 < end && m_members[i + 1].key == member.key;
      if (isOverruled) continue;
      read(member.value,
           [&](auto&& value) { entries.emplace_back(member.key, std::forward<decltype(value)>(value)); });
    }
    m_members.resize(first);
    return Value::Dictionary(Value::Dictionary::InOrder(), std::move(entries));
  }

  // Of the dictionaries that are being made, the innermost last.
  std::vector<Member> m_members;
};

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
  // None is kept for the next text: its buffers would keep the passcodes of this one.
  simdjson::dom::parser parser;
  if (json.empty() || parser.allocate(json.size(), kDeepestNesting)) return {};
  simdjson::dom::element root;
  if (parser.parse(json.data(), json.size()).get(root)) return {};
  Value value;
  ValueBuilder().read(root, [&value](auto&& made) { value = std::forward<decltype(made)>(made); });
  return value;
}

Value vStringUtils::toArrayOrNSDictionary(const OptionalText& text) { return toArrayOrNSDictionaryWithData(text); }

OptionalText vStringUtils::stringToNSData(const OptionalText& text) { return text; }

}  // namespace vorn
