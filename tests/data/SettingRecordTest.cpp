#include <set>

#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "data/vnSettingData.h"
#include "data/vnSettingKeys.h"
#include "tests/data/DataTest.h"
#include "util/vStringUtils.h"

namespace vorn {
namespace {

Value json(const char* text) { return vStringUtils::toArrayOrNSDictionary(std::string(text)); }

constexpr std::int64_t bit(int number) { return static_cast<std::int64_t>(std::uint64_t{1} << number); }

class SettingRecordTest : public DataTest {
 protected:
  static void saveProfile(const Value& saved) {
    JsonTextFile(vnCommon::getVnUserProfilePath(account().getUID())).write(saved);
  }
  static void setPasswordRules(std::int64_t rules, std::int64_t least, std::int64_t run, bool mixed = false) {
    proto::UserProfile message;
    message.set_useroption4(mixed ? bit(22) : 0);
    Value profile = profileWith(message.SerializeAsString());
    profile.set(vn_Profile_PasswordRulesOption, rules);
    profile.set(vn_Profile_PasswordMinLength, least);
    profile.set(vn_Profile_PasswordConsecutiveLength, run);
    account().setData(profile);
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

TEST_F(SettingRecordTest, DerivesTheAudioTypeOfANewMeeting) {
  struct Case {
    bool tsp, both, bothDisabled, telephony, voip, thirdParty;
    int type;
  };
  const Case cases[] = {
      {false, true, false, true, true, true, 2},    {false, true, true, false, true, false, 0},
      {false, false, false, true, true, true, 0},   {false, false, false, false, true, true, 1},
      {false, false, false, false, false, true, 3}, {false, false, false, false, false, false, 2},
      {true, true, false, false, false, false, 13}, {true, true, true, false, true, false, 10},
      {true, false, false, true, true, false, 10},  {true, false, false, false, true, false, 12},
      {true, false, false, false, false, true, 10},
  };
  for (const Case& c : cases) {
    proto::UserProfile profile;
    profile.set_useroption((c.both ? bit(35) : 0) | (c.telephony ? bit(22) : 0) |
                           (c.thirdParty ? bit(25) | bit(34) : 0));
    profile.set_useroption2((c.voip ? bit(54) : 0) | (!c.tsp && c.bothDisabled ? bit(31) : 0));
    if (c.tsp) {
      profile.add_tspaccounts();
      profile.mutable_tsp()->set_supportshybridaudio(!c.bothDisabled);
    }
    receive(profile);
    record.initSettingData();
    EXPECT_EQ(record.audioType(), c.type) << profile.useroption() << " " << profile.useroption2() << " " << c.tsp;
  }
}

TEST_F(SettingRecordTest, DerivesTheRecordingTypeOfANewMeeting) {
  struct Case {
    bool local, cloud, automatic, cloudFirst;
    int type;
    bool offered;
  };
  const Case cases[] = {{false, false, true, true, 5, false}, {true, true, false, true, 0, true},
                        {true, true, true, true, 2, true},    {true, true, true, false, 1, true},
                        {true, false, true, true, 3, true},   {false, true, true, false, 4, true}};
  for (const Case& c : cases) {
    proto::UserProfile profile;
    profile.set_useroption((c.local ? 0 : bit(51)) | (c.cloud ? bit(28) : 0) | (c.automatic ? bit(5) : 0) |
                           (c.cloudFirst ? bit(30) : 0));
    receive(profile);
    record.initSettingData();
    EXPECT_EQ(record.emAutoRecordingType(), c.type);
    EXPECT_EQ(record.enableAutoRecordingMtgLevelFirst(), c.offered);
  }
}

TEST_F(SettingRecordTest, TheSavedAccountChoiceSurvivesAChangedAudioDefault) {
  struct Case {
    bool both, hybrid, voip;
    int saved, type;
  };
  for (const Case& c :
       {Case{true, false, false, 14, 11}, Case{true, false, false, 13, 10}, Case{true, true, false, 11, 14},
        Case{true, true, false, 12, 13}, Case{false, true, true, 14, 12}, Case{false, true, false, 14, 11},
        Case{false, true, false, 2, 10}}) {
    proto::UserProfile profile;
    profile.set_id("u");
    profile.set_useroption(c.both ? bit(35) : 0);
    profile.set_useroption2(c.voip ? bit(54) : 0);
    profile.add_tspaccounts();
    profile.mutable_tsp()->set_supportshybridaudio(c.hybrid);
    receive(profile);
    Value saved = Value::dictionary();
    saved.set(vn_Setting_AudioOption, c.saved);
    saveProfile(saved);
    record.initSettingData();
    EXPECT_EQ(record.audioType(), c.type) << c.saved;
  }
}

TEST_F(SettingRecordTest, TheAccountWinsOverTheSavedChoiceOnlyWhereItControlsTheLocation) {
  for (const bool controlled : {false, true}) {
    proto::UserProfile profile;
    profile.set_id("u");
    profile.set_useroption3(controlled ? bit(60) : 0);
    receive(profile);
    saveProfile(
        json(R"({"forceIncludeJoinurlInLocation":false,"putTheInvitationAtTheTop":true,"language":"de"})"));
    record.initSettingData();
    EXPECT_EQ(record.forceIncludeJoinurlInLocation(), controlled);
    EXPECT_TRUE(record.putTheInvitationAtTheTop());
    EXPECT_EQ(record.selectInvitationLanguage(), "de");
  }
}

TEST_F(SettingRecordTest, AUserWhoNeverSeesThePanelGetsAConsistentMeeting) {
  proto::UserProfile message;
  message.set_id("u");
  message.set_useroption3(bit(47) | bit(57) | bit(54) | bit(53));
  Value profile = profileWith(message.SerializeAsString());
  profile.set(vn_Profile_DefaultEnableOnlyAuthUsersCanJoin, true);
  profile.set(vn_Profile_MeetingAuths, json(R"([{"authId":"1","defaultAuth":false},
      {"authId":"2","authName":"Staff","authType":3,"authDomain":"d","defaultAuth":true},
      {"authId":"3","defaultAuth":true}])"));
  account().setData(profile);
  saveProfile(json(R"({"notShowMeAgain":true,"enableAudioWatermark":true})"));
  record.initSettingData();
  EXPECT_EQ(record.authId(), "2");
  EXPECT_EQ(record.authType(), 3);
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

TEST_F(SettingRecordTest, TheOverlayLeavesWhatIsLockedAtTheDefault) {
  const Value info = json(R"({"meetingKey":"1","setting":{"enableHostVideo":true,"enableParticipantsVideo":true,
      "audioOption":1,"enableJBH":true,"jbhPriorTime":10,"usePMI":true,"meetingPassword":"pw","muteOnEntry":true,
      "enableWaitingRoom":true,"supportWaitingRoom":false,"enableE2ee":true,"enableAudioWatermark":true,
      "enableAutoRecordingType":2,"enableMeetingToPublicEvent":true,"regionType":1,"regionCodes":["US"],
      "enableAllowDenyJoinMeetingRegion":true,"scheduleFor":"","alternateHosts":["a@example.com"]}})");
  for (const bool locked : {false, true}) {
    proto::UserProfile profile;
    profile.set_useroption4(locked ? 0x4003ffff : 0);
    receive(profile);
    vnSettingData overlaid;
    overlaid.initSettingData();
    overlaid.initWithSiteMeetingInfo(info);
    EXPECT_EQ(overlaid.hostVideoOn(), !locked);
    EXPECT_EQ(overlaid.paticipantVideoOn(), !locked);
    EXPECT_EQ(overlaid.audioType(), locked ? 2 : 1);
    EXPECT_EQ(overlaid.enableJBH(), !locked);
    EXPECT_EQ(overlaid.jbhPriorTime(), locked ? 5 : 10);
    EXPECT_EQ(overlaid.usePMI(), !locked);
    EXPECT_EQ(overlaid.muteUponEntry(), !locked);
    EXPECT_EQ(overlaid.enableWaitingRoom(), !locked);
    EXPECT_EQ(overlaid.supportWaitingRoom(), locked);
    EXPECT_EQ(overlaid.enableAudioWatermark(), !locked);
    EXPECT_EQ(overlaid.emAutoRecordingType(), locked ? 0 : 2);
    EXPECT_EQ(overlaid.enablePublicEvent(), !locked);
    EXPECT_EQ(overlaid.arrRegionCodes().count(), locked ? 0u : 1u);
    EXPECT_EQ(overlaid.meetingPassword(), "pw") << "the passcode is the meeting's in any case";
    EXPECT_EQ(overlaid.arrAlternateHosts().count(), 1u);
  }
}

TEST_F(SettingRecordTest, APersonalMeetingMayNeedAPasscodeThatOnlyTheServiceKnows) {
  Value profile = Value::dictionary();
  profile.set(vn_Profile_IsEnablePMIRequirePassword, true);
  account().setData(profile);
  record.initSettingData();
  record.initWithSiteMeetingInfo(json(R"({"setting":{"usePMI":true,"meetingPassword":""}})"));
  EXPECT_TRUE(record.requiredMeetingPassword());
  EXPECT_EQ(record.meetingPassword(), "");
  record.resetRequiredPasswordForEditPMIMeeting(json(R"({"setting":{}})"));
  EXPECT_FALSE(record.requiredMeetingPassword());
}

TEST_F(SettingRecordTest, TrackingFieldsStayTheAccountsWithTheMeetingsValues) {
  account().setData(profileWith(encodedMessage("profile")));
  record.initSettingData();
  record.initWithSiteMeetingInfo(
      json(R"({"setting":{"trackingFields":[{"id":"t1","mtValue":"B"},{"id":"unknown","mtValue":"C"}]}})"));
  EXPECT_EQ(record.trackingFields().count(), 2u);
  EXPECT_EQ(record.trackingFields().at(0)[vn_Setting_TrackingFields_MtValue], Value("B"));
  record.updateTrackingFieldMtValue("t2", std::nullopt);
  EXPECT_EQ(record.trackingFields().at(1), json(R"({"id":"t2","trackingField":"Team","trackingValue":""})"));
}

TEST_F(SettingRecordTest, ADialInHashWithoutACountryIsNotTold) {
  record.setHash("h");
  EXPECT_FALSE(record.getSettingsData().contains(vn_Setting_AvailableDialinCountry));
  record.setSelectedCountries(json(R"(["US"])"));
  EXPECT_TRUE(record.getSettingsData().contains(vn_Setting_AvailableDialinCountry));
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

TEST_F(SettingRecordTest, ValidatesAPasscodeAgainstTheAccountsRules) {
  struct Case {
    std::int64_t rules, least, run;
    const char* password;
    std::int64_t failed;
  };
  const Case cases[] = {
      {2, 8, 0, "abc", 2},
      {0, 6, 0, "12345", 2},
      {0, 0, 0, "", 0},
      {1, 0, 0, "", 1},
      {1, 3, 0, "", 3},
      {1, 2, 0, "12a", 1},
      {1, 4, 0, "12a", 3},
      {1, 3, 0, "129", 0},
      {4, 0, 0, "12!", 4},
      {8, 0, 0, "ab!", 8},
      {16, 0, 0, "ab1", 16},
      {16, 0, 0, "a`", 0},
      {32, 0, 0, "abc", 32},
      {32, 0, 0, "aB", 0},
      {64, 0, 3, "abc", 64},
      {64, 0, 3, "x1cba", 64},
      {64, 0, 3, "qwe", 64},
      {64, 0, 3, "ewq", 0},
      {64, 0, 3, "AAA", 64},
      {64, 0, 4, "abc", 0},
      {64, 0, 3, "a890", 64},
      {64, 0, 3, "aab", 0},
      {124, 0, 3, "aaa", 8 | 16 | 32 | 64},
      {0, 2, 0, "\xF0\x9F\x98\x80", 0},
  };
  for (const Case& c : cases) {
    setPasswordRules(c.rules, c.least, c.run);
    std::int64_t failed = -1;
    EXPECT_EQ(vnSettingData::ValidateMeetingPassword(c.password, failed), c.failed == 0) << c.password;
    EXPECT_EQ(failed, c.failed) << c.password << " under " << c.rules;
  }
}

TEST_F(SettingRecordTest, GeneratesPasscodesThatPassAndStayInTheirRanges) {
  struct Case {
    std::int64_t rules, least;
    bool mixed;
    std::size_t length;
  };
  const std::string digits = "012345678", letters = "ABCDEFGHJKLMNPQRSTUVWXYZabcdefghijkmnpqrstuvwxyz";
  for (const Case& c :
       {Case{0, 12, false, 6}, Case{0, 0, true, 6}, Case{1, 12, false, 12}, Case{4, 4, false, 6},
        Case{4, 9, false, 9}, Case{60, 8, false, 8}, Case{8, 7, false, 7}, Case{48, 10, false, 10}}) {
    setPasswordRules(c.rules, c.least, 3, c.mixed);
    std::set<std::string> distinct;
    std::set<char> characters;
    for (int i = 0; i < 3000; ++i) {
      const std::string password = vnSettingData::getRandomPassWord();
      ASSERT_EQ(password.size(), c.length);
      std::int64_t failed = 0;
      const bool passes = vnSettingData::ValidateMeetingPassword(password, failed);
      ASSERT_TRUE(passes || c.rules == 0) << password << " fails " << failed;
      distinct.insert(password);
      characters.insert(password.begin(), password.end());
    }
    EXPECT_GT(distinct.size(), 2900u) << c.rules;
    for (const char confusing : {'I', 'O', 'l', 'o'}) EXPECT_EQ(characters.count(confusing), 0u);
    if (c.rules == 1 || (c.rules == 0 && !c.mixed)) {
      EXPECT_EQ(characters, std::set<char>(digits.begin(), digits.end())) << "the digit 9 is never drawn";
    }
  }
}

TEST_F(SettingRecordTest, APasscodesBodyUsesTheHeadOfItsSet) {
  setPasswordRules(4, 6, 0);
  for (int i = 0; i < 2000; ++i) {
    const std::string password = vnSettingData::GetPasswordWithRules(6);
    std::set<char> outsideHead;
    for (const char c : password) {
      if (std::string_view("ABCDE").find(c) == std::string_view::npos) outsideHead.insert(c);
    }
    ASSERT_LE(outsideHead.size(), 2u) << password << ": one digit and one letter beside the head of the alphabet";
  }
}

TEST_F(SettingRecordTest, AnAbsurdLeastLengthDoesNotHoldTheCaller) {
  setPasswordRules(1, std::int64_t{1} << 60, 0);
  EXPECT_LE(vnSettingData::getRandomPassWord().size(), 1024u);
}

}  // namespace
}  // namespace vorn
