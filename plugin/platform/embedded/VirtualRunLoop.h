#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "platform/embedded/HostRunLoop.h"

namespace vorn {

// A run loop whose clock stands still until somebody runs it, and then jumps from one due time to the next.
//
// Sixty seconds pass in no time and in an exact order: tasks of the same due time run in the order of their
// scheduling. Only post() may be called from other threads, and what they post is taken at the present time.
class VirtualRunLoop final : public HostRunLoop {
 public:
  VirtualRunLoop() = default;

  void post(Task task) override;
  void performAfter(double seconds, const void* target, std::string_view name, Task task) override;
  void cancelPrevious(const void* target) override;
  void cancelPrevious(const void* target, std::string_view name) override;
  std::shared_ptr<Timer> scheduledTimer(double intervalSeconds, Repeats repeats, TimerTask task) override;

  double now() const override { return m_now; }
  bool runUntil(const std::function<bool()>& condition, double timeoutSeconds) override;
  // Runs everything that is due now, without moving the clock.
  void runDue();
  // Tasks and timers that wait for their time.
  std::size_t waiting() const { return m_scheduled.size(); }

 private:
  class VirtualTimer;
  struct Scheduled {
    const void* target = nullptr;
    std::string name;
    Task task;
  };
  using Due = std::pair<double, std::uint64_t>;

  void schedule(double at, Scheduled what);
  void takePosted();
  bool runNext(double notAfter);
  void arm(const std::shared_ptr<VirtualTimer>& timer);

  double m_now = 0;
  std::uint64_t m_order = 0;
  std::map<Due, Scheduled> m_scheduled;
  std::mutex m_postedMutex;
  std::vector<Task> m_posted;
};

}  // namespace vorn
