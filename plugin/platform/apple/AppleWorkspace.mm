#include "platform/apple/AppleWorkspace.h"

#import <Foundation/Foundation.h>

#include <utility>

#include "platform/apple/Conversions.h"
#include "platform/apple/FolderOpener.h"
#include "platform/apple/RunningApplications.h"

namespace vorn {

namespace {

NSDictionary* dictionaryAt(NSString* path) { return [NSDictionary dictionaryWithContentsOfFile:path]; }

NSDictionary* factsOfBundle(NSString* bundle) {
  return dictionaryAt([bundle stringByAppendingPathComponent:@"Contents/Info.plist"]);
}

bool isFolder(NSString* path) {
  BOOL isDirectory = NO;
  return [[NSFileManager defaultManager] fileExistsAtPath:path isDirectory:&isDirectory] && isDirectory;
}

}  // namespace

AppleWorkspace::AppleWorkspace(std::vector<std::string> applicationFolders)
    : m_applicationFolders(std::move(applicationFolders)) {}

bool AppleWorkspace::isRunning(std::string_view bundleIdentifier) {
  return isApplicationRunning(bundleIdentifier);
}

std::string AppleWorkspace::absolutePathForAppBundle(std::string_view bundleIdentifier) {
  NSString* wanted = foundationText(bundleIdentifier);
  for (const std::string& folder : m_applicationFolders) {
    NSString* place = foundationText(folder);
    NSArray* names = [[NSFileManager defaultManager] contentsOfDirectoryAtPath:place error:nullptr];
    NSEnumerator* sorted = [[names sortedArrayUsingSelector:@selector(compare:)] objectEnumerator];
    while (NSString* name = [sorted nextObject]) {
      NSString* bundle = [place stringByAppendingPathComponent:name];
      const std::string path = textFromFoundation(bundle);
      if (isFilePackage(path) && [[factsOfBundle(bundle) objectForKey:@"CFBundleIdentifier"] isEqual:wanted])
        return path;
    }
  }
  return "";
}

bool AppleWorkspace::isFilePackage(std::string_view path) {
  NSString* bundle = [foundationText(path) stringByStandardizingPath];
  NSString* kind = [bundle pathExtension];
  return ([kind isEqual:@"app"] || [kind isEqual:@"bundle"]) && isFolder(bundle);
}

std::string AppleWorkspace::executablePath(std::string_view bundlePath) {
  NSString* bundle = [foundationText(bundlePath) stringByStandardizingPath];
  NSString* name = [factsOfBundle(bundle) objectForKey:@"CFBundleExecutable"];
  // A bundle that does not name its program has one of its own name.
  if (![name isKindOfClass:[NSString class]] || [name length] == 0)
    name = [[bundle lastPathComponent] stringByDeletingPathExtension];
  NSString* program =
      [[bundle stringByAppendingPathComponent:@"Contents/MacOS"] stringByAppendingPathComponent:name];
  const bool isProgram = !isFolder(program) && [[NSFileManager defaultManager] isExecutableFileAtPath:program];
  return isProgram ? textFromFoundation(program) : "";
}

Value AppleWorkspace::propertyListAtPath(std::string_view path) {
  return valueFromObject(dictionaryAt(foundationText(path)), LiveObjects::Holding::whenUnowned);
}

bool AppleWorkspace::launch(std::string_view executablePath) {
  try {
    [NSTask launchedTaskWithLaunchPath:foundationText(executablePath) arguments:[NSArray array]];
    return true;
  } catch (...) {
    // Raised where no program is.
    return false;
  }
}

bool AppleWorkspace::openFolder(std::string_view path) {
  return isFolder(foundationText(path)) && showFolder(path);
}

}  // namespace vorn
