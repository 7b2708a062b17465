#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "data/Passcodes.h"
#include "data/vnGetScheduleForListHelper.h"
#include "data/vnSettingData.h"
#include "data/vnSettingKeys.h"
#include "tests/data/DataTest.h"

namespace vorn {
namespace {

constexpr std::int64_t bit(int number) { return static_cast<std::int64_t>(std::uint64_t{1} << number); }

// What stands in the second dictionary and not so in the first; null for what is gone.
Value changesBetween(const Value& before, const Value& after) {
  Value changes = Value::dictionary();
  for (const auto& [key, value] : after.entries()) {
    if (before[key] != value) changes.set(key, value);
  }
  for (const auto& [key, value] : before.entries()) {
    if (!after.contains(key)) changes.set(key, nullptr);
  }
  return changes;
}

class SettingRecordTest : public DataTest {
 protected:
  static void saveProfile(const Value& saved) {
    JsonTextFile(vnCommon::getVnUserProfilePath(account().getUID())).write(saved);
  }
  vnSettingData record;
};

TEST_F(SettingRecordTest, ANewMeetingWithoutAProfileHasTheFixedValues) {
  record.initSettingData();
  EXPECT_EQ(record.getSettingsData(), json(R"({"enableHostVideo":false,"enableParticipantsVideo":false,
    "audioOption":2,"enableThirdPartyAudio":false,"thirdPartyAudio":"","requiredMeetingPassword":false,
    "enableJBH":false,"usePMI":false,"notShowMeAgain":false,"scheduleFor":"","isSignedInUsersMeetingOn":false,
    "enableAutoRecordingMtgLevelFirst":false,"enableAutoRecordingType":0,"alternateHosts":[],"muteOnEntry":false,
    "forceIncludeJoinurlInLocation":true,"enableMeetingToPublicEvent":false,"enableAudioWatermark":false,
    "putTheInvitationAtTheTop":false,"language":"","jbhPriorTime":5,"enableWaitingRoom":false,
    "supportWaitingRoom":true,"enableRegionCustomization":false,"additionalDCRegions":[],"enableUnmuteAll":false,
    "enableE2ee":false,"meetingTemplate":{"templateId":"","templateName":"","templateType":0},
    "enableAllowDenyJoinMeetingRegion":false,"regionType":0,"regionCodes":[]})"));
}

TEST_F(SettingRecordTest, EachBitAndKeyOfTheAccountGoesIntoItsFieldOfANewMeeting) {
  const auto newMeeting = [](std::int64_t o1, std::int64_t o2, std::int64_t o3, const char* keys) {
    proto::UserProfile message;
    message.set_useroption(o1);
    message.set_useroption2(o2);
    message.set_useroption3(o3);
    message.set_otherteleconfinfo("dial");
    receive(message, keys);
    vnSettingData record;
    record.initSettingData();
    // Outside the dictionary, or only told with others.
    Value told = record.getSettingsData();
    told.set("room", record.roomMeetingId());
    told.set("hash", record.hash());
    told.set("tollfree", Value::Array{record.includeTollfree(), record.enableShowIncludeTollfree()});
    if (told.contains("meetingPassword"))
      told.set("meetingPassword", std::to_string(record.meetingPassword()->size()));
    return told;
  };
  const struct {
    std::int64_t o1, o2, o3;
    const char *keys, *changes;
  } rows[] = {
      {bit(36), 0, 0, "{}", R"({"enableHostVideo":true})"},
      {bit(37), 0, 0, "{}", R"({"enableParticipantsVideo":true})"},
      {bit(38), 0, 0, "{}", R"({"enableJBH":true})"},
      {bit(22), 0, 0, "{}", R"({"audioOption":0})"},
      {bit(25), 0, 0, "{}", R"({"enableThirdPartyAudio":true,"thirdPartyAudio":"dial"})"},
      {bit(25) | bit(34), 0, 0, "{}",
       R"({"enableThirdPartyAudio":true,"thirdPartyAudio":"dial","audioOption":3})"},
      {bit(35), bit(31), 0, "{}", R"({"audioOption":0})"},
      {0, bit(54), 0, "{}", R"({"audioOption":1})"},
      {bit(5), 0, 0, "{}", R"({"enableAutoRecordingType":3})"},
      {bit(5) | bit(28), 0, 0, "{}", R"({"enableAutoRecordingType":1})"},
      {bit(5) | bit(28) | bit(30), 0, 0, "{}", R"({"enableAutoRecordingType":2})"},
      {bit(5) | bit(28) | bit(51), 0, 0, "{}", R"({"enableAutoRecordingType":4})"},
      {bit(5), bit(39), 0, "{}", R"({"enableAutoRecordingMtgLevelFirst":false,"enableAutoRecordingType":5})"},
      {0, 0, bit(6), "{}", R"({"muteOnEntry":true})"},
      {0, 0, bit(9), "{}", R"({"enableWaitingRoom":true})"},
      {0, 0, bit(51), "{}", R"({"enableUnmuteAll":true})"},
      {0, 0, bit(38), "{}", R"({"enableRegionCustomization":true})"},
      {0, 0, bit(5), "{}", "{}"},
      {0, 0, bit(3) | bit(5), "{}", R"({"enableMeetingToPublicEvent":true})"},
      {0, 0, bit(14), "{}", "{}"},
      {0, 0, bit(14) | bit(60), "{}", R"({"forceIncludeJoinurlInLocation":false})"},
      {0, 0, bit(12), "{}", "{}"},
      {0, 0, bit(12), R"({"supportFeatureOptions":2})", R"({"putTheInvitationAtTheTop":true})"},
      {0, 0, bit(53), "{}", "{}"},
      {0, 0, bit(53) | bit(57), "{}", R"({"enableE2ee":true})"},
      {0, 0, 0, R"({"jbhPriorTime":10})", "{}"},
      {0, 0, bit(27), R"({"jbhPriorTime":10})", R"({"jbhPriorTime":10})"},
      {0, 0, bit(16), "{}", R"({"requiredMeetingPassword":true,"meetingPassword":"6"})"},
      {0, 0, bit(8), "{}", R"({"usePMI":true})"},
      {0, 0, bit(8) | bit(17), "{}", R"({"usePMI":true,"requiredMeetingPassword":true,"meetingPassword":"0"})"},
      {0, bit(45), bit(8), "{}", R"({"usePMI":true})"},
      {bit(38), bit(45), bit(8), "{}",
       R"({"enableJBH":true,"usePMI":true,"requiredMeetingPassword":true,"meetingPassword":"0"})"},
      {0, 0, 0, R"({"defaultEnableOnlyAuthUsersCanJoin":true})",
       R"({"isSignedInUsersMeetingOn":true,
           "meetingAuth":{"authId":"","authName":"","authType":0,"authDomain":""}})"},
      {0, 0, 0, R"({"joinMeetingRegionSetting":{"RegionPolicy":{"regionType":1,"regionCodes":["CN"]}}})",
       R"({"regionType":1})"},
      {0, 0, bit(62), R"({"joinMeetingRegionSetting":{"RegionPolicy":{"regionType":1,"regionCodes":["CN"]}}})",
       R"({"enableAllowDenyJoinMeetingRegion":true,"regionType":1,"regionCodes":["CN"]})"},
      {0, 0, 0, R"({"availableDialinCountry":{"hash":"h","includedTollfree":true,"selectedCountries":["US"]}})",
       R"({"hash":"h","tollfree":[true,false],
           "availableDialinCountry":{"hash":"h","includedTollfree":true,"selectedCountries":["US"]}})"},
      {0, 0, 0, R"({"availableDialinCountry":{"hash":"","enableShowIncludeTollfree":true}})",
       R"({"hash":"","tollfree":[false,true]})"},
  };
  const Value plain = newMeeting(0, 0, 0, "{}");
  EXPECT_EQ(plain["enableAutoRecordingMtgLevelFirst"], Value(true)) << "a message that forbids nothing allows it";
  EXPECT_EQ(plain["room"], Value("0"));
  for (const auto& row : rows) {
    EXPECT_EQ(vStringUtils::toJSONString(changesBetween(plain, newMeeting(row.o1, row.o2, row.o3, row.keys))),
              vStringUtils::toJSONString(json(row.changes)))
        << row.o1 << " " << row.o2 << " " << row.o3 << " " << row.keys;
  }
}

