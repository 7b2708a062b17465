#include "platform/embedded/EmbeddedUserDefaults.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/RunLoop.h"

namespace vorn {

namespace {

// A run over many appointments resets a value and sets it again in each of them.
constexpr double kSecondsUnwritten = 0.2;

}  // namespace

EmbeddedUserDefaults::EmbeddedUserDefaults(std::string preferencesFolder, std::string domain, RunLoop* runLoop)
    : m_folder(std::move(preferencesFolder)), m_domain(std::move(domain)), m_runLoop(runLoop) {}

EmbeddedUserDefaults::~EmbeddedUserDefaults() {
  if (m_runLoop) m_runLoop->cancelPrevious(this);
  write();
}

Value EmbeddedUserDefaults::objectForKey(std::string_view key) { return persistentDomainForName(m_domain)[key]; }

void EmbeddedUserDefaults::setObject(const Value& value, std::string_view key) {
  Value stored = persistentDomainForName(m_domain);
  if (stored[key] == value) return;
  if (value.isAbsent()) {
    stored.erase(key);
  } else {
    stored.set(key, value);
  }
  const bool isWaiting = std::exchange(m_unwritten, std::move(stored)).has_value();
  if (!m_runLoop) return write();
  if (!isWaiting) m_runLoop->performAfter(kSecondsUnwritten, this, "write", [this] { write(); });
}

void EmbeddedUserDefaults::write() {
  const std::optional<Value> domain = std::exchange(m_unwritten, std::nullopt);
  if (!domain) return;
  std::error_code failed;
  std::filesystem::create_directories(m_folder, failed);
  writePropertyList(*domain, pathOf(m_domain));
}

void EmbeddedUserDefaults::removeObject(std::string_view key) { setObject({}, key); }

// Every change goes to the disk by itself, and soon.
void EmbeddedUserDefaults::synchronize() {}

Value EmbeddedUserDefaults::persistentDomainForName(std::string_view domain) {
  if (m_unwritten && domain == m_domain) return *m_unwritten;
  Value stored = m_domains.read(pathOf(domain));
  return stored.isDictionary() ? stored : Value();
}

std::string EmbeddedUserDefaults::pathOf(std::string_view domain) const {
  return m_folder + "/" + std::string(domain) + ".plist";
}

}  // namespace vorn
