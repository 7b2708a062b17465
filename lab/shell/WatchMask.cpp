#include "lab/shell/WatchMask.h"

#include "lab/shell/Masking.h"
#include "lab/shell/Words.h"
#include "platform/TraceMask.h"

namespace vornlab {
namespace {

// More than the plug-in's trace gives of an envelope.
constexpr std::size_t kMostBytes = 2000;

}  // namespace

// Cut when it is covered: half an address is none that would be recognised.
std::string coveredForWatchers(std::string_view text) {
  return shortened(masked(vorn::TraceMask::coveredWhole(text)), kMostBytes);
}

}  // namespace vornlab
