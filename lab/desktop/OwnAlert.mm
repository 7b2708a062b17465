#import "lab/desktop/OwnAlert.h"

#ifdef GNUSTEP

#include <algorithm>
#include <cmath>

#import "lab/desktop/Controls.h"

namespace {

constexpr double kMargin = 24;
constexpr double kIcon = 48;
constexpr double kGap = 10;
constexpr double kLeastWidth = 480;
constexpr double kMostWidth = 680;
constexpr double kScreenEdge = 60;
constexpr double kBetweenTexts = 6;
constexpr double kSwitch = 22;
// The box before its words.
constexpr double kSwitchBox = 28;
constexpr double kAboveSwitch = 14;
constexpr double kAboveButtons = 22;
// What a field leaves free beside and below its text.
constexpr double kTextSides = 6;
constexpr double kBelowText = 2;
constexpr unichar kEscape = 0x1b;

double heightOf(NSString* text, NSFont* font, double width) {
  const NSSize size = [text boundingRectWithSize:NSMakeSize(width - kTextSides, 1e6)
                                         options:NSStringDrawingUsesLineFragmentOrigin
                                      attributes:[NSDictionary dictionaryWithObject:font
                                                                             forKey:NSFontAttributeName]]
                          .size;
  return std::ceil(size.height) + kBelowText;
}

// Puts the text there, and gives where it ends.
double addText(NSView* in, NSString* text, NSFont* font, double top, double width) {
  if ([text length] == 0) return top;
  const double height = heightOf(text, font, width);
  NSTextField* shown = vornlab::label(text, NSMakeRect(0, top, width, height));
  [shown setFont:font];
  [[shown cell] setWraps:YES];
  [in addSubview:shown];
  return top + height;
}

}  // namespace

// Counts from above, as a person reads.
@interface vnAlertView : NSView
@end

@implementation vnAlertView
- (BOOL)isFlipped {
  return YES;
}
@end

// The toolkit puts panels into the middle of the screen, and this stands on the window that it is about.
@interface vnAlertWindow : NSWindow {
 @public
  // Not owned; they stand in it.
  NSButton* m_onReturn;
  NSButton* m_onEscape;
}
@end

@implementation vnAlertWindow
- (void)sendEvent:(NSEvent*)event {
  const bool isKey = [event type] == NSKeyDown && [[event characters] length] == 1;
  const unichar key = isKey ? [[event characters] characterAtIndex:0] : 0;
  NSButton* meant = key == kEscape ? m_onEscape : nil;
  if (key == NSCarriageReturnCharacter || key == NSNewlineCharacter || key == NSEnterCharacter) meant = m_onReturn;
  if (meant) return [meant performClick:nil];
  [super sendEvent:event];
}
@end

@interface vnOwnAlert ()
- (void)build;
- (NSScrollView*)textsOfWidth:(double)width most:(double)most;
- (void)putButtonsInto:(NSView*)content from:(double)top isRow:(BOOL)isRow;
- (void)setKeysOf:(vnAlertWindow*)window;
- (void)placeOn:(NSWindow*)parent;
- (NSInteger)runOn:(NSWindow*)parent;
@end

@implementation vnOwnAlert
- (id)init {
  if ((self = [super init])) m_choices = [[NSMutableArray alloc] init];
  return self;
}
- (void)dealloc {
  [m_choices release];
  [m_notAgain release];
  [m_shown release];
  [super dealloc];
}
- (NSButton*)addButtonWithTitle:(NSString*)title {
  NSButton* button = vornlab::pushButton(title, self, @selector(press:), NSZeroPoint);
  [[button cell] setLineBreakMode:NSLineBreakByTruncatingTail];
  [button setTag:NSAlertFirstButtonReturn + static_cast<NSInteger>([m_choices count])];
  [m_choices addObject:button];
  return button;
}
- (NSArray*)buttons {
  return m_choices;
}
- (void)setShowsSuppressionButton:(BOOL)shows {
  [m_notAgain release];
  m_notAgain = nil;
  if (!shows) return;
  m_notAgain = [[NSButton alloc] initWithFrame:NSZeroRect];
  [m_notAgain setButtonType:NSSwitchButton];
  [[m_notAgain cell] setWraps:YES];
  [m_notAgain setTitle:@"Do not show this message again"];
}
- (BOOL)showsSuppressionButton {
  return m_notAgain != nil;
}
- (NSButton*)suppressionButton {
  return m_notAgain;
}
- (id)window {
  return m_shown;
}

