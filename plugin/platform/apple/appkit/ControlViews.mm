// One class for each kind of control that the toolkit draws itself.

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/apple/Conversions.h"
#include "platform/apple/appkit/ControlView.h"
#include "platform/apple/appkit/TokenFieldView.h"
#include "platform/controls/FieldKeys.h"

namespace {

// Whom a listener tells. The toolkit's classes can have no such members.
struct Heard {
  std::function<void(id sender)> acted;
  std::function<void()> typed;
  std::function<bool(std::string_view command)> pressed;
  const std::vector<vorn::ControlItem>* rows = nullptr;
};

}  // namespace

// The toolkit's callbacks, handed on to the object in C++ as long as there is one.
@interface vnControlListener : NSObject {
 @public
  // A Heard; null when nobody listens any more.
  void* m_heard;
}
- (void)act:(id)sender;
@end

namespace {

// Listener and whom it tells may both end in what is told, so what is called is a copy.
Heard heardBy(vnControlListener* listener) {
  [[listener retain] autorelease];
  return listener->m_heard ? *static_cast<const Heard*>(listener->m_heard) : Heard();
}

const std::vector<vorn::ControlItem>* rowsOf(vnControlListener* listener) {
  return listener->m_heard ? static_cast<const Heard*>(listener->m_heard)->rows : nullptr;
}

}  // namespace

@implementation vnControlListener
- (void)act:(id)sender {
  const Heard heard = heardBy(self);
  if (heard.acted) heard.acted(sender);
}
- (void)controlTextDidChange:(NSNotification*)notification {
  (void)notification;
  const Heard heard = heardBy(self);
  if (heard.typed) heard.typed();
}
- (BOOL)control:(NSControl*)control textView:(NSTextView*)view doCommandBySelector:(SEL)selector {
  (void)control;
  (void)view;
  std::string name = vorn::textFromFoundation(NSStringFromSelector(selector));
  if (name.ends_with(':')) name.pop_back();
  const Heard heard = heardBy(self);
  return heard.pressed && heard.pressed(name);
}
- (NSInteger)numberOfRowsInTableView:(NSTableView*)table {
  (void)table;
  const auto* rows = rowsOf(self);
  return rows ? static_cast<NSInteger>(rows->size()) : 0;
}
- (id)tableView:(NSTableView*)table objectValueForTableColumn:(NSTableColumn*)column row:(NSInteger)row {
  (void)table;
  (void)column;
  const auto index = static_cast<std::size_t>(row);
  const auto* rows = rowsOf(self);
  return rows && row >= 0 && index < rows->size() ? vorn::foundationText((*rows)[index].title) : @"";
}
- (BOOL)tableView:(NSTableView*)table shouldEditTableColumn:(NSTableColumn*)column row:(NSInteger)row {
  (void)table;
  (void)column;
  (void)row;
  return NO;
}
@end

// A field around which a fault is drawn. Each is one more class, for a combo box is a field of the toolkit's own.
@interface vnField : NSTextField {
 @public
  double m_redBorderWidth;
}
@end
@interface vnComboField : NSComboBox {
 @public
  double m_redBorderWidth;
}
@end

// The list beside a field that is typed into never has the keyboard, and its first press counts all the same.
@interface vnListTable : NSTableView
@end

// A row of a list, in the middle of its place, and with an ellipsis where it is longer.
@interface vnListCell : NSTextFieldCell
@end

namespace {

void drawRedBorder(NSView* field, double width) {
  if (width <= 0) return;
  NSBezierPath* border =
      [NSBezierPath bezierPathWithRoundedRect:NSInsetRect([field bounds], width / 2 + 0.5, width / 2 + 0.5)
                                      xRadius:5
                                      yRadius:5];
  [border setLineWidth:width];
  [[NSColor redColor] set];
  [border stroke];
}

}  // namespace

@implementation vnField
- (void)drawRect:(NSRect)dirty {
  [super drawRect:dirty];
  drawRedBorder(self, m_redBorderWidth);
}
@end

@implementation vnListTable
- (BOOL)acceptsFirstMouse:(NSEvent*)press {
  (void)press;
  return YES;
}
@end

