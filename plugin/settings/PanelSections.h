#pragma once

#include "platform/controls/PanelLayout.h"

namespace vorn {

// Where the controls of the settings panel stand for a person, and by which plain words each is asked for. A group
// that is not on this panel leaves no gap.
PanelLayout panelSections();

}  // namespace vorn
