#pragma once

#include <map>
#include <string>
#include <string_view>

#include "secrets/SecretMask.h"

namespace vornlab {

// A copy of a JSON document in which secrets are covered, those in its keys included; `key` is the one that the
// value stands under. What is empty, true, false or null hides nothing and stays. For either order of members.
template <typename Json>
Json coveredJson(const Json& value, std::string_view key = {}) {
  using vorn::SecretMask;
  if (value.is_string()) return SecretMask::coveredUnder(key, value.template get_ref<const std::string&>());
  if (value.is_number() && SecretMask::isSecretKey(key)) return std::string(SecretMask::kCover);
  if (value.is_array()) {
    Json list = Json::array();
    for (const Json& item : value) list.push_back(coveredJson(item, key));
    return list;
  }
  if (!value.is_object()) return value;
  Json object = Json::object();
  // Two names may be covered alike, and both members are there to be seen.
  std::map<std::string, int> times;
  for (const auto& [name, member] : value.items()) {
    const std::string plain = SecretMask::covered(name);
    std::string shown = plain;
    while (object.contains(shown)) shown = plain + " " + std::to_string(++times[plain] + 1);
    object[shown] = coveredJson(member, SecretMask::keyThatCounts(key, name));
  }
  return object;
}

}  // namespace vornlab
