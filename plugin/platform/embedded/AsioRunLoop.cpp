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

struct DelayedCall {
  explicit DelayedCall(asio::io_context& context) : timer(context) {}
  asio::steady_timer timer;
  const void* target = nullptr;
  std::string name;
  RunLoop::Task task;
  bool cancelled = false;
};

class AsioTimer final : public RunLoop::Timer, public std::enable_shared_from_this<AsioTimer> {
 public:
  AsioTimer(asio::io_context& context, double interval, RunLoop::Repeats repeats, RunLoop::TimerTask task)
      : timer_(context), interval_(duration(interval)), repeats_(repeats), task_(std::move(task)) {}

  void invalidate() override {
    valid_ = false;
    timer_.cancel();
  }
  bool isValid() const override { return valid_; }

  void start() {
    timer_.expires_after(interval_);
    wait();
  }

 private:
  void wait() {
    timer_.async_wait([self = shared_from_this()](const asio::error_code& error) {
      if (error || !self->valid_) return;
      if (self->repeats_ == RunLoop::Repeats::no) self->valid_ = false;
      self->task_(*self);
      if (!self->valid_) return;
      self->timer_.expires_at(self->timer_.expiry() + self->interval_);
      self->wait();
    });
  }

  asio::steady_timer timer_;
  std::chrono::steady_clock::duration interval_;
  RunLoop::Repeats repeats_;
  RunLoop::TimerTask task_;
  bool valid_ = true;
};

}  // namespace

struct AsioRunLoop::State {
  asio::io_context context{1};
  asio::executor_work_guard<asio::io_context::executor_type> keepsRunning = asio::make_work_guard(context);
  std::list<std::shared_ptr<DelayedCall>> delayed;

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

AsioRunLoop::AsioRunLoop() : state_(std::make_shared<State>()) {}

AsioRunLoop::~AsioRunLoop() = default;

void AsioRunLoop::post(Task task) { asio::post(state_->context, std::move(task)); }

void AsioRunLoop::performAfter(double seconds, const void* target, std::string_view name, Task task) {
  auto call = std::make_shared<DelayedCall>(state_->context);
  call->target = target;
  call->name = std::string(name);
  call->task = std::move(task);
  state_->delayed.push_back(call);
  call->timer.expires_after(duration(seconds));
  call->timer.async_wait([state = state_.get(), call](const asio::error_code&) {
    if (call->cancelled) return;
    state->delayed.remove(call);
    const Task due = std::move(call->task);
    due();
  });
}

void AsioRunLoop::cancelPrevious(const void* target) {
  state_->cancel([target](const DelayedCall& call) { return target && call.target == target; });
}

void AsioRunLoop::cancelPrevious(const void* target, std::string_view name) {
  state_->cancel([&](const DelayedCall& call) { return target && call.target == target && call.name == name; });
}

std::shared_ptr<RunLoop::Timer> AsioRunLoop::scheduledTimer(double intervalSeconds, Repeats repeats,
                                                            TimerTask task) {
  auto timer =
      std::make_shared<AsioTimer>(state_->context, std::max(0.0001, intervalSeconds), repeats, std::move(task));
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
    state_->context.run_one_until(end);
  }
  return true;
}

}  // namespace vorn