TEST_F(SettingRecordTest, TheOverlayTakesEachSettingThatIsNotLocked) {
  const Value meeting = json(R"({"enableHostVideo":true,"enableParticipantsVideo":true,"audioOption":1,
      "enableJBH":true,"jbhPriorTime":10,"usePMI":true,"requiredMeetingPassword":true,"meetingPassword":"pw",
      "thirdPartyAudio":"dial","isSignedInUsersMeetingOn":true,"enableAutoRecordingType":2,"muteOnEntry":true,
      "alternateHosts":["a@example.com"],"enableMeetingToPublicEvent":true,"scheduleFor":"b@example.com",
      "availableDialinCountry":{"hash":"h","includedTollfree":true,"selectedCountries":["US"]},
      "meetingAuth":{"authId":"i","authName":"n","authType":3,"authDomain":"d"},
      "enableAudioWatermark":true,"enableWaitingRoom":true,"supportWaitingRoom":false,
      "enableRegionCustomization":true,"additionalDCRegions":["EU"],"enableUnmuteAll":true,"enableE2ee":true,
      "meetingTemplate":{"templateId":"t","templateName":"l","templateType":2},
      "enableAllowDenyJoinMeetingRegion":true,"regionType":1,"regionCodes":["US"]})");
  const auto overlaid = [&](std::int64_t locks, const char* keys) {
    proto::UserProfile message;
    message.set_useroption4(locks);
    receive(message, keys);
    record.initSettingData();
    record.initWithSiteMeetingInfo(Value::dictionaryFromPairs({{vn_Setting, meeting}}));
    return record.getSettingsData();
  };
  const Value open = overlaid(0, "{}");
  EXPECT_EQ(vStringUtils::toJSONString(changesBetween(meeting, open)),
            vStringUtils::toJSONString(json(
                R"({"enableThirdPartyAudio":false,"notShowMeAgain":false,"trackingFields":[],
          "enableAutoRecordingMtgLevelFirst":false,"forceIncludeJoinurlInLocation":true,
          "putTheInvitationAtTheTop":false,"language":""})")));
  const struct {
    std::int64_t lock;
    const char *keys, *kept;
  } rows[] = {
      {bit(1), "{}", R"({"enableHostVideo":false})"},
      {bit(2), "{}", R"({"enableParticipantsVideo":false})"},
      {bit(3), "{}", R"({"audioOption":2})"},
      {bit(4), "{}", R"({"enableJBH":false,"jbhPriorTime":5})"},
      {bit(5), "{}", R"({"muteOnEntry":false})"},
      {bit(9), "{}", R"({"enableAutoRecordingType":0})"},
      {bit(11), "{}", R"({"enableMeetingToPublicEvent":false})"},
      {bit(12), "{}", R"({"enableAudioWatermark":false})"},
      {bit(16), "{}", R"({"usePMI":false})"},
      {bit(17), "{}", R"({"enableWaitingRoom":false,"supportWaitingRoom":true})"},
      {bit(26), "{}", R"({"enableE2ee":false})"},
      // The lock on the regions is asked of the person for whom the meeting is, and of nobody else.
      {bit(30), "{}", "{}"},
      {0, R"({"lockOnlyAuthUsersCanJoin":true})", R"({"isSignedInUsersMeetingOn":false,"meetingAuth":null})"},
  };
  for (const auto& row : rows) {
    record = {};
    EXPECT_EQ(vStringUtils::toJSONString(changesBetween(open, overlaid(row.lock, row.keys))),
              vStringUtils::toJSONString(json(row.kept)))
        << row.lock << row.keys;
  }
  vnGetScheduleForListHelper::sharedInstance().setData(
      json(R"({"bosses":[{"email":"b@example.com","userOption4":1073741824}]})"));
  EXPECT_EQ(changesBetween(open, overlaid(0, "{}")),
            json(R"({"enableAllowDenyJoinMeetingRegion":false,"regionType":0,"regionCodes":[]})"));
}

