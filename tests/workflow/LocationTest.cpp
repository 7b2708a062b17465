// The location of an appointment: the user's own words, rooms and the join URL, put together and taken apart.

#include <algorithm>
#include <array>
#include <random>

#include "tests/workflow/MeetingFixture.h"
#include "util/TextSearch.h"
#include "workflow/LocationRule.h"
#include "workflow/vnApptDataForSaveRecord.h"

namespace vorn {
namespace {

const char* const kOpen = "https://vorn.example/j/1";
const char* const kWithPasscode = "https://vorn.example/j/1?pwd=x";

class Location : public WorkflowFixture {
 protected:
  static vnMeetingDataMgr& data(FakeWindow& window) { return *window.manager->meetingDataMgr(); }
  static std::string shown(FakeWindow& window) { return window.get(window.field, "stringValue").text(); }
  static OptionalText own(FakeWindow& window) {
    MeetingWindow shown = MeetingWindow::ofBar(window.bar);
    return LocationRule(*window.manager->meetingDataMgr()).getOLUserInputLocation(shown);
  }

  // The service has answered a save: the appointment is written with the URL that it gave.
  static void writeBack(FakeWindow& window, const Value& joinUrl, bool include = true,
                        std::uint64_t action = VnCmdUpdate) {
    window.manager->setMeetingAction(action);
    data(window).setForceIncludeJoinUrlInLocation(include);
    Value info = Value::dictionary();
    info.set(vn_Meeting_JoinUrl, joinUrl);
    MeetingWindow shown = MeetingWindow::ofBar(window.bar);
    window.manager->writeBack().updateVnKeyInfoToAppointment(shown, info, false);
  }
  static ApptSaveData& leftBy(const FakeWindow& window) {
    return vnApptDataForSaveRecord::sharedInstance().of(window.bar);
  }
  static void cancel(FakeWindow& window) {
    MeetingWindow shown = MeetingWindow::ofBar(window.bar);
    window.manager->writeBack().updateVnMeetingInfoToAppointmentForDelete(shown, Value::dictionary());
  }
};

TEST_F(Location, TheUsersOwnTextIsWhatNobodyElsePutThere) {
  FakeWindow window(test);
  window.invite("Room 7", 2);
  window.invite("Ada", 0);
  window.invite("Lab", 2);
  window.invite("Lab; north", 2);
  window.invite("", 2);
  window.invite("東京", 2);
  data(window).setSavedApptInfo(Value::dictionaryFromPairs(
      {{vn_ApptInfo_Attendees,
        Value(Value::Array{Value::dictionaryFromPairs(
            {{vn_ApptInfo_AttendeeName, "Room left"}, {vn_ApptInfo_AttendeeType, "2"}})})}}));
  data(window).setJoinUrl(kWithPasscode);
  data(window).setJoinUrl(kOpen);
  const std::pair<const char*, const char*> rows[] = {
      {"", ""},
      {"  \n", ""},
      {" Castle \n", "Castle"},
      {";; Castle ;;", "Castle"},
      {"Castle;Room 7;https://vorn.example/j/1", "Castle"},
      {"Room left; Castle", "Castle"},
      {"https://vorn.example/j/1; 東京; Straße 5; 😀; https://vorn.example/j/1?pwd=x; Room 7", "Straße 5; 😀"},
      {"東京; https://elsewhere/j/1; Room 7", "https://elsewhere/j/1"},
      {"https://vorn.example/j/1?pwd=x; https://vorn.example/j/1?pwd=x", ""},
      {"https://vorn.example/j/12", "https://vorn.example/j/12"},
      {"Room 7; https://vorn.example/j/1 ask at the door", "ask at the door"},
      {"Hall; Room 7; https://vorn.example/j/1; ask", "Hall; ask"},
      {"Laboratory 3; Lab; north", "Laboratory 3"},
      {"Broom 7; Room 7b; Room 7 , Castle;  Room 7", "Broom 7; Room 7b; Room 7 , Castle"},
      {"Ada", "Ada"},
      {"HTTPS://VORN.EXAMPLE/j/1", "HTTPS://VORN.EXAMPLE/j/1"},
  };
  for (const auto& [text, expected] : rows) {
    window.showLocation(text);
    EXPECT_EQ(own(window), expected) << text;
  }
  for (const auto& [name, isRoom] : {std::pair{OptionalText("Room left"), true}, {"Room", false}, {{}, false}}) {
    EXPECT_EQ(LocationRule::findRoomInAttendees(name, data(window).getSavedApptInfo()[vn_ApptInfo_Attendees]),
              isRoom);
  }
  // Without a field the event answers.
  window.set(window.bar->editor, "locationTextField", nullptr);
  window.set(window.bar->event, "location", "Tower; https://vorn.example/j/1?pwd=x");
  EXPECT_EQ(own(window), "Tower");
}

// One window through several saves; each row goes on where the one before it stopped.
TEST_F(Location, TheUrlFollowsTheServiceAndTheUsersChoice) {
  FakeWindow window(test);
  window.invite("Room 7", 2);
  window.showLocation("Castle");
  const struct {
    const char *what, *typed, *url;
    bool include;
    std::uint64_t action;
    const char* shown;
    bool isPlanned = true;
  } rows[] = {
      {"first save, switched off", nullptr, kOpen, false, VnCmdSchedule, "Castle", false},
      {"switched on", nullptr, kOpen, true, VnCmdUpdate, "Castle; Room 7; https://vorn.example/j/1"},
      {"a passcode came", nullptr, kWithPasscode, true, VnCmdUpdate,
       "Castle; Room 7; https://vorn.example/j/1?pwd=x"},
      {"switched off while it stands there", nullptr, kOpen, false, VnCmdUpdate,
       "Castle; Room 7; https://vorn.example/j/1"},
      {"taken out by hand while off", "Tower", kWithPasscode, false, VnCmdUpdate, "Tower", false},
      {"switched on again", nullptr, kWithPasscode, true, VnCmdUpdate,
       "Tower; Room 7; https://vorn.example/j/1?pwd=x"},
      {"everything taken out by hand", "", kOpen, true, VnCmdUpdate, "Room 7; https://vorn.example/j/1"},
      {"marked by the client", "Castle; https://vorn.example/j/1?pwd=x&from=addon", kOpen, true, VnCmdUpdate,
       "Castle; Room 7; https://vorn.example/j/1"},
      {"marked in the other way", "Castle; https://vorn.example/j/1?from=addon", kOpen, true, VnCmdUpdate,
       "Castle; Room 7; https://vorn.example/j/1"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    if (row.typed) window.showLocation(row.typed);
    writeBack(window, row.url, row.include, row.action);
    EXPECT_EQ(shown(window), row.shown);
    EXPECT_EQ(leftBy(window).getOLNewLocation(), row.isPlanned ? row.shown : "");
    EXPECT_EQ(leftBy(window).getVnLocation(), "Room 7; " + std::string(row.url));
    if (!row.isPlanned) continue;
    EXPECT_EQ(window.get(window.bar->event, "location").text(), row.shown);
    EXPECT_EQ(window.get(window.bar->editor, "location").text(), row.shown);
  }
}

TEST_F(Location, WithoutAFieldTheUrlOfTheStoredRecordIsTheOldOneAndWithAFieldTheWindowsOwn) {
  const struct {
    const char *record, *shown;
    bool hasField = false;
  } rows[] = {
      {"{\"joinUrl\": \"https://vorn.example/j/old\"}", "Castle; https://vorn.example/j/new"},
      {"{\"joinUrl\": \"https://vorn.example/j/other\"}", "Castle; https://vorn.example/j/old"},
      {"no JSON", "Castle; https://vorn.example/j/old"},
      {"{\"joinUrl\": \"https://vorn.example/j/other\"}", "Castle; https://vorn.example/j/new", true},
  };
  for (const auto& row : rows) {
    FakeWindow window(test);
    if (row.hasField) {
      window.showLocation("Castle; https://vorn.example/j/old");
      data(window).setJoinUrl("https://vorn.example/j/old");
    } else {
      window.set(window.bar->editor, "locationTextField", nullptr);
      window.set(window.bar->event, "location", "Castle; https://vorn.example/j/old");
      data(window).addUsedJoinUrlToList("https://vorn.example/j/old");
    }
    data(window).setSavedApptInfo(Value::dictionaryFromPairs({{vn_ApptInfo_VnOIProperty, row.record}}));
    writeBack(window, "https://vorn.example/j/new", false);
    EXPECT_EQ(window.get(window.bar->event, "location").text(), row.shown) << row.record;
    EXPECT_EQ(leftBy(window).getJoinURLFromProperty(), data(window).getOldJoinUrl());
  }
}

TEST_F(Location, OfAWindowWithoutABarOnlyItsOwnUrlIsTakenOut) {
  FakeWindow window(test);
  window.showLocation(std::string("Castle; ") + kOpen);
  data(window).setJoinUrl(kOpen);
  vnActionAdditionViewMonitor::sharedInstance().removeVnActionAdditionViewInstance(window.bar.get());
  MeetingWindow barless = MeetingWindow::ofEditor(window.bar->editor);
  window.manager->writeBack().updateVnKeyInfoToAppointment(
      barless, Value::dictionaryFromPairs({{vn_Meeting_JoinUrl, kWithPasscode}}), false);
  EXPECT_EQ(shown(window), std::string("Castle; ") + kOpen);
  window.manager->writeBack().updateVnMeetingInfoToAppointmentForDelete(barless, Value::dictionary());
  EXPECT_EQ(shown(window), "Castle");
  EXPECT_TRUE(vnApptDataForSaveRecord::sharedInstance().windows().empty());
}

TEST_F(Location, AnEmptyJoinUrlNeitherHangsNorTakesAnythingAway) {
  FakeWindow window(test);
  window.showLocation("Castle; east wing");
  writeBack(window, "");
  EXPECT_EQ(own(window), "Castle; east wing");
  cancel(window);
  EXPECT_EQ(own(window), "Castle; east wing");
}

TEST_F(Location, ADeleteKeepsOnlyWhatStoodBeforeTheUrl) {
  const struct {
    const char *shown, *kept;
  } rows[] = {
      {"Castle; east wing; https://vorn.example/j/1; tower", "Castleeast wing"},
      {"Castle; https://vorn.example/j/1?pwd=x; tower", "Castle"},
      {"https://vorn.example/j/1", ""},
      {"https://vorn.example/j/12; https://vorn.example/j/1", "https://vorn.example/j/12"},
      {"Castle; east wing", "Castle; east wing"},
      {"", ""},
  };
  for (const auto& row : rows) {
    for (const bool hasField : {true, false}) {
      FakeWindow window(test);
      data(window).setJoinUrl(kOpen);
      data(window).setJoinUrl(kWithPasscode);
      if (!hasField) window.set(window.bar->editor, "locationTextField", nullptr);
      window.showLocation(row.shown);
      window.set(window.bar->event, "location", row.shown);
      cancel(window);
      EXPECT_EQ(shown(window), hasField ? row.kept : row.shown);
      EXPECT_EQ(window.get(window.bar->event, "location").text(), row.kept);
      EXPECT_EQ(window.get(window.bar->editor, "location").text(), row.kept);
      EXPECT_EQ(window.get(window.bar->editor, "olmUCInband"), Value(""));
      EXPECT_EQ(leftBy(window).getOLNewLocation(), row.kept);
      EXPECT_TRUE(leftBy(window).needClearLocation());
    }
  }
}

// -- Any text of a user ------------------------------------------------------------------------------------------

// A text that holds none of our URLs and rooms, without blanks and separators at its ends.
std::string anyOwnText(std::mt19937& random) {
  static const std::array<std::string, 16> pieces{"a",  "b", "Z", "ö", "東", "😀", ";", "; ",
                                                  ";;", " ", ",", "/", ":",  "?", "&", "\t"};
  std::string text;
  for (std::size_t i = random() % 20; i > 0; --i) text += pieces[random() % pieces.size()];
  const std::size_t first = text.find_first_not_of("; \t");
  return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of("; \t") - first + 1);
}

TEST_F(Location, AnyTextOfTheUserComesBackFromWhatWasComposed) {
  for (unsigned seed = 0; seed < 120; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    FakeWindow window(test);
    const std::string text = anyOwnText(random);
    window.showLocation(text);
    std::string rooms;
    for (std::size_t room = random() % 4; room > 0; --room) {
      // Their names begin alike.
      const std::string name = "Room " + std::string(room, '1');
      window.invite(name.c_str(), 2);
      rooms += name;
    }
    // The switch is off only once a URL stands there, and then it stays up to date.
    for (std::size_t saves = 1 + random() % 4; saves > 0; --saves) {
      const std::string passcode = random() % 2 == 0 ? "" : "?pwd=" + std::to_string(random() % 9);
      writeBack(window, "https://vorn.example/j/" + std::to_string(10 + random() % 90) + passcode,
                shown(window) == text || random() % 2 == 0);
      ASSERT_EQ(own(window), text) << shown(window);
    }
    cancel(window);
    ASSERT_EQ(shown(window), replacingAll(text, "; ", "") + rooms);
  }
}

}  // namespace
}  // namespace vorn
