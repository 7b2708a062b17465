#pragma once

#include <string>
#include <string_view>

#include "util/Value.h"

namespace vorn {

// What a user has said once and for all of a notice, one class for each of the stores that keep such flags. A flag
// is read anew each time, and is false where nothing is kept; writing it leaves everything else in the store as it
// stands. Main thread only; no failure is reported.

// In the site configuration, which is the same for all users.
class SiteFlag {
 public:
  explicit SiteFlag(std::string_view key) : m_key(key) {}
  bool isSet() const;
  void set(bool value) const;

 private:
  std::string m_key;
};

// In the saved profile of a user. Without a user nothing is kept.
class SavedProfileFlag {
 public:
  SavedProfileFlag(std::string_view key, OptionalText userId) : m_key(key), m_userId(std::move(userId)) {}
  bool isSet() const;
  void set(bool value) const;

 private:
  std::string m_key;
  OptionalText m_userId;
};

// In the user defaults. After the end of this system nothing is kept.
class DefaultsFlag {
 public:
  explicit DefaultsFlag(std::string_view key) : m_key(key) {}
  bool isSet() const;
  void set(bool value) const;

 private:
  std::string m_key;
};

}  // namespace vorn
