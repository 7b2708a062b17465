#import "platform/apple/appkit/TokenFieldView.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <unordered_map>

#include "platform/apple/Conversions.h"
#import "platform/apple/appkit/ControlView.h"

namespace {

using vorn::TextRange;
using vorn::TokenFragment;
using vorn::TokenText;

constexpr double kPadding = 6;
constexpr double kChipSides = 8;
constexpr double kChipGap = 3;
constexpr double kLeastHeight = 26;

NSFont* fieldFont() { return [NSFont systemFontOfSize:[NSFont systemFontSize]]; }
double lineHeight() { return std::ceil(vorn::heightOfText(@"Xg", fieldFont(), 0)) + 4; }

NSDictionary* lookOf(NSColor* color) {
  return [NSDictionary
      dictionaryWithObjectsAndKeys:fieldFont(), NSFontAttributeName, color, NSForegroundColorAttributeName, nil];
}

// How many lists have dropped down from fields of the window; they never take the keyboard.
NSUInteger dropDownsOf(NSWindow* window) {
  NSUInteger found = 0;
  NSEnumerator* all = [[window childWindows] objectEnumerator];
  while (NSWindow* each = [all nextObject]) {
    if ([each isVisible] && ![each canBecomeKeyWindow]) ++found;
  }
  return found;
}

// How wide words and characters are. The toolkit takes its time to measure one, and with each key all are asked
// for.
class TextWidths {
 public:
  double of(NSString* text) {
    if ([text length] > kLongestKept) return vorn::widthOfText(text, fieldFont());
    if (m_known.size() > kMost) m_known.clear();
    const auto [found, isNew] = m_known.try_emplace(vorn::textFromFoundation(text));
    if (isNew) found->second = vorn::widthOfText(text, fieldFont());
    return found->second;
  }

 private:
  static constexpr std::size_t kMost = 10000;
  // In UTF-16 units; what the client calls people may be of any length.
  static constexpr NSUInteger kLongestKept = 64;

  std::unordered_map<std::string, double> m_known;
};

// Puts the pieces of a text beside each other and, where the width ends, below each other.
class LineFiller {
 public:
  LineFiller(double width, TextWidths& widths, std::vector<TokenFragment>& fragments)
      : m_right(width - kPadding), m_lineHeight(lineHeight()), m_widths(widths), m_fragments(fragments) {}

  void addChip(std::size_t position, NSString* title) {
    const double natural = m_widths.of(title) + 2 * kChipSides;
    const double width = std::min(natural, m_right - kPadding);
    if (m_x + width > m_right) newLine();
    put({position, 1}, width, true);
    m_x += kChipGap;
  }

  // Words stay whole unless one is longer than a line.
  void addText(std::size_t position, NSString* text) {
    const NSUInteger length = [text length];
    for (NSUInteger begin = 0; begin < length;) {
      NSUInteger end = begin;
      while (end < length && [text characterAtIndex:end] != ' ') ++end;
      while (end < length && [text characterAtIndex:end] == ' ') ++end;
      addWord(position + begin, [text substringWithRange:NSMakeRange(begin, end - begin)]);
      begin = end;
    }
  }

  double bottom() const { return m_y + m_lineHeight + kPadding; }

 private:
  void addWord(std::size_t position, NSString* word) {
    // A word that long is measured by its characters alone, which are known.
    constexpr NSUInteger mostLetters = 64;
    const bool isWord = [word length] <= mostLetters;
    const double width = isWord ? m_widths.of(word) : m_right;
    if (m_x + width > m_right && m_x > kPadding) newLine();
    if (isWord && m_x + width <= m_right) {
      put({position, [word length]}, width, false);
      return;
    }
    // By characters as people see them, so that none is torn.
    for (NSUInteger begin = 0; begin < [word length];) {
      NSUInteger end = begin;
      double taken = 0;
      while (end < [word length]) {
        const NSRange character = [word rangeOfComposedCharacterSequenceAtIndex:end];
        const double more = m_widths.of([word substringWithRange:character]);
        if (end > begin && m_x + taken + more > m_right) break;
        taken += more;
        end = NSMaxRange(character);
      }
      // Together they are a little narrower than one by one, and the caret stands behind them.
      NSString* line = [word substringWithRange:NSMakeRange(begin, end - begin)];
      put({position + begin, end - begin}, vorn::widthOfText(line, fieldFont()), false);
      begin = end;
      if (begin < [word length]) newLine();
    }
  }

