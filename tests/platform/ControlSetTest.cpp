#include "platform/controls/ControlSet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vorn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = Control::Kind;

class ControlSetTest : public testing::Test {
 protected:
  ControlSet controls;
  Control& passcode = controls.add(Kind::checkBox, "requiredMeetingPswButton");
  Control& field = controls.add(Kind::textField, "passwordTextField");
  std::vector<std::vector<std::string>> told;
  std::shared_ptr<void> subscription =
      controls.observe([this](const std::vector<std::string>& keys) { told.push_back(keys); });
};

TEST_F(ControlSetTest, TellsOnceWhatIsDifferentWhenTheOutermostChangeHasEnded) {
  {
    const ControlSet::Change outer(controls);
    field.text = "a";
    {
      const ControlSet::Change inner(controls);
      passcode.on = true;
      field.text = "ab";
    }
    EXPECT_THAT(told, IsEmpty()) << "the step is half done";
    passcode.enabled = false;
  }
  EXPECT_THAT(told, ElementsAre(ElementsAre("requiredMeetingPswButton", "passwordTextField")));
  told.clear();
  {
    const ControlSet::Change back(controls);
    field.text = "abc";
    field.text = "ab";
  }
  EXPECT_THAT(told, IsEmpty()) << "it is what it was";
  subscription.reset();
  {
    const ControlSet::Change change(controls);
    field.hidden = true;
  }
  EXPECT_THAT(told, IsEmpty());
}

TEST_F(ControlSetTest, WhatAnObserverChangesIsToldAfterwards) {
  std::shared_ptr<void> second = controls.observe([this](const std::vector<std::string>&) {
    const ControlSet::Change change(controls);
    field.hidden = passcode.on;
  });
  {
    const ControlSet::Change change(controls);
    passcode.on = true;
  }
  EXPECT_THAT(told, ElementsAre(ElementsAre("requiredMeetingPswButton"), ElementsAre("passwordTextField")));
}

TEST_F(ControlSetTest, AKeyStandsOnceAndKeepsItsPlace) {
  EXPECT_EQ(&controls.add(Kind::checkBox, "requiredMeetingPswButton"), &passcode);
  EXPECT_THAT(controls.keys(), ElementsAre("requiredMeetingPswButton", "passwordTextField"));
  EXPECT_EQ(controls.find("passwordTextField"), &field);
  EXPECT_EQ(controls.find("nobody"), nullptr);
}

TEST(ControlSet, MayEndWhileAChangeStands) {
  auto controls = std::make_unique<ControlSet>();
  controls->add(Kind::label, "text");
  const auto subscription = controls->observe([&controls](const auto&) { controls.reset(); });
  {
    const ControlSet::Change change(*controls);
    controls->find("text")->text = "new";
  }
  EXPECT_EQ(controls, nullptr);
  controls = std::make_unique<ControlSet>();
  const ControlSet::Change change(*controls);
  controls.reset();
}

}  // namespace
}  // namespace vorn
