#pragma once

namespace vornlab {

// How the desktop looks where the toolkit has no system to follow: light and flat, with one accent colour, room
// around things and a font that reads well. Chosen before the application is made.
void useDesktopTheme();
// Puts it on, once the application has been made.
void showDesktopTheme();

}  // namespace vornlab