// -- How it is drawn
- (void)build {
  // One that nobody has given a button can be got rid of all the same.
  if ([m_choices count] == 0) [self addButtonWithTitle:@"OK"];
  const NSRect screen = [[NSScreen mainScreen] visibleFrame];
  const double most = std::min(kMostWidth, NSWidth(screen) - 2 * kMargin);
  double inRow = 2 * kMargin - kGap;
  for (NSUInteger i = 0; i < [m_choices count]; ++i) inRow += NSWidth([[m_choices objectAtIndex:i] frame]) + kGap;
  const bool isRow = inRow <= most;
  const double width = isRow ? std::max(inRow, std::min(kLeastWidth, most)) : most;
  const double count = static_cast<double>([m_choices count]);
  const double buttonHeight = NSHeight([[m_choices objectAtIndex:0] frame]);
  const double left = 2 * kMargin + kIcon - 8;
  const double textWidth = width - left - kMargin;
  const double ofSwitch =
      m_notAgain ? std::max(kSwitch, heightOf([m_notAgain title], [m_notAgain font], textWidth - kSwitchBox)) : 0;
  const double below = (m_notAgain ? ofSwitch + kAboveSwitch : 0) + kAboveButtons +
                       (isRow ? buttonHeight : count * (buttonHeight + kGap) - kGap) + kMargin;
  NSScrollView* scroll = [self textsOfWidth:textWidth most:NSHeight(screen) - 2 * kScreenEdge - kMargin - below];
  [scroll setFrameOrigin:NSMakePoint(left, kMargin)];
  double top = NSMaxY([scroll frame]);
  NSView* content = [[[vnAlertView alloc] initWithFrame:NSMakeRect(0, 0, width, top + below)] autorelease];
  [content addSubview:scroll];
  NSImageView* icon = [[[NSImageView alloc] initWithFrame:NSMakeRect(kMargin, kMargin, kIcon, kIcon)] autorelease];
  [icon setImage:[self icon] ? [self icon] : [NSApp applicationIconImage]];
  [icon setImageScaling:NSImageScaleProportionallyDown];
  [content addSubview:icon];
  if (m_notAgain) {
    [m_notAgain setFrame:NSMakeRect(left, top + kAboveSwitch, textWidth, ofSwitch)];
    [content addSubview:m_notAgain];
    top = NSMaxY([m_notAgain frame]);
  }
  [self putButtonsInto:content from:top + kAboveButtons isRow:isRow];

  vnAlertWindow* window = [[vnAlertWindow alloc] initWithContentRect:[content frame]
                                                           styleMask:NSTitledWindowMask
                                                             backing:NSBackingStoreBuffered
                                                               defer:YES];
  m_shown = window;
  [window setReleasedWhenClosed:NO];
  [window setTitle:@""];
  [window setContentView:content];
  [self setKeysOf:window];
}
// The texts below each other, which scroll where they are higher than that.
- (NSScrollView*)textsOfWidth:(double)width most:(double)most {
  // The bar has its place also where it is not needed, for that is known only when the lines are broken.
  const double ofLines = width - [NSScroller scrollerWidth];
  NSView* texts = [[[vnAlertView alloc] initWithFrame:NSZeroRect] autorelease];
  const double size = [NSFont systemFontSize];
  const double told = addText(texts, [self messageText], [NSFont boldSystemFontOfSize:size + 1], 0, ofLines);
  const double end = addText(texts, [self informativeText], [NSFont systemFontOfSize:size],
                             told > 0 ? told + kBetweenTexts : 0, ofLines);
  [texts setFrameSize:NSMakeSize(ofLines, end)];
  const double height = std::max(std::min(end, most), kIcon);
  NSScrollView* scroll = [[[NSScrollView alloc] initWithFrame:NSMakeRect(0, 0, width, height)] autorelease];
  [scroll setBorderType:NSNoBorder];
  [scroll setDrawsBackground:NO];
  [scroll setHasVerticalScroller:end > height];
  [[scroll verticalScroller] setArrowsPosition:NSScrollerArrowsNone];
  [scroll setDocumentView:texts];
  return scroll;
}
- (void)putButtonsInto:(NSView*)content from:(double)top isRow:(BOOL)isRow {
  const double width = NSWidth([content frame]);
  NSPoint corner = NSMakePoint(width - kMargin, top);
  for (NSUInteger i = 0; i < [m_choices count]; ++i) {
    NSButton* button = [m_choices objectAtIndex:i];
    if (isRow) {
      corner.x -= NSWidth([button frame]);
      [button setFrameOrigin:corner];
      corner.x -= kGap;
    } else {
      [button setFrame:NSMakeRect(kMargin, corner.y, width - 2 * kMargin, NSHeight([button frame]))];
      corner.y += NSHeight([button frame]) + kGap;
    }
    [content addSubview:button];
  }
}
- (void)setKeysOf:(vnAlertWindow*)window {
  NSButton* first = [m_choices objectAtIndex:0];
  window->m_onReturn = first;
  window->m_onEscape = [m_choices lastObject];
  NSMutableArray* order = [NSMutableArray arrayWithArray:m_choices];
  if (m_notAgain) [order addObject:m_notAgain];
  for (NSUInteger i = 0; i < [order count]; ++i) {
    NSButton* button = [order objectAtIndex:i];
    if ([[button title] isEqual:@"Cancel"]) window->m_onEscape = button;
    [button setNextKeyView:[order objectAtIndex:(i + 1) % [order count]]];
  }
  [window setDefaultButtonCell:[first cell]];
  [window setInitialFirstResponder:first];
}
// In the upper part of the window that it is about, as far as that lies on the screen, or in the middle of the
// screen.
- (void)placeOn:(NSWindow*)parent {
  [m_shown center];
  if (![parent isVisible]) return;
  const NSRect on = [parent frame];
  const NSRect screen = [[NSScreen mainScreen] visibleFrame];
  NSRect frame = [m_shown frame];
  frame.origin = NSMakePoint(NSMidX(on) - NSWidth(frame) / 2, NSMaxY(on) - kScreenEdge - NSHeight(frame));
  frame.origin.x =
      std::clamp(NSMinX(frame), NSMinX(screen), std::max(NSMinX(screen), NSMaxX(screen) - NSWidth(frame)));
  frame.origin.y =
      std::clamp(NSMinY(frame), NSMinY(screen), std::max(NSMinY(screen), NSMaxY(screen) - NSHeight(frame)));
  [m_shown setFrameOrigin:frame.origin];
}

