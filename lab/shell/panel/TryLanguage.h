#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/ControlSet.h"
#include "platform/controls/PanelLayout.h"

namespace vornlab {

// The small language in which a person says what to try in a panel: acts with commas between, such as
// `waiting room off, passcode's text = "a, b", edit the countries click`.

// What is done to one control.
struct PanelAct {
  enum class Verb { on, off, set, click };

  // The control, by its plain words or by its key.
  std::string name;
  Verb verb = Verb::click;
  // Of set.
  std::string value{};

  // As it may be said.
  std::string inWords() const;
  bool operator==(const PanelAct&) const = default;
};

// Throws UsageError, with what was expected, for a text that cannot be read. Time linear in the text.
std::vector<PanelAct> readTry(std::string_view text);

// A control that a person can ask for by name.
struct NamedControl {
  std::string words;
  std::string key;
  // What can be said of it, such as "on|off".
  std::string verbs;
};

// The controls of the layout that can be used, in its order; one without words of its own is named by its key.
std::vector<NamedControl> namedControls(const vorn::PanelLayout& layout, const vorn::ControlSet& controls);

// The key of the control that the name means: by words, in any case of their letters, or by the key of any
// control. Throws UsageError with the words that are known.
std::string keyOfName(const std::string& name, const vorn::PanelLayout& layout, const vorn::ControlSet& controls);

}  // namespace vornlab
