#include "lab/shell/HostRuntime.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "lab/shell/LabError.h"

namespace vornlab {
namespace {

constexpr std::string_view kOption = "--runtime";

// The names that were given, taken out of the words.
std::vector<std::string> takeNames(std::vector<std::string>& words) {
  const std::string joined = std::string(kOption) + "=";
  std::vector<std::string> names;
  std::vector<std::string> rest;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i].starts_with(joined)) {
      names.push_back(words[i].substr(joined.size()));
    } else if (words[i] == kOption) {
      names.push_back(i + 1 < words.size() ? words[++i] : "");
    } else {
      rest.push_back(words[i]);
    }
  }
  words = rest;
  return names;
}

[[noreturn]] void goOnAs(const std::filesystem::path& program, const std::vector<std::string>& words) {
  std::vector<std::string> copies = words;
  std::vector<char*> arguments;
  std::string name = program.string();
  arguments.push_back(name.data());
  for (std::string& word : copies) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  execv(name.c_str(), arguments.data());
  throw LabError("cannot start " + name + ": " + std::strerror(errno));
}

}  // namespace

void chooseRuntime(std::vector<std::string>& words, std::string_view own, const std::filesystem::path& programs) {
  const std::vector<std::string> names = takeNames(words);
  if (names.empty()) return;
  const std::string& name = names.back();
  if (name != "embedded" && name != "objc") {
    throw UsageError("--runtime is embedded or objc, not \"" + name + "\"");
  }
  if (name == own) return;
  const auto program = programs / (name == "objc" ? "vornlab-objc" : "vornlab");
  if (!std::filesystem::exists(program)) throw UsageError("this build has no stand-in host for --runtime " + name);
  goOnAs(program, words);
}

}  // namespace vornlab
