#pragma once

#include "platform/UserDefaults.h"

namespace vorn {

// The user defaults of the host's process.
class AppleUserDefaults final : public UserDefaults {
 public:
  Value objectForKey(std::string_view key) override;
  void setObject(const Value& value, std::string_view key) override;
  void removeObject(std::string_view key) override;
  void synchronize() override;
  Value persistentDomainForName(std::string_view domain) override;
};

}  // namespace vorn
