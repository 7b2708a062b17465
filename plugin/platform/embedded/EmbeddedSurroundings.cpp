#include "platform/embedded/EmbeddedSurroundings.h"

#include <sys/random.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "util/AtomicFile.h"

namespace vorn {

namespace {

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
    : options_(std::move(options)), seeded_(options_.seed.value_or(0)) {
  options_.documents = orElse(options_.documents, options_.home + "/Documents");
  options_.applications = orElse(options_.applications, "/Applications");
  options_.userApplications = orElse(options_.userApplications, options_.home + "/Applications");
  if (options_.languages.empty()) options_.languages = languagesOfEnvironment();
}

std::string EmbeddedSurroundings::homeDirectory() { return options_.home; }

std::string EmbeddedSurroundings::documentsDirectory() { return options_.documents; }

std::string EmbeddedSurroundings::applicationsDirectory() { return options_.applications; }

std::string EmbeddedSurroundings::userApplicationsDirectory() { return options_.userApplications; }

std::optional<std::string> EmbeddedSurroundings::resource(std::string_view name, std::string_view type) {
  // A name is a name and no way out of the folder.
  if (options_.resources.empty() || name.find('/') != std::string_view::npos) return std::nullopt;
  return readFile(options_.resources + "/" + std::string(name) + "." + std::string(type));
}

Surroundings::Version EmbeddedSurroundings::systemVersion() { return options_.systemVersion; }

std::vector<std::string> EmbeddedSurroundings::preferredLanguages() { return options_.languages; }

double EmbeddedSurroundings::currentTime() {
  if (options_.clock) return options_.clock();
  return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

std::uint32_t EmbeddedSurroundings::random32() {
  if (options_.seed) return static_cast<std::uint32_t>(seeded_() >> 32);
  std::uint32_t number = 0;
  while (::getrandom(&number, sizeof number, 0) != static_cast<ssize_t>(sizeof number)) {
  }
  return number;
}

}  // namespace vorn
