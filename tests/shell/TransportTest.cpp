// One scenario over each transport, with real processes: a meeting is made, the client dies, and it comes back.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "lab/shell/LabError.h"
#include "lab/shell/MeetingRoad.h"
#include "lab/shell/Session.h"
#include "tests/shell/Calendars.h"
#include "tests/shell/ProgramRun.h"
#include "tests/support/PrivateBus.h"

namespace vornlab::test {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

// For an answer that comes, on whatever machine, and for one that never does.
constexpr double kLongSeconds = 60;
constexpr double kShortSeconds = 1;

class Transport : public ::testing::TestWithParam<const char*> {
 protected:
  static void SetUpTestSuite() {
    if (!vorn::PrivateBus::isInstalled()) return;
    m_bus = std::make_unique<vorn::PrivateBus>();
    setenv("DBUS_SESSION_BUS_ADDRESS", m_bus->address().c_str(), 1);
  }
  static void TearDownTestSuite() {
    m_bus.reset();
    unsetenv("DBUS_SESSION_BUS_ADDRESS");
  }

  void SetUp() override {
    if (!m_bus) GTEST_SKIP() << "dbus-daemon is not installed";
    IcsProblem problem;
    ASSERT_TRUE(
        m_calendar.loadText(calendar({appointment("first", "First"), appointment("second", "Second")}), problem))
        << problem.message;
    m_options.programs = std::filesystem::path(VORNLAB_PROGRAM).parent_path();
    m_options.world = m_folder / "w";
    m_options.clientDatabase = m_folder / "meetings.db";
    m_options.systemVersion = GetParam();
  }

  // "added", or "failed: " and the reason.
  std::string take(MeetingRoad& road, const char* uid) {
    const MeetResult result = road.take(*m_calendar.find(uid));
    const std::string name(nameOf(result.outcome));
    return result.reason.empty() ? name : name + ": " + result.reason;
  }

  static std::size_t connectionsOf(const Session& session) {
    return occurrences(contentOf(session.world().journal()), "\"event\":\"connected\"");
  }

  bool usesSocket() const { return std::string(GetParam()) == "10.15.0"; }

  static std::unique_ptr<vorn::PrivateBus> m_bus;
  TemporaryFolder m_folder;
  CalendarStore m_calendar;
  LabOptions m_options;
};

std::unique_ptr<vorn::PrivateBus> Transport::m_bus;

TEST_P(Transport, AMeetingIsMadeAndTheClientMayDieAndComeBack) {
  Session session(m_options, m_calendar, {});
  MeetingRoad road(session, kLongSeconds);
  EXPECT_EQ(take(road, "first"), "added");
  const std::string before = m_calendar.text();

  session.killClient();
  EXPECT_THAT(take(road, "second"), AllOf(StartsWith("failed"), HasSubstr("running")));
  EXPECT_EQ(m_calendar.text(), before);

  session.restartClient();
  if (usesSocket()) {
    // A lost peer is not noticed: the channel stays silent until the main window closes, and then the first
    // message only starts the connection anew.
    session.host().closeMainWindow();
    session.host().openMainWindow();
    const std::size_t connections = connectionsOf(session);
    MeetingRoad hasty(session, kShortSeconds);
    EXPECT_THAT(take(hasty, "second"), StartsWith("failed"));
    EXPECT_EQ(m_calendar.text(), before);
    ASSERT_TRUE(session.waitUntil([&] { return connectionsOf(session) > connections; }, kLongSeconds));
  }
  EXPECT_EQ(take(road, "second"), "added");
  EXPECT_EQ(take(road, "first"), "unchanged");

  const std::string journal = contentOf(session.world().journal());
  EXPECT_THAT(journal, HasSubstr("VornOutlookPlugin.GetClientVersion"))
      << "the agent hears on the bus in either case";
  EXPECT_THAT(journal, HasSubstr("Noti_SilentActiveVornApp"));
  EXPECT_EQ(occurrences(journal, "VornOutlookPluginToVornVideoClient") == 0, usesSocket());
  EXPECT_EQ(connectionsOf(session) == 0, !usesSocket());
}

INSTANTIATE_TEST_SUITE_P(Systems, Transport, ::testing::Values("10.14.6", "10.15.0"), [](const auto& info) {
  return std::string(info.param) == "10.15.0" ? std::string("Socket") : std::string("Notifications");
});

TEST(TransportWithoutABus, IsRefusedWithAWordWhereItIsNeeded) {
  setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus", 1);
  TemporaryFolder folder;
  CalendarStore calendar;
  LabOptions options;
  options.programs = std::filesystem::path(VORNLAB_PROGRAM).parent_path();
  options.systemVersion = "10.14.6";
  EXPECT_THROW(Session(options, calendar, {}), LabError);
  unsetenv("DBUS_SESSION_BUS_ADDRESS");
}

}  // namespace
}  // namespace vornlab::test
