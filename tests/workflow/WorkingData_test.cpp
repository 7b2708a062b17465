#include <gtest/gtest.h>

#include "data/vnSettingKeys.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "tests/workflow/FakeWindow.h"
#include "util/vnOLUtils.h"
#include "workflow/StoreTimeWriter.h"
#include "workflow/vnApptDataForSaveRecord.h"

namespace vorn {
namespace {

class WorkingData : public testing::Test {
 protected:
  WorkingData() {
    defineWindowClasses(test.classRuntime);
    WorkflowDirectory::sharedInstance().install();
  }
  TestPlatform test;
};

TEST_F(WorkingData, AKeyIsClearedWithTheEmptyTextAndNeverWithNothing) {
  vnMeetingDataMgr data;
  EXPECT_FALSE(data.isVornMeeting());
  data.setMeetingKey("123456789");
  data.setMeetingKey(std::nullopt);
  EXPECT_TRUE(data.isVornMeeting());
  data.setMeetingKey("");
  EXPECT_FALSE(data.isVornMeeting());
}

TEST_F(WorkingData, UsedJoinUrlsAreKeptOnceAndSplitByPasscode) {
  vnMeetingDataMgr data;
  data.setJoinUrl("https://vorn.example/j/1?pwd=x");
  data.setJoinUrl("https://vorn.example/j/1");
  data.setJoinUrl(std::string("https://vorn.example/j/1?pwd=x"));
  data.setJoinUrl(std::nullopt);
  EXPECT_EQ(data.usedJoinUrlsList().size(), 2u);
  EXPECT_EQ(data.usedJoinUrlListWithPwd(), std::vector<std::string>{"https://vorn.example/j/1?pwd=x"});
  EXPECT_EQ(data.usedJoinUrlListWithoutPwd(), std::vector<std::string>{"https://vorn.example/j/1"});
  data.clearSavedMeetingData();
  EXPECT_EQ(data.usedJoinUrlsList().size(), 2u);
  EXPECT_TRUE(data.forceIncludeJoinUrlInLocation());
}

TEST_F(WorkingData, TheUrlGoesIntoTheLocationUnlessTheUserHasStoredOtherwise) {
  EXPECT_TRUE(vnMeetingDataMgr().forceIncludeJoinUrlInLocation());
  test.userDefaults.setObject(false, vn_Setting_ForceIncludeJoinurlInLocation);
  EXPECT_FALSE(vnMeetingDataMgr().forceIncludeJoinUrlInLocation());
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
  EXPECT_EQ(vnOLUtils::toArrayOrNSDictionary(data.getVnDataForOLProperty(Value::dictionary())).count(), 0u);
}

TEST_F(WorkingData, TheUsersOwnLocationIsFoundAmongUrlsAndRooms) {
  FakeWindow window(test);
  window.invite("Room 7", 2);
  window.invite("Ada", 0);
  window.manager->meetingDataMgr()->setJoinUrl("https://vorn.example/j/1");
  window.manager->meetingDataMgr()->setJoinUrl("https://vorn.example/j/1?pwd=x");
  const std::pair<const char*, const char*> rows[] = {
      {"", ""},
      {"  \n", ""},
      {"Castle", "Castle"},
      {"Castle; https://vorn.example/j/1?pwd=x", "Castle"},
      {"https://vorn.example/j/1?pwd=x", ""},
      {"https://vorn.example/j/1", ""},
      {"Castle; Room 7; https://vorn.example/j/1?pwd=x", "Castle"},
      {"Room 7; https://vorn.example/j/1; Castle", "Castle"},
      {"Ada's desk", "Ada's desk"},
      {"Straße 5; 東京; https://vorn.example/j/1", "Straße 5; 東京"},
      {"https://elsewhere.example/j/9", "https://elsewhere.example/j/9"},
  };
  for (const auto& [shown, own] : rows) {
    window.showLocation(shown);
    EXPECT_EQ(window.manager->getOLUserInputLocation(window.bar->editor), own) << shown;
  }
}

TEST_F(WorkingData, RoomsComeBeforeTheUrl) {
  FakeWindow window(test);
  EXPECT_EQ(window.manager->getVnLocation(nullptr), std::nullopt);
  EXPECT_EQ(window.manager->getVnLocation(window.bar), std::nullopt);
  window.manager->meetingDataMgr()->setJoinUrl("https://vorn.example/j/1");
  EXPECT_EQ(window.manager->getVnLocation(window.bar), "https://vorn.example/j/1");
  window.invite("Room 7", 2);
  window.invite("Ada", 0);
  window.invite("Room 8", 2);
  EXPECT_EQ(window.manager->getVnLocation(window.bar), "Room 7; Room 8; https://vorn.example/j/1");
}

TEST_F(WorkingData, AUrlThatIsSwitchedOffIsKeptUpToDateButNotAdded) {
  FakeWindow window(test);
  const OptionalText old = "https://vorn.example/j/1";
  struct Row {
    std::uint64_t action;
    bool include;
    const char* shown;
    OptionalText oldUrl;
    bool expected;
  };
  const Row rows[] = {
      {VnCmdSchedule, true, "", old, true},
      {VnCmdSchedule, false, "https://vorn.example/j/1", old, false},
      {VnCmdUpdate, true, "", std::nullopt, true},
      {VnCmdUpdate, false, "Castle; https://vorn.example/j/1", old, true},
      {VnCmdUpdate, false, "Castle", old, false},
      {VnCmdUpdate, false, "", old, false},
      {VnCmdUpdate, false, "Castle", "", false},
      {VnCmdUpdate, false, "Castle", std::nullopt, false},
  };
  for (const Row& row : rows) {
    window.manager->setMeetingAction(row.action);
    window.manager->meetingDataMgr()->setForceIncludeJoinUrlInLocation(row.include);
    window.showLocation(row.shown);
    EXPECT_EQ(window.manager->needUpdateLocation(window.bar->editor, row.oldUrl), row.expected)
        << row.action << " " << row.shown;
  }
}

TEST_F(WorkingData, ADeleteKeepsOnlyWhatStoodBeforeTheUrl) {
  FakeWindow window(test);
  window.manager->meetingDataMgr()->setJoinUrl("https://vorn.example/j/1");
  window.showLocation("Castle; east wing; https://vorn.example/j/1; tower");
  window.manager->updateVnMeetingInfoToAppointmentForDelete(window.bar->editor, Value::dictionary());
  EXPECT_EQ(window.get(window.field, "stringValue").text(), "Castleeast wing");
  EXPECT_EQ(window.get(window.bar->event, "location").text(), "Castleeast wing");
  EXPECT_EQ(window.get(window.bar->editor, "record").text(), "");
  EXPECT_TRUE(vnApptDataForSaveRecord::sharedInstance().needClearLocation());
}

TEST_F(WorkingData, TheStoreWritesTheLocationOnlyWhenItsOwnPartIsNotThereYet) {
  struct Row {
    OptionalText stored, ours, planned, fromRecord;
    bool expected;
  };
  const Row rows[] = {
      {std::nullopt, "url", "Castle; url", std::nullopt, true},
      {"Castle", std::nullopt, "x", std::nullopt, false},
      {"Castle", "url", std::nullopt, std::nullopt, false},
      {"Castle", "url", "", std::nullopt, false},
      {"Castle; url", "url", "Castle; url", "old", false},
      {"Castle", "url", "Castle; url", std::nullopt, true},
      {"url tower", "url", "Castle; url", std::nullopt, false},
      {"url tower", "url", "Castle; url", "url", false},
      {"url tower", "url", "Castle; url", "old", true},
  };
  for (const Row& row : rows) {
    Value record = Value::dictionary();
    record.set("location", row.stored);
    const HostObject object = test.classRuntime.create("ECMutableCalendarEvent", std::make_shared<Value>(record));
    vnApptDataForSaveRecord& save = vnApptDataForSaveRecord::sharedInstance();
    save.setVnLocation(row.ours);
    save.setOLNewLocation(row.planned);
    save.setJoinURLFromProperty(row.fromRecord);
    EXPECT_EQ(StoreTimeWriter(object).needUpdateLocation(), row.expected)
        << row.stored.value_or("-") << " | " << row.planned.value_or("-");
  }
}

TEST_F(WorkingData, TheSaveRecordForgetsEverythingButTheBodyEditor) {
  vnApptDataForSaveRecord& save = vnApptDataForSaveRecord::sharedInstance();
  save.setOLWordMailEditor(HostObject(0x77));
  save.setOLNewBody("body");
  save.setOLNewLocation("location");
  save.setNeedClearLocation(true);
  save.cleanup();
  EXPECT_FALSE(save.getOLNewBody() || save.getOLNewLocation() || save.needClearLocation());
  EXPECT_EQ(save.olWordMailEditor(), HostObject(0x77));
}

}  // namespace
}  // namespace vorn
