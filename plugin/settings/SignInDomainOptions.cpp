#include "settings/SignInDomainOptions.h"

#include "data/vnUserProfileHelper.h"

namespace vorn {

using Kind = Control::Kind;

namespace {

constexpr const char* kBox = "restrictDomainsBox";

}  // namespace

SignInDomainOptions::SignInDomainOptions(const PanelParts& panel)
    : m_record(panel.record),
      m_context(panel.context),
      m_steps(panel.steps),
      m_restrictDomainsBox(panel.controls.add(Kind::box, kBox)),
      m_onlySignedinWithSpecifiedDomains(
          panel.controls.add(Kind::checkBox, "onlySignedinWithSpecifiedDomains", kBox)) {}

void SignInDomainOptions::initOnlySignedin() {
  m_onlySignedinWithSpecifiedDomains.on = m_record.isSignedInUsersMeetingOn();
}

void SignInDomainOptions::initRestrictDomainsBox() {
  const bool isOffered = vnUserProfileHelper::sharedInstance().isSupportOnlyAuthUsersCanJoin() &&
                         m_context.facts(m_record).client.isVornClientSupport464Tasks;
  m_restrictDomainsBox.hidden = !isOffered;
  m_onlySignedinWithSpecifiedDomains.hidden = !isOffered;
  m_onlySignedinWithSpecifiedDomains.text = panelText("LN_Schedule_SignInDomain_Options_126367");
}

void SignInDomainOptions::checkAccountLocked() {
  m_onlySignedinWithSpecifiedDomains.enabled = !m_context.facts(m_record).account.isLockOnlyAuthUsersCanJoin;
}

void SignInDomainOptions::userChanged(std::string_view key) {
  if (key == m_onlySignedinWithSpecifiedDomains.key) onClickOnlySignedinSpecifiedDomains();
}

void SignInDomainOptions::onClickOnlySignedinSpecifiedDomains() {
  initRestrictDomainsBox();
  m_steps.initAudioWatermarkButton();
  m_steps.initAudioWatermark();
  m_steps.resetSecurityErrorTextField();
  m_steps.checkScheduleButton();
}

void SignInDomainOptions::writeSignIn() {
  m_record.setIsSignedInUsersMeetingOn(m_onlySignedinWithSpecifiedDomains.on);
}

}  // namespace vorn
