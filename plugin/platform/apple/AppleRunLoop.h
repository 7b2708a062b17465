#pragma once

#include <memory>

#include "platform/RunLoop.h"

namespace vorn {

// The main run loop of the host's process, which the host runs itself.
//
// Everything is in the common modes, so that it goes on while the host shows a sheet or follows the mouse. Each
// task runs in a pool of its own; what it raises ends with it. To be made on the main thread. When this object
// goes, what still waits is forgotten.
class AppleRunLoop final : public RunLoop {
 public:
  AppleRunLoop();
  ~AppleRunLoop() override;
  AppleRunLoop(const AppleRunLoop&) = delete;
  AppleRunLoop& operator=(const AppleRunLoop&) = delete;

  void post(Task task) override;
  void performAfter(double seconds, const void* target, std::string_view name, Task task) override;
  void cancelPrevious(const void* target) override;
  void cancelPrevious(const void* target, std::string_view name) override;
  std::shared_ptr<Timer> scheduledTimer(double intervalSeconds, Repeats repeats, TimerTask task) override;

  // For the object that the loop calls; nobody else sees what is in it.
  struct State;

 private:
  std::shared_ptr<State> m_state;
};

}  // namespace vorn
