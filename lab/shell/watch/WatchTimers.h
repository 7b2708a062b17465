#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "lab/shell/watch/WatchEvents.h"
#include "platform/embedded/HostRunLoop.h"

namespace vornlab {

// A timer that the plug-in has started.
struct StartedTimer {
  // On the loop's clock.
  double started = 0;
  double seconds = 0;
  bool repeats = false;
  std::weak_ptr<vorn::RunLoop::Timer> timer;

  bool isRunning() const;
  // Whether it has fired for the last time, in difference from one that was stopped.
  bool isOver(double now) const { return !repeats && now >= started + seconds; }
};

// The host's loop as the plug-in is given it: everything goes on to the loop, and the timers that are started are
// noted on the way. Main thread only, apart from post().
class WatchTimers final : public vorn::RunLoop {
 public:
  // The loop outlives this.
  explicit WatchTimers(vorn::HostRunLoop& loop) : m_loop(loop) {}

  // The timers since the last call.
  std::vector<StartedTimer> takeStarted();

  void post(Task task) override { m_loop.post(std::move(task)); }
  void performAfter(double seconds, const void* target, std::string_view name, Task task) override {
    m_loop.performAfter(seconds, target, name, std::move(task));
  }
  void cancelPrevious(const void* target) override { m_loop.cancelPrevious(target); }
  void cancelPrevious(const void* target, std::string_view name) override { m_loop.cancelPrevious(target, name); }
  std::shared_ptr<Timer> scheduledTimer(double intervalSeconds, Repeats repeats, TimerTask task) override;

 private:
  vorn::HostRunLoop& m_loop;
  std::vector<StartedTimer> m_started;
};

}  // namespace vornlab
