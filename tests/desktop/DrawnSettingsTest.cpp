// The settings panel itself, as AppKit draws it for an account that is offered everything, and for one with less.

#include "tests/desktop/DrawnPanelProbe.h"
#include "tests/settings/PanelFixture.h"

namespace vorn {
namespace {

class DrawnSettings : public SettingsPanelTest {
 protected:
  void openFor(std::int64_t options) {
    com::tidemar::webapp::proto::UserProfile account;
    account.set_roommeetingid(5550142871);
    account.set_useroption(options);
    account.set_useroption2(options);
    account.set_useroption3(options);
    account.set_useroption4(options);
    knowAccount(account);
    open();
    layout = test.presenter.panels().layout(window->bar->ownWindow);
    // The rules stand behind the same controls, and hear of a use that has changed them already.
    auto& controls = const_cast<ControlSet&>(*shown());
    drawn = DrawnPanelProbe::draw(layout, controls, [this](const std::string& key) { click(key); });
  }

  PanelLayout layout;
  std::unique_ptr<DrawnPanelProbe> drawn;
};

TEST_F(DrawnSettings, HaveALabelARoleAndRoomForEachControl) {
  for (const std::int64_t options : {std::int64_t{-1}, std::int64_t{0}}) {
    openFor(options);
    int count = 0;
    forEachPlace(layout, [&](const PanelLayout::Place& place) {
      const auto seen = drawn->look(place.key);
      const Control& control = *shown()->find(place.key);
      EXPECT_EQ(seen.isDrawn, control.kind != Control::Kind::box && control.kind != Control::Kind::window)
          << place.key;
      if (!seen.isDrawn) return;
      EXPECT_EQ(seen.isShown, shown()->isOnScreen(place.key)) << place.key;
      EXPECT_FALSE(seen.role.empty()) << place.key;
      EXPECT_FALSE(seen.takesKeyboard && seen.label.empty()) << place.key;
      EXPECT_FALSE(seen.isCutOff) << place.key;
      EXPECT_EQ(seen.liesOver, "") << place.key;
      count += seen.isShown ? 1 : 0;
    });
    EXPECT_GT(count, 12);
    drawn.reset();
  }
}

TEST_F(DrawnSettings, FollowTheirRulesWhenAButtonIsPressed) {
  openFor(0);
  const bool before = drawn->look("passwordTextField").isShown;
  drawn->press("requiredMeetingPswButton");
  EXPECT_NE(drawn->look("passwordTextField").isShown, before);
  drawn->press("requiredMeetingPswButton");
  EXPECT_EQ(drawn->look("passwordTextField").isShown, before);
}

}  // namespace
}  // namespace vorn
