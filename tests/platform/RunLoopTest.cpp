#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "platform/embedded/AsioRunLoop.h"
#include "platform/embedded/VirtualRunLoop.h"
#ifdef VORN_OBJC
#include "tests/conformance/AppleHostLoop.h"
#endif

namespace vorn {
namespace {

// What every run loop of ours keeps, whatever its clock is. Waits are bounded by a generous limit; only the loop
// in real time can come near it.
template <typename Loop>
class RunLoopContract : public testing::Test {
 protected:
  static constexpr double kLimit = 20;

  RunLoop::Task noting(std::string text) {
    return [this, text = std::move(text)] { log_.push_back(text); };
  }
  bool runUntilNoted(std::size_t count) {
    return loop_.runUntil([this, count] { return log_.size() >= count; }, kLimit);
  }

  Loop loop_;
  std::vector<std::string> log_;
  int target_ = 0;
  int otherTarget_ = 0;
};

using OwnLoops = testing::Types<VirtualRunLoop, AsioRunLoop>;
#ifdef VORN_OBJC
using Loops = testing::Types<VirtualRunLoop, AsioRunLoop, AppleHostLoop>;
#else
using Loops = OwnLoops;
#endif
TYPED_TEST_SUITE(RunLoopContract, Loops);

using Log = std::vector<std::string>;

TYPED_TEST(RunLoopContract, PostedTasksRunInOrderAndNotInsideThePost) {
  this->loop_.post([this] {
    this->loop_.post(this->noting("third"));
    this->log_.push_back("first");
  });
  this->loop_.post(this->noting("second"));
  EXPECT_TRUE(this->log_.empty());
  EXPECT_TRUE(this->runUntilNoted(3));
  EXPECT_EQ(this->log_, (Log{"first", "second", "third"}));
}

TYPED_TEST(RunLoopContract, OtherThreadsMayPost) {
  constexpr int kThreads = 4;
  constexpr int kPosts = 200;
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([this] {
      for (int n = 0; n < kPosts; ++n) this->loop_.post(this->noting("x"));
    });
  }
  for (std::thread& each : threads) each.join();
  EXPECT_TRUE(this->runUntilNoted(kThreads * kPosts));
}

TYPED_TEST(RunLoopContract, DelayedCallsRunByTheirTime) {
  this->loop_.performAfter(0.05, &this->target_, "late", this->noting("late"));
  this->loop_.performAfter(0.01, &this->target_, "early", this->noting("early"));
  this->loop_.performAfter(0, &this->target_, "now", this->noting("now"));
  EXPECT_TRUE(this->log_.empty()) << "not even without a delay inside the call";
  const double start = this->loop_.now();
  EXPECT_TRUE(this->runUntilNoted(3));
  EXPECT_EQ(this->log_, (Log{"now", "early", "late"}));
  EXPECT_GE(this->loop_.now() - start, 0.04);
}

TYPED_TEST(RunLoopContract, DelayedCallsAreCancelledByTargetOrByName) {
  RunLoop& loop = this->loop_;
  loop.performAfter(0.01, &this->target_, "a", this->noting("a"));
  loop.performAfter(0.01, &this->target_, "b", this->noting("b"));
  loop.performAfter(0.01, &this->otherTarget_, "a", this->noting("other a"));
  loop.performAfter(0.01, nullptr, "a", this->noting("nobody's a"));
  loop.cancelPrevious(&this->target_, "a");
  loop.cancelPrevious(&this->target_, "unknown");
  loop.cancelPrevious(nullptr);
  this->loop_.runFor(0.1);
  EXPECT_EQ(this->log_, (Log{"b", "other a", "nobody's a"}));
  loop.performAfter(0.01, &this->target_, "a", this->noting("gone"));
  loop.cancelPrevious(&this->target_);
  loop.post([this] {
    // A call that is due already is forgotten all the same.
    this->loop_.performAfter(0, &this->target_, "a", this->noting("gone"));
    this->loop_.cancelPrevious(&this->target_);
  });
  this->loop_.runFor(0.1);
  EXPECT_EQ(this->log_.size(), 3U);
}

TYPED_TEST(RunLoopContract, ACallMayCancelAnotherThatIsDueAtTheSameTime) {
  this->loop_.performAfter(0.01, &this->target_, "first", [this] {
    this->log_.push_back("first");
    this->loop_.cancelPrevious(&this->target_, "second");
  });
  this->loop_.performAfter(0.01, &this->target_, "second", this->noting("second"));
  this->loop_.runFor(0.1);
  EXPECT_EQ(this->log_, (Log{"first"}));
}

TYPED_TEST(RunLoopContract, AOneShotTimerFiresOnceAndIsThenInvalid) {
  bool validInside = true;
  const auto timer = this->loop_.scheduledTimer(0.01, RunLoop::Repeats::no, [&](RunLoop::Timer& fired) {
    validInside = fired.isValid();
    this->log_.push_back("fired");
  });
  EXPECT_TRUE(timer->isValid());
  this->loop_.runFor(0.1);
  EXPECT_EQ(this->log_, (Log{"fired"}));
  EXPECT_FALSE(validInside);
  EXPECT_FALSE(timer->isValid());
}

TYPED_TEST(RunLoopContract, ARepeatingTimerGoesOnUnheldUntilItInvalidatesItself) {
  this->loop_.scheduledTimer(0.01, RunLoop::Repeats::yes, [this](RunLoop::Timer& fired) {
    this->log_.push_back("fired");
    if (this->log_.size() == 3) fired.invalidate();
  });
  EXPECT_TRUE(this->runUntilNoted(3));
  this->loop_.runFor(0.1);
  EXPECT_EQ(this->log_.size(), 3U);
}

TYPED_TEST(RunLoopContract, AnInvalidatedTimerDoesNotFire) {
  const auto timer = this->loop_.scheduledTimer(0.01, RunLoop::Repeats::yes,
                                                [this](RunLoop::Timer&) { this->log_.push_back("fired"); });
  timer->invalidate();
  timer->invalidate();
  EXPECT_FALSE(timer->isValid());
  this->loop_.runFor(0.05);
  EXPECT_TRUE(this->log_.empty());
}

// What the loops that we run ourselves keep beyond that.
template <typename Loop>
class OwnRunLoop : public RunLoopContract<Loop> {};

TYPED_TEST_SUITE(OwnRunLoop, OwnLoops);

TYPED_TEST(OwnRunLoop, RunningEndsWithTheConditionOrTheTime) {
  EXPECT_TRUE(this->loop_.runUntil([] { return true; }, 0));
  this->loop_.post(this->noting("a"));
  this->loop_.post(this->noting("b"));
  EXPECT_TRUE(this->runUntilNoted(1));
  EXPECT_EQ(this->log_.size(), 1U) << "tested after each task";
  const double start = this->loop_.now();
  EXPECT_FALSE(this->loop_.runUntil([] { return false; }, 0.02));
  EXPECT_GE(this->loop_.now() - start, 0.019);
}

TYPED_TEST(RunLoopContract, WhatIsStillWaitingEndsQuietlyWithTheLoop) {
  this->loop_.performAfter(100, &this->target_, "a", this->noting("a"));
  this->loop_.scheduledTimer(100, RunLoop::Repeats::yes, [](RunLoop::Timer&) {});
  this->loop_.post(this->noting("b"));
}

TEST(VirtualRunLoop, SixtySecondsPassInAnExactOrder) {
  VirtualRunLoop loop;
  std::vector<double> times;
  loop.scheduledTimer(2, RunLoop::Repeats::yes, [&](RunLoop::Timer&) { times.push_back(loop.now()); });
  loop.scheduledTimer(60, RunLoop::Repeats::no, [&](RunLoop::Timer&) { times.push_back(-1); });
  loop.runFor(60);
  ASSERT_EQ(times.size(), 31U);
  EXPECT_EQ(times.front(), 2);
  EXPECT_EQ(times[29], -1) << "scheduled before the last turn of the other";
  EXPECT_EQ(times.back(), 60);
  loop.performAfter(5, nullptr, "later", [&] { times.clear(); });
  loop.runDue();
  EXPECT_EQ(loop.now(), 60) << "what is not due does not move the clock";
  EXPECT_EQ(times.size(), 31U);
}

}  // namespace
}  // namespace vorn
