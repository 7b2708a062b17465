#include "settings/VNDomainsWindowController.h"

#include <algorithm>

#include "channel/store/vnCommon.h"
#include "data/vnSettingKeys.h"
#include "platform/NotificationCenter.h"
#include "platform/Registry.h"
#include "settings/rules/SignInRules.h"

namespace vorn {

using Kind = Control::Kind;

namespace {

constexpr const char* kDomainsWindow = "domainsWindow";

}  // namespace

VNDomainsWindowController::VNDomainsWindowController(ControlSet& controls)
    : m_controls(controls),
      m_window(controls.add(Kind::window, kDomainsWindow)),
      m_domainsTextField(controls.add(Kind::textField, "_domainsTextField", kDomainsWindow)),
      m_domainsErrorLabel(controls.add(Kind::label, "_domainsErrorLabel", kDomainsWindow)),
      // Other windows of the panel have buttons of these names.
      m_SaveBtn(controls.add(Kind::button, "domains_SaveBtn", kDomainsWindow)),
      m_cancelBtn(controls.add(Kind::button, "domains_cancelBtn", kDomainsWindow)) {
  m_window.hidden = true;
}

void VNDomainsWindowController::initWithLocalString() {
  m_window.text = panelText("LN_Schedule_SignInDomain_DomainsLabel_126367");
  m_domainsTextField.spoken = m_window.text;
  m_domainsTextField.placeholder = panelText("LN_Schedule_SignInDomain_Placeholder");
  m_domainsErrorLabel.text = panelText("LN_Schedule_SignInDomain_DomainsErrorLabel_126367");
  m_SaveBtn.text = panelText("LN_Schedule_SignInDomain_Save_126367");
  m_cancelBtn.text = panelText("Button_Cancel");
}

void VNDomainsWindowController::showWindowSheet() {
  updateDomainUI();
  m_window.hidden = false;
}

void VNDomainsWindowController::closeWindowSheet() { m_window.hidden = true; }

void VNDomainsWindowController::updateDomainUI() {
  m_domainsTextField.text = m_selectMeetingAuth[vn_Setting_MeetingAuth_AuthDomain].text();
  m_domainsTextField.errorRange.reset();
  m_domainsTextField.enabled = !m_isDomainLocked;
  m_domainsErrorLabel.hidden = true;
  m_SaveBtn.hidden = m_isDomainLocked;
}

void VNDomainsWindowController::userChanged(std::string_view key) {
  if (key == m_SaveBtn.key) return clickSaveButton();
  if (key == m_cancelBtn.key) return clickCancelButton();
  // What was marked stands somewhere else now.
  if (key == m_domainsTextField.key) m_domainsTextField.errorRange.reset();
}

bool VNDomainsWindowController::checkDomainsError(const std::string& domains) {
  m_domainsTextField.errorRange = panel_rules::firstBadDomain(
      domains, ";,", [](const std::string& piece) { return vnCommon::isValidDomainName(piece); });
  return m_domainsTextField.errorRange.has_value();
}

void VNDomainsWindowController::clickSaveButton() {
  std::string domains = m_domainsTextField.text;
  m_domainsErrorLabel.hidden = !checkDomainsError(domains);
  if (!m_domainsErrorLabel.hidden) return;
  std::erase(domains, ' ');
  m_selectMeetingAuth.set(vn_Setting_MeetingAuth_AuthDomain, domains);
  Registry::platform().notificationCenter->post(notify_Schedule_AuthDomainChanged, &m_controls,
                                                m_selectMeetingAuth);
  closeWindowSheet();
}

}  // namespace vorn