  void put(TextRange range, double width, bool isChip) {
    m_fragments.push_back({range, NSMakeRect(m_x, m_y, width, m_lineHeight), isChip});
    m_x += width;
  }
  void newLine() {
    m_x = kPadding;
    m_y += m_lineHeight + kChipGap;
  }

  double m_right;
  double m_lineHeight;
  TextWidths& m_widths;
  std::vector<TokenFragment>& m_fragments;
  double m_x = kPadding;
  double m_y = kPadding / 2;
};

NSString* textOf(const TokenText& tokens, const TextRange& range) {
  return vorn::foundationText(tokens.text(range));
}

// The plain text from there to the next chip, or to the end.
std::string unitsOf(const TokenText& tokens, std::size_t begin, std::size_t end) {
  std::size_t stop = begin;
  while (stop < end && !tokens.isChip(stop)) ++stop;
  return tokens.text({begin, stop - begin});
}

double fill(const TokenText& tokens, double width, TextWidths& widths, std::vector<TokenFragment>& fragments) {
  LineFiller filler(width, widths, fragments);
  std::size_t position = 0;
  for (const vorn::TokenPiece& piece : tokens.pieces()) {
    NSString* text = vorn::foundationText(piece.chip ? piece.chip->title : piece.text);
    if (piece.chip) {
      filler.addChip(position, text);
      position += 1;
    } else {
      filler.addText(position, text);
      position += [text length];
    }
  }
  return std::max(kLeastHeight, filler.bottom());
}

struct State {
  vorn::Control shown;
  std::vector<TokenFragment> fragments;
  // For which the fragments were made, and what they need; none yet.
  double width = -1;
  double height = 0;
  TextWidths widths;
};

}  // namespace

@implementation vnTokenFieldView
- (id)initWithFrame:(NSRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;
  m_state = std::make_unique<State>().release();
  return self;
}
- (void)dealloc {
  std::unique_ptr<State>(static_cast<State*>(m_state)).reset();
  [super dealloc];
}
- (State&)state {
  return *static_cast<State*>(m_state);
}
- (const vorn::Control&)shown {
  return [self state].shown;
}
- (BOOL)isFlipped {
  return YES;
}
- (BOOL)acceptsFirstResponder {
  return [self shown].enabled;
}
- (BOOL)becomeFirstResponder {
  [self setNeedsDisplay:YES];
  return YES;
}
- (BOOL)resignFirstResponder {
  [self setNeedsDisplay:YES];
  return YES;
}

