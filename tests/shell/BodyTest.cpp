// One operation on a body, with the real program and the real bundle.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/shell/ProgramRun.h"

namespace vornlab::test {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;

const std::string kBegin = "<a name=\"MacVnBookmarkBegin\"></a>";
const std::string kEnd = "<a name=\"MacVnBookmarkEnd\"></a>";
const std::string kEndEx = "<a name=MacVnBookmarkEnd></a>";

class Body : public ::testing::Test {
 protected:
  ProgramRun body(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "body");
    return runProgram(VORNLAB_PROGRAM, arguments);
  }

  TemporaryFolder m_folder;
  const std::string m_invitation = m_folder.write("invitation.html", "NEW");
  const std::string m_plain = m_folder.write("invitation.txt", "Join the meeting number 1 < 2 now");
  const std::string m_empty = m_folder.write("empty.html", "");
};

TEST_F(Body, EachOperationGivesItsResultOrItsReason) {
  const std::string marked = kBegin + "NEW" + kEnd;
  const struct {
    std::string body;
    std::vector<std::string> arguments;
    std::string bookmarks, result, reason;
  } cases[] = {
      {"<body>ada@x.org</body>",
       {"insert", "--invitation", m_invitation},
       "none",
       "<body>ada@x.org" + marked + "</body>",
       ""},
      {"a",
       {"insert", "--invitation", m_plain, "--plain"},
       "none",
       "a<br><br>" + kBegin + "Join the meeting number 1 &lt; 2 now" + kEnd + "<br><br>",
       ""},
      {"a", {"insert", "--invitation", m_empty}, "none", "", "the invitation is empty"},
      {"a<br><br>+" + kBegin + kEnd + ".<br><br>b",
       {"update", "--invitation", m_invitation, "--top"},
       "placeholder",
       "a" + marked + "b",
       ""},
      {"a", {"update", "--invitation", m_invitation, "--existing-meeting"}, "none", marked, ""},
      {"a" + kBegin + kEnd + "\xFF", {"remove"}, "quoted", "a\xFF", ""},
      {"a" + kEndEx + "b", {"remove"}, "unquoted end", "b", ""},
      {"a" + kBegin, {"remove"}, "none", "", "not both bookmarks are there as we write them"},
      {"<p>a&nbsp;</p>b", {"text"}, "none", "a\nb", ""},
  };
  for (const auto& each : cases) {
    const std::string file = m_folder.write("body.html", each.body);
    std::vector<std::string> arguments = each.arguments;
    arguments.push_back(file);
    const ProgramRun plain = body(arguments);
    EXPECT_EQ(plain.output, each.result) << each.body;
    EXPECT_EQ(plain.exitCode, each.reason.empty() ? 0 : 1) << plain.errors;
    EXPECT_THAT(plain.errors, HasSubstr(each.reason));
    arguments.emplace_back("--json");
    const json told = json::parse(body(arguments).output, nullptr, false);
    ASSERT_TRUE(told.is_object()) << each.body;
    EXPECT_EQ(told["operation"], each.arguments.front());
    EXPECT_EQ(told["bookmarks"], each.bookmarks) << each.body;
    EXPECT_EQ(told["reason"], each.reason);
    EXPECT_EQ(told["changed"], each.reason.empty());
    EXPECT_EQ(told["bytesBefore"], each.body.size());
    EXPECT_EQ(told["bytesAfter"], each.reason.empty() ? json(each.result.size()) : json());
  }
}

TEST_F(Body, AFileIsReplacedWholeOrNotAtAllAndWhatCannotBeDoneIsBadUsage) {
  const std::string file = m_folder.write("body.html", "a" + kBegin + "OLD" + kEnd);
  for (const int exitCode : {0, 1}) {
    EXPECT_EQ(body({"remove", file, "--out", file}).exitCode, exitCode);
    EXPECT_EQ(contentOf(file), "a");
  }
  const std::vector<std::vector<std::string>> cases = {
      {},
      {"repair", file},
      {"insert", file},
      {"remove", file, "--top"},
      {"text", m_folder / "missing.html"},
      {"text", m_folder.path()},
      {"insert", file, "--invitation", m_folder / "missing.html"},
      {"text", file, "--out", m_folder / "missing/out.txt"},
  };
  for (const auto& arguments : cases) {
    const ProgramRun run = body(arguments);
    EXPECT_EQ(run.exitCode, 2) << (arguments.empty() ? "" : arguments.front());
    EXPECT_NE(run.errors, "");
    EXPECT_EQ(run.output, "");
  }
}

}  // namespace
}  // namespace vornlab::test
