#include <gmock/gmock.h>
#include <sys/resource.h>

#include <atomic>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <thread>
#include <tuple>

#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "channel/store/vnFileFunctions.h"
#include "channel/store/vnLocalProfileKeys.h"
#include "channel/store/vnMeetingCommon.h"
#include "tests/support/TestPlatform.h"
#include "util/AtomicFile.h"
#include "util/PropertyList.h"
#include "util/vnOLUtils.h"

namespace vorn {
namespace {

namespace fs = std::filesystem;

class StoreTest : public ::testing::Test {
 protected:
  std::string folder() { return vnCommon::getDocumentOutlookPluginRootPath(); }
  std::string site() { return vnMeetingCommon::getLocalVnSiteConfigPath(); }
  std::string inHome(const std::string& name) { return m_world.surroundings.homeDirectory() + "/" + name; }

  TestPlatform m_world;
};

TEST_F(StoreTest, KeepsItsFilesInOneFolderBelowTheDocuments) {
  const std::string documents = inHome("Documents");
  EXPECT_EQ(folder(), documents + "/VornOutlookPlugin");
  EXPECT_EQ(site(), documents + "/VornOutlookPlugin/vnConfig.txt");
  EXPECT_EQ(vnCommon::getVnUserProfilePath("u-1"), documents + "/VornOutlookPlugin/u-1.txt");
  EXPECT_EQ(vnMeetingCommon::getPACUserProfilePath("u-1"), documents + "/VornOutlookPlugin/pac_u-1.txt");
  EXPECT_EQ(vnCommon::getVnUserProfilePath(std::nullopt), "");
  EXPECT_FALSE(vnIsFileExist(vnCommon::getVnUserProfilePath(vnCommon::getUID())));

  vnCommon::setUserIdSource([] { return OptionalText("u-2"); });
  EXPECT_EQ(vnCommon::getUID(), "u-2");
  m_world.restart();
  EXPECT_EQ(vnCommon::getUID(), std::nullopt);
}

// A file that may not be read stands for it badly, because permissions do not bind every user; a folder does.
TEST_F(StoreTest, PassesOverAFileThatCannotBeReadOrReplaced) {
  fs::create_directories(site());
  JsonTextFile file(site());
  EXPECT_TRUE(file.read().isAbsent());
  file.setKey(vn_LocalProfile_EnablePAC, true);
  vnMeetingCommon::savePACConfigToLocal(1);
  EXPECT_TRUE(file.read().isAbsent());
  EXPECT_TRUE(fs::is_directory(site()));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder()), fs::directory_iterator()), 1)
      << "nothing new lies there";
}

TEST_F(StoreTest, WritesAPropertyListOfOneTextAndKeepsTheOtherKeys) {
  JsonTextFile file(site());
  EXPECT_TRUE(file.read().isAbsent());
  file.setKey(vn_LocalProfile_EnablePAC, true);
  file.setKey(vn_LocalProfile_TrashCanLink, "https://vorn.us/größer");
  vnMeetingCommon::savePACConfigToLocal(0);

  const Value stored = readPropertyList(site());
  ASSERT_EQ(stored.count(), 1u);
  EXPECT_EQ(vnOLUtils::toArrayOrNSDictionary(stored.at(0).optionalText()),
            Value::dictionaryFromPairs({{"enablePAC", false}, {"trashCanLink", "https://vorn.us/größer"}}));
  const std::optional<std::string> before = readFile(site());
  file.setKey("a", std::string("\xFF not UTF-8"));
  EXPECT_EQ(readFile(site()), before) << "what cannot be written leaves the old document";
  EXPECT_THAT(vnGetDirectoryItems(folder()), Value(Value::Array{"vnConfig.txt"})) << "and nothing beside it";
}

