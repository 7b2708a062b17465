#include "tests/ports/AppleToolkit.h"

#import <Foundation/Foundation.h>
#import <objc/runtime.h>

#include <mutex>

#include "platform/apple/Conversions.h"
#include "platform/apple/ProcessWorkspace.h"

using vorn::AppleToolkit;

namespace {

AppleToolkit& toolkit() { return AppleToolkit::instance(); }

// Stands before a method that takes at most one argument.
template <int Number>
class Ear {
 public:
  static void standBefore(Class owner, SEL selector) {
    name = sel_getName(selector);
    own = method_setImplementation(class_getInstanceMethod(owner, selector), reinterpret_cast<IMP>(hear));
  }

 private:
  static id hear(id self, SEL selector, id argument) {
    id result = nil;
    try {
      result = reinterpret_cast<id (*)(id, SEL, id)>(own)(self, selector, argument);
    } catch (...) {
      tell();
      throw;
    }
    tell();
    return result;
  }
  static void tell() {
    if (AppleToolkit::instance().hears) AppleToolkit::instance().hears(name);
  }

  static inline IMP own = nullptr;
  static inline std::string name;
};

void listenToSheets() {
  Ear<0>::standBefore([NSApplication class], @selector(endModalSession:));
  Ear<1>::standBefore([NSApplication class], @selector(stopModal));
  Ear<2>::standBefore([NSApplication class], @selector(modalWindow));
  Ear<3>::standBefore([NSPanel class], @selector(orderOut:));
}

}  // namespace

namespace vorn {

AppleToolkit& AppleToolkit::instance() {
  static AppleToolkit toolkit;
  return toolkit;
}

AppleToolkit& AppleToolkit::fresh() {
  static std::once_flag once;
  std::call_once(once, listenToSheets);
  vornlab::alertDesk() = {};
  return instance() = AppleToolkit();
}

std::vector<id> AppleToolkit::sessions() {
  NSArray* windows = [[NSApplication sharedApplication] modalWindows];
  std::vector<id> all;
  for (NSUInteger i = 0; i < [windows count]; ++i) all.push_back([windows objectAtIndex:i]);
  return all;
}

std::vector<std::pair<id, std::string>> AppleToolkit::panels() {
  NSArray* windows = [[NSApplication sharedApplication] windows];
  std::vector<std::pair<id, std::string>> all;
  for (NSUInteger i = 0; i < [windows count]; ++i) {
    const id window = [windows objectAtIndex:i];
    if ([window isKindOfClass:[NSPanel class]])
      all.emplace_back(window, textFromFoundation([[[[window contentView] subviews] lastObject] stringValue]));
  }
  return all;
}

}  // namespace vorn

namespace {

void refuse(NSString* reason) { [NSException raise:NSInvalidArgumentException format:@"%@", reason]; }

}  // namespace

// The session's list of applications, and its way to start one.
@interface vnToolkitApplication : NSObject
@end
@implementation vnToolkitApplication
- (NSString*)bundleIdentifier {
  return vorn::foundationText(toolkit().running);
}
@end

@interface NSWorkspace : NSObject
@end
@implementation NSWorkspace
+ (id)sharedWorkspace {
  static NSWorkspace* workspace = [[NSWorkspace alloc] init];
  return toolkit().hasWorkspace || toolkit().workspaceRaises ? workspace : nil;
}
- (void)answerOrRaise {
  if (toolkit().workspaceRaises) refuse(@"no answers today");
}
- (NSArray*)runningApplications {
  [self answerOrRaise];
  return [NSArray arrayWithObject:[[[vnToolkitApplication alloc] init] autorelease]];
}
- (NSString*)absolutePathForAppBundleWithIdentifier:(NSString*)identifier {
  [self answerOrRaise];
  const auto found = toolkit().applications.find(vorn::textFromFoundation(identifier));
  return found == toolkit().applications.end() ? nil : vorn::foundationText(found->second);
}
- (BOOL)isFilePackageAtPath:(NSString*)path {
  (void)path;
  [self answerOrRaise];
  return NO;
}
- (id)launchApplicationAtURL:(NSURL*)program
                     options:(NSUInteger)options
               configuration:(NSDictionary*)configuration
                       error:(NSError**)error {
  (void)configuration;
  [self answerOrRaise];
  const std::string path = vorn::textFromFoundation([program path]);
  toolkit().launched = path;
  if (options == 65536 && vorn::startAsChild(path)) return self;
  *error = [NSError errorWithDomain:NSCocoaErrorDomain code:1 userInfo:nil];
  return nil;
}
- (BOOL)openURL:(NSURL*)place {
  (void)place;
  [self answerOrRaise];
  return NO;
}
@end
