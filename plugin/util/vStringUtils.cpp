#include "util/vStringUtils.h"

#include <simdjson.h>

#include <algorithm>
#include <deque>
#include <numeric>
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
  void read(simdjson::dom::element element, const Take& take) {
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
    simdjson::dom::element value;
  };
  // The keys of a dictionary in the order of its text, and the places of those that count in the order of the
  // keys.
  struct Shape {
    std::vector<std::string_view> keys;
    std::vector<std::size_t> order;
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
    for (const auto& [key, value] : object) m_members.push_back({key, value});
    if (m_depth == m_shapes.size()) m_shapes.emplace_back();
    Shape& shape = m_shapes[m_depth++];
    if (!isOf(shape, first)) shape = shapeOf(first);
    std::vector<Value::Dictionary::Entry> entries;
    entries.reserve(shape.order.size());
    for (const std::size_t place : shape.order) {
      read(m_members[first + place].value,
           [&](auto&& value) { entries.emplace_back(shape.keys[place], std::forward<decltype(value)>(value)); });
    }
    --m_depth;
    m_members.resize(first);
    return Value::Dictionary(Value::Dictionary::InOrder(), std::move(entries));
  }

  bool isOf(const Shape& shape, std::size_t first) const {
    return std::equal(m_members.begin() + first, m_members.end(), shape.keys.begin(), shape.keys.end(),
                      [](const Member& member, std::string_view key) { return member.key == key; });
  }

  // Of equal keys the last one counts.
  Shape shapeOf(std::size_t first) const {
    Shape shape;
    for (std::size_t i = first; i < m_members.size(); ++i) shape.keys.push_back(m_members[i].key);
    const auto& keys = shape.keys;
    std::vector<std::size_t>& order = shape.order;
    order.resize(keys.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(),
              [&](std::size_t a, std::size_t b) { return std::tie(keys[a], a) < std::tie(keys[b], b); });
    const auto kept = std::unique(order.rbegin(), order.rend(),
                                  [&](std::size_t a, std::size_t b) { return keys[a] == keys[b]; });
    order.erase(order.begin(), kept.base());
    return shape;
  }

  // Of the dictionaries that are being made, the innermost last.
  std::vector<Member> m_members;
  // Of the last dictionary at each depth: those of one list mostly have the same keys in the same order, which is
  // then found once. A deque, for what is made inside a dictionary adds to it.
  std::deque<Shape> m_shapes;
  std::size_t m_depth = 0;
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
