#include "platform/apple/AppleWorkspace.h"

#import <Foundation/Foundation.h>

#include <utility>

#include "platform/apple/Conversions.h"
#include "platform/apple/ProcessWorkspace.h"

// What we use of the host's workspace. Which of its look-ups it has depends on the system's version.
@protocol vnHostWorkspace <NSObject>
+ (id)sharedWorkspace;
- (NSArray*)runningApplications;
- (NSString*)absolutePathForAppBundleWithIdentifier:(NSString*)identifier;
- (NSURL*)URLForApplicationWithBundleIdentifier:(NSString*)identifier;
- (BOOL)isFilePackageAtPath:(NSString*)path;
- (id)launchApplicationAtURL:(NSURL*)program
                     options:(NSUInteger)options
               configuration:(NSDictionary*)configuration
                       error:(NSError**)error;
- (BOOL)openURL:(NSURL*)place;
@end

@protocol vnRunningApplication
- (NSString*)bundleIdentifier;
@end

namespace vorn {

namespace {

constexpr NSUInteger kLaunchWithoutWaiting = 65536;

// Asks the host's workspace, which is nil in a process without a toolkit. One that raises is as good as none.
template <typename Question>
auto askWorkspace(Question question) {
  try {
    const id<vnHostWorkspace> workspace = [NSClassFromString(@"NSWorkspace") sharedWorkspace];
    return question(workspace);
  } catch (...) {
  }
  return question(nil);
}

// "" when the host's workspace knows no such application.
std::string applicationKnownToHost(NSString* identifier) {
  return askWorkspace([&](id<vnHostWorkspace> workspace) {
    NSString* path = nil;
    if ([workspace respondsToSelector:@selector(absolutePathForAppBundleWithIdentifier:)]) {
      path = [workspace absolutePathForAppBundleWithIdentifier:identifier];
    } else if ([workspace respondsToSelector:@selector(URLForApplicationWithBundleIdentifier:)]) {
      path = [[workspace URLForApplicationWithBundleIdentifier:identifier] path];
    }
    return textFromFoundation(path);
  });
}

bool isRunByHostsSession(NSString* identifier) {
  return askWorkspace([&](id<vnHostWorkspace> workspace) {
    if (![workspace respondsToSelector:@selector(runningApplications)]) return false;
    NSEnumerator* applications = [[workspace runningApplications] objectEnumerator];
    while (id<vnRunningApplication> application = [applications nextObject]) {
      if ([[application bundleIdentifier] isEqual:identifier]) return true;
    }
    return false;
  });
}

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
  return isRunByHostsSession(foundationText(bundleIdentifier)) ||
         isRunByAProcess(bundleIdentifier, m_applicationFolders);
}

std::string AppleWorkspace::absolutePathForAppBundle(std::string_view bundleIdentifier) {
  NSString* wanted = foundationText(bundleIdentifier);
  const std::string known = applicationKnownToHost(wanted);
  if (!known.empty()) return known;
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
  if (!isFolder(bundle)) return false;
  NSString* kind = [bundle pathExtension];
  if ([kind isEqual:@"app"] || [kind isEqual:@"bundle"]) return true;
  return askWorkspace([&](id<vnHostWorkspace> workspace) {
    if (![workspace respondsToSelector:@selector(isFilePackageAtPath:)]) return false;
    return [workspace isFilePackageAtPath:bundle] != NO;
  });
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
  return askWorkspace([&](id<vnHostWorkspace> workspace) {
    if (![workspace respondsToSelector:@selector(launchApplicationAtURL:options:configuration:error:)])
      return startAsChild(executablePath);
    NSError* error = nil;
    const id launched = [workspace launchApplicationAtURL:[NSURL fileURLWithPath:foundationText(executablePath)]
                                                  options:kLaunchWithoutWaiting
                                            configuration:nil
                                                    error:&error];
    return launched && [[error localizedDescription] length] == 0;
  });
}

bool AppleWorkspace::openFolder(std::string_view path) {
  NSString* folder = foundationText(path);
  if (!isFolder(folder)) return false;
  NSURL* place = [NSURL fileURLWithPath:folder isDirectory:YES];
  const bool isShown = askWorkspace([&](id<vnHostWorkspace> workspace) {
    return [workspace respondsToSelector:@selector(openURL:)] && [workspace openURL:place];
  });
  return isShown || showByDesktop(path);
}

bool AppleWorkspace::openWebPage(std::string_view address) {
  NSURL* place = isWebAddress(address) ? [NSURL URLWithString:foundationText(address)] : nil;
  if (!place) return false;
  const bool isShown = askWorkspace([&](id<vnHostWorkspace> workspace) {
    return [workspace respondsToSelector:@selector(openURL:)] && [workspace openURL:place];
  });
  return isShown || showByDesktop(address);
}

}  // namespace vorn
