// The words of scenarios, and how one that fails is told.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "lab/shell/scenario/Scenario.h"
#include "tests/shell/ProgramRun.h"

namespace vornlab::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

TEST(Scenario, SplitsALineIntoWordsAndTexts) {
  const auto lines =
      readScenarioText("# nothing\n\n  type body \"a \\\"b\\\"\\n\\\\ # c\" # said\r\nsave", "x.vorn");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].number, 3U);
  ASSERT_EQ(lines[0].words.size(), 3U);
  EXPECT_EQ(lines[0].words[2].text, "a \"b\"\n\\ # c");
  EXPECT_TRUE(lines[0].words[2].isQuoted);
  EXPECT_EQ(lines[1].text, "save");
}

TEST(Scenario, SaysWhereALineCannotBeReadAndWhatWasExpected) {
  const std::string longerThanAName = "account " + std::string(300, 'a');
  const std::pair<const char*, const char*> cases[] = {
      {"type body \"open", "x.vorn:1: expected a closing quote"},
      {"type body \"a\\t\"", "x.vorn:1: expected \\n, \\\" or \\\\ behind the backslash"},
      {"type body \"a\"b", "x.vorn:1: expected a blank behind the closing quote"},
      {"\nsafe", "x.vorn:2: expected one of these words: first account, "},
      {"expect bar green",
       "x.vorn:1: expected one of add, meeting, hidden, none, found \"green\"\n  it is written: "
       "expect bar add|meeting|hidden|none"},
      {"click", "x.vorn:1: expected one of add, cancel, settings, audio 1, audio 2, ribbon schedule"},
      {"type times tomorrow", "x.vorn:1: expected a time such as 2026-11-23T09:00, found \"tomorrow\""},
      {"type times 2026-02-30T09:00", "x.vorn:1: expected a time such as 2026-11-23T09:00"},
      {"type times 2026-11-23T24:00", "x.vorn:1: expected a time such as 2026-11-23T09:00"},
      {"type times 2026-11-23T09:00 for 5", "x.vorn:1: expected \"min\", the line ends"},
      {"type subject Budget", "x.vorn:1: expected a text in quotes, found \"Budget\""},
      {"new\nsettings set passwordTextField \"Zq7\"",
       "x.vorn:2: expected CONTROL.PROPERTY, which is one of hidden, "
       "enabled, on, text, index, chosen, toolTip, spoken, focused, border or tokens, found "
       "\"passwordTextField\""},
      {"settings set passwordTextField \"Zq7\"", "x.vorn:1: expected nothing more, found a text in quotes"},
      {"new\nsettings key a bogus",
       "x.vorn:2: expected a key, which is one of up, down, left, right, return, tab, "
       "escape or delete, found \"bogus\""},
      {"save and send", "x.vorn:1: expected nothing more, found \"and\""},
      {"wait 1e9 s", "x.vorn:1: expected a number of s, found \"1e9\""},
      {"wait nan s", "x.vorn:1: expected a number of s, found \"nan\""},
      {"expect sent 3/1, soon", "x.vorn:1: expected requests such as 6, 9, 3/1, 3/4, or nothing, found \"soon\""},
      {"expect sent 3/x", "x.vorn:1: expected requests"},
      {"expect sent 6x", "x.vorn:1: expected requests"},
      {"expect sent 3/1/2", "x.vorn:1: expected requests"},
      {"expect sent 06", "x.vorn:1: expected requests"},
      {"expect manager bogus \"\"", "x.vorn:1: expected one of state, action, key, hostAction, "},
      {"save\nme ann@example.com", "x.vorn:2: \"me\" has to stand before everything that happens"},
      {"account nobody.json",
       "x.vorn:1: \"nobody.json\" is neither beside the scenario nor in lab/client/accounts"},
      {longerThanAName.c_str(), "x.vorn:1: \"aaa"},
      {"client faults \"reply 1: vanish\"", "x.vorn:1: the rule:1: expected delay, split, "},
      {"answer maybe", "x.vorn:1: expected yes or no, found \"maybe\""},
      {"appointment a line \"END:VEVENT\"", "x.vorn:1: this makes no appointment: "},
      {"appointment a repeats daily 0", "x.vorn:1: an appointment repeats at least once, not 0 times"},
      {"\xEF\xBB\xBFnew\nfly", "x.vorn:2: expected one of these words: "},
      {"# only a thought\n", "x.vorn:1: the scenario is empty"},
      {"new\nsave\n\n", "x.vorn:2: nothing is expected up to here"},
      {"appointment a\nappointment a occurrence 1\nappointment a\n",
       "x.vorn:3: an appointment \"a\" stands above already"},
  };
  for (const auto& [text, message] : cases) {
    try {
      scenarioFromText(text, "x.vorn");
      ADD_FAILURE() << "no error for " << text;
    } catch (const ScenarioError& error) {
      EXPECT_THAT(error.what(), StartsWith(message));
    }
  }
}

