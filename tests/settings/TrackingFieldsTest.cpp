// The tracking fields of an account in the panel.

#include "settings/rules/TrackingFieldRules.h"
#include "tests/settings/PanelFixture.h"

namespace vorn {
namespace {

using namespace panel_rules;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(TrackingFieldRulesTest, OffersWhatStandsBetweenTheSeparators) {
  EXPECT_THAT(offeredTrackingValues(""), IsEmpty());
  EXPECT_THAT(offeredTrackingValues("a^^^b"), ElementsAre("a", "b"));
  EXPECT_THAT(offeredTrackingValues("a^^b^^^^c^^^"), ElementsAre("a^^b", "^c", ""));
  EXPECT_EQ(offeredTrackingValues(std::string(65536, '^')).size(), 21846u);
}

TEST(TrackingFieldRulesTest, IsADictionaryWithAllItsKeysWhateverItCameFrom) {
  const Value whole = trackingFieldWith(trackingFieldOf(Value::dictionaryFromPairs({{"id", "7"}})), "x");
  EXPECT_EQ(
      whole,
      Value::dictionaryFromPairs(
          {{"id", "7"}, {"trackingField", ""}, {"trackingValue", ""}, {"mtValue", "x"}, {"required", false}}));
  EXPECT_EQ(trackingFieldOf(whole).mtValue, "x");
}

class TrackingFieldsPanelTest : public SettingsPanelTest {
 protected:
  struct Field {
    const char* id;
    const char* label;
    const char* values;
    const char* chosen;
    bool required;
  };
  static constexpr Field kDepartment{"1", "Department", "Sales^^^Research", "Research", true};
  static constexpr Field kCostCentre{"2", "Cost centre", "", "", false};

  static void know(const std::vector<Field>& fields) {
    Account account;
    for (const Field& field : fields) {
      auto* made = account.add_trackingfields();
      made->set_id(field.id);
      made->set_trackfield(field.label);
      made->set_trackvalue(field.values);
      made->set_mtvalue(field.chosen);
      made->set_required(field.required);
    }
    knowAccount(account);
  }
  static std::string box(int number) { return "trackingFieldItem" + std::to_string(number) + "._comboBox"; }
  const std::string& value(int number) { return control(box(number)).text; }
  Value committed() {
    click("buttonContinue");
    return settings()[vn_Setting_TrackingFields];
  }
};

TEST_F(TrackingFieldsPanelTest, ShowsEachFieldWithItsValues) {
  know({kDepartment, kCostCentre, {"3", "Old", "a", "no longer offered", false}});
  open();
  EXPECT_EQ(control("trackingFieldItem0._label").text, "Department:");
  EXPECT_TRUE(control("trackingFieldItem0._optionalLabel").hidden);
  EXPECT_EQ(control("trackingFieldItem1._optionalLabel").text, "(Optional)");
  EXPECT_FALSE(control("trackingFieldItem1._optionalLabel").hidden);
  EXPECT_THAT(control(box(0)).items, ElementsAre(ControlItem("Sales"), ControlItem("Research")));
  EXPECT_EQ(value(0), "Research");
  EXPECT_EQ(control(box(0)).index, 1);
  EXPECT_EQ(value(1), "");
  EXPECT_EQ(value(2), "no longer offered");
  EXPECT_EQ(control(box(2)).index, -1);
}

TEST_F(TrackingFieldsPanelTest, TakesAnOfferedValueOrOneOfTheUsersOwn) {
  know({kDepartment, kCostCentre});
  open();
  choose(box(0), 0);
  EXPECT_EQ(value(0), "Sales");
  type(box(0), "Sales and more");
  choose(box(0), 0);
  EXPECT_EQ(value(0), "Sales") << "the entry that was chosen before";
  EXPECT_EQ(type(box(1), std::string(50, 'x')), Use::done);
  EXPECT_EQ(type(box(1), std::string(51, 'x')), Use::refused);
  type(box(1), " \n 4711 ");
  EXPECT_EQ(committed(), Value(Value::Array{Value::dictionaryFromPairs({{"id", "1"},
                                                                        {"trackingField", "Department"},
                                                                        {"trackingValue", "Sales^^^Research"},
                                                                        {"mtValue", "Sales"},
                                                                        {"required", true}}),
                                            Value::dictionaryFromPairs({{"id", "2"},
                                                                        {"trackingField", "Cost centre"},
                                                                        {"trackingValue", ""},
                                                                        {"mtValue", "4711"},
                                                                        {"required", false}})}));
}

TEST_F(TrackingFieldsPanelTest, WithoutAnyTheBoxIsHiddenAndTheRecordIsLeftAlone) {
  know({});
  open();
  EXPECT_TRUE(control("trackingFieldsBox").hidden);
  EXPECT_TRUE(mayContinue());
  const Value kept = Value::Array{Value::dictionaryFromPairs({{"id", "9"}})};
  view().settingData().setTrackingFields(kept);
  EXPECT_EQ(committed(), kept);
}

// What was typed is the user's until the panel ends, whatever is loaded meanwhile.
TEST_F(TrackingFieldsPanelTest, KeepsWhatWasTypedWhileThePanelIsLoadedAgain) {
  know({kDepartment, kCostCentre});
  open();
  type(box(1), "4711");
  panels.refreshSettingWindow(id(), false);
  EXPECT_EQ(value(1), "4711");
  click("buttonCancel");
  open();
  EXPECT_EQ(value(1), "");
  type(box(1), "4712");
  click("buttonContinue");
  open();
  EXPECT_EQ(value(1), "4712");
  // The commit has asked for the account once more.
  know({kDepartment, kCostCentre});
  panels.refreshSettingWindow(id(), false);
  EXPECT_EQ(value(1), "4712") << "as committed";
}

TEST_F(TrackingFieldsPanelTest, TheMeetingsValuesGoToTheFieldsOfTheirIds) {
  know({kDepartment, {"2", "Twice", "", "first", false}, {"2", "Twice", "", "second", false}});
  window->manager->meetingDataMgr()->setMeetingKey("91234567890");
  const auto field = [](const char* id, const Value& value) {
    return Value::dictionaryFromPairs({{"id", id}, {"mtValue", value}});
  };
  const Value info = Value::dictionaryFromPairs(
      {{vn_Setting, Value::dictionaryFromPairs(
                        {{vn_Setting_TrackingFields, Value::Array{field("1", std::string(60, 'w')),
                                                                  field("8", "?"), field("2", "both")}}})}});
  open();
  view().settingData().initWithSiteMeetingInfo(info);
  view().initializeItems();
  EXPECT_EQ(value(0), std::string(60, 'w'));
  EXPECT_EQ(value(1), "both");
  EXPECT_EQ(value(2), "second") << "the id is the first one's";
  choose(box(0), 0);
  EXPECT_EQ(value(0), "Sales") << "a value that is too long to be typed can be replaced";
}

TEST_F(TrackingFieldsPanelTest, ThousandsOfFieldsAreOpenedAndCommitted) {
  const std::vector<Field> fields(3000, kCostCentre);
  know(fields);
  open();
  EXPECT_EQ(type(box(2999), "last"), Use::done);
  EXPECT_EQ(committed().at(2999)["mtValue"], Value("last"));
}

}  // namespace
}  // namespace vorn