TEST_F(SettingRecordTest, AMeetingThatSaysNothingSwitchesOffWhatTheAccountHasOn) {
  proto::UserProfile message;
  message.set_useroption(bit(36) | bit(37) | bit(38) | bit(25) | bit(5));
  message.set_useroption3(~(bit(8) | bit(17)));
  message.set_otherteleconfinfo("dial");
  receive(message, R"({"supportFeatureOptions":2,"defaultEnableOnlyAuthUsersCanJoin":true,
      "availableDialinCountry":{"hash":"h","selectedCountries":["US"]}})");
  record.initSettingData();
  record.setAuthId("kept");
  record.setTemplateId("kept");
  record.setAlternateHosts(json(R"(["a@example.com"])"));
  const Value before = record.getSettingsData();
  record.initWithSiteMeetingInfo(Value::dictionary());
  EXPECT_EQ(record.getSettingsData(), before) << "an empty dictionary is no meeting";
  record.initWithSiteMeetingInfo(json(R"({"meetingKey":"1"})"));
  EXPECT_EQ(vStringUtils::toJSONString(changesBetween(before, record.getSettingsData())),
            vStringUtils::toJSONString(json(
                R"({"enableHostVideo":false,"enableParticipantsVideo":false,"audioOption":0,"enableJBH":false,
          "jbhPriorTime":0,"requiredMeetingPassword":false,"meetingPassword":null,
          "isSignedInUsersMeetingOn":false,"meetingAuth":null,"enableAutoRecordingMtgLevelFirst":false,
          "enableAutoRecordingType":0,"muteOnEntry":false,"alternateHosts":[],"availableDialinCountry":null,
          "enableMeetingToPublicEvent":false,"enableWaitingRoom":false,"supportWaitingRoom":false,
          "enableRegionCustomization":false,"enableUnmuteAll":false,"enableE2ee":false,
          "enableAllowDenyJoinMeetingRegion":false})")));
  EXPECT_EQ(record.thirdPartyAudio(), "dial") << "an empty text is none";
  EXPECT_EQ(record.authId(), "kept");
  EXPECT_EQ(record.templateId(), "kept");
  EXPECT_EQ(record.hash(), "");
}

