// Panels as AppKit draws them, on a virtual display: what stands in the model is on the screen, and what is done
// on the screen stands in the model.

#import <AppKit/AppKit.h>
#import <Foundation/NSDebug.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "platform/apple/Conversions.h"
#import "platform/apple/appkit/AppKitPanels.h"
#import "platform/apple/appkit/TokenFieldView.h"

namespace {

std::set<NSView*>& readable() {
  static std::set<NSView*> views;
  return views;
}

}  // namespace

// As a toolkit does that tells assistive programs of its views.
@implementation NSView (Readable)
- (void)setAccessibilityElement:(BOOL)isElement {
  if (isElement) readable().insert(self);
}
@end

namespace vorn {
namespace {

using Kind = Control::Kind;
using testing::ElementsAre;
using testing::IsEmpty;

std::string textOf(NSString* text) { return textFromFoundation(text); }

class Screen : public testing::Test {
 protected:
  Screen() {
    [NSApplication sharedApplication];
    layout = {{{"all",
                "All",
                {{{{"label"}, {"link"}}},
                 {{{"check"}}},
                 {{{"radio"}}},
                 {{{"group"}}},
                 {{{"popup"}}, "Popup of the row"},
                 {{{"name"}, {"field"}}},
                 {{{"combo"}}, "Combo"},
                 {{{"tokens"}}, "People"},
                 {{{"offers"}}},
                 {{{"offersRows"}}},
                 {{{"cancel"}, {"go"}}}}}}};
    controls.add(Kind::label, "label").text = "Words";
    controls.add(Kind::link, "link").text = "more";
    controls.add(Kind::checkBox, "check").text = "Switch";
    controls.add(Kind::radioButton, "radio").text = "Choice";
    Control& group = controls.add(Kind::radioGroup, "group");
    group.text = "Group";
    group.items = {{"On"}, {"Off"}};
    controls.add(Kind::popup, "popup").items = {
        {"One"}, ControlItem::separator(), {"One"}, ControlItem::heading("No")};
    controls.add(Kind::label, "name").text = "Name";
    controls.add(Kind::textField, "field").formatter = vnMaxLengthFormatter(5);
    controls.add(Kind::comboBox, "combo").items = {{"Blue"}, {"Green"}};
    controls.add(Kind::tokenField, "tokens").placeholder = "somebody";
    controls.add(Kind::window, "offers").hidden = true;
    controls.add(Kind::list, "offersRows", "offers").items = {{"Ann"}, {"Ben"}};
    controls.find("offersRows")->text = "Offers";
    controls.add(Kind::button, "cancel").text = "Cancel";
    controls.add(Kind::button, "go").text = "Go";
  }
  ~Screen() override { panel.reset(); }

  void show() {
    panel = AppKitPanels().show(nil, "Panel", layout, controls, [this](const std::string& key) {
      used.push_back(key);
      if (then) then(key);
    });
  }
  const DrawnPanel& drawn() const { return static_cast<const DrawnPanel&>(*panel); }
  template <typename View = NSControl*>
  View view(const std::string& key) {
    return static_cast<View>(static_cast<id>(drawn().view(key)->view()));
  }
  bool isOnScreen(const std::string& key) { return ![view(key) isHiddenOrHasHiddenAncestor]; }
  void change(const std::string& key, const std::function<void(Control&)>& act) {
    const ControlSet::Change step(controls);
    act(*controls.find(key));
  }
  void type(const std::string& key, NSString* text) {
    NSTextField* field = view<NSTextField*>(key);
    [field setStringValue:text];
    [static_cast<id>([field delegate]) controlTextDidChange:[NSNotification notificationWithName:@"typed"
                                                                                          object:field]];
  }
  static void act(NSControl* control) { [control sendAction:[control action] to:[control target]]; }
  std::vector<std::string> takeUsed() { return std::exchange(used, {}); }

  NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
  ControlSet controls;
  PanelLayout layout;
  std::unique_ptr<Presenter::Panel> panel;
  std::vector<std::string> used;
  std::function<void(const std::string&)> then;
};

TEST_F(Screen, WhatStandsInTheModelIsOnTheScreen) {
  show();
  const struct {
    const char* key;
    std::function<void(Control&)> act;
    std::function<bool(NSControl*)> isSeen;
  } cases[] = {
      {"label", [](Control& c) { c.text = "Others"; },
       [](NSControl* v) { return [[v stringValue] isEqual:@"Others"]; }},
      {"link", [](Control& c) { c.text = "less"; },
       [](NSControl* v) { return [[static_cast<NSButton*>(v) title] isEqual:@"less"]; }},
      {"check", [](Control& c) { c.on = true; },
       [](NSControl* v) { return [static_cast<NSButton*>(v) state] == NSOnState; }},
      {"check", [](Control& c) { c.on = false; },
       [](NSControl* v) { return [static_cast<NSButton*>(v) state] == NSOffState; }},
      {"check",
       [](Control& c) {
         c.enabled = false;
         c.note = "locked by the account";
         c.reason = "isSwitchLocked";
       },
       [](NSControl* v) { return ![v isEnabled] && [[v toolTip] isEqual:@"locked by the account"]; }},
      {"radio", [](Control& c) { c.on = true; },
       [](NSControl* v) { return [static_cast<NSButton*>(v) state] == NSOnState; }},
      {"popup", [](Control& c) { c.index = 2; },
       [](NSControl* v) { return [static_cast<NSPopUpButton*>(v) indexOfSelectedItem] == 2; }},
      {"popup",
       [](Control& c) {
         c.items = {{"New"}};
         c.index = 0;
       },
       [](NSControl* v) { return [[static_cast<NSPopUpButton*>(v) titleOfSelectedItem] isEqual:@"New"]; }},
      {"field", [](Control& c) { c.text = "longer than five"; },
       [](NSControl* v) { return [[v stringValue] isEqual:@"longer than five"]; }},
      {"combo", [](Control& c) { c.text = "Green"; },
       [](NSControl* v) { return [[v stringValue] isEqual:@"Green"]; }},
      {"go", [](Control& c) { c.enabled = false; }, [](NSControl* v) { return ![v isEnabled]; }},
      {"label", [](Control& c) { c.hidden = true; }, [](NSControl* v) { return [v isHidden]; }},
  };
  for (const auto& each : cases) {
    change(each.key, each.act);
    EXPECT_TRUE(each.isSeen(view(each.key))) << each.key << " " << textOf([view(each.key) stringValue]);
  }
  NSArray* group = [view<NSView*>("group") subviews];
  change("group", [](Control& control) { control.index = 1; });
  EXPECT_EQ([[group objectAtIndex:0] state], NSOffState);
  EXPECT_EQ([[group objectAtIndex:1] state], NSOnState);
  EXPECT_THAT(used, IsEmpty());
}

TEST_F(Screen, WhatIsDoneOnTheScreenStandsInTheModel) {
  show();
  [view<NSButton*>("check") performClick:nil];
  EXPECT_TRUE(controls.isOn("check"));
  [view<NSButton*>("check") performClick:nil];
  EXPECT_FALSE(controls.isOn("check"));
  [view<NSButton*>("radio") performClick:nil];
  [view<NSButton*>("radio") performClick:nil];
  EXPECT_TRUE(controls.isOn("radio"));
  [[[view<NSView*>("group") subviews] objectAtIndex:1] performClick:nil];
  EXPECT_EQ(controls.find("group")->index, 1);
  [view<NSPopUpButton*>("popup") selectItemAtIndex:2];
  act(view("popup"));
  EXPECT_EQ(controls.find("popup")->index, 2);
  type("field", @"né");
  EXPECT_EQ(controls.find("field")->text, "né");
  [view<NSComboBox*>("combo") setStringValue:@"Blue"];
  act(view("combo"));
  EXPECT_EQ(controls.find("combo")->text, "Blue");
  [view<NSButton*>("go") performClick:nil];
  [view<NSButton*>("link") performClick:nil];
  EXPECT_THAT(takeUsed(),
              ElementsAre("check", "check", "radio", "radio", "group", "popup", "field", "combo", "go", "link"));
  change("offers", [](Control& control) { control.hidden = false; });
  NSTableView* rows = [view<NSScrollView*>("offersRows") documentView];
  [rows selectRowIndexes:[NSIndexSet indexSetWithIndex:1] byExtendingSelection:NO];
  act(rows);
  EXPECT_EQ(controls.find("offersRows")->index, 1);
}

TEST_F(Screen, WhatTheModelRefusesStandsNoLongerOnTheScreen) {
  controls.find("field")->text = "abc";
  show();
  type("field", @"abcdef");
  EXPECT_EQ(textOf([view("field") stringValue]), "abc");
  [view<NSPopUpButton*>("popup") selectItemAtIndex:3];
  act(view("popup"));
  EXPECT_EQ([view<NSPopUpButton*>("popup") indexOfSelectedItem], 0);
  EXPECT_THAT(used, IsEmpty());
}

TEST_F(Screen, ATokenFieldTakesKeysAndShowsChips) {
  show();
  vnTokenFieldView* field = view<vnTokenFieldView*>("tokens");
  [field insertText:@"annb"];
  [field moveLeft:nil];
  [field deleteForward:nil];
  EXPECT_EQ(controls.find("tokens")->tokens.inWords(), "ann");
  [field insertNewline:nil];
  EXPECT_EQ(controls.find("tokens")->tokens.takeInput().command, TokenText::Key::newLine);
  change("tokens", [](Control& c) {
    c.tokens.replace(
        {0, 3}, {{"", TokenChip{"Ann with a name as long as some people have"}}, {"x"}, {"", TokenChip{"Ben"}}});
  });
  const auto& pieces = [field fragments];
  ASSERT_EQ(pieces.size(), 3u);
  EXPECT_TRUE(pieces[0].isChip && !pieces[1].isChip && pieces[2].isChip);
  EXPECT_GE(NSMinX(pieces[1].place), NSMaxX(pieces[0].place));
  const std::pair<const char*, std::size_t> ends[] = {{"moveToLeftEndOfLine:", 0},
                                                      {"moveToRightEndOfLine:", 3},
                                                      {"moveToBeginningOfParagraph:", 0},
                                                      {"moveToEndOfParagraph:", 3}};
  for (const auto& [command, end] : ends) {
    [field doCommandBySelector:NSSelectorFromString(foundationText(std::string_view(command)))];
    EXPECT_EQ(controls.find("tokens")->tokens.caret(), end) << command;
  }
  [field selectAll:nil];
  [field deleteBackward:nil];
  EXPECT_EQ(controls.find("tokens")->tokens.length(), 0u);
}

TEST_F(Screen, ViewsThatAreNoControlsOfTheToolkitAreReadAllTheSame) {
  readable().clear();
  show();
  EXPECT_THAT(readable(), testing::UnorderedElementsAre(view<NSView*>("group"), view<NSView*>("tokens")));
  change("tokens", [](Control& c) { c.tokens.replace({0, 0}, {{"", TokenChip{"Ben"}}, {"an"}}); });
  EXPECT_EQ(drawn().view("tokens")->spoken().value, "[Ben]an");
  EXPECT_EQ(drawn().view("field")->spoken().value, std::nullopt) << "the toolkit knows it";
}

TEST_F(Screen, LongTextsStayInsideATokenField) {
  std::string text;
  for (int i = 0; i < 2500; ++i) text += i % 7 == 0 ? "e\xCC\x81 " : "שלום";
  controls.find("tokens")->tokens.paste(text);
  show();
  vnTokenFieldView* field = view<vnTokenFieldView*>("tokens");
  std::size_t covered = 0;
  for (const TokenFragment& piece : [field fragments]) {
    EXPECT_EQ(piece.range.begin, covered);
    EXPECT_LE(NSMaxX(piece.place), NSMaxX([field bounds]));
    NSString* words = foundationText(controls.find("tokens")->tokens.text(piece.range));
    EXPECT_EQ(NSWidth(piece.place), widthOfText(words, [NSFont systemFontOfSize:[NSFont systemFontSize]]))
        << "the caret stands behind it";
    covered = piece.range.end();
  }
  EXPECT_EQ(covered, controls.find("tokens")->tokens.length());
  EXPECT_GE([field heightForWidth:NSWidth([field bounds])], NSMaxY([field fragments].back().place));
  EXPECT_FALSE(NSContainsRect([field visibleRect], [field fragments].back().place));
  [field insertText:@"x"];
  EXPECT_TRUE(NSContainsRect([field visibleRect], [field fragments].back().place)) << "where the person types";
}

TEST_F(Screen, ATextThatDoesNotFitEndsWithAnEllipsis) {
  NSFont* font = [NSFont systemFontOfSize:[NSFont systemFontSize]];
  std::string accents;
  for (int i = 0; i < 5000; ++i) accents += "e\xCC\x81";
  for (const std::string& text : {std::string(10000, 'i'), std::string(10000, 'W'), accents}) {
    const std::string shown = textOf(textWithin(foundationText(text), font, 120));
    EXPECT_LE(widthOfText(foundationText(shown), font), 120);
    EXPECT_GT(widthOfText(foundationText(shown), font), 90);
    EXPECT_EQ(shown, text.substr(0, shown.size() - 3) + "…");
    EXPECT_NE(text[shown.size() - 3], '\xCC') << "no letter is torn";
  }
  EXPECT_EQ(textOf(textWithin(@"fits", font, 120)), "fits");
  EXPECT_EQ(textOf(textWithin(@"nothing", font, 0)), "…");
}

TEST_F(Screen, TheTabKeyGoesThroughWhatCanBeUsedFromAboveToBelow) {
  show();
  const auto order = [&] {
    std::vector<std::string> keys;
    for (NSView* each : drawn().page("")->keyOrder()) {
      for (const std::string& key : controls.keys()) {
        const ControlView* shown = drawn().view(key);
        if (shown && (shown->view() == each || [each superview] == shown->view())) keys.push_back(key);
      }
    }
    return keys;
  };
  EXPECT_THAT(order(), ElementsAre("link", "check", "radio", "group", "group", "popup", "field", "combo", "tokens",
                                   "cancel", "go"));
  change("check", [](Control& control) { control.enabled = false; });
  change("combo", [](Control& control) { control.hidden = true; });
  EXPECT_THAT(order(), ElementsAre("link", "radio", "group", "group", "popup", "field", "tokens", "cancel", "go"));
  const auto& views = drawn().page("")->keyOrder();
  for (std::size_t i = 0; i < views.size(); ++i) {
    EXPECT_EQ([views[i] nextKeyView], views[(i + 1) % views.size()]) << i;
  }
}

TEST_F(Screen, AWindowOfThePanelComesAndGoesWithItsControl) {
  show();
  EXPECT_FALSE(drawn().page("offers")->isShown());
  [view<vnTokenFieldView*>("tokens") insertText:@"a"];
  change("offers", [](Control& control) { control.hidden = false; });
  EXPECT_TRUE(drawn().page("offers")->isShown());
  // It hangs below the field in which the person types.
  NSView* field = view<NSView*>("tokens");
  const NSRect inWindow = [field convertRect:[field bounds] toView:nil];
  const NSPoint corner = [[field window] convertBaseToScreen:inWindow.origin];
  EXPECT_LE(NSMaxY([drawn().page("offers")->window() frame]), corner.y + 1);
  // And stays there when something else is used.
  const NSPoint before = [drawn().page("offers")->window() frame].origin;
  type("field", @"x");
  EXPECT_TRUE(NSEqualPoints([drawn().page("offers")->window() frame].origin, before));
  change("offers", [](Control& control) { control.hidden = true; });
  EXPECT_FALSE([drawn().page("offers")->window() isVisible]);
  // Above it where there is no room below.
  [view<vnTokenFieldView*>("tokens") insertText:@"b"];
  const NSPoint lowest = NSMakePoint(20, -inWindow.origin.y + 4);
  [[field window] setFrameOrigin:lowest];
  change("offers", [](Control& control) { control.hidden = false; });
  const NSRect list = [drawn().page("offers")->window() frame];
  const NSPoint moved = [[field window] convertBaseToScreen:inWindow.origin];
  EXPECT_GE(NSMinY(list), moved.y + NSHeight(inWindow));
  EXPECT_GE(NSMinX(list), moved.x);
}

TEST_F(Screen, WhyARowIsLockedStandsBesideIt) {
  show();
  const auto notes = [this] {
    std::vector<std::string> texts;
    NSEnumerator* beside = [[[view<NSView*>("check") superview] subviews] objectEnumerator];
    while (NSView* each = [beside nextObject]) {
      if (![each isHidden] && [each isKindOfClass:[NSTextField class]])
        texts.push_back(textOf([static_cast<NSTextField*>(static_cast<id>(each)) stringValue]));
    }
    return texts;
  };
  const auto lock = [this](bool isLocked) {
    change("check", [=](Control& control) {
      control.enabled = !isLocked;
      control.note = isLocked ? "locked by the account" : "";
      control.reason = isLocked ? "isSwitchLocked" : "";
    });
  };
  lock(true);
  EXPECT_THAT(notes(), testing::Contains("locked by the account"));
  lock(false);
  EXPECT_THAT(notes(), testing::Not(testing::Contains("locked by the account")));
}

TEST_F(Screen, AFaultThatAppearsComesIntoSight) {
  for (const char* key : {"above", "below"}) {
    layout.sections.front().rows.push_back({{{key}}});
    controls.add(Kind::label, key).text = "wrong";
    controls.find(key)->isRed = controls.find(key)->hidden = true;
    for (int i = 0; i < 60 && std::string_view(key) == "above"; ++i) {
      const std::string row = "row" + std::to_string(i);
      layout.sections.front().rows.push_back({{{row}}});
      controls.add(Kind::checkBox, row).text = row;
    }
  }
  show();
  for (const char* key : {"below", "above"}) {
    change(key, [](Control& control) { control.hidden = false; });
    EXPECT_GT([view(key) visibleRect].size.height, 5) << key;
  }
  // It is told once, and the person may look elsewhere then.
  [view("below") scrollRectToVisible:[view("below") bounds]];
  change("check", [](Control& control) { control.on = true; });
  EXPECT_GT([view("below") visibleRect].size.height, 5);
}

TEST_F(Screen, AControlThatComesLaterIsDrawnAndOneThatGoesIsNot) {
  show();
  {
    const ControlSet::Change step(controls);
    controls.add(Kind::checkBox, "late").text = "Late";
    controls.remove("label");
  }
  EXPECT_TRUE(isOnScreen("late"));
  EXPECT_EQ(drawn().view("label"), nullptr);
  [view<NSButton*>("late") performClick:nil];
  EXPECT_TRUE(controls.isOn("late"));
}

TEST_F(Screen, WhoIsTypingGoesOnTypingWhenAControlComes) {
  controls.find("field")->text = "abc";
  show();
  NSWindow* window = drawn().page("")->window();
  [window makeFirstResponder:view("field")];
  NSText* editor = [view<NSTextField*>("field") currentEditor];
  [editor setSelectedRange:NSMakeRange(1, 1)];
  {
    const ControlSet::Change step(controls);
    controls.add(Kind::checkBox, "late").text = "Late";
  }
  ASSERT_NE(editor, nil);
  EXPECT_EQ(static_cast<id>([window firstResponder]), static_cast<id>(editor));
  EXPECT_TRUE(NSEqualRanges([editor selectedRange], NSMakeRange(1, 1)));
}

TEST_F(Screen, AKeyGoesToTheWindowUnlessTheRulesOfItsFieldWantIt) {
  controls.add(Kind::box, "box");
  controls.find("field")->box = "box";
  layout.sections.front().rows.insert(layout.sections.front().rows.begin(), {{{"search"}}});
  controls.add(Kind::textField, "search").takesFieldKeys = true;
  show();
  const struct {
    const char* key;
    bool isTaken;
  } cases[] = {{"field", false}, {"combo", false}, {"search", true}};
  for (const auto& each : cases) {
    NSTextField* field = view<NSTextField*>(each.key);
    for (const char* command : {"insertNewline", "moveDown", "moveUp", "cancelOperation"}) {
      const SEL selector = NSSelectorFromString(foundationText(std::string(command) + ":"));
      EXPECT_EQ([static_cast<id>([field delegate]) control:field textView:nil doCommandBySelector:selector],
                each.isTaken)
          << each.key << " " << command;
      const std::vector<std::string> told{std::string(each.key) + ":" + command};
      EXPECT_EQ(takeUsed(), each.isTaken ? told : std::vector<std::string>());
    }
  }
  change("offers", [](Control& control) { control.hidden = false; });
  [view<vnTokenFieldView*>("tokens") cancelOperation:nil];
  EXPECT_THAT(takeUsed(), ElementsAre("tokens", "cancel")) << "what has dropped down is another field's";
  then = [this](const auto&) { controls.find("offers")->hidden = true; };
  for (const auto& each : {std::vector<std::string>{"tokens"}, {"tokens", "cancel"}}) {
    [view<vnTokenFieldView*>("tokens") cancelOperation:nil];
    EXPECT_EQ(takeUsed(), each) << "the list alone is meant as long as there is one";
  }
}

TEST_F(Screen, ASheetThatGrowsStaysOnTheScreen) {
  controls.find("popup")->hidden = controls.find("combo")->hidden = true;
  show();
  NSWindow* window = drawn().page("")->window();
  [window setFrameOrigin:NSMakePoint(20, 4)];
  change("popup", [](Control& control) { control.hidden = false; });
  change("combo", [](Control& control) { control.hidden = false; });
  EXPECT_TRUE(NSContainsRect([[NSScreen mainScreen] visibleFrame], [window frame]))
      << textOf(NSStringFromRect([window frame]));
}

TEST_F(Screen, WhatIsPressedMayEndThePanel) {
  show();
  then = [this](const std::string&) { panel.reset(); };
  NSButton* pressed = view<NSButton*>("go");
  [pressed performClick:nil];
  EXPECT_EQ(panel, nullptr);
  show();
  type("field", @"x");
  EXPECT_EQ(panel, nullptr);
  EXPECT_TRUE(DrawnPanel::open().empty());
}

TEST_F(Screen, PanelsThatHaveClosedLeaveNoViewsBehind) {
  // The windows and what hears their views are let go of when the loop comes round.
  const auto count = [] {
    int count = 0;
    for (NSString* name :
         {@"vnPanelWindow", @"vnControlListener", @"vnTokenFieldView", @"NSButton", @"NSPopUpButton"}) {
      count += GSDebugAllocationCount(NSClassFromString(name));
    }
    return count;
  };
  const auto living = [&] {
    int before = 0;
    for (int still = 0, turns = 0; still < 5 && turns < 100; ++turns) {
      NSAutoreleasePool* turn = [[NSAutoreleasePool alloc] init];
      [[NSRunLoop currentRunLoop] runUntilDate:[NSDate dateWithTimeIntervalSinceNow:0.05]];
      [turn drain];
      still = count() == before ? still + 1 : 0;
      before = count();
    }
    return before;
  };
  const auto openAndClose = [&](int times) {
    for (int i = 0; i < times; ++i) {
      NSAutoreleasePool* turn = [[NSAutoreleasePool alloc] init];
      show();
      panel.reset();
      [turn drain];
    }
  };
  // What other tests have let go of goes first.
  living();
  GSDebugAllocationActive(YES);
  openAndClose(2);
  const int before = living();
  NSAutoreleasePool* turn = [[NSAutoreleasePool alloc] init];
  show();
  EXPECT_GT(living(), before) << "they are counted";
  panel.reset();
  [turn drain];
  openAndClose(50);
  EXPECT_EQ(living(), before);
  GSDebugAllocationActive(NO);
}

}  // namespace
}  // namespace vorn
