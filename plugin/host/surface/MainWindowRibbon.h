#pragma once

namespace vorn {

// Puts this system's button into the main window's ribbon, when that is there and shows a tab which has it.
void initVnRibbonView();

// The same in a moment, when the host has built what it is about to show. A call that is still waiting gives way:
// panes that load one after the other lead to one.
void scheduleInitVnRibbonView();

}  // namespace vorn
