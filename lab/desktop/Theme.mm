#include "lab/desktop/Theme.h"

#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSTheme.h>

namespace {

NSString* const kName = @"Desktop";
constexpr double kCorner = 5;
constexpr double kTitle = 32;
constexpr double kResize = 8;

NSColor* gray(double white) { return [NSColor colorWithCalibratedWhite:white alpha:1]; }
NSColor* accent() { return [NSColor colorWithCalibratedRed:0.13 green:0.42 blue:0.85 alpha:1]; }

// The accent under dark letters.
NSColor* tint() { return [NSColor colorWithCalibratedRed:0.84 green:0.91 blue:1 alpha:1]; }

NSBezierPath* rounded(NSRect rect, double corner) {
  return [NSBezierPath bezierPathWithRoundedRect:rect xRadius:corner yRadius:corner];
}

// Lines lie on whole pixels this way.
NSRect crisp(NSRect rect) { return NSInsetRect(rect, 0.5, 0.5); }

void drawBox(NSRect rect, double corner, NSColor* inside, NSColor* line) {
  NSBezierPath* shape = rounded(crisp(rect), corner);
  [inside set];
  [shape fill];
  [line set];
  [shape setLineWidth:1];
  [shape stroke];
}

void drawCheckMark(NSRect box) {
  NSBezierPath* mark = [NSBezierPath bezierPath];
  [mark moveToPoint:NSMakePoint(NSMinX(box) + 4, NSMidY(box) - 0.5)];
  [mark lineToPoint:NSMakePoint(NSMinX(box) + 7, NSMinY(box) + 4.5)];
  [mark lineToPoint:NSMakePoint(NSMaxX(box) - 3.5, NSMaxY(box) - 4.5)];
  [mark setLineWidth:2];
  [mark setLineCapStyle:NSRoundLineCapStyle];
  [mark setLineJoinStyle:NSRoundLineJoinStyle];
  [[NSColor whiteColor] set];
  [mark stroke];
}

// The toolkit cuts a title that is too long at both ends.
NSString* textWithin(NSString* text, NSDictionary* look, double width) {
  constexpr NSUInteger most = 400;
  const auto begun = [text](NSUInteger length) {
    const NSUInteger end = [text rangeOfComposedCharacterSequenceAtIndex:length].location;
    return [[text substringToIndex:end] stringByAppendingString:@"…"];
  };
  NSString* shown = [text length] > most ? begun(most) : text;
  for (NSUInteger length = [shown length]; length > 1 && [shown sizeWithAttributes:look].width > width; --length)
    shown = begun(length - 1);
  return shown;
}

using Draw = void (*)(NSSize size);

// The toolkit keeps it under the name by which its cells ask for it.
void replaceImage(NSString* name, NSSize size, Draw draw) {
  NSImage* before = [NSImage imageNamed:name];
  [before setName:nil];
  NSImage* image = [[NSImage alloc] initWithSize:size];
  [image lockFocus];
  draw(size);
  [image unlockFocus];
  [image setName:name];
}

// The box of a switch or the circle of a radio button, with room before the title.
void drawMark(NSSize size, bool isRound, bool isOn) {
  const NSRect box = NSMakeRect(0.5, 0.5, size.height - 1, size.height - 1);
  drawBox(box, isRound ? size.height / 2 : 4, isOn ? accent() : [NSColor whiteColor],
          isOn ? accent() : gray(0.66));
  if (isOn && isRound) {
    [[NSColor whiteColor] set];
    [rounded(NSInsetRect(box, 5, 5), size.height) fill];
  } else if (isOn) {
    drawCheckMark(box);
  }
}

// Two strokes that meet at the second point.
void drawAngle(NSPoint from, NSPoint corner, NSPoint to, NSColor* color) {
  NSBezierPath* path = [NSBezierPath bezierPath];
  [path moveToPoint:from];
  [path lineToPoint:corner];
  [path lineToPoint:to];
  [path setLineWidth:1.6];
  [path setLineCapStyle:NSRoundLineCapStyle];
  [path setLineJoinStyle:NSRoundLineJoinStyle];
  [color set];
  [path stroke];
}

void drawDownward(NSSize size) {
  const double x = size.width / 2;
  const double y = size.height / 2;
  drawAngle(NSMakePoint(x - 3.5, y + 1.5), NSMakePoint(x, y - 2), NSMakePoint(x + 3.5, y + 1.5), gray(0.35));
}
void drawRightward(NSSize size) {
  const double x = size.width / 2;
  const double y = size.height / 2;
  drawAngle(NSMakePoint(x - 1.5, y + 3.5), NSMakePoint(x + 2, y), NSMakePoint(x - 1.5, y - 3.5), gray(0.35));
}
void drawUpAndDown(NSSize size) {
  const double x = size.width / 2;
  const double y = size.height / 2;
  drawAngle(NSMakePoint(x - 3, y + 2), NSMakePoint(x, y + 5), NSMakePoint(x + 3, y + 2), gray(0.35));
  drawAngle(NSMakePoint(x - 3, y - 2), NSMakePoint(x, y - 5), NSMakePoint(x + 3, y - 2), gray(0.35));
}
void drawChosen(NSSize size) {
  const double y = size.height / 2;
  drawAngle(NSMakePoint(2, y), NSMakePoint(5, y - 3), NSMakePoint(size.width - 2, y + 4), gray(0.12));
}
void drawCross(NSSize size) {
  const NSPoint middle = NSMakePoint(size.width / 2, size.height / 2);
  drawAngle(NSMakePoint(middle.x - 3.5, middle.y - 3.5), middle, NSMakePoint(middle.x + 3.5, middle.y + 3.5),
            gray(0.35));
  drawAngle(NSMakePoint(middle.x - 3.5, middle.y + 3.5), middle, NSMakePoint(middle.x + 3.5, middle.y - 3.5),
            gray(0.35));
}
void drawLow(NSSize size) {
  [gray(0.35) set];
  NSRectFill(NSMakeRect(size.width / 2 - 4, size.height / 2 - 3, 8, 1.5));
}

// The host's own sign, in its questions: a page of a calendar.
void drawCalendar(NSSize size) {
  const NSRect page = NSInsetRect(NSMakeRect(0, 0, size.width, size.height), 3, 3);
  drawBox(page, 8, [NSColor whiteColor], gray(0.7));
  [[NSGraphicsContext currentContext] saveGraphicsState];
  [rounded(crisp(page), 8) addClip];
  [accent() set];
  NSRectFill(NSMakeRect(NSMinX(page), NSMaxY(page) - 12, NSWidth(page), 12));
  [[NSGraphicsContext currentContext] restoreGraphicsState];
  constexpr int columns = 4;
  constexpr int rows = 3;
  const double wide = NSWidth(page) / (columns + 0.5);
  const double high = (NSHeight(page) - 14) / (rows + 0.5);
  for (int day = 0; day < columns * rows; ++day) {
    [(day == 5 ? accent() : gray(0.82)) set];
    [rounded(NSMakeRect(NSMinX(page) + wide * (day % columns + 0.5), NSMinY(page) + high * (day / columns + 0.5),
                        wide - 3, high - 3),
             1.5) fill];
  }
}

// The toolkit takes a copy, which only a picture of pixels has.
void showOwnSign() {
  const NSSize size = NSMakeSize(48, 48);
  NSImage* drawn = [[[NSImage alloc] initWithSize:size] autorelease];
  [drawn lockFocus];
  drawCalendar(size);
  NSBitmapImageRep* pixels =
      [[[NSBitmapImageRep alloc] initWithFocusedViewRect:NSMakeRect(0, 0, size.width, size.height)] autorelease];
  [drawn unlockFocus];
  NSImage* sign = [[[NSImage alloc] initWithSize:size] autorelease];
  [sign addRepresentation:pixels];
  [NSApp setApplicationIconImage:sign];
}

void replaceImages() {
  showOwnSign();
  const NSSize mark = NSMakeSize(24, 18);
  replaceImage(@"GSSwitch", mark, [](NSSize size) { drawMark(size, false, false); });
  replaceImage(@"GSSwitchSelected", mark, [](NSSize size) { drawMark(size, false, true); });
  replaceImage(@"GSRadio", mark, [](NSSize size) { drawMark(size, true, false); });
  replaceImage(@"GSRadioSelected", mark, [](NSSize size) { drawMark(size, true, true); });
  const NSSize small = NSMakeSize(14, 14);
  replaceImage(@"common_Nibble", NSMakeSize(14, 18), drawUpAndDown);
  replaceImage(@"common_3DArrowDown", small, drawDownward);
  replaceImage(@"GSComboArrow", small, drawDownward);
  replaceImage(@"GSMenuArrow", small, drawRightward);
  replaceImage(@"GSMenuSelected", small, drawChosen);
  replaceImage(@"common_Close", small, drawCross);
  replaceImage(@"common_CloseH", small, drawCross);
  replaceImage(@"common_Miniaturize", small, drawLow);
  replaceImage(@"common_MiniaturizeH", small, drawLow);
}

}  // namespace

