#include "lab/shell/LabSession.h"

namespace vornlab {

LabSession::Quiet LabSession::waitForQuiet(std::size_t sentBefore, std::size_t receivedBefore, double seconds) {
  const auto isAnswered = [&] { return trace().sent() - sentBefore <= trace().received() - receivedBefore; };
  const double deadline = now() + seconds;
  while (true) {
    const auto isOver = [&] { return isAnswered() || !clientIsRunning(); };
    if (!waitUntil(isOver, deadline - now())) return Quiet::timeout;
    if (!isAnswered()) return Quiet::clientGone;
    // A reply may lead to a call that is put off to the loop's next turn, and that to a further request.
    passTime(0);
    passTime(0);
    if (isAnswered()) return Quiet::reached;
  }
}

}  // namespace vornlab
