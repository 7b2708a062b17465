// What the plug-in sees in a calendar file, and what it has hooked, with the real program and the real bundle.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "tests/shell/Calendars.h"
#include "tests/shell/ProgramRun.h"

namespace vornlab::test {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::Not;

class Inspect : public ::testing::Test {
 protected:
  static std::vector<json> objectsOf(const std::string& output) {
    std::vector<json> objects;
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) objects.push_back(json::parse(line, nullptr, false));
    return objects;
  }

  std::vector<json> inspect(const std::filesystem::path& file, std::vector<std::string> further = {}) {
    std::vector<std::string> arguments{"inspect", file, "--json"};
    arguments.insert(arguments.end(), further.begin(), further.end());
    m_run = runProgram(VORNLAB_PROGRAM, arguments);
    return objectsOf(m_run.output);
  }

  TemporaryFolder m_folder;
  ProgramRun m_run;
};

TEST_F(Inspect, TellsAPlainAppointmentFromOneThatHasGotItsMeeting) {
  const auto before = m_folder.write("before.ics", calendar({appointment("one", "Review")}));
  const std::vector<json> plain = inspect(before);
  ASSERT_EQ(plain.size(), 1u) << m_run.output << m_run.errors;
  EXPECT_EQ(plain[0]["uid"], "one");
  EXPECT_EQ(plain[0]["meeting"]["key"], "");
  EXPECT_EQ(plain[0]["meeting"]["supported"], true);
  EXPECT_EQ(plain[0]["record"]["state"], "none");
  EXPECT_EQ(plain[0]["plainForm"]["startUTC"], "2030-05-14 12:00:00");
  EXPECT_EQ(plain[0]["plainForm"]["duration"], "60");

  const auto after = m_folder / "after.ics";
  ASSERT_EQ(
      runProgram(VORNLAB_PROGRAM, {"meet", before, "--out", after, "--all", "--client-db", ":memory:"}).exitCode,
      0);
  const std::vector<json> online = inspect(after);
  ASSERT_EQ(online.size(), 1u) << m_run.output << m_run.errors;
  EXPECT_NE(online[0]["meeting"]["key"], "");
  EXPECT_EQ(online[0]["meeting"]["keyFrom"], "olmUCInband");
  EXPECT_EQ(online[0]["record"]["state"], "readable");
  EXPECT_EQ(online[0]["record"]["hasJoinUrl"], true);
  EXPECT_THAT(m_run.output, Not(HasSubstr("pwd=")));
}

TEST_F(Inspect, TellsEachWayOfRecognisingAMeetingAndWhyItFoundNone) {
  const std::string inband = "X-VORNLAB-OLMUCINBAND:";
  const std::string older = "X-VORNLAB-OLMUCCAPABILITIES:";
  const std::string record = R"({"meetingKey":"123456789"})";
  const std::string other = "DESCRIPTION:https://vorn.example/j/987654321 now";
  const std::string folded = "DESCRIPTION:" + std::string(50, 'x') + " https://vorn.example/j/123\r\n 456789 now";
  constexpr auto key = "123456789";
  const struct {
    std::vector<std::string> lines;
    // What the ways olmUCInband, olmUCCapabilities and text give; the state of the record; the key and its way.
    const char *ways, *state, *key, *from, *reason;
  } cases[] = {
      {{inband + record}, "found none none", "readable", key, "olmUCInband", "no line of"},
      {{older + record}, "none found none", "readable", key, "olmUCCapabilities", "no line of"},
      {{inband + "no JSON", older + record}, "broken found none", "readable", key, "olmUCCapabilities", ""},
      {{inband + "no JSON"}, "broken none none", "broken", "", "none", ""},
      {{inband + "[1]"}, "broken none none", "broken", "", "none", ""},
      {{inband + "{\"a\":1}"}, "no key none none", "no key", "", "none", ""},
      {{inband + "{\"meetingKey\":7}", older + record}, "no key found none", "no key", "", "none", ""},
      {{"DESCRIPTION:https://vorn.example/j/123456789"}, "none none found", "none", key, "text", "a join address"},
      {{"DESCRIPTION:Meeting ID: 123 456 789\\nbye"}, "none none found", "none", key, "text", "Meeting ID:"},
      {{"DESCRIPTION:Meeting ID: 123"}, "none none none", "none", "", "none", "no 9 to 12 digits"},
      {{"DESCRIPTION:https://vorn.example/my/ann"}, "none none none", "none", "", "none", "personal link"},
      {{folded}, "none none none", "none", "", "none", "a fold"},
      {{inband + record, other}, "found none found", "readable", key, "olmUCInband", "a join address"},
      {{"RECURRENCE-ID:20300514T120000Z", other}, "none none found", "none", "", "none", "a join address"}};
  std::vector<std::string> events;
  for (const auto& each : cases) events.push_back(appointment(std::to_string(events.size()), "Call", each.lines));
  const std::vector<json> seen = inspect(m_folder.write("in.ics", calendar(events)));
  ASSERT_EQ(seen.size(), events.size()) << m_run.output << m_run.errors;
  for (std::size_t i = 0; i < seen.size(); ++i) {
    SCOPED_TRACE(events[i]);
    const json& ways = seen[i]["recognition"];
    std::string results;
    for (const char* way : {"olmUCInband", "olmUCCapabilities", "text"}) {
      results += (results.empty() ? "" : " ") + ways[way]["result"].get<std::string>();
    }
    EXPECT_EQ(results, cases[i].ways);
    EXPECT_EQ(seen[i]["record"]["state"], cases[i].state);
    EXPECT_EQ(seen[i]["meeting"]["key"], cases[i].key);
    EXPECT_EQ(seen[i]["meeting"]["keyFrom"], cases[i].from);
    EXPECT_EQ(seen[i]["meeting"]["keyIsGuess"], cases[i].from == std::string("text"));
    EXPECT_THAT(ways["text"]["reason"].get<std::string>(), HasSubstr(cases[i].reason));
    const bool isDecidedBefore = cases[i].from[0] == 'o' || seen[i]["recurrenceId"] != "";
    EXPECT_EQ(ways["text"]["asked"], !isDecidedBefore);
  }
}

