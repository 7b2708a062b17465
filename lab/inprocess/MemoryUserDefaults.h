#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/UserDefaults.h"

namespace vornlab {

// User defaults that nobody brings to a disk, to be looked at from outside.
class MemoryUserDefaults final : public vorn::UserDefaults {
 public:
  vorn::Value objectForKey(std::string_view key) override { return stored[key]; }
  void setObject(const vorn::Value& value, std::string_view key) override {
    if (value.isAbsent()) removeObject(key);
    stored.set(key, value);
  }
  void removeObject(std::string_view key) override { stored.erase(key); }
  void synchronize() override { ++synchronized; }
  vorn::Value persistentDomainForName(std::string_view domain) override {
    const auto found = domains.find(domain);
    return found == domains.end() ? vorn::Value() : found->second;
  }

  vorn::Value stored = vorn::Value::dictionary();
  std::map<std::string, vorn::Value, std::less<>> domains;
  int synchronized = 0;
};

}  // namespace vornlab
