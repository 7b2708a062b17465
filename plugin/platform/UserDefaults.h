#pragma once

#include <string_view>

#include "util/Value.h"

namespace vorn {

// The per-user store of small settings. Main thread only; a failure to read or write is not reported.
class UserDefaults {
 public:
  virtual ~UserDefaults() = default;

  // The value under the key of the host's own domain; absent when there is none.
  virtual Value objectForKey(std::string_view key) = 0;
  // Stores a value; absent removes the key.
  virtual void setObject(const Value& value, std::string_view key) = 0;
  virtual void removeObject(std::string_view key) = 0;
  // Asks for what was set to be brought to the disk, which a platform does by itself soon after.
  virtual void synchronize() = 0;
  // All values of another application's domain; absent when it has none.
  virtual Value persistentDomainForName(std::string_view domain) = 0;
};

}  // namespace vorn
