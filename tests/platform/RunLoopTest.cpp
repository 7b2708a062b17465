#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/embedded/RealTimeRunLoop.h"
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
  static constexpr double kLimit = 120;

  RunLoop::Task noting(std::string text) {
    return [this, text = std::move(text)] { m_log.push_back(text); };
  }
  bool runUntilNoted(std::size_t count) {
    return m_loop.runUntil([this, count] { return m_log.size() >= count; }, kLimit);
  }

  Loop m_loop;
  std::vector<std::string> m_log;
  int m_target = 0;
  int m_otherTarget = 0;
};

using OwnLoops = testing::Types<VirtualRunLoop, RealTimeRunLoop>;
#ifdef VORN_OBJC
using Loops = testing::Types<VirtualRunLoop, RealTimeRunLoop, AppleHostLoop>;
#else
using Loops = OwnLoops;
#endif
TYPED_TEST_SUITE(RunLoopContract, Loops);

using Log = std::vector<std::string>;

TYPED_TEST(RunLoopContract, PostedTasksRunInOrderAndNotInsideThePost) {
  this->m_loop.post([this] {
    this->m_loop.post(this->noting("third"));
    this->m_log.push_back("first");
  });
  this->m_loop.post(this->noting("second"));
  EXPECT_TRUE(this->m_log.empty());
  EXPECT_TRUE(this->runUntilNoted(3));
  EXPECT_EQ(this->m_log, (Log{"first", "second", "third"}));
}

// As an alert does that is shown in a task: what comes in meanwhile neither waits for its end nor overtakes.
TYPED_TEST(RunLoopContract, WhileATaskRunsTheLoopInsideItselfTheNextOnesRunInOrder) {
  RunLoop& loop = this->m_loop;
  const auto alert = [this, &loop] {
    this->m_log.push_back("alert");
    loop.post(this->noting("inside"));
    std::thread([&] { loop.post(this->noting("reply")); }).join();
    EXPECT_TRUE(this->m_loop.runUntil([this] { return this->m_log.back() == "reply"; }, this->kLimit));
    loop.performAfter(0.001, &this->m_target, "delayed", this->noting("delayed"));
    EXPECT_TRUE(this->m_loop.runUntil([this] { return this->m_log.back() == "delayed"; }, this->kLimit));
    loop.post(this->noting("behind"));
    std::thread([&] { loop.post(this->noting("late reply")); }).join();
    EXPECT_TRUE(
        this->m_loop.runUntil([this] { return std::ranges::count(this->m_log, "behind") > 0; }, this->kLimit));
    this->m_log.push_back("closed");
  };
  const RunLoop::Task waitingBehindIt = [&] {
    loop.post(this->noting("waiting"));
    alert();
  };
  const std::function<void()> ways[] = {
      [&] {
        loop.post(alert);
        loop.post(this->noting("waiting"));
      },
      [&] { loop.performAfter(0, &this->m_target, "alert", waitingBehindIt); },
      [&] { loop.scheduledTimer(0.001, RunLoop::Repeats::no, [&](RunLoop::Timer&) { waitingBehindIt(); }); }};
  for (const auto& show : ways) {
    this->m_log.clear();
    show();
    EXPECT_TRUE(this->runUntilNoted(8));
    // A slow machine may have the late reply before the alert sees that it is over; it is never before what came
    // first.
    std::erase(this->m_log, "closed");
    EXPECT_EQ(this->m_log, (Log{"alert", "waiting", "inside", "reply", "delayed", "behind", "late reply"}));
  }
}

TYPED_TEST(RunLoopContract, OtherThreadsMayPost) {
  constexpr int kThreads = 4;
  constexpr int kPosts = 200;
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([this] {
      for (int n = 0; n < kPosts; ++n) this->m_loop.post(this->noting("x"));
    });
  }
  for (std::thread& each : threads) each.join();
  EXPECT_TRUE(this->runUntilNoted(kThreads * kPosts));
}

