#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls/TextRange.h"
#include "platform/controls/TokenText.h"
#include "platform/controls/vnMaxLengthFormatter.h"

namespace vorn {

// One entry of a popup, or one column of a radio group.
struct ControlItem {
  std::string title;
  // The whole title where the shown one was cut; "" otherwise.
  std::string toolTip{};
  // A heading stands among the entries and cannot be chosen, nor can the line between two groups of them.
  bool enabled = true;
  bool isSeparator = false;

  // NOLINTNEXTLINE(google-explicit-constructor): a title alone is an entry.
  ControlItem(std::string itemTitle) : title(std::move(itemTitle)) {}
  ControlItem(std::string itemTitle, std::string wholeTitle)
      : title(std::move(itemTitle)), toolTip(std::move(wholeTitle)) {}
  static ControlItem heading(std::string title);
  static ControlItem separator();

  bool operator==(const ControlItem&) const = default;
};

// One control of a window as rules see it: what it shows, and whether it can be used. A front end draws it.
//
// The kind says which properties count; the others keep their first value.
struct Control {
  enum class Kind {
    window,       // a window of its own, attached to the sheet; closed while it is hidden
    box,          // a group of controls that is hidden as one
    label,        // text
    link,         // text that can be clicked
    button,       // text that can be clicked, and no state
    checkBox,     // text and `on`
    radioButton,  // text and `on`; others go off when it goes on, as the rules say
    radioGroup,   // items, of which the one at the index is chosen
    popup,        // likewise
    comboBox,     // text that the user types, or takes from the items
    textField,    // text that the user types
    tokenField,   // tokens: text that the user types, and chips in it
    list,         // items in rows, of which the one at the index is selected; -1 for none
  };

  std::string key;
  Kind kind = Kind::label;
  // The key of the window or box that it stands in; "" for the sheet itself.
  std::string box{};
  bool hidden = false;
  bool enabled = true;
  bool on = false;
  std::string text{};
  std::vector<ControlItem> items{};
  int index = 0;
  std::string toolTip{};
  // What assistive programs say of it; "" for its text.
  std::string spoken{};
  // Of a field of tokens.
  TokenText tokens{};
  // Points by which a field is taller than one that needs no room for more lines.
  double extraHeight = 0;
  // Of a list: the height of a row in points, and how many rows show without scrolling.
  double rowHeight = 0;
  int mostRows = 0;
  // Of a text field: the keys of FieldKeys.h belong to it, and not to the buttons of its window.
  bool takesFieldKeys = false;
  // Shown in a field that is empty.
  std::string placeholder{};
  // Of a field; absent takes any text.
  std::optional<vnMaxLengthFormatter> formatter{};
  // A red border around a field, in points; 0 for none.
  double redBorderWidth = 0;
  // The piece of a field's text that is wrong, drawn on red; absent for none.
  std::optional<TextRange> errorRange{};
  // The text is red, because what it says is a fault.
  bool isRed = false;
  // It has the keyboard.
  bool isFocused = false;
  // Why it cannot be used, for whoever sees it; "" for a control that can be used.
  std::string note{};
  // Why it is hidden or cannot be used, for people who give support, and never on the screen; "" for a control
  // that can be used. Not translated.
  std::string reason{};

  bool isShownAndOn() const { return !hidden && on; }
  bool operator==(const Control&) const = default;
};

// The user types into it.
constexpr bool isTypedInto(Control::Kind kind) {
  return kind == Control::Kind::textField || kind == Control::Kind::comboBox || kind == Control::Kind::tokenField;
}

// Typed into or chosen from: a label before it is its name.
constexpr bool isFilledIn(Control::Kind kind) { return isTypedInto(kind) || kind == Control::Kind::popup; }

inline ControlItem ControlItem::heading(std::string title) {
  ControlItem item(std::move(title));
  item.enabled = false;
  return item;
}

inline ControlItem ControlItem::separator() {
  ControlItem item("");
  item.enabled = false;
  item.isSeparator = true;
  return item;
}

}  // namespace vorn
