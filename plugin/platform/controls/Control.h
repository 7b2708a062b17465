#pragma once

#include <string>
#include <vector>

namespace vorn {

// One control of a window as rules see it: what it shows, and whether it can be used. A front end draws it.
//
// The kind says which properties count; the others keep their first value.
struct Control {
  enum class Kind {
    box,          // a group of controls that is hidden as one
    label,        // text
    link,         // text that can be clicked
    button,       // text that can be clicked, and no state
    checkBox,     // text and `on`
    radioButton,  // text and `on`; others go off when it goes on, as the rules say
    radioGroup,   // items, of which the one at the index is chosen
    popup,        // likewise
    textField,    // text that the user types
  };

  std::string key;
  Kind kind = Kind::label;
  bool hidden = false;
  bool enabled = true;
  bool on = false;
  std::string text;
  std::vector<std::string> items;
  int index = 0;
  // Shown beside the control, "" for none.
  std::string toolTip;
  // What assistive programs read out in place of the text; "" for the text itself.
  std::string spoken;
  // What a text field shows while it is empty.
  std::string placeholder;
  // In points; 0 for a field without a border of its own. A field whose content is refused has a red one.
  double redBorderWidth = 0;
  // The most characters that the user can type; 0 for any number.
  std::size_t maxLength = 0;

  bool isShownAndOn() const { return !hidden && on; }
  bool operator==(const Control&) const = default;
};

}  // namespace vorn
