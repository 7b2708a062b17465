#pragma once

#include <functional>
#include <string>

#include "platform/controls/ControlSet.h"

namespace vorn {

// What came of something that a user did to a control. There is no panel where a front end looked for one in vain.
enum class ControlUse { done, noPanel, noControl, hidden, disabled, refused };

// What every front end does with a click on a control, or with a key pressed in a field (FieldKeys.h): makes the
// change, or none, and tells of it, both within one Change. Only what is on the screen and enabled can be used,
// and it refuses a text that is too long and an entry that cannot be chosen. The call may end the set.
ControlUse useControl(ControlSet& controls, const std::string& key, const std::function<void(Control&)>& change,
                      const std::function<void(const std::string& key)>& used);

}  // namespace vorn