// -- What a person does
- (void)press:(id)sender {
  [NSApp stopModalWithCode:[sender tag]];
}
- (NSInteger)runOn:(NSWindow*)parent {
  [[self retain] autorelease];
  if (!m_shown) [self build];
  [self placeOn:parent];
  [m_shown setLevel:NSModalPanelWindowLevel];
  const NSInteger code = [NSApp runModalForWindow:m_shown];
  [m_shown orderOut:nil];
  return code;
}
- (NSInteger)runModal {
  return [self runOn:nil];
}
// It waits for the answer, as sheets of this toolkit do.
- (void)beginSheetModalForWindow:(NSWindow*)window
                   modalDelegate:(id)delegate
                  didEndSelector:(SEL)selector
                     contextInfo:(void*)context {
  [[delegate retain] autorelease];
  const NSInteger code = [self runOn:window];
  if (![delegate respondsToSelector:selector]) return;
  using Ended = void (*)(id, SEL, NSAlert*, NSInteger, void*);
  // By way of a function without types, which a compiler knows that none is called as.
  const auto method = reinterpret_cast<void (*)()>([delegate methodForSelector:selector]);
  reinterpret_cast<Ended>(method)(delegate, selector, self, code, context);
}
@end

@implementation NSAlert (Own)
+ (id)allocWithZone:(NSZone*)zone {
  return self == [NSAlert class] ? [vnOwnAlert allocWithZone:zone] : [super allocWithZone:zone];
}
@end

#endif
