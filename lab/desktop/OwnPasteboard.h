#pragma once

namespace vornlab {

// From here on this program has pasteboards of its own: what is copied in it stays in it, and what the person has
// copied elsewhere stays as it is. The server of the toolkit, which lives and dies with some display, is not
// asked.
void useOwnPasteboards();

}  // namespace vornlab
