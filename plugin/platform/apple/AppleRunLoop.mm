#include "platform/apple/AppleRunLoop.h"

#import <Foundation/Foundation.h>

#include <algorithm>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "platform/apple/Ownership.h"

// What the loop calls for us: the timers' number is their user info.
@interface vnRunLoopClerk : NSObject {
 @public
  // Null when the run loop has gone; not owned.
  void* m_state;
}
- (void)fire:(NSTimer*)timer;
- (void)awaitPosted;
- (void)doNothing:(id)nothing;
@end

namespace vorn {

namespace {

// The modes that the host's loop runs in, whether or not it shows a sheet or follows the mouse.
NSArray* commonModes() {
#ifdef GNUSTEP
  // There is no name for all of them here.
  return [NSArray
      arrayWithObjects:NSDefaultRunLoopMode, @"NSModalPanelRunLoopMode", @"NSEventTrackingRunLoopMode", nil];
#else
  return [NSArray arrayWithObject:NSRunLoopCommonModes];
#endif
}

void runGuarded(const RunLoop::Task& task) {
  const AutoreleasePool pool;
  try {
    task();
  } catch (...) {
    // A task that fails must not take the host's loop along.
  }
}

}  // namespace

struct AppleRunLoop::State {
  struct Scheduled {
    Retained<NSTimer*> timer;
    const void* target = nullptr;
    std::string name;
    RunLoop::Repeats repeats = RunLoop::Repeats::no;
    std::shared_ptr<const Task> task;
  };

  Retained<vnRunLoopClerk*> clerk = Retained<vnRunLoopClerk*>::adopted([[vnRunLoopClerk alloc] init]);
  std::uint64_t lastNumber = 0;
  std::map<std::uint64_t, Scheduled> scheduled;
  std::mutex postedMutex;
  std::deque<Task> posted;
  // The first of them has its timer. The main thread's.
  bool isPostedAwaited = false;

  State() { clerk.get()->m_state = this; }
  ~State() {
    clerk.get()->m_state = nullptr;
    cancel([](const Scheduled&) { return true; });
  }
  State(const State&) = delete;
  State& operator=(const State&) = delete;

  std::uint64_t schedule(double seconds, Scheduled what) {
    const AutoreleasePool pool;
    const std::uint64_t number = ++lastNumber;
    NSTimer* timer = [NSTimer timerWithTimeInterval:seconds
                                             target:clerk.get()
                                           selector:@selector(fire:)
                                           userInfo:[NSNumber numberWithUnsignedLongLong:number]
                                            repeats:what.repeats == RunLoop::Repeats::yes ? YES : NO];
    what.timer = Retained<NSTimer*>(timer);
    NSEnumerator* modes = [commonModes() objectEnumerator];
    while (NSString* mode = [modes nextObject]) [[NSRunLoop mainRunLoop] addTimer:timer forMode:mode];
    scheduled.emplace(number, std::move(what));
    return number;
  }

  void cancel(const std::function<bool(const Scheduled&)>& matches) {
    std::vector<std::uint64_t> numbers;
    for (const auto& [number, call] : scheduled) {
      if (matches(call)) numbers.push_back(number);
    }
    for (const std::uint64_t number : numbers) cancel(number);
  }
  void cancel(std::uint64_t number) {
    const auto found = scheduled.find(number);
    if (found == scheduled.end()) return;
    const Retained<NSTimer*> timer = std::move(found->second.timer);
    scheduled.erase(found);
    [timer.get() invalidate];
  }

  void fire(std::uint64_t number) {
    const auto found = scheduled.find(number);
    if (found == scheduled.end()) return;
    const std::shared_ptr<const Task> task = found->second.task;
    if (found->second.repeats == RunLoop::Repeats::no) cancel(number);
    runGuarded(*task);
  }

