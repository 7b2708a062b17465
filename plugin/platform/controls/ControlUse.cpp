#include "platform/controls/ControlUse.h"

#include <algorithm>

#include "platform/controls/FieldKeys.h"

namespace vorn {

namespace {

// What a control takes from its user: not every text, and no entry that only stands among the others, or none at
// all.
bool mayBecome(const Control& control, const Control& proposed) {
  const auto isItsText = [&](const ControlItem& item) { return item.title == proposed.text; };
  // What stands there already, or can be chosen, may be longer than what can be typed.
  const bool isTyped =
      proposed.text != control.text && std::none_of(control.items.begin(), control.items.end(), isItsText);
  if (isTyped && control.formatter && !control.formatter->accepts(proposed.text)) return false;
  constexpr int none = -1;
  if (proposed.index == control.index || proposed.index == none) return true;
  const auto index = static_cast<std::size_t>(proposed.index);
  return index < control.items.size() && control.items[index].enabled;
}

}  // namespace

ControlUse useControl(ControlSet& controls, const std::string& key, const std::function<void(Control&)>& change,
                      const std::function<void(const std::string& key)>& used) {
  Control* control = controls.find(fieldOf(key));
  if (!control) return ControlUse::noControl;
  if (!controls.isOnScreen(control->key)) return ControlUse::hidden;
  if (!control->enabled) return ControlUse::disabled;
  if (change) {
    Control proposed = *control;
    change(proposed);
    if (!mayBecome(*control, proposed)) return ControlUse::refused;
  }
  // What is called may end the panel, and what it is called with goes with the panel.
  const auto tell = used;
  const std::string told = key;  // NOLINT(performance-unnecessary-copy-initialization)
  const ControlSet::Change step(controls);
  if (change) change(*control);
  tell(told);
  return ControlUse::done;
}

}  // namespace vorn
