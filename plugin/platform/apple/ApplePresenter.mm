#include "platform/apple/ApplePresenter.h"

#import <Foundation/Foundation.h>
#import <objc/runtime.h>

#include <memory>
#include <utility>

#include "platform/apple/Conversions.h"

// What we use of the host's classes. The plug-in is not linked with them.
@protocol vnHostAlert
- (void)setMessageText:(NSString*)text;
- (void)setInformativeText:(NSString*)text;
- (id)addButtonWithTitle:(NSString*)title;
- (NSInteger)runModal;
- (void)beginSheetModalForWindow:(id)window
                   modalDelegate:(id)delegate
                  didEndSelector:(SEL)selector
                     contextInfo:(void*)context;
@end

@protocol vnHostPanel
- (id)initWithContentRect:(NSRect)frame styleMask:(NSUInteger)style backing:(NSUInteger)backing defer:(BOOL)defer;
- (void)setTitle:(NSString*)title;
- (void)center;
- (void)orderFront:(id)sender;
- (void)orderOut:(id)sender;
@end

@protocol vnHostView
- (id)initWithFrame:(NSRect)frame;
- (void)removeFromSuperview;
@end

using Told = std::function<void(NSInteger)>;

// Hears how a sheet ended.
@interface vnSheetListener : NSObject {
 @public
  // A Told that is owned until it has been called.
  void* m_ended;
}
- (void)alertDidEnd:(id)alert returnCode:(NSInteger)code contextInfo:(void*)context;
@end

@implementation vnSheetListener
- (void)alertDidEnd:(id)alert returnCode:(NSInteger)code contextInfo:(void*)context {
  (void)alert;
  (void)context;
  const std::unique_ptr<Told> ended(static_cast<Told*>(std::exchange(m_ended, nullptr)));
  try {
    if (ended) (*ended)(code);
  } catch (...) {
    // No exception of ours may enter the host.
  }
  [self autorelease];
}
@end

namespace vorn {

namespace {

constexpr NSInteger kFirstButton = 1000;
constexpr NSUInteger kTitledWindow = 1;
constexpr NSUInteger kBuffered = 2;
constexpr double kPanelWidth = 320;
constexpr double kPanelHeight = 24;

id<vnHostAlert> makeAlert(const Presenter::Alert& alert) {
  id<vnHostAlert> made = [[[NSClassFromString(@"NSAlert") alloc] init] autorelease];
  [made setMessageText:foundationText(alert.title)];
  [made setInformativeText:foundationText(alert.message)];
  [made addButtonWithTitle:foundationText(alert.defaultButton)];
  if (!alert.alternateButton.empty()) [made addButtonWithTitle:foundationText(alert.alternateButton)];
  return made;
}

Presenter::Answer answerOf(NSInteger code) {
  return code == kFirstButton ? Presenter::Answer::defaultButton : Presenter::Answer::alternateButton;
}

Class viewClass(NSString* name) {
  if (const Class known = NSClassFromString(name)) return known;
  const Class view = NSClassFromString(@"NSView");
  const Class made = view ? objc_allocateClassPair(view, [name UTF8String], 0) : Nil;
  if (made) objc_registerClassPair(made);
  return made;
}

}  // namespace

ApplePresenter::~ApplePresenter() { endProgress(); }

void ApplePresenter::showAlert(const HostObject& window, const Alert& alert,
                               std::function<void(Answer)> answered) {
  if (!NSClassFromString(@"NSAlert")) return;
  const Told told = [answered](NSInteger code) {
    if (answered) answered(answerOf(code));
  };
  if (const id sheetWindow = LiveObjects::instance().object(window)) {
    // The listener lives until it has heard; a sheet whose window goes first is never heard of.
    vnSheetListener* listener = [[vnSheetListener alloc] init];
    listener->m_ended = std::make_unique<Told>(told).release();
    [makeAlert(alert) beginSheetModalForWindow:sheetWindow
                                 modalDelegate:listener
                                didEndSelector:@selector(alertDidEnd:returnCode:contextInfo:)
                                   contextInfo:nullptr];
    return;
  }
  // It waits for the answer, which the caller must not.
  m_runLoop.post([=] { told([makeAlert(alert) runModal]); });
}

void ApplePresenter::beginProgress(std::string_view message) {
  endProgress();
  id<vnHostPanel> panel =
      [[NSClassFromString(@"NSPanel") alloc] initWithContentRect:NSMakeRect(0, 0, kPanelWidth, kPanelHeight)
                                                       styleMask:kTitledWindow
                                                         backing:kBuffered
                                                           defer:NO];
  [panel setTitle:foundationText(message)];
  [panel center];
  [panel orderFront:nil];
  m_progressPanel = panel;
}

void ApplePresenter::endProgress() {
  id<vnHostPanel, NSObject> panel = static_cast<id>(std::exchange(m_progressPanel, nullptr));
  [panel orderOut:nil];
  [panel release];
}

HostObject ApplePresenter::createView(std::string_view className, const Rect& frame) {
  const Class made = viewClass(foundationText(className));
  const NSRect rectangle = NSMakeRect(frame.x, frame.y, frame.width, frame.height);
  id<vnHostView> unready = [made alloc];
  const id view = [unready initWithFrame:rectangle];
  if (!view) return {};
  const HostObject reference = LiveObjects::instance().reference(view, LiveObjects::Holding::never);
  m_views[reference] =
      std::shared_ptr<void>(static_cast<void*>(view), [](void* held) { [static_cast<id>(held) release]; });
  return reference;
}

void ApplePresenter::releaseView(const HostObject& view) {
  id<vnHostView> released = LiveObjects::instance().object(view);
  [released removeFromSuperview];
  m_views.erase(view);
}

}  // namespace vorn
