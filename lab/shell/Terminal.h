#pragma once

namespace vornlab {

// Whether what is written to the descriptor reaches a terminal that understands more than lines.
bool drawsOnTerminal(int descriptor);

}  // namespace vornlab
