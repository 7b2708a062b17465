#include "platform/embedded/VirtualRunLoop.h"

#include <algorithm>

namespace vorn {

class VirtualRunLoop::VirtualTimer final : public Timer {
 public:
  VirtualTimer(double interval, Repeats repeats, TimerTask task)
      : interval_(interval), repeats_(repeats), task_(std::move(task)) {}

  void invalidate() override { valid_ = false; }
  bool isValid() const override { return valid_; }
  double interval() const { return interval_; }

  void fire() {
    if (repeats_ == Repeats::no) valid_ = false;
    task_(*this);
  }

 private:
  double interval_;
  Repeats repeats_;
  TimerTask task_;
  bool valid_ = true;
};

void VirtualRunLoop::post(Task task) {
  const std::lock_guard<std::mutex> lock(postedMutex_);
  posted_.push_back(std::move(task));
}

void VirtualRunLoop::takePosted() {
  std::vector<Task> taken;
  {
    const std::lock_guard<std::mutex> lock(postedMutex_);
    taken.swap(posted_);
  }
  for (Task& task : taken) schedule(now_, Scheduled{nullptr, {}, std::move(task)});
}

void VirtualRunLoop::schedule(double at, Scheduled what) {
  scheduled_.emplace(Due{at, ++order_}, std::move(what));
}

void VirtualRunLoop::performAfter(double seconds, const void* target, std::string_view name, Task task) {
  schedule(now_ + std::max(0.0, seconds), Scheduled{target, std::string(name), std::move(task)});
}

void VirtualRunLoop::cancelPrevious(const void* target) {
  std::erase_if(scheduled_, [target](const auto& entry) { return target && entry.second.target == target; });
}

void VirtualRunLoop::cancelPrevious(const void* target, std::string_view name) {
  std::erase_if(scheduled_, [&](const auto& entry) {
    return target && entry.second.target == target && entry.second.name == name;
  });
}

void VirtualRunLoop::arm(const std::shared_ptr<VirtualTimer>& timer) {
  schedule(now_ + timer->interval(), Scheduled{nullptr, {}, [this, timer] {
                                                 if (!timer->isValid()) return;
                                                 timer->fire();
                                                 if (timer->isValid()) arm(timer);
                                               }});
}

std::shared_ptr<RunLoop::Timer> VirtualRunLoop::scheduledTimer(double intervalSeconds, Repeats repeats,
                                                               TimerTask task) {
  auto timer = std::make_shared<VirtualTimer>(std::max(0.0001, intervalSeconds), repeats, std::move(task));
  arm(timer);
  return timer;
}

bool VirtualRunLoop::runNext(double notAfter) {
  takePosted();
  if (scheduled_.empty() || scheduled_.begin()->first.first > notAfter) return false;
  auto next = scheduled_.extract(scheduled_.begin());
  now_ = std::max(now_, next.key().first);
  next.mapped().task();
  return true;
}

void VirtualRunLoop::runDue() {
  while (runNext(now_)) {
  }
}

bool VirtualRunLoop::runUntil(const std::function<bool()>& condition, double timeoutSeconds) {
  const double end = now_ + timeoutSeconds;
  while (!condition()) {
    if (runNext(end)) continue;
    now_ = end;
    return condition();
  }
  return true;
}

}  // namespace vorn
