#include "platform/embedded/EmbeddedWorkspace.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "channel/store/vnFileFunctions.h"
#include "tests/support/FakePorts.h"
#include "util/PropertyList.h"

extern char** environ;

namespace vorn {
namespace {

namespace fs = std::filesystem;

class EmbeddedWorkspaceTest : public ::testing::Test {
 protected:
  std::string makeBundle(const std::string& path, const std::string& identifier, const std::string& program) {
    fs::create_directories(path + "/Contents/MacOS");
    Value information = Value::dictionaryFromPairs({{"CFBundleIdentifier", identifier}});
    if (!program.empty()) information.set("CFBundleExecutable", program);
    writePropertyList(information, path + "/Contents/Info.plist");
    return path;
  }
  void makeProgram(const std::string& path, const std::string& script) {
    vnCreateFile(path, "#!/bin/sh\n" + script + "\n");
    fs::permissions(path, fs::perms::owner_all);
  }
  static bool waitUntil(const std::function<bool()>& condition) {
    for (int i = 0; i < 5000 && !condition(); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return condition();
  }

  TestSurroundings m_surroundings;
  std::string m_root = m_surroundings.homeDirectory();
  EmbeddedWorkspace m_workspace{m_root, {m_root + "/Applications", m_root + "/Users/me/Applications"}};
};

TEST_F(EmbeddedWorkspaceTest, FindsApplicationsInTheOrderOfTheFolders) {
  const std::string second = makeBundle(m_root + "/Users/me/Applications/v.app", "us.vorn.xos", "v");
  makeBundle(m_root + "/Applications/folder", "us.vorn.xos", "v");
  EXPECT_EQ(m_workspace.absolutePathForAppBundle("us.vorn.xos"), second) << "a plain folder is no application";
  const std::string first = makeBundle(m_root + "/Applications/z.app", "us.vorn.xos", "v");
  EXPECT_EQ(m_workspace.absolutePathForAppBundle("us.vorn.xos"), first);
  EXPECT_TRUE(m_workspace.isFilePackage(first + "/"));
  EXPECT_EQ(m_workspace.executablePath(first), "") << "named but not there";
  const std::string unnamed = makeBundle(m_root + "/b.app", "b", "");
  makeProgram(unnamed + "/Contents/MacOS/b", "");
  EXPECT_EQ(m_workspace.executablePath(unnamed), unnamed + "/Contents/MacOS/b");
}

TEST_F(EmbeddedWorkspaceTest, SeesAProcessOfAnApplicationBelowItsRootOnly) {
  const std::string bundle = makeBundle(m_root + "/Applications/s.app", "us.vorn.xos", "s");
  const std::string program = bundle + "/Contents/MacOS/s";
  fs::copy_file("/bin/sleep", program);
  std::string name = "s", seconds = "60";
  char* arguments[] = {name.data(), seconds.data(), nullptr};
  pid_t process = 0;
  ASSERT_EQ(::posix_spawn(&process, program.c_str(), nullptr, nullptr, arguments, environ), 0);
  EXPECT_TRUE(m_workspace.isRunning("us.vorn.xos"));
  EXPECT_FALSE(EmbeddedWorkspace(m_root + "/Users", {}).isRunning("us.vorn.xos")) << "another session's";
  EXPECT_FALSE(EmbeddedWorkspace(m_root + "/App", {}).isRunning("us.vorn.xos")) << "only the begin of a name";
  EXPECT_TRUE(EmbeddedWorkspace("/", {}).isRunning("us.vorn.xos")) << "the whole machine";

  ::kill(process, SIGKILL);
  ::waitpid(process, nullptr, 0);
}

TEST_F(EmbeddedWorkspaceTest, ShowsAFolderWithTheDesktopsOpener) {
  const std::string formerPath = ::getenv("PATH");
  const std::string marker = m_root + "/marker";
  const std::string folder = m_root + "/A folder";
  fs::create_directories(folder);
  fs::create_directories(m_root + "/bin");
  makeProgram(m_root + "/bin/xdg-open", "test -d \"$1\" && echo shown > '" + marker + "'");
  ::setenv("PATH", (m_root + "/bin:" + formerPath).c_str(), 1);
  EXPECT_FALSE(m_workspace.openFolder(m_root + "/none"));
  EXPECT_TRUE(m_workspace.openFolder(folder));
  EXPECT_TRUE(waitUntil([&] { return vnIsFileExist(marker); }));
  EXPECT_TRUE(m_workspace.openWebPage("https://vorn.example/events"));
  ::setenv("PATH", "", 1);
  EXPECT_FALSE(m_workspace.openFolder(folder)) << "a machine without a desktop";
  ::setenv("PATH", formerPath.c_str(), 1);
}

}  // namespace
}  // namespace vorn