TEST_F(SettingRecordTest, TrackingFieldsAreTheAccountsUntilTheOwnerHasNothingLeft) {
  account().setData(profileWith(encodedMessage("profile")));
  record.initSettingData();
  record.initWithSiteMeetingInfo(json(R"({"setting":{"trackingFields":[{"id":"t1","mtValue":"B"}]}})"));
  record.updateTrackingFieldMtValue("t2", std::nullopt);
  EXPECT_EQ(record.trackingFields().at(0)[vn_Setting_TrackingFields_MtValue], Value("B"));
  EXPECT_EQ(record.trackingFields().at(1), json(R"({"id":"t2","trackingField":"Team","trackingValue":""})"));
  record.cleanup();
  for (const OptionalText* text :
       {&record.meetingPassword(), &record.roomMeetingId(), &record.thirdPartyAudio(), &record.scheduleForEmail(),
        &record.hash(), &record.authId(), &record.templateName()}) {
    EXPECT_FALSE(text->has_value());
  }
  EXPECT_TRUE(record.trackingFields().isAbsent());
  EXPECT_TRUE(record.arrRegionCodes().isAbsent());
}

TEST_F(SettingRecordTest, TheUsersWishesAreOnTheDiskAtOnce) {
  record.setNotShowMeAgain(true);
  EXPECT_TRUE(record.notShowMeAgain());
  record.saveForceIncludeJoinurlInLocationToUserDefault(true);
  record.savePutInvitationAtTheTopToUserDefault(true);
  for (const auto key : {vn_Setting_NotShowMeAgain, vn_Setting_ForceIncludeJoinurlInLocation,
                         vn_Setting_PutTheInvitationAtTheTop}) {
    EXPECT_EQ(world.userDefaults.objectForKey(key), Value(true)) << key;
  }
  EXPECT_EQ(world.userDefaults.synchronized, 3);
  record.initSettingData();
  EXPECT_EQ(world.userDefaults.objectForKey(vn_Setting_NotShowMeAgain), Value(false)) << "each new meeting asks";
}

