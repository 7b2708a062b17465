#include "host/proxies/vnOLPropertyKeys.h"
#include "tests/workflow/MeetingFixture.h"
#include "util/vnOLUtils.h"
#include "workflow/OwnerCheck.h"
#include "workflow/vnOnbehalfData.h"

namespace vorn {
namespace {

class WorkingData : public WorkflowFixture {
 protected:
  template <typename Fill>
  static void receive(const Fill& fill, const Value& bosses = {}) {
    com::tidemar::webapp::proto::UserProfile message;
    fill(message);
    Value profile = Value::dictionary();
    profile.set(vn_Profile_Proto, encoded(message));
    profile.set(vn_Profile_Bosses, bosses);
    vnUserProfileHelper::sharedInstance().setData(profile);
  }
};

TEST_F(WorkingData, WhatIsClearedIsEmptyAndWhatHasEndedIsAbsent) {
  test.userDefaults.setObject(false, vn_Setting_ForceIncludeJoinurlInLocation);
  vnMeetingDataMgr data;
  EXPECT_FALSE(data.forceIncludeJoinUrlInLocation()) << "as the user has stored";
  data.setMeetingKey("1");
  data.setEncodeMailBody("digest");
  data.setScheduleForEmail("ada@vorn.example");
  data.setSelectInvitationLanguage("de-DE");
  data.setPACAccountNo(2);
  data.setOccurrenceIsSingleVornMeeting(true);
  for (const OptionalText& url : {OptionalText("j/1?pwd=x"), OptionalText("j/1"), OptionalText("j/1?pwd=x"), {}}) {
    data.setJoinUrl(url);
  }
  data.setSavedApptInfo(Value::dictionaryFromPairs({{vn_ApptInfo_Subject, "Review"}}));
  data.clearSavedMeetingData();
  const auto texts = [&] {
    return std::vector{data.meetingKey(), data.encodeMailBody(), data.scheduleForEmail(),
                       data.selectInvitationLanguage()};
  };
  EXPECT_THAT(texts(), testing::Each(OptionalText("")));
  EXPECT_EQ(data.pacAccountNo(), 0u);
  EXPECT_EQ(data.getSavedApptInfo().count(), 0u);
  EXPECT_FALSE(data.occurrenceIsSingleVornMeeting() || data.isSelectInvitationLanguageChanged());
  EXPECT_TRUE(data.forceIncludeJoinUrlInLocation()) << "not the user's stored choice";
  EXPECT_FALSE(data.isForceIncludeJoinurlInLocationChanged());
  EXPECT_EQ(data.usedJoinUrlsList(), std::vector<std::string>({"j/1?pwd=x", "j/1"}))
      << "they still stand somewhere";
  EXPECT_EQ(data.usedJoinUrlListWithPwd(), std::vector<std::string>{"j/1?pwd=x"});
  EXPECT_EQ(data.usedJoinUrlListWithoutPwd(), std::vector<std::string>{"j/1"});
  data.cleanup();
  EXPECT_THAT(texts(), testing::Each(OptionalText()));
  EXPECT_EQ(data.joinUrl(), std::nullopt);
  EXPECT_TRUE(data.usedJoinUrlsList().empty());
}

TEST_F(WorkingData, TheStoredRecordEndsAtTheFirstAbsentValue) {
  const Value info = Value::dictionaryFromPairs(
      {{vn_MeetingKey, "987654321"},
       {vn_ApptInfo_Body, "You are invited."},
       {vn_Meeting_JoinUrl, "https://vorn.example/j/987654321"},
       {vn_Outlook_ApptInfo,
        Value::dictionaryFromPairs(
            {{vn_ApptInfo_Subject, "Review"},
             {vn_ApptInfo_Duration, "30"},
             {vn_ApptInfo_StartTime,
              Value::dictionaryFromPairs({{vn_ApptInfo_CalDate_UTCTime, "1970-01-02 00:00:00"}})}})}});
  vnMeetingDataMgr data;
  EXPECT_EQ(vnOLUtils::toArrayOrNSDictionary(data.getVnDataForOLProperty(info)).count(), 4u);
  data.setInvitationLanguage("en-US");
  const Value record = vnOLUtils::toArrayOrNSDictionary(data.getVnDataForOLProperty(info));
  EXPECT_EQ(record.count(), 8u);
  EXPECT_EQ(record[vn_ApptInfo_StartTime].stringValue(), "86400");
  // The window that opens with it next is where this one was.
  data.setForceIncludeJoinUrlInLocation(false);
  for (const char* place : {"olmUCInband", "olmUCCapabilities"}) {
    FakeWindow window(test);
    window.set(window.bar->event, place, data.getVnDataForOLProperty(info));
    MeetingWindow opened = MeetingWindow::ofBar(window.bar);
    EXPECT_TRUE(window.manager->opening().loadOIProperty(opened, window.bar->event));
    const vnMeetingDataMgr& read = *window.manager->meetingDataMgr();
    EXPECT_EQ(read.meetingKey(), "987654321");
    EXPECT_EQ(read.encodeMailBody(), record[vn_OLProperty_EncodeMailBody].text());
    EXPECT_EQ(read.joinUrl(), "https://vorn.example/j/987654321");
    EXPECT_EQ(read.selectInvitationLanguage(), "en-US");
    EXPECT_TRUE(read.isForceIncludeJoinurlInLocationChanged()) << "each window begins with the user's default";
  }
  EXPECT_EQ(vnOLUtils::toArrayOrNSDictionary(data.getVnDataForOLProperty(Value::dictionary())).count(), 0u);
}

TEST_F(WorkingData, AChoiceIsChangedWhenItDiffersFromTheStoredOneAndNoLanguageAlwaysIs) {
  vnMeetingDataMgr data;
  EXPECT_FALSE(data.isForceIncludeJoinurlInLocationChanged());
  data.setForceIncludeJoinUrlInLocation(false);
  EXPECT_TRUE(data.isForceIncludeJoinurlInLocationChanged());
  data.setOldForceIncludeJoinurlInLocation(false);
  EXPECT_FALSE(data.isForceIncludeJoinurlInLocationChanged());

  const struct {
    OptionalText now, old;
    bool changed;
  } rows[] = {{std::nullopt, std::nullopt, true}, {std::nullopt, "en-US", true}, {"en-US", std::nullopt, true},
              {"en-US", "en-US", false},          {"en-us", "en-US", true},      {"", "", false}};
  for (const auto& row : rows) {
    data.setSelectInvitationLanguage(row.now);
    data.setOldSelectInvitationLanguage(row.old);
    EXPECT_EQ(data.isSelectInvitationLanguageChanged(), row.changed) << row.now.value_or("-");
  }
}

TEST_F(WorkingData, AMeetingWithoutAnyProtectionGetsAWaitingRoomUnlessTheAccountForbidsOne) {
  constexpr std::int64_t kNewLogic = std::int64_t{1} << 47;
  constexpr std::int64_t kWaitingRooms = std::int64_t{1} << 9;
  constexpr std::int64_t kLocked = std::int64_t{1} << 17;
  const struct {
    const char* what;
    std::int64_t option3, option4;
    const char* passcode;
    bool usePMI, expected;
  } rows[] = {
      {"nothing protects it", kNewLogic, 0, "", false, true},
      {"an older account", 0, 0, "", false, false},
      {"a passcode", kNewLogic, 0, "abc123", false, false},
      {"the personal meeting", kNewLogic, 0, "", true, false},
      {"waiting rooms locked away", kNewLogic, kLocked, "", false, false},
      {"waiting rooms locked on", kNewLogic | kWaitingRooms, kLocked, "", false, true},
  };
  for (const auto& row : rows) {
    receive([&](auto& profile) {
      profile.set_useroption3(row.option3);
      profile.set_useroption4(row.option4);
    });
    FakeWindow window(test);
    window.manager->meetingDataMgr()->setMeetingKey("123456789");
    window.manager->getMeetingHelper()->setMeetingData(
        Value::dictionaryFromPairs({{vn_MeetingKey, "123456789"},
                                    {vn_Setting_MeetingPassword, row.passcode},
                                    {vn_Setting_IsPMI, row.usePMI}}),
        false);
    const Value settings =
        window.manager->meetingDataMgr()->getVnSettingsData(window.bar->getAppointmentWindowID());
    EXPECT_EQ(settings[vn_Setting_MeetingPassword].text(), row.passcode) << row.what;
    EXPECT_EQ(settings[vn_Setting_EnableWaitingRoom].boolValue(), row.expected) << row.what;
    EXPECT_EQ(settings[vn_Setting_SupportWaitingRoom].boolValue(), row.expected) << row.what;
  }
}

// The personal meeting is the one that every meeting with its number takes the place of.
TEST_F(WorkingData, ANewMeetingTakesOverThePersonalMeetingAndNothingOfAnyOther) {
  constexpr std::int64_t kPrefersPersonalNumber = 0x100;
  const struct {
    std::int64_t option3;
    bool hasRead, takesOver;
  } rows[] = {{0, true, false}, {kPrefersPersonalNumber, false, false}, {kPrefersPersonalNumber, true, true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.option3 << (row.hasRead ? " read" : ""));
    receive([&](auto& profile) { profile.set_useroption3(row.option3); });
    FakeWindow window(test);
    if (row.hasRead) {
      window.manager->getMeetingHelper()->setMeetingData(
          Value::dictionaryFromPairs({{vn_MeetingKey, "5550142871"}, {vn_Setting_MeetingPassword, "abc123"}}),
          false);
    }
    const Value settings =
        window.manager->meetingDataMgr()->getVnSettingsData(window.bar->getAppointmentWindowID());
    EXPECT_EQ(settings[vn_Setting_IsPMI].boolValue(), row.option3 != 0);
    EXPECT_EQ(settings[vn_Setting_MeetingPassword].text() == "abc123", row.takesOver);
    if (!row.takesOver) {
      EXPECT_EQ(settings[vn_Setting_AlternateHosts], Value(""));
    }
    EXPECT_TRUE(settings[vn_Setting_ScheduleFor].text().empty());
  }
}

TEST_F(WorkingData, TheFromAccountFitsEveryMeetingButOnesOwnThatIsNotStoredYet) {
  Value bosses = Value::array();
  bosses.append(
      Value::dictionaryFromPairs({{"email", "dana@vorn.example"}, {"displayName", "Dana"}, {"pmi", "5"}}));
  receive([](auto&) {}, bosses);
  EXPECT_TRUE(vnOnbehalfData::sharedInstance().supportPMIForOnbehalf("DANA@vorn.example"));
  EXPECT_FALSE(vnOnbehalfData::sharedInstance().supportPMIForOnbehalf("bob@vorn.example"));
  const struct {
    const char* name;
    const char* from = "dana@vorn.example";
    bool isDelegating = true;
    const char* scheduledFor = "";
    const char* record = "";
    bool hasMeeting = true, isSupported = true, hasBar = true;
    bool fits = true;
  } rows[] = {
      {.name = "one's own, in somebody's name", .fits = false},
      {.name = "one's own, in nobody's name yet", .from = "", .fits = false},
      {.name = "one's own, with a record that nobody can read", .record = "no JSON", .fits = false},
      {.name = "one's own, with a record of something else", .record = "{\"joinUrl\":\"\"}", .fits = false},
      {.name = "one's own, in one's own name", .from = "me@vorn.example", .isDelegating = false},
      {.name = "one's own, with somebody's address only", .isDelegating = false},
      {.name = "one's own, in a stranger's name", .from = "eve@vorn.example"},
      {.name = "that somebody's", .scheduledFor = "DANA@vorn.example"},
      {.name = "somebody else's", .scheduledFor = "bob@vorn.example"},
      {.name = "somebody's, in one's own name", .isDelegating = false, .scheduledFor = "dana@vorn.example"},
      {.name = "stored already", .record = "{\"meetingKey\":\"1\"}"},
      {.name = "none", .hasMeeting = false},
      {.name = "one that is not supported", .isSupported = false},
      {.name = "one without a bar", .hasBar = false},
  };
  for (const auto& row : rows) {
    FakeWindow window(test);
    window.sendFrom(row.from, row.isDelegating);
    window.set(window.bar->event, "olmUCInband", row.record);
    window.bar->hasMeeting = row.hasMeeting;
    window.bar->supported = row.isSupported;
    window.manager->setScheduleForEmail(row.scheduledFor);
    const OwnerCheck check(*window.manager->meetingDataMgr());
    MeetingWindow opened = MeetingWindow::ofBar(row.hasBar ? window.bar : nullptr);
    EXPECT_EQ(check.checkScheduleOwnerMatched(opened), row.fits) << row.name;
  }
}

// A reply may name a window that has gone, and a bar may not have met its editor yet.
TEST_F(WorkingData, NobodyIsActedForInAWindowThatShowsNoEditor) {
  FakeWindow window(test);
  vnOnbehalfData& onbehalf = vnOnbehalfData::sharedInstance();
  for (const OptionalText& id : {OptionalText(), OptionalText("none"), window.bar->getAppointmentWindowID()}) {
    EXPECT_FALSE(onbehalf.isOnbehalf(id) || onbehalf.isCurrentScheduleVornForOther(id)) << id.value_or("-");
    EXPECT_EQ(onbehalf.onbehalfEmail(id), "");
  }
}

}  // namespace
}  // namespace vorn