// -- What it shows
- (void)showControl:(const vorn::Control&)control {
  State& state = [self state];
  // A caret that moves leaves everything in its place.
  if (state.shown.tokens.pieces() != control.tokens.pieces()) state.width = -1;
  state.shown = control;
  [self setNeedsDisplay:YES];
}
- (double)heightForWidth:(double)width {
  State& state = [self state];
  if (state.width != width) {
    state.width = width;
    state.fragments.clear();
    state.height = fill(state.shown.tokens, width, state.widths, state.fragments);
  }
  return state.height;
}
- (const std::vector<TokenFragment>&)fragments {
  [self heightForWidth:[self bounds].size.width];
  return [self state].fragments;
}
- (std::vector<vorn::TokenPiece>)piecesOnScreen {
  const TokenText& tokens = [self shown].tokens;
  std::vector<vorn::TokenPiece> pieces;
  std::size_t chip = 0;
  for (const TokenFragment& each : [self fragments]) {
    if (each.isChip) {
      pieces.push_back({"", vorn::TokenChip{tokens.chips()[chip++].title}});
    } else {
      pieces.push_back({tokens.text(each.range)});
    }
  }
  return pieces;
}
- (NSPoint)pointOfPosition:(std::size_t)position {
  NSPoint end = NSMakePoint(kPadding, kPadding / 2);
  for (const TokenFragment& each : [self fragments]) {
    if (position <= each.range.begin) return position == each.range.begin ? each.place.origin : end;
    if (position < each.range.end()) {
      const TextRange before{each.range.begin, position - each.range.begin};
      const double shift = vorn::widthOfText(textOf([self shown].tokens, before), fieldFont());
      return NSMakePoint(each.place.origin.x + shift, each.place.origin.y);
    }
    end = NSMakePoint(NSMaxX(each.place) + (each.isChip ? 1 : 0), each.place.origin.y);
  }
  return end;
}
- (std::size_t)positionAtPoint:(NSPoint)point {
  std::size_t last = 0;
  for (const TokenFragment& each : [self fragments]) {
    if (point.y < NSMinY(each.place)) return last;
    last = each.range.end();
    if (point.y > NSMaxY(each.place) + kChipGap || point.x > NSMaxX(each.place)) continue;
    if (each.isChip) return point.x < NSMidX(each.place) ? each.range.begin : last;
    NSString* text = textOf([self shown].tokens, each.range);
    // Each character by itself is measured a little too wide.
    double wide = 0;
    const auto widthAt = [&](NSRange character) {
      return [self state].widths.of([text substringWithRange:character]);
    };
    for (NSUInteger at = 0; at < [text length];) {
      const NSRange character = [text rangeOfComposedCharacterSequenceAtIndex:at];
      wide += widthAt(character);
      at = NSMaxRange(character);
    }
    const double share = wide > 0 ? NSWidth(each.place) / wide : 1;
    double left = each.place.origin.x;
    for (NSUInteger at = 0; at < [text length];) {
      const NSRange character = [text rangeOfComposedCharacterSequenceAtIndex:at];
      const double width = widthAt(character) * share;
      if (point.x < left + width / 2) return each.range.begin + at;
      left += width;
      at = NSMaxRange(character);
    }
    return last;
  }
  return last;
}
- (void)drawChip:(const TokenFragment&)fragment title:(NSString*)title isSelected:(BOOL)isSelected {
  const NSRect place = NSInsetRect(fragment.place, 0.5, 0.5);
  NSBezierPath* shape = [NSBezierPath bezierPathWithRoundedRect:place
                                                        xRadius:place.size.height / 2
                                                        yRadius:place.size.height / 2];
  // In components, for a colour of the system has no other strength.
  NSColor* accent = [[NSColor alternateSelectedControlColor] colorUsingColorSpaceName:NSCalibratedRGBColorSpace];
  [(isSelected ? accent : [accent colorWithAlphaComponent:0.16]) set];
  [shape fill];
  NSColor* ink = isSelected ? [NSColor alternateSelectedControlTextColor] : [NSColor controlTextColor];
  [[NSGraphicsContext currentContext] saveGraphicsState];
  [shape addClip];
  NSString* shown = vorn::textWithin(title, fieldFont(), fragment.place.size.width - 2 * kChipSides);
  [shown drawAtPoint:NSMakePoint(place.origin.x + kChipSides, place.origin.y + 1.5) withAttributes:lookOf(ink)];
  [[NSGraphicsContext currentContext] restoreGraphicsState];
}
- (void)drawRect:(NSRect)dirty {
  (void)dirty;
  const NSRect bounds = [self bounds];
  const BOOL hasKeyboard = [[self window] firstResponder] == self;
  NSBezierPath* frame = [NSBezierPath bezierPathWithRoundedRect:NSInsetRect(bounds, 1, 1) xRadius:5 yRadius:5];
  [([self shown].enabled ? [NSColor textBackgroundColor] : [NSColor controlBackgroundColor]) set];
  [frame fill];
  NSColor* line = hasKeyboard ? [NSColor alternateSelectedControlColor] : [NSColor gridColor];
  [([self shown].redBorderWidth > 0 ? [NSColor redColor] : line) set];
  [frame setLineWidth:std::max([self shown].redBorderWidth, hasKeyboard ? 2.0 : 1.0)];
  [frame stroke];

  const TokenText& tokens = [self shown].tokens;
  if (tokens.length() == 0 && !hasKeyboard) {
    NSDictionary* look = lookOf([NSColor disabledControlTextColor]);
    [vorn::foundationText([self shown].placeholder) drawAtPoint:NSMakePoint(kPadding, kPadding / 2 + 2)
                                                 withAttributes:look];
  }
  const TextRange selection = tokens.selection();
  NSColor* ink = [self shown].enabled ? [NSColor controlTextColor] : [NSColor disabledControlTextColor];
  std::size_t chip = 0;
  for (const TokenFragment& each : [self fragments]) {
    const bool isSelected =
        selection.length > 0 && each.range.begin < selection.end() && selection.begin < each.range.end();
    if (each.isChip) {
      [self drawChip:each title:vorn::foundationText(tokens.chips()[chip++].title) isSelected:isSelected];
      continue;
    }
    if (isSelected) {
      // Only the two fragments at its ends are cut, for which the others are gone through.
      const double from =
          selection.begin <= each.range.begin ? NSMinX(each.place) : [self pointOfPosition:selection.begin].x;
      const double to =
          selection.end() >= each.range.end() ? NSMaxX(each.place) : [self pointOfPosition:selection.end()].x;
      [[NSColor selectedTextBackgroundColor] set];
      NSRectFill(NSMakeRect(from, each.place.origin.y, to - from, each.place.size.height));
    }
    [textOf(tokens, each.range) drawAtPoint:NSMakePoint(each.place.origin.x, each.place.origin.y + 2)
                             withAttributes:lookOf(ink)];
  }
  if (hasKeyboard && selection.length == 0) {
    const NSPoint caret = [self pointOfPosition:selection.begin];
    [[NSColor controlTextColor] set];
    NSRectFill(NSMakeRect(caret.x, caret.y + 2, 1, lineHeight() - 4));
  }
}

