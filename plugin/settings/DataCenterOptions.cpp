#include "settings/DataCenterOptions.h"

#include <algorithm>

#include "channel/discovery/vnClientFeatureMgr.h"
#include "data/vnGetScheduleForListHelper.h"
#include "data/vnUserProfileHelper.h"
#include "platform/Registry.h"
#include "platform/Workspace.h"
#include "platform/controls/NumberedKey.h"
#include "settings/HelpLinks.h"
#include "settings/SettingsFlags.h"
#include "settings/rules/ControlKeys.h"
#include "settings/rules/LongTexts.h"

namespace vorn {

using Kind = Control::Kind;
using namespace panel_rules;

namespace {

constexpr const char* kDataCenterBox = "dataCenterBox";
constexpr const char* kDataCenterTip = "dataCenterImpactCountriesTipView";
constexpr std::string_view kButton = "dataCenterButton";
// The tags 0 and 1 are the switch's and the warning's.
constexpr std::size_t kFirstTag = 2;

std::string buttonKey(std::size_t entry) { return numberedKey(kButton, entry + kFirstTag); }

}  // namespace

DataCenterOptions::DataCenterOptions(const PanelParts& panel)
    : m_controls(panel.controls),
      m_record(panel.record),
      m_context(panel.context),
      m_steps(panel.steps),
      m_dataCenterBox(m_controls.add(Kind::box, kDataCenterBox)),
      m_enableDataCenterRegionsButton(
          m_controls.add(Kind::checkBox, control_key::enableDataCenterRegionsButton, kDataCenterBox)),
      m_warning(m_controls.add(Kind::label, "dataCenterNotSelectTextField", kDataCenterBox)),
      m_tipView(m_controls.add(Kind::box, kDataCenterTip)),
      m_tipText(m_controls.add(Kind::label, "dataCenterImpactCountriesTipText", kDataCenterTip)),
      m_tipLink(m_controls.add(Kind::link, "dataCenterImpactCountriesTipLink", kDataCenterTip)) {
  m_warning.hidden = true;
  m_tipView.hidden = true;
}

void DataCenterOptions::initWithLocalString() {
  const ShownText title =
      shownText(LongText::optionTitle, panelText("LN_Schedule_Enable_DataCenterRegion_151084"));
  m_enableDataCenterRegionsButton.text = title.text;
  m_enableDataCenterRegionsButton.toolTip = title.toolTip;
  m_warning.text = panelText("LN_Schedule_Enable_DataCenterRegion_NotSelect_151084");
  m_tipText.text = panelText("LN_Schedule_DataCenter_ImpactText");
  m_tipLink.text = panelText("LN_Schedule_DataCenter_ImpactLink");
}

// -- Loading -----------------------------------------------------------------------------------------------------

void DataCenterOptions::load() {
  SettingsFlags::shared().isCheckedScheduleButton = false;
  initDataCenterRegionsBox();
}

bool DataCenterOptions::isKnown() const {
  return SettingsContext::profile().knows(m_steps.getUIScheduleForEmail());
}

Value DataCenterOptions::offered() const {
  const std::string person = m_steps.getUIScheduleForEmail();
  return person.empty() ? vnUserProfileHelper::sharedInstance().getWebUncheckedDCInfos()
                        : vnGetScheduleForListHelper::sharedInstance().getWebUncheckedDCInfos(person);
}

bool DataCenterOptions::isSupported() const {
  if (!vnClientFeatureMgr::sharedInstance().isVornClientSupport500Tasks()) return false;
  const std::string person = m_steps.getUIScheduleForEmail();
  return person.empty() ? vnUserProfileHelper::sharedInstance().isSupportRegionCustomization()
                        : vnGetScheduleForListHelper::sharedInstance().isSupportAdditionalDc(person);
}

void DataCenterOptions::getDataCenterRegions() {
  if (isKnown()) m_offered = offered();
  m_dataCenterRegions = dataCenters(m_offered, m_record.arrAdditionalDCRegions());
}

void DataCenterOptions::releaseDataCenterButtons(std::size_t kept) {
  while (m_buttons > kept) m_controls.remove(buttonKey(--m_buttons));
}

void DataCenterOptions::initDataCenterRegionsBox() {
  getDataCenterRegions();
  const bool isOffered = isKnown() && isSupported() && !m_dataCenterRegions.empty();
  m_dataCenterBox.hidden = !isOffered;
  m_enableDataCenterRegionsButton.hidden = !isOffered;
  // Who is not known yet, or no more, may offer them all the same, and the meeting keeps its own until then.
  if (!isOffered && (isKnown() || !vnClientFeatureMgr::sharedInstance().isVornClientSupport500Tasks())) {
    m_record.setEnableRegionCustomization(false);
    m_record.setArrAdditionalDCRegions(Value::array());
  }
  showChoice();
  if (isOffered && (m_context.isForUpdateVornMeeting() || m_controls.isOn(control_key::buttonUsePMI))) {
    m_steps.updateEditCountriesOptions(false);
  }
  updateDataCenterImpactCountriesTipViewUI(true);
}

void DataCenterOptions::showChoice() {
  m_enableDataCenterRegionsButton.on = m_record.enableRegionCustomization();
  showWarning();
  showCenters();
}

// What is on the screen stays while nothing is known of the account, so that the choice can be finished.
void DataCenterOptions::showOnceMore() { isKnown() ? initDataCenterRegionsBox() : showChoice(); }

void DataCenterOptions::showWarning() {
  m_warning.hidden = getDataCenterIfSelected() || !SettingsFlags::shared().isCheckedScheduleButton;
}

void DataCenterOptions::showCenters() {
  const bool isListed = m_enableDataCenterRegionsButton.isShownAndOn();
  const std::size_t count = isListed ? m_dataCenterRegions.size() : 0;
  releaseDataCenterButtons(count);
  for (std::size_t entry = 0; entry < count; ++entry) {
    const DataCenter& center = m_dataCenterRegions[entry];
    Control& button = m_controls.add(Kind::checkBox, buttonKey(entry), kDataCenterBox);
    button.text = dataCenterTitle(center, panelText);
    button.on = center.bChecked;
  }
  m_buttons = count;
}

// -- What the user does ------------------------------------------------------------------------------------------

void DataCenterOptions::userChanged(std::string_view key) {
  if (key == m_enableDataCenterRegionsButton.key) return onClickDataCenterRegionsButton();
  if (key == m_tipLink.key) {
    Registry::platform().workspace->openWebPage(kDataCenterHelpLink);
    return;
  }
  const auto tag = numberOfKey(key, kButton);
  if (tag && *tag >= kFirstTag) onClickDataCenterButton(*tag - kFirstTag);
}

void DataCenterOptions::onClickDataCenterRegionsButton() {
  m_record.setEnableRegionCustomization(m_enableDataCenterRegionsButton.on);
  showOnceMore();
  m_steps.updateEditCountriesOptions(false);
}

// The centre is the one that was on the screen: the account may have come again with another list since. One that
// is offered no more is not chosen, for nothing would be there to leave it by.
void DataCenterOptions::onClickDataCenterButton(std::size_t entry) {
  if (entry >= m_dataCenterRegions.size()) return;
  const std::string clicked = m_dataCenterRegions[entry].dc;
  getDataCenterRegions();
  const auto center = std::find_if(m_dataCenterRegions.begin(), m_dataCenterRegions.end(),
                                   [&](const DataCenter& each) { return each.dc == clicked; });
  if (center != m_dataCenterRegions.end())
    m_record.setArrAdditionalDCRegions(chosenAfterClick(m_record.arrAdditionalDCRegions(), *center));
  getDataCenterRegions();
  showCenters();
  // With one chosen the warning would be wrong.
  showWarning();
  m_steps.updateEditCountriesOptions(false);
}

// -- Continue ----------------------------------------------------------------------------------------------------

bool DataCenterOptions::getDataCenterIfSelected() const {
  return m_dataCenterBox.hidden || !m_enableDataCenterRegionsButton.on ||
         m_record.arrAdditionalDCRegions().count() > 0;
}

void DataCenterOptions::resetDataCenterBoxUI() {
  SettingsFlags::shared().isCheckedScheduleButton = true;
  showOnceMore();
}

}  // namespace vorn
