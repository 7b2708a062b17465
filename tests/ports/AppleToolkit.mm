#include "tests/ports/AppleToolkit.h"

#import <Foundation/Foundation.h>

#include <algorithm>

#include "platform/apple/Conversions.h"
#include "platform/apple/ProcessWorkspace.h"

using vorn::AppleToolkit;

namespace vorn {

AppleToolkit& AppleToolkit::instance() {
  static AppleToolkit toolkit;
  return toolkit;
}

}  // namespace vorn

namespace {

AppleToolkit& toolkit() { return AppleToolkit::instance(); }

void refuse(NSString* reason) { [NSException raise:NSInvalidArgumentException format:@"%@", reason]; }

void hear(const char* selector) {
  if (toolkit().hears) toolkit().hears(selector);
}

}  // namespace

@interface NSView : NSObject {
  NSMutableArray* m_subviews;
}
@end
@implementation NSView
- (id)initWithFrame:(NSRect)frame {
  (void)frame;
  if ((self = [super init])) m_subviews = [[NSMutableArray alloc] init];
  return self;
}
- (void)dealloc {
  [m_subviews release];
  [super dealloc];
}
- (NSArray*)subviews {
  return m_subviews;
}
- (void)addSubview:(NSView*)view {
  [m_subviews addObject:view];
}
- (void)removeFromSuperview {
  hear("removeFromSuperview");
}
@end

@interface NSTextField : NSView {
  NSString* m_text;
}
@end
@implementation NSTextField
- (void)dealloc {
  [m_text release];
  [super dealloc];
}
- (NSString*)stringValue {
  return m_text;
}
- (void)setStringValue:(NSString*)text {
  m_text = [text copy];
}
- (void)setEditable:(BOOL)editable {
  (void)editable;
}
- (void)setBezeled:(BOOL)bezeled {
  (void)bezeled;
}
- (void)setDrawsBackground:(BOOL)drawsBackground {
  (void)drawsBackground;
}
@end

@interface NSPanel : NSObject {
  NSView* m_contentView;
}
- (std::string)message;
@end
@implementation NSPanel
- (id)initWithContentRect:(NSRect)frame styleMask:(NSUInteger)style backing:(NSUInteger)backing defer:(BOOL)defer {
  (void)style;
  (void)backing;
  (void)defer;
  if ((self = [super init])) m_contentView = [[NSView alloc] initWithFrame:frame];
  return self;
}
- (void)dealloc {
  if (std::erase_if(toolkit().panels, [self](const auto& shown) { return shown.first == self; }) > 0)
    refuse(@"a panel has gone that was on the screen");
  [m_contentView release];
  [super dealloc];
}
- (NSView*)contentView {
  return m_contentView;
}
- (std::string)message {
  return vorn::textFromFoundation([[[m_contentView subviews] lastObject] stringValue]);
}
- (void)center {
}
- (void)orderOut:(id)sender {
  (void)sender;
  std::erase_if(toolkit().panels, [self](const auto& shown) { return shown.first == self; });
  hear("orderOut:");
}
@end

@interface NSApplication : NSObject
@end
@implementation NSApplication
+ (id)sharedApplication {
  static NSApplication* application = [[NSApplication alloc] init];
  return application;
}
- (void*)beginModalSessionForWindow:(id)window {
  toolkit().sessions.push_back(window);
  toolkit().panels.emplace_back(window, [window message]);
  return window;
}
- (void)endModalSession:(void*)session {
  if (toolkit().sessions.empty() || toolkit().sessions.back() != session) refuse(@"not the uppermost session");
  toolkit().sessions.pop_back();
  hear("endModalSession:");
}
- (void)stopModal {
  hear("stopModal");
  if (toolkit().sessions.empty()) refuse(@"nothing is modal");
  ++toolkit().wronglyStopped;
}
- (id)modalWindow {
  hear("modalWindow");
  return toolkit().sessions.empty() ? nil : toolkit().sessions.back();
}
@end

@interface NSImage : NSObject
@end
@implementation NSImage
- (id)initWithContentsOfFile:(NSString*)path {
  if ([[NSFileManager defaultManager] fileExistsAtPath:path]) return [super init];
  [self release];
  return nil;
}
@end

// The switch of an alert. The user has it on when the answer says so.
@interface vnToolkitSwitch : NSObject
@end
@implementation vnToolkitSwitch
- (void)setTitle:(NSString*)title {
  toolkit().alerts.back().switchTitle = vorn::textFromFoundation(title);
}
- (NSInteger)state {
  return toolkit().answers.front().notAgain ? 1 : 0;
}
@end

@interface NSAlert : NSObject
@end
@implementation NSAlert
- (id)init {
  toolkit().alerts.emplace_back();
  return [super init];
}
- (void)setMessageText:(NSString*)text {
  (void)text;
}
- (void)setInformativeText:(NSString*)text {
  toolkit().alerts.back().message = vorn::textFromFoundation(text);
}
- (void)setIcon:(id)image {
  toolkit().alerts.back().hasIcon = image != nil;
}
- (id)addButtonWithTitle:(NSString*)title {
  toolkit().alerts.back().buttons.push_back(vorn::textFromFoundation(title));
  return title;
}
- (void)setShowsSuppressionButton:(BOOL)shows {
  (void)shows;
}
- (id)suppressionButton {
  return [[[vnToolkitSwitch alloc] init] autorelease];
}
- (NSInteger)runModal {
  return 1000 + static_cast<NSInteger>(toolkit().answers.front().button);
}
- (void)beginSheetModalForWindow:(id)window
                   modalDelegate:(id)delegate
                  didEndSelector:(SEL)selector
                     contextInfo:(void*)context {
  toolkit().alerts.back().window = window;
  NSInteger code = [self runModal];
  NSInvocation* ended =
      [NSInvocation invocationWithMethodSignature:[delegate methodSignatureForSelector:selector]];
  [ended setSelector:selector];
  [ended setArgument:&self atIndex:2];
  [ended setArgument:&code atIndex:3];
  [ended setArgument:&context atIndex:4];
  [ended invokeWithTarget:delegate];
}
@end

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