TEST_F(Inspect, LooksAtABodyAloneAndSaysWhoMayHaveAMeeting) {
  for (const char* body : {"Join https://vorn.example/j/123456789 now", "<p>Meeting ID: <b>123 456 789</b></p>"}) {
    const std::vector<json> seen = [&] {
      m_run = runProgram(VORNLAB_PROGRAM, {"inspect", "--body", m_folder.write("body", body), "--json"});
      return objectsOf(m_run.output);
    }();
    ASSERT_EQ(seen.size(), 1u) << m_run.output << m_run.errors;
    EXPECT_EQ(seen[0]["recognition"]["text"]["key"], "123456789") << m_run.output;
    EXPECT_FALSE(seen[0].contains("plainForm"));
  }
  EXPECT_EQ(runProgram(VORNLAB_PROGRAM, {"inspect"}).exitCode, 2);

  const auto file =
      m_folder.write("in.ics", calendar({appointment("mine", "Mine"),
                                         appointment("theirs", "Theirs", {"ORGANIZER:mailto:ada@vorn.example"})}));
  const std::vector<json> seen = inspect(file, {"--me", "me@vorn.example", "--uid", "theirs"});
  ASSERT_EQ(seen.size(), 1u) << m_run.output << m_run.errors;
  EXPECT_EQ(seen[0]["meeting"]["supported"], false);
  EXPECT_THAT(runProgram(VORNLAB_PROGRAM, {"inspect", file}).output, ::testing::StartsWith("mine  Mine\n\n"));
  EXPECT_THAT(runProgram(VORNLAB_PROGRAM, {"inspect", m_folder.write("none.ics", calendar({}))}).errors,
              HasSubstr("none.ics: the calendar has no appointment\n"));
  inspect(file, {"--uid", "nobody"});
  EXPECT_EQ(m_run.exitCode, 1);
  EXPECT_THAT(m_run.errors, HasSubstr("nobody"));
}

TEST(Hooks, TellHowEachRowFaredInTheHost) {
  const ProgramRun run = runProgram(VORNLAB_PROGRAM, {"hooks", "--json"});
  ASSERT_EQ(run.exitCode, 0) << run.errors;
  const json told = json::parse(run.output, nullptr, false);
  ASSERT_TRUE(told.is_object()) << run.output;
  EXPECT_EQ(told["ERCalendarEventEditorViewController"]["-saveAndCloseWindow:"], "stands");
  EXPECT_EQ(told["ERCalendarEventEditorWindowController"]["+showWindowForEvent:"], "stands");
  EXPECT_EQ(told["OLCalendarGridViewWrapper"]["-subjectChanged:forEvent:andTileView:"], "stands");
  EXPECT_GT(told["standing"], 20);
  EXPECT_EQ(told["standing"], told["rows"]);
}

}  // namespace
}  // namespace vornlab::test
