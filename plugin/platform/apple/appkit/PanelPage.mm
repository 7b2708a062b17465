#import "platform/apple/appkit/PanelPage.h"

#include <algorithm>
#include <cmath>

#include "platform/apple/Conversions.h"
#import "platform/apple/appkit/TokenFieldView.h"

// Counts from above, as a person reads.
@interface vnPageView : NSView
@end

@implementation vnPageView
- (BOOL)isFlipped {
  return YES;
}
@end

// The part of a panel that stays in sight, set off from what scrolls.
@interface vnFootView : vnPageView
@end

@implementation vnFootView
- (void)drawRect:(NSRect)dirty {
  [super drawRect:dirty];
  [[NSColor gridColor] set];
  NSRectFill(NSMakeRect(0, 0, [self bounds].size.width, 1));
}
@end

using Pressed = std::function<void()>;

// What a window without a title lies on: a border sets it off from the windows below.
@interface vnSheetView : NSView
@end

@implementation vnSheetView
- (void)drawRect:(NSRect)dirty {
  (void)dirty;
  [[NSColor windowBackgroundColor] set];
  NSRectFill([self bounds]);
  [[NSColor gridColor] set];
  NSFrameRect([self bounds]);
}
@end

// A window without a title takes the keyboard all the same.
@interface vnPanelWindow : NSPanel {
 @public
  // A Pressed; null when nobody listens any more. The toolkit's classes can have no such members.
  void* m_pressed;
  BOOL m_takesKeyboard;
  // Not owned; nil for none.
  NSButton* m_leaves;
}
@end

@implementation vnPanelWindow
- (BOOL)canBecomeKeyWindow {
  return m_takesKeyboard;
}
- (BOOL)canBecomeMainWindow {
  return NO;
}
// The key that leaves, where nothing else had a use for it.
- (void)cancelOperation:(id)sender {
  if (![m_leaves isHiddenOrHasHiddenAncestor]) [m_leaves performClick:sender];
}
- (void)sendEvent:(NSEvent*)event {
  const Pressed pressed = m_pressed ? *static_cast<const Pressed*>(m_pressed) : nullptr;
  [[self retain] autorelease];
  if (pressed && [event type] == NSLeftMouseDown) pressed();
  [super sendEvent:event];
  if (pressed && [event type] == NSScrollWheel) pressed();
}
@end

