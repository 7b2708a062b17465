#pragma once

#include <optional>
#include <string>

#include "platform/UserDefaults.h"
#include "util/ParsedFiles.h"
#include "util/PropertyList.h"

namespace vorn {

class RunLoop;

// User defaults in a folder: one property list for each domain, "<domain>.plist".
//
// A file is replaced as a whole or not at all; one that cannot be read counts as empty.
class EmbeddedUserDefaults final : public UserDefaults {
 public:
  // The preferences folder is made with the first write. Without a loop, what was set is on the disk when the call
  // returns; with one, which outlives this object, a little later and at the latest when this object ends, as the
  // platform's own defaults are written behind the programs' backs: a value that is reset and soon set again costs
  // no write.
  EmbeddedUserDefaults(std::string preferencesFolder, std::string domain, RunLoop* runLoop = nullptr);
  ~EmbeddedUserDefaults() override;
  EmbeddedUserDefaults(const EmbeddedUserDefaults&) = delete;
  EmbeddedUserDefaults& operator=(const EmbeddedUserDefaults&) = delete;

  Value objectForKey(std::string_view key) override;
  void setObject(const Value& value, std::string_view key) override;
  void removeObject(std::string_view key) override;
  void synchronize() override;
  Value persistentDomainForName(std::string_view domain) override;

 private:
  std::string pathOf(std::string_view domain) const;
  void write();

  std::string m_folder;
  std::string m_domain;
  RunLoop* m_runLoop;
  ParsedFiles m_domains{&propertyListIn};
  // The domain as it is to be on the disk; absent when it is.
  std::optional<Value> m_unwritten;
};

}  // namespace vorn
