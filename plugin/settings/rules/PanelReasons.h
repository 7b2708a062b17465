#pragma once

// Why a control of the settings panel is hidden or cannot be used, for people who give support. It tells what the
// rules have decided and decides nothing.

#include <string>

#include "platform/controls/ControlSet.h"
#include "settings/rules/PlainOptionRules.h"

namespace vorn::panel_rules {

// What the reasons depend on besides the controls, at one moment.
struct PanelSituation {
  OptionFacts facts{};
  // The record is the personal meeting's; the appointment is a series.
  bool usePMI = false;
  bool isEnableRecurrence = false;
  // What the groups ask besides, each named after the accessor or the predicate that answers: of the account,
  bool isSupportOnlyAuthUsersCanJoin = false;
  bool isShowUseWebSettingTipView = false;
  bool isEnableScheduleFor = false;
  bool isDisablePMI = false;
  bool isEnableAdminTemplate = false;
  bool isSupportRegionCustomization = false;
  // and of the client.
  bool isVornClientSupport500Tasks = false;
  bool isVornClientSupportEditCountries = false;
  // What keeps Continue from being used; "" when nothing does.
  std::string heldBackBy{};
};

// Gives each control its reason: its own, or that of the box or window by which it is off the screen. Time n log n
// in the controls.
void explain(ControlSet& controls, const PanelSituation& situation);

}  // namespace vorn::panel_rules