@implementation vnListCell
- (void)drawInteriorWithFrame:(NSRect)frame inView:(NSView*)view {
  constexpr double sides = 6;
  const double height = vorn::heightOfText(@"Xg", [self font], 0);
  const NSRect line = NSInsetRect(frame, 0, std::max(0.0, std::floor((NSHeight(frame) - height) / 2)));
  NSString* whole = [[[self stringValue] retain] autorelease];
  NSString* fitting = vorn::textWithin(whole, [self font], NSWidth(line) - sides);
  if (fitting == whole) {
    [super drawInteriorWithFrame:line inView:view];
    return;
  }
  // A cell that is given a text wants to be drawn again, so only one whose text is cut is given one.
  [self setStringValue:fitting];
  [super drawInteriorWithFrame:line inView:view];
  [self setStringValue:whole];
}
@end

@implementation vnComboField
- (void)drawRect:(NSRect)dirty {
  [super drawRect:dirty];
  drawRedBorder(self, m_redBorderWidth);
}
@end

namespace vorn {

namespace {

NSFont* controlFont() { return [NSFont systemFontOfSize:[NSFont systemFontSize]]; }

constexpr double kFieldWidth = 260;

// The toolkit keeps no reference to whom it calls, so the listener goes with this, and first of all forgets whom
// it tells.
class Listener {
 public:
  Listener() : m_object(Retained<vnControlListener*>::adopted([[vnControlListener alloc] init])) {
    m_object.get()->m_heard = &m_heard;
  }
  ~Listener() {
    m_object.get()->m_heard = nullptr;
    letGo(m_object.get());
  }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

  // What the toolkit calls its delegate and its data source.
  id object() const { return m_object.get(); }
  void onAct(NSControl* control, std::function<void(id sender)> acted) {
    m_heard.acted = std::move(acted);
    [control setTarget:m_object.get()];
    [control setAction:@selector(act:)];
  }
  void onTyping(std::function<void()> typed, std::function<bool(std::string_view)> pressed) {
    m_heard.typed = std::move(typed);
    m_heard.pressed = std::move(pressed);
  }
  void showRows(const std::vector<ControlItem>& rows) { m_heard.rows = &rows; }

 private:
  Retained<vnControlListener*> m_object;
  Heard m_heard;
};

NSColor* colorOfText(const Control& control) {
  if (control.isRed) return [NSColor redColor];
  return control.enabled ? [NSColor controlTextColor] : [NSColor disabledControlTextColor];
}

class LabelView final : public ControlView {
 public:
  LabelView(ControlInput& input, const Control& control)
      : ControlView(input, control.key, newTextLabel(controlFont())) {}

  NSView* keyView() const override { return nil; }
  double naturalWidth() const override { return widthOfText(text(), controlFont()) + kSides; }
  double heightFor(double width) const override { return heightOfText(text(), controlFont(), width - kSides); }

 protected:
  void show(const Control& control) override {
    [field() setStringValue:foundationText(control.text)];
    [field() setTextColor:colorOfText(control)];
  }
  NSString* role() const override { return NSAccessibilityStaticTextRole; }

 private:
  // What the toolkit leaves free beside a text.
  static constexpr double kSides = 6;
  NSTextField* field() const { return static_cast<NSTextField*>(view()); }
  NSString* text() const { return [field() stringValue]; }
};

// A push button, a switch, a radio button or a link: what is clicked and has a title.
class ButtonView : public ControlView {
 public:
  ButtonView(ControlInput& input, const Control& control)
      : ControlView(input, control.key, [[NSButton alloc] initWithFrame:NSZeroRect]), m_kind(control.kind) {
    [button() setFont:controlFont()];
    switch (m_kind) {
      case Control::Kind::checkBox: [button() setButtonType:NSSwitchButton]; break;
      case Control::Kind::radioButton: [button() setButtonType:NSRadioButton]; break;
      case Control::Kind::link:
        [button() setButtonType:NSMomentaryLight];
        [button() setBordered:NO];
        break;
      default:
        [button() setButtonType:NSMomentaryPushInButton];
        [button() setBezelStyle:NSRoundedBezelStyle];
        break;
    }
    m_listener.onAct(button(), [this](id) { clicked(); });
  }

  double naturalWidth() const override {
    const double title = widthOfText([button() title], controlFont());
    if (m_kind == Control::Kind::button) return std::max(kLeastButton, title + kButtonSides);
    return m_kind == Control::Kind::link ? title + kLinkSides : title + kMark;
  }
  double heightFor(double width) const override {
    if (m_kind == Control::Kind::button) return kButtonHeight;
    const double sides = m_kind == Control::Kind::link ? kLinkSides : kMark;
    return std::max(kLineHeight, heightOfText([button() title], controlFont(), width - sides));
  }

