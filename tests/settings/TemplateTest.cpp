// The meeting template: the rules as tables, and the panel.

#include "settings/rules/TemplateRules.h"
#include "tests/settings/PanelFixture.h"
#include "tests/settings/RuleTexts.h"

namespace vorn {
namespace {

using namespace panel_rules;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(TemplateRulesTest, TheBoxIsThereForWhoMayChooseOrHasChosen) {
  const struct {
    const char* name;
    TemplateBoxFacts facts;
    bool hidden;
  } rows[] = {
      {"offered", {.isEnableAdminTemplate = true, .hasTemplates = true}, false},
      {"offered, and there are none", {.isEnableAdminTemplate = true}, true},
      {"a personal meeting",
       {.isPersonalMeeting = true, .isEnableAdminTemplate = true, .hasTemplates = true},
       true},
      {"not offered", {.hasTemplates = true}, true},
      {"an update, not offered", {.isUpdate = true, .hasTemplates = true}, false},
      {"an update, not offered for good",
       {.isUpdate = true, .isLockAdminTemplate = true, .hasTemplates = true},
       true},
      {"an update, offered and locked",
       {.isUpdate = true, .isEnableAdminTemplate = true, .isLockAdminTemplate = true, .hasTemplates = true},
       false},
  };
  for (const auto& row : rows) EXPECT_EQ(templateBoxIsHidden(row.facts), row.hidden) << row.name;
}

TEST(TemplateRulesTest, AnEntryOfThePopupIsATemplateFromTheFourthOn) {
  const MeetingTemplates twice{{"a", "A"}, {"b", std::string(46, 'B')}, {"a", "A again"}, {"", "nameless"}};
  const std::vector<ControlItem> items = templateItems(twice, textOfKey);
  ASSERT_EQ(items.size(), 7u);
  EXPECT_EQ(items[0].title, "Schedule_None");
  EXPECT_TRUE(items[1].isSeparator);
  EXPECT_FALSE(items[2].enabled);
  EXPECT_EQ(items[4].title, std::string(42, 'B') + "...");
  EXPECT_EQ(items[4].toolTip, std::string(46, 'B'));
  for (const int index : {-1, 0, 1, 2, 7, 100}) EXPECT_EQ(templateAt(twice, index), nullptr) << index;
  EXPECT_EQ(templateAt(twice, 3)->name, "A");
  EXPECT_EQ(templateIndex(twice, "a"), 5) << "the last";
  EXPECT_EQ(templateIndex(twice, "gone"), 0);
  EXPECT_EQ(templateIndex(twice, ""), 0) << "no id is no choice";
  EXPECT_EQ(allTemplates({{"a"}}, {"a", "renamed"}), (MeetingTemplates{{"a"}}));
  EXPECT_EQ(allTemplates({{"a"}}, {"b", "B", 2}), (MeetingTemplates{{"a"}, {"b", "B", 2}}));
  EXPECT_EQ(allTemplates({}, {}), MeetingTemplates{});
}

TEST(TemplateRulesTest, TellsOfTheChosenTemplateUntilItIsFoundGone) {
  const MeetingTemplate chosen{"a", "Lesson"};
  const std::string tip = templateTip(chosen, {}, textOfKey).tip.text;
  EXPECT_EQ(tip, "Schedule_Template_TemplatesTip");
  EXPECT_EQ(templateTip(chosen, {.hasFailed = true, .areOthersOffered = true}, textOfKey),
            (TemplateTip{.error = "Schedule_Template_TemplateDisabledTip(Lesson)"}));
  EXPECT_EQ(templateTip(chosen, {.hasFailed = true}, textOfKey),
            (TemplateTip{.error = "Schedule_Template_TemplateOffTip"}));
  for (const bool hasFailed : {true, false}) {
    EXPECT_EQ(templateTip({}, {.hasFailed = hasFailed}, textOfKey), TemplateTip{}) << "of none";
  }
}

class TemplatePanelTest : public SettingsPanelTest {
 protected:
  static Value oneTemplate(const std::string& id, const std::string& name) {
    return Value::dictionaryFromPairs({{vn_Setting_MeetingTemplate_TemplateId, id},
                                       {vn_Setting_MeetingTemplate_TemplateName, name},
                                       {vn_Setting_MeetingTemplate_TemplateType, 2}});
  }
  static void knowTemplates(const Value& templates) {
    knowAccount(accountWith(UserOption5::isEnableAdminTemplate),
                {{vn_Profile_TemplateLinkWithoutId, "https://vorn.example/templates/"},
                 {vn_Profile_MeetingTemplates, templates}});
  }
  // A meeting that has been made with the template.
  void openWith(const std::string& id, const std::string& name) {
    open();
    view().settingData().setTemplateId(id);
    view().settingData().setTemplateName(name);
    view().updateUIItemsForNextTime();
  }
  std::string committedId() {
    return settings()[vn_Setting_MeetingTemplate][vn_Setting_MeetingTemplate_TemplateId].text();
  }

