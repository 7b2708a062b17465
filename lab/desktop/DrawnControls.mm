#import "lab/desktop/DrawnControls.h"

#include <algorithm>

#import "lab/desktop/RealHand.h"
#import "lab/objc/HostClasses.h"
#import "platform/apple/appkit/TokenFieldView.h"

namespace vornlab {

namespace {

using vorn::Control;
using vorn::ControlItem;
using vorn::ControlUse;
using vorn::TokenText;

template <typename View>
View* as(NSView* view) {
  return [view isKindOfClass:[View class]] ? static_cast<View*>(static_cast<id>(view)) : nil;
}

// Its class is the library's, which is loaded with the first panel.
vnTokenFieldView* asTokens(NSView* view) {
  return [view isKindOfClass:NSClassFromString(@"vnTokenFieldView")]
             ? static_cast<vnTokenFieldView*>(static_cast<id>(view))
             : nil;
}

bool isSeen(NSView* view) { return ![view isHiddenOrHasHiddenAncestor] && [[view window] isVisible]; }

std::vector<NSButton*> buttonsIn(NSView* group) {
  std::vector<NSButton*> buttons;
  NSEnumerator* each = [[group subviews] objectEnumerator];
  while (NSView* view = [each nextObject]) {
    if (NSButton* button = as<NSButton>(view)) buttons.push_back(button);
  }
  return buttons;
}

// Whether its border is red where it is drawn.
bool hasRedBorder(NSView* field) {
  if (!isSeen(field)) return false;
  [field scrollRectToVisible:[field bounds]];
  [[field window] display];
  [field lockFocus];
  NSBitmapImageRep* drawn = [[[NSBitmapImageRep alloc]
      initWithFocusedViewRect:NSMakeRect(0, 0, 6, [field bounds].size.height)] autorelease];
  [field unlockFocus];
  const NSInteger middle = [drawn pixelsHigh] / 2;
  for (NSInteger x = 0; x < [drawn pixelsWide]; ++x) {
    NSColor* color = [[drawn colorAtX:x y:middle] colorUsingColorSpaceName:NSCalibratedRGBColorSpace];
    if ([color redComponent] > 0.7 && [color greenComponent] < 0.45 && [color blueComponent] < 0.45) return true;
  }
  return false;
}

Control::Kind kindOf(const vorn::ControlView& drawn) {
  NSView* view = drawn.view();
  if (asTokens(view)) return Control::Kind::tokenField;
  if (as<NSScrollView>(view)) return Control::Kind::list;
  if (as<NSPopUpButton>(view)) return Control::Kind::popup;
  if (as<NSComboBox>(view)) return Control::Kind::comboBox;
  if (NSTextField* field = as<NSTextField>(view)) {
    return [field isBezeled] || [field isBordered] ? Control::Kind::textField : Control::Kind::label;
  }
  if (!as<NSButton>(view)) return Control::Kind::radioGroup;
  NSString* role = drawn.spoken().role;
  if ([role isEqual:NSAccessibilityCheckBoxRole]) return Control::Kind::checkBox;
  if ([role isEqual:NSAccessibilityRadioButtonRole]) return Control::Kind::radioButton;
  return [role isEqual:NSAccessibilityLinkRole] ? Control::Kind::link : Control::Kind::button;
}

ControlItem itemWith(NSString* title, bool isEnabled) {
  ControlItem item(plainText(title));
  item.enabled = isEnabled;
  return item;
}

void readPopup(NSPopUpButton* popup, Control& seen) {
  NSEnumerator* entries = [[popup itemArray] objectEnumerator];
  while (NSMenuItem* entry = [entries nextObject]) {
    seen.items.push_back([entry isSeparatorItem] ? ControlItem::separator()
                                                 : itemWith([entry title], [entry isEnabled]));
  }
  seen.index = static_cast<int>([popup indexOfSelectedItem]);
}

void readList(NSTableView* table, Control& seen) {
  NSTableColumn* column = [[table tableColumns] objectAtIndex:0];
  for (NSInteger row = 0; row < [table numberOfRows]; ++row) {
    seen.items.push_back(
        itemWith([[table dataSource] tableView:table objectValueForTableColumn:column row:row], true));
  }
  seen.index = static_cast<int>([table selectedRow]);
}

void readCombo(NSComboBox* box, Control& seen) {
  NSEnumerator* values = [[box objectValues] objectEnumerator];
  while (NSString* value = [values nextObject]) seen.items.push_back(itemWith(value, true));
  const auto chosen = std::find_if(seen.items.begin(), seen.items.end(),
                                   [&seen](const ControlItem& item) { return item.title == seen.text; });
  if (chosen != seen.items.end()) seen.index = static_cast<int>(chosen - seen.items.begin());
}

void readGroup(NSView* group, Control& seen) {
  seen.enabled = false;
  for (NSButton* button : buttonsIn(group)) {
    if ([button state] == NSOnState) seen.index = static_cast<int>(seen.items.size());
    seen.enabled = seen.enabled || [button isEnabled];
    seen.items.push_back(itemWith([button title], [button isEnabled]));
  }
}

bool hasKeyboard(const vorn::ControlView& drawn) {
  const id first = [[drawn.view() window] firstResponder];
  if (!first) return false;
  if (first == drawn.keyView()) return true;
  NSTextField* field = as<NSTextField>(drawn.view());
  return field && [field currentEditor] && static_cast<id>([field currentEditor]) == first;
}

Control readView(const vorn::ControlView& drawn, const std::string& key) {
  NSView* view = drawn.view();
  Control seen;
  seen.kind = kindOf(drawn);
  seen.key = key;
  seen.hidden = !isSeen(view);
  seen.toolTip = plainText([view toolTip]);
  seen.spoken = drawn.spoken().label;
  seen.isFocused = hasKeyboard(drawn);
  seen.index = -1;
  if (NSControl* control = as<NSControl>(view)) seen.enabled = [control isEnabled];
  switch (seen.kind) {
    case Control::Kind::popup: readPopup(as<NSPopUpButton>(view), seen); break;
    case Control::Kind::comboBox:
      seen.text = plainText([as<NSTextField>(view) stringValue]);
      readCombo(as<NSComboBox>(view), seen);
      break;
    case Control::Kind::list: {
      NSTableView* table = static_cast<NSTableView*>([as<NSScrollView>(view) documentView]);
      seen.enabled = [table isEnabled];
      readList(table, seen);
      break;
    }
    case Control::Kind::radioGroup: readGroup(view, seen); break;
    case Control::Kind::tokenField:
      seen.enabled = [view acceptsFirstResponder];
      seen.tokens.replace({0, 0}, [asTokens(view) piecesOnScreen]);
      break;
    case Control::Kind::label:
    case Control::Kind::textField: seen.text = plainText([as<NSTextField>(view) stringValue]); break;
    default:
      seen.text = plainText([as<NSButton>(view) title]);
      seen.on = [as<NSButton>(view) state] == NSOnState;
      break;
  }
  if (isTypedInto(seen.kind) && hasRedBorder(view)) seen.redBorderWidth = 1;
  return seen;
}

// -- The hand

ControlUse doneIf(bool isDone) { return isDone ? ControlUse::done : ControlUse::refused; }

bool choose(const vorn::ControlView& drawn, Control::Kind kind, int index) {
  NSView* view = drawn.view();
  switch (kind) {
    case Control::Kind::popup: {
      NSPopUpButton* popup = as<NSPopUpButton>(view);
      if (![[popup itemAtIndex:index] isEnabled]) return false;
      [[popup menu] performActionForItemAtIndex:index];
      return true;
    }
    case Control::Kind::comboBox: {
      NSComboBox* box = as<NSComboBox>(view);
      // What the toolkit does with an entry of the list that is clicked.
      [box selectItemAtIndex:index];
      [box setStringValue:[box objectValueOfSelectedItem]];
      return [box sendAction:[box action] to:[box target]];
    }
    case Control::Kind::list: {
      NSTableView* table = static_cast<NSTableView*>([as<NSScrollView>(view) documentView]);
      return clickOn(table, [table rectOfRow:index]);
    }
    case Control::Kind::radioGroup: return clickOn(buttonsIn(view)[static_cast<std::size_t>(index)]);
    default: return false;
  }
}

unichar characterOf(TokenText::Key key) {
  switch (key) {
    case TokenText::Key::up: return NSUpArrowFunctionKey;
    case TokenText::Key::down: return NSDownArrowFunctionKey;
    case TokenText::Key::left: return NSLeftArrowFunctionKey;
    case TokenText::Key::right: return NSRightArrowFunctionKey;
    case TokenText::Key::newLine: return NSCarriageReturnCharacter;
    case TokenText::Key::tab: return NSTabCharacter;
    case TokenText::Key::escape: return 0x1b;
    default: return NSDeleteCharacter;
  }
}

// As the tab key does, which leaves the caret where it was.
bool giveKeyboard(const vorn::ControlView& drawn) {
  if (hasKeyboard(drawn)) return true;
  NSWindow* window = [drawn.view() window];
  if (![window isKeyWindow]) [window makeKeyAndOrderFront:nil];
  return [window makeFirstResponder:drawn.keyView()];
}

void paste(NSString* text) {
  NSPasteboard* board = [NSPasteboard generalPasteboard];
  [board declareTypes:[NSArray arrayWithObject:NSStringPboardType] owner:nil];
  [board setString:text forType:NSStringPboardType];
  [NSApp sendAction:@selector(paste:) to:nil from:nil];
}

ControlUse apply(const vorn::ControlView& drawn, const Control& seen, const PanelDeed& deed) {
  NSView* view = drawn.view();
  NSWindow* window = [[[view window] retain] autorelease];
  [[view retain] autorelease];
  switch (deed.kind) {
    case PanelDeed::Kind::click: return doneIf(as<NSButton>(view) && clickOn(view));
    case PanelDeed::Kind::turn: return doneIf(clickOn(view));
    case PanelDeed::Kind::choose: return doneIf(choose(drawn, seen.kind, deed.index));
    case PanelDeed::Kind::write: {
      NSTextField* field = as<NSTextField>(view);
      NSString* text = foundationText(std::string_view(deed.text));
      if (!field || !typeOver(field, text)) return ControlUse::refused;
      // The panel may make something else of it, and refuses it where it leaves what stood there.
      const std::string now = plainText([field stringValue]);
      return doneIf(now == deed.text || now != seen.text);
    }
    default: break;
  }
  if (!giveKeyboard(drawn)) return ControlUse::refused;
  if (deed.kind == PanelDeed::Kind::press) {
    pressKey(window, characterOf(deed.key));
  } else if (deed.kind == PanelDeed::Kind::type) {
    typeKeys(window, foundationText(std::string_view(deed.text)));
  } else {
    paste(foundationText(std::string_view(deed.text)));
  }
  return ControlUse::done;
}

}  // namespace

std::optional<Control> readDrawn(const vorn::DrawnPanel& panel, const std::string& key) {
  if (const vorn::ControlView* drawn = panel.view(key)) return readView(*drawn, key);
  const auto nothing = [&key](bool isShown) {
    Control seen;
    seen.key = key;
    seen.hidden = !isShown;
    return seen;
  };
  if (const vorn::PanelPage* page = key.empty() ? nullptr : panel.page(key))
    return nothing([page->window() isVisible]);
  const std::vector<std::string> inside = panel.inBox(key);
  if (!panel.holds(key)) return std::nullopt;
  return nothing(std::any_of(inside.begin(), inside.end(), [&panel](const std::string& each) {
    const vorn::ControlView* drawn = panel.view(each);
    return drawn && isSeen(drawn->view());
  }));
}

ControlUse useDrawn(const vorn::DrawnPanel& panel, const std::string& key, const PanelDeed& deed) {
  const auto seen = readDrawn(panel, key);
  const vorn::ControlView* drawn = panel.view(key);
  if (!seen || !drawn) return ControlUse::noControl;
  if (seen->hidden) return ControlUse::hidden;
  if (!seen->enabled) return ControlUse::disabled;
  return apply(*drawn, *seen, deed);
}

}  // namespace vornlab
