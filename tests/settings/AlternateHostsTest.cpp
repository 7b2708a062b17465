// Alternate hosts: what typing, pasting and choosing make of them, and what a commit takes.

#include "platform/UserDefaults.h"
#include "settings/VNAlternateHostHelper.h"
#include "settings/rules/AlternateHosts.h"
#include "settings/rules/TokenWords.h"
#include "tests/settings/TokenFieldFixture.h"

namespace vorn {
namespace {

using namespace panel_rules;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kHosts = "alternateHostTextField";
constexpr const char* kHostList = "alternateHostSearchListWindow";

// As the service's test, roughly: it lets semicolons and commas pass before the "@".
bool isAddress(const std::string& text) {
  const std::size_t at = text.find('@');
  return at != std::string::npos && at > 0 && at + 1 < text.size() &&
         text.find_first_of(" @;,<>", at + 1) == std::string::npos && text.find(' ') == std::string::npos;
}

TokenPiece host(const std::string& email) { return {.chip = chipOf({.email = email})}; }
TokenPiece words(const std::string& text) { return {.text = text}; }

TEST(AlternateHostRules, WhoIsMeantAndWhatIsAnError) {
  const struct {
    const char* what;
    std::vector<TokenPiece> pieces;
    std::vector<std::string> users;
    bool isError;
    std::size_t caret = SIZE_MAX;
  } rows[] = {
      {"nothing", {}, {}, false},
      {"a chip and a text, once", {host("a@b.c"), words(" a@b.c\n")}, {"a@b.c"}, false},
      {"compared exactly", {host("A@b.c"), host("a@b.c")}, {"A@b.c", "a@b.c"}, false},
      {"in the order of the text", {words("x@y.z "), host("a@b.c")}, {"x@y.z", "a@b.c"}, false},
      {"an empty chip is nobody", {host(""), host("a@b.c")}, {"a@b.c"}, false},
      {"a chip without an address", {host("nobody")}, {"nobody"}, true},
      {"a word that is being typed", {host("a@b.c"), words("bob")}, {"a@b.c"}, true},
      {"and left", {words("bob"), host("a@b.c")}, {"a@b.c"}, true},
      {"and left behind the caret", {host("a@b.c"), words("bob")}, {"a@b.c"}, true, 0},
      {"the caret in an address", {words("x@y.z")}, {"x@y.z"}, true, 1},
      {"a semicolon is no part of an address", {words(";x@y.z")}, {"x@y.z"}, false},
      {"nor joins two", {words("bob;x@y.z")}, {}, true},
      {"a semicolon alone, where one types", {host("a@b.c"), words(";")}, {"a@b.c"}, true},
      {"and elsewhere", {words("; "), host("a@b.c")}, {"a@b.c"}, false},
      {"two in one run", {words("a@b.c x@y.z"), host("q@r.s")}, {"q@r.s"}, true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    TokenText tokens;
    tokens.replace({}, row.pieces);
    tokens.select({row.caret, 0});
    EXPECT_EQ(invitedUsers(tokens, isAddress), row.users);
    EXPECT_EQ(
        hasAlternateHostError(tokens, trimmed(currentToken(tokens).value_or(CurrentToken()).text), isAddress),
        row.isError);
  }
}

TEST(AlternateHostRules, APastedListBecomesChipsAndTheRestStays) {
  const std::pair<const char*, const char*> rows[] = {
      {"a@b.c", "[a@b.c]"},
      {"a@b.c; d@e.f;", "[a@b.c][d@e.f]"},
      {" a@b.c,d@e.f , g~g@h.i\r\nj@k.l\tm@n.o", "[a@b.c][d@e.f][g~g@h.i][j@k.l][m@n.o]"},
      {"bob; a@b.c; tom, ann;x", "bob[a@b.c]tom, ann;x"},
      {"Jane Doe <j@k.l>; \"Doe, John\" <d@e.f>; <g@h.i>", "[Jane Doe][Doe, John][g@h.i]"},
      {"Jane <j@k.l>, Bob <b@k.l>, c@k.l", "[Jane][Bob][c@k.l]"},
      {"j@k.l <j@k.l>", "[j@k.l]"},
      {"J@K.L <j@k.l>", "[J@K.L]"},
      {"x@y.z <j@k.l>", "[x@y.z][j@k.l]"},
      {"Jane j@k.l>; a@b.c", "Jane j@k.l>[a@b.c]"},
      {"Jane <>; bob", "Jane <>; bob"},
      {"x,a@b.c", "[x,a@b.c]"},
      {";;\n, ", ""},
      {"", ""},
  };
  for (const auto& [text, expected] : rows) {
    TokenText tokens;
    tokens.replace({}, pastedHosts(text, isAddress));
    EXPECT_EQ(tokens.inWords(), expected) << text;
  }
  const std::vector<TokenPiece> named = pastedHosts("Jane Doe <j@k.l>", isAddress);
  ASSERT_EQ(named.size(), 1u);
  EXPECT_EQ(named.front().chip->field("email"), "j@k.l");
  EXPECT_EQ(named.front().chip->field("name"), "Jane Doe");
  for (const char* name : {"Jane Doe", "Jane, Doe", "j@old.l", "Jane @ Vorn", "Doe; Jane"}) {
    const std::vector<TokenPiece> back = pastedHosts(chipOf({name, "", "j@k.l"}).written() + "; ", isAddress);
    ASSERT_EQ(back.size(), 1u) << name << ", cut and pasted";
    EXPECT_EQ(back.front().chip->field("email"), "j@k.l");
  }
}

TEST(AlternateHostRules, OffersAttendeesAndThenEarlierHosts) {
  const std::vector<VNAlternateHostCell> attendees = {
      {"Jane", "j@k.l", "j@k.l"}, {"Me", "ME@k.l", "ME@k.l"}, {}, {"", "q@k.l", "q@k.l"}};
  const FoldedEmails existed({"IN@k.l", "Q@k.l"});
  const auto isUserExisted = [&](const std::string& email) { return existed.contains(email); };
  const auto isAttendee = [](const std::string& email) { return FoldedEmails({"j@k.l"}).contains(email); };
  const auto earlier = earlierHosts({"old@k.l", "J@K.L", "me@K.L", "", "in@k.l"}, isAttendee);
  std::vector<std::string> shown;
  for (const auto& users : {attendees, earlier}) {
    for (const auto& each : offeredHosts(users, isUserExisted, "me@k.l")) shown.push_back(rowOf(each));
  }
  EXPECT_THAT(shown, ElementsAre("Jane <j@k.l>", "old@k.l"));
}

TEST(AlternateHostRules, AFieldGrowsWhenItsHostsDoNotFit) {
  // 10 characters and 3 more for each: 102.7 points.
  EXPECT_EQ(requiredExtraHeight({"aaaa@bbb.c"}, 102.8), 0);
  EXPECT_EQ(requiredExtraHeight({"aaaa@bbb.c"}, 102.6), 40);
  EXPECT_EQ(requiredExtraHeight({"aaaa@bbb.c", "a"}, 102.8), 40);
}

class AlternateHostsTest : public TokenFieldTest {
 protected:
  void openPaid() {
    Account account;
    account.set_usertype(2);
    account.set_email("me@vorn.example");
    knowAccount(account);
    open();
  }
  void knowHosts(const std::vector<std::string>& hosts) {
    com::tidemar::webapp::proto::MeetingProto meeting;
    for (const std::string& each : hosts) {
      auto& added = *meeting.add_alternatehosts();
      added.set_id("id of " + each);
      added.set_email(each);
    }
    knowMeeting();
    window->manager->getMeetingHelper()->setPBMeetingData(EncodeUtils::base64Encode(meeting.SerializeAsString()));
  }
  std::vector<std::string> hostsOfRecord() {
    std::vector<std::string> hosts;
    const Value list = settings()[vn_Setting_AlternateHosts];
    for (const Value& each : list.items()) hosts.push_back(each.text());
    return hosts;
  }
};

TEST_F(AlternateHostsTest, AreKeptWhereNobodyIsShownThem) {
  knowHosts({"a@vorn.example"});
  open();
  click("buttonContinue");
  EXPECT_THAT(hostsOfRecord(), ElementsAre("a@vorn.example"));
}

TEST_F(AlternateHostsTest, TypingMakesChipsOfAddressesAfterAMoment) {
  openPaid();
  keyIn(kHosts, "a@vorn.example ");
  EXPECT_EQ(tokens(kHosts), "a@vorn.example ");
  test.runLoop.runUntil([] { return false; }, 0.09);
  EXPECT_EQ(tokens(kHosts), "a@vorn.example ");
  waitForChips();
  EXPECT_EQ(tokens(kHosts), "[a@vorn.example]");
  keyIn(kHosts, "bob;");
  waitForChips();
  EXPECT_EQ(tokens(kHosts), "[a@vorn.example]bob;");
  EXPECT_FALSE(mayContinue());
  for (int i = 0; i < 4; ++i) press(kHosts, Key::deleteBackward);
  EXPECT_TRUE(mayContinue());
  keyIn(kHosts, "me@vorn.example;");
  waitForChips();
  EXPECT_THAT(hostsOfRecord(), ElementsAre("a@vorn.example", "me@vorn.example")) << "oneself may be typed";
}

TEST_F(AlternateHostsTest, WhoTypesFastLosesNothing) {
  openPaid();
  keyIn(kHosts, "a@vorn.example b@vorn.example; c");
  EXPECT_EQ(tokens(kHosts), "[a@vorn.example][b@vorn.example] c");
  waitForChips();
  EXPECT_EQ(tokens(kHosts), "[a@vorn.example][b@vorn.example] c");
  keyIn(kHosts, "@vorn.example ");
  EXPECT_EQ(click("buttonContinue"), Use::done);
  EXPECT_THAT(hostsOfRecord(), ElementsAre("a@vorn.example", "b@vorn.example", "c@vorn.example"));
}

TEST_F(AlternateHostsTest, AChipThatComesTooLateTakesNothing) {
  openPaid();
  keyIn(kHosts, "a@vorn.example;");
  press(kHosts, Key::deleteBackward);
  waitForChips();
  EXPECT_EQ(tokens(kHosts), "a@vorn.example");
  edit(kHosts, [](TokenText& text) { text.select({0, SIZE_MAX}), text.type(""); });
  keyIn(kHosts, "b@vorn.example;");
  edit(kHosts, [](TokenText& text) { text.select({0, SIZE_MAX}), text.type(""); });
  waitForChips();
  EXPECT_EQ(tokens(kHosts), "");
}

TEST_F(AlternateHostsTest, ThePeopleInTheListAreWalkedThroughAndChosen) {
  window->invite("Jane", 0);
  window->invite("Bob", 0);
  window->invite("me", 0);
  openPaid();
  EXPECT_THAT(rows(kHostList), IsEmpty());
  keyIn(kHosts, "x");
  EXPECT_THAT(rows(kHostList), ElementsAre("Jane <Jane@vorn.example>", "Bob <Bob@vorn.example>"));
  const auto selected = [this] { return control(std::string(kHostList) + "Rows").index; };
  const std::pair<Key, int> steps[] = {{Key::up, 0}, {Key::down, 1}, {Key::down, 1}, {Key::up, 0}};
  EXPECT_EQ(selected(), 0);
  EXPECT_EQ(control(std::string(kHostList) + "Rows").rowHeight, 26);
  EXPECT_EQ(control(std::string(kHostList) + "Rows").mostRows, 5);
  for (const auto& [key, index] : steps) {
    press(kHosts, key);
    EXPECT_EQ(selected(), index);
    EXPECT_FALSE(control(kHostList).hidden);
  }
  press(kHosts, Key::newLine);
  EXPECT_TRUE(control(kHostList).hidden);
  press(kHosts, Key::newLine);
  EXPECT_EQ(tokens(kHosts), "[Jane]") << "the second one finds no list";
  keyIn(kHosts, "x");
  EXPECT_THAT(rows(kHostList), ElementsAre("Bob <Bob@vorn.example>"));
  EXPECT_EQ(choose(std::string(kHostList) + "Rows", 0), Use::done);
  waitForChips();
  EXPECT_EQ(tokens(kHosts), "[Jane][Bob]");
  EXPECT_THAT(hostsOfRecord(), ElementsAre("Jane@vorn.example", "Bob@vorn.example"));
  keyIn(kHosts, "x");
  EXPECT_TRUE(control(kHostList).hidden) << "nobody is left";
  VNAlternateHostHelper::sharedInstance().addToInputAlternateHostHistory(Value::Array{"Ann@vorn.example"});
  window->invite("Ann", 0);
  keyIn(kHosts, "y");
  EXPECT_THAT(rows(kHostList), ElementsAre("Ann <Ann@vorn.example>"));
  for (const HostObject& of : {window->bar->event, window->bar->editor}) {
    window->set(of, "attendeeList", Value::array());
  }
  keyIn(kHosts, "z");
  EXPECT_THAT(rows(kHostList), ElementsAre("Ann@vorn.example")) << "she is no attendee any more";
}

TEST_F(AlternateHostsTest, TheListGoesWithTheWordTheTabAndAnyOtherPress) {
  VNAlternateHostHelper::sharedInstance().addToInputAlternateHostHistory(Value::Array{"old@vorn.example"});
  openPaid();
  const std::pair<const char*, std::function<void()>> rows[] = {
      {"the word", [this] { press(kHosts, Key::deleteBackward); }},
      {"a separator", [this] { keyIn(kHosts, " "); }},
      {"the tab", [this] { press(kHosts, Key::tab); }},
      {"a press elsewhere", [this] { turn("muteParticipantUponEntry", true); }},
      {"the wheel", [this] { test.presenter.panels().scroll(window->bar->ownWindow); }},
      {"the escape key", [this] { press(kHosts, Key::escape); }}};
  for (const auto& [what, act] : rows) {
    SCOPED_TRACE(what);
    edit(kHosts, [](TokenText& text) { text.select({0, SIZE_MAX}), text.type("x"); });
    EXPECT_FALSE(control(kHostList).hidden);
    act();
    EXPECT_TRUE(control(kHostList).hidden);
  }
  waitForChips();
  EXPECT_EQ(tokens(kHosts), "x") << "none was chosen";
  press(kHosts, Key::tab);
  test.runLoop.runDue();
  EXPECT_FALSE(control(kHosts).isFocused);
  EXPECT_TRUE(control("muteParticipantUponEntry").isFocused) << "what stands below it";
  EXPECT_TRUE(asksAgainFor("muteParticipantUponEntry", [this] { press(kHosts, Key::tab); }));
}

TEST_F(AlternateHostsTest, AreLoadedFromTheMeetingAndGoBackToIt) {
  knowHosts({"a@vorn.example", "b@vorn.example", "a@vorn.example"});
  openPaid();
  waitForChips();
  EXPECT_EQ(tokens(kHosts), "[a@vorn.example][b@vorn.example]");
  EXPECT_TRUE(control(kHostList).hidden);
  keyIn(kHosts, "c@vorn.example bob");
  view().updateUIItemsForNextTime();
  waitForChips();
  EXPECT_EQ(tokens(kHosts), "[a@vorn.example][b@vorn.example][c@vorn.example]bob")
      << "what is typed outlives a loading";
  edit(kHosts, [](TokenText& text) { text.select({0, 1}), text.type(""); });
  view().settingData().setAlternateHosts(Value::Array{"a@vorn.example", "b@vorn.example"});
  view().updateUIItemsForNextTime();
  waitForChips();
  EXPECT_EQ(tokens(kHosts), "[b@vorn.example][c@vorn.example]bob") << "and what is taken out, of any meeting";
  click("buttonCancel");
  open();
  waitForChips();
  EXPECT_EQ(tokens(kHosts), "[a@vorn.example][b@vorn.example]");
  panels.getSchSettingWindowInArray(id())->filterInvalidAlternateHosts(Value::Array{"A@vorn.example"});
  view().updateUIItemsForNextTime();
  view().updateUIItemsForNextTime();
  waitForChips();
  EXPECT_EQ(tokens(kHosts), "[b@vorn.example]");
}

TEST_F(AlternateHostsTest, ThousandsOfHostsAreNoTrouble) {
  std::vector<std::string> many;
  for (int i = 0; i < 10'000; ++i) many.push_back("h" + std::to_string(i) + "@vorn.example");
  knowHosts(many);
  openPaid();
  EXPECT_EQ(control(kHosts).extraHeight, 40) << "at once";
  waitForChips();
  std::string list;
  for (const std::string& each : many) list += "x" + each + "; ";
  edit(kHosts, [&](TokenText& text) { text.paste(list); });
  EXPECT_EQ(control(kHosts).tokens.chips().size(), 20'000u);
  EXPECT_EQ(hostsOfRecord().size(), 20'000u);
}

TEST_F(AlternateHostsTest, TheHistoryHasEverybodyOnce) {
  VNAlternateHostHelper& helper = VNAlternateHostHelper::sharedInstance();
  const int before = test.userDefaults.synchronized;
  helper.addToInputAlternateHostHistory("");
  alternateHostHistory()->addToInputAlternateHostHistory(Value::Array{"a@b.c", "", "A@b.c", "d@e.f"});
  alternateHostHistory()->addToInputAlternateHostHistory(Value::Array{"D@E.F", "g@h.i"});
  EXPECT_EQ(test.userDefaults.objectForKey("InputAlternateHostHistory"),
            Value(Value::Array{"a@b.c", "d@e.f", "g@h.i"}));
  EXPECT_EQ(test.userDefaults.synchronized, before + 2);
}

}  // namespace
}  // namespace vorn
