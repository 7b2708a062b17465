#pragma once

#include <condition_variable>
#include <cstddef>
#include <memory>
#include <mutex>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/embedded/HostRunLoop.h"

namespace vorn {

// What our own run loops have in common, whatever their clock is: tasks and timers by their due times, those of
// the same time in the order of their scheduling.
//
// Only post() may be called from other threads.
class ScheduledRunLoop : public HostRunLoop {
 public:
  ~ScheduledRunLoop() override;

  void post(Task task) override;
  void performAfter(double seconds, const void* target, std::string_view name, Task task) override;
  void cancelPrevious(const void* target) override;
  void cancelPrevious(const void* target, std::string_view name) override;
  std::shared_ptr<Timer> scheduledTimer(double intervalSeconds, Repeats repeats, TimerTask task) override;

  // Tasks and timers that wait for their time. What is posted and not taken yet is not counted.
  std::size_t waiting() const;

 protected:
  ScheduledRunLoop();

  // When something is due that is posted at this moment; infinity for when the main thread takes it. Any thread.
  virtual double dueOfPost() const = 0;
  // When the next task is due on the loop's clock; infinity when there is none.
  double nextDue();
  // Runs the task that is due next.
  void runNext();
  // Has the delayed calls that are due by that time come due now, in their order. Timers keep their time.
  void bringForward(double dueBy);
  // Waits until something is posted, at most that long.
  void waitForPost(double seconds);

 private:
  class ScheduledTimer;
  class Schedule;

  void takePosted();
  void arm(const std::shared_ptr<ScheduledTimer>& timer, double due);

  // Timers outlive the loop when somebody holds them.
  std::shared_ptr<Schedule> m_schedule;
  std::mutex m_postedMutex;
  std::condition_variable m_somethingPosted;
  // With the time at which each is due.
  std::vector<std::pair<double, Task>> m_posted;
};

}  // namespace vorn
