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
  // The printed objects; printing them is over several lines.
  static std::vector<json> objectsOf(const std::string& output) {
    std::vector<json> objects;
    std::istringstream rest(output);
    for (json object; rest >> std::ws && rest.peek() == '{';) {
      rest >> object;
      objects.push_back(object);
    }
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
  EXPECT_EQ(online[0]["meeting"]["keyFrom"], "the record in olmUCInband");
  EXPECT_EQ(online[0]["record"]["state"], "readable");
  EXPECT_EQ(online[0]["record"]["hasJoinUrl"], true);
  EXPECT_THAT(m_run.output, Not(HasSubstr("pwd=")));
}

TEST_F(Inspect, FindsAKeyInTheTextAndSaysWhoMayHaveAMeeting) {
  const auto file = m_folder.write(
      "text.ics",
      calendar({appointment("pasted", "Pasted", {"DESCRIPTION:Join https://vorn.example/j/123456789 now"}),
                appointment("theirs", "Theirs",
                            {"ORGANIZER:mailto:ada@vorn.example", "X-VORNLAB-OLMUCINBAND:no JSON"})}));
  const std::vector<json> seen = inspect(file, {"--me", "me@vorn.example"});
  ASSERT_EQ(seen.size(), 2u) << m_run.output << m_run.errors;
  EXPECT_EQ(seen[0]["meeting"]["key"], "123456789");
  EXPECT_EQ(seen[0]["meeting"]["keyFrom"], "the invitation in the appointment's text");
  EXPECT_EQ(seen[1]["meeting"]["supported"], false);
  EXPECT_EQ(inspect(file, {"--uid", "theirs"}).size(), 1u);
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
