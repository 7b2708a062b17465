#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "RunningClient.h"
#include "lab/client/ClientLauncher.h"
#include "platform/embedded/EmbeddedDistributedNotifications.h"
#include "platform/embedded/RealTimeRunLoop.h"
#include "tests/support/PrivateBus.h"

namespace vornlab {
namespace {

using test::Caller;
using test::RunningClient;
using testing::HasSubstr;
using vorn::Value;

Value asDictionary(const Envelope& envelope) {
  return Value::Dictionary{{"actionId", std::to_string(envelope.action)}, {"content", envelope.content}};
}

// The program and the product's own end of the bus, in two processes.
class NotificationsTest : public testing::Test {
 protected:
  using Names = std::vector<std::string>;

  void SetUp() override {
    if (!vorn::PrivateBus::isInstalled()) GTEST_SKIP() << "dbus-daemon is not installed";
    bus = std::make_unique<vorn::PrivateBus>();
    ::setenv("DBUS_SESSION_BUS_ADDRESS", bus->address().c_str(), 1);
    plugin = vorn::EmbeddedDistributedNotifications::connect(loop);
    ASSERT_TRUE(plugin);
    for (const char* name : {kReply, kVersion}) {
      subscriptions.push_back(plugin->observe(name, [this, name](const Value& userInfo) {
        heard.emplace_back(name, Envelope{static_cast<std::uint32_t>(userInfo["actionId"].integerValue()),
                                          userInfo["content"].text()});
      }));
    }
  }
  void TearDown() override { ::unsetenv("DBUS_SESSION_BUS_ADDRESS"); }

  std::vector<std::string> arguments(std::vector<std::string> more) const {
    std::vector<std::string> all = {"--home",    home.path(),      "--db",      home / "meetings.db",
                                    "--journal", home / "journal", "--version", "5.4.60000"};
    all.insert(all.end(), more.begin(), more.end());
    return all;
  }

  void request(const Envelope& envelope) {
    plugin->post("VornOutlookPluginToVornVideoClient", asDictionary(envelope));
  }
  bool waitForReplies(std::size_t count) {
    return loop.runUntil([&] { return heard.size() >= count; }, 120);
  }

  static constexpr auto kReply = "VornVideoClientToVornOutlookPlugin";
  static constexpr auto kVersion = "vOutlookPluginAgentToVOutlookPlugin";

