#include "util/CoveredValue.h"

#include <map>
#include <string>

#include "secrets/SecretMask.h"

namespace vorn {

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
  Value::Dictionary entries;
  // Two names may be covered alike, and both entries are there to be seen.
  std::map<std::string, int> times;
  for (const auto& [name, entry] : value.entries()) {
    const std::string plain = SecretMask::covered(name);
    std::string shown = plain;
    while (entries.contains(shown)) shown = plain + " " + std::to_string(++times[plain] + 1);
    entries[shown] = covered(entry, SecretMask::keyThatCounts(key, name));
  }
  return entries;
}

}  // namespace vorn
