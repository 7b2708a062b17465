#include "diagnosis/Diagnosis.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "channel/store/vnMeetingCommon.h"
#include "data/vnSettingData.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "diagnosis/SettingReasons.h"
#include "tests/support/TestPlatform.h"
#include "util/PropertyList.h"
#include "util/vStringUtils.h"

namespace vorn {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

class DiagnosisTest : public ::testing::Test {
 protected:
  static Value ask(const char* question) {
    Value answer;
    EXPECT_TRUE(Diagnosis::answer(question, Value(), answer)) << question;
    return answer;
  }

  static Value valueOf(const Value& answer, std::string_view group, std::string_view key) {
    for (const Value& candidate : answer["groups"].items()) {
      if (candidate["name"].text() != group) continue;
      for (const Value& found : candidate["rows"].items()) {
        if (found["key"].text() == key) return found["value"];
      }
    }
    ADD_FAILURE() << "no row " << group << "." << key;
    return {};
  }
  static Value setting(std::string_view key) { return valueOf(ask("defaults"), "settings", key); }

  static void signIn(Value profile = Value::dictionary()) {
    profile.set("userId", "u1");
    vnUserProfileHelper::sharedInstance().setData(profile);
  }

  std::string install(const std::string& path) {
    fs::create_directories(path);
    m_world.workspace.filePackages.insert(path);
    return path;
  }

  std::string home() { return m_world.surroundings.homeDirectory(); }

