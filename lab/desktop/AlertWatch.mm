#import "lab/desktop/AlertWatch.h"

#include <algorithm>
#include <utility>

#import "lab/desktop/RealHand.h"
#import "lab/objc/HostClasses.h"

namespace {

constexpr double kOften = 0.01;
NSString* const kDontSave = @"Don’t Save";

struct SeenAlert {
  // From right to left, or from above to below: the first is the default.
  std::vector<NSButton*> buttons;
  NSButton* notAgain = nil;
  // From above to below.
  std::vector<NSTextField*> texts;
};

double topOf(NSView* view) { return NSMaxY([view convertRect:[view bounds] toView:nil]); }
double rightOf(NSView* view) { return NSMaxX([view convertRect:[view bounds] toView:nil]); }

void gather(NSView* view, SeenAlert& seen) {
  if ([view isHidden]) return;
  if ([view isKindOfClass:[NSButton class]]) {
    NSButton* button = static_cast<NSButton*>(static_cast<id>(view));
    // A switch stands among the texts, without a border around it.
    if ([button isBordered]) {
      seen.buttons.push_back(button);
    } else if ([[button title] length] > 0 && [button imagePosition] != NSImageOnly) {
      seen.notAgain = button;
    }
  } else if ([view isKindOfClass:[NSTextField class]]) {
    NSTextField* text = static_cast<NSTextField*>(static_cast<id>(view));
    if ([[text stringValue] length] > 0) seen.texts.push_back(text);
  }
  NSEnumerator* below = [[view subviews] objectEnumerator];
  while (NSView* each = [below nextObject]) gather(each, seen);
}

SeenAlert lookAt(NSWindow* window) {
  SeenAlert seen;
  gather([window contentView], seen);
  std::stable_sort(seen.buttons.begin(), seen.buttons.end(), [](NSButton* one, NSButton* other) {
    return std::pair(topOf(one), rightOf(one)) > std::pair(topOf(other), rightOf(other));
  });
  std::stable_sort(seen.texts.begin(), seen.texts.end(),
                   [](NSTextField* one, NSTextField* other) { return topOf(one) > topOf(other); });
  return seen;
}

}  // namespace

@interface vnAlertWatch ()
- (void)look:(NSTimer*)timer;
- (void)answer:(const SeenAlert&)seen;
@end

@implementation vnAlertWatch
+ (BOOL)isTelling:(NSWindow*)window {
  return window && lookAt(window).buttons.empty();
}
- (void)begin {
  m_timer = [NSTimer timerWithTimeInterval:kOften target:self selector:@selector(look:) userInfo:nil repeats:YES];
  for (NSString* mode : {NSDefaultRunLoopMode, NSModalPanelRunLoopMode})
    [[NSRunLoop currentRunLoop] addTimer:m_timer forMode:mode];
}
- (void)end {
  [m_timer invalidate];
  m_timer = nil;
}
- (void)look:(NSTimer*)timer {
  (void)timer;
  NSWindow* asking = [NSApp modalWindow];
  // A press runs the loop, and this with it, while the button is drawn as pressed.
  if (!asking || ![asking isVisible] || m_isPressing) return;
  const SeenAlert seen = lookAt(asking);
  if (seen.buttons.empty()) return;
  m_isPressing = YES;
  [self answer:seen];
  m_isPressing = NO;
  vornlab::wakeLoop();
}
- (void)answer:(const SeenAlert&)seen {
  for (NSButton* button : seen.buttons) {
    if (![[button title] isEqual:kDontSave]) continue;
    vornlab::clickOn(button);
    return;
  }
  m_desk->messages.push_back(seen.texts.empty() ? "" : vornlab::plainText([seen.texts.back() stringValue]));
  vorn::Presenter::Answer answer = vorn::Presenter::Answer::alternateButton;
  if (!m_desk->answers.empty()) {
    answer = m_desk->answers.front();
    m_desk->answers.pop_front();
  }
  if (answer.notAgain && seen.notAgain && !vornlab::clickOn(seen.notAgain))
    m_desk->trouble = "an alert's switch cannot be pressed";
  NSButton* pressed = seen.buttons[std::min(answer.button, seen.buttons.size() - 1)];
  if (!vornlab::clickOn(pressed)) m_desk->trouble = "an alert's button cannot be pressed";
}
@end
