#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "platform/controls/ControlSet.h"
#include "settings/SettingsContext.h"

namespace vorn {

// The steps of the panel that reach beyond the group that asks for them. A group changes its own controls alone;
// what follows in others it leaves to these, and it reads the controls of others by their keys.
//
// Main thread only.
class PanelSteps {
 public:
  virtual ~PanelSteps() = default;

  // -- The panel
  // Continue can be used or not.
  virtual void checkScheduleButton() = 0;
  virtual void closeSubWindows() = 0;
  // The control gets the keyboard when the present event is over. Only the last wish counts.
  virtual void makeFirstResponderWithObject(std::string_view key) = 0;

  // -- Security
  virtual void hideRestrictDomainsBox() = 0;
  virtual void resetSecurityErrorTextField() = 0;
  virtual void updatePasswordStateWithJBHChanged() = 0;
  virtual void updateAffectedOptionsForE2ee() = 0;

  // -- Regions and dial-in countries, each of which takes away from the other's
  // The countries go by the region policy and the data centres as they stand.
  virtual void updateEditCountriesOptions(bool fromRegion) = 0;
  virtual void updateAllowDenyImpactCountriesTipViewUI(bool isHidden) = 0;

  // -- Audio watermark, which depends on who may join
  virtual void initAudioWatermarkButton() = 0;
  virtual void initAudioWatermark() = 0;
};

// What all groups of one panel share. The panel owns it all and outlives its groups.
struct PanelParts {
  ControlSet& controls;
  vnSettingData& record;
  const SettingsContext& context;
  PanelSteps& steps;
};

// The text behind a key with its values; what the rules take as their TextSource.
std::string panelText(std::string_view key, std::initializer_list<std::string_view> values = {});

}  // namespace vorn
