#pragma once

// Why a control of the settings panel is hidden or cannot be used: for people who give support, and why it cannot
// be used for the user, too. It tells what the rules have decided and decides nothing.

#include "platform/controls/ControlSet.h"
#include "settings/rules/ContinueRule.h"
#include "settings/rules/PlainOptionRules.h"
#include "settings/rules/TextSource.h"

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
  // (the first for oneself, the second for another person; the one that is not asked is true)
  bool isSupportRegionCustomization = false;
  bool isSupportAdditionalDc = false;
  // and of the client.
  bool isVornClientSupport500Tasks = false;
  bool isVornClientSupportEditCountries = false;
  HeldBack heldBackBy{};
};

// Gives each control its reason, which is its own or that of the box or window by which it is off the screen, and
// its note. Time n log n in the controls.
void explain(ControlSet& controls, const PanelSituation& situation, const TextSource& texts);

}  // namespace vorn::panel_rules
