#include "platform/apple/AppleSurroundings.h"

#import <Foundation/Foundation.h>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <utility>

#include "platform/apple/Conversions.h"
#include "util/AtomicFile.h"

namespace vorn {

namespace {

std::string homeOfProcess() {
#ifdef GNUSTEP
  // GNUstep answers with the user's folder even to a process that has been given another home.
  const char* home = std::getenv("HOME");
  if (home && *home == '/') return home;
#endif
  return textFromFoundation(NSHomeDirectory());
}

}  // namespace

AppleSurroundings::AppleSurroundings(std::string resources)
    : m_resources(std::move(resources)), m_home(homeOfProcess()) {}

std::optional<std::string> AppleSurroundings::resource(std::string_view name, std::string_view type) {
  const std::string path = resourcePath(name, type);
  return path.empty() ? std::nullopt : readFile(path);
}

std::string AppleSurroundings::resourcePath(std::string_view name, std::string_view type) {
  // A name is a name and no way out of the folder.
  if (name.find('/') != std::string_view::npos) return "";
  return m_resources + "/" + std::string(name) + "." + std::string(type);
}

Surroundings::Version AppleSurroundings::systemVersion() {
#ifdef GNUSTEP
  // GNUstep's own answer is the kernel's version, which says nothing here; it offers what this system does. A host
  // that plays another system puts that one's version in its place, behind a word that no kernel has.
  Version told;
  const char* text = [[[NSProcessInfo processInfo] operatingSystemVersionString] UTF8String];
  const bool isRead = text && std::sscanf(text, "played %d.%d.%d", &told.major, &told.minor, &told.patch) >= 2;
  return isRead ? told : Version{10, 15, 0};
#else
  const NSOperatingSystemVersion version = [[NSProcessInfo processInfo] operatingSystemVersion];
  return {static_cast<int>(version.majorVersion), static_cast<int>(version.minorVersion),
          static_cast<int>(version.patchVersion)};
#endif
}

std::vector<std::string> AppleSurroundings::preferredLanguages() {
  std::vector<std::string> tags;
  NSEnumerator* languages = [[NSLocale preferredLanguages] objectEnumerator];
  while (NSString* tag = [languages nextObject]) tags.push_back(textFromFoundation(tag));
  if (tags.empty()) tags.emplace_back("en-US");
  return tags;
}

double AppleSurroundings::currentTime() { return [[NSDate date] timeIntervalSince1970]; }

std::uint32_t AppleSurroundings::random32() {
  std::random_device kernel;
  return kernel();
}

}  // namespace vorn
