// What an account may not do: hold meetings without a licence, and hold long ones without a paid plan.

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "tests/road/Calendars.h"

namespace vorn {
namespace {

using EditorId = RoadWorld::EditorId;

constexpr int kWithoutLicence = 0;
constexpr int kWithoutPaidPlan = 1;
constexpr int kPaid = 2;

constexpr const char* kAnHour = "SUMMARY:Review\r\n";

void becomes(RoadWorld& world, int userType) {
  vornlab::Account account = world.service.account();
  account.type = userType;
  world.service.setAccount(account);
}

TEST(Licence, ThatComesLaterLetsTheSaveGoOn) {
  RoadWorld world(calendarWith(kAnHour));
  EditorId editor = world.openEditor("one");
  world.clickAdd(editor);
  world.saveAndClose(editor);
  const std::string before = world.calendarText();
  for (const int userType : {kWithoutLicence, kPaid}) {
    becomes(world, userType);
    editor = world.openEditor("one");
    world.host.typeSubject(editor, "Renamed");
    world.saveAndClose(editor);
    EXPECT_EQ(world.host.isOpen(editor), userType == kWithoutLicence);
    EXPECT_EQ(world.calendarText() == before, userType == kWithoutLicence);
    if (userType == kWithoutLicence) world.abandon(editor);
  }
  EXPECT_EQ(world.store.find("one")->summary(), "Renamed");
}

// The three answers to the host, and any other, which also stops it, for each of its four ways to save.
TEST(SaveContract, TheHostGoesOnOnlyWhenItIsToldTo) {
  enum Outcome { passOn, blocked, notice, errorCode };
  const std::tuple<const char*, Arguments, bool> hooks[] = {
      {"save:", {Value()}, false},
      {"saveAndCloseWindow:", {true}, true},
      {"sendMeetingPostValidate", {}, false},
      {"saveAndCloseWindow:andReturnError:", {true, Value()}, true},
  };
  for (const bool hasAttendees : {false, true}) {
    for (const auto& [selector, arguments, givesResult] : hooks) {
      for (const Outcome outcome : {passOn, blocked, notice, errorCode}) {
        SCOPED_TRACE(std::string(selector) + (hasAttendees ? " with attendees, " : ", ") +
                     std::to_string(outcome));
        RoadWorld world(calendarWith(std::string(kAnHour) + (hasAttendees ? kGuest : "")));
        becomes(world, outcome == notice ? kWithoutPaidPlan : kPaid);
        const EditorId editor = world.openEditor("one");
        if (outcome != passOn) world.clickAdd(editor);
        world.host.typeSubject(editor, "Renamed");
        if (outcome == errorCode) {
          world.runtime.send(world.host.viewController(editor), "setIsCancelMode:", {true});
          world.quitClient();
        }
        const int storedBefore = world.host.storedCount();
        const std::size_t alerts = world.presenter.alerts().size();
        const Value result = world.runtime.send(world.host.viewController(editor), selector, arguments);
        EXPECT_EQ(world.host.storedCount() - storedBefore, outcome == passOn ? 1 : 0);
        EXPECT_EQ(result.integerValue(), givesResult && outcome != passOn ? -1 : 0);
        EXPECT_EQ(world.presenter.alerts().size() > alerts, outcome == notice || outcome == errorCode);
      }
    }
  }
}

}  // namespace
}  // namespace vorn