TYPED_TEST(RunLoopContract, DelayedCallsRunByTheirTime) {
  this->m_loop.performAfter(0.4, &this->m_target, "late", this->noting("late"));
  this->m_loop.performAfter(0.1, &this->m_target, "early", this->noting("early"));
  this->m_loop.performAfter(0, &this->m_target, "now", this->noting("now"));
  EXPECT_TRUE(this->m_log.empty()) << "not even without a delay inside the call";
  const double start = this->m_loop.now();
  EXPECT_TRUE(this->runUntilNoted(3));
  EXPECT_EQ(this->m_log, (Log{"now", "early", "late"}));
  EXPECT_GE(this->m_loop.now() - start, 0.39);
}

TYPED_TEST(RunLoopContract, DelayedCallsAreCancelledByTargetOrByName) {
  RunLoop& loop = this->m_loop;
  loop.performAfter(0.01, &this->m_target, "a", this->noting("a"));
  loop.performAfter(0.01, &this->m_target, "b", this->noting("b"));
  loop.performAfter(0.01, &this->m_otherTarget, "a", this->noting("other a"));
  loop.performAfter(0.01, nullptr, "a", this->noting("nobody's a"));
  loop.cancelPrevious(&this->m_target, "a");
  loop.cancelPrevious(&this->m_target, "unknown");
  loop.cancelPrevious(nullptr);
  EXPECT_TRUE(this->runUntilNoted(3));
  EXPECT_EQ(this->m_log, (Log{"b", "other a", "nobody's a"}));
  loop.performAfter(0.01, &this->m_target, "a", this->noting("gone"));
  loop.cancelPrevious(&this->m_target);
  loop.post([this] {
    // A call that is due already is forgotten all the same.
    this->m_loop.performAfter(0, &this->m_target, "a", this->noting("gone"));
    this->m_loop.cancelPrevious(&this->m_target);
  });
  // So is one that is due at the same time as the call that cancels it.
  loop.performAfter(0.01, &this->m_otherTarget, "first", [this] {
    this->m_log.push_back("first");
    this->m_loop.cancelPrevious(&this->m_otherTarget, "second");
  });
  loop.performAfter(0.01, &this->m_otherTarget, "second", this->noting("second"));
  this->m_loop.runFor(0.1);
  EXPECT_EQ(this->m_log, (Log{"b", "other a", "nobody's a", "first"}));
}

TYPED_TEST(RunLoopContract, ATimerFiresOnceOrUnheldUntilItIsInvalidatedAndIsThenInvalid) {
  RunLoop& loop = this->m_loop;
  bool validInside = true;
  const auto once = loop.scheduledTimer(0.01, RunLoop::Repeats::no, [&](RunLoop::Timer& fired) {
    validInside = fired.isValid();
    this->m_log.push_back("once");
  });
  const auto never = loop.scheduledTimer(0.01, RunLoop::Repeats::yes,
                                         [this](RunLoop::Timer&) { this->m_log.push_back("never"); });
  EXPECT_TRUE(once->isValid());
  never->invalidate();
  never->invalidate();
  EXPECT_FALSE(never->isValid());
  EXPECT_TRUE(this->runUntilNoted(1));
  EXPECT_FALSE(validInside || once->isValid());
  loop.scheduledTimer(0.01, RunLoop::Repeats::yes, [this](RunLoop::Timer& fired) {
    this->m_log.push_back("fired");
    if (this->m_log.size() == 4) fired.invalidate();
  });
  EXPECT_TRUE(this->runUntilNoted(4));
  this->m_loop.runFor(0.1);
  EXPECT_EQ(this->m_log, (Log{"once", "fired", "fired", "fired"}));
}

// What the loops that we run ourselves keep beyond that.
template <typename Loop>
class OwnRunLoop : public RunLoopContract<Loop> {};

TYPED_TEST_SUITE(OwnRunLoop, OwnLoops);

