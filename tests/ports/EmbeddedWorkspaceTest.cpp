#include "platform/embedded/EmbeddedWorkspace.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "tests/ports/SmallMachine.h"
#include "util/AtomicFile.h"
#include "util/PropertyList.h"

namespace vorn {
namespace {

namespace fs = std::filesystem;

// What this workspace keeps beside what every one does.
class EmbeddedWorkspaceTest : public testing::Test {
 protected:
  SmallMachine machine;
  EmbeddedWorkspace workspace{machine.home(), {machine.applications(), machine.userApplications()}};
};

TEST_F(EmbeddedWorkspaceTest, FindsApplicationsInTheOrderOfTheFolders) {
  const std::string second = machine.install("v", "us.vorn.xos");
  const std::string folder = machine.applications() + "/folder", first = machine.applications() + "/z.app";
  fs::copy(second, folder, fs::copy_options::recursive);
  EXPECT_EQ(workspace.absolutePathForAppBundle("us.vorn.xos"), second) << "a plain folder is no application";
  fs::rename(folder, first);
  EXPECT_EQ(workspace.absolutePathForAppBundle("us.vorn.xos"), first);
  EXPECT_TRUE(workspace.isFilePackage(first + "/"));
  fs::remove(SmallMachine::programOf(first));
  EXPECT_EQ(workspace.executablePath(first), "") << "named but not there";
  writePropertyList(Value::dictionaryFromPairs({{"CFBundleIdentifier", "v"}}), second + "/Contents/Info.plist");
  fs::rename(SmallMachine::programOf(second), second + "/Contents/MacOS/v");
  EXPECT_EQ(workspace.executablePath(second), second + "/Contents/MacOS/v") << "named after its bundle";
}

TEST_F(EmbeddedWorkspaceTest, SeesAProcessOfAnApplicationBelowItsRootOnly) {
  const std::string identifier = "us.vorn.below-its-root";
  machine.run(machine.install("v", identifier));
  EXPECT_TRUE(workspace.isRunning(identifier));
  EXPECT_FALSE(EmbeddedWorkspace(machine.home() + "/App", {}).isRunning(identifier)) << "the begin of a name";
  EXPECT_TRUE(EmbeddedWorkspace("/", {}).isRunning(identifier)) << "the whole machine";
}

TEST_F(EmbeddedWorkspaceTest, ShowsAFolderWithTheDesktopsOpener) {
  const std::string formerPath = ::getenv("PATH");
  const std::string marker = machine.home() + "/marker", opener = machine.home() + "/bin/xdg-open";
  fs::create_directories(machine.home() + "/bin");
  replaceFile(opener, "#!/bin/sh\ntest -d \"$1\" && echo shown > '" + marker + "'\n");
  fs::permissions(opener, fs::perms::owner_all);
  ::setenv("PATH", (machine.home() + "/bin:" + formerPath).c_str(), 1);
  EXPECT_TRUE(workspace.openFolder(machine.applications()));
  while (!fs::exists(marker)) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  EXPECT_TRUE(workspace.openWebPage("https://vorn.example/events"));
  ::setenv("PATH", "", 1);
  EXPECT_FALSE(workspace.openFolder(machine.applications())) << "a machine without a desktop";
  ::setenv("PATH", formerPath.c_str(), 1);
}

}  // namespace
}  // namespace vorn