  // One timer at a time and one task for each: the loop comes round between them, and a task that runs the loop
  // inside itself holds up none.
  void awaitPosted() {
    {
      const std::lock_guard<std::mutex> lock(postedMutex);
      if (posted.empty()) return;
    }
    if (std::exchange(isPostedAwaited, true)) return;
    Scheduled turn;
    turn.task = std::make_shared<const Task>([this] { runFirstPosted(); });
    schedule(0, std::move(turn));
  }
  void runFirstPosted() {
    Task first;
    {
      const std::lock_guard<std::mutex> lock(postedMutex);
      first = std::move(posted.front());
      posted.pop_front();
    }
    isPostedAwaited = false;
    awaitPosted();
    first();
  }
};

namespace {

class AppleTimer final : public RunLoop::Timer {
 public:
  explicit AppleTimer(RunLoop::Repeats repeats) : m_repeats(repeats) {}

  void invalidate() override {
    m_valid = false;
    if (const auto stop = std::exchange(m_stop, nullptr)) stop();
  }
  bool isValid() const override { return m_valid; }

  void setStop(std::function<void()> stop) { m_stop = std::move(stop); }
  void fire(const RunLoop::TimerTask& task) {
    if (m_repeats == RunLoop::Repeats::no) m_valid = false;
    task(*this);
  }

 private:
  RunLoop::Repeats m_repeats;
  std::function<void()> m_stop;
  bool m_valid = true;
};

}  // namespace

AppleRunLoop::AppleRunLoop() : m_state(std::make_shared<State>()) {
  // Foundation takes no locks until it has started a thread itself, and those that post here are not its own.
  if (![NSThread isMultiThreaded]) {
    [NSThread detachNewThreadSelector:@selector(doNothing:) toTarget:m_state->clerk.get() withObject:nil];
  }
}

AppleRunLoop::~AppleRunLoop() = default;

void AppleRunLoop::post(Task task) {
  {
    const std::lock_guard<std::mutex> lock(m_state->postedMutex);
    m_state->posted.push_back(std::move(task));
  }
  if ([NSThread isMainThread]) return m_state->awaitPosted();
  const AutoreleasePool pool;
  [m_state->clerk.get() performSelectorOnMainThread:@selector(awaitPosted)
                                         withObject:nil
                                      waitUntilDone:NO
                                              modes:commonModes()];
}

void AppleRunLoop::performAfter(double seconds, const void* target, std::string_view name, Task task) {
  State::Scheduled call;
  call.target = target;
  call.name = std::string(name);
  call.task = std::make_shared<const Task>(std::move(task));
  m_state->schedule(std::max(0.0, seconds), std::move(call));
}

void AppleRunLoop::cancelPrevious(const void* target) {
  m_state->cancel([target](const State::Scheduled& call) { return target && call.target == target; });
}

void AppleRunLoop::cancelPrevious(const void* target, std::string_view name) {
  m_state->cancel(
      [&](const State::Scheduled& call) { return target && call.target == target && call.name == name; });
}

std::shared_ptr<RunLoop::Timer> AppleRunLoop::scheduledTimer(double intervalSeconds, Repeats repeats,
                                                             TimerTask task) {
  const auto timer = std::make_shared<AppleTimer>(repeats);
  State::Scheduled call;
  call.repeats = repeats;
  call.task = std::make_shared<const Task>([=] { timer->fire(task); });
  const std::uint64_t number = m_state->schedule(std::max(0.0001, intervalSeconds), std::move(call));
  const std::weak_ptr<State> weak = m_state;
  timer->setStop([=] {
    if (const auto state = weak.lock()) state->cancel(number);
  });
  return timer;
}

}  // namespace vorn

@implementation vnRunLoopClerk
- (void)fire:(NSTimer*)timer {
  if (!m_state) return;
  // The state may go while the task runs, and this object and the timer with it.
  [[self retain] autorelease];
  static_cast<vorn::AppleRunLoop::State*>(m_state)->fire([[timer userInfo] unsignedLongLongValue]);
}
- (void)doNothing:(id)nothing {
  (void)nothing;
}
- (void)awaitPosted {
  if (m_state) static_cast<vorn::AppleRunLoop::State*>(m_state)->awaitPosted();
}
@end
