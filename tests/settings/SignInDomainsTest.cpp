// Who may join, by the way of signing in and by domains: the rules as tables, and the panel with its window.

#include "settings/rules/SignInRules.h"
#include "tests/settings/PanelFixture.h"
#include "tests/settings/RuleTexts.h"
#include "tests/support/Texts.h"

namespace vorn {
namespace {

using panel_rules::allMeetingAuths;
using panel_rules::domainLine;
using panel_rules::firstBadDomain;
using testing::ElementsAre;

Value auth(const char* id, const char* name, int type, const std::string& domains, bool isDefault = false) {
  return Value::dictionaryFromPairs({{vn_Setting_MeetingAuth_AuthId, id},
                                     {vn_Setting_MeetingAuth_AuthName, name},
                                     {vn_Setting_MeetingAuth_AuthType, type},
                                     {vn_Setting_MeetingAuth_AuthDomain, domains},
                                     {vn_Setting_MeetingAuth_DefaultAuth, isDefault}});
}

std::string inShort(const Value& auths) {
  if (auths.isAbsent()) return "none";
  std::string all;
  for (const Value& each : auths.items()) {
    all += each[vn_Setting_MeetingAuth_AuthId].text() + ":" + each[vn_Setting_MeetingAuth_AuthDomain].text() + " ";
  }
  return all;
}

TEST(SignInRulesTest, TheRecordsChoiceIsFoundByIdThenByNameAndOtherwiseCountsAsDeleted) {
  const Value staff = auth("s", "Staff", 1, "a.example");
  const Value named = auth("n", "Pupils", 0, "p.example");
  using List = Value::Array;
  const List both{named, auth("own", "Pupils", 0, "")};
  const Value bare = auth("b", "Guests", 0, "");
  const struct {
    const char* name;
    Value offered;
    const char* id;
    const char* authName;
    int type;
    bool isLocked;
    const char* list;
    bool isDeleted;
    OptionalText newId;
  } rows[] = {
      {"nothing at all", {}, "", "", 0, false, "none", false, {}},
      {"no list, but a choice", {}, "x", "X", 1, false, "x:own ", false, {}},
      {"no list, and locked", {}, "x", "X", 1, true, "none", false, {}},
      {"no choice", List{staff}, "", "Staff", 1, false, "s:a.example ", false, {}},
      {"the same id: its own domains", List{named, staff}, "s", "", 1, false, "n:p.example s:own ", false, {}},
      {"locked: the account's domains", List{staff}, "s", "Staff", 1, true, "s:a.example ", false, {}},
      {"the same name", List{staff, named}, "old", "Pupils", 0, false, "s:a.example n:p.example ", false, "n"},
      {"the same id, a namesake", both, "own", "Pupils", 0, false, "n:p.example own:own ", false, {}},
      {"the same name without domains", List{bare}, "old", "Guests", 0, false, "b: old:own ", true, {}},
      {"the same name, another type", List{staff}, "old", "Staff", 0, false, "s:a.example old:own ", true, {}},
      {"deleted", List{staff}, "old", "Old", 1, false, "s:a.example old:own ", true, {}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const MeetingOptions record{
        .authId = row.id, .authName = row.authName, .authDomain = "own", .authType = row.type};
    const auto all = allMeetingAuths(row.offered, record, row.isLocked);
    EXPECT_EQ(inShort(all.list), row.list);
    EXPECT_EQ(all.isIncludeDeletedAuthDomain, row.isDeleted);
    EXPECT_EQ(all.newAuthId, row.newId);
  }
}

TEST(SignInRulesTest, LongDomainsAreCountedAndCutAndLockedOnesCanOnlyBeSeen) {
  const std::string atMost(45, 'd');
  const std::string longer = "one.example;two.example,three.example;four.example";
  const struct {
    int type;
    std::string domains;
    bool isLocked, textIsShown;
    const char* link;
  } rows[] = {
      {0, "a.example", false, false, ""},
      {1, "", false, true, "Schedule_SignInDomain_Edit"},
      {1, atMost, false, true, "Schedule_SignInDomain_Edit"},
      {1, atMost, true, true, ""},
      {1, longer, false, true, "Schedule_SignInDomain_ViewEdit(4)"},
      {1, longer, true, true, "Schedule_SignInDomain_ViewEdit_Lock(4)"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.domains);
    const auto line = domainLine(auth("i", "n", row.type, row.domains), row.isLocked, textOfKey);
    EXPECT_EQ(line.textIsShown, row.textIsShown);
    EXPECT_EQ(line.linkIsShown, *row.link != '\0');
    EXPECT_EQ(line.linkIsShown ? line.link : "", row.link);
  }
  // Text and link share a line.
  for (const auto& [linkLength, kept] : {std::pair(30, 42), {31, 27}}) {
    const auto link = [length = linkLength](auto, auto) {
      return std::string(static_cast<std::size_t>(length), 'v');
    };
    const auto cut = domainLine(auth("i", "n", 1, longer), false, link).text;
    EXPECT_EQ(cut, (ShownText{longer.substr(0, static_cast<std::size_t>(kept)) + "...", longer}));
  }
}

TEST(SignInRulesTest, TheFirstBadPieceIsFoundAtItsOwnOffset) {
  const auto isGood = [](const std::string& piece) { return piece == "ok" || piece == "🙂"; };
  const struct {
    const char* domains;
    const char* separators;
    std::optional<TextRange> bad;
  } rows[] = {
      {"", ";,", {}},
      {",;,", ";,", {}},
      {"ok,,ok;", ";,", {}},
      {"bad", ";,", TextRange{0, 3}},
      {"ok;bad,worse", ";,", TextRange{3, 3}},
      {"🙂, bad", ";,", TextRange{3, 4}},
      {"ok;ok,", ";", TextRange{3, 3}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(firstBadDomain(row.domains, row.separators, isGood), row.bad) << row.domains;
  }
}

class SignInPanelTest : public SettingsPanelTest {
 protected:
  void knowAuths(Value::Array auths, bool isLocked = false) {
    knowProfile({{vn_Profile_SupportOnlyAuthUsersCanJoin, true},
                 {vn_Profile_LockOnlyAuthUsersCanJoin, isLocked},
                 {vn_Profile_DefaultEnableOnlyAuthUsersCanJoin, isLocked},
                 {vn_Profile_MeetingAuths, std::move(auths)}});
  }
  void knowAuthOfMeeting(const char* id, const char* name) {
    Value meeting = auth(id, name, 1, "own.example");
    meeting.erase(vn_Setting_MeetingAuth_DefaultAuth);
    recordsAuth = meeting;
  }
  void openWithRecord() {
    open();
    if (recordsAuth.isAbsent()) return;
    vnSettingData& record = view().settingData();
    record.setIsSignedInUsersMeetingOn(true);
    record.setAuthId(recordsAuth[vn_Setting_MeetingAuth_AuthId].text());
    record.setAuthName(recordsAuth[vn_Setting_MeetingAuth_AuthName].text());
    record.setAuthType(1);
    record.setAuthDomain("own.example");
    view().updateUIItemsForNextTime();
  }
  Value committed() { return settings()[vn_Setting_MeetingAuth]; }

  const Value staff = auth("s", "Staff", 1, "a.example");
  const Value pupils = auth("p", "Pupils", 1, "p.example", true);
  const Value guests = auth("g", "Guests", 0, "");
  Value recordsAuth;
};

TEST_F(SignInPanelTest, OffersTheChoicesWithTheirDomainsAndCommitsTheOneThatIsShown) {
  knowAuths({staff, pupils, guests});
  open();
  EXPECT_FALSE(isOnScreen("authNamePopup") || isOnScreen("domainText") || isOnScreen("viewEditButton"));
  turn("onlySignedinWithSpecifiedDomains", true);
  EXPECT_EQ(control("authNamePopup").index, 1) << "the account's default";
  EXPECT_EQ(control("domainText").text, "p.example");
  EXPECT_TRUE(isOnScreen("domainText"));
  choose("authNamePopup", 2);
  EXPECT_FALSE(isOnScreen("domainText") || isOnScreen("viewEditButton"));
  choose("authNamePopup", 0);
  EXPECT_EQ(control("viewEditButton").text, "Edit");
  turn("onlySignedinWithSpecifiedDomains", false);
  turn("onlySignedinWithSpecifiedDomains", true);
  EXPECT_EQ(control("authNamePopup").index, 0) << "what was chosen outlasts the switch";
  view().initializeItems();
  EXPECT_TRUE(control("onlySignedinWithSpecifiedDomains").on);
  EXPECT_EQ(control("authNamePopup").index, 0) << "and the next load";
  click("buttonContinue");
  EXPECT_EQ(committed()[vn_Setting_MeetingAuth_AuthId], Value("s"));
  EXPECT_EQ(committed()[vn_Setting_MeetingAuth_AuthName], Value("Staff"));
  EXPECT_EQ(committed()[vn_Setting_MeetingAuth_AuthType], Value(1));
  view().commitStands();
  open();
  click("viewEditButton");
  type("_domainsTextField", "dismissed.example");
  click("domains_SaveBtn");
  choose("authNamePopup", 2);
  click("buttonCancel");
  open();
  EXPECT_EQ(control("authNamePopup").index, 0) << "a dismissed choice is none";
  EXPECT_EQ(control("domainText").text, "a.example");
}

TEST_F(SignInPanelTest, ASingleChoiceStandsInTheTitle) {
  knowAuths({staff});
  open();
  turn("onlySignedinWithSpecifiedDomains", true);
  EXPECT_EQ(control("onlySignedinWithSpecifiedDomains").text, "Only signed-in users can join: Staff");
  EXPECT_TRUE(control("authNamePopup").hidden);
  EXPECT_EQ(control("domainText").text, "a.example");
  click("buttonContinue");
  EXPECT_EQ(committed()[vn_Setting_MeetingAuth_AuthId], Value("s"));
}

TEST_F(SignInPanelTest, ADeletedChoiceStaysInTheListWithAWarning) {
  knowAuths({staff, pupils});
  knowAuthOfMeeting("old", "Old ones");
  openWithRecord();
  EXPECT_EQ(control("authNamePopup").items.size(), 3u);
  EXPECT_EQ(control("authNamePopup").index, 2);
  ASSERT_TRUE(isOnScreen("deleteDomainWarning"));
  EXPECT_THAT(control("deleteDomainWarning").text, testing::HasSubstr("“Old ones”"));
  choose("authNamePopup", 0);
  EXPECT_FALSE(isOnScreen("deleteDomainWarning"));
  const FakeWindow other(test);
  openOn(other);
  choose("authNamePopup", 2);
  EXPECT_FALSE(isOnScreen("deleteDomainWarning")) << "the panel that was opened last has none, for all of them";
  click("buttonContinue");
  EXPECT_EQ(committed()[vn_Setting_MeetingAuth_AuthId], Value("old"));
}

TEST_F(SignInPanelTest, TheChoiceOutlastsAnAccountThatIsForgottenWhileThePanelIsOpen) {
  knowAuths({staff, pupils});
  open();
  turn("onlySignedinWithSpecifiedDomains", true);
  choose("authNamePopup", 0);
  vnUserProfileHelper::sharedInstance().clearUserProfile();
  view().userChanged("onlySignedinWithSpecifiedDomains");
  click("buttonContinue");
  EXPECT_EQ(committed()[vn_Setting_MeetingAuth_AuthId], Value("s"));
}

TEST_F(SignInPanelTest, DomainsAreEditedInAWindowThatKeepsWhatIsNoDomain) {
  knowAuths({staff, pupils});
  open();
  turn("onlySignedinWithSpecifiedDomains", true);
  click("viewEditButton");
  ASSERT_TRUE(isOnScreen("_domainsTextField"));
  EXPECT_EQ(control("_domainsTextField").text, "p.example");
  EXPECT_EQ(control("_domainsTextField").placeholder, "If no domains specified, any signed-in users can join.");

  const struct {
    const char* typed;
    std::optional<TextRange> bad;
    const char* saved;
  } rows[] = {
      {"a.example;*.;b.example", TextRange{10, 2}, "p.example"},
      {"a.example, no domain", TextRange{10, 10}, "p.example"},
      {"*.*.B.example ; c.example,", {}, "*.*.B.example;c.example,"},
      {"*.example", TextRange{0, 9}, "*.*.B.example;c.example,"},
      {"", {}, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.typed);
    if (!isOnScreen("domainsWindow")) click("viewEditButton");
    type("_domainsTextField", row.typed);
    EXPECT_FALSE(control("_domainsTextField").errorRange);
    click("domains_SaveBtn");
    EXPECT_EQ(control("_domainsTextField").errorRange, row.bad);
    EXPECT_EQ(isOnScreen("_domainsErrorLabel"), row.bad.has_value());
    EXPECT_EQ(isOnScreen("domainsWindow"), row.bad.has_value());
    EXPECT_EQ(control("domainText").text, row.saved);
  }
  click("viewEditButton");
  type("_domainsTextField", "given.up");
  click("domains_cancelBtn");
  EXPECT_FALSE(isOnScreen("domainsWindow"));
  click("viewEditButton");
  panels.refreshSettingWindow(id(), false);
  EXPECT_FALSE(isOnScreen("domainsWindow")) << "they are another meeting's now";
  turn("onlySignedinWithSpecifiedDomains", false);
  turn("onlySignedinWithSpecifiedDomains", true);
  view().initializeItems();
  click("buttonContinue");
  EXPECT_EQ(committed()[vn_Setting_MeetingAuth_AuthDomain], Value("")) << "any signed-in user may join";
  EXPECT_EQ(committed()[vn_Setting_MeetingAuth_AuthId], Value("p"));
}

TEST_F(SignInPanelTest, ManyDomainsAreTriedInTimeLinearInThem) {
  knowAuths({pupils});
  open();
  turn("onlySignedinWithSpecifiedDomains", true);
  const std::string good = repeated("a.example;", 6554);
  for (const bool isGood : {false, true}) {
    click("viewEditButton");
    type("_domainsTextField", isGood ? good : good + "*.");
    click("domains_SaveBtn");
    EXPECT_EQ(isOnScreen("domainsWindow"), !isGood);
    const auto bad = isGood ? std::nullopt : std::optional(TextRange{good.size(), 2});
    EXPECT_EQ(control("_domainsTextField").errorRange, bad);
    click("domains_cancelBtn");
  }
  click("buttonContinue");
  EXPECT_EQ(committed()[vn_Setting_MeetingAuth_AuthDomain], Value(good));
}

TEST_F(SignInPanelTest, OtherDomainsReachNoOtherPanel) {
  knowAuths({staff, pupils});
  open();
  turn("onlySignedinWithSpecifiedDomains", true);
  const FakeWindow other(test);
  openOn(other);
  auto& host = test.presenter.panels();
  host.use(other.bar->ownWindow, "onlySignedinWithSpecifiedDomains", [](Control& it) { it.on = true; });
  click("viewEditButton");
  type("_domainsTextField", "mine.example");
  click("domains_SaveBtn");
  EXPECT_EQ(control("domainText").text, "mine.example");
  test.notificationCenter.post(notify_Schedule_AuthDomainChanged, &view().controls(), staff);
  EXPECT_EQ(control("authNamePopup").index, 0) << "the one that was edited is the one that is chosen";
  EXPECT_EQ(host.on(other.bar->ownWindow)->find("domainText")->text, "p.example");
}

TEST_F(SignInPanelTest, WhatTheAccountHasLockedCanBeSeenAndNotSaved) {
  const std::string many = "one.example,two.example,three.example,four.example";
  knowAuths({staff, auth("l", "Long", 1, many, true)}, true);
  knowAuthOfMeeting("s", "Staff");
  openWithRecord();
  EXPECT_EQ(turn("onlySignedinWithSpecifiedDomains", false), Use::disabled);
  EXPECT_EQ(control("authNamePopup").index, 1) << "the account's, not the meeting's";
  EXPECT_EQ(control("viewEditButton").text, "View all 4 domains");
  click("viewEditButton");
  EXPECT_FALSE(isOnScreen("domains_SaveBtn"));
  EXPECT_EQ(type("_domainsTextField", "x"), Use::disabled);
  EXPECT_EQ(click("domains_cancelBtn"), Use::done);
}

}  // namespace
}  // namespace vorn
