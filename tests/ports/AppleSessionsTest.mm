// The modal sessions behind the progress sheets of an Objective-C host.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#include <utility>

#include "platform/apple/ApplePresenter.h"
#include "platform/apple/LiveObjects.h"
#include "platform/apple/Ownership.h"
#include "platform/embedded/VirtualRunLoop.h"
#include "tests/ports/AppleToolkit.h"

namespace vorn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class AppleSessions : public testing::Test {
 protected:
  AutoreleasePool pool;
  AppleToolkit& toolkit = AppleToolkit::fresh();
  VirtualRunLoop loop;
  ApplePresenter presenter{loop, "", nullptr};
};

TEST_F(AppleSessions, ASessionEndsAsSoonAsNothingStandsOnIt) {
  auto lower = presenter.beginProgress("lower");
  const id panel = AppleToolkit::sessions().back();
  auto upper = presenter.beginProgress("upper");
  lower.reset();
  EXPECT_THAT(AppleToolkit::panels(), SizeIs(1));
  EXPECT_THAT(AppleToolkit::sessions(), SizeIs(2)) << "the other one still stands on it";
  EXPECT_EQ(AppleToolkit::sessions().front(), panel);
  upper.reset();
  EXPECT_THAT(AppleToolkit::sessions(), IsEmpty());
}

TEST_F(AppleSessions, ADialogOfTheHostIsNotStoppedAndTheSessionBelowItEndsAfterIt) {
  int wronglyStopped = 0;
  toolkit.hears = [&](const std::string& selector) {
    if (selector == "stopModal" && !AppleToolkit::sessions().empty()) ++wronglyStopped;
  };
  auto sheet = presenter.beginProgress("sheet");
  NSApplication* application = [NSApplication sharedApplication];
  NSWindow* dialog = [[[NSWindow alloc] init] autorelease];
  void* session = [application beginModalSessionForWindow:dialog];
  sheet.reset();
  EXPECT_THAT(AppleToolkit::panels(), IsEmpty());
  loop.runUntil([] { return false; }, 10);
  EXPECT_THAT(AppleToolkit::sessions(), SizeIs(2));
  [application endModalSession:session];
  loop.runUntil([] { return false; }, 1);
  EXPECT_THAT(AppleToolkit::sessions(), IsEmpty());

  // One that was there before is left alone as well.
  session = [application beginModalSessionForWindow:dialog];
  presenter.beginProgress("sheet").reset();
  EXPECT_THAT(AppleToolkit::sessions(), ElementsAre(dialog));
  [application endModalSession:session];
  EXPECT_EQ(wronglyStopped, 0);
}

TEST_F(AppleSessions, ASheetLeavesTheScreenAfterItsSessionUnlessThatHasToWait) {
  std::vector<std::string> heard;
  toolkit.hears = [&](const std::string& selector) {
    if (selector != "modalWindow") heard.push_back(selector);
  };
  auto lower = presenter.beginProgress("lower");
  auto upper = presenter.beginProgress("upper");
  lower.reset();
  EXPECT_THAT(heard, ElementsAre("orderOut:"));
  heard.clear();
  upper.reset();
  EXPECT_THAT(heard, ElementsAre("endModalSession:", "orderOut:", "endModalSession:", "stopModal", "orderOut:"));
}

TEST_F(AppleSessions, ASheetThatBeginsWhileAnotherOneEndsStandsOnItsOwn) {
  for (const char* moment : {"endModalSession:", "orderOut:"}) {
    SCOPED_TRACE(moment);
    std::vector<std::unique_ptr<Presenter::Progress>> begun;
    bool hasBegun = false;
    toolkit.hears = [&](const std::string& selector) {
      if (selector != moment || std::exchange(hasBegun, true)) return;
      for (int i = 0; i < 8; ++i) begun.push_back(presenter.beginProgress("next"));
    };
    presenter.beginProgress("sheet").reset();
    EXPECT_THAT(AppleToolkit::sessions(), SizeIs(8));
    EXPECT_THAT(AppleToolkit::panels(), SizeIs(8));
    while (!begun.empty()) begun.pop_back();
    EXPECT_THAT(AppleToolkit::sessions(), IsEmpty());
    EXPECT_THAT(AppleToolkit::panels(), IsEmpty());
  }
}

TEST_F(AppleSessions, AHostThatRaisesAtTheEndOfASheetOrAViewIsLeftToItself) {
  std::string raising;
  int raised = 0;
  toolkit.hears = [&](const std::string& selector) {
    if (selector != raising) return;
    ++raised;
    [NSException raise:NSGenericException format:@"not now"];
  };
  for (const char* selector : {"modalWindow", "endModalSession:", "stopModal", "orderOut:"}) {
    SCOPED_TRACE(selector);
    auto lower = presenter.beginProgress("lower");
    auto upper = presenter.beginProgress("upper");
    raising = selector;
    raised = 0;
    lower.reset();
    upper.reset();
    EXPECT_THAT(AppleToolkit::sessions(), IsEmpty());
    EXPECT_THAT(AppleToolkit::panels(), IsEmpty());
    EXPECT_GT(raised, 0);
  }
}

TEST_F(AppleSessions, AnAlertThatIsBrokenOffCountsAsRefused) {
  std::vector<std::size_t> told;
  vornlab::alertDesk().answers = {{vornlab::AlertDesk::kBrokenOff, false}};
  presenter.showAlert({}, {"", "", {"Go on", "Back"}, ""},
                      [&](const Presenter::Answer& answer) { told.push_back(answer.button); });
  EXPECT_THAT(told, IsEmpty()) << "the caller does not wait for it";
  loop.runDue();
  EXPECT_THAT(told, ElementsAre(1));
}

}  // namespace
}  // namespace vorn
