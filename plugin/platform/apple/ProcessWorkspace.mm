#include "platform/apple/ProcessWorkspace.h"

#import <Foundation/Foundation.h>
#include <limits.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

#include "platform/apple/Conversions.h"

namespace vorn {

namespace {

constexpr std::string_view kProgramFolder = "/Contents/MacOS/";

// The processes of this machine, the newest first: what a person works with was started after what serves the
// machine.
std::vector<int> processes() {
  std::vector<int> found;
  std::error_code failed;
  for (std::filesystem::directory_iterator entry("/proc", failed), end; !failed && entry != end;
       entry.increment(failed)) {
    const int process = std::atoi(entry->path().filename().c_str());
    if (process != 0) found.push_back(process);
  }
  std::sort(found.rbegin(), found.rend());
  return found;
}

// The program that the process runs; "" when it cannot be seen.
std::string programOf(int process) {
  std::array<char, PATH_MAX> program{};
  const std::string link = "/proc/" + std::to_string(process) + "/exe";
  const ssize_t length = ::readlink(link.c_str(), program.data(), program.size());
  return length <= 0 ? "" : std::string(program.data(), static_cast<std::size_t>(length));
}

// The bundle that a program belongs to; "" for a bare program.
std::string bundleOf(const std::string& program) {
  const std::size_t at = program.rfind(kProgramFolder);
  return at == std::string::npos ? "" : program.substr(0, at);
}

NSString* identifierOfBundle(NSString* bundle) {
  NSString* facts = [bundle stringByAppendingPathComponent:@"Contents/Info.plist"];
  return [[NSDictionary dictionaryWithContentsOfFile:facts] objectForKey:@"CFBundleIdentifier"];
}

// As the system tells where a program lies; those that are not there are left out.
std::vector<std::string> inRealForm(const std::vector<std::string>& folders) {
  std::vector<std::string> places;
  for (const std::string& folder : folders) {
    std::error_code failed;
    const std::filesystem::path place = std::filesystem::canonical(folder, failed);
    if (!failed) places.push_back(place.native() + "/");
  }
  return places;
}

bool liesInOneOf(const std::vector<std::string>& places, const std::string& path) {
  return std::any_of(places.begin(), places.end(),
                     [&path](const std::string& place) { return path.starts_with(place); });
}

bool start(NSString* program, NSArray* arguments) {
  try {
    [NSTask launchedTaskWithLaunchPath:program arguments:arguments];
    return true;
  } catch (...) {
    // Raised where no program is.
    return false;
  }
}

}  // namespace

bool isRunByAProcess(std::string_view bundleIdentifier, const std::vector<std::string>& applicationFolders) {
  const std::vector<std::string> places = inRealForm(applicationFolders);
  NSString* wanted = foundationText(bundleIdentifier);
  const std::vector<int> running = processes();
  return std::any_of(running.begin(), running.end(), [&](int process) {
    const std::string bundle = bundleOf(programOf(process));
    return liesInOneOf(places, bundle) && [identifierOfBundle(foundationText(bundle)) isEqual:wanted];
  });
}

bool startAsChild(std::string_view executablePath) {
  return start(foundationText(executablePath), [NSArray array]);
}

bool showByDesktop(std::string_view path) {
  return start(@"/usr/bin/xdg-open", [NSArray arrayWithObject:foundationText(path)]);
}

}  // namespace vorn
