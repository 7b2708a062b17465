#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/shell/Calendars.h"
#include "tests/shell/ProgramRun.h"

namespace vornlab::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

TEST(Demo, ShowsTheRoadWithEveryNumber) {
  const TemporaryFolder folder;
  const ProgramRun run = runProgram(VORNLAB_PROGRAM, {"demo", "--full", "--out", (folder / "out.ics").string()});
  ASSERT_EQ(run.exitCode, 0) << run.output << run.errors;
  for (const char* part : {"The appointment before", "4 VnCmdSchedule", "1 VnStateAdding", "sent      action 3",
                           "received  action 6", "The appointment after", "an online meeting now"}) {
    EXPECT_THAT(run.output, HasSubstr(part));
  }
  EXPECT_THAT(run.output, Not(HasSubstr("@")));
}

TEST(Demo, TakesAnAppointmentOfOnesOwnAndWritesOnlyWhereItIsTold) {
  const TemporaryFolder folder;
  const auto own = folder.write("own.ics", calendar({appointment("a", "First"), appointment("b", "Second")}));
  const std::string before = contentOf(own);
  const ProgramRun run = runProgram(VORNLAB_PROGRAM, {"demo", own.string(), "--uid", "b"});
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_THAT(run.output, AllOf(HasSubstr("Subject    Second"), HasSubstr("an online meeting now"),
                                Not(HasSubstr("The calendar is in"))));
  EXPECT_EQ(contentOf(own), before);
  EXPECT_EQ(runProgram(VORNLAB_PROGRAM, {"demo", own.string(), "--uid", "c"}).errors,
            "vornlab: " + own.string() + ": the calendar has no appointment with the UID c\n");
}

}  // namespace
}  // namespace vornlab::test
