// The rules without a world: values go in and values come out.

#include "data/MeetingOptionRules.h"
#include "data/OptionPolicy.h"
#include "data/vnSettingKeys.h"
#include "tests/data/DataTest.h"

namespace vorn {
namespace {

namespace rules = meeting_options;

std::string noPasscode() { return "drawn"; }

TEST(OptionRulesTest, TheFirstOfTheAccountsAudioDefaultsCounts) {
  const struct {
    bool tsp, both, bothDisabled, telephony, voip, thirdParty, isDefault;
    int type;
  } cases[] = {
      {false, true, false, true, true, true, true, 2},     {false, true, true, false, true, false, true, 0},
      {false, false, false, true, true, true, true, 0},    {false, false, false, false, true, true, true, 1},
      {false, false, false, false, false, true, true, 3},  {false, false, false, false, false, false, true, 7},
      {false, false, false, false, false, true, false, 7}, {true, true, false, false, false, false, true, 13},
      {true, true, true, false, true, false, true, 10},    {true, false, false, true, true, false, true, 10},
      {true, false, false, false, true, false, true, 12},  {true, false, false, false, false, true, true, 10},
  };
  for (const auto& c : cases) {
    AccountFacts account{.enableThirdPartyAudio = c.thirdParty,
                         .isTspSite = c.tsp,
                         .alwaysUseBothAsDefaultAudio = c.both,
                         .alwaysUseTelephonyAsDefaultAudio = c.telephony,
                         .alwaysUseVOIPAsDefaultAudio = c.voip,
                         .use3rdPartyAsDefaultAudio = c.isDefault,
                         .isScheduleAudioBothDisabled = c.bothDisabled,
                         .thirdPartyAudioInfo = "dial"};
    MeetingOptions options{.audioType = 7, .enableThirdPartyAudio = !c.thirdParty};
    rules::initAudioTypeWithUserProfile(options, account);
    EXPECT_EQ(options.audioType, c.type);
    EXPECT_EQ(options.enableThirdPartyAudio, c.thirdParty);
    EXPECT_EQ(options.thirdPartyAudio.has_value(), c.thirdParty);
  }
}

TEST(OptionRulesTest, TheSavedAccountChoiceSurvivesAChangedAudioDefault) {
  const struct {
    bool tsp, both, bothDisabled, voip;
    const char* saved;
    int type;
  } cases[] = {
      {true, true, true, false, R"({"audioOption":14})", 11},
      {true, true, true, false, R"({"audioOption":13})", 10},
      {true, true, false, false, R"({"audioOption":11})", 14},
      {true, true, false, false, R"({"audioOption":12})", 13},
      {true, false, false, true, R"({"audioOption":14})", 12},
      {true, false, false, false, R"({"audioOption":14})", 11},
      {true, false, false, false, R"({"audioOption":2})", 10},
      {true, false, false, false, "{}", 7},
      {false, true, false, false, R"({"audioOption":14})", 7},
  };
  for (const auto& c : cases) {
    MeetingOptions options{.audioType = 7};
    const AccountFacts account{.isTspSite = c.tsp,
                               .alwaysUseBothAsDefaultAudio = c.both,
                               .alwaysUseVOIPAsDefaultAudio = c.voip,
                               .isScheduleAudioBothDisabled = c.bothDisabled};
    EXPECT_FALSE(rules::initWithSavedProfile(options, account, {}, json(c.saved)));
    EXPECT_EQ(options.audioType, c.type) << c.saved;
  }
}

TEST(OptionRulesTest, OfTheSavedChoicesTheAccountLeavesWhatItControls) {
  const char* saved = R"({"forceIncludeJoinurlInLocation":false,"putTheInvitationAtTheTop":true,"language":"de",
                          "enableAudioWatermark":true})";
  for (const bool controlled : {false, true}) {
    MeetingOptions options{.forceIncludeJoinurlInLocation = true};
    const AccountFacts account{.isLockAudioWatermark = controlled,
                               .isSupportForceIncludeJoinurlInLocation = controlled};
    rules::initWithSavedProfile(options, account, {}, json(saved));
    EXPECT_EQ(options.forceIncludeJoinurlInLocation, controlled);
    EXPECT_EQ(options.enableAudioWatermark, !controlled);
    EXPECT_TRUE(options.putTheInvitationAtTheTop);
    EXPECT_EQ(options.selectInvitationLanguage, "de");
    rules::initWithSavedProfile(options, account, {}, Value());
    EXPECT_EQ(options.enableAudioWatermark, !controlled) << "no file, no choice";
    rules::initWithSavedProfile(options, account, {}, Value::dictionary());
    EXPECT_FALSE(options.enableAudioWatermark) << "a file without it says off";
    EXPECT_TRUE(options.putTheInvitationAtTheTop);
    EXPECT_EQ(options.selectInvitationLanguage, "de");
  }
}