// A part of a scroller: a rounded piece of its colour, or nothing.
@interface vnScrollerCell : NSButtonCell {
 @public
  NSColor* m_color;
}
@end

@implementation vnScrollerCell
- (void)dealloc {
  [m_color release];
  [super dealloc];
}
- (void)drawWithFrame:(NSRect)frame inView:(NSView*)view {
  (void)view;
  [m_color set];
  if (m_color) [rounded(NSInsetRect(frame, 2, 2), 4) fill];
}
@end

namespace {

// The caller owns it, as the toolkit takes it over.
vnScrollerCell* scrollerCell(NSColor* color) {
  vnScrollerCell* cell = [[vnScrollerCell alloc] init];
  cell->m_color = [color retain];
  return cell;
}

}  // namespace

@interface vnDesktopTheme : GSTheme
@end

@implementation vnDesktopTheme
- (NSString*)name {
  return kName;
}
- (NSColorList*)colors {
  static NSColorList* list = nil;
  if (list) return list;
  // The toolkit takes no list of another name.
  list = [[NSColorList alloc] initWithName:@"System"];
  const struct {
    NSString* name;
    NSColor* color;
  } all[] = {
      {@"controlBackgroundColor", gray(0.97)},
      {@"controlColor", gray(0.97)},
      {@"controlHighlightColor", gray(0.97)},
      {@"controlLightHighlightColor", [NSColor whiteColor]},
      {@"controlShadowColor", gray(0.8)},
      {@"controlDarkShadowColor", gray(0.66)},
      {@"controlTextColor", gray(0.12)},
      {@"textColor", gray(0.12)},
      {@"textBackgroundColor", [NSColor whiteColor]},
      {@"disabledControlTextColor", gray(0.55)},
      {@"windowBackgroundColor", gray(0.985)},
      {@"windowFrameColor", gray(0.93)},
      {@"windowFrameTextColor", gray(0.2)},
      {@"gridColor", gray(0.85)},
      {@"knobColor", gray(0.72)},
      {@"selectedKnobColor", gray(0.6)},
      {@"scrollBarColor", gray(0.95)},
      {@"selectedControlColor", accent()},
      {@"selectedControlTextColor", [NSColor whiteColor]},
      {@"alternateSelectedControlColor", accent()},
      {@"alternateSelectedControlTextColor", [NSColor whiteColor]},
      {@"selectedTextBackgroundColor", [accent() colorWithAlphaComponent:0.25]},
      {@"selectedTextColor", gray(0.12)},
      {@"selectedMenuItemColor", accent()},
      {@"selectedMenuItemTextColor", [NSColor whiteColor]},
      {@"keyboardFocusIndicatorColor", accent()},
      {@"rowBackgroundColor", [NSColor whiteColor]},
  };
  for (const auto& each : all) [list setColor:each.color forKey:each.name];
  return list;
}