 protected:
  void show(const Control& control) override {
    NSString* title = foundationText(control.text);
    if (m_kind == Control::Kind::link) {
      NSColor* color = control.enabled ? linkColor() : [NSColor disabledControlTextColor];
      NSDictionary* look = [NSDictionary
          dictionaryWithObjectsAndKeys:color, NSForegroundColorAttributeName, controlFont(), NSFontAttributeName,
                                       [NSNumber numberWithInt:NSUnderlineStyleSingle],
                                       NSUnderlineStyleAttributeName, nil];
      [button() setAttributedTitle:[[[NSAttributedString alloc] initWithString:title
                                                                    attributes:look] autorelease]];
    } else {
      [button() setTitle:title];
    }
    [[button() cell] setWraps:m_kind != Control::Kind::button];
    [button() setEnabled:control.enabled];
    if (isTwoState()) [button() setState:control.on ? NSOnState : NSOffState];
  }
  NSString* role() const override {
    switch (m_kind) {
      case Control::Kind::checkBox: return NSAccessibilityCheckBoxRole;
      case Control::Kind::radioButton: return NSAccessibilityRadioButtonRole;
      case Control::Kind::link: return NSAccessibilityLinkRole;
      default: return NSAccessibilityButtonRole;
    }
  }

 private:
  static constexpr double kLeastButton = 84;
  static constexpr double kButtonSides = 32;
  static constexpr double kButtonHeight = 30;
  static constexpr double kLinkSides = 4;
  // The box or the circle before the title, with the room beside it.
  static constexpr double kMark = 30;
  static constexpr double kLineHeight = 20;

  NSButton* button() const { return static_cast<NSButton*>(view()); }
  bool isTwoState() const { return m_kind == Control::Kind::checkBox || m_kind == Control::Kind::radioButton; }
  static NSColor* linkColor() {
    if ([NSColor respondsToSelector:@selector(linkColor)]) return [NSColor performSelector:@selector(linkColor)];
    return [NSColor alternateSelectedControlColor];
  }

  void clicked() {
    if (!isTwoState()) {
      input().use(key(), nullptr);
      return;
    }
    // A radio button that is pressed is on, whatever the toolkit made of the press.
    const bool on = m_kind == Control::Kind::radioButton || [button() state] == NSOnState;
    input().use(key(), [on](Control& control) { control.on = on; });
  }

  Control::Kind m_kind;
  Listener m_listener;
};

// Its title stands before it in the row, as the name of it.
class RadioGroupView final : public ControlView {
 public:
  RadioGroupView(ControlInput& input, const Control& control)
      : ControlView(input, control.key, [[NSView alloc] initWithFrame:NSZeroRect]) {}

  NSView* keyView() const override { return m_buttons.empty() ? nil : m_buttons.front().get(); }
  std::vector<NSView*> keyViews() const override {
    std::vector<NSView*> views;
    for (const auto& button : m_buttons) views.push_back(button.get());
    return views;
  }
  double naturalWidth() const override {
    double width = 0;
    for (const auto& button : m_buttons) width += widthOf(button.get());
    return width;
  }
  double heightFor(double) const override { return kHeight; }

 protected:
  void show(const Control& control) override {
    while (m_buttons.size() > control.items.size()) {
      [m_buttons.back().get() removeFromSuperview];
      m_buttons.pop_back();
    }
    while (m_buttons.size() < control.items.size()) add();
    double x = 0;
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
      NSButton* button = m_buttons[i].get();
      [button setTitle:foundationText(control.items[i].title)];
      [button setToolTip:control.items[i].toolTip.empty() ? nil : foundationText(control.items[i].toolTip)];
      [button setEnabled:control.enabled && control.items[i].enabled];
      [button setState:control.index == static_cast<int>(i) ? NSOnState : NSOffState];
      [button setFrame:NSMakeRect(x, 0, widthOf(button), kHeight)];
      x += widthOf(button);
    }
  }
  NSString* role() const override { return NSAccessibilityRadioGroupRole; }

 private:
  static constexpr double kHeight = 20;
  static constexpr double kMarkAndRoom = 40;

  static double widthOf(NSButton* button) { return widthOfText([button title], controlFont()) + kMarkAndRoom; }

