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
  m_groups.back().rows.push_back(Value::dictionaryFromPairs(
      {{"key", key},
       {"words", words},
       {"value", seen.isAbsent() ? Value(nullptr) : seen},
       // Of a list, too: what its items say together may be a secret that none of them is.
       {"shown", SecretMask::covered(shown ? *shown : textOf(seen))},
       {"note", note ? Value(SecretMask::covered(*note)) : Value()}}));
}

Value DiagnosisReport::groups() const {
  Value::Array groups;
  for (const Group& group : m_groups) {
    groups.push_back(Value::dictionaryFromPairs({{"name", group.name}, {"rows", group.rows}}));
  }
  return groups;
}

}  // namespace vorn