// A row that is chosen is seen, also while somebody types in the field beside the list.
- (NSColor*)colorNamed:(NSString*)name state:(GSThemeControlState)state {
  if ([name isEqual:@"highlightedTableRowBackgroundColor"]) return tint();
  if ([name isEqual:@"highlightedTableRowTextColor"]) return gray(0.12);
  return [super colorNamed:name state:state];
}

// -- Windows and surfaces
- (void)drawWindowBackground:(NSRect)frame view:(NSView*)view {
  (void)view;
  [[NSColor windowBackgroundColor] set];
  NSRectFill(frame);
}
- (float)titlebarHeight {
  return kTitle;
}
- (float)resizebarHeight {
  return kResize;
}
- (float)titlebarPaddingTop {
  return (kTitle - [self titlebarButtonSize]) / 2;
}
- (float)titlebarPaddingRight {
  return 10;
}
- (float)titlebarPaddingLeft {
  return 10;
}
- (void)drawWindowBorder:(NSRect)rect
               withFrame:(NSRect)frame
            forStyleMask:(unsigned int)style
                   state:(int)state
                andTitle:(NSString*)title {
  (void)rect;
  constexpr int keyWindow = 0;
  [gray(0.93) set];
  if (style & (NSTitledWindowMask | NSResizableWindowMask))
    NSRectFill(NSMakeRect(0, 0, frame.size.width, frame.size.height));
  if (!(style & NSTitledWindowMask)) return;
  NSMutableParagraphStyle* middle = [[[NSMutableParagraphStyle alloc] init] autorelease];
  [middle setAlignment:NSCenterTextAlignment];
  [middle setLineBreakMode:NSLineBreakByTruncatingTail];
  NSDictionary* look = [NSDictionary
      dictionaryWithObjectsAndKeys:[NSFont titleBarFontOfSize:13], NSFontAttributeName,
                                   gray(state == keyWindow ? 0.2 : 0.55), NSForegroundColorAttributeName, middle,
                                   NSParagraphStyleAttributeName, nil];
  const double sides = 48;
  const NSRect place = NSMakeRect(sides, frame.size.height - kTitle + 7, frame.size.width - 2 * sides, 18);
  [textWithin(title, look, place.size.width) drawInRect:place withAttributes:look];
  [gray(0.82) set];
  NSRectFill(NSMakeRect(0, frame.size.height - kTitle, frame.size.width, 1));
  NSFrameRect(NSMakeRect(0, 0, frame.size.width, frame.size.height));
}