  void add() {
    auto made = Retained<NSButton*>::adopted([[NSButton alloc] initWithFrame:NSZeroRect]);
    [made.get() setButtonType:NSRadioButton];
    [made.get() setFont:controlFont()];
    [made.get() setTag:static_cast<NSInteger>(m_buttons.size())];
    m_listener.onAct(made.get(), [this](id sender) {
      const int chosen = static_cast<int>([sender tag]);
      input().use(key(), [chosen](Control& control) { control.index = chosen; });
    });
    [view() addSubview:made.get()];
    m_buttons.push_back(std::move(made));
  }

  Listener m_listener;
  std::vector<Retained<NSButton*>> m_buttons;
};

class PopupView final : public ControlView {
 public:
  PopupView(ControlInput& input, const Control& control)
      : ControlView(input, control.key, [[NSPopUpButton alloc] initWithFrame:NSZeroRect pullsDown:NO]) {
    [popup() setFont:controlFont()];
    [popup() setAutoenablesItems:NO];
    m_listener.onAct(popup(), [this](id) {
      const int chosen = static_cast<int>([popup() indexOfSelectedItem]);
      this->input().use(this->key(), [chosen](Control& changed) { changed.index = chosen; });
    });
  }

  double naturalWidth() const override {
    double width = 0;
    for (const ControlItem& item : m_items) {
      width = std::max(width, widthOfText(foundationText(item.title), controlFont()));
    }
    return width + kArrowAndSides;
  }
  double heightFor(double) const override { return kHeight; }

 protected:
  void show(const Control& control) override {
    if (m_items != control.items) {
      m_items = control.items;
      fill();
    }
    const bool isChosen = control.index >= 0 && static_cast<std::size_t>(control.index) < m_items.size();
    [popup() selectItemAtIndex:isChosen ? control.index : -1];
    [popup() setEnabled:control.enabled];
  }
  NSString* role() const override { return NSAccessibilityPopUpButtonRole; }

 private:
  static constexpr double kArrowAndSides = 44;
  static constexpr double kHeight = 28;

  NSPopUpButton* popup() const { return static_cast<NSPopUpButton*>(view()); }

  // By the menu itself, for the popup's own way of adding leaves out a second entry of the same title.
  void fill() {
    [popup() removeAllItems];
    for (const ControlItem& entry : m_items) {
      NSMenuItem* item = entry.isSeparator ? [NSMenuItem separatorItem]
                                           : [[[NSMenuItem alloc] initWithTitle:foundationText(entry.title)
                                                                         action:nullptr
                                                                  keyEquivalent:@""] autorelease];
      if (!entry.toolTip.empty()) [item setToolTip:foundationText(entry.toolTip)];
      [item setEnabled:entry.enabled];
      [[popup() menu] addItem:item];
    }
  }

  Listener m_listener;
  std::vector<ControlItem> m_items;
};

// Typed text, and the entries of a combo box beside it.
class FieldView final : public ControlView {
 public:
  FieldView(ControlInput& input, const Control& control)
      : ControlView(input, control.key,
                    control.kind == Control::Kind::comboBox
                        ? static_cast<NSTextField*>([[vnComboField alloc] initWithFrame:NSZeroRect])
                        : [[vnField alloc] initWithFrame:NSZeroRect]),
        m_kind(control.kind) {
    [field() setFont:controlFont()];
    [[field() cell] setScrollable:YES];
    if (m_kind == Control::Kind::comboBox) {
      // An entry that is chosen is no typing, and comes as an action.
      m_listener.onAct(field(), [this](id) { typed(); });
    }
    m_listener.onTyping([this] { typed(); }, [this](std::string_view command) { return pressed(command); });
    [field() setDelegate:m_listener.object()];
  }
  ~FieldView() override { [field() setDelegate:nil]; }
  FieldView(const FieldView&) = delete;
  FieldView& operator=(const FieldView&) = delete;

  double naturalWidth() const override { return kFieldWidth; }
  double heightFor(double) const override { return kHeight + m_extraHeight; }
  bool stretches() const override { return true; }

 protected:
  void show(const Control& control) override {
    m_model = control;
    m_extraHeight = control.extraHeight;
    NSString* text = foundationText(control.text);
    // Setting it again would move the caret of who is typing.
    if (![[field() stringValue] isEqual:text]) [field() setStringValue:text];
    [[field() cell] setPlaceholderString:foundationText(control.placeholder)];
    [field() setEnabled:control.enabled];
    [field() setEditable:control.enabled];
    [field() setTextColor:colorOfText(control)];
    showFault(control);
    if (m_kind != Control::Kind::comboBox || m_items == control.items) return;
    m_items = control.items;
    NSComboBox* box = static_cast<NSComboBox*>(view());
    [box removeAllItems];
    for (const ControlItem& item : m_items) [box addItemWithObjectValue:foundationText(item.title)];
    [box setNumberOfVisibleItems:std::min<NSInteger>(kMostEntries, static_cast<NSInteger>(m_items.size()))];
  }
  NSString* role() const override {
    return m_kind == Control::Kind::comboBox ? NSAccessibilityComboBoxRole : NSAccessibilityTextFieldRole;
  }

