#pragma once

#include "host/proxies/vnDelegateBase.h"

namespace vorn {

// The From address of an account.
class vnECEmailAddress : public vnDelegateBase {
 public:
  explicit vnECEmailAddress(const HostObject& delegate) : vnDelegateBase(ownClassName(delegate), delegate) {}

  OptionalText emailAddress() const { return text("emailAddress"); }
  OptionalText name() const { return text("name"); }
  std::int64_t type() const { return number("type"); }
};

}  // namespace vorn
