// The last write, on the record that the host is about to store.

#include "tests/workflow/MeetingFixture.h"
#include "workflow/RunningSave.h"
#include "workflow/StoreTimeWriter.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnSavePreparation.h"

namespace vorn {
namespace {

namespace proto = com::tidemar::webapp::proto;

const char* const kMeetingRecord = "{\"meetingKey\": \"123456789\"}";

class StoreTime : public WorkflowFixture {
 protected:
  HostObject record(std::initializer_list<std::pair<std::string_view, Value>> items) {
    Value state = Value::dictionary();
    for (const auto& [key, value] : items) state.set(key, value);
    return hostObject("ECMutableCalendarEvent", state);
  }
  StoreTimeWriter writer(const HostObject& object, std::shared_ptr<vnMeetingMgr> manager = nullptr) const {
    return {object, save, std::move(manager)};
  }
  Value stored(const HostObject& object, const char* key) {
    return (*test.classRuntime.state<Value>(object))[key];
  }

  vnApptDataForSaveRecord& left = vnApptDataForSaveRecord::sharedInstance();
  ApptSaveData save;
};

TEST_F(StoreTime, WritesWhatKindOfAppointmentItIs) {
  const struct {
    const char *what, *record;
    bool isPAC, clears;
    const char *location, *body;
  } rows[] = {
      {"a meeting", kMeetingRecord, false, false, "Castle; url", "<p>new</p>"},
      {"a meeting before everything else", kMeetingRecord, true, true, "Castle; url", "<p>new</p>"},
      {"a telephone conference", "", true, false, "Castle +33 1, 5550002", "<p>new</p>"},
      {"a telephone conference before a delete", "", true, true, "Castle +33 1, 5550002", "<p>new</p>"},
      {"a meeting that was deleted", "", false, true, "Castle; url", "<p>new</p>"},
      {"none of them", "", false, false, "Castle", "<p>old</p>"},
      {"a record without a key", "{\"joinUrl\": \"url\"}", false, false, "Castle", "<p>old</p>"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    FakeWindow window(test);
    clientTells({{5550001, {"+1 200"}, "+1 999", "Phone"}, {5550002, {"+33 1"}}, {0, {"+44 3"}, "", "Phone 3"}});
    window.manager->meetingDataMgr()->setPACAccountNo(2);
    const HostObject object = record(
        {{"olmUCInband", row.record}, {"location", "Castle"}, {"body", "<p>old</p>"}, {"summary", "Review"}});
    window.set(window.bar->editor, "content", object);
    ApptSaveData& save = left.of(window.bar);
    save.setVnLocation("url");
    save.setOLNewLocation("Castle; url");
    save.setOLNewBody("<p>new</p>");
    save.setIsPACMeeting(row.isPAC);
    save.setNeedClearLocation(row.clears);
    StoreTimeWriter::write(object);
    EXPECT_EQ(stored(object, "location").text(), row.location);
    EXPECT_EQ(stored(object, "body").text(), row.body);
    EXPECT_EQ(stored(object, "summary").text(), "Review");
    EXPECT_TRUE(left.windows().empty()) << "one store ends the save";
  }
}

TEST_F(StoreTime, WritesTheLocationOnlyWhenItsOwnPartIsNotThereYet) {
  const struct {
    OptionalText stored, ours, planned, fromRecord;
    bool expected;
  } rows[] = {
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
  for (const auto& row : rows) {
    const HostObject object = record({{"location", row.stored}});
    save.setVnLocation(row.ours);
    save.setOLNewLocation(row.planned);
    save.setJoinURLFromProperty(row.fromRecord);
    EXPECT_EQ(writer(object).needUpdateLocation(), row.expected)
        << row.stored.value_or("-") << " | " << row.planned.value_or("-") << " | " << row.fromRecord.value_or("-");
    // An empty plan is never written, whatever the answer.
    writer(object).updateVnKeyInfoToAppointment();
    const bool written = row.expected && !row.planned.value_or("").empty();
    EXPECT_EQ(stored(object, "location").optionalText(), written ? row.planned : row.stored);
  }
}

TEST_F(StoreTime, AnAppointmentWhoseTitleIsBlankTakesTheServicesTopic) {
  FakeWindow window(test);
  window.manager->getMeetingHelper()->setMeetingData(
      Value::dictionaryFromPairs({{vn_MeetingKey, "123456789"}, {vn_ApptInfo_Subject, "Topic"}}), false);
  for (const auto& [summary, expected] : {std::pair{" \t ", "Topic"}, {"Review", "Review"}, {"\n", "\n"}}) {
    const HostObject object = record({{"summary", summary}});
    writer(object, window.manager).updateVnKeyInfoToAppointment();
    EXPECT_EQ(stored(object, "summary").text(), expected) << '"' << summary << '"';
  }
}

TEST_F(StoreTime, WritesABodyThatSaysSomethingElse) {
  const struct {
    const char* what;
    Value body;
    OptionalText planned;
    bool written;
  } rows[] = {
      {"another text", "<p>old</p>", "<p>new</p>", true},
      {"the same text in another dress", "<p>a b</p>", "<div>ab</div>", false},
      {"the very same text", "<p>a b</p>", "<p>a b</p>", false},
      {"nothing planned", "<p>old</p>", std::nullopt, false},
      {"an empty plan", "<p>old</p>", "<p> </p>", false},
      {"a picture alone", "<p>old</p>", "<p><img src=a></p>", true},
      {"a picture in place of nothing", "<p></p>", "<p><img src=a></p>", true},
      {"a record that has no body", Value(), "<p>new</p>", false},
      {"an empty body", "", "<p>new</p>", true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    const HostObject object = record({{"body", row.body}});
    save.setOLNewBody(row.planned);
    writer(object).updateVnKeyInfoToAppointment();
    EXPECT_EQ(stored(object, "body"), row.written ? Value(row.planned) : row.body);
  }
}

TEST_F(StoreTime, EachRecordTakesOnlyWhatItsOwnWindowHasLeft) {
  struct Row {
    const char *what, *shownUUID, *recordUUID, *shownId, *recordId;
    enum { outside, own, other, none } save;
    bool expected;
    int shownRecord = 0, recordsRecord = 0;
    Value exists = {};
  };
  const Row rows[] = {
      {"its own appointment", "A", "A", "", "", Row::own, true},
      {"its own, stored outside of a save", "A", "A", "", "", Row::outside, true},
      {"its own, in an edit on the calendar", "A", "A", "", "", Row::none, false},
      {"its own, in the save of another window", "A", "A", "", "", Row::other, false},
      {"another appointment", "A", "B", "", "", Row::own, false},
      {"another appointment outside of a save", "A", "B", "", "", Row::outside, false},
      {"the same item of a series", "A", "A", "2", "2", Row::own, true},
      {"another item of the series", "A", "A", "1", "2", Row::own, false},
      {"the same record", "A", "A", "1", "2", Row::own, true, 5, 5},
      {"another record", "A", "A", "2", "2", Row::own, false, 5, 6},
      {"one that has no record yet", "A", "A", "2", "2", Row::own, true, 5, 0},
      {"one that is stored for the first time", "", "", "", "", Row::own, true},
      {"one that gets its UUID just before", "", "A", "", "", Row::own, true},
      {"another, stored already, in the first save", "", "B", "", "", Row::own, false, 0, 7, true},
      {"one that gets its identity in its first save", "", "C", "", "", Row::own, true, 0, 7, false},
      {"a new one while another window is saved", "", "", "", "", Row::other, false},
      {"a new one outside of a save", "", "", "", "", Row::outside, false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    FakeWindow window(test);
    FakeWindow another(test);
    another.set(another.bar->event, "UUID", "C");
    window.set(window.bar->event, "UUID", row.shownUUID);
    window.set(window.bar->event, "recurrenceId", row.shownId);
    const HostObject object = record({{"UUID", row.recordUUID}, {"recurrenceId", row.recordId}, {"body", "old"}});
    const auto setRecord = [&](const HostObject& event, int id) {
      const HostObject uid =
          hostObject("ECRecordUID", Value::dictionaryFromPairs({{"recordID", id}, {"recordExists", row.exists}}));
      if (id != 0) window.set(event, "recordUID", uid);
    };
    setRecord(window.bar->event, row.shownRecord);
    setRecord(object, row.recordsRecord);
    ApptSaveData& mine = left.of(window.bar);
    mine.setNeedClearLocation(true);
    mine.setOLNewBody("new");
    {
      std::optional<RunningSave> running;
      if (row.save == Row::own) running.emplace(window.bar);
      if (row.save == Row::other) running.emplace(another.bar);
      if (row.save == Row::none) running.emplace(nullptr);
      StoreTimeWriter::write(object);
    }
    EXPECT_EQ(stored(object, "body").text(), row.expected ? "new" : "old");
    const auto waiting = left.windows();
    EXPECT_EQ(std::count(waiting.begin(), waiting.end(), window.bar), row.expected ? 0 : 1);
    left.cleanup(window.bar.get());
  }
}

TEST_F(StoreTime, AWindowThatTurnsToTheSeriesLeavesNothingOfTheItemForIt) {
  FakeWindow window(test);
  window.set(window.bar->event, "UUID", "A");
  window.set(window.bar->event, "recurrenceId", "20261123");
  left.of(window.bar).setNeedClearLocation(true);
  left.of(window.bar).setOLNewBody("<p>the item</p>");
  const HostObject series = record({{"UUID", "A"}, {"body", "<p>the series</p>"}});
  window.set(window.bar->editor, "content", series);
  const RunningSave running(window.bar);
  StoreTimeWriter::write(series);
  EXPECT_EQ(stored(series, "body").text(), "<p>the series</p>");
}

TEST_F(StoreTime, WhatTheUserHasTypedIsNotedBeforeTheSave) {
  const struct {
    const char* name;
    Value body = "<p>new</p>";
    OptionalText field = "Castle", notedBefore = {}, notedBody = "<p>new</p>", notedLocation = "Castle";
    bool hasMeeting = true, isDeleted = false;
    bool fromChanged = false, hasHtml = false, becomesPlain = false, isFetched = true;
  } rows[] = {
      {"a meeting"},
      {"a meeting whose body is empty", "<p> </p>", "Castle", "<p>old</p>", "<p>old</p>"},
      {"a meeting whose body is not known", Value(), "Castle", "<p>old</p>", "<p>old</p>"},
      {.name = "a meeting without a location field", .field = {}, .notedLocation = {}},
      {.name = "a meeting that is taken off", .notedLocation = {}, .isDeleted = true},
      {.name = "of another account", .fromChanged = true, .hasHtml = true},
      {.name = "of another account, with a plain invitation", .fromChanged = true, .becomesPlain = true},
      {.name = "of another account, and not fetched yet", .fromChanged = true, .isFetched = false},
      {"no meeting", "<p>new</p>", "Castle", "<p>old</p>", "<p>old</p>", {}, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    FakeWindow window(test);
    window.bar->hasMeeting = row.hasMeeting;
    window.bar->dataStatus = row.isDeleted ? VnDataDeleted : VnDataChanged;
    window.bar->fromChanged = row.fromChanged;
    proto::MeetingProto message;
    if (row.hasHtml) message.set_invitehtmlemail("<p>Join</p>");
    if (row.isFetched) {
      window.manager->getMeetingHelper()->setMeetingData(Value::dictionaryFromPairs({{vn_MeetingKey, "1"}}),
                                                         false);
    }
    window.manager->getMeetingHelper()->setPBMeetingData(encoded(message));
    window.set(window.bar->bodyEditor, "bodyContent", row.body);
    if (row.field) window.showLocation(*row.field);
    left.of(window.bar).setOLNewBody(row.notedBefore);
    vn_preHandleVnMeeting(window.bar->editor);
    EXPECT_EQ(left.of(window.bar).getOLNewBody(), row.notedBody);
    EXPECT_EQ(left.of(window.bar).getOLNewLocation(), row.notedLocation);
    EXPECT_EQ(window.bodySwitch(), row.becomesPlain ? "switchToPlainText" : "");
  }
}

TEST_F(StoreTime, EachEditorFindsItsOwnBodyEditor) {
  const FakeWindow one(test);
  const FakeWindow two(test);
  left.setOLWordMailEditor(one.bar->editor, HostObject(0x11));
  left.setOLWordMailEditor(two.bar->editor, HostObject(0x22));
  EXPECT_EQ(left.olWordMailEditor(one.bar->editor), HostObject(0x11));
  EXPECT_EQ(left.olWordMailEditor(two.bar->editor), HostObject(0x22));
  left.setOLWordMailEditor(one.bar->editor, HostObject(0x33));
  EXPECT_EQ(left.olWordMailEditor(one.bar->editor), HostObject(0x33));
  left.cleanupOLWordMailEditor(HostObject(0x22));
  EXPECT_FALSE(left.olWordMailEditor(two.bar->editor));
  // Another editor may get the address of one that has gone without a word.
  test.classRuntime.destroy(one.bar->editor);
  left.setOLWordMailEditor(two.bar->editor, HostObject(0x44));
  EXPECT_FALSE(left.olWordMailEditor(one.bar->editor));
}

}  // namespace
}  // namespace vorn