TEST(Scenario, HasEachOfItsWordsExplained) {
  const std::string page = contentOf(SCENARIOS_PAGE);
  const auto expectExplained = [&](const std::string& word) {
    const bool isExplained =
        page.find("`" + word) != std::string::npos || page.find("|" + word) != std::string::npos;
    EXPECT_TRUE(isExplained) << "docs/scenarios.md says nothing of \"" << word << "\"";
  };
  for (const SetUpWord& word : setUpWords()) expectExplained(std::string(word.word));
  for (const StageWord& word : hostWords()) expectExplained(std::string(word.word));
  for (const StageWord& word : clientWords()) expectExplained(std::string(word.word));
  for (const StageWord& word : expectationWords()) {
    const std::string name(word.word);
    if (page.find("`expect " + name) == std::string::npos) expectExplained(name);
  }
}

class PlayScenario : public ::testing::Test {
 protected:
  ProgramRun play(std::vector<std::string> arguments) const { return runProgram(VORNLAB_PROGRAM, arguments); }

  TemporaryFolder m_folder;
};

TEST_F(PlayScenario, TellsTheLineThatFailedWhatWasExpectedAndWhatHadBeenSent) {
  const auto good = m_folder.write("good.vorn", "appointment a\nopen a\nexpect bar add\n");
  const auto bad = m_folder.write("bad.vorn",
                                  "appointment a subject \"Call ann@example.com\"\nopen a\nclick add\n"
                                  "expect subject \"Budget\"\nexpect bar add\n");
  const ProgramRun run = play({bad, good});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_THAT(run.output, StartsWith("FAIL " + bad.string() + ":4: expect subject \"Budget\"\n" +
                                     "  expected   subject \"Budget\"\n  there was  \"Call ******\"\n"));
  EXPECT_THAT(run.output, HasSubstr("\n  sent       3/1   1;"));
  EXPECT_THAT(run.output, HasSubstr("\nOK   good "));
  EXPECT_THAT(run.output, HasSubstr("\n2 scenarios: 1 passed, 1 failed; "));
  EXPECT_THAT(run.output, Not(HasSubstr("@")));
}

