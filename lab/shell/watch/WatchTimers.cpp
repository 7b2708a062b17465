#include "lab/shell/watch/WatchTimers.h"

#include <utility>

namespace vornlab {
namespace {

// A request comes with two; what was started for other reasons piles up until the next one.
constexpr std::size_t kMostNoted = 16;

}  // namespace

bool StartedTimer::isRunning() const {
  const auto held = timer.lock();
  return held && held->isValid();
}

std::vector<StartedTimer> WatchTimers::takeStarted() { return std::exchange(m_started, {}); }

std::shared_ptr<vorn::RunLoop::Timer> WatchTimers::scheduledTimer(double intervalSeconds, Repeats repeats,
                                                                  TimerTask task) {
  auto timer = m_loop.scheduledTimer(intervalSeconds, repeats, std::move(task));
  if (m_started.size() < kMostNoted) {
    m_started.push_back({m_loop.now(), intervalSeconds, repeats == Repeats::yes, timer});
  }
  return timer;
}

}  // namespace vornlab
