#include "settings/VNAlternateHostController.h"

#include <utility>

#include "channel/store/vnCommon.h"
#include "data/vnUserProfileHelper.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "settings/VNAlternateHostHelper.h"
#include "settings/rules/TokenWords.h"

namespace vorn {

using namespace panel_rules;

namespace {

bool isValid(const std::string& email) { return vnCommon::isValidEmail(email); }

}  // namespace

VNAlternateHostController::VNAlternateHostController(const PanelParts& panel, Control& field, Watcher watcher)
    : m_panel(panel),
      m_watcher(std::move(watcher)),
      m_list(panel.controls),
      m_tokens(panel, field, m_list.list(), *this) {}

AlternateHost VNAlternateHostController::entryOf(const std::string& email) {
  return {.name = VNAlternateHostHelper::sharedInstance().getAlternateHostDisplayNameByEmail(email),
          .email = email};
}

// -- Who is offered ----------------------------------------------------------------------------------------------

std::vector<AlternateHost> VNAlternateHostController::attendees() const {
  std::vector<AlternateHost> people;
  const Value list = m_panel.context.attendeesList();
  for (const Value& attendee : list.items()) {
    const std::string email = attendee[vn_ApptInfo_AttendeeEmail].text();
    people.push_back({attendee[vn_ApptInfo_AttendeeName].text(), email, email});
  }
  return people;
}

std::string VNAlternateHostController::getScheduleForEmail() const {
  const std::string other = m_panel.steps.getUIScheduleForEmail();
  return other.empty() ? vnUserProfileHelper::sharedInstance().userEmail() : other;
}

void VNAlternateHostController::initAlternatehostSearchListWithString(const std::string& /*word*/) {
  const std::vector<AlternateHost> offered =
      offeredHosts(attendees(), VNAlternateHostHelper::sharedInstance().getInputAlternateHostHistory(),
                   folded(getInvitedUserInfoFromView()), getScheduleForEmail());
  if (offered.empty()) return closeAlternateHostSearchListWindow();
  m_list.setData(offered);
  m_list.list().show();
}

bool VNAlternateHostController::isListClicked(std::string_view key) const { return m_list.list().isClicked(key); }

// -- What stands in the field ------------------------------------------------------------------------------------

std::optional<TokenChip> VNAlternateHostController::chipOfWord(const std::string& word) {
  if (!isValid(word)) return std::nullopt;
  return chipOf(entryOf(word));
}

std::vector<TokenPiece> VNAlternateHostController::piecesOf(const std::string& pasted) {
  return pastedHosts(pasted, isValid);
}

std::vector<std::string> VNAlternateHostController::getInvitedUserInfoFromView() const {
  return invitedUsers(m_tokens.text(), isValid);
}

std::vector<std::string> VNAlternateHostController::getInvitedUserInfoToCome() const {
  return invitedUsers(m_tokens.settledText(), isValid);
}

bool VNAlternateHostController::hasError() const { return hasAlternateHostError(m_tokens.text(), isValid); }

std::string VNAlternateHostController::wordsThatAreNoAddress() const {
  return unknownWords(m_tokens.text(), isValid);
}

}  // namespace vorn
