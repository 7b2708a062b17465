#import "platform/apple/appkit/ControlView.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/apple/Conversions.h"

// Not every toolkit declares it.
@protocol vnReadable
- (void)setAccessibilityElement:(BOOL)isElement;
@end

namespace vorn {

void letGo(id object) { [object performSelector:@selector(self) withObject:nil afterDelay:0]; }

namespace {

// A selector of newer toolkits, where there is one.
void tellReader(NSView* view, SEL selector, NSString* text) {
  if ([view respondsToSelector:selector]) [view performSelector:selector withObject:text];
}

void makeReadable(NSView* view) {
  if (![view respondsToSelector:@selector(setAccessibilityElement:)]) return;
  id<vnReadable> told = static_cast<id>(view);
  [told setAccessibilityElement:YES];
}

NSSize sizeOfText(NSString* text, NSFont* font, double width) {
  if ([text length] == 0) text = @" ";
  NSDictionary* attributes = [NSDictionary dictionaryWithObject:font forKey:NSFontAttributeName];
  constexpr double noLimit = 1e6;
  return [text boundingRectWithSize:NSMakeSize(width > 0 ? width : noLimit, noLimit)
                            options:NSStringDrawingUsesLineFragmentOrigin
                         attributes:attributes]
      .size;
}

}  // namespace

double heightOfText(NSString* text, NSFont* font, double width) {
  return std::ceil(sizeOfText(text, font, width).height);
}

double widthOfText(NSString* text, NSFont* font) { return std::ceil(sizeOfText(text, font, 0).width); }

NSString* textWithin(NSString* text, NSFont* font, double width) {
  // Few letters are narrower than this, so what is a good deal longer need not be measured whole. Signs that join
  // others have no width of their own.
  constexpr double narrowest = 1;
  constexpr double alwaysMeasured = 64;
  const auto most = static_cast<NSUInteger>(std::max(width / narrowest, alwaysMeasured));
  if ([text length] <= most && widthOfText(text, font) <= width) return text;
  NSUInteger fits = 0;
  NSUInteger tooLong = std::min([text length], most) + 1;
  const auto begun = [text](NSUInteger length) {
    // Characters as people see them, so that none is torn.
    const NSUInteger end =
        length < [text length] ? [text rangeOfComposedCharacterSequenceAtIndex:length].location : length;
    return [[text substringToIndex:end] stringByAppendingString:@"…"];
  };
  while (fits + 1 < tooLong) {
    const NSUInteger middle = (fits + tooLong) / 2;
    (widthOfText(begun(middle), font) <= width ? fits : tooLong) = middle;
  }
  return begun(fits);
}

NSTextField* newTextLabel(NSFont* font) {
  NSTextField* label = [[NSTextField alloc] initWithFrame:NSZeroRect];
  [label setEditable:NO];
  [label setSelectable:NO];
  [label setBezeled:NO];
  [label setBordered:NO];
  [label setDrawsBackground:NO];
  [label setFont:font];
  [[label cell] setWraps:YES];
  return label;
}

std::vector<NSView*> ControlView::keyViews() const {
  return keyView() ? std::vector<NSView*>{keyView()} : std::vector<NSView*>();
}

void ControlView::update(const Control& control, const std::string& name) {
  m_spoken.label = !control.spoken.empty() ? control.spoken : !control.text.empty() ? control.text : name;
  // A field's text is what stands in it, and says nothing of what belongs there.
  if (isTypedInto(control.kind) && control.spoken.empty())
    m_spoken.label = name.empty() ? control.placeholder : name;
  m_spoken.role = role();
  m_spoken.help = control.toolTip.empty() ? control.note : control.toolTip;
  NSView* told = spokenView();
  tellReader(told, @selector(setAccessibilityLabel:), foundationText(m_spoken.label));
  tellReader(told, @selector(setAccessibilityRole:), m_spoken.role);
  tellReader(told, @selector(setAccessibilityHelp:), foundationText(m_spoken.help));
  m_spoken.value = spokenValue(control);
  if (m_spoken.value) tellReader(told, @selector(setAccessibilityValue:), foundationText(*m_spoken.value));
  // Readers pass over a view that is none of the toolkit's controls, unless it says what it is.
  if (![told isKindOfClass:[NSControl class]]) makeReadable(told);
  // Why something cannot be used is worth a word where nothing else is said.
  [m_view.get() setToolTip:m_spoken.help.empty() ? nil : foundationText(m_spoken.help)];
  show(control);
}

double ControlView::naturalWidth() const {
  NSControl* const control = static_cast<NSControl*>(m_view.get());
  return std::ceil([[control cell] cellSize].width);
}

double ControlView::heightFor(double) const {
  NSControl* const control = static_cast<NSControl*>(m_view.get());
  return std::ceil([[control cell] cellSize].height);
}

}  // namespace vorn
