#include "channel/store/vnCommon.h"
#include "data/vnGetScheduleForListHelper.h"
#include "data/vnProfileKeys.h"
#include "tests/data/DataTest.h"

namespace vorn {
namespace {

using ProfileReaderTest = DataTest;

TEST_F(ProfileReaderTest, AnswersFromAMessageThatAnotherEncoderWrote) {
  account().setData(profileWith(encodedMessage("profile")));
  EXPECT_EQ(account().userEmail(), "ada@example.com");
  EXPECT_EQ(account().roomMeetingID(), "1234567890");
  EXPECT_EQ(account().thirdPartyAudioInfo(), "Dial 555");
  EXPECT_EQ(account().restrictJoinDomains(), "example.com;example.org");
  EXPECT_TRUE(account().canUpgrade() && account().isPaidUser() && account().tspIsSupportHybirdAudio());
  EXPECT_EQ(account().trackingFields(),
            json(R"([{"id":"t1","trackingField":"Cost centre","trackingValue":"A;B","mtValue":"A","required":true},
                     {"id":"t2","trackingField":"Team","trackingValue":"","mtValue":"","required":false}])"));
  EXPECT_EQ(account().tspAccounts().at(0),
            json(R"({"tspAccountIndex":"1","hostPasscode":"11","participantPasscode":"12","passcodeType":3,
                     "tspNumbers":["+1 1","+1 2"]})"));
  EXPECT_TRUE(account().moreThanOneTSPAccounts());
  EXPECT_EQ(vnCommon::getUID(), "u-1001");
}

TEST_F(ProfileReaderTest, AnswersFromTheDictionaryWhenTheReplyHasNoMessage) {
  account().setData(json(R"({"userId":"u-7","roomMeetingId":"42","enablePSTN":true,"userOption":68719476736})"));
  EXPECT_TRUE(account().hasUserProfile());
  EXPECT_EQ(account().getUID(), "u-7");
  EXPECT_EQ(account().roomMeetingID(), "42");
  EXPECT_TRUE(account().enablePSTN());
  EXPECT_TRUE(account().alwaysTurnOnHostVideoByDefault());
  EXPECT_FALSE(account().alwaysTurnOnAttendeeVideoByDefault());
  EXPECT_EQ(account().userName(), "");
  EXPECT_TRUE(account().trackingFields().isAbsent());
  EXPECT_TRUE(account().tspAccounts().isAbsent());
}

TEST_F(ProfileReaderTest, FlagsAChangedAccountOneReplyLateWithMessages) {
  proto::UserProfile first, second;
  first.set_id("a");
  second.set_id("b");
  receive(first);
  receive(second);
  EXPECT_FALSE(account().isAccountChanged());
  receive(second);
  EXPECT_TRUE(account().isAccountChanged());
}

TEST_F(ProfileReaderTest, ComparesTheNextAccountWithTheOneBeforeClearing) {
  account().setData(json(R"({"userId":"a"})"));
  account().setData(Value());
  EXPECT_EQ(vnCommon::getUID(), "a") << "no reply";
  account().clearUserProfile();
  EXPECT_FALSE(account().hasUserProfile() || account().isAccountChanged());
  EXPECT_EQ(vnCommon::getUID(), std::nullopt);
  account().setData(json(R"({"userId":"b"})"));
  EXPECT_TRUE(account().isAccountChanged());
  account().setIsAccountChanged(false);
  account().cleanup();
  EXPECT_EQ(account().lastKnownUserId(), std::nullopt);
  account().setData(json(R"({"userId":"c"})"));
  EXPECT_FALSE(account().isAccountChanged()) << "nobody is known any more";
}

TEST_F(ProfileReaderTest, KeepsTheLastGoodMessageWhenTheNextCannotBeDecoded) {
  account().setData(profileWith(encodedMessage("profile")));
  for (const char* bad : {"not base64 !!", "////", "", "===="}) {
    account().setData(Value::dictionaryFromPairs({{vn_Profile_Proto, bad}}));
    EXPECT_EQ(account().userName(), "Ada Example") << bad;
  }
}

TEST_F(ProfileReaderTest, TellsAnAbsentFieldFromAZero) {
  struct Case {
    std::optional<int> telephonyOff;
    std::optional<std::int64_t> option, option2;
    bool thirdParty, pstn, local, cloud;
  };
  const std::int64_t telephony = 0x2000000, cloud = 0x10000000, noLocal = 0x8000000000000,
                     noRecording = 0x8000000000;
  const Case cases[] = {
      {{}, {}, {}, false, true, true, false},
      {0, telephony, 0, true, true, true, false},
      {1, telephony, {}, false, false, true, false},
      {{}, cloud | noLocal, {}, false, true, false, true},
      {{}, cloud, noRecording, false, true, false, false},
  };
  for (const Case& c : cases) {
    proto::UserProfile profile;
    if (c.telephonyOff) profile.set_telephonyoff(*c.telephonyOff);
    if (c.option) profile.set_useroption(*c.option);
    if (c.option2) profile.set_useroption2(*c.option2);
    receive(profile);
    EXPECT_EQ(account().enableThirdPartyAudio(), c.thirdParty);
    EXPECT_EQ(account().enablePSTN(), c.pstn);
    EXPECT_EQ(account().enableLocalRecording(), c.local);
    EXPECT_EQ(account().enableCloudRecording(), c.cloud);
    EXPECT_FALSE(account().isPaidUser()) << "an unknown plan is no paid plan";
  }
}

TEST_F(ProfileReaderTest, KnowsTheAccountOfAForgottenProfileUntilAnotherOneComes) {
  const auto fromUser = [](const char* id, std::optional<int> type) {
    proto::UserProfile message;
    message.set_id(id);
    if (type) message.set_usertype(*type);
    receive(message, R"({"bosses":[{"email":"ann@x.org"}]})");
  };
  fromUser("a", 1);
  EXPECT_TRUE(account().isEnableScheduleFor());
  account().clearUserProfile();
  EXPECT_FALSE(account().hasUserProfile()) << "who needs one fetches it";
  EXPECT_TRUE(account().isEnableScheduleFor() && account().knowsAccount());
  EXPECT_EQ(account().getUID(), "a");
  EXPECT_EQ(account().userType(), 1);
  EXPECT_EQ(account().lastKnownUserId(), "a");
  EXPECT_EQ(account().bossesInfo().count(), 1u);
  account().setData(Value::dictionary());
  EXPECT_EQ(account().userType(), 1) << "a reply that nobody can read tells nothing";
  EXPECT_EQ(account().bossesInfo().count(), 1u);
  EXPECT_FALSE(account().hasUserProfile());
  fromUser("a", std::nullopt);
  EXPECT_EQ(account().userType(), 1);
  auto& people = vnGetScheduleForListHelper::sharedInstance();
  people.setData(json(R"({"bosses":[{"email":"ann@x.org"}]})"));
  fromUser("a", 1);
  EXPECT_TRUE(people.hasScheduleForList());
  fromUser("b", std::nullopt);
  EXPECT_FALSE(account().userType()) << "another account";
  EXPECT_FALSE(people.hasScheduleForList());
  fromUser("b", 0);
  EXPECT_TRUE(account().isNoMeetingLicenseUser());
  account().setData(json(R"({"userId":"c"})"));
  EXPECT_FALSE(account().isNoMeetingLicenseUser());
  EXPECT_TRUE(account().bossesInfo().isAbsent());
}

TEST_F(ProfileReaderTest, HidesWhatTheClientCannotDo) {
  proto::UserProfile profile;
  profile.set_useroption(0x10000000);
  profile.set_useroption3(0x8 | 0x80);
  receive(profile);
  setClientVersion("3.9.0");
  EXPECT_FALSE(account().enableLocalRecording());
  EXPECT_FALSE(account().enableCloudRecording());
  EXPECT_FALSE(account().isEnableAddMeetingToPublicCalendarEvent());
  EXPECT_FALSE(account().isEnableAudioWatermark());
}

TEST_F(ProfileReaderTest, LetsTheDictionaryOverrideABit) {
  proto::UserProfile message;
  message.set_useroption3(0x10000 | 0x8000000000);
  receive(message, R"({"isEnableRequirePassword":false,"isDisablePMI":false,"isEnablePMIRequirePassword":true})");
  EXPECT_FALSE(account().isEnableRequirePassword());
  EXPECT_FALSE(account().isDisablePMI());
  EXPECT_TRUE(account().isDisablePMIForOther());
  EXPECT_TRUE(account().isEnablePMIRequirePassword());
  receive(message, R"({"isEnableRequirePassword":null,"isDisablePMI":null,"jbhPriorTime":null})");
  EXPECT_TRUE(account().isEnableRequirePassword());
  EXPECT_TRUE(account().isDisablePMI());
  EXPECT_EQ(account().getDefaultJbhPriorTime(), 5);
}

TEST_F(ProfileReaderTest, GivesTheListedDefaultsWithoutAProfile) {
  EXPECT_EQ(account().getDefaultJbhPriorTime(), 5);
  account().setData(json(R"({"jbhPriorTime":0})"));
  EXPECT_EQ(account().getDefaultJbhPriorTime(), 0);
  EXPECT_EQ(account().getVornDomain(), "https://vorn.us");
  EXPECT_EQ(account().getMeetingTrashCanLink(), "");
  EXPECT_EQ(account().getScheduleForIndexWithEmail("x@example.com"), -1);
  EXPECT_FALSE(account().isShowUpgradeLink());
  account().setData(json(R"({"upgradeInfo":{"isShowUpgradeLink":1}})"));
  EXPECT_TRUE(account().isShowUpgradeLink());
  proto::UserProfile message;
  message.add_tspaccounts();
  receive(message);
  EXPECT_TRUE(account().isTspSite() && !account().moreThanOneTSPAccounts());
}

TEST_F(ProfileReaderTest, TakesASingleEmptySelectedCountryAsNoneAndKeepsTwo) {
  for (const auto& [countries, selected] :
       {std::pair{R"("selectedCountries":[""],"allCountries":["US","","DE"])", 0u},
        std::pair{R"("selectedCountries":["US",""],"allCountries":["US","DE"])", 2u}}) {
    account().setData(json((R"({"availableDialinCountry":{"hash":"h",)" + std::string(countries) + "}}").c_str()));
    const auto content = account().getAvailableDialinCountry();
    ASSERT_TRUE(content);
    EXPECT_EQ(content->selectedCountries.count(), selected);
    ASSERT_EQ(content->allCountries.size(), 2u);
    EXPECT_EQ(content->allCountries[0].countryName, "United States");
    EXPECT_EQ(content->allCountries[0].selected, selected == 2);
    EXPECT_FALSE(content->allCountries[1].selected);
  }
}

TEST_F(ProfileReaderTest, FindsPeopleWithoutRegardToCase) {
  account().setData(json(R"({"bosses":[{"email":"One@Example.com","hostId":"H1","pmi":""},
                                       {"email":"two@example.com","hostId":"h2","pmi":"0123","disablePmi":true},{}]})"));
  for (const OptionalText& nobody : {OptionalText(), OptionalText("")}) {
    EXPECT_EQ(account().getScheduleForIndexWithEmail(nobody), -1) << "not even one who has no address";
  }
  EXPECT_EQ(account().getScheduleForIndexWithEmail("ONE@example.COM"), 0);
  EXPECT_EQ(account().getScheduleForIndexWithHostID("H2"), 1);
  EXPECT_EQ(account().getScheduleForEmailWithIndex(1), "two@example.com");
  for (const int outside : {-1, 3}) EXPECT_EQ(account().getScheduleForEmailWithIndex(outside), "");
  EXPECT_FALSE(account().supportPMIForOnbehalf("one@example.com"));
  EXPECT_EQ(account().pmiMeetingIDWithScheduleForEmail("TWO@example.com"), "0123");
  EXPECT_TRUE(account().isDisablePMIWithScheduleForEmail("two@example.com"));
  EXPECT_TRUE(account().isBossesPMIMeetingID("123"));
  EXPECT_FALSE(account().isBossesPMIMeetingID("124"));
}

TEST_F(ProfileReaderTest, AsksThePersonWhenAnEmailIsGiven) {
  proto::UserProfile message;
  message.set_useroption3(std::int64_t{1} << 62);
  receive(message, R"({"meetingTemplates":["own"]})");
  EXPECT_FALSE(account().isEnableAllowDenyJoinMeetingRegion("two@example.com")) << "no list has come yet";
  vnGetScheduleForListHelper::sharedInstance().setData(
      json(R"({"bosses":[{"email":"two@example.com","userOption4":1073741824,"meetingTemplates":["theirs"],
               "joinMeetingRegionSetting":{"RegionPolicy":{"regionType":1,"regionCodes":["CN"]}}}]})"));
  EXPECT_TRUE(account().isEnableAllowDenyJoinMeetingRegion(""));
  EXPECT_FALSE(account().isEnableAllowDenyJoinMeetingRegion("Two@example.com"));
  EXPECT_TRUE(account().isLockAllowDenyJoinMeetingRegion("Two@example.com"));
  EXPECT_EQ(account().getMeetingTemplates(std::nullopt), json(R"(["own"])"));
  EXPECT_EQ(account().getMeetingTemplates("two@example.com"), json(R"(["theirs"])"));
  EXPECT_EQ(account().getRegionType("two@example.com"), 1);
  EXPECT_EQ(account().getRegionCodes("two@example.com"), json(R"(["CN"])"));
  EXPECT_EQ(account().getRegionType(""), 0);
}

