// Personal audio conferences: what a click writes into body and location, and what a store makes of it.

#include "data/vnGetPACHelper.h"
#include "tests/workflow/MeetingFixture.h"
#include "workflow/WholeWords.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnPACMeetingMgr.h"

namespace vorn {
namespace {

using testing::IsEmpty;

const Conference kNumbers{5550001, {"+1 200", "+1 20"}};
const Conference kDedicated{5550002, {}, "+1 999,,5550002#", "", "", "<p>Call</p>"};
const Conference kPlace{0, {}, "", "Phone"};
const Conference kBlanks{0, {}, "", " Phone "};
const Conference kNoDialIn{0, {}};
const Conference kTurnedOff{5550004, {"+1 400"}, "", "", ""};

// A window that has no meeting.
class PersonalAudio : public MeetingFixture {
 protected:
  PersonalAudio() {
    data().setMeetingKey("");
    window->set(bar()->bodyEditor, "bodyContent", "<p>mine</p>");
  }

  const std::shared_ptr<FakeBar>& bar() { return window->bar; }
  vnPACMeetingMgr& audio() { return *manager().pacMeetingMgr(); }
  void click(std::uint64_t account) {
    manager().sendVnMeetingCommand(account == 2 ? VnCmdAddPACAccount2 : VnCmdAddPACAccount1,
                                   std::shared_ptr<MeetingBar>(bar()));
  }
  void add(std::uint64_t account) {
    click(account);
    reply(VnCmdGetPAC, Value());
  }
  std::string body() { return window->get(bar()->event, "body").text(); }
  std::string location() { return window->get(bar()->event, "location").text(); }
  void show(const std::string& text) {
    window->set(bar()->event, "location", text);
    window->showLocation(text);
  }
};

TEST(WholeWords, CountOnlyWhereTheyStandAlone) {
  const struct {
    const char *text, *wanted;
    std::size_t times;
    bool ends;
    const char *without, *withoutLast;
  } rows[] = {
      {"a 12, b 12", "12", 2, true, "a  b ", "a 12, b "},
      {"12,12,3", "12", 2, false, "3", "12,3"},
      {"012 912 12a 12z 12A 12Z", "12", 0, false, "012 912 12a 12z 12A 12Z", "012 912 12a 12z 12A 12Z"},
      {"312 12", "12", 1, true, "312 ", "312 "},
      {"x+12 (US)y", "+12 (US)", 1, false, "xy", "xy"},
      {"\xC3\xA4Phone Phone\xC3\xA4", "Phone", 0, false, "\xC3\xA4Phone Phone\xC3\xA4",
       "\xC3\xA4Phone Phone\xC3\xA4"},
      {"a", "", 0, false, "a", "a"},
      {"", "a", 0, false, "", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(timesInWhole(row.text, row.wanted), row.times);
    EXPECT_EQ(endsInWhole(row.text, row.wanted), row.ends);
    EXPECT_EQ(withoutWhole(row.text, {row.wanted, "never"}), row.without);
    EXPECT_EQ(withoutLastWhole(row.text, row.wanted), row.withoutLast);
  }
  EXPECT_EQ(withoutWhole("1 2 3, 1 2 3 4, 1 2, 1 25", {"1 2", "1 2 3", "1 2", "1 2 3 5"}), "  4,  1 25");
}

TEST_F(PersonalAudio, ALocationKeepsTheUsersWordsAndTakesOneConference) {
  const std::string numbers = "+1 200, +1 20, 5550001";
  const struct {
    std::uint64_t account;
    OptionalText before;
    OptionalText own, after;
  } rows[] = {
      {1, "Room", "Room", "Room " + numbers},
      {1, "Big Room " + numbers, "Big Room", "Big Room " + numbers},
      {1, numbers, "", numbers},
      {1, "Room +1 999,,5550002# north", "Room  north", "Room  north " + numbers},
      {2, "Room " + numbers + " north", "Room   north", "Room   north +1 999,,5550002#"},
      {2, "+1 2001 and 15550001", "+1 2001 and 15550001", "+1 2001 and 15550001 +1 999,,5550002#"},
      {3, "Room 0", "Room 0", "Room 0 Phone"},
      {3, "Meet by Phone", "Meet by Phone", "Meet by Phone"},
      {3, "Phones", "Phones", "Phones Phone"},
      {3, "", std::nullopt, "Phone"},
      {4, "Room +1 400, 5550004", "Room", "Room +1 400, 5550004"},
      {5, "Room 5550001", "Room", "Room 5550005"},
      {5, "Room 5550005", "Room", "Room 5550005"},
      {6, "Room 5550001", "Room", "Room"},
      {6, std::nullopt, std::nullopt, std::nullopt},
  };
  clientTells({kNumbers, kDedicated, kPlace, kTurnedOff, {5550005, {}}});
  for (const auto& row : rows) {
    SCOPED_TRACE(row.before.value_or("-"));
    data().setPACAccountNo(row.account);
    EXPECT_EQ(audio().getOLUserInputString(row.before), row.own);
    EXPECT_EQ(audio().getNewLocationForPAC(row.before), row.after);
  }
  // A number without any digits leaves a blank in the list, which is no reason to take the user's.
  clientTells({{1, {"+1 200", "", "+1 300"}}});
  EXPECT_EQ(audio().getOLUserInputString("Big Room"), "Big Room");
  EXPECT_EQ(vnPACMeetingMgr::sharedInstance().getNewLocationForPAC("Room +1 300"), "Room");
  // Blanks around what the client tells do not outlast a field.
  clientTells({{0, {}, "", " Phone "}, {0, {}, " +1 5 "}});
  data().setPACAccountNo(1);
  EXPECT_EQ(audio().getNewLocationForPAC("Room Phone"), "Room Phone");
  data().setPACAccountNo(2);
  EXPECT_EQ(audio().getNewLocationForPAC("+1 5"), " +1 5 ");
}

TEST_F(PersonalAudio, OnlyAnAddThatWaitsIsCarriedOutAndOnlyOnce) {
  clientTells({kNumbers});
  data().setPACAccountNo(1);
  for (const std::uint64_t state : {VnStateIdle, VnStateAdding, VnStateCommitted}) {
    manager().setState(state);
    reply(VnCmdGetPAC, Value());
    EXPECT_EQ(body(), "") << state;
  }
  // The reply with the profile, which has found the conferences there already, overtakes the one with them.
  knowAccount();
  vnUserProfileHelper::sharedInstance().setIsAccountChanged(false);
  click(1);
  EXPECT_TRUE(vnApptDataForSaveRecord::sharedInstance().of(bar()).isPACMeeting());
  reply(VnCmdGetUserProfile);
  const std::string once = body();
  EXPECT_EQ(once, "<p>mine</p><br><br>Call us<br><br>");
  window->set(bar()->bodyEditor, "bodyContent", once);
  reply(VnCmdGetPAC, Value());
  EXPECT_EQ(body(), once);
  add(1);
  EXPECT_EQ(body(), once + "<br><br>Call us<br><br>") << "a second add is the user's will";
}

TEST_F(PersonalAudio, AWindowOrAnAppointmentThatHasGoneIsLeftAlone) {
  clientTells({kTurnedOff});
  add(1);
  EXPECT_EQ(test.trace.lastOf("alert")["message"], Value(test.presenter.alerts().at(0).alert.message));
  test.presenter.forgetAlerts();
  click(1);
  vnActionAdditionViewMonitor::sharedInstance().removeVnActionAdditionViewInstance(bar().get());
  reply(VnCmdGetPAC, Value());
  EXPECT_THAT(test.presenter.alerts(), IsEmpty()) << "nobody waits for it any more";

  openWindow();
  show("Room");
  clientTells({kNumbers});
  click(1);
  window->set(bar()->editor, "content", Value(nullptr));
  reply(VnCmdGetPAC, Value());
  EXPECT_EQ(location(), "Room");
}

TEST_F(PersonalAudio, ABodyThatIsNotKnownIsNotShownAsAnEmptyOne) {
  clientTells({kNumbers});
  window->set(bar()->event, "body", "<p>mine</p>");
  window->set(bar()->bodyEditor, "bodyContent", Value(nullptr));
  add(1);
  EXPECT_EQ(body(), "<p>mine</p>");
  EXPECT_EQ(vnApptDataForSaveRecord::sharedInstance().of(bar()).getOLNewBody(), std::nullopt);
}

TEST_F(PersonalAudio, WordsOfTheUserThatOnlyTheFieldHasAreKept) {
  clientTells({kPlace});
  show("Room");
  window->showLocation("Castle");
  add(1);
  EXPECT_EQ(location(), "Castle Phone");
  show("Tower");
  window->showLocation("");
  add(1);
  EXPECT_EQ(location(), "Tower Phone");

  // With neither words of theirs nor a way to dial in there is no location to write.
  openWindow();
  clientTells({kNoDialIn});
  add(1);
  EXPECT_TRUE(window->get(bar()->editor, "location").isAbsent());
}

// What a window has added goes as it was written; what it has not added is the user's.
TEST_F(PersonalAudio, AnAddTakesThePlaceOfTheOneBeforeAndOfNothingElse) {
  const struct {
    const char *what, *before, *meanwhile;
    std::vector<Conference> first, second;
    const char* after;
  } rows[] = {
      {"numbers that have changed", "Room", nullptr, {kNumbers}, {{7, {"+1 7"}}}, "Room +1 7, 7"},
      {"a place", "Room", nullptr, {kPlace}, {kNumbers}, "Room +1 200, +1 20, 5550001"},
      {"a place with blanks", "Room", "Room Phone", {kBlanks}, {kDedicated}, "Room +1 999,,5550002#"},
      {"a place within words of the user", "Phone", nullptr, {kPlace}, {kDedicated}, "Phone +1 999,,5550002#"},
      {"a place behind the same word", "Phone 1", nullptr, {kPlace}, {kDedicated}, "Phone 1 +1 999,,5550002#"},
      {"a place that the user took out", "Phone 1", "Phone 1", {kPlace}, {kDedicated}, "Phone 1 +1 999,,5550002#"},
      {"a place for no way to dial in", "Room", nullptr, {kPlace}, {kNoDialIn}, "Room"},
      {"a place alone for no way to dial in", "", nullptr, {kPlace}, {kNoDialIn}, ""},
      {"a place with words behind it", "Phone 1", "Phone 1 Phone, ask", {kPlace}, {kPlace}, "Phone 1  ask Phone"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    openWindow();
    show(row.before);
    clientTells(row.first);
    add(1);
    if (row.meanwhile) show(row.meanwhile);
    clientTells(row.second);
    add(1);
    EXPECT_EQ(location(), row.after);
    manager().cleanup();
  }
  show("Room");
  clientTells({kPlace});
  add(1);
  clientTells({});
  EXPECT_EQ(audio().getNewLocationForPAC("Room Phone"), "Room Phone") << "a store, which leaves the body, too";
  // Another appointment in the same window has nothing of it.
  const HostObject series = test.classRuntime.create(
      "ECCalendarEvent", std::make_shared<Value>(Value::dictionaryFromPairs({{"location", "by Phone or mail"}})));
  window->set(bar()->editor, "content", series);
  window->showLocation("by Phone or mail");
  clientTells({kDedicated});
  add(1);
  EXPECT_EQ((*test.classRuntime.state<Value>(series))["location"].text(), "by Phone or mail +1 999,,5550002#");
}

}  // namespace
}  // namespace vorn
