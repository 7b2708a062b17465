#include "platform/embedded/AsioRunLoop.h"

#include <algorithm>
#include <asio/executor_work_guard.hpp>
#include <asio/io_context.hpp>
#include <asio/post.hpp>
#include <asio/steady_timer.hpp>
#include <chrono>
#include <list>
#include <string>

namespace vorn {

namespace {

std::chrono::steady_clock::duration duration(double seconds) {
  return std::chrono::duration_cast<std::chrono::steady_clock::duration>(
      std::chrono::duration<double>(std::max(0.0, seconds)));
}

class AsioTimer final : public RunLoop::Timer, public std::enable_shared_from_this<AsioTimer> {
 public:
  AsioTimer(asio::io_context& context, double interval, RunLoop::Repeats repeats, RunLoop::TimerTask task)
      : m_timer(context), m_interval(duration(interval)), m_repeats(repeats), m_task(std::move(task)) {}

  void invalidate() override {
    m_valid = false;
    m_timer.cancel();
  }
  bool isValid() const override { return m_valid; }

  void start() {
    m_timer.expires_after(m_interval);
    wait();
  }

 private:
  void wait() {
    m_timer.async_wait([self = shared_from_this()](const asio::error_code& error) {
      if (error || !self->m_valid) return;
      if (self->m_repeats == RunLoop::Repeats::no) self->m_valid = false;
      self->m_task(*self);
      if (!self->m_valid) return;
      self->m_timer.expires_at(self->m_timer.expiry() + self->m_interval);
      self->wait();
    });
  }

  asio::steady_timer m_timer;
  std::chrono::steady_clock::duration m_interval;
  RunLoop::Repeats m_repeats;
  RunLoop::TimerTask m_task;
  bool m_valid = true;
};

}  // namespace

struct AsioRunLoop::State {
  struct DelayedCall {
    explicit DelayedCall(asio::io_context& context) : timer(context) {}
    asio::steady_timer timer;
    const void* target = nullptr;
    std::string name;
    RunLoop::Task task;
    bool cancelled = false;
  };

  // Not told that one thread runs it: it would keep what a task posts to itself until that task has ended, while
  // the task may run the loop inside itself.
  asio::io_context context;
  asio::executor_work_guard<asio::io_context::executor_type> keepsRunning = asio::make_work_guard(context);
  std::list<std::shared_ptr<DelayedCall>> delayed;

  // The loop outlives its calls' timers, which end with its context.
  void await(const std::shared_ptr<DelayedCall>& call) {
    call->timer.async_wait([this, call](const asio::error_code& error) {
      if (call->cancelled || error == asio::error::operation_aborted) return;
      delayed.remove(call);
      const Task due = std::move(call->task);
      due();
    });
  }

  template <typename Matches>
  void cancel(const Matches& matches) {
    delayed.remove_if([&](const std::shared_ptr<DelayedCall>& call) {
      if (!matches(*call)) return false;
      call->cancelled = true;
      call->timer.cancel();
      return true;
    });
  }
};

AsioRunLoop::AsioRunLoop() : m_state(std::make_shared<State>()) {}

AsioRunLoop::~AsioRunLoop() = default;

void AsioRunLoop::post(Task task) { asio::post(m_state->context, std::move(task)); }

void AsioRunLoop::performAfter(double seconds, const void* target, std::string_view name, Task task) {
  auto call = std::make_shared<State::DelayedCall>(m_state->context);
  call->target = target;
  call->name = std::string(name);
  call->task = std::move(task);
  m_state->delayed.push_back(call);
  call->timer.expires_after(duration(seconds));
  m_state->await(call);
}

void AsioRunLoop::hasten(double seconds) {
  const auto sooner = duration(seconds);
  const auto last = std::chrono::steady_clock::now() + sooner;
  for (const std::shared_ptr<State::DelayedCall>& call : m_state->delayed) {
    // One whose time has come already waits for its turn, and is not put off again.
    if (call->timer.expiry() > last || call->timer.expires_at(call->timer.expiry() - sooner) == 0) continue;
    m_state->await(call);
  }
}

void AsioRunLoop::cancelPrevious(const void* target) {
  m_state->cancel([target](const State::DelayedCall& call) { return target && call.target == target; });
}

void AsioRunLoop::cancelPrevious(const void* target, std::string_view name) {
  m_state->cancel(
      [&](const State::DelayedCall& call) { return target && call.target == target && call.name == name; });
}

std::shared_ptr<RunLoop::Timer> AsioRunLoop::scheduledTimer(double intervalSeconds, Repeats repeats,
                                                            TimerTask task) {
  auto timer =
      std::make_shared<AsioTimer>(m_state->context, std::max(0.0001, intervalSeconds), repeats, std::move(task));
  timer->start();
  return timer;
}

double AsioRunLoop::now() const {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

bool AsioRunLoop::runUntil(const std::function<bool()>& condition, double timeoutSeconds) {
  const auto end = std::chrono::steady_clock::now() + duration(timeoutSeconds);
  while (!condition()) {
    if (std::chrono::steady_clock::now() >= end) return false;
    m_state->context.run_one_until(end);
  }
  return true;
}

}  // namespace vorn
