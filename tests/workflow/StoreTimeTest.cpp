// The last write, on the record that the host is about to store.

#include <gtest/gtest.h>

#include "data/vnGetPACHelper.h"
#include "data/vnSettingKeys.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "meeting.pb.h"
#include "tests/workflow/FakeWindow.h"
#include "util/EncodeUtils.h"
#include "workflow/StoreTimeWriter.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnPACMeetingMgr.h"

namespace vorn {
namespace {

namespace proto = com::tidemar::webapp::proto;

const char* const kMeetingRecord = "{\"meetingKey\": \"123456789\"}";

// A user with two telephone conferences: one with a number of its own, one with numbers and an id.
void receiveConferences() {
  proto::Response response;
  proto::PACMeeting& first = *response.mutable_pacinfo()->add_meetings();
  first.set_meetingnumber(5550001);
  first.set_dedicateddailinnumber("+1 999");
  first.set_location("Phone");
  first.add_tollnumbers()->set_number("+1 200");
  proto::PACMeeting& second = *response.mutable_pacinfo()->add_meetings();
  second.set_meetingnumber(5550002);
  second.add_tollnumbers()->set_number("+33 1");
  proto::PACMeeting& third = *response.mutable_pacinfo()->add_meetings();
  third.set_location("Phone 3");
  vnGetPACHelper::sharedInstance().setPACInfo(EncodeUtils::base64Encode(response.SerializeAsString()));
}

class StoreTime : public testing::Test {
 protected:
  StoreTime() {
    defineWindowClasses(test.classRuntime);
    WorkflowDirectory::sharedInstance().install();
  }

  HostObject record(std::initializer_list<std::pair<std::string_view, Value>> items) {
    Value state = Value::dictionary();
    for (const auto& [key, value] : items) state.set(key, value);
    return test.classRuntime.create("ECMutableCalendarEvent", std::make_shared<Value>(state));
  }
  Value stored(const HostObject& object, const char* key) {
    return (*test.classRuntime.state<Value>(object))[key];
  }

