#include "platform/embedded/VirtualRunLoop.h"

#include <algorithm>

namespace vorn {

class VirtualRunLoop::VirtualTimer final : public Timer {
 public:
  VirtualTimer(double interval, Repeats repeats, TimerTask task)
      : m_interval(interval), m_repeats(repeats), m_task(std::move(task)) {}

  void invalidate() override { m_valid = false; }
  bool isValid() const override { return m_valid; }
  double interval() const { return m_interval; }

  void fire() {
    if (m_repeats == Repeats::no) m_valid = false;
    m_task(*this);
  }

 private:
  double m_interval;
  Repeats m_repeats;
  TimerTask m_task;
  bool m_valid = true;
};

void VirtualRunLoop::post(Task task) {
  const std::lock_guard<std::mutex> lock(m_postedMutex);
  m_posted.push_back(std::move(task));
}

void VirtualRunLoop::takePosted() {
  std::vector<Task> taken;
  {
    const std::lock_guard<std::mutex> lock(m_postedMutex);
    taken.swap(m_posted);
  }
  for (Task& task : taken) schedule(m_now, Scheduled{nullptr, {}, std::move(task)});
}

void VirtualRunLoop::schedule(double at, Scheduled what) {
  m_scheduled.emplace(Due{at, ++m_order}, std::move(what));
}

void VirtualRunLoop::performAfter(double seconds, const void* target, std::string_view name, Task task) {
  schedule(m_now + std::max(0.0, seconds), Scheduled{target, std::string(name), std::move(task)});
}

void VirtualRunLoop::cancelPrevious(const void* target) {
  std::erase_if(m_scheduled, [target](const auto& entry) { return target && entry.second.target == target; });
}

void VirtualRunLoop::cancelPrevious(const void* target, std::string_view name) {
  std::erase_if(m_scheduled, [&](const auto& entry) {
    return target && entry.second.target == target && entry.second.name == name;
  });
}

void VirtualRunLoop::arm(const std::shared_ptr<VirtualTimer>& timer) {
  schedule(m_now + timer->interval(), Scheduled{nullptr, {}, [this, timer] {
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
  if (m_scheduled.empty() || m_scheduled.begin()->first.first > notAfter) return false;
  auto next = m_scheduled.extract(m_scheduled.begin());
  m_now = std::max(m_now, next.key().first);
  next.mapped().task();
  return true;
}

void VirtualRunLoop::runDue() {
  while (runNext(m_now)) {
  }
}

bool VirtualRunLoop::runUntil(const std::function<bool()>& condition, double timeoutSeconds) {
  const double end = m_now + timeoutSeconds;
  while (!condition()) {
    if (runNext(end)) continue;
    m_now = end;
    return condition();
  }
  return true;
}

}  // namespace vorn
