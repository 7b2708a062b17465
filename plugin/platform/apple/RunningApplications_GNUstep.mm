// GNUstep has no list of running applications; the system has one of processes.

#import <Foundation/Foundation.h>

#include "platform/apple/Conversions.h"
#include "platform/apple/RunningApplications.h"

namespace vorn {

namespace {

// The bundle of the program that the process runs; nil for a bare program, and when it cannot be seen.
NSString* bundleOfProcess(NSString* process) {
  NSString* link = [[@"/proc" stringByAppendingPathComponent:process] stringByAppendingPathComponent:@"exe"];
  NSString* program = [[NSFileManager defaultManager] pathContentOfSymbolicLinkAtPath:link];
  if (!program) return nil;
  const NSRange folder = [program rangeOfString:@"/Contents/MacOS/" options:NSBackwardsSearch];
  return folder.location == NSNotFound ? nil : [program substringToIndex:folder.location];
}

NSString* identifierOfBundle(NSString* bundle) {
  NSString* facts = [bundle stringByAppendingPathComponent:@"Contents/Info.plist"];
  return [[NSDictionary dictionaryWithContentsOfFile:facts] objectForKey:@"CFBundleIdentifier"];
}

}  // namespace

bool isApplicationRunning(std::string_view bundleIdentifier) {
  NSString* wanted = foundationText(bundleIdentifier);
  NSArray* names = [[NSFileManager defaultManager] contentsOfDirectoryAtPath:@"/proc" error:nullptr];
  NSEnumerator* entries = [names objectEnumerator];
  while (NSString* name = [entries nextObject]) {
    if ([name intValue] == 0) continue;
    NSString* bundle = bundleOfProcess(name);
    if (bundle && [identifierOfBundle(bundle) isEqual:wanted]) return true;
  }
  return false;
}

}  // namespace vorn
