// The doctor and the account commands, with the real program, the real bundle and a real client.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <tuple>

#include "lab/shell/World.h"
#include "tests/shell/ProgramRun.h"

namespace vornlab::test {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

// Runs a command twice, for people and for programs. What it prints must be fit for a stranger's eyes.
struct Told {
  explicit Told(std::vector<std::string> arguments) {
    words = runProgram(VORNLAB_PROGRAM, arguments);
    arguments.emplace_back("--json");
    const ProgramRun run = runProgram(VORNLAB_PROGRAM, arguments);
    EXPECT_EQ(run.exitCode, words.exitCode);
    object = json::parse(run.output, nullptr, false);
    EXPECT_TRUE(object.is_object()) << run.output << run.errors;
    for (const std::string& text : {words.output, words.errors, run.output, run.errors}) {
      EXPECT_THAT(text, Not(HasSubstr("@")));
    }
  }

  ProgramRun words;
  json object;
};

std::string account(const std::string& name) { return std::string(LAB_ACCOUNTS) + "/" + name + ".json"; }

TEST(Doctor, SaysThatAMeetingCouldBeMadeAndByWhat) {
  const Told told({"doctor"});
  ASSERT_EQ(told.words.exitCode, 0) << told.words.output;
  EXPECT_THAT(told.words.output, HasSubstr("\nA meeting could be made now.\n"));
  EXPECT_THAT(told.words.output, ::testing::StartsWith("This is not your machine, but a world "));
  EXPECT_EQ(told.object["world"]["madeBy"], "laboratory");
  EXPECT_EQ(told.object["ready"], true);
  EXPECT_THAT(told.object["troubles"], IsEmpty());
  EXPECT_EQ(told.object["client"]["status"], 2);
  EXPECT_EQ(told.object["client"]["place"], 2);
  EXPECT_EQ(told.object["client"]["versionSource"], "bundle");
  EXPECT_EQ(told.object["channel"]["transport"], "socket");
  EXPECT_EQ(told.object["channel"]["connected"], true);
  EXPECT_EQ(told.object["channel"]["characters"]["limit"], 103);
  EXPECT_EQ(told.object["account"]["hasUserProfile"], true);
  EXPECT_EQ(told.object["capabilities"]["isVornClientSupport550Tasks"]["supported"], true);
}

TEST(Doctor, SaysInOneLineWhatIsWrong) {
  const std::tuple<std::vector<std::string>, int, const char*> cases[] = {
      {{"doctor", "--without-client"}, 0, "the client is not installed"},
      {{"doctor", "--client-option=--nonsense"}, 1, "nothing is known of --nonsense"},
      {{"doctor", "--client-version", "3.4.99"}, 3, "too old: it is 3.4.99"}};
  for (const auto& [arguments, status, trouble] : cases) {
    const Told told(arguments);
    EXPECT_EQ(told.words.exitCode, 1);
    EXPECT_EQ(told.object["ready"], false);
    EXPECT_EQ(told.object["client"]["status"], status);
    EXPECT_THAT(told.object["troubles"].dump(), HasSubstr(trouble));
    const std::string& words = told.words.output;
    EXPECT_THAT(words.substr(words.rfind('\n', words.size() - 2)), HasSubstr(trouble));
  }
}

TEST(Doctor, NoticesAClientThatAnswersNothingOrRefuses) {
  const TemporaryFolder folder;
  const std::pair<const char*, const char*> cases[] = {
      {"every reply to action 6: silent\n", "did not answer within 2 seconds"},
      {"every reply to action 6: error VornClientNotSignIn\n", "nobody is signed in"},
      {"every reply to action 6: error 3113\n", "error 3113"},
  };
  for (const auto& [fault, trouble] : cases) {
    std::vector<std::string> words{"doctor", "--client-option=--faults=" + folder.write("faults", fault).string()};
    // Only who waits for nothing is hurried: a slow machine may need the time for a reply.
    if (std::string(fault).find("silent") != std::string::npos) words.insert(words.end(), {"--timeout", "2"});
    const Told told(words);
    EXPECT_EQ(told.words.exitCode, 1) << fault;
    EXPECT_EQ(told.object["channel"]["connected"], true);
    EXPECT_THAT(told.object["troubles"].dump(), HasSubstr(trouble));
  }
}

// The limits count characters and bytes apart; the home folder lies below the world's.
TEST(Doctor, MeasuresAHomePathThatIsTooLongForASocket) {
  const TemporaryFolder folder;
  const std::size_t before = folder.path().native().size() + std::string("//home/s.vop").size();
  std::string sharp;
  for (std::size_t i = before; i < 96; i += 2) sharp += "ß";
  const std::pair<std::string, const char*> cases[] = {{std::string(104 - before, 'x'), "104 characters in 104"},
                                                       {sharp + std::string(10, 'x'), "the limits"}};
  for (const auto& [name, trouble] : cases) {
    const Told told({"doctor", "--timeout", "0.2", "--world", folder / name});
    EXPECT_EQ(told.words.exitCode, 1) << name;
    EXPECT_THAT(told.object["troubles"].dump(), HasSubstr(trouble));
    EXPECT_EQ(told.object["channel"]["connected"], false);
    EXPECT_EQ(told.object["channel"]["bytes"]["length"], before + name.size());
  }
  const ProgramRun demo = runProgram(VORNLAB_PROGRAM, {"demo", "--world", folder / cases[0].first});
  EXPECT_EQ(demo.exitCode, 1);
  EXPECT_THAT(demo.errors, HasSubstr("too long for a socket"));
}

TEST(Doctor, LeavesAWorldAloneThatAnotherRunUses) {
  const TemporaryFolder folder;
  World::Options options;
  options.folder = folder / "w";
  std::optional<World> used(options);
  const ProgramRun second = runProgram(VORNLAB_PROGRAM, {"doctor", "--world", options.folder});
  EXPECT_EQ(second.exitCode, 2);
  EXPECT_THAT(second.errors, HasSubstr("w is in use by another run\n"));
  EXPECT_FALSE(std::filesystem::exists(used->clientProgram()));
  used.reset();
  EXPECT_EQ(runProgram(VORNLAB_PROGRAM, {"doctor", "--world", options.folder}).exitCode, 0);
  const Told without({"doctor", "--without-client", "--world", options.folder});
  EXPECT_EQ(without.object["client"]["status"], 0) << "the client of the run before is installed no more";
}

TEST(AccountShow, TellsTheProfileInGroups) {
  const Told plain({"account", "show"});
  ASSERT_EQ(plain.words.exitCode, 0) << plain.words.errors;
  EXPECT_THAT(plain.words.output, HasSubstr("Robin Vale"));
  EXPECT_EQ(plain.object["identity"]["userEmail"], "******");
  EXPECT_EQ(plain.object["identity"]["roomMeetingID"], "5550142871");
  EXPECT_EQ(plain.object["audioConferences"]["pacCount"], 1);
  EXPECT_EQ(plain.object["recording"]["enableCloudRecordingByDefault"], true);
  for (const auto& [lock, isLocked] : plain.object["locks"].items()) EXPECT_EQ(isLocked, false) << lock;

  const Told locked({"account", "show", "--account", account("everything-locked")});
  for (const auto& [lock, isLocked] : locked.object["locks"].items()) EXPECT_EQ(isLocked, true) << lock;
  EXPECT_EQ(locked.object["policies"]["getRegionCodes"], json::array({"DE", "US"}));

  const json people = Told({"account", "show", "--account", account("three-people")}).object["people"];
  EXPECT_EQ(people["person.3"]["supportPMI"], false);

  const Told provider({"account", "show", "--account", account("telephony-provider")});
  EXPECT_EQ(provider.object["audio"]["tspServiceProvider"], "Exemplar Telecom");
  EXPECT_EQ(provider.object["audio"]["tspAccount.1"]["hostPasscode"], "******");
  EXPECT_EQ(provider.object["audio"]["tspAccount.2"]["tspNumbers"], json::array({"+49 30 5550 1144"}));
  for (const char* passcode : {"771204", "330981", "118822", "409417"}) {
    EXPECT_THAT(provider.object.dump() + provider.words.output, Not(HasSubstr(passcode)));
  }
}

// A reason that names an accessor which nobody has would send people looking for nothing.
TEST(AccountDefaults, NamesAsReasonsOnlyWhatTheAccountShows) {
  std::set<std::string> known;
  const Told shown({"account", "show"});
  for (const auto& group : shown.object) {
    for (const auto& [key, value] : group.items()) known.insert(key);
  }
  const Told defaults({"account", "defaults", "--account", account("everything-locked")});
  std::size_t locks = 0;
  for (const auto& [key, facts] : defaults.object["settings"].items()) {
    EXPECT_TRUE(!facts.contains("accessor") || known.contains(facts["accessor"])) << facts;
    if (facts.contains("lockedBy")) ++locks;
  }
  EXPECT_EQ(locks, 19U);
}

TEST(AccountShow, SaysWhyThereIsNoProfile) {
  const ProgramRun run = runProgram(VORNLAB_PROGRAM, {"account", "show", "--without-client"});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_THAT(run.errors, HasSubstr("there is no profile: the client is not installed"));
  EXPECT_THAT(run.output, IsEmpty());
}

}  // namespace
}  // namespace vornlab::test
