#pragma once

#include "platform/apple/AppleRunLoop.h"
#include "platform/embedded/HostRunLoop.h"

namespace vorn {

// The run loop of an Objective-C process, with somebody who runs it as its host would: one run inside another is
// in the mode of a modal panel. The condition may be tested after several tasks.
class AppleHostLoop final : public HostRunLoop {
 public:
  void post(Task task) override { m_loop.post(std::move(task)); }
  void performAfter(double seconds, const void* target, std::string_view name, Task task) override {
    m_loop.performAfter(seconds, target, name, std::move(task));
  }
  void cancelPrevious(const void* target) override { m_loop.cancelPrevious(target); }
  void cancelPrevious(const void* target, std::string_view name) override { m_loop.cancelPrevious(target, name); }
  std::shared_ptr<Timer> scheduledTimer(double intervalSeconds, Repeats repeats, TimerTask task) override {
    return m_loop.scheduledTimer(intervalSeconds, repeats, std::move(task));
  }

  double now() const override;
  bool runUntil(const std::function<bool()>& condition, double timeoutSeconds) override;

 private:
  AppleRunLoop m_loop;
  int m_depth = 0;
};

}  // namespace vorn