// The limit stands for a disk that is full.
TEST_F(StoreTest, KeepsTheOldDocumentWhereThereIsNoRoomForANewOne) {
  JsonTextFile file(site());
  file.setKey(vn_LocalProfile_EnablePAC, true);
  const std::optional<std::string> before = readFile(site());
  rlimit limit{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
  const rlimit none{16, limit.rlim_max};
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  ::setrlimit(RLIMIT_FSIZE, &none);
  file.setKey(vn_LocalProfile_EnablePAC, false);
  ::setrlimit(RLIMIT_FSIZE, &limit);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(readFile(site()), before);
  EXPECT_THAT(vnGetDirectoryItems(folder()), Value(Value::Array{"vnConfig.txt"})) << "nothing half written stays";
}

// Older programs write a file in its place, and cut it off first.
TEST_F(StoreTest, ReadsADocumentWholeOrNotAtAllWhileAnotherProgramWritesIt) {
  JsonTextFile file(site());
  const std::string text(200'000, 'x');
  file.setKey("text", text);
  const std::string whole = readFile(site()).value_or("");
  std::atomic<bool> isDone{false};
  std::thread writer([&] {
    while (!isDone) {
      fs::resize_file(site(), 0);
      std::ofstream(site(), std::ios::in | std::ios::binary) << whole;
    }
  });
  for (int i = 0; i < 300; ++i) {
    const Value read = file.read()["text"];
    EXPECT_TRUE(read.isAbsent() || read.text() == text);
  }
  isDone = true;
  writer.join();
  EXPECT_EQ(file.read()["text"].text(), text);
}

TEST_F(StoreTest, ReadsWhatOthersLeftBehindWithoutComplaint) {
  vnCreateDirection(folder());
  const std::string document = R"({"enablePAC":true})";
  const Value three = Value::Array{"{}", "7", document}, one = Value::Array{document},
              other = Value::dictionaryFromPairs({{"a", "b"}});
  const std::tuple<const char*, std::function<void()>, Value> cases[] = {
      {"three texts", [&] { writePropertyList(three, site()); },
       Value::dictionaryFromPairs({{"enablePAC", true}})},
      {"plain text", [&] { replaceFile(site(), document); }, {}},
      {"an empty array", [&] { writePropertyList(Value::array(), site()); }, {}},
      {"another shape", [&] { writePropertyList(other, site()); }, {}},
      {"no JSON", [&] { vnOLUtils::saveStrToFile("{broken", site()); }, Value::dictionary()},
      {"no dictionary", [&] { vnOLUtils::saveStrToFile("[1]", site()); }, Value::dictionary()},
      {"cut off", [&] { writePropertyList(one, site()), fs::resize_file(site(), fs::file_size(site()) / 2); }, {}},
  };
  for (const auto& [name, leave, read] : cases) {
    leave();
    EXPECT_EQ(JsonTextFile(site()).read(), read) << name;
    JsonTextFile(site()).setKey(vn_NotStrongerPasscode, true);
    EXPECT_TRUE(JsonTextFile(site()).read()[vn_NotStrongerPasscode].boolValue()) << name;
  }
}

TEST_F(StoreTest, AnswersFileQuestionsOnAbsentAndMissingPaths) {
  const std::string file = inHome("a.txt"), nested = inHome("x/y/z"), moved = inHome("b.txt");
  EXPECT_FALSE(vnIsFileExist(std::nullopt) || vnIsDirection(std::nullopt) || vnDeleteFile(std::nullopt));
  EXPECT_FALSE(vnDeleteFile(file));
  EXPECT_TRUE(vnGetDirectoryItems(file).isAbsent());
  EXPECT_EQ(vnGetFileVersion(inHome("no.app")), "");
  EXPECT_TRUE(vnCreateDirection(nested));
  EXPECT_FALSE(vnCreateDirection(nested)) << "it is there already";
  EXPECT_TRUE(vnIsDirection(nested));
  EXPECT_EQ(vnGetDirectoryItems(inHome("x")), Value(Value::Array{"y"}));
  EXPECT_TRUE(vnDeleteFile(inHome("x"))) << "a folder goes with all that it holds";
  EXPECT_FALSE(vnIsFileExist(nested));
  // Nobody calls these.
  EXPECT_TRUE(vnCreateFile(file, "new"));
  EXPECT_FALSE(vnMoveFile(inHome("missing"), file) || vnMoveFile(file, file)) << "a file is never lost";
  EXPECT_TRUE(vnMoveFile(file, moved));
  EXPECT_EQ(vnGetFileSizeFromPath(moved), 3);
  EXPECT_FALSE(vnIsDirection(moved) || vnIsFileExist(file));
}

TEST_F(StoreTest, CoversWhatMustNotReachALog) {
  const Value apptInfo = Value::dictionaryFromPairs(
      {{"emailBody", "body"}, {"attendees", Value(Value::Array{"x", "y"})}, {"subject", "s"}});
  const Value covered = vnMeetingCommon::getLogInfo_MeetingData(Value::dictionaryFromPairs(
      {{"setting", Value::dictionaryFromPairs({{"meetingPassword", "geheim"}})}, {"apptInfo", apptInfo}}));
  EXPECT_EQ(covered["setting"]["meetingPassword"].text(), "******");
  EXPECT_EQ(covered["apptInfo"],
            Value::dictionaryFromPairs({{"emailBody", "******"}, {"attendees", "count: 2"}, {"subject", "s"}}));
  EXPECT_EQ(apptInfo["emailBody"].text(), "body") << "the original stays";
}

class OneBar final : public ApptBar {
 public:
  OptionalText getAppointmentWindowID() override { return "7f01"; }
  HostObject editorViewWindow() override { return HostObject(0x20); }
};

class OneWindow final : public ApptWindowDirectory {
 public:
  ApptBar* barByWindow(const HostObject& window) override { return window == HostObject(0x10) ? &bar : nullptr; }
  HostObject mainWindow() override { return HostObject(0x30); }
  OneBar bar;
};

TEST_F(StoreTest, FindsWindowsThroughWhoeverKnowsThem) {
  EXPECT_EQ(vnMeetingCommon::getApptWindowIDByWindow(HostObject(0x10)), std::nullopt);
  EXPECT_FALSE(vnMeetingCommon::getPluginParentWindow(nullptr));

  OneWindow windows;
  vnMeetingCommon::setApptWindowDirectory(&windows);
  EXPECT_EQ(vnMeetingCommon::getApptWindowIDByWindow(HostObject(0x10)), "7f01");
  EXPECT_EQ(vnMeetingCommon::getApptWindowIDByWindow(HostObject(0x11)), std::nullopt);
  EXPECT_EQ(vnMeetingCommon::getPluginParentWindow(nullptr), HostObject(0x30));
  EXPECT_EQ(vnMeetingCommon::getPluginParentWindow(&windows.bar), HostObject(0x20));
}

}  // namespace
}  // namespace vorn
