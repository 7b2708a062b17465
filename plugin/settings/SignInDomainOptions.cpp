#include "settings/SignInDomainOptions.h"

#include <algorithm>
#include <utility>

#include "channel/store/vnCommon.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "platform/Registry.h"
#include "settings/SettingsFlags.h"
#include "settings/VNDomainsWindowController.h"
#include "settings/rules/ControlKeys.h"
#include "settings/rules/SignInRules.h"

namespace vorn {

using Kind = Control::Kind;
using namespace panel_rules;

namespace {

std::string idOf(const Value& auth) { return auth[vn_Setting_MeetingAuth_AuthId].stringValue(); }
std::string nameOf(const Value& auth) { return auth[vn_Setting_MeetingAuth_AuthName].stringValue(); }

}  // namespace

SignInDomainOptions::SignInDomainOptions(const PanelParts& panel, VNDomainsWindowController& domainsWindow)
    : m_controls(panel.controls),
      m_record(panel.record),
      m_context(panel.context),
      m_steps(panel.steps),
      m_domainsWindow(domainsWindow),
      m_restrictDomainsBox(m_controls.add(Kind::box, control_key::restrictDomainsBox)),
      m_onlySignedinWithSpecifiedDomains(m_controls.add(
          Kind::checkBox, control_key::onlySignedinWithSpecifiedDomains, control_key::restrictDomainsBox)),
      m_authNamePopup(m_controls.add(Kind::popup, "authNamePopup", control_key::restrictDomainsBox)),
      m_domainText(m_controls.add(Kind::label, "domainText", control_key::restrictDomainsBox)),
      m_viewEditButton(m_controls.add(Kind::link, "viewEditButton", control_key::restrictDomainsBox)),
      m_deleteDomainWarning(m_controls.add(Kind::label, "deleteDomainWarning", control_key::restrictDomainsBox)),
      m_authDomainChanged(Registry::platform().notificationCenter->observe(
          notify_Schedule_AuthDomainChanged,
          [this](const NotificationCenter::Notification& note) { onUpdateMeetingAuthChanged(note.userInfo); },
          &m_controls)) {
  for (Control* detail : {&m_authNamePopup, &m_domainText, &m_viewEditButton, &m_deleteDomainWarning}) {
    detail->hidden = true;
  }
}

void SignInDomainOptions::initWithLocalString() {
  m_authNamePopup.spoken = panelText("LN_Schedule_SignInDomain_Options_126367");
}

bool SignInDomainOptions::isLocked() const {
  return policyOf(vn_Setting_IsSignedInUsersMeetingOn).isLocked(m_context.facts(m_record).account);
}

// -- Loading -----------------------------------------------------------------------------------------------------

void SignInDomainOptions::initOnlySignedin() {
  m_onlySignedinWithSpecifiedDomains.on = m_record.isSignedInUsersMeetingOn();
}

void SignInDomainOptions::forgetTyped() {
  m_editsOf.clear();
  forgetOffered();
}

const SignInDomainOptions::Edits* SignInDomainOptions::edits() const {
  const auto found = m_editsOf.find(shownPerson(m_record, m_steps));
  return found == m_editsOf.end() ? nullptr : &found->second;
}

Value SignInDomainOptions::getAllMeetingAuths() {
  MeetingAuths all = allMeetingAuths(SettingsContext::profile().getMeetingAuths(), m_record.options(),
                                     isLocked() && m_controls.isOn(control_key::buttonOneTimeMeeting));
  SettingsFlags::shared().isIncludeDeletedAuthDomain = all.isIncludeDeletedAuthDomain;
  if (all.newAuthId) m_record.setAuthId(all.newAuthId);
  takeEdits(all.list);
  return all.list;
}

void SignInDomainOptions::takeEdits(Value& auths) const {
  const Edits* own = edits();
  if (!own || !auths.isArray()) return;
  Value::Array edited = auths.items();
  for (Value& auth : edited) {
    if (const auto found = own->changed.find(idOf(auth)); found != own->changed.end()) auth = found->second;
  }
  auths = std::move(edited);
}

void SignInDomainOptions::initRestrictDomainsBox() {
  const bool isOffered = SettingsContext::profile().isSupportOnlyAuthUsersCanJoin() &&
                         m_context.facts(m_record).client.isVornClientSupport464Tasks;
  m_restrictDomainsBox.hidden = !isOffered;
  m_onlySignedinWithSpecifiedDomains.hidden = !isOffered;
  const Value auths = getAllMeetingAuths();
  m_onlySignedinWithSpecifiedDomains.text =
      auths.count() == 1 ? panelText("LN_Schedule_SignInDomain_Options_WithAuthName_126367", {nameOf(auths.at(0))})
                         : panelText("LN_Schedule_SignInDomain_Options_126367");
  m_deleteDomainWarning.hidden = true;
  if (!m_onlySignedinWithSpecifiedDomains.on) {
    m_authNamePopup.hidden = m_domainText.hidden = m_viewEditButton.hidden = true;
    return;
  }
  // An account of which nothing is known offers nothing, and what the user has chosen stays on the screen.
  if (auths.isArray()) m_meetingAuths = auths;
  m_authNamePopup.items.clear();
  m_authNamePopup.hidden = m_meetingAuths.count() < 2;
  for (const Value& auth : m_meetingAuths.items()) {
    const ShownText shown = shownText(LongText::popupItem, nameOf(auth));
    m_authNamePopup.items.emplace_back(shown.text, shown.toolTip);
  }
  chooseAtLoad();
}

void SignInDomainOptions::chooseAtLoad() {
  const std::string recordsId = m_record.authId().value_or("");
  // What is locked is the account's for a meeting with a number of its own.
  const bool isAccounts = isLocked() && !m_controls.isOn(control_key::buttonUsePMI);
  std::optional<int> index =
      recordsId.empty() || isAccounts ? defaultAuth(m_meetingAuths) : authWithId(m_meetingAuths, recordsId);
  if (const Edits* own = edits(); own && own->chosenId) {
    if (const std::optional<int> chosen = authWithId(m_meetingAuths, *own->chosenId)) index = chosen;
  }
  m_authNamePopup.index = index.value_or(0);
  // Also for the first of several when none is chosen: it is the one that is shown and that a commit takes.
  resetDomainTextAndButton(chosenAuth());
}

void SignInDomainOptions::checkAccountLocked() { m_onlySignedinWithSpecifiedDomains.enabled = !isLocked(); }

// -- The choice --------------------------------------------------------------------------------------------------

Value SignInDomainOptions::chosenAuth() const {
  return m_meetingAuths.at(static_cast<std::size_t>(m_authNamePopup.index));
}

void SignInDomainOptions::resetDomainTextAndButton(const Value& auth) {
  const DomainLine line = domainLine(auth, isLocked(), panelText);
  m_domainText.hidden = !line.textIsShown;
  m_domainText.text = line.text.text;
  m_domainText.toolTip = line.text.toolTip;
  m_domainText.spoken = auth[vn_Setting_MeetingAuth_AuthDomain].text();
  m_viewEditButton.hidden = !line.linkIsShown;
  m_viewEditButton.text = line.link;
  m_deleteDomainWarning.hidden = auth.isAbsent() || !SettingsFlags::shared().isIncludeDeletedAuthDomain ||
                                 authWithId(SettingsContext::profile().getMeetingAuths(), idOf(auth)).has_value();
  m_deleteDomainWarning.text =
      panelText("LN_Schedule_SignInDomain_DeleteWarning_126367", {m_record.authName().value_or("")});
}

// -- What the user does ------------------------------------------------------------------------------------------

void SignInDomainOptions::userChanged(std::string_view key) {
  if (key == m_onlySignedinWithSpecifiedDomains.key) return onClickOnlySignedinSpecifiedDomains();
  if (key == m_authNamePopup.key) return onClickAuthNamePopup();
  if (key == m_viewEditButton.key) onClickViewEditButton();
}

void SignInDomainOptions::onClickAuthNamePopup() {
  ownEdits().chosenId = idOf(chosenAuth());
  resetDomainTextAndButton(chosenAuth());
}

void SignInDomainOptions::onClickViewEditButton() {
  const Value auth = chosenAuth();
  if (auth.isAbsent()) return;
  m_domainsWindow.isDomainLocked(isLocked());
  m_domainsWindow.initMeetingAuth(auth);
  m_domainsWindow.showWindowSheet();
}

void SignInDomainOptions::onUpdateMeetingAuthChanged(const Value& auth) {
  Value::Array auths = m_meetingAuths.items();
  const auto found =
      std::find_if(auths.begin(), auths.end(), [&](const Value& each) { return idOf(each) == idOf(auth); });
  if (found == auths.end()) return;
  *found = auth;
  m_authNamePopup.index = static_cast<int>(found - auths.begin());
  m_meetingAuths = std::move(auths);
  ownEdits().changed[idOf(auth)] = auth;
  ownEdits().chosenId = idOf(auth);
  resetDomainTextAndButton(auth);
}

void SignInDomainOptions::onClickOnlySignedinSpecifiedDomains() {
  m_record.setIsSignedInUsersMeetingOn(m_onlySignedinWithSpecifiedDomains.on);
  initRestrictDomainsBox();
  m_steps.initAudioWatermarkButton();
  m_steps.initAudioWatermark();
  m_steps.resetSecurityErrorTextField();
  m_steps.checkScheduleButton();
}

bool SignInDomainOptions::checkDomainsError(const std::string& domains) {
  return firstBadDomain(domains, ";", [](const std::string& piece) { return vnCommon::isValidDomainName(piece); })
      .has_value();
}

// -- Commit ------------------------------------------------------------------------------------------------------

void SignInDomainOptions::writeSignIn() {
  m_record.setIsSignedInUsersMeetingOn(m_onlySignedinWithSpecifiedDomains.on);
  const Value auth = chosenAuth();
  if (!m_onlySignedinWithSpecifiedDomains.on || auth.isAbsent()) return;
  m_record.setAuthId(idOf(auth));
  m_record.setAuthName(nameOf(auth));
  m_record.setAuthType(auth[vn_Setting_MeetingAuth_AuthType].integerValue());
  m_record.setAuthDomain(auth[vn_Setting_MeetingAuth_AuthDomain].stringValue());
}

}  // namespace vorn
