#include "platform/embedded/EmbeddedUserDefaults.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "util/PropertyList.h"

namespace vorn {

EmbeddedUserDefaults::EmbeddedUserDefaults(std::string preferencesFolder, std::string domain)
    : m_folder(std::move(preferencesFolder)), m_domain(std::move(domain)) {}

Value EmbeddedUserDefaults::objectForKey(std::string_view key) { return persistentDomainForName(m_domain)[key]; }

void EmbeddedUserDefaults::setObject(const Value& value, std::string_view key) {
  Value stored = persistentDomainForName(m_domain);
  // Many settings are set to what they are already, and each write waits for the disk.
  if (stored[key] == value) return;
  if (value.isAbsent()) {
    stored.erase(key);
  } else {
    stored.set(key, value);
  }
  std::error_code failed;
  std::filesystem::create_directories(m_folder, failed);
  writePropertyList(stored, pathOf(m_domain));
}

void EmbeddedUserDefaults::removeObject(std::string_view key) { setObject({}, key); }

// Every change is on the disk already.
void EmbeddedUserDefaults::synchronize() {}

Value EmbeddedUserDefaults::persistentDomainForName(std::string_view domain) {
  Value stored = readPropertyList(pathOf(domain));
  return stored.isDictionary() ? stored : Value();
}

std::string EmbeddedUserDefaults::pathOf(std::string_view domain) const {
  return m_folder + "/" + std::string(domain) + ".plist";
}

}  // namespace vorn
