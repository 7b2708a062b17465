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

  bool isShownAndOn() const { return !hidden && on; }
  bool operator==(const Control&) const = default;
};

}  // namespace vorn
