#include "diagnosis/DiagnosisReport.h"

#include <algorithm>
#include <utility>

namespace vorn {

namespace {

// An address reaches to the next of these on both sides. The slash is one of them, so that a path of which one
// folder is named after an address stays readable.
constexpr std::string_view kAddressEnds = " \t\r\n\"'<>()[]{};,/:";

std::string withoutAddressesInText(std::string_view text) {
  std::string covered;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find_first_of(kAddressEnds, at), text.size());
    const std::string_view word = text.substr(at, end - at);
    covered += word.find('@') == std::string_view::npos ? word : "******";
    if (end < text.size()) covered += text[end];
    at = end + 1;
  }
  return covered;
}

// Short lists of texts are told, others counted.
std::string textOfList(const Value& list) {
  constexpr std::size_t kMostTold = 8;
  if (list.count() == 0) return "none";
  std::string told;
  for (const Value& item : list.items()) {
    if (!item.isText() || list.count() > kMostTold) return std::to_string(list.count());
    told += (told.empty() ? "" : ", ") + item.text();
  }
  return told;
}

}  // namespace

std::string DiagnosisReport::textOf(const Value& value) {
  switch (value.kind()) {
    case Value::Kind::boolean: return value.boolValue() ? "yes" : "no";
    case Value::Kind::array: return textOfList(value);
    case Value::Kind::dictionary: return value.count() == 0 ? "none" : std::to_string(value.count()) + " entries";
    case Value::Kind::text: return value.text().empty() ? "(empty)" : value.text();
    case Value::Kind::integer:
    case Value::Kind::real: return value.stringValue();
    default: return "-";
  }
}

void DiagnosisReport::beginGroup(std::string_view name) { m_groups.push_back({std::string(name), {}}); }

void DiagnosisReport::add(std::string_view key, std::string_view words, const Value& value,
                          const OptionalText& shown, const OptionalText& note) {
  Value row = Value::dictionary();
  row.set("key", key);
  row.set("words", words);
  row.set("value", value.isAbsent() ? Value(nullptr) : value);
  row.set("shown", shown ? *shown : textOf(value));
  row.set("note", note);
  m_groups.back().rows.push_back(std::move(row));
}

Value DiagnosisReport::groups() const {
  Value::Array groups;
  for (const Group& group : m_groups) {
    groups.push_back(Value::dictionaryFromPairs({{"name", group.name}, {"rows", group.rows}}));
  }
  return groups;
}

Value withoutAddresses(const Value& value) {
  if (value.isText()) return withoutAddressesInText(value.text());
  if (value.isArray()) {
    Value::Array items;
    for (const Value& item : value.items()) items.push_back(withoutAddresses(item));
    return items;
  }
  if (value.isDictionary()) {
    Value::Dictionary entries;
    for (const auto& [key, entry] : value.entries()) entries[key] = withoutAddresses(entry);
    return entries;
  }
  return value;
}

}  // namespace vorn