- (NSColor*)toolbarBackgroundColor {
  return [NSColor windowBackgroundColor];
}
- (NSColor*)toolbarBorderColor {
  return gray(0.88);
}

// -- Buttons
- (GSThemeMargins)buttonMarginsForCell:(NSCell*)cell style:(int)style state:(GSThemeControlState)state {
  (void)cell;
  (void)style;
  (void)state;
  return {8, 8, 4, 4};
}
- (void)drawButton:(NSRect)frame
                in:(NSCell*)cell
              view:(NSView*)view
             style:(int)style
             state:(GSThemeControlState)state {
  (void)view;
  (void)style;
  const BOOL isDefault = [cell isKindOfClass:[NSButtonCell class]] &&
                         [[static_cast<NSButtonCell*>(cell) keyEquivalent] isEqual:@"\r"] && [cell isEnabled];
  const BOOL isPressed = state == GSThemeHighlightedState || state == GSThemeSelectedState;
  const BOOL isOfWindow = [[cell controlView] frame].size.width < 20;
  if (isOfWindow) return;
  // A picture stays inside the margins, also one that is larger than the button.
  if ([cell isKindOfClass:[NSButtonCell class]] && [[cell image] size].height + 8 > frame.size.height &&
      frame.size.width > 40)
    [static_cast<NSButtonCell*>(cell) setImageScaling:NSImageScaleProportionallyDown];
  NSColor* inside = isDefault ? tint() : isPressed ? gray(0.9) : [NSColor whiteColor];
  if (![cell isEnabled]) inside = gray(0.96);
  drawBox(frame, kCorner, inside, isDefault ? accent() : gray(0.78));
}
// It is known by its colour, and has no sign of the return key.
- (void)didSetDefaultButtonCell:(NSButtonCell*)cell {
  (void)cell;
}
- (void)setKeyEquivalent:(NSString*)key forButtonCell:(NSButtonCell*)cell {
  (void)key;
  (void)cell;
}
- (void)drawFocusFrame:(NSRect)frame view:(NSView*)view {
  // The one that the return key presses is framed already.
  if ([view isKindOfClass:[NSButton class]] &&
      [[static_cast<NSButton*>(static_cast<id>(view)) keyEquivalent] isEqual:@"\r"])
    return;
  NSBezierPath* ring = rounded(NSInsetRect(frame, 1, 1), kCorner);
  [[accent() colorWithAlphaComponent:0.7] set];
  [ring setLineWidth:2];
  [ring stroke];
}