namespace vorn {

namespace {

constexpr double kMargin = 24;
constexpr double kSmallMargin = 6;
constexpr double kIndent = 24;
constexpr double kRowGap = 8;
constexpr double kSectionGap = 20;
constexpr double kGap = 10;
constexpr double kBesideField = 2;
constexpr double kFootHeight = 58;
constexpr double kLeastWidth = 540;
constexpr double kMostWidth = 720;
constexpr double kLeastSubWidth = 340;
constexpr double kMostNames = 220;
// What the toolkit leaves free beside a text.
constexpr double kTextSides = 6;
// What a field needs to be of use behind what stands before it.
constexpr double kLeastField = 160;
constexpr double kScreenEdge = 60;
constexpr double kOneLine = 26;
constexpr double kManyLines = 70;

NSFont* plainFont() { return [NSFont systemFontOfSize:[NSFont systemFontSize]]; }
NSFont* noteFont() { return [NSFont systemFontOfSize:[NSFont smallSystemFontSize]]; }
NSFont* sectionFont() { return [NSFont boldSystemFontOfSize:[NSFont systemFontSize]]; }
NSFont* headingFont() { return [NSFont boldSystemFontOfSize:[NSFont systemFontSize] + 5]; }

Retained<NSTextField*> makeTitle(NSView* in, std::string_view text, NSFont* font) {
  if (text.empty()) return {};
  auto title = Retained<NSTextField*>::adopted(newTextLabel(font));
  [title.get() setStringValue:foundationText(text)];
  [in addSubview:title.get()];
  return title;
}

void setHidden(NSView* view, bool hidden) {
  if ([view isHidden] != hidden) [view setHidden:hidden];
}

NSRect keptWithin(NSRect screen, NSRect frame) {
  frame.origin.x =
      std::clamp(frame.origin.x, NSMinX(screen), std::max(NSMinX(screen), NSMaxX(screen) - frame.size.width));
  frame.origin.y =
      std::clamp(frame.origin.y, NSMinY(screen), std::max(NSMinY(screen), NSMaxY(screen) - frame.size.height));
  return frame;
}

double heightOfTitle(NSTextField* title, double width) {
  return heightOfText([title stringValue], [title font], width) + 2;
}

}  // namespace

PanelPage::PanelPage(Kind kind, std::string_view title, std::function<void()> pressed) : m_kind(kind) {
  const NSUInteger style = kind == Kind::window ? NSTitledWindowMask : NSBorderlessWindowMask;
  auto window = Retained<vnPanelWindow*>::adopted([[vnPanelWindow alloc]
      initWithContentRect:NSMakeRect(0, 0, kLeastWidth, 200)
                styleMask:style
                  backing:NSBackingStoreBuffered
                    defer:YES]);
  [window.get() setReleasedWhenClosed:NO];
  [window.get() setTitle:foundationText(title)];
  [window.get() setBecomesKeyOnlyIfNeeded:NO];
  [window.get() setHidesOnDeactivate:NO];
  [window.get() setHasShadow:YES];
  window.get()->m_takesKeyboard = kind != Kind::dropDown;
  window.get()->m_pressed = std::make_unique<Pressed>(std::move(pressed)).release();
  m_body = Retained<NSView*>::adopted([[vnPageView alloc] initWithFrame:NSZeroRect]);
  m_foot = Retained<NSView*>::adopted([[vnFootView alloc] initWithFrame:NSZeroRect]);
  m_scroll = Retained<NSScrollView*>::adopted([[NSScrollView alloc] initWithFrame:NSZeroRect]);
  [m_scroll.get() setBorderType:NSNoBorder];
  [m_scroll.get() setDrawsBackground:NO];
  [m_scroll.get() setHasHorizontalScroller:NO];
  [m_scroll.get() setHasVerticalScroller:NO];
  [m_scroll.get() setDocumentView:m_body.get()];
  if (kind != Kind::window) {
    [window.get() setContentView:[[[vnSheetView alloc] initWithFrame:NSZeroRect] autorelease]];
  }
  NSView* content = [window.get() contentView];
  [content addSubview:m_scroll.get()];
  [content addSubview:m_foot.get()];
  // A sheet has no title of its own, and a window of its own has one already.
  if (kind == Kind::sheet) m_heading = makeTitle(m_body.get(), title, headingFont());
  m_window = Retained<NSWindow*>(window.get());
}

PanelPage::~PanelPage() {
  hide();
  vnPanelWindow* window = static_cast<vnPanelWindow*>(m_window.get());
  std::unique_ptr<Pressed>(static_cast<Pressed*>(window->m_pressed)).reset();
  window->m_pressed = nullptr;
  letGo(window);
}

// The views of controls stay where they are: one that is taken out and put back has lost the keyboard, and with it
// the caret of who is typing.
void PanelPage::clear() {
  const auto takeOut = [](const Line& line) {
    [line.name.get() removeFromSuperview];
    [line.note.get() removeFromSuperview];
  };
  for (const Block& block : m_blocks) {
    [block.title.get() removeFromSuperview];
    for (const Line& line : block.lines) takeOut(line);
  }
  takeOut(m_footer);
  m_blocks.clear();
  m_footer = Line();
}

void PanelPage::setContents(const std::vector<PanelLayout::Section>& sections, const ControlViews& views) {
  clear();
  for (const PanelLayout::Section& section : sections) {
    Block block;
    block.title = makeTitle(m_body.get(), m_kind == Kind::sheet ? section.title : "", sectionFont());
    for (const PanelLayout::Row& row : section.rows) {
      Line line;
      line.depth = row.depth;
      for (const PanelLayout::Place& place : row.places) {
        const auto found = views.find(place.key);
        if (found == views.end() || !found->second) continue;
        line.cells.push_back({place.key, found->second.get()});
      }
      if (line.cells.empty()) continue;
      line.name = makeTitle(m_body.get(), row.label, plainFont());
      line.note = Retained<NSTextField*>::adopted(newTextLabel(noteFont()));
      [line.note.get() setTextColor:[NSColor disabledControlTextColor]];
      [line.note.get() setHidden:YES];
      [m_body.get() addSubview:line.note.get()];
      block.lines.push_back(std::move(line));
    }
    if (!block.lines.empty()) m_blocks.push_back(std::move(block));
  }
  takeFooter();
  for (const Block& block : m_blocks) {
    for (const Line& line : block.lines) putInto(m_body.get(), line);
  }
  putInto(m_foot.get(), m_footer);
}

// The buttons that end the window.
void PanelPage::takeFooter() {
  vnPanelWindow* window = static_cast<vnPanelWindow*>(m_window.get());
  window->m_leaves = nil;
  if (m_kind == Kind::dropDown || m_blocks.empty()) return;
  std::vector<Line>& last = m_blocks.back().lines;
  const auto isPush = [](const Cell& cell) {
    NSView* view = cell.view->view();
    return [view isKindOfClass:[NSButton class]] && [static_cast<NSButton*>(view) isBordered] &&
           [cell.view->spoken().role isEqual:NSAccessibilityButtonRole];
  };
  if (!std::all_of(last.back().cells.begin(), last.back().cells.end(), isPush)) return;
  m_footer = std::move(last.back());
  last.pop_back();
  for (const Cell& cell : m_footer.cells) [static_cast<NSButton*>(cell.view->view()) setKeyEquivalent:@""];
  // The last one ends the work, as everywhere in this toolkit, and the one before leaves it.
  [static_cast<NSButton*>(m_footer.cells.back().view->view()) setKeyEquivalent:@"\r"];
  if (m_footer.cells.size() > 1) {
    window->m_leaves = static_cast<NSButton*>(m_footer.cells.front().view->view());
    [window->m_leaves setKeyEquivalent:@"\x1b"];
  }
}

void PanelPage::putInto(NSView* part, const Line& line) {
  for (const Cell& cell : line.cells) {
    if ([cell.view->view() superview] != part) [part addSubview:cell.view->view()];
  }
}

bool PanelPage::isLineShown(const Line& line, const ControlSet& controls) const {
  return std::any_of(line.cells.begin(), line.cells.end(),
                     [&controls](const Cell& cell) { return controls.isOnScreen(cell.key); });
}

// The names of a section's rows stand below each other, and what they name as well.
double PanelPage::nameWidth(const Block& block, const ControlSet& controls) const {
  double width = 0;
  for (const Line& line : block.lines) {
    if (!isLineShown(line, controls)) continue;
    double own = 0;
    if (line.name.get()) own = widthOfText([line.name.get() stringValue], plainFont()) + kTextSides + kGap;
    const Control& first = *controls.find(line.cells.front().key);
    const bool namesField = first.kind == Control::Kind::label && line.cells.size() > 1 &&
                            isFilledIn(controls.find(line.cells[1].key)->kind);
    if (namesField) own = line.cells.front().view->naturalWidth() + kGap;
    width = std::max(width, line.depth * kIndent + own);
  }
  return std::min(width, kMostNames);
}

double PanelPage::naturalWidth(const ControlSet& controls) const {
  double width = 0;
  for (const Block& block : m_blocks) {
    const double names = nameWidth(block, controls);
    for (const Line& line : block.lines) {
      if (!isLineShown(line, controls)) continue;
      double own = line.name.get() ? names : line.depth * kIndent;
      for (const Cell& cell : line.cells) {
        if (controls.isOnScreen(cell.key)) own += cell.view->naturalWidth() + kGap;
      }
      width = std::max(width, own);
    }
  }
  return width;
}

double PanelPage::placeLine(const Line& line, const ControlSet& controls, double top, double names, double width) {
  const double margin = m_kind == Kind::dropDown ? kSmallMargin : kMargin;
  const double right = width - margin;
  const double left = margin + line.depth * kIndent;
  double x = left;
  double lineTop = top;
  struct Placed {
    NSView* view;
    double height;
  };
  std::vector<Placed> row;
  double rowHeight = 0;
  // What stands beside each other has its middle on one line, and beside a text of many lines on the first of
  // them.
  const auto endRow = [&] {
    const double middle = rowHeight > kManyLines ? kOneLine / 2 : rowHeight / 2;
    for (const Placed& each : row) {
      NSRect frame = [each.view frame];
      frame.origin.y = lineTop + std::max(0.0, std::floor(middle - each.height / 2));
      [each.view setFrame:frame];
    }
    row.clear();
  };
  const auto put = [&](NSView* view, double itsWidth, double itsHeight) {
    [view setFrame:NSMakeRect(x, lineTop, itsWidth, itsHeight)];
    row.push_back({view, itsHeight});
    rowHeight = std::max(rowHeight, itsHeight);
    x += itsWidth + kGap;
  };
  if (NSTextField* name = line.name.get()) {
    const double itsWidth = margin + names - kGap - left;
    put(name, itsWidth, heightOfTitle(name, itsWidth - kTextSides));
    x = margin + names;
  }
  for (std::size_t i = 0; i < line.cells.size(); ++i) {
    const Cell& cell = line.cells[i];
    const bool isShown = controls.isOnScreen(cell.key);
    setHidden(cell.view->view(), !isShown);
    if (!isShown) continue;
    const Control& control = *controls.find(cell.key);
    const bool namesField = i == 0 && control.kind == Control::Kind::label && line.cells.size() > 1 &&
                            isFilledIn(controls.find(line.cells[1].key)->kind);
    double wanted = cell.view->naturalWidth();
    if (namesField) wanted = std::min(wanted, margin + names - kGap - left);
    // What follows keeps its room beside a field.
    double behind = 0;
    for (std::size_t next = i + 1; next < line.cells.size(); ++next) {
      if (controls.isOnScreen(line.cells[next].key)) behind += line.cells[next].view->naturalWidth() + kGap;
    }
    double room = right - x;
    const double least = cell.view->stretches() ? std::min(kLeastField, wanted) : std::min(wanted, right - left);
    if (room < least && x > left) {
      endRow();
      lineTop += rowHeight + kRowGap / 2;
      rowHeight = 0;
      x = left;
      room = right - x;
    }
    if (cell.view->stretches()) wanted = std::max(least, room - (behind < room - least ? behind : 0));
    const double itsWidth = std::min(wanted, room);
    put(cell.view->view(), itsWidth, cell.view->heightFor(itsWidth));
    if (namesField) x = margin + names;
    // A link stands in the sentence around it.
    const bool isText = control.kind == Control::Kind::label || control.kind == Control::Kind::link;
    if (isText && i + 1 < line.cells.size()) {
      const Control::Kind next = controls.find(line.cells[i + 1].key)->kind;
      if (next == Control::Kind::label || (next == Control::Kind::link && control.kind == Control::Kind::label))
        x -= kGap;
    }
  }
  endRow();
  return placeNote(line, controls, x, right, lineTop, lineTop + rowHeight);
}

double PanelPage::placeNote(const Line& line, const ControlSet& controls, double x, double right, double top,
                            double bottom) {
  NSTextField* note = line.note.get();
  std::string words;
  for (const Cell& cell : line.cells) {
    const Control& control = *controls.find(cell.key);
    if (words.empty() && controls.isOnScreen(cell.key)) words = control.note;
  }
  setHidden(note, words.empty());
  if (words.empty()) return bottom;
  NSString* text = foundationText(words);
  [note setStringValue:text];
  const double width = widthOfText(text, noteFont()) + kTextSides;
  const double height = heightOfText(text, noteFont(), 0);
  if (x + width <= right) {
    [note setFrame:NSMakeRect(x, top + std::floor((bottom - top - height) / 2), width, height)];
    return bottom;
  }
  const double left = m_kind == Kind::dropDown ? kSmallMargin : kMargin + (line.depth + 1) * kIndent;
  const double below = heightOfText(text, noteFont(), right - left - kTextSides);
  [note setFrame:NSMakeRect(left, bottom + 2, right - left, below)];
  return bottom + 2 + below;
}

double PanelPage::placeFooter(const ControlSet& controls, double width) {
  double x = width - kMargin;
  bool isAnyShown = false;
  for (auto cell = m_footer.cells.rbegin(); cell != m_footer.cells.rend(); ++cell) {
    const bool isShown = controls.isOnScreen(cell->key);
    setHidden(cell->view->view(), !isShown);
    if (!isShown) continue;
    isAnyShown = true;
    const double itsWidth = cell->view->naturalWidth();
    const double itsHeight = cell->view->heightFor(itsWidth);
    x -= itsWidth;
    [cell->view->view() setFrame:NSMakeRect(x, (kFootHeight - itsHeight) / 2, itsWidth, itsHeight)];
    x -= kGap;
  }
  return isAnyShown ? kFootHeight : 0;
}

void PanelPage::arrange(const ControlSet& controls, NSScreen* screen) {
  if (m_isShown && [m_window.get() screen]) screen = [m_window.get() screen];
  const double margin = m_kind == Kind::dropDown ? kSmallMargin : kMargin;
  const double least = m_kind == Kind::sheet ? kLeastWidth : m_kind == Kind::window ? kLeastSubWidth : 0;
  const double width = std::clamp(naturalWidth(controls) + 2 * margin, least, kMostWidth);
  double y = margin;
  if (NSTextField* heading = m_heading.get()) {
    const double height = heightOfTitle(heading, width - 2 * margin);
    [heading setFrame:NSMakeRect(margin - 2, y, width - 2 * margin, height)];
    y += height + kSectionGap / 2;
  }
  bool isFirst = true;
  for (const Block& block : m_blocks) {
    const bool isAnyShown = std::any_of(block.lines.begin(), block.lines.end(),
                                        [&](const Line& line) { return isLineShown(line, controls); });
    if (isAnyShown && !isFirst) y += kSectionGap - kRowGap;
    if (NSTextField* title = block.title.get()) {
      setHidden(title, !isAnyShown);
      const double height = heightOfTitle(title, width - 2 * margin);
      if (isAnyShown) {
        [title setFrame:NSMakeRect(margin - 2, y, width - 2 * margin, height)];
        y += height + kRowGap;
      }
    }
    const double names = nameWidth(block, controls);
    for (const Line& line : block.lines) {
      const bool isShown = isLineShown(line, controls);
      setHidden(line.name.get(), !isShown);
      if (!isShown) setHidden(line.note.get(), true);
      if (!isShown) {
        for (const Cell& cell : line.cells) setHidden(cell.view->view(), true);
        continue;
      }
      y = placeLine(line, controls, y, names, width) + kRowGap;
    }
    if (isAnyShown) isFirst = false;
  }
  resize(screen ? screen : [NSScreen mainScreen], width, y - kRowGap + margin, placeFooter(controls, width));
  chainKeys(controls);
}

void PanelPage::resize(NSScreen* screen, double width, double bodyHeight, double footerHeight) {
  NSWindow* window = m_window.get();
  const double most = [screen visibleFrame].size.height - kScreenEdge;
  double height = std::min(bodyHeight + footerHeight, most);
  const bool scrolls = height < bodyHeight + footerHeight;
  if ([m_scroll.get() hasVerticalScroller] != scrolls) {
    [m_scroll.get() setHasVerticalScroller:scrolls];
    // A wheel and a knob are enough.
    [[m_scroll.get() verticalScroller] setArrowsPosition:NSScrollerArrowsNone];
  }
  const double scroller = scrolls ? [NSScroller scrollerWidth] : 0;
  const double border = m_kind == Kind::window ? 0 : 1;
  const NSSize before = [[window contentView] frame].size;
  if (before.width != width + scroller || before.height != height) {
    NSRect frame = [window frame];
    const double top = NSMaxY(frame);
    frame = [window frameRectForContentRect:NSMakeRect(frame.origin.x, 0, width + scroller, height)];
    frame.origin.y = top - frame.size.height;
    // What ends the work stands at its lower edge.
    [window setFrame:m_isShown ? keptWithin([screen visibleFrame], frame) : frame display:NO];
  }
  const double inside = width + scroller - 2 * border;
  [m_scroll.get() setFrame:NSMakeRect(border, footerHeight, inside, height - footerHeight - border)];
  [m_foot.get() setFrame:NSMakeRect(border, border, inside, std::max(footerHeight - border, 0.0))];
  setHidden(m_foot.get(), footerHeight == 0);
  [m_body.get() setFrameSize:NSMakeSize(width - 2 * border, std::max(bodyHeight, height - footerHeight))];
  [[window contentView] setNeedsDisplay:YES];
}

void PanelPage::chainKeys(const ControlSet& controls) {
  m_keyOrder.clear();
  const auto add = [&](const Line& line) {
    for (const Cell& cell : line.cells) {
      if (!controls.isOnScreen(cell.key) || !controls.find(cell.key)->enabled) continue;
      for (NSView* view : cell.view->keyViews()) m_keyOrder.push_back(view);
    }
  };
  for (const Block& block : m_blocks) {
    for (const Line& line : block.lines) add(line);
  }
  add(m_footer);
  // Who opens a window wants to type where there is something to type.
  const auto typedIn = std::find_if(m_keyOrder.begin(), m_keyOrder.end(), [](NSView* view) {
    return [view isKindOfClass:[NSTextField class]] || [view isKindOfClass:[vnTokenFieldView class]];
  });
  [m_window.get() setInitialFirstResponder:typedIn == m_keyOrder.end() ? nil : *typedIn];
  for (std::size_t i = 0; i < m_keyOrder.size(); ++i) {
    [m_keyOrder[i] setNextKeyView:m_keyOrder[(i + 1) % m_keyOrder.size()]];
  }
}

void PanelPage::showOn(NSWindow* parent, NSView* below) {
  NSWindow* window = m_window.get();
  const NSRect on = parent ? [parent frame] : [[NSScreen mainScreen] visibleFrame];
  NSRect frame = [window frame];
  const NSRect screen = [([parent screen] ? [parent screen] : [NSScreen mainScreen]) visibleFrame];
  if (below) {
    // Of a long field what is in sight, which newer systems no longer cut to the view.
    const NSRect inSight = NSIntersectionRect([below bounds], [below visibleRect]);
    const NSRect field = [below convertRect:NSHeight(inSight) > 0 ? inSight : [below bounds] toView:nil];
    const NSPoint corner = [[below window] convertBaseToScreen:field.origin];
    frame.origin = NSMakePoint(corner.x, corner.y - frame.size.height - kBesideField);
    // Where there is no room below the field it stands above, and leaves in sight what is typed.
    const double above = corner.y + field.size.height + kBesideField;
    if (NSMinY(frame) < NSMinY(screen) && above + frame.size.height <= NSMaxY(screen)) frame.origin.y = above;
  } else {
    // As a sheet hangs: in the middle, below what the window begins with.
    frame.origin.x = std::floor(NSMidX(on) - frame.size.width / 2);
    frame.origin.y = std::floor(NSMaxY(on) - frame.size.height - kScreenEdge);
  }
  [window setFrame:keptWithin(screen, frame) display:NO];
  if (m_isShown) return;
  m_isShown = true;
  m_parent = parent;
  [parent addChildWindow:window ordered:NSWindowAbove];
  if (m_kind == Kind::dropDown) {
    [window orderFront:nil];
  } else {
    [window makeKeyAndOrderFront:nil];
  }
}

void PanelPage::hide() {
  if (!m_isShown) return;
  m_isShown = false;
  NSWindow* window = m_window.get();
  [m_parent removeChildWindow:window];
  [window orderOut:nil];
  if (m_kind != Kind::dropDown) [m_parent makeKeyWindow];
  m_parent = nil;
}

}  // namespace vorn
