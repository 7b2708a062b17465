#include "lab/shell/Terminal.h"

#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace vornlab {

bool drawsOnTerminal(int descriptor) {
  const char* name = std::getenv("TERM");
  const std::string_view terminal = name == nullptr ? "" : name;
  return ::isatty(descriptor) != 0 && !terminal.empty() && terminal != "dumb";
}

}  // namespace vornlab
