#include "platform/apple/ProcessWorkspace.h"

#import <Foundation/Foundation.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>

#include "platform/apple/Conversions.h"

namespace vorn {

namespace {

// The bundle of the program that the process runs; nil for a bare program, and when it cannot be seen.
NSString* bundleOfProcess(NSString* process) {
  std::error_code failed;
  const std::string link = "/proc/" + textFromFoundation(process) + "/exe";
  NSString* program = foundationText(std::filesystem::read_symlink(link, failed).native());
  const NSRange folder = [program rangeOfString:@"/Contents/MacOS/" options:NSBackwardsSearch];
  return folder.location == NSNotFound ? nil : [program substringToIndex:folder.location];
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

bool liesInOneOf(const std::vector<std::string>& places, NSString* bundle) {
  const std::string path = textFromFoundation(bundle);
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
  NSArray* names = [[NSFileManager defaultManager] contentsOfDirectoryAtPath:@"/proc" error:nullptr];
  NSEnumerator* entries = [names objectEnumerator];
  while (NSString* name = [entries nextObject]) {
    if ([name intValue] == 0) continue;
    NSString* bundle = bundleOfProcess(name);
    if (bundle && liesInOneOf(places, bundle) && [identifierOfBundle(bundle) isEqual:wanted]) return true;
  }
  return false;
}

bool startAsChild(std::string_view executablePath) {
  return start(foundationText(executablePath), [NSArray array]);
}

bool showByDesktop(std::string_view path) {
  return start(@"/usr/bin/xdg-open", [NSArray arrayWithObject:foundationText(path)]);
}

}  // namespace vorn
