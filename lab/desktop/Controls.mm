#import "lab/desktop/Controls.h"

namespace vornlab {
namespace {

constexpr double kHeight = 30;
constexpr double kAroundTitle = 24;

}  // namespace

NSButton* pushButton(NSString* title, id target, SEL action, NSPoint at) {
  NSButton* button = [[[NSButton alloc] initWithFrame:NSZeroRect] autorelease];
  [button setTitle:title];
  [button setBezelStyle:NSRoundedBezelStyle];
  [button setTarget:target];
  [button setAction:action];
  [button setFrame:NSMakeRect(at.x, at.y, [[button cell] cellSize].width + kAroundTitle, kHeight)];
  [button setAutoresizingMask:NSViewMinYMargin];
  return button;
}

NSTextField* label(NSString* text, NSRect frame) {
  NSTextField* made = [[[NSTextField alloc] initWithFrame:frame] autorelease];
  [made setStringValue:text];
  [made setEditable:NO];
  [made setSelectable:NO];
  [made setBezeled:NO];
  [made setBordered:NO];
  [made setDrawsBackground:NO];
  return made;
}

NSTextView* longText(NSView* content, NSRect frame, NSSize around, NSFont* font) {
  NSScrollView* scroll = [[[NSScrollView alloc] initWithFrame:frame] autorelease];
  [scroll setBorderType:NSNoBorder];
  [scroll setHasVerticalScroller:YES];
  [[scroll verticalScroller] setArrowsPosition:NSScrollerArrowsNone];
  [scroll setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
  const NSSize size = [scroll contentSize];
  NSTextView* made = [[[NSTextView alloc] initWithFrame:NSMakeRect(0, 0, size.width, size.height)] autorelease];
  [made setVerticallyResizable:YES];
  [made setHorizontallyResizable:NO];
  [made setAutoresizingMask:NSViewWidthSizable];
  [made setTextContainerInset:around];
  [made setFont:font];
  [made setEditable:NO];
  [scroll setDocumentView:made];
  [content addSubview:scroll];
  return made;
}

}  // namespace vornlab
