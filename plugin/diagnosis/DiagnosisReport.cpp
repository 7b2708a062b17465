#include "diagnosis/DiagnosisReport.h"

#include <utility>

#include "secrets/SecretMask.h"
#include "util/CoveredValue.h"

namespace vorn {

namespace {

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
  const Value seen = covered(value, key);
  // In the order of their names, so that a row needs no sorting.
  std::vector<Value::Dictionary::Entry> row;
  row.reserve(5);
  row.emplace_back("key", key);
  if (note) row.emplace_back("note", SecretMask::covered(*note));
  // Of a list, too: what its items say together may be a secret that none of them is.
  row.emplace_back("shown", SecretMask::covered(shown ? *shown : textOf(seen)));
  row.emplace_back("value", seen.isAbsent() ? Value(nullptr) : seen);
  row.emplace_back("words", words);
  m_groups.back().rows.emplace_back(Value::Dictionary(Value::Dictionary::InOrder(), std::move(row)));
}

Value DiagnosisReport::groups() const {
  Value::Array groups;
  for (const Group& group : m_groups) {
    groups.push_back(Value::dictionaryFromPairs({{"name", group.name}, {"rows", group.rows}}));
  }
  return groups;
}

}  // namespace vorn