TEST(OptionRulesTest, WithoutThePanelTheAudioWatermarkIsTheAccountsAlone) {
  for (int given = 0; given < 8; ++given) {
    MeetingOptions options{.isSignedInUsersMeetingOn = (given & 1) != 0, .enableAudioWatermark = given != 7};
    const AccountFacts account{.isEnableAudioWatermark = (given & 2) != 0,
                               .isLockAudioWatermark = (given & 4) != 0};
    EXPECT_TRUE(rules::initWithSavedProfile(options, account, {}, json(R"({"notShowMeAgain":true})")));
    EXPECT_EQ(options.enableAudioWatermark, given == 7) << given;
  }
}

TEST(OptionRulesTest, WithoutThePanelTheFirstDefaultWayOfAuthenticationIsTaken) {
  AccountFacts account;
  account.getMeetingAuths = json(R"([{"authId":"1","defaultAuth":false},
      {"authId":"2","authName":"Staff","authType":3,"authDomain":"d","defaultAuth":true},
      {"authId":"3","defaultAuth":true}])");
  for (const bool isOn : {false, true}) {
    MeetingOptions options{.isSignedInUsersMeetingOn = isOn, .authId = "", .authName = "", .authDomain = ""};
    rules::resetMeetingAuthForNotShowAgain(options, account);
    EXPECT_EQ(options.authId, isOn ? "2" : "");
    EXPECT_EQ(options.authName, isOn ? "Staff" : "");
    EXPECT_EQ(options.authType, isOn ? 3 : 0);
    EXPECT_EQ(options.authDomain, isOn ? "d" : "");
  }
}

TEST(OptionRulesTest, WithoutThePanelAMeetingHasAPasscodeOrAWaitingRoom) {
  const struct {
    bool gate, newLogic, usePMI, lock, accountHasIt, passcode, waitingRoom, expected;
  } cases[] = {
      {true, true, false, false, false, false, false, true},
      {false, true, false, false, false, false, false, false},
      {true, false, false, false, false, false, false, false},
      {true, true, true, false, false, false, false, false},
      {true, true, false, true, false, false, false, false},
      {true, true, false, true, true, false, false, true},
      {true, true, false, false, false, true, false, false},
      {true, true, false, true, false, false, true, true},
      {true, true, false, false, false, true, true, true},
  };
  for (const auto& c : cases) {
    MeetingOptions options{
        .requiredMeetingPassword = c.passcode, .usePMI = c.usePMI, .enableWaitingRoom = c.waitingRoom};
    const AccountFacts account{.isEnableWaitingRoom = c.accountHasIt,
                               .isEnableWaitingRoomNewLogic = c.newLogic,
                               .isLockWaitingRoom = c.lock};
    rules::resetWaitingRoomPasscodeStateForNotShowAgain(options, account, {.isVornClientSupport520Tasks = c.gate});
    EXPECT_EQ(options.enableWaitingRoom, c.expected) << &c - cases;
  }
}

TEST(OptionRulesTest, WithoutThePanelEncryptionRulesOtherOptionsOrIsOff) {
  for (int given = 0; given < 16; ++given) {
    const AccountFacts account{.isSupportE2eeMeeting = (given & 1) != 0,
                               .canScheduleE2eeMeeting = (given & 2) != 0};
    MeetingOptions options{.audioType = 2, .emAutoRecordingType = 5, .enableE2ee = (given & 4) != 0};
    rules::resetAffectedStateByE2eeForNotShowAgain(options, account,
                                                   {.isVornClientSupport530Tasks = (given & 8) != 0});
    const bool encrypted = given == 15;
    EXPECT_EQ(options.enableE2ee, encrypted) << given;
    EXPECT_EQ(options.enableJBH, encrypted);
    EXPECT_EQ(options.audioType, encrypted ? 1 : 2);
    EXPECT_EQ(options.emAutoRecordingType, encrypted ? 0 : 5);
  }
}

TEST(OptionRulesTest, ThePasscodeOfAPersonalMeetingIsTheServices) {
  const struct {
    bool usePMI, required, forced, joinBefore;
    const char* inMeeting;
    bool isRequired;
    const char* passcode;
  } cases[] = {
      {true, true, false, false, "", true, ""},       {true, false, true, true, "", true, ""},
      {true, false, true, false, "", false, ""},      {true, false, false, true, "", false, ""},
      {false, true, true, true, "", false, ""},       {true, false, false, false, "pw", true, "pw"},
      {false, false, false, false, "pw", true, "pw"},
  };
  for (const auto& c : cases) {
    const AccountFacts account{.knowsAccount = true,
                               .isEnablePMIRequirePassword = c.required,
                               .isEnableForcePMIJBHWithPassword = c.forced};
    Value setting = Value::dictionary();
    setting.set(vn_Setting_IsPMI, c.usePMI);
    setting.set(vn_Setting_EnableJBH, c.joinBefore);
    setting.set(vn_Setting_MeetingPassword, c.inMeeting);
    const Value meeting = Value::dictionaryFromPairs({{vn_Setting, setting}});
    MeetingOptions options{.meetingPassword = "old"};
    rules::initWithSiteMeetingInfo(options, account, meeting);
    EXPECT_EQ(options.requiredMeetingPassword, c.isRequired) << &c - cases;
    EXPECT_EQ(options.meetingPassword, c.passcode);

    MeetingOptions edited{.requiredMeetingPassword = true, .meetingPassword = "old"};
    rules::resetRequiredPasswordForEditPMIMeeting(edited, Value::dictionary());
    EXPECT_EQ(edited.meetingPassword, "old") << "an empty dictionary is no meeting";
    rules::resetRequiredPasswordForEditPMIMeeting(edited, meeting);
    EXPECT_EQ(edited.requiredMeetingPassword, *c.inMeeting != '\0');
    EXPECT_EQ(edited.meetingPassword, c.inMeeting);
  }
}