 private:
  // The toolkit puts the text at the upper edge, so the field is as high as it.
  static constexpr double kHeight = 24;
  static constexpr NSInteger kMostEntries = 12;

  NSTextField* field() const { return static_cast<NSTextField*>(view()); }

  void showFault(const Control& control) {
    if (m_kind == Control::Kind::comboBox) {
      static_cast<vnComboField*>(view())->m_redBorderWidth = control.redBorderWidth;
    } else {
      static_cast<vnField*>(view())->m_redBorderWidth = control.redBorderWidth;
    }
    [field() setNeedsDisplay:YES];
    if (!control.errorRange && !m_hasMark) return;
    m_hasMark = control.errorRange.has_value();
    // Who is typing sees the toolkit's own editor in place of the field.
    NSTextView* editor = static_cast<NSTextView*>(static_cast<id>([field() currentEditor]));
    NSMutableAttributedString* text =
        editor ? [editor textStorage] : [[[field() attributedStringValue] mutableCopy] autorelease];
    const NSRange all = NSMakeRange(0, [text length]);
    [text removeAttribute:NSBackgroundColorAttributeName range:all];
    if (control.errorRange) {
      const NSRange wrong =
          NSIntersectionRange(all, NSMakeRange(control.errorRange->begin, control.errorRange->length));
      [text addAttribute:NSBackgroundColorAttributeName
                   value:[[NSColor redColor] colorWithAlphaComponent:0.3]
                   range:wrong];
    }
    if (!editor) [field() setAttributedStringValue:text];
  }

  void typed() {
    const std::string text = textFromFoundation([field() stringValue]);
    if (text == m_model.text) return;
    const std::string before = m_model.text;
    NSTextField* held = field();
    [[held retain] autorelease];
    if (input().use(key(), [text](Control& control) { control.text = text; })) return;
    [held setStringValue:foundationText(before)];
  }

  // The toolkit goes on with every other key: return presses a button, and a combo box shows its entries.
  bool pressed(std::string_view command) {
    const bool isOurs = command == field_key::kReturn || command == field_key::kDown ||
                        command == field_key::kUp || command == field_key::kEscape;
    if (!isOurs || !m_model.takesFieldKeys) return false;
    input().use(key() + ":" + std::string(command), nullptr);
    return true;
  }

  Control::Kind m_kind;
  Control m_model;
  double m_extraHeight = 0;
  bool m_hasMark = false;
  Listener m_listener;
  std::vector<ControlItem> m_items;
};

// Rows of which one is selected, in a view that scrolls.
class ListView final : public ControlView {
 public:
  ListView(ControlInput& input, const Control& control)
      : ControlView(input, control.key, [[NSScrollView alloc] initWithFrame:NSZeroRect]) {
    auto table = Retained<NSTableView*>::adopted([[vnListTable alloc] initWithFrame:NSZeroRect]);
    auto column = Retained<NSTableColumn*>::adopted([[NSTableColumn alloc] initWithIdentifier:@"title"]);
    [column.get() setDataCell:[[[vnListCell alloc] initTextCell:@""] autorelease]];
    [[column.get() dataCell] setFont:controlFont()];
    [[column.get() dataCell] setLineBreakMode:NSLineBreakByTruncatingTail];
    [column.get() setEditable:NO];
    [table.get() addTableColumn:column.get()];
    [table.get() setHeaderView:nil];
    [table.get() setCornerView:nil];
    [table.get() setIntercellSpacing:NSMakeSize(0, 0)];
    [table.get() setAllowsEmptySelection:YES];
    [table.get() setDataSource:m_listener.object()];
    [table.get() setDelegate:m_listener.object()];
    m_listener.showRows(m_items);
    m_listener.onAct(table.get(), [this](id) {
      const int row = static_cast<int>([m_table.get() selectedRow]);
      if (row < 0) return;
      this->input().use(this->key(), [row](Control& changed) { changed.index = row; });
    });
    [scroll() setDocumentView:table.get()];
    [scroll() setHasVerticalScroller:YES];
    [[scroll() verticalScroller] setArrowsPosition:NSScrollerArrowsNone];
    [scroll() setBorderType:NSNoBorder];
    m_table = std::move(table);
  }
  ~ListView() override {
    [m_table.get() setDataSource:nil];
    [m_table.get() setDelegate:nil];
  }
  ListView(const ListView&) = delete;
  ListView& operator=(const ListView&) = delete;

