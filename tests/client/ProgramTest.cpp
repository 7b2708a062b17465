#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <csignal>
#include <tuple>

#include "RunningClient.h"

namespace vornlab {
namespace {

using test::Caller;
using test::RunningClient;
using testing::HasSubstr;

class ProgramTest : public testing::Test {
 protected:
  std::vector<std::string> arguments(std::vector<std::string> more = {}) const {
    std::vector<std::string> all = {"--home", home.path(), "--db", home / "meetings.db"};
    all.insert(all.end(), more.begin(), more.end());
    return all;
  }

  static Envelope commit() {
    return {3, R"(1;;;;;;;;;;;;;{"apptInfo": {"subject": "A", "startTime": "1793000000", "duration": "30"},)"
               R"( "setting": {"meetingPassword": "pass-771", "audioOption": 2}})"};
  }

  test::TemporaryFolder home;
  const std::string socket = home / "s.vop";
};

TEST_F(ProgramTest, saysThatItListensAndEndsCleanlyWhenTold) {
  for (const int signal : {SIGTERM, SIGINT}) {
    RunningClient client(arguments());
    EXPECT_EQ(client.line(), "vornclient 5.12.3 listens on " + socket);
    struct stat found {};
    ASSERT_EQ(::lstat(socket.c_str(), &found), 0);
    EXPECT_TRUE(S_ISSOCK(found.st_mode));
    EXPECT_EQ(found.st_mode & 0777U, 0600U);
    client.stop(signal);
    EXPECT_EQ(client.wait(), 0);
    EXPECT_EQ(client.line(), std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(socket));
  }
}

TEST_F(ProgramTest, leavesTheSocketOfAnotherClientAlone) {
  RunningClient first(arguments());
  ASSERT_TRUE(first.line());
  RunningClient second(arguments());
  EXPECT_EQ(second.wait(), 1);
  EXPECT_THAT(second.errors(), HasSubstr("another client listens on " + socket));
  EXPECT_TRUE(Caller(socket).ask({11, "11"}));
}

TEST_F(ProgramTest, tellsBadUsageFromFailure) {
  const std::string faults = home.write("faults", "every reply: vanish\n");
  const std::string account = home.write("account.json", "{\"optoins\": {}}");
  const std::string text = home.write("text.db", "this is no database, whatever its name says");
  const std::string deep = home / std::string(100, 'x');
  std::filesystem::create_directory(deep);

  const std::tuple<std::vector<std::string>, int, std::string> cases[] = {
      {{"--home", home.path()}, 2, "--db is missing; vornclient --help tells more"},
      {{"--home", home / "no", "--db", ":memory:"}, 2, "--home: there is no " + (home / "no").string()},
      {arguments({"--frobnicate"}), 2, "nothing is known of --frobnicate"},
      {arguments({"--seed", "many"}), 2, "--seed = many is not understood"},
      {arguments({"--transport", "pigeon"}), 2, "there are socket, notifications and both"},
      {arguments({"--faults", faults}), 2, faults + ":1: "},
      {arguments({"--account", account}), 2, account + ": unknown key 'optoins'"},
      {{"--home", home.path(), "--db", text}, 1, text + ": "},
      {{"--home", deep, "--db", ":memory:"}, 1, "at most 107 are possible"}};
  for (const auto& [words, code, expected] : cases) {
    RunningClient client(words);
    EXPECT_EQ(client.wait(), code) << expected;
    EXPECT_THAT(client.errors(), testing::AllOf(testing::StartsWith("vornclient: "), HasSubstr(expected)));
    EXPECT_EQ(client.line(), std::nullopt);
  }
}

TEST_F(ProgramTest, sendsAReplyOnlyWhenTheOneBeforeWasTaken) {
  RunningClient client(arguments());
  ASSERT_TRUE(client.line());
  Caller caller(socket);
  std::string requests;
  for (int i = 0; i < 50; ++i) requests += toText({11, "11"});
  caller.send(requests);
  for (int i = 0; i < 50; ++i) EXPECT_EQ(fromText(caller.read()), (Envelope{11, R"({"bosses":[]})"})) << i;
}

TEST_F(ProgramTest, misbehavesAsTheFaultsFileSays) {
  const std::string faults = home.write("faults",
                                        "reply 1 to action 11: split at 7\n"
                                        "reply 2 to action 11: glue\n"
                                        "reply 4 to action 11: close\n"
                                        "reply 1 to action 9: restart\n"
                                        "reply 1 to action 6: die\n");
  RunningClient client(arguments({"--faults", faults}));
  ASSERT_TRUE(client.line());
  const std::string people = toText({11, R"({"bosses":[]})"});
  {
    Caller caller(socket);
    caller.send(toText({11, "11"}));
    EXPECT_EQ(caller.read(), people.substr(0, 7));
    EXPECT_EQ(caller.read(), people.substr(7));
    caller.send(toText({11, "11"}));
    caller.send(toText({11, "11"}));
    EXPECT_EQ(caller.read(), people + people);
    EXPECT_EQ(caller.ask({11, "11"}), std::nullopt);
  }
  EXPECT_EQ(Caller(socket).ask({9, "9"}), std::nullopt);

  // The new socket stands before the old connection ends.
  EXPECT_EQ(Caller(socket).ask({11, "11"}), (Envelope{11, R"({"bosses":[]})"}));

  EXPECT_EQ(Caller(socket).ask({6, "6"}), std::nullopt);
  EXPECT_EQ(client.wait(), -SIGKILL);
  EXPECT_TRUE(std::filesystem::exists(socket));
}

TEST_F(ProgramTest, keepsAJournalWithoutSecrets) {
  RunningClient client(arguments({"--journal", home / "journal", "--announce-version", "--version", "4.6.0.1"}));
  EXPECT_THAT(client.line().value_or(""), HasSubstr("vornclient 4.6.0 "));
  {
    Caller caller(socket);
    EXPECT_EQ(caller.receive(), (Envelope{200, "4.6.0.1"}));
    EXPECT_TRUE(caller.ask(commit()));
    caller.send(toText({2, "{\"launchtype\": \"groupVideo\"}"}) + "{\"actionId\": 7}");
    EXPECT_TRUE(caller.ask({11, "11"}));
  }
  client.stop(SIGTERM);
  EXPECT_EQ(client.wait(), 0);

  std::vector<std::string> events;
  const auto journal = test::journalOf(home / "journal");
  for (const auto& event : journal) {
    events.push_back(event["event"]);
    EXPECT_THAT(event.dump(), testing::Not(HasSubstr("pass-771")));
  }
  EXPECT_THAT(events, testing::ElementsAre("connected", "reply", "request", "reply", "request", "malformed",
                                           "request", "reply", "closed"));
  EXPECT_EQ(journal[2]["action"], 3);
  EXPECT_EQ(journal[2]["operation"], 1);
  EXPECT_GT(journal[3]["micros"], 0);
}

}  // namespace
}  // namespace vornlab
