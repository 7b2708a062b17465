#pragma once

#include <optional>
#include <string>

#include "lab/host/HostScreen.h"
#import "platform/apple/appkit/AppKitPanels.h"

namespace vornlab {

// What stands in the views of a drawn panel, read from the toolkit's own controls and from nothing else, and a
// person's hand on them. Main thread only.

// As it is on the screen: hidden, enabled, on, text, items, index, tokens, tool tip, border and keyboard. A box,
// which draws nothing, is hidden when nothing of it can be seen. Absent for a key that the panel does not have.
std::optional<vorn::Control> readDrawn(const vorn::DrawnPanel& panel, const std::string& key);
// By the mouse and by keys. Refused is also what nothing of that kind can be done to, and a text that the field
// does not take. What the panel makes of it is to be looked at afterwards. The call may end the panel.
vorn::ControlUse useDrawn(const vorn::DrawnPanel& panel, const std::string& key, const PanelDeed& deed);

}  // namespace vornlab
