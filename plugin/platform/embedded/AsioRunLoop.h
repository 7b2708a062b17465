#pragma once

#include <memory>

#include "platform/embedded/HostRunLoop.h"

namespace vorn {

// The run loop of a process that lives in real time. The thread that makes it is the main thread; it runs the
// loop with runUntil() or runFor().
class AsioRunLoop final : public HostRunLoop {
 public:
  AsioRunLoop();
  ~AsioRunLoop() override;

  void post(Task task) override;
  void performAfter(double seconds, const void* target, std::string_view name, Task task) override;
  void cancelPrevious(const void* target) override;
  void cancelPrevious(const void* target, std::string_view name) override;
  std::shared_ptr<Timer> scheduledTimer(double intervalSeconds, Repeats repeats, TimerTask task) override;

  double now() const override;
  bool runUntil(const std::function<bool()>& condition, double timeoutSeconds) override;
  void hasten(double seconds) override;

 private:
  struct State;
  std::shared_ptr<State> m_state;
};

}  // namespace vorn
