#include "settings/VNAllowDenyRCWindowController.h"

#include "data/OptionPolicy.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "platform/NotificationCenter.h"
#include "platform/Registry.h"
#include "settings/RegionCodes.h"

namespace vorn {

using Kind = Control::Kind;
using namespace panel_rules;

namespace {

constexpr const char* kRegionsWindow = "allowDenyRCWindow";

}  // namespace

VNAllowDenyRCWindowController::VNAllowDenyRCWindowController(const PanelParts& panel)
    : m_panel(panel),
      m_window(panel.controls.add(Kind::window, kRegionsWindow)),
      m_allowButton(panel.controls.add(Kind::radioButton, "allowDenyRCAllowButton", kRegionsWindow)),
      m_blockButton(panel.controls.add(Kind::radioButton, "allowDenyRCBlockButton", kRegionsWindow)),
      m_regionsLabel(panel.controls.add(Kind::label, "allowDenyRCRegionsLabel", kRegionsWindow)),
      m_textField(panel.controls.add(Kind::tokenField, "allowDenyRCTextField", kRegionsWindow)),
      m_lockedLabel(panel.controls.add(Kind::label, "allowDenyRCLockedLabel", kRegionsWindow)),
      m_saveButton(panel.controls.add(Kind::button, "allowDenyRCSaveButton", kRegionsWindow)),
      m_cancelButton(panel.controls.add(Kind::button, "allowDenyRCCancelButton", kRegionsWindow)),
      m_allowDenyRCController(panel, m_textField, kRegionsWindow, [this] { checkSaveButtonStatus(); }) {
  m_window.hidden = true;
}

// -- Opening -----------------------------------------------------------------------------------------------------

void VNAllowDenyRCWindowController::initRegionPolicy(const std::string& email, const Value& regionPolicy) {
  m_scheduleForEmail = email;
  m_allowDenyRCController.setRegions(
      regionCodes(vnUserProfileHelper::sharedInstance().getTotalRegionCodes(email)));
  m_arrAllowRegionCodes.clear();
  m_arrBlockRegionCodes.clear();
  m_regionType = regionPolicy[vn_Setting_RegionType].integerValue();
  codesOf(m_regionType == kRegionsAllowed) = regionCodes(regionPolicy[vn_Setting_RegionCodes]);
}

void VNAllowDenyRCWindowController::showWindowSheet() {
  initializeItems();
  m_window.hidden = false;
}

bool VNAllowDenyRCWindowController::isLocked() const {
  return policyOf(vn_Setting_EnableAllowDenyJoinMeetingRegion)
      .isLocked(accountFactsWithoutLists(vnUserProfileHelper::sharedInstance(), m_scheduleForEmail));
}

void VNAllowDenyRCWindowController::initializeItems() {
  const bool locked = isLocked();
  for (Control* each : {&m_allowButton, &m_blockButton, &m_regionsLabel, &m_textField, &m_cancelButton}) {
    each->hidden = locked;
  }
  m_lockedLabel.hidden = !locked;
  if (locked) {
    showLocked();
  } else {
    showEditable();
  }
}

void VNAllowDenyRCWindowController::showLocked() {
  m_window.text = panelText(m_regionType == kRegionsAllowed ? "LN_Schedule_AllowDenyWindow_AllowTitle_188713"
                                                            : "LN_Schedule_AllowDenyWindow_BlockTitle_188713");
  m_lockedLabel.text = getRegionCountries();
  m_saveButton.text = panelText("LN_Schedule_OK_188713");
  m_saveButton.enabled = true;
  m_allowDenyRCController.fill({}, false);
}

void VNAllowDenyRCWindowController::showEditable() {
  m_window.text = panelText("LN_Schedule_AllowDenyWindow_Title_188713");
  const std::pair<Control*, const char*> choices[] = {
      {&m_allowButton, "LN_Schedule_AllowDenyWindow_OnlyAllow_188713"},
      {&m_blockButton, "LN_Schedule_AllowDenyWindow_Block_188713"}};
  for (const auto& [button, key] : choices) {
    const ShownText shown = shownText(LongText::regionChoice, panelText(key));
    button->text = shown.text;
    button->toolTip = shown.toolTip;
  }
  m_regionsLabel.text = panelText("LN_Schedule_AllowDenyWindow_RegionsCountries_188713");
  m_textField.spoken = m_regionsLabel.text;
  m_saveButton.text = panelText("LN_Schedule_SignInDomain_Save_126367");
  m_cancelButton.text = panelText("Button_Cancel");
  const bool isAllow = m_regionType == kRegionsAllowed;
  m_allowButton.on = isAllow;
  m_blockButton.on = !isAllow;
  m_allowDenyRCController.fill(codesOf(isAllow), false);
  checkSaveButtonStatus();
}

std::string VNAllowDenyRCWindowController::getRegionCountries() const {
  const std::vector<std::string>& codes =
      m_regionType == kRegionsAllowed ? m_arrAllowRegionCodes : m_arrBlockRegionCodes;
  return regionList(VNAllowDenyRCController::namesOf(codes));
}

// -- What the user does ------------------------------------------------------------------------------------------

void VNAllowDenyRCWindowController::userChanged(std::string_view key) {
  if (m_panel.controls.windowOf(key) != m_window.key && !m_allowDenyRCController.isListClicked(key)) return;
  if (key == m_textField.key) {
    m_allowDenyRCController.field().userTyped();
  } else if (m_allowDenyRCController.isListClicked(key)) {
    m_allowDenyRCController.takeSelected();
  } else {
    // A press beside the list closes it, and what was chosen there counts.
    m_allowDenyRCController.field().settle();
    closeAllowDenyRCSearchListWindow();
    if (key == m_allowButton.key) clickAllowDenyRadioButton(true);
    if (key == m_blockButton.key) clickAllowDenyRadioButton(false);
    if (key == m_saveButton.key) return clickSaveButton();
    if (key == m_cancelButton.key) return clickCancelButton();
  }
  checkSaveButtonStatus();
}

void VNAllowDenyRCWindowController::clickAllowDenyRadioButton(bool isAllow) {
  const bool wasAllow = m_regionType == kRegionsAllowed;
  codesOf(wasAllow) = m_allowDenyRCController.getAddedRegionCountriesFromView();
  m_allowButton.on = isAllow;
  m_blockButton.on = !isAllow;
  m_regionType = isAllow ? kRegionsAllowed : kRegionsBlocked;
  m_allowDenyRCController.fill(codesOf(isAllow), true);
}

void VNAllowDenyRCWindowController::checkSaveButtonStatus() {
  if (!isReadOnly()) m_saveButton.enabled = m_allowDenyRCController.maySave();
}

void VNAllowDenyRCWindowController::clickSaveButton() {
  m_panel.steps.closeSubWindows();
  if (!isReadOnly()) {
    if (m_allowButton.on && !m_blockButton.on) {
      m_regionType = kRegionsAllowed;
    } else if (m_blockButton.on) {
      m_regionType = kRegionsBlocked;
    }
    Registry::platform().notificationCenter->post(
        notify_Schedule_RegionPolicyChanged, &m_panel.controls,
        Value::dictionaryFromPairs(
            {{vn_Setting_RegionType, m_regionType},
             {vn_Setting_RegionCodes, regionCodes(m_allowDenyRCController.getAddedRegionCountriesFromView())}}));
  }
  endSheet();
}

void VNAllowDenyRCWindowController::clickCancelButton() { endSheet(); }

void VNAllowDenyRCWindowController::endSheet() { m_window.hidden = true; }

}  // namespace vorn