  TestPlatform m_world;
};

TEST_F(DiagnosisTest, TellsWhereTheVersionCameFromAndWhatItAllows) {
  m_world.workspace.running.insert("us.vorn.xos");
  const std::string path = install(home() + "/SystemApplications/vornclient.app");
  JsonTextFile(vnMeetingCommon::getLocalVnSiteConfigPath()).setKey("vornClientVersion", "4.5.1");
  const Value stored = ask("client");
  EXPECT_EQ(valueOf(stored, "client", "version").text(), "4.5.1");
  EXPECT_EQ(valueOf(stored, "client", "versionSource").text(), "stored copy");
  EXPECT_TRUE(valueOf(stored, "capabilities", "isVornClientSupportInvitationLanguage")["supported"].boolValue());
  EXPECT_FALSE(valueOf(stored, "capabilities", "isVornClientSupportIPCSocket")["supported"].boolValue());

  fs::create_directories(path + "/Contents");
  writePropertyList(Value::dictionaryFromPairs({{"CFBundleVersion", "3.4.9"}}), path + "/Contents/Info.plist");
  const Value fromBundle = ask("client");
  EXPECT_EQ(valueOf(fromBundle, "client", "versionSource").text(), "bundle");
  EXPECT_EQ(valueOf(fromBundle, "client", "status").integerValue(), 3);
  EXPECT_THAT(fromBundle["troubles"].at(0).text(), HasSubstr("3.4.9"));
}

TEST_F(DiagnosisTest, TellsWhichSystemsAreTooOld) {
  m_world.surroundings.version = {10, 5, 9};
  const Value answer = ask("client");
  EXPECT_FALSE(valueOf(answer, "system", "isSupportedOSVersion").boolValue());
  EXPECT_FALSE(valueOf(answer, "system", "isSupportedOutlookVersion").boolValue());
  EXPECT_EQ(valueOf(answer, "channel", "transport").text(), "notifications");
  const std::string troubles = vStringUtils::toJSONString(answer["troubles"]).value_or("");
  EXPECT_THAT(troubles, HasSubstr("macOS"));
  EXPECT_THAT(troubles, HasSubstr("Outlook"));
}

TEST_F(DiagnosisTest, TellsWhatLiesInEachFileOfTheStore) {
  const std::string folder = vnCommon::getDocumentOutlookPluginRootPath();
  JsonTextFile(vnMeetingCommon::getLocalVnSiteConfigPath()).setKey("enablePAC", true);
  std::ofstream(folder + "/half.txt") << "<?xml version=\"1.0\"?><plist><array><str";
  writePropertyList(Value::dictionary(), folder + "/other.txt");
  writePropertyList(Value::Array{"not JSON"}, folder + "/words.txt");
  const std::pair<const char*, const char*> cases[] = {{"siteConfiguration", "a settings document: enablePAC"},
                                                       {"half.txt", "no property list"},
                                                       {"other.txt", "a property list without a text"},
                                                       {"words.txt", "a text that is no settings document"}};
  const Value answer = ask("client");
  for (const auto& [key, content] : cases) {
    EXPECT_EQ(valueOf(answer, "store", key)["content"].text(), content) << key;
  }
}

TEST_F(DiagnosisTest, DefaultsAreThoseOfANewMeetingAndLeaveTheUsersWishAlone) {
  signIn(Value::dictionaryFromPairs({{"isEnableRequirePassword", false}, {"userOption", 0}}));
  m_world.userDefaults.setObject(true, vn_Setting_NotShowMeAgain);
  const Value answer = ask("defaults");
  EXPECT_TRUE(m_world.userDefaults.objectForKey(vn_Setting_NotShowMeAgain).boolValue());

  vnSettingData record;
  record.initSettingData();
  const Value settings = record.getSettingsData();
  EXPECT_GT(settings.count(), 25U);
  for (const auto& [key, value] : settings.entries()) {
    EXPECT_EQ(valueOf(answer, "settings", key)["value"], value) << key;
  }
}

TEST_F(DiagnosisTest, TellsWhoDecidedASetting) {
  signIn(Value::dictionaryFromPairs(
      {{"isEnableRequirePassword", true}, {"isLockScheduleRequirePassword", true}, {"userOption", 0}}));
  JsonTextFile(vnCommon::getVnUserProfilePath("u1"))
      .write(Value::dictionaryFromPairs({{"language", "de-DE"}, {"notShowMeAgain", true}}));
  const struct {
    std::string_view key, decidedBy, reason;
  } cases[] = {
      {vn_Setting_RequiredMPW, "profile", "isEnableRequirePassword is on; locked by the administrator"},
      {vn_Setting_EnableHostVideo, "record", "alwaysTurnOnHostVideoByDefault is off"},
      {vn_Setting_SelectInvitationLanguage, "savedProfile", "saved choice"},
      {vn_Setting_EnableAutoRecordingType, "client", "isVornClientSupportAutoRecord from 4.0.24613"},
      {vn_Setting_AlternateHosts, "record", "default"},
  };
  for (const auto& expected : cases) {
    const Value facts = setting(expected.key);
    EXPECT_EQ(facts["decidedBy"].text(), expected.decidedBy) << expected.key;
    EXPECT_THAT(facts["reason"].text(), HasSubstr(std::string(expected.reason)));
  }
  EXPECT_EQ(setting(vn_Setting_RequiredMPW)["lockedBy"].text(), "isLockScheduleRequirePassword");

  vnUserProfileHelper::sharedInstance().clearUserProfile();
  EXPECT_EQ(setting(vn_Setting_SelectInvitationLanguage)["decidedBy"].text(), "savedProfile");
  EXPECT_TRUE(valueOf(ask("client"), "store", "savedProfile")["exists"].boolValue()) << "what is told of is there";
}

TEST_F(DiagnosisTest, WithoutAProfileEverySettingIsTheRecordsOwnAndNotEveryQuestionIsKnown) {
  Value answer = "as it was";
  EXPECT_FALSE(Diagnosis::answer("weather", Value(), answer));
  EXPECT_EQ(answer.text(), "as it was");
  answer = ask("defaults");
  EXPECT_FALSE(answer["hasProfile"].boolValue());
  for (const Value& entry : answer["groups"].at(0)["rows"].items()) {
    EXPECT_EQ(entry["value"]["decidedBy"].text(), "record") << entry["key"].text();
  }
}

}  // namespace
}  // namespace vorn
