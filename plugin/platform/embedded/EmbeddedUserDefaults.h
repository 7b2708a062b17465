#pragma once

#include <string>

#include "platform/UserDefaults.h"

namespace vorn {

// User defaults in a folder: one property list for each domain, "<domain>.plist".
//
// What was set is on the disk when the call returns, so that processes that share a folder see each other's
// changes. A file is replaced as a whole or not at all; one that cannot be read counts as empty.
class EmbeddedUserDefaults final : public UserDefaults {
 public:
  // The preferences folder is made with the first write.
  EmbeddedUserDefaults(std::string preferencesFolder, std::string domain);

  Value objectForKey(std::string_view key) override;
  void setObject(const Value& value, std::string_view key) override;
  void removeObject(std::string_view key) override;
  void synchronize() override;
  Value persistentDomainForName(std::string_view domain) override;

 private:
  std::string pathOf(std::string_view domain) const;

  std::string m_folder;
  std::string m_domain;
};

}  // namespace vorn