  const Value both = Value::Array{oneTemplate("l", "Lesson"), oneTemplate("r", "Review")};
};

TEST_F(TemplatePanelTest, AChoiceIsToldOfAndCommittedAndNoneTakesNothingAway) {
  knowTemplates(both);
  open();
  EXPECT_FALSE(isOnScreen("templateTipView"));
  EXPECT_EQ(choose("templatePopup", 2), Use::refused) << "the heading";
  choose("templatePopup", 4);
  EXPECT_TRUE(isOnScreen("templateTipText"));
  EXPECT_EQ(click("viewDetailsButton"), Use::done);
  EXPECT_THAT(test.workspace.openedPages, ElementsAre("https://vorn.example/templates/r"));
  click("buttonContinue");
  EXPECT_EQ(settings()[vn_Setting_MeetingTemplate], oneTemplate("r", "Review"));

  open();
  EXPECT_EQ(control("templatePopup").index, 4);
  choose("templatePopup", 0);
  EXPECT_FALSE(isOnScreen("templateTipView"));
  click("buttonContinue");
  EXPECT_EQ(committedId(), "r") << "the service takes no template away";
}

TEST_F(TemplatePanelTest, WhatWasChosenLastIsRememberedForAllPanels) {
  knowTemplates(both);
  open();
  choose("templatePopup", 4);
  const FakeWindow other(test);
  openOn(other);
  choose("templatePopup", 0);
  EXPECT_TRUE(isOnScreen("templateTipText")) << "none is what the other one shows, so nothing has changed";
  choose("templatePopup", 3);
  choose("templatePopup", 0);
  EXPECT_FALSE(isOnScreen("templateTipText"));
}

TEST_F(TemplatePanelTest, TheLastOfTenThousandIsFoundAgain) {
  Value many = Value::array();
  for (int i = 0; i < 10000; ++i) many.append(oneTemplate(std::to_string(i), "Lesson " + std::to_string(i)));
  knowTemplates(many);
  openWith("9999", "Lesson 9999");
  EXPECT_EQ(control("templatePopup").index, 10002);
  choose("templatePopup", 10001);
  click("buttonContinue");
  EXPECT_EQ(committedId(), "9998");
}

TEST_F(TemplatePanelTest, OneThatGoesWhileThePanelIsOpenIsTheOneThatIsTold) {
  knowTemplates(both);
  openWith("l", "Lesson");
  choose("templatePopup", 4);
  knowTemplates(Value::Array{oneTemplate("l", "Lesson")});
  click("buttonContinue");
  ASSERT_NE(shown(), nullptr);
  EXPECT_EQ(control("templatePopup").index, 4);
  EXPECT_THAT(control("templateDeletedTipTextField").text, HasSubstr("“Review”"));
}

TEST_F(TemplatePanelTest, OneThatGoesWithAllOthersHoldsContinueBackNoLongerThanItIsShown) {
  knowTemplates(both);
  open();
  choose("templatePopup", 4);
  knowAccount({});
  click("buttonContinue");
  ASSERT_NE(shown(), nullptr);
  EXPECT_FALSE(isOnScreen("templatePopup") || isOnScreen("templateDeletedTipTextField"));
  EXPECT_EQ(click("buttonContinue"), Use::done);
  EXPECT_EQ(shown(), nullptr);
}

TEST_F(TemplatePanelTest, AForgottenAccountSaysNothingOfTheTemplate) {
  knowTemplates(both);
  openWith("new", "Made this morning");
  vnUserProfileHelper::sharedInstance().clearUserProfile();
  click("buttonContinue");
  EXPECT_EQ(shown(), nullptr);
  EXPECT_EQ(committedId(), "new");
}

}  // namespace
}  // namespace vorn