TEST_F(ProfileReaderTest, KeepsAPersonalMeetingWithThePersonWhoHasItsNumber) {
  auto& list = vnGetScheduleForListHelper::sharedInstance();
  list.setData(json(R"({"bosses":[{"email":"a@example.com","pmi":""},{"email":"b@example.com","pmi":"555"}]})"));
  const Value before = list.bossesInfo();
  list.setData(Value());
  for (const char* nobodys : {R"({"meetingKey":"777"})", R"({"meetingKey":""})"}) {
    list.setPMIInfoWithScheduleFor(json(nobodys));
  }
  list.refreshPMIInfoWithScheduleFor(json(R"({"setting":{"usePMI":true,"scheduleFor":"a@example.com"}})"));
  EXPECT_EQ(list.bossesInfo(), before);
  EXPECT_TRUE(list.pmiInfoWithScheduleFor("a@example.com").isAbsent());
  const Value info = json(R"({"meetingKey":"555","setting":{"usePMI":true,"scheduleFor":"B@example.com"}})");
  list.setPMIInfoWithScheduleFor(info);
  EXPECT_EQ(list.pmiInfoWithScheduleFor("B@EXAMPLE.com"), info);
  const Value renewed = json(R"({"meetingKey":"1","setting":{"usePMI":true,"scheduleFor":"b@example.com"}})");
  list.refreshPMIInfoWithScheduleFor(renewed);
  EXPECT_EQ(list.pmiInfoWithScheduleFor("b@example.com"), renewed);
  list.refreshPMIInfoWithScheduleFor(json(R"({"setting":{"usePMI":false,"scheduleFor":"b@example.com"}})"));
  EXPECT_EQ(list.pmiInfoWithScheduleFor("b@example.com"), renewed);
}

}  // namespace
}  // namespace vorn
