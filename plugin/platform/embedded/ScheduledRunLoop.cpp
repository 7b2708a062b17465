#include "platform/embedded/ScheduledRunLoop.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <limits>
#include <map>
#include <string>
#include <utility>

namespace vorn {

// A due time, and the number of the scheduling.
using Turn = std::pair<double, std::uint64_t>;

class ScheduledRunLoop::Schedule {
 public:
  struct Entry {
    Task task;
    bool isDelayedCall = false;
    const void* target = nullptr;
    std::string name = {};
  };

  std::size_t count() const { return m_entries.size(); }
  double nextDue() const {
    return m_entries.empty() ? std::numeric_limits<double>::infinity() : m_entries.begin()->first.first;
  }

  Turn add(double due, Entry entry) {
    return m_entries.emplace(Turn{due, ++m_scheduled}, std::move(entry)).first->first;
  }
  Task takeNext() { return std::move(m_entries.extract(m_entries.begin()).mapped().task); }
  // What a removed task holds may ask for changes when it ends, so it ends when this one is made.
  void remove(Turn turn) { const auto removed = m_entries.extract(turn); }
  template <typename Matches>
  void removeAll(const Matches& matches) {
    std::vector<Entry> removed;
    for (auto each = m_entries.begin(); each != m_entries.end();) {
      if (!matches(each->second)) {
        ++each;
      } else {
        removed.push_back(std::move(each->second));
        each = m_entries.erase(each);
      }
    }
  }

  void bringForward(double dueBy, double now) {
    std::vector<Entry> sooner;
    for (auto each = m_entries.begin(); each != m_entries.end() && each->first.first <= dueBy;) {
      if (!each->second.isDelayedCall || each->first.first <= now) {
        ++each;
      } else {
        sooner.push_back(std::move(each->second));
        each = m_entries.erase(each);
      }
    }
    for (Entry& entry : sooner) add(now, std::move(entry));
  }

 private:
  std::map<Turn, Entry> m_entries;
  std::uint64_t m_scheduled = 0;
};

class ScheduledRunLoop::ScheduledTimer final : public Timer {
 public:
  ScheduledTimer(std::weak_ptr<Schedule> schedule, double interval, Repeats repeats, TimerTask task)
      : m_schedule(std::move(schedule)), m_interval(interval), m_repeats(repeats), m_task(std::move(task)) {}

  void invalidate() override {
    m_valid = false;
    if (const auto schedule = m_schedule.lock()) schedule->remove(m_turn);
  }
  bool isValid() const override { return m_valid; }

  double interval() const { return m_interval; }
  void setTurn(Turn turn) { m_turn = turn; }
  void fire() {
    if (m_repeats == Repeats::no) m_valid = false;
    m_task(*this);
  }

 private:
  std::weak_ptr<Schedule> m_schedule;
  double m_interval;
  Repeats m_repeats;
  TimerTask m_task;
  Turn m_turn;
  bool m_valid = true;
};

ScheduledRunLoop::ScheduledRunLoop() : m_schedule(std::make_shared<Schedule>()) {}

ScheduledRunLoop::~ScheduledRunLoop() = default;

void ScheduledRunLoop::post(Task task) {
  const std::lock_guard<std::mutex> lock(m_postedMutex);
  m_posted.emplace_back(dueOfPost(), std::move(task));
  m_somethingPosted.notify_one();
}

void ScheduledRunLoop::takePosted() {
  std::vector<std::pair<double, Task>> taken;
  {
    const std::lock_guard<std::mutex> lock(m_postedMutex);
    taken.swap(m_posted);
  }
  for (auto& [due, task] : taken) m_schedule->add(std::min(due, now()), {.task = std::move(task)});
}

void ScheduledRunLoop::performAfter(double seconds, const void* target, std::string_view name, Task task) {
  // What was posted before stays before it.
  takePosted();
  m_schedule->add(now() + std::max(0.0, seconds), {std::move(task), true, target, std::string(name)});
}

void ScheduledRunLoop::cancelPrevious(const void* target) {
  m_schedule->removeAll([target](const Schedule::Entry& entry) { return target && entry.target == target; });
}

void ScheduledRunLoop::cancelPrevious(const void* target, std::string_view name) {
  m_schedule->removeAll(
      [&](const Schedule::Entry& entry) { return target && entry.target == target && entry.name == name; });
}

std::shared_ptr<RunLoop::Timer> ScheduledRunLoop::scheduledTimer(double intervalSeconds, Repeats repeats,
                                                                 TimerTask task) {
  const auto timer =
      std::make_shared<ScheduledTimer>(m_schedule, std::max(0.0001, intervalSeconds), repeats, std::move(task));
  arm(timer, now() + timer->interval());
  return timer;
}

void ScheduledRunLoop::arm(const std::shared_ptr<ScheduledTimer>& timer, double due) {
  timer->setTurn(m_schedule->add(due, {.task = [this, timer, due] {
                                   timer->fire();
                                   if (!timer->isValid()) return;
                                   // One that is late does not catch up, or nothing else would get its turn.
                                   const double next = due + timer->interval();
                                   arm(timer, next > now() ? next : now() + timer->interval());
                                 }}));
}

std::size_t ScheduledRunLoop::waiting() const { return m_schedule->count(); }

double ScheduledRunLoop::nextDue() {
  takePosted();
  return m_schedule->nextDue();
}

void ScheduledRunLoop::runNext() {
  const Task task = m_schedule->takeNext();
  task();
}

void ScheduledRunLoop::bringForward(double dueBy) {
  takePosted();
  m_schedule->bringForward(dueBy, now());
}

void ScheduledRunLoop::waitForPost(double seconds) {
  std::unique_lock<std::mutex> lock(m_postedMutex);
  m_somethingPosted.wait_for(lock, std::chrono::duration<double>(seconds), [this] { return !m_posted.empty(); });
}

}  // namespace vorn
