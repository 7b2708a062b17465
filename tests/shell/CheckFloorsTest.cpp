#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "tests/shell/ProgramRun.h"

namespace vornlab::test {
namespace {

using ::testing::HasSubstr;

struct FloorsCase {
  const char* name;
  std::vector<std::pair<const char*, const char*>> files;
  // "" for a tree that is in order.
  const char* complaint;
};

TEST(CheckFloors, NamesWhatBreaksTheFloors) {
  for (const FloorsCase& each :
       {FloorsCase{"Downward",
                   {{"plugin/data/a.h", "#include \"util/b.h\"\n#include <string>\n"}, {"plugin/util/b.h", ""}},
                   ""},
        FloorsCase{"Upward",
                   {{"plugin/data/a.h", "\n#include \"workflow/b.h\"\n"}, {"plugin/workflow/b.h", ""}},
                   "plugin/data/a.h:2: upward include from data (floor 6) to workflow (floor 8)"},
        FloorsCase{"CircleOnOneFloor",
                   {{"plugin/data/a.h", "#include \"invitation/b.h\"\n"},
                    {"plugin/invitation/b.h", "#include \"licence/c.h\"\n"},
                    {"plugin/licence/c.h", "#include \"data/a.h\"\n"}},
                   "circle of rooms: data -> invitation -> licence -> data"},
        FloorsCase{"ProductToLaboratory",
                   {{"plugin/bundle/a.cpp", "#include \"lab/outlook/b.h\"\n"}, {"lab/outlook/b.h", ""}},
                   "plugin/bundle/a.cpp:1: bundle includes lab/outlook"},
        FloorsCase{"ProductToTests",
                   {{"plugin/util/a.cpp", "#include \"tests/support/b.h\"\n"}, {"tests/support/b.h", ""}},
                   "plugin/util/a.cpp:1: util includes tests/support"},
        FloorsCase{"ProductToAnEdge",
                   {{"plugin/workflow/a.cpp", "#include \"platform/embedded/b.h\"\n"},
                    {"plugin/platform/embedded/b.h", ""}},
                   "workflow includes platform/embedded"},
        FloorsCase{"ClientToTheProduct",
                   {{"lab/client/a.cpp", "#include \"util/b.h\"\n"}, {"plugin/util/b.h", ""}},
                   "lab/client/a.cpp:1: lab/client may not include util"},
        FloorsCase{"RelativeUpward",
                   {{"plugin/util/a.h", "#  include \"../bundle/b.h\"\n"}, {"plugin/bundle/b.h", ""}},
                   "upward include from util (floor 1) to bundle (floor "},
        FloorsCase{"RulesToAnotherRoom",
                   {{"plugin/settings/rules/a.cpp", "#include \"platform/b.h\"\n"}, {"plugin/platform/b.h", ""}},
                   "plugin/settings/rules/a.cpp:1: settings/rules includes platform"},
        FloorsCase{"RulesToASharedInstance",
                   {{"plugin/settings/rules/a.cpp", "#include \"data/b.h\"\n"},
                    {"plugin/data/b.h", "static vnB& sharedInstance();\n"}},
                   "settings/rules includes data/b.h, which leads to a shared instance"},
        FloorsCase{
            "RoomWithoutFloor", {{"plugin/attic/a.h", ""}}, "plugin/attic/a.h:1: attic has no floor yet"}}) {
    const TemporaryFolder tree;
    for (const auto& [name, content] : each.files) tree.write(name, content);
    const ProgramRun run = runProgram(CHECK_FLOORS, {tree.path().string()});
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.exitCode, *each.complaint == '\0' ? 0 : 1) << each.name << run.output;
    EXPECT_THAT(run.output, HasSubstr(each.complaint)) << each.name;
  }
}

}  // namespace
}  // namespace vornlab::test
