#include "lab/shell/LabSession.h"

namespace vornlab {
namespace {

constexpr double kLookSeconds = 0.005;

}  // namespace

LabSession::Quiet LabSession::waitForQuiet(std::size_t sentBefore, std::size_t receivedBefore, double seconds) {
  const auto isAnswered = [&] { return trace().sent() - sentBefore <= trace().received() - receivedBefore; };
  const double deadline = now() + seconds;
  while (true) {
    // Each look at another process is a call of the system, and the loop asks after each of its tasks.
    double nextLook = now();
    const auto clientIsGone = [&] {
      if (now() < nextLook) return false;
      nextLook = now() + kLookSeconds;
      return !clientIsRunning();
    };
    const auto isOver = [&] { return isAnswered() || clientIsGone(); };
    if (!waitUntil(isOver, deadline - now())) return Quiet::timeout;
    if (!isAnswered()) return Quiet::clientGone;
    // A reply may lead to a call that is put off to the loop's next turn, and that to a further request.
    passTime(0);
    passTime(0);
    if (isAnswered()) return Quiet::reached;
  }
}

}  // namespace vornlab