TEST_F(PlayScenario, FailsWhereALineCannotBePlayed) {
  const std::pair<const char*, const char*> cases[] = {
      {"open nobody\n", ":1: open nobody\n  expected   an appointment nobody"},
      {"save\n", ":1: save\n  expected   a window that was opened before\n  there was  none"},
      {"new\nclose\nsave\n", ":3: save\n  expected   the window \"new\" is open\n  there was  it is closed"},
      {"without client\nnew\nclick add\n",
       ": the end\n  expected   no alert that no line asks for\n  there was  The "},
      {"client faults \"reply 1 to action 3: error 3070\"\nnew\nclick add without waiting\n",
       ": the end\n  expected   no alert that no line asks for\n  there was  A meeting cannot "},
      {"client faults \"reply 1 to action 3: silent\"\nnew\nclick add\nexpect alert none\nexpect service none\n",
       ":5: expect service none\n  expected   a meeting that the window has or had\n  there was  none"},
      {"appointment a\nin a\nexpect window closed\n",
       ":3: expect window closed\n  expected   a window that was opened before\n  there was  none"},
      {"appointment a\nopen a as x\nopen a as x\n", ":3: open a as x\n  expected   a name for the window"},
      {"appointment a\nopen a\nclick cancel\n",
       ":3: click cancel\n  expected   a button for cancel\n  there was  hidden"},
      {"panel on\nnew\nclick add\nsettings set enableWaitingRoom.text Ha\n",
       ":4: settings set enableWaitingRoom.text Ha\n  expected   a field for a text\n"},
      {"panel on\nnew\nclick add\nsettings click waitingRoomPrompt\n",
       ":4: settings click waitingRoomPrompt\n  expected   something that can be clicked\n"},
  };
  for (const auto& [text, told] : cases) {
    const ProgramRun run = play({m_folder.write("x.vorn", std::string(text) + "expect progress hidden\n")});
    EXPECT_EQ(run.exitCode, 1) << text;
    EXPECT_THAT(run.output, HasSubstr(std::string("x.vorn") + told));
  }
}

TEST_F(PlayScenario, LooksForATextInTheWholeRequestAndOnlyInWhatIsCovered) {
  std::string location;
  while (location.size() < 2000) location += "far ";
  const std::string begin = "appointment a location \"" + location +
                            "ann@example.com away\"\nopen a\nclick add\nexpect request contains \"";
  const auto covered =
      m_folder.write("covered.vorn", begin + "far ****** away\"\nexpect request contains \"msOutlook\"\n");
  const auto open = m_folder.write("open.vorn", begin + "ann@example.com\"\n");
  const ProgramRun run = play({covered, open});
  EXPECT_THAT(run.output, HasSubstr("OK   covered "));
  EXPECT_THAT(run.output, HasSubstr("FAIL " + open.string() + ":4: "));
}

TEST_F(PlayScenario, TellsItAsJsonAndPlaysNothingWhenAFileCannotBeRead) {
  const auto good = m_folder.write("good.vorn", "appointment a\nopen a\nexpect bar add\n");
  const auto bad = m_folder.write("bad.vorn", "appointment a\nopen a\nclick add\nexpect sent nothing\n");
  const ProgramRun run = play({good, bad, "--json"});
  EXPECT_EQ(run.exitCode, 1);
  std::vector<nlohmann::json> lines;
  std::istringstream output(run.output);
  for (std::string line; std::getline(output, line);) lines.push_back(nlohmann::json::parse(line));
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[0]["result"], "passed");
  EXPECT_EQ(lines[1]["line"], 4);
  EXPECT_EQ(lines[1]["expected"], "sent nothing");
  EXPECT_EQ(lines[1]["found"], "sent 6, 9, 3/1, 3/4");
  EXPECT_EQ(lines[1]["envelopes"][0]["direction"], "sent");
  EXPECT_EQ(lines[1]["envelopes"][0]["name"], "6");
  EXPECT_EQ(lines[2]["summary"]["failed"], 1);

  const ProgramRun unreadable =
      play({"play", good, m_folder.write("unreadable.vorn", "appointment a\nfly away\n")});
  EXPECT_EQ(unreadable.exitCode, 2);
  EXPECT_EQ(unreadable.output, "");
  EXPECT_THAT(unreadable.errors, HasSubstr("unreadable.vorn:2: expected one of these words: "));

  const auto namesake = m_folder.write("other/good.vorn", "new\nexpect bar add\n");
  for (const auto& second : {namesake, good}) {
    const ProgramRun twice = play({good, second});
    EXPECT_EQ(twice.exitCode, 2);
    EXPECT_EQ(twice.output, "");
    EXPECT_THAT(twice.errors, HasSubstr(second.string() + " has the same name as " + good.string()));
  }
}

}  // namespace
}  // namespace vornlab::test
