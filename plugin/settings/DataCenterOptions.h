#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "settings/PanelParts.h"
#include "settings/rules/DataCenterRules.h"

namespace vorn {

// The additional data centres through which a meeting's media may go, with a check button for each that is
// offered.
//
// Main thread only.
class DataCenterOptions {
 public:
  explicit DataCenterOptions(const PanelParts& panel);

  void initWithLocalString();

  // The step of loading. The warning that nothing is chosen is no more.
  void load();
  void initDataCenterRegionsBox();
  // The tip that countries were taken away because of the centres.
  void updateDataCenterImpactCountriesTipViewUI(bool isHidden) { m_tipView.hidden = isHidden; }

  // What the user has changed; nothing for a control that is not this group's.
  void userChanged(std::string_view key);

  // False when centres are wanted and none is chosen.
  bool getDataCenterIfSelected() const;
  // Warns of it, in this panel and in every other one that shows its centres from now on.
  void resetDataCenterBoxUI();

 private:
  // What the account, or the person, offers can be told.
  bool isKnown() const;
  Value offered() const;
  bool isSupported() const;
  void getDataCenterRegions();
  void releaseDataCenterButtons(std::size_t kept);
  void showChoice();
  void showOnceMore();
  void showWarning();
  void showCenters();
  void onClickDataCenterRegionsButton();
  void onClickDataCenterButton(std::size_t entry);

  ControlSet& m_controls;
  vnSettingData& m_record;
  const SettingsContext& m_context;
  PanelSteps& m_steps;
  // As last known.
  Value m_offered;
  // The centres that are offered, and how many of them have a button.
  std::vector<panel_rules::DataCenter> m_dataCenterRegions;
  std::size_t m_buttons = 0;

  Control& m_dataCenterBox;
  Control& m_enableDataCenterRegionsButton;
  Control& m_warning;
  Control& m_tipView;
  Control& m_tipText;
  Control& m_tipLink;
};

}  // namespace vorn