// -- Fields
- (NSRect)drawWhiteBezel:(NSRect)border withClip:(NSRect)clip {
  (void)clip;
  drawBox(border, kCorner, [NSColor textBackgroundColor], gray(0.78));
  return NSInsetRect(border, 2, 2);
}
- (NSRect)drawGrayBezel:(NSRect)border withClip:(NSRect)clip {
  return [self drawWhiteBezel:border withClip:clip];
}
- (NSRect)drawDarkBezel:(NSRect)border withClip:(NSRect)clip {
  return [self drawWhiteBezel:border withClip:clip];
}
- (void)drawBorderType:(NSBorderType)type frame:(NSRect)frame view:(NSView*)view {
  (void)view;
  if (type == NSNoBorder) return;
  drawBox(frame, kCorner, [NSColor textBackgroundColor], gray(0.78));
}
- (NSSize)sizeForBorderType:(NSBorderType)type {
  return type == NSNoBorder ? NSZeroSize : NSMakeSize(2, 2);
}

// -- Scrollers
- (float)defaultScrollerWidth {
  return 12;
}
- (NSButtonCell*)cellForScrollerArrow:(NSScrollerArrow)part horizontal:(BOOL)isHorizontal {
  (void)part;
  (void)isHorizontal;
  return scrollerCell(nil);
}
- (NSCell*)cellForScrollerKnob:(BOOL)isHorizontal {
  (void)isHorizontal;
  return scrollerCell(gray(0.75));
}
- (NSCell*)cellForScrollerKnobSlot:(BOOL)isHorizontal {
  (void)isHorizontal;
  return scrollerCell(gray(0.96));
}
- (void)drawScrollViewRect:(NSRect)rect inView:(NSView*)view {
  (void)rect;
  (void)view;
}
- (BOOL)scrollViewUseBottomCorner {
  return NO;
}
@end

namespace vornlab {

void useDesktopTheme() {
  // Who has the letters that the font before lacks: Hebrew, Arabic and many others, and those of East Asia.
  NSArray* inOrder = [NSArray arrayWithObjects:@"Inter-Regular", @"DejaVuSans", @"DroidSansFallback", nil];
  NSDictionary* ours = [NSDictionary
      dictionaryWithObjectsAndKeys:inOrder, @"NSPreferredFonts", @"Inter-Regular", @"NSFont", @"Inter-SemiBold",
                                   @"NSBoldFont", @"13", @"NSFontSize", @"Inter-Regular", @"NSLabelFont",
                                   @"Inter-Regular", @"NSMenuFont", @"Inter-Regular", @"NSMessageFont",
                                   @"Inter-SemiBold", @"NSTitleBarFont", @"NSWindows95InterfaceStyle",
                                   @"NSMenuInterfaceStyle", @"NSMacintoshInterfaceStyle",
                                   @"NSScrollViewInterfaceStyle", [NSNumber numberWithBool:NO],
                                   @"GSBackHandlesWindowDecorations", [NSNumber numberWithBool:YES],
                                   @"GSSuppressAppIcon", nil];
  [[NSUserDefaults standardUserDefaults] registerDefaults:ours];
}

void showDesktopTheme() {
  // It lives as long as the application.
  [GSTheme setTheme:[[vnDesktopTheme alloc] initWithBundle:[NSBundle mainBundle]]];
  // With each change of a default the toolkit goes back to the theme that the defaults name.
  NSDictionary* ours = [NSDictionary dictionaryWithObject:kName forKey:@"GSTheme"];
  [[NSUserDefaults standardUserDefaults] registerDefaults:ours];
  replaceImages();
}

}  // namespace vornlab
