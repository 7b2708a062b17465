#include "util/CoveredValue.h"

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "secrets/SecretMask.h"

namespace vorn {

namespace {

// Two names may be covered alike, and both entries are there to be seen.
std::vector<std::string> shownNames(const Value::Dictionary& entries) {
  std::vector<std::string> names;
  names.reserve(entries.size());
  bool isAnyCovered = false;
  for (const auto& [name, entry] : entries) {
    names.push_back(SecretMask::covered(name));
    isAnyCovered = isAnyCovered || names.back() != name;
  }
  if (!isAnyCovered) return names;
  std::set<std::string> taken;
  std::map<std::string, int> times;
  for (std::string& name : names) {
    const std::string plain = name;
    while (!taken.insert(name).second) name = plain + " " + std::to_string(++times[plain] + 1);
  }
  return names;
}

}  // namespace

Value covered(const Value& value, std::string_view key) {
  if (value.isText()) return SecretMask::coveredUnder(key, value.text());
  const bool isNumber = value.kind() == Value::Kind::integer || value.kind() == Value::Kind::real;
  if (isNumber && SecretMask::isSecretKey(key)) return SecretMask::kCover;
  if (value.isArray()) {
    Value::Array items;
    for (const Value& item : value.items()) items.push_back(covered(item, key));
    return items;
  }
  if (!value.isDictionary()) return value;
  std::vector<std::string> names = shownNames(value.entries());
  std::vector<Value::Dictionary::Entry> entries;
  entries.reserve(names.size());
  for (const auto& [name, entry] : value.entries()) {
    entries.emplace_back(std::move(names[entries.size()]), covered(entry, SecretMask::keyThatCounts(key, name)));
  }
  return Value::Dictionary(std::move(entries));
}

}  // namespace vorn