  TestPlatform test;
  vnApptDataForSaveRecord& save = vnApptDataForSaveRecord::sharedInstance();
};

TEST_F(StoreTime, WritesWhatKindOfAppointmentItIs) {
  struct Row {
    const char* what;
    const char* record;
    bool isPAC;
    bool clears;
    const char* location;
    const char* body;
  };
  const Row rows[] = {
      {"a meeting", kMeetingRecord, false, false, "Castle; url", "<p>new</p>"},
      {"a meeting before everything else", kMeetingRecord, true, true, "Castle; url", "<p>new</p>"},
      {"a telephone conference", "", true, false, "Castle +33 1, 5550002", "<p>new</p>"},
      {"a telephone conference before a delete", "", true, true, "Castle +33 1, 5550002", "<p>new</p>"},
      {"a meeting that was deleted", "", false, true, "Castle; url", "<p>new</p>"},
      {"none of them", "", false, false, "Castle", "<p>old</p>"},
      {"a record without a key", "{\"joinUrl\": \"url\"}", false, false, "Castle", "<p>old</p>"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    FakeWindow window(test);
    receiveConferences();
    window.manager->meetingDataMgr()->setPACAccountNo(2);
    const HostObject object = record(
        {{"olmUCInband", row.record}, {"location", "Castle"}, {"body", "<p>old</p>"}, {"summary", "Review"}});
    window.set(window.bar->editor, "content", object);
    save.setVnLocation("url");
    save.setOLNewLocation("Castle; url");
    save.setOLNewBody("<p>new</p>");
    save.setIsPACMeeting(row.isPAC);
    save.setNeedClearLocation(row.clears);
    StoreTimeWriter(object).write();
    EXPECT_EQ(stored(object, "location").text(), row.location);
    EXPECT_EQ(stored(object, "body").text(), row.body);
    EXPECT_EQ(stored(object, "summary").text(), "Review");
    EXPECT_FALSE(save.getOLNewLocation() || save.getOLNewBody() || save.isPACMeeting() ||
                 save.needClearLocation());
  }
}

TEST_F(StoreTime, WritesTheLocationOnlyWhenItsOwnPartIsNotThereYet) {
  struct Row {
    OptionalText stored, ours, planned, fromRecord;
    bool expected;
  };
  const Row rows[] = {
      {std::nullopt, "url", "Castle; url", std::nullopt, true},
      {std::nullopt, std::nullopt, std::nullopt, std::nullopt, true},
      {"Castle", std::nullopt, "x", std::nullopt, false},
      {"Castle", "url", std::nullopt, std::nullopt, false},
      {"Castle", "url", "", std::nullopt, false},
      {"Castle; url", "url", "Castle; url", "old", false},
      {"Castle", "url", "Castle; url", std::nullopt, true},
      {"Castle", "url", "Castle; url", "url", true},
      {"url tower", "url", "Castle; url", std::nullopt, false},
      {"url tower", "url", "Castle; url", "url", false},
      {"url tower", "url", "Castle; url", "old", true},
  };
  for (const Row& row : rows) {
    const HostObject object = record({{"location", row.stored}});
    save.setVnLocation(row.ours);
    save.setOLNewLocation(row.planned);
    save.setJoinURLFromProperty(row.fromRecord);
    EXPECT_EQ(StoreTimeWriter(object).needUpdateLocation(), row.expected)
        << row.stored.value_or("-") << " | " << row.planned.value_or("-") << " | " << row.fromRecord.value_or("-");
    // An empty plan is never written, whatever the answer.
    StoreTimeWriter(object).updateVnKeyInfoToAppointment();
    const bool written = row.expected && !row.planned.value_or("").empty();
    EXPECT_EQ(stored(object, "location").optionalText(), written ? row.planned : row.stored);
  }
}

TEST_F(StoreTime, AnAppointmentWithoutATitleTakesTheServicesTopic) {
  struct Row {
    const char* summary;
    bool hasMeeting;
    const char* expected;
  };
  const Row rows[] = {{"", true, "Topic"},
                      {" \t ", true, "Topic"},
                      {"Review", true, "Review"},
                      {"", false, ""},
                      {"\n", true, "\n"}};
  for (const Row& row : rows) {
    FakeWindow window(test);
    const HostObject object = record({{"summary", row.summary}});
    window.set(window.bar->editor, "content", object);
    if (row.hasMeeting) {
      window.manager->getMeetingHelper()->setMeetingData(
          Value::dictionaryFromPairs({{vn_MeetingKey, "123456789"}, {vn_ApptInfo_Subject, "Topic"}}), false);
    }
    StoreTimeWriter(object).updateVnKeyInfoToAppointment();
    EXPECT_EQ(stored(object, "summary").text(), row.expected) << '"' << row.summary << '"';
  }
}

TEST_F(StoreTime, WritesABodyThatSaysSomethingElse) {
  struct Row {
    const char* what;
    Value body;
    OptionalText planned;
    bool written;
  };
  const Row rows[] = {
      {"another text", "<p>old</p>", "<p>new</p>", true},
      {"the same text in another dress", "<p>a b</p>", "<div>ab</div>", false},
      {"the very same text", "<p>a b</p>", "<p>a b</p>", false},
      {"nothing planned", "<p>old</p>", std::nullopt, false},
      {"an empty plan", "<p>old</p>", "<p> </p>", false},
      {"a record that has no body", Value(), "<p>new</p>", false},
      {"an empty body", "", "<p>new</p>", true},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    const HostObject object = record({{"body", row.body}});
    save.setOLNewBody(row.planned);
    StoreTimeWriter(object).updateVnKeyInfoToAppointment();
    EXPECT_EQ(stored(object, "body"), row.written ? Value(row.planned) : row.body);
  }
}

TEST_F(StoreTime, ADeleteWritesTheCleanedLocationAndBody) {
  struct Row {
    bool clears;
    OptionalText location, body;
    const char *storedLocation, *storedBody;
  };
  const Row rows[] = {
      {true, "Castle", "<p>mine</p>", "Castle", "<p>mine</p>"},
      {true, "", "", "", ""},
      {true, "Castle", std::nullopt, "Castle", "<p>both</p>"},
      {false, "Castle", "<p>mine</p>", "Castle; url", "<p>both</p>"},
  };
  for (const Row& row : rows) {
    const HostObject object = record({{"location", "Castle; url"}, {"body", "<p>both</p>"}});
    save.setNeedClearLocation(row.clears);
    save.setOLNewLocation(row.location);
    save.setOLNewBody(row.body);
    StoreTimeWriter(object).cleanVnKeyInfoFromAppointment();
    EXPECT_EQ(stored(object, "location").text(), row.storedLocation);
    EXPECT_EQ(stored(object, "body").text(), row.storedBody);
  }
}

TEST_F(StoreTime, ATelephoneConferenceTakesThePlaceOfTheOneBefore) {
  const auto manager = vnMeetingMgr::create();
  vnPACMeetingMgr conference;
  EXPECT_EQ(conference.getNewLocationForPAC("Room"), "Room") << "nobody has any conferences";
  EXPECT_EQ(conference.getNewLocationForPAC(std::nullopt), std::nullopt);

  receiveConferences();
  conference.setMeetingMgr(manager.get());
  struct Row {
    std::uint64_t account;
    OptionalText location;
    const char* expected;
  };
  const Row rows[] = {
      {1, "Room", "Room +1 999"},
      {1, std::nullopt, "+1 999"},
      {1, "", "+1 999"},
      {2, "Room", "Room +33 1, 5550002"},
      {2, "Room +33 1, 5550002", "Room +33 1, 5550002"},
      {2, "Room +1 200, 5550001", "Room +33 1, 5550002"},
      {3, "Room 10", "Room 10 Phone 3"},
      {4, "Room 10", "Room 10"},
  };
  for (const Row& row : rows) {
    manager->meetingDataMgr()->setPACAccountNo(row.account);
    EXPECT_EQ(conference.getNewLocationForPAC(row.location), row.expected) << row.location.value_or("-");
  }
}

TEST_F(StoreTime, TheSaveRecordForgetsEverythingButTheBodyEditor) {
  save.setOLWordMailEditor(HostObject(0x77));
  save.setOLNewBody("body");
  save.setOLNewLocation("location");
  save.setVnLocation("url");
  save.setJoinURLFromProperty("url");
  save.setNeedClearLocation(true);
  save.setIsPACMeeting(true);
  save.cleanup();
  EXPECT_FALSE(save.getOLNewBody() || save.getOLNewLocation() || save.getVnLocation() ||
               save.getJoinURLFromProperty() || save.needClearLocation() || save.isPACMeeting());
  EXPECT_EQ(save.olWordMailEditor(), HostObject(0x77));
}

}  // namespace
}  // namespace vorn
