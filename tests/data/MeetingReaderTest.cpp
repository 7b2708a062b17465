#include "data/vnGetMeetingHelper.h"
#include "data/vnGetPACHelper.h"
#include "data/vnProtoBufConvert.h"
#include "data/vnSettingKeys.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "tests/data/DataTest.h"

namespace vorn {
namespace {

class MeetingReaderTest : public DataTest {
 protected:
  void feed(const char* meeting, const std::string& message) {
    reader.setMeetingData(json(meeting), false);
    reader.setPBMeetingData(base64(message));
  }

  static void setRecording(bool local, bool cloud) {
    proto::UserProfile profile;
    profile.set_useroption((local ? 0 : 0x8000000000000) | (cloud ? 0x10000000 : 0));
    receive(profile);
  }

  vnGetMeetingHelper reader;
};

TEST_F(MeetingReaderTest, TurnsBothLayersIntoTheMeetingInformation) {
  account().setData(profileWith(encodedMessage("profile")));
  feed(R"({"subject":"S","duration":"30","recurrence":false,"startTime":1700000000,"audioOption":2,
           "enableHostVideo":true,"enableParticipantsVideo":false,"enableJBH":true,"usePMI":false,
           "meetingPassword":"123","meetingKey":"99900011122","invitationEmail":"Join","joinUrl":"https://j"})",
       encodedMessage("meeting"));
  EXPECT_EQ(vStringUtils::toJSONString(reader.getMeetingInfo()), vStringUtils::toJSONString(json(R"({
    "apptInfo":{"subject":"S","duration":"30","recurrence":false,"startTime":{"UTCTime":"2023-11-14 22:13:20"},
                "olApptUUID":"UUID-1"},
    "setting":{"enableMeetingToPublicEvent":false,"enableAudioWatermark":false,"audioOption":2,
      "enableHostVideo":true,"enableParticipantsVideo":false,"enableJBH":true,"jbhPriorTime":0,"usePMI":false,
      "meetingPassword":"123","requiredMeetingPassword":true,"isSignedInUsersMeetingOn":true,
      "trackingFields":[{"id":"t1","trackingField":"Cost centre","trackingValue":"A;B","mtValue":"B","required":true},
                        {"id":"t2","trackingField":"","trackingValue":"","mtValue":"","required":false}],
      "enableAutoRecordingMtgLevelFirst":true,"enableAutoRecordingType":3,"muteOnEntry":true,
      "alternateHosts":["zero@example.com","one@example.com","ONE@example.com"],
      "availableDialinCountry":{"hash":"h-77","includedTollfree":true,"selectedCountries":["US","DE"]},
      "meetingAuth":{"authId":"a1","authName":"Staff","authType":4,"authDomain":"example.com"},
      "supportWaitingRoom":true,"enableWaitingRoom":true,"enableRegionCustomization":true,
      "additionalDCRegions":["EU","AU"],"enableUnmuteAll":true,"enableE2ee":true,
      "meetingTemplate":{"templateId":"tp","templateName":"Lecture","templateType":3},
      "enableAllowDenyJoinMeetingRegion":true,"regionType":1,"regionCodes":["CN","US"]},
    "meetingKey":"99900011122","emailBody":"Join","joinUrl":"https://j","invitehtmlemail":"<p>Join</p>"})")));
}

TEST_F(MeetingReaderTest, GivesNeutralValuesForKeysThatTheServiceAlwaysSends) {
  reader.setMeetingData(json(R"({"meetingKey":"1"})"), false);
  const Value info = reader.getMeetingInfo();
  EXPECT_EQ(info[vn_Outlook_ApptInfo][vn_ApptInfo_Subject], Value(""));
  EXPECT_EQ(info[vn_Setting][vn_Setting_IsPMI], Value(false));
  EXPECT_EQ(info[vn_Setting][vn_Setting_AudioOption], Value(100));
  EXPECT_EQ(info[vn_Setting][vn_Setting_RequiredMPW], Value(false));
  EXPECT_FALSE(info[vn_Setting].contains(vn_Setting_AlternateHosts));
}

TEST_F(MeetingReaderTest, ReadsTheAudioCodeOfATelephonyProviderFirst) {
  const std::pair<int, int> cases[] = {{1, 10}, {2, 11}, {3, 12}, {4, 13}, {5, 14}, {7, 10}};
  for (const auto& [told, expected] : cases) {
    Value meeting = json(R"({"meetingKey":"1","audioOption":2})");
    meeting.set(vn_Setting_TspAudioOption, told);
    reader.setMeetingData(meeting, false);
    EXPECT_EQ(reader.getMeetingInfo()[vn_Setting][vn_Setting_AudioOption], Value(expected)) << told;
  }
}

TEST_F(MeetingReaderTest, DerivesTheRecordingTypeFromAvailabilityAndTheMeetingsBits) {
  const struct {
    bool localAvailable, cloudAvailable, local, cloud;
    int type;
  } cases[] = {{false, false, true, true, 5}, {true, true, true, true, 2},   {true, true, true, false, 1},
               {true, true, false, false, 0}, {true, false, true, true, 4},  {true, false, true, false, 3},
               {false, true, false, true, 4}, {false, true, true, false, 3}, {false, true, false, false, 0}};
  for (const auto& c : cases) {
    setRecording(c.localAvailable, c.cloudAvailable);
    proto::MeetingProto meeting;
    meeting.set_scheduleoption2((c.local ? 0x40000 : 0) | (c.cloud ? 0x80000 : 0));
    feed(R"({"meetingKey":"1"})", meeting.SerializeAsString());
    EXPECT_EQ(reader.getMeetingInfo()[vn_Setting][vn_Setting_EnableAutoRecordingType], Value(c.type))
        << c.localAvailable << c.cloudAvailable << c.local << c.cloud;
  }
}

TEST_F(MeetingReaderTest, ChoosesTheMeetingKey) {
  for (const auto& [meeting, key] :
       {std::pair{R"({"meetingKey":"1","usePMI":true,"originalMeetingNumber":"2"})", "2"},
        std::pair{R"({"meetingKey":"1","usePMI":1,"originalMeetingNumber":"0"})", "1"},
        std::pair{R"({"meetingKey":"1","usePMI":false,"originalMeetingNumber":"2"})", "1"},
        std::pair{R"({"meetingKey":"1","usePMI":true})", "1"}}) {
    reader.setMeetingData(json(meeting), false);
    EXPECT_EQ(reader.getMeetingInfo()[vn_MeetingKey], Value(key)) << meeting;
  }
}

TEST_F(MeetingReaderTest, TellsForWhomAMeetingIsScheduled) {
  account().setData(json(R"({"userId":"me","bosses":[{"email":"b@example.com","hostId":"boss"}]})"));
  for (const auto& [host, email, key] :
       {std::tuple{"me", "", Value()}, std::tuple{"BOSS", "b@example.com", Value("b@example.com")},
        std::tuple{"stranger", "stranger", Value()}}) {
    proto::MeetingProto message;
    message.set_hostid(host);
    feed(R"({"meetingKey":"1"})", message.SerializeAsString());
    EXPECT_EQ(reader.getScheduleForEmail(), email);
    EXPECT_EQ(reader.getMeetingInfo()[vn_Setting][vn_Setting_ScheduleFor], key) << host;
  }
  reader.setMeetingData(json(R"({"meetingKey":"1","scheduleFor":"c@example.com"})"), false);
  EXPECT_EQ(reader.getScheduleForEmail(), "c@example.com") << "whom the meeting names";
  EXPECT_EQ(reader.getMeetingInfo()[vn_Setting][vn_Setting_ScheduleFor], Value("c@example.com"));
}

TEST_F(MeetingReaderTest, KnowsWhetherAFetchIsDue) {
  EXPECT_TRUE(reader.NeedRequestGetMeeting());
  reader.setMeetingData(json(R"({"meetingKey":"1"})"), false);
  EXPECT_FALSE(reader.NeedRequestGetMeeting());
  reader.setIsForGetMeetingByUUID(true);
  EXPECT_TRUE(reader.hasMeetingInfo());
  EXPECT_TRUE(reader.NeedRequestGetMeeting());
  reader.setMeetingData(json(R"({"meetingKey":""})"), false);
  EXPECT_FALSE(reader.hasMeetingInfo());
  EXPECT_EQ(reader.getMeetingInfo(), Value::dictionary());
}

TEST_F(MeetingReaderTest, KeepsTheMessageBeforeWhenAReplyHasNone) {
  feed(R"({"meetingKey":"1"})", encodedMessage("meeting"));
  reader.setMeetingData(json(R"({"meetingKey":"2"})"), false);
  for (const OptionalText& none : {OptionalText(), OptionalText("")}) reader.setPBMeetingData(none);
  EXPECT_TRUE(reader.isEnableE2ee());
  EXPECT_FALSE(reader.isNewMeetingDefault()) << "it has a number";
  reader.setPBMeetingData("//// no message");
  EXPECT_FALSE(reader.isEnableE2ee()) << "a broken message empties the options, unlike that of a profile";
  EXPECT_EQ(reader.getMeetingInfo()[vn_MeetingKey], Value("2"));
}

TEST_F(MeetingReaderTest, TakesTheDialInPartOnlyWithAHash) {
  proto::MeetingProto message;
  message.mutable_availabledialincountry()->add_selectedcountries("US");
  feed(R"({"meetingKey":"1"})", message.SerializeAsString());
  EXPECT_EQ(reader.getDialinCountry_SelectedCountries().count(), 0u);
}

TEST_F(MeetingReaderTest, MarksTheAccountsPersonalMeeting) {
  account().setData(json(R"({"roomMeetingId":"42"})"));
  reader.setMeetingData(json(R"({"meetingKey":"42","usePMI":false})"), true);
  EXPECT_EQ(reader.getMeetingInfo()[vn_Setting][vn_Setting_IsPMI], Value(true));
}

TEST_F(MeetingReaderTest, WithoutAMessageKnowsNoHostAndNoList) {
  feed(R"({"meetingKey":"1"})", encodedMessage("meeting"));
  reader.cleanup();
  EXPECT_FALSE(reader.hasMeetingInfo() || reader.supportHtmlEmail() || reader.isNewMeetingDefault());
  EXPECT_EQ(reader.getHostID(), std::nullopt);
  EXPECT_EQ(reader.getHostEmail(), std::nullopt);
  for (const Value& list : {reader.getTrackingFields(), reader.getAlternateHosts(),
                            reader.getAdditionalDCRegions(), reader.getDialinCountry_SelectedCountries()}) {
    EXPECT_EQ(list.count(), 0u);
  }
}

using PACReaderTest = DataTest;

TEST_F(PACReaderTest, JoinsTheNumbersOfAConference) {
  auto& pac = vnGetPACHelper::sharedInstance();
  EXPECT_EQ(pac.pacMeetingID(1), std::nullopt);
  pac.setPACInfo(base64(encodedMessage("pac")));
  EXPECT_TRUE(pac.isPACEnabled());
  EXPECT_EQ(pac.pacCount(), 2);
  EXPECT_EQ(pac.pacDialInNumber(1), "+1 800 (US Toll Free)\r\n+49 800 (DE Toll Free)\r\n+1 200 (US Toll)\r\n");
  EXPECT_EQ(pac.pacDialInNumberWithCommaSeparator(1),
            "+1 800 (US Toll Free), +49 800 (DE Toll Free), +1 200 (US Toll)");
  EXPECT_EQ(pac.pacDialInNumber(2), "+33 1+33 2 (FR Toll)\r\n") << "a number without a label has no line break";
  EXPECT_EQ(pac.pacDialInNumberWithCommaSeparator(2), "+33 1, +33 2 (FR Toll)");
  EXPECT_EQ(pac.pacMeetingID(1), "5550001");
  EXPECT_TRUE(pac.supportHtmlInvitationMail(1));
  EXPECT_EQ(pac.dedicatedDailinNumber(1), "+1 999");
  EXPECT_EQ(pac.dedicatedDailinNumber(2), std::nullopt);
  for (const std::int64_t outside :
       {std::int64_t{-1}, std::int64_t{0}, std::int64_t{3}, (std::int64_t{1} << 32) + 1}) {
    EXPECT_EQ(pac.pacMeetingID(outside), "0");
    EXPECT_EQ(pac.pacLocation(outside), "");
  }
  pac.setPACInfo("****");
  EXPECT_EQ(pac.pacCount(), 2) << "the last good message stays";
}

using BrokenMessageTest = DataTest;

TEST_F(BrokenMessageTest, NoCutOrChangedByteHarmsTheReaders) {
  const std::string profile = encodedMessage("profile");
  const std::string meeting = encodedMessage("meeting");
  vnGetMeetingHelper reader;
  reader.setMeetingData(json(R"({"meetingKey":"1"})"), false);
  const auto askAll = [&](std::string p, std::string m) {
    account().setData(profileWith(p));
    reader.setPBMeetingData(base64(m));
    account().trackingFields();
    account().tspAccounts();
    EXPECT_TRUE(vStringUtils::toJSONString(reader.getMeetingInfo())) << "every text stays valid UTF-8";
  };
  for (std::size_t cut = 0; cut < std::max(profile.size(), meeting.size()); ++cut) {
    askAll(profile.substr(0, cut), meeting.substr(0, cut));
    for (const char wrong : {'\xff', '\x03', '\x00'}) {
      std::string p = profile, m = meeting;
      if (cut < p.size()) p[cut] = wrong;
      if (cut < m.size()) m[cut] = wrong;
      askAll(p, m);
    }
  }
  askAll(profile, meeting);
  EXPECT_EQ(account().userName(), "Ada Example");
  EXPECT_TRUE(reader.isEnableE2ee());
}

TEST_F(BrokenMessageTest, NestingTooDeepIsRefusedAndTheNextMessageRead) {
  // Groups of an unknown field, one inside the other, behind a good name.
  std::string deep = "\x12\x01X";
  for (int i = 0; i < 200; ++i) deep += "\xc3\x3e";
  for (int i = 0; i < 200; ++i) deep += "\xc4\x3e";
  account().setData(profileWith(deep));
  EXPECT_EQ(account().userName(), "");
  account().setData(profileWith(encodedMessage("profile")));
  EXPECT_EQ(account().userName(), "Ada Example");
}

TEST_F(BrokenMessageTest, WhatIsWrittenIsReadAsTheSameMessage) {
  proto::MeetingProto message, again;
  ASSERT_TRUE(message.ParseFromString(encodedMessage("meeting")));
  std::uint8_t* bytes = nullptr;
  std::uint32_t size = 0;
  ASSERT_TRUE(ProtoToByteStream(&message, &bytes, &size));
  EXPECT_TRUE(ProtoFromByteStream(&again, bytes, size));
  EXPECT_EQ(again.SerializeAsString(), message.SerializeAsString());
  FreeProtoByteStream(bytes, size);
}

TEST_F(BrokenMessageTest, AcceptsLineBreaksInBase64AndRepairsInvalidText) {
  std::string text = base64(
      "\x12\x03"
      "A\xffZ");
  text.insert(4, "\r\n");
  account().setData(Value::dictionaryFromPairs({{vn_Profile_Proto, text}}));
  EXPECT_EQ(account().userName(), "A\uFFFDZ");
}

}  // namespace
}  // namespace vorn