  test::TemporaryFolder home;
  vorn::RealTimeRunLoop loop;
  std::unique_ptr<vorn::PrivateBus> bus;
  std::unique_ptr<vorn::EmbeddedDistributedNotifications> plugin;
  std::vector<std::unique_ptr<vorn::DistributedNotifications::Subscription>> subscriptions;
  std::vector<std::pair<std::string, Envelope>> heard;
};

TEST_F(NotificationsTest, areSpoiltAsTheFaultsFileSays) {
  const std::string faults = home.write("faults",
                                        "reply 1 to action 11: delay 0.5 s\n"
                                        "reply 2 to action 11: split at 7, error 3113, twice\n"
                                        "reply 3 to action 11: silent\n"
                                        "reply 4 to action 11: close\n"
                                        "reply 5 to action 11: grow 4000000\n"
                                        "reply 1 to action 9: die\n");
  RunningClient client(arguments({"--transport", "notifications", "--faults", faults}));
  ASSERT_EQ(client.line(), "vornclient 5.4.60000 observes notifications");
  EXPECT_FALSE(std::filesystem::exists(home / "s.vop"));
  request({11, "11"});
  plugin->post("VornOutlookPlugin.GetClientVersion", {});
  for (int i = 0; i < 4; ++i) request({11, "11"});
  ASSERT_TRUE(waitForReplies(5));
  using Heard = std::pair<std::string, Envelope>;
  EXPECT_EQ(heard[0], Heard(kVersion, {200, "5.4.60000"})) << "the agent does not wait for the client";
  EXPECT_EQ(heard[1], Heard(kReply, {11, R"({"bosses":[]})"}));
  EXPECT_EQ(heard[2].second, (Envelope{11, "0;Error 3113"}));
  EXPECT_EQ(heard[3].second, (Envelope{11, "0;Error 3113"}));
  EXPECT_EQ(heard[4].second.content.size(), 4'000'000U);
  request({9, "9"});
  EXPECT_EQ(client.wait(), -SIGKILL);
}

TEST_F(NotificationsTest, goBesideTheSocketWhichGetsTheVersionToo) {
  RunningClient client(arguments({"--transport", "both"}));
  ASSERT_EQ(client.line(),
            "vornclient 5.4.60000 listens on " + (home / "s.vop").string() + " and observes notifications");
  plugin->post("VornOutlookPlugin.GetClientVersion", {});
  ASSERT_TRUE(waitForReplies(1));
  Caller caller(home / "s.vop");
  EXPECT_EQ(caller.receive(), (Envelope{200, "5.4.60000"})) << "asked before it was connected";
  EXPECT_EQ(caller.ask({11, "11"}), (Envelope{11, R"({"bosses":[]})"}));
  plugin->post("VornOutlookPlugin.GetClientVersion", {});
  EXPECT_EQ(caller.receive(), (Envelope{200, "5.4.60000"}));
  request({11, "11"});
  ASSERT_TRUE(waitForReplies(3));

  bus->kill();
  EXPECT_EQ(caller.ask({11, "11"}), (Envelope{11, R"({"bosses":[]})"})) << "the bus has gone, the socket has not";
  client.stop(SIGTERM);
  EXPECT_EQ(client.wait(), 0);
}

TEST_F(NotificationsTest, reachTheAgentWhileTheClientDoesNotRun) {
  // Another test may run the client from where it was built.
  const std::string program = home / "vornclient";
  std::filesystem::copy_file(VORNCLIENT_PROGRAM, program);
  std::vector<std::string> all = {"--client",  program,     "--journal", home / "journal",
                                  "--version", "5.4.60000", "--"};
  const auto ofClient = arguments({"--transport", "notifications", "--without-agent"});
  all.insert(all.end(), ofClient.begin(), ofClient.end());
  const auto events = [this](std::string_view name) {
    const auto journal = test::journalOf(home / "journal");
    return std::count_if(journal.begin(), journal.end(),
                         [&](const auto& event) { return event["event"] == name; });
  };
  // The loop asks after each of its tasks only, and other processes are none.
  const auto lookAgain = loop.scheduledTimer(0.005, vorn::RunLoop::Repeats::yes, [](vorn::RunLoop::Timer&) {});
  RunningClient agent(all, VORNAGENT_PROGRAM);
  ASSERT_EQ(agent.line(), "vOutlookPluginAgent 5.4.60000 observes notifications");
  for (int round = 1; round <= 2; ++round) {
    for (const char* name : {"VornOutlookPlugin.LaunchClient", "VornOutlookPlugin.LaunchClient",
                             "VornOutlookPlugin.GetClientVersion", "VornOutlookPlugin.OpenAboutDialog"}) {
      plugin->post(name, {});
    }
    ASSERT_TRUE(loop.runUntil([&] { return events("launched") == round && events("about") == round; }, 120));
    request({11, "11"});
    ASSERT_TRUE(waitForReplies(2 * static_cast<std::size_t>(round)));
    EXPECT_EQ(heard[heard.size() - 2].second, (Envelope{200, "5.4.60000"}));
    const auto running = processesOf(program);
    ASSERT_EQ(running.size(), 1U) << "asked for twice";
    if (round == 1) ::kill(running.front(), SIGKILL);
    loop.runUntil([&] { return round == 2 || processesOf(program).empty(); }, 120);
  }
  agent.stop(SIGTERM);
  EXPECT_EQ(agent.wait(), 0);
  EXPECT_TRUE(processesOf(program).empty()) << "what it has started ends with it";
  EXPECT_EQ(heard.size(), 4U) << "the client leaves the agent's part to it";
  EXPECT_EQ(agent.errors(), "About Vorn Plug-in: version 5.4.60000\nAbout Vorn Plug-in: version 5.4.60000\n");
}

TEST_F(NotificationsTest, needABus) {
  RunningClient agent({"--client", VORNCLIENT_PROGRAM}, VORNAGENT_PROGRAM);
  ASSERT_TRUE(agent.line());
  bus->kill();
  EXPECT_EQ(agent.wait(), 1);
  EXPECT_THAT(agent.errors(), HasSubstr("the session bus has gone: "));
  RunningClient client(arguments({"--transport", "notifications"}));
  EXPECT_EQ(client.wait(), 1);
  EXPECT_THAT(client.errors(), HasSubstr("no session bus can be joined: "));
}

}  // namespace
}  // namespace vornlab
