#include "platform/embedded/EmbeddedSurroundings.h"

#include <sys/random.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "util/AtomicFile.h"
#include "util/tdm.h"

namespace vorn {

namespace {

// So many bytes the system gives whole, or none.
constexpr std::size_t kNumbersAtOnce = 256 / sizeof(std::uint32_t);

// "de_DE.UTF-8" becomes "de-DE"; the environment's "C" and "POSIX" are no languages.
std::vector<std::string> languagesOfEnvironment() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* set = std::getenv(name);
    std::string tag = set ? set : "";
    tag = tag.substr(0, tag.find_first_of(".@"));
    std::replace(tag.begin(), tag.end(), '_', '-');
    if (!tag.empty() && tag != "C" && tag != "POSIX") return {tag};
  }
  return {"en-US"};
}

std::string orElse(std::string chosen, std::string otherwise) {
  return chosen.empty() ? std::move(otherwise) : std::move(chosen);
}

}  // namespace

EmbeddedSurroundings::EmbeddedSurroundings(Options options)
    : m_options(std::move(options)), m_seeded(m_options.seed.value_or(0)) {
  m_options.documents = orElse(m_options.documents, m_options.home + "/Documents");
  m_options.applications = orElse(m_options.applications, "/Applications");
  m_options.userApplications = orElse(m_options.userApplications, m_options.home + "/Applications");
  if (m_options.languages.empty()) m_options.languages = languagesOfEnvironment();
}

std::string EmbeddedSurroundings::homeDirectory() { return m_options.home; }

std::string EmbeddedSurroundings::documentsDirectory() { return m_options.documents; }

std::string EmbeddedSurroundings::applicationsDirectory() { return m_options.applications; }

std::string EmbeddedSurroundings::userApplicationsDirectory() { return m_options.userApplications; }

std::optional<std::string> EmbeddedSurroundings::resource(std::string_view name, std::string_view type) {
  const std::string path = resourcePath(name, type);
  return path.empty() ? std::nullopt : readFile(path);
}

std::string EmbeddedSurroundings::resourcePath(std::string_view name, std::string_view type) {
  // A name is a name and no way out of the folder.
  if (m_options.resources.empty() || name.find('/') != std::string_view::npos) return "";
  return m_options.resources + "/" + std::string(name) + "." + std::string(type);
}

Surroundings::Version EmbeddedSurroundings::systemVersion() { return m_options.systemVersion; }

std::vector<std::string> EmbeddedSurroundings::preferredLanguages() { return m_options.languages; }

double EmbeddedSurroundings::currentTime() {
  if (m_options.clock) return m_options.clock();
  return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

std::uint32_t EmbeddedSurroundings::random32() {
  if (m_options.seed) return static_cast<std::uint32_t>(m_seeded() >> 32);
  // A passcode takes a number for each of its characters.
  if (m_random.empty()) {
    std::array<std::uint32_t, kNumbersAtOnce> numbers{};
    while (::getrandom(numbers.data(), sizeof numbers, 0) != static_cast<ssize_t>(sizeof numbers)) {
    }
    m_random.assign(numbers.begin(), numbers.end());
    tdm::memset_s(numbers.data(), sizeof numbers, 0, sizeof numbers);
  }
  // A passcode that was given out cannot be made again of what is left.
  const std::uint32_t number = std::exchange(m_random.back(), 0);
  m_random.pop_back();
  return number;
}

}  // namespace vorn
