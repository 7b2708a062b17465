#pragma once

#include <functional>
#include <memory>
#include <string_view>

namespace vorn {

// The main loop of the host's process, which runs everything of this system but the socket readers.
//
// All operations belong to the main thread, except post(). Tasks run on the main thread, never inside the call
// that scheduled them. A task must not throw. It may run the loop inside itself, as a modal alert does: whatever
// comes due then runs inside it.
class RunLoop {
 public:
  using Task = std::function<void()>;

  // A scheduled timer. The loop holds it as long as it is valid; letting go of a reference does not stop it.
  class Timer {
   public:
    virtual ~Timer() = default;
    // Stops the timer for good; a second call does nothing.
    virtual void invalidate() = 0;
    // False after invalidate() and after a one-shot timer has fired.
    virtual bool isValid() const = 0;
  };
  using TimerTask = std::function<void(Timer& fired)>;
  enum class Repeats { no, yes };

  virtual ~RunLoop() = default;

  // Runs the task when the loop comes round, in the order of posting and one task each time. May be called from
  // any thread.
  virtual void post(Task task) = 0;

  // Runs the task after a delay in seconds; 0 means when the present call has unwound. Target and name identify
  // the call for the two cancellations; the loop never looks behind the target.
  virtual void performAfter(double seconds, const void* target, std::string_view name, Task task) = 0;
  // Forgets all delayed calls aimed at the target, or those of one name. Unknown ones are no error.
  virtual void cancelPrevious(const void* target) = 0;
  virtual void cancelPrevious(const void* target, std::string_view name) = 0;

  // Fires after the interval in seconds, once or at every interval, and hands itself to the task.
  virtual std::shared_ptr<Timer> scheduledTimer(double intervalSeconds, Repeats repeats, TimerTask task) = 0;
};

}  // namespace vorn