// -- What the user does
// A text of many lines may be higher than the panel.
- (void)scrollToCaret {
  const NSPoint caret = [self pointOfPosition:[self shown].tokens.caret()];
  [self scrollRectToVisible:NSMakeRect(caret.x, caret.y - kPadding, 1, lineHeight() + 2 * kPadding)];
}
- (void)act:(const std::function<void(TokenText&)>&)what {
  if (![self shown].enabled || !m_act) return;
  // The view may be let go of in what it tells of, and what it tells it through with it.
  [[self retain] autorelease];
  const vorn::TokenAct act = *static_cast<const vorn::TokenAct*>(m_act);
  // Before it, too: a list that opens hangs on what is in sight.
  [self scrollToCaret];
  act(what);
  [self scrollToCaret];
}
- (void)pressKey:(TokenText::Key)key extends:(BOOL)extends {
  const auto extending = extends ? TokenText::Extends::yes : TokenText::Extends::no;
  const auto press = [=](TokenText& tokens) { tokens.press(key, extending); };
  [self act:press];
}
- (void)keyDown:(NSEvent*)event {
  [self interpretKeyEvents:[NSArray arrayWithObject:event]];
}
- (void)insertText:(id)typed {
  NSString* characters = [typed isKindOfClass:[NSAttributedString class]] ? [typed string] : typed;
  const std::string text = vorn::textFromFoundation(characters);
  [self act:[text](TokenText& tokens) { tokens.type(text); }];
}
- (void)moveLeft:(id)sender {
  (void)sender;
  [self pressKey:TokenText::Key::left extends:NO];
}
- (void)moveRight:(id)sender {
  (void)sender;
  [self pressKey:TokenText::Key::right extends:NO];
}
- (void)moveLeftAndModifySelection:(id)sender {
  (void)sender;
  [self pressKey:TokenText::Key::left extends:YES];
}
- (void)moveRightAndModifySelection:(id)sender {
  (void)sender;
  [self pressKey:TokenText::Key::right extends:YES];
}
- (void)moveToBeginningOfLine:(id)sender {
  (void)sender;
  [self pressKey:TokenText::Key::start extends:NO];
}
- (void)moveToEndOfLine:(id)sender {
  (void)sender;
  [self pressKey:TokenText::Key::end extends:NO];
}
// A field is one line and one paragraph, and systems differ in what their keys ask for.
- (void)moveToLeftEndOfLine:(id)sender {
  [self moveToBeginningOfLine:sender];
}
- (void)moveToBeginningOfParagraph:(id)sender {
  [self moveToBeginningOfLine:sender];
}
- (void)moveToRightEndOfLine:(id)sender {
  [self moveToEndOfLine:sender];
}
- (void)moveToEndOfParagraph:(id)sender {
  [self moveToEndOfLine:sender];
}
- (void)moveUp:(id)sender {
  (void)sender;
  [self pressKey:TokenText::Key::up extends:NO];
}
- (void)moveDown:(id)sender {
  (void)sender;
  [self pressKey:TokenText::Key::down extends:NO];
}
- (void)deleteBackward:(id)sender {
  (void)sender;
  [self pressKey:TokenText::Key::deleteBackward extends:NO];
}
- (void)deleteForward:(id)sender {
  (void)sender;
  [self pressKey:TokenText::Key::deleteForward extends:NO];
}
- (void)insertNewline:(id)sender {
  (void)sender;
  [self pressKey:TokenText::Key::newLine extends:NO];
}
// The rules hear of it, and the window leaves its work, unless they have closed the field's list: that was all a
// person meant by it. What has dropped down from another field stays, and keeps nobody here.
- (void)cancelOperation:(id)sender {
  NSWindow* window = [[[self window] retain] autorelease];
  const NSUInteger before = dropDownsOf(window);
  [self pressKey:TokenText::Key::escape extends:NO];
  if (dropDownsOf(window) == before) [window tryToPerform:@selector(cancelOperation:) with:sender];
}
// The tab key ends a token and leaves the field.
- (void)insertTab:(id)sender {
  [self pressKey:TokenText::Key::tab extends:NO];
  [[self window] selectKeyViewFollowingView:self];
  (void)sender;
}
- (void)insertBacktab:(id)sender {
  (void)sender;
  [[self window] selectKeyViewPrecedingView:self];
}
- (void)selectAll:(id)sender {
  (void)sender;
  [self act:[](TokenText& tokens) { tokens.select({0, tokens.length()}); }];
}
- (void)paste:(id)sender {
  (void)sender;
  NSString* pasted = [[NSPasteboard generalPasteboard] stringForType:NSStringPboardType];
  if (!pasted) return;
  const std::string text = vorn::textFromFoundation(pasted);
  [self act:[text](TokenText& tokens) { tokens.paste(text); }];
}
- (void)copy:(id)sender {
  (void)sender;
  const TextRange selection = [self shown].tokens.selection();
  if (selection.length == 0) return;
  NSMutableString* copied = [NSMutableString string];
  std::size_t chip = 0;
  for (std::size_t at = 0; at < selection.end(); ++at) {
    const bool isChip = [self shown].tokens.isChip(at);
    if (at >= selection.begin) {
      NSString* text = isChip ? vorn::foundationText([self shown].tokens.chips()[chip].written() + "; ")
                              : vorn::foundationText(unitsOf([self shown].tokens, at, selection.end()));
      [copied appendString:text];
      if (!isChip) at += [text length] - 1;
    }
    if (isChip) ++chip;
  }
  NSPasteboard* board = [NSPasteboard generalPasteboard];
  [board declareTypes:[NSArray arrayWithObject:NSStringPboardType] owner:nil];
  [board setString:copied forType:NSStringPboardType];
}
- (void)cut:(id)sender {
  [self copy:sender];
  if ([self shown].tokens.selection().length > 0) [self deleteBackward:sender];
}
- (void)mouseDown:(NSEvent*)event {
  [[self window] makeFirstResponder:self];
  m_dragStart = [self positionAtPoint:[self convertPoint:[event locationInWindow] fromView:nil]];
  const std::size_t caret = m_dragStart;
  [self act:[caret](TokenText& tokens) { tokens.select({caret, 0}); }];
}
- (void)mouseDragged:(NSEvent*)event {
  const std::size_t here = [self positionAtPoint:[self convertPoint:[event locationInWindow] fromView:nil]];
  const std::size_t from = std::min<std::size_t>(here, m_dragStart);
  const std::size_t to = std::max<std::size_t>(here, m_dragStart);
  const TextRange range{from, to - from};
  [self act:[range](TokenText& tokens) { tokens.select(range); }];
}
@end