  NSView* keyView() const override { return m_table.get(); }
  double naturalWidth() const override { return kWidth; }
  double heightFor(double) const override {
    const std::size_t most = m_mostRows > 0 ? static_cast<std::size_t>(m_mostRows) : kUsualRows;
    return static_cast<double>(std::min(most, std::max<std::size_t>(1, m_items.size()))) * m_rowHeight;
  }

 protected:
  void show(const Control& control) override {
    m_mostRows = control.mostRows;
    m_rowHeight = std::max(control.rowHeight, kLeastRow);
    [m_table.get() setRowHeight:m_rowHeight];
    if (m_items != control.items) {
      m_items = control.items;
      [m_table.get() reloadData];
    }
    if (control.index < 0) {
      [m_table.get() deselectAll:nil];
    } else if (control.index < [m_table.get() numberOfRows]) {
      [m_table.get() selectRowIndexes:[NSIndexSet indexSetWithIndex:static_cast<NSUInteger>(control.index)]
                 byExtendingSelection:NO];
      [m_table.get() scrollRowToVisible:control.index];
    }
    [m_table.get() setEnabled:control.enabled];
    [m_table.get() sizeLastColumnToFit];
  }
  NSString* role() const override { return NSAccessibilityListRole; }
  NSView* spokenView() const override { return m_table.get(); }

 private:
  static constexpr double kWidth = 360;
  static constexpr double kLeastRow = 24;
  static constexpr std::size_t kUsualRows = 8;

  NSScrollView* scroll() const { return static_cast<NSScrollView*>(view()); }

  Listener m_listener;
  Retained<NSTableView*> m_table;
  std::vector<ControlItem> m_items;
  int m_mostRows = 0;
  double m_rowHeight = kLeastRow;
};

// The view measures itself, and draws chips among the text.
class TokenView final : public ControlView {
 public:
  TokenView(ControlInput& input, const Control& control)
      : ControlView(input, control.key, [[vnTokenFieldView alloc] initWithFrame:NSZeroRect]) {
    m_act = [this](const std::function<void(TokenText&)>& act) {
      // A command changes nothing here, and says what to do next through the text's input.
      this->input().use(this->key(), [act](Control& changed) { act(changed.tokens); });
    };
    field()->m_act = &m_act;
  }
  ~TokenView() override { field()->m_act = nullptr; }
  TokenView(const TokenView&) = delete;
  TokenView& operator=(const TokenView&) = delete;

  double naturalWidth() const override { return kFieldWidth; }
  double heightFor(double width) const override { return [field() heightForWidth:width] + m_extraHeight; }
  bool stretches() const override { return true; }

 protected:
  void show(const Control& control) override {
    m_extraHeight = control.extraHeight;
    [field() showControl:control];
  }
  NSString* role() const override { return NSAccessibilityTextFieldRole; }
  std::optional<std::string> spokenValue(const Control& control) const override {
    return control.tokens.inWords();
  }

 private:
  vnTokenFieldView* field() const { return static_cast<vnTokenFieldView*>(view()); }

  TokenAct m_act;
  double m_extraHeight = 0;
};

}  // namespace

std::unique_ptr<ControlView> makeControlView(const Control& control, ControlInput& input) {
  switch (control.kind) {
    case Control::Kind::window:
    case Control::Kind::box: return nullptr;
    case Control::Kind::label: return std::make_unique<LabelView>(input, control);
    case Control::Kind::link:
    case Control::Kind::button:
    case Control::Kind::checkBox:
    case Control::Kind::radioButton: return std::make_unique<ButtonView>(input, control);
    case Control::Kind::radioGroup: return std::make_unique<RadioGroupView>(input, control);
    case Control::Kind::popup: return std::make_unique<PopupView>(input, control);
    case Control::Kind::comboBox:
    case Control::Kind::textField: return std::make_unique<FieldView>(input, control);
    case Control::Kind::tokenField: return std::make_unique<TokenView>(input, control);
    case Control::Kind::list: return std::make_unique<ListView>(input, control);
  }
  return nullptr;
}

}  // namespace vorn
