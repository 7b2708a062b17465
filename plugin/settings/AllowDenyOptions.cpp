#include "settings/AllowDenyOptions.h"

#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "platform/Registry.h"
#include "settings/RegionCodes.h"
#include "settings/rules/ControlKeys.h"

namespace vorn {

using Kind = Control::Kind;
using namespace panel_rules;

namespace {

constexpr const char* kAllowDenyBox = "allowDenyBox";
constexpr const char* kAllowDenyTip = "allowDenyImpactCountriesTipView";

}  // namespace

AllowDenyOptions::AllowDenyOptions(const PanelParts& panel)
    : m_panel(panel),
      m_allowDenyBox(panel.controls.add(Kind::box, kAllowDenyBox)),
      m_allowDenyButton(panel.controls.add(Kind::checkBox, control_key::allowDenyButton, kAllowDenyBox)),
      m_allowDenyText(panel.controls.add(Kind::label, "allowDenyText", kAllowDenyBox)),
      m_allowDenyEditButton(panel.controls.add(Kind::link, "allowDenyEditButton", kAllowDenyBox)),
      m_tipView(panel.controls.add(Kind::box, kAllowDenyTip, kAllowDenyBox)),
      m_tipText(panel.controls.add(Kind::label, "allowDenyImpactCountriesTipText", kAllowDenyTip)),
      m_window(panel) {
  m_tipView.hidden = true;
  m_policyChanged = Registry::platform().notificationCenter->observe(
      notify_Schedule_RegionPolicyChanged,
      [this](const NotificationCenter::Notification& note) { onUpdateRegionPolicyChanged(note.userInfo); },
      &panel.controls);
}

bool AllowDenyOptions::isLocked() const {
  return policyOf(vn_Setting_EnableAllowDenyJoinMeetingRegion)
      .isLocked(m_panel.context.facts(m_panel.record).account);
}

void AllowDenyOptions::checkAccountLocked() { m_allowDenyButton.enabled = !isLocked(); }

void AllowDenyOptions::initAllowDenyOptionBox() {
  const OptionFacts facts = m_panel.context.facts(m_panel.record);
  m_allowDenyBox.hidden = !isRegionOptionShown(facts.account, facts.client);
  // The hidden switch follows, too: a commit takes the policy from it.
  m_allowDenyButton.on = m_panel.record.enableAllowDenyJoinMeetingRegion();
  checkAccountLocked();
  const ShownText title = shownText(LongText::optionTitle, panelText("LN_Schedule_AllowDeny_EnableOption_188713"));
  m_allowDenyButton.text = title.text;
  m_allowDenyButton.toolTip = title.toolTip;
  m_tipText.text = panelText("LN_Schedule_AllowDeny_ImpactText_188713");
  updateAllowDenyTextUI();
  if (facts.isUpdate || m_panel.controls.isOn(control_key::buttonUsePMI)) {
    m_panel.steps.updateEditCountriesOptions(true);
  }
  updateAllowDenyImpactCountriesTipViewUI(true);
}

void AllowDenyOptions::updateAllowDenyImpactCountriesTipViewUI(bool isHidden) { m_tipView.hidden = isHidden; }

std::vector<std::string> AllowDenyOptions::defaultRegionCodes() const {
  return {vnUserProfileHelper::sharedInstance().getDefaultRegionCode(email())};
}

void AllowDenyOptions::updateAllowDenyTextUI() {
  std::vector<std::string> codes = regionCodes(m_panel.record.arrRegionCodes());
  if (codes.empty()) codes = defaultRegionCodes();
  const RegionSummary summary =
      regionSummary(m_panel.record.regionType(), VNAllowDenyRCController::namesOf(codes), isLocked(), panelText);
  m_allowDenyText.hidden = !m_allowDenyButton.on;
  m_allowDenyText.text = summary.text.text;
  m_allowDenyText.toolTip = summary.text.toolTip;
  m_allowDenyEditButton.hidden = !m_allowDenyButton.on || !summary.isLinkShown;
  m_allowDenyEditButton.text = summary.link;
}

// -- What the user does ------------------------------------------------------------------------------------------

void AllowDenyOptions::userChanged(std::string_view key) {
  if (key == m_allowDenyButton.key) return onClickAllowDenyButton();
  if (key == m_allowDenyEditButton.key) return onClickAllowDenyEditButton();
  m_window.userChanged(key);
}

void AllowDenyOptions::openWindow(const Value& codes) {
  m_window.initRegionPolicy(
      email(), Value::dictionaryFromPairs(
                   {{vn_Setting_RegionType, m_panel.record.regionType()}, {vn_Setting_RegionCodes, codes}}));
  m_window.showWindowSheet();
}

void AllowDenyOptions::onClickAllowDenyButton() {
  vnSettingData& record = m_panel.record;
  if (opensWindowFirst(record.enableAllowDenyJoinMeetingRegion(), record.arrRegionCodes().isArray(),
                       record.arrRegionCodes().count() == 0, m_allowDenyButton.on)) {
    m_allowDenyButton.on = false;
    record.setEnableAllowDenyJoinMeetingRegion(false);
    return openWindow(regionCodes(defaultRegionCodes()));
  }
  record.setEnableAllowDenyJoinMeetingRegion(m_allowDenyButton.on);
  updateAllowDenyTextUI();
  m_panel.steps.updateEditCountriesOptions(true);
}

void AllowDenyOptions::onClickAllowDenyEditButton() {
  const Value& codes = m_panel.record.arrRegionCodes();
  openWindow(codes.count() > 0 ? codes : regionCodes(defaultRegionCodes()));
}

void AllowDenyOptions::onUpdateRegionPolicyChanged(const Value& userInfo) {
  const ControlSet::Change change(m_panel.controls);
  if (userInfo.isDictionary()) {
    m_panel.record.setRegionType(userInfo[vn_Setting_RegionType].integerValue());
    m_panel.record.setArrRegionCodes(userInfo[vn_Setting_RegionCodes]);
    m_panel.record.setEnableAllowDenyJoinMeetingRegion(true);
    m_allowDenyButton.on = true;
    updateAllowDenyTextUI();
  }
  m_panel.steps.updateEditCountriesOptions(true);
}

void AllowDenyOptions::writeAllowDeny() {
  m_panel.record.setEnableAllowDenyJoinMeetingRegion(m_allowDenyButton.on);
}

}  // namespace vorn