TEST(OptionRulesTest, ANewPersonalMeetingThatNeedsNoPasscodeKeepsTheTextItHad) {
  MeetingOptions options{.requiredMeetingPassword = true, .meetingPassword = "old"};
  rules::initSubDataWithUserProfile(options, {}, true, noPasscode);
  EXPECT_TRUE(options.requiredMeetingPassword) << "without a profile nothing is touched";
  rules::initWithUserProfileDefault(options, {.isDefaultScheduleUsePMI = true}, noPasscode);
  EXPECT_FALSE(options.usePMI);
  rules::initSubDataWithUserProfile(options, {.knowsAccount = true}, true, noPasscode);
  EXPECT_FALSE(options.requiredMeetingPassword);
  EXPECT_EQ(options.meetingPassword, "old");
  rules::initSubDataWithUserProfile(options, {.knowsAccount = true, .isEnableRequirePassword = true}, false,
                                    noPasscode);
  EXPECT_EQ(options.meetingPassword, "drawn");
}

TEST(OptionRulesTest, DefaultsThatOnlySwitchOnLeaveWhatIsOn) {
  MeetingOptions options{.hostVideoOn = true,
                         .paticipantVideoOn = true,
                         .enableJBH = true,
                         .usePMI = true,
                         .muteUponEntry = true,
                         .authId = "old",
                         .enableWaitingRoom = true,
                         .templateId = "old"};
  rules::initSubDataWithUserProfile(options, {.knowsAccount = true}, false, noPasscode);
  EXPECT_TRUE(options.hostVideoOn && options.paticipantVideoOn && options.enableJBH && options.muteUponEntry);
  EXPECT_FALSE(options.enableWaitingRoom);
  EXPECT_EQ(options.authId, "");
  EXPECT_EQ(options.templateId, "");
  rules::resetFields(options);
  EXPECT_TRUE(options.muteUponEntry) << "one of the two that the reset leaves";
  EXPECT_FALSE(options.hostVideoOn || options.enableJBH || options.usePMI);
}

TEST(OptionRulesTest, OfSeveralValuesForATrackingFieldTheLastCounts) {
  const struct {
    const char *items, *field;
  } cases[] = {
      {R"([{"id":"a","mtValue":"1"},{"id":"a","mtValue":"2"}])",
       R"({"id":"a","trackingField":"A","trackingValue":"v","mtValue":"2","required":true})"},
      {R"([{"id":"a"},{"id":"a","mtValue":"2"}])",
       R"({"id":"a","trackingField":"A","trackingValue":"v","mtValue":"2"})"},
      {R"([{"id":"a"}])", R"({"id":"a","trackingField":"A","trackingValue":"v"})"},
      {R"([{"id":"b","mtValue":"2"},{"mtValue":"3"},7])",
       R"({"id":"a","trackingField":"A","trackingValue":"v","mtValue":"0","required":true})"},
  };
  for (const auto& c : cases) {
    MeetingOptions options;
    options.trackingFields =
        json(R"([{"id":"a","trackingField":"A","trackingValue":"v","mtValue":"0","required":true}])");
    rules::updateTrackingFields(options, json(c.items));
    EXPECT_EQ(options.trackingFields.at(0), json(c.field)) << c.items;
    EXPECT_EQ(options.trackingFields.count(), 1u);
  }
}

TEST(OptionPolicyTest, OneOfSeveralOffersIsEnoughAndNoneIsNeededWithoutAny) {
  const OptionPolicy& recording = policyOf(vn_Setting_EnableAutoRecordingType);
  EXPECT_FALSE(recording.isOffered({}));
  EXPECT_TRUE(recording.isOffered({.enableLocalRecording = true}));
  EXPECT_TRUE(recording.isOffered({.enableCloudRecording = true}));
  EXPECT_TRUE(policyOf(vn_Setting_EnableHostVideo).isOffered({}));
  EXPECT_FALSE(policyOf(vn_Setting_MeetingTemplate).isLocked({.isHostVideoLocked = true})) << "nothing locks it";
  const OptionPolicy& fields = policyOf(vn_Setting_TrackingFields);
  EXPECT_FALSE(fields.isGiven({.trackingFields = Value::array()}));
  EXPECT_TRUE(fields.isGiven({.trackingFields = Value::Array{"a"}})) << "a list with something in it speaks";
  EXPECT_TRUE(policyOf(vn_Setting_RegionType).isGiven({.getRegionType = 2})) << "a number other than 0 speaks";
  EXPECT_FALSE(recording.gate.isOpenIn({.isVornClientSupportPublicEvent = true}));
}

}  // namespace
}  // namespace vorn
