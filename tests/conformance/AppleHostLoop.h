#pragma once

#include "platform/apple/AppleRunLoop.h"
#include "platform/embedded/HostRunLoop.h"

namespace vorn {

// The run loop of an Objective-C process, with somebody who runs it as its host would. One turn may run several
// tasks.
class AppleHostLoop final : public HostRunLoop {
 public:
  void post(Task task) override { loop_.post(std::move(task)); }
  void performAfter(double seconds, const void* target, std::string_view name, Task task) override {
    loop_.performAfter(seconds, target, name, std::move(task));
  }
  void cancelPrevious(const void* target) override { loop_.cancelPrevious(target); }
  void cancelPrevious(const void* target, std::string_view name) override { loop_.cancelPrevious(target, name); }
  std::shared_ptr<Timer> scheduledTimer(double intervalSeconds, Repeats repeats, TimerTask task) override {
    return loop_.scheduledTimer(intervalSeconds, repeats, std::move(task));
  }

  double now() const override;
  bool runUntil(const std::function<bool()>& condition, double timeoutSeconds) override;

 private:
  AppleRunLoop loop_;
};

}  // namespace vorn
