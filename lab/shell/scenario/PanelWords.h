#pragma once

#include <optional>
#include <string>

#include "lab/shell/scenario/Stage.h"
#include "platform/controls/Control.h"

namespace vornlab {

// A property of one of the settings panel's controls, such as "selectLanguagePopup.index".
struct PanelProperty {
  std::string control;
  std::string property;

  // Absent for a text that names none.
  static std::optional<PanelProperty> read(std::string_view text);
  static constexpr const char* kNames =
      "hidden, enabled, on, text, index, chosen, toolTip, spoken, focused, "
      "border or tokens";

  // What the control of the window's panel says: "yes" or "no", a text, a number, or the chosen item.
  std::string value(Stage& stage) const;
  // What a person makes of it: of on, text, index and chosen. Throws Mismatch for a control that cannot be used,
  // and for a value that it cannot have.
  void set(Stage& stage, const std::string& value) const;
};

// What a person types into a field of tokens, character for character, or pastes.
void typeInPanel(Stage& stage, const std::string& control, const std::string& text);
void pasteInPanel(Stage& stage, const std::string& control, const std::string& text);
// A key that is pressed in a field. Throws Mismatch for one that means nothing there.
void pressInPanel(Stage& stage, const std::string& control, const std::string& word);
bool isPanelKey(std::string_view word);
inline constexpr const char* kPanelKeys = "up, down, left, right, return, tab, escape or delete";

// A click on a button or a link, which also turns a switch and chooses a radio button. Throws Mismatch for any
// other control.
void clickInPanel(Stage& stage, const std::string& control);
// A turn of the wheel in the panel.
void scrollInPanel(Stage& stage);

}  // namespace vornlab