TEST_F(SettingRecordTest, AUserWhoNeverSeesThePanelGetsAConsistentMeeting) {
  proto::UserProfile message;
  message.set_id("u");
  message.set_useroption3(bit(47) | bit(57) | bit(54) | bit(53));
  receive(message, R"({"defaultEnableOnlyAuthUsersCanJoin":true,
      "meetingAuths":[{"authId":"1","defaultAuth":true}]})");
  saveProfile(json(R"({"notShowMeAgain":true,"enableAudioWatermark":true})"));
  record.initSettingData();
  EXPECT_EQ(record.authId(), "1");
  EXPECT_FALSE(record.enableAudioWatermark()) << "the account does not lock it on";
  EXPECT_TRUE(record.enableWaitingRoom()) << "a meeting has a passcode or a waiting room";
  EXPECT_TRUE(record.enableE2ee());
  EXPECT_TRUE(record.enableJBH());
  EXPECT_EQ(record.audioType(), 1);
  EXPECT_TRUE(record.notShowMeAgain());

  setClientVersion("5.2.99999");
  record.initSettingData();
  EXPECT_FALSE(record.enableE2ee());
}

TEST_F(SettingRecordTest, ADialInHashWithoutACountryIsNotTold) {
  record.setHash("h");
  EXPECT_FALSE(record.getSettingsData().contains(vn_Setting_AvailableDialinCountry));
  record.setSelectedCountries(json(R"(["US"])"));
  EXPECT_TRUE(record.getSettingsData().contains(vn_Setting_AvailableDialinCountry));
}

TEST_F(SettingRecordTest, PasscodesFollowTheAccountsRules) {
  proto::UserProfile message;
  message.set_useroption4(bit(22));
  receive(message);
  const std::string mixed = vnSettingData::getRandomPassWord();
  EXPECT_NE(mixed.find_first_not_of("0123456789"), std::string::npos) << mixed;
  receive(message, R"({"passwordRulesOption":65,"passwordMinLength":8})");
  std::int64_t failed = 0;
  EXPECT_FALSE(vnSettingData::ValidateMeetingPassword("12x", failed));
  EXPECT_EQ(failed, kPswRuleOnlyNumber | kPswRuleMinLength);
  EXPECT_TRUE(vnSettingData::ValidateMeetingPassword(vnSettingData::getRandomPassWord(), failed));
  receive(message, R"({"passwordRulesOption":64,"passwordMinLength":8,"passwordConsecutiveLength":3})");
  EXPECT_FALSE(vnSettingData::ValidateMeetingPassword("x1abc9z0", failed));
  EXPECT_EQ(failed, kPswRuleContainConsecutive);
}

TEST_F(SettingRecordTest, GroupsAMeetingNumber) {
  const std::pair<OptionalText, const char*> cases[] = {{std::nullopt, ""},
                                                        {"", ""},
                                                        {"12", "12"},
                                                        {"123", "123 "},
                                                        {"123456", "123 456 "},
                                                        {"1234567", "123 4567"},
                                                        {"1234567890", "123 456 7890"},
                                                        {"12345678901", "123 4567 8901"}};
  for (const auto& [number, grouped] : cases) EXPECT_EQ(vnSettingData::getFormatRoomMeetingId(number), grouped);
}

}  // namespace
}  // namespace vorn