// The Objective-C loop too runs one task for each timer, but GNUstep may fire several timers before it returns.
TYPED_TEST(OwnRunLoop, ATurnRunsOnePostedTask) {
  for (int i = 0; i < 3; ++i) {
    this->m_loop.post([this] {
      this->m_log.push_back("x");
      // Whatever has been given a time is due when the task ends.
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    });
  }
  for (std::size_t count = 1; count <= 3; ++count) {
    EXPECT_TRUE(this->runUntilNoted(count));
    EXPECT_EQ(this->m_log.size(), count);
  }
}

TYPED_TEST(OwnRunLoop, HastenedCallsRunInTheirOrderAndOnlyThoseThatWereDueByThen) {
  const auto put = [this](double seconds, const char* name) {
    this->m_loop.performAfter(seconds, &this->m_target, name, this->noting(name));
  };
  put(40, "second");
  put(30, "cancelled");
  put(20, "first");
  put(600, "late");
  this->m_loop.cancelPrevious(&this->m_target, "cancelled");
  this->m_loop.post(this->noting("reply"));
  this->m_loop.hasten(50);
  ASSERT_TRUE(this->runUntilNoted(3));
  this->m_loop.runFor(0.01);
  EXPECT_EQ(this->m_log, (Log{"reply", "first", "second"}));
  this->m_loop.cancelPrevious(&this->m_target);
}

// As the reply and the time limit of a request, while the main thread is held by something else.
TYPED_TEST(OwnRunLoop, WhatWasPostedBeforeATimeCameRunsBeforeWhatIsDueThen) {
  this->m_loop.performAfter(0.02, &this->m_target, "limit", this->noting("limit"));
  this->m_loop.post(this->noting("reply"));
  std::this_thread::sleep_for(std::chrono::milliseconds(40));
  EXPECT_TRUE(this->runUntilNoted(2));
  EXPECT_EQ(this->m_log, (Log{"reply", "limit"}));
}

TYPED_TEST(OwnRunLoop, ACancelledCallMayCancelOthersWhenWhatItHoldsEnds) {
  RunLoop& loop = this->m_loop;
  for (const char* name : {"a", "b"}) {
    const std::shared_ptr<void> held(nullptr, [&](void*) { loop.cancelPrevious(&this->m_otherTarget); });
    loop.performAfter(0.01, &this->m_target, name, [held] {});
    loop.performAfter(0.01, &this->m_otherTarget, name, this->noting("other"));
  }
  loop.cancelPrevious(&this->m_target);
  this->m_loop.runFor(0.05);
  EXPECT_TRUE(this->m_log.empty());
}

TEST(RealTimeRunLoop, ATimerThatIsLateFiresOnceAndThenWaitsAgain) {
  RealTimeRunLoop loop;
  std::vector<double> times;
  loop.scheduledTimer(0.02, RunLoop::Repeats::yes, [&](RunLoop::Timer&) { times.push_back(loop.now()); });
  std::this_thread::sleep_for(std::chrono::milliseconds(70));
  EXPECT_TRUE(loop.runUntil([&] { return times.size() == 2; }, 120));
  EXPECT_GE(times[1] - times[0], 0.015);
}

TYPED_TEST(OwnRunLoop, RunningEndsWithTheConditionOrTheTime) {
  EXPECT_TRUE(this->m_loop.runUntil([] { return true; }, 0));
  const double start = this->m_loop.now();
  EXPECT_FALSE(this->m_loop.runUntil([] { return false; }, 0.02));
  EXPECT_GE(this->m_loop.now() - start, 0.019);
}

TYPED_TEST(RunLoopContract, WhatIsStillWaitingEndsQuietlyWithTheLoop) {
  this->m_loop.performAfter(100, &this->m_target, "a", this->noting("a"));
  this->m_loop.scheduledTimer(100, RunLoop::Repeats::yes, [](RunLoop::Timer&) {});
  this->m_loop.post(this->noting("b"));
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
