// The real bundle in the host of true Objective-C classes, with the client as a process of its own. Without the
// Objective-C edge there is nothing to try here.

#ifdef VORN_OBJC

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "lab/objc/ObjcLab.h"

namespace vornlab {
namespace {

constexpr double kHour = 3600;

std::filesystem::path& ownWorld() {
  static std::filesystem::path world;
  return world;
}

class ObjectiveCHost : public testing::Test {
 protected:
  // A process has one host.
  static void SetUpTestSuite() {
    static CalendarStore shown;
    calendar = &shown;
    IcsProblem problem;
    calendar->loadText(
        "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:test\r\n"
        "BEGIN:VEVENT\r\nUID:one\r\nDTSTAMP:20300101T000000Z\r\nDTSTART:20300514T120000Z\r\n"
        "DTEND:20300514T133000Z\r\nSUMMARY:Review\r\nEND:VEVENT\r\n"
        "BEGIN:VEVENT\r\nUID:plain\r\nDTSTAMP:20300101T000000Z\r\nDTSTART:20300515T120000Z\r\n"
        "DTEND:20300515T130000Z\r\nSUMMARY:Lunch\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n",
        problem);
    LabOptions options;
    options.programs = VORNLAB_PROGRAMS;
    options.world = ownWorld();
    lab = std::make_unique<ObjcLab>(options, *calendar, "");
  }
  static void TearDownTestSuite() { lab.reset(); }

  static CalendarEvent event(const char* uid) { return calendar->find(uid).value(); }
  // Requests that the act leads to.
  static std::size_t requestsFor(const std::function<void()>& act) {
    const std::size_t before = lab->requests();
    act();
    EXPECT_TRUE(lab->waitForQuiet());
    return lab->requests() - before;
  }

  static CalendarStore* calendar;
  static std::unique_ptr<ObjcLab> lab;
};

CalendarStore* ObjectiveCHost::calendar = nullptr;
std::unique_ptr<ObjcLab> ObjectiveCHost::lab;

TEST_F(ObjectiveCHost, EveryRowOfTheTableStands) {
  const vorn::Value told = lab->ask("hooks");
  EXPECT_GT(told["rows"].integerValue(), 0);
  EXPECT_EQ(told["standing"], told["rows"]);
  EXPECT_THROW(lab->ask("no such question"), LabError);
}

TEST_F(ObjectiveCHost, TheBundleSharesTheLibraryThatTheHostHasAlready) {
  std::set<std::string> copies;
  std::ifstream maps("/proc/self/maps");
  for (std::string line; std::getline(maps, line);) {
    if (line.find("/libvorn_platform.") != std::string::npos) copies.insert(line.substr(line.find('/')));
  }
  EXPECT_EQ(copies.size(), 1U);
}

TEST_F(ObjectiveCHost, WhatAPersonDoesOnTheGridIsStoredAndReachesTheService) {
  ASSERT_EQ(lab->take(event("one")).outcome, Outcome::added);
  const double start = event("one").start()->seconds;

  EXPECT_GT(requestsFor([&] { EXPECT_TRUE(lab->drag(event("one"), start + kHour)); }), 0U);
  EXPECT_EQ(event("one").start()->seconds, start + kHour);
  EXPECT_EQ(event("one").end()->seconds, start + kHour + 1.5 * kHour);
  EXPECT_GT(requestsFor([&] { EXPECT_TRUE(lab->resize(event("one"), start, 0.5 * kHour)); }), 0U);
  EXPECT_EQ(event("one").end()->seconds, start + 0.5 * kHour);
  EXPECT_GT(requestsFor([&] { EXPECT_TRUE(lab->rename(event("one"), "Review, short")); }), 0U);
  EXPECT_EQ(event("one").summary(), "Review, short");
  EXPECT_GT(requestsFor([&] { EXPECT_TRUE(lab->deleteFromCalendar(event("one"))); }), 0U);
  EXPECT_FALSE(calendar->find("one"));
}

TEST_F(ObjectiveCHost, AnAppointmentWithoutAMeetingIsTheHostsAlone) {
  const double start = event("plain").start()->seconds;
  const std::size_t requests = requestsFor([&] {
    EXPECT_TRUE(lab->drag(event("plain"), start + kHour));
    EXPECT_TRUE(lab->rename(event("plain"), "Long lunch"));
  });
  EXPECT_EQ(requests, 0U);
  EXPECT_EQ(event("plain").summary(), "Long lunch");
}

TEST_F(ObjectiveCHost, ABodyIsNoChangeThatAttendeesHearOf) {
  EXPECT_FALSE(lab->findsChangesForAttendees(event("plain"), "content.body"));
  EXPECT_TRUE(lab->findsChangesForAttendees(event("plain"), "content.summary"));
}

}  // namespace
}  // namespace vornlab

// The second run of this program, in a world of its own, is the one that tries anything.
int main(int argc, char** argv) {
  vornlab::ownWorld() = vornlab::enterOwnWorld(argv);
  testing::InitGoogleTest(&argc, argv);
  const int result = RUN_ALL_TESTS();
  std::filesystem::remove_all(vornlab::ownWorld());
  return result;
}

#endif
