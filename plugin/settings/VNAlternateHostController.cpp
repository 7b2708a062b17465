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
      m_alternateHostSearchListWindow(panel.controls),
      m_tokens(panel, field, m_alternateHostSearchListWindow, *this) {}

VNAlternateHostCell VNAlternateHostController::entryOf(const std::string& email) {
  return {.name = VNAlternateHostHelper::sharedInstance().getAlternateHostDisplayNameByEmail(email),
          .email = email};
}

// -- Who is offered ----------------------------------------------------------------------------------------------

std::vector<VNAlternateHostCell> VNAlternateHostController::attendees() {
  std::vector<VNAlternateHostCell> people;
  m_attendees = FoldedEmails();
  const Value list = m_panel.context.attendeesList();
  for (const Value& attendee : list.items()) {
    const std::string email = attendee[vn_ApptInfo_AttendeeEmail].text();
    people.push_back({attendee[vn_ApptInfo_AttendeeName].text(), email, email});
    m_attendees.add(email);
  }
  return people;
}

std::string VNAlternateHostController::getScheduleForEmail() const {
  const std::string other = m_panel.steps.getUIScheduleForEmail();
  return other.empty() ? vnUserProfileHelper::sharedInstance().userEmail() : other;
}

void VNAlternateHostController::initAlternatehostSearchListWithString(const std::string& /*word*/) {
  auto& list = m_alternateHostSearchListWindow;
  list.setExistedUser(getInvitedUserInfoFromView());
  const auto isUserExisted = [&list](const std::string& email) { return list.isUserExisted(email); };
  const std::string own = getScheduleForEmail();
  list.setData(offeredHosts(attendees(), isUserExisted, own));
  const auto earlier = earlierHosts(VNAlternateHostHelper::sharedInstance().getInputAlternateHostHistory(),
                                    [this](const std::string& email) { return isExistedInAttendeeList(email); });
  list.addDataWithArray(offeredHosts(earlier, isUserExisted, own));
  if (list.isEmpty()) return closeAlternateHostSearchListWindow();
  showAlternateHostSearchListWindowWithTextView();
}

void VNAlternateHostController::takeSelected() {
  const VNAlternateHostCell* user = m_alternateHostSearchListWindow.getSelectedUserInfo();
  if (user) selectUserInAlternateHostSearchList(*user);
}

// -- What stands in the field ------------------------------------------------------------------------------------

bool VNAlternateHostController::isChipsWord(const std::string& word) const { return isValid(word); }

void VNAlternateHostController::updateAlternateHostTextViewByEmail(const std::string& email) {
  m_tokens.request(chipOf(entryOf(email)));
}

void VNAlternateHostController::selectUserInAlternateHostSearchList(const VNAlternateHostCell& user) {
  m_tokens.choose(chipOf(user));
}

std::string VNAlternateHostController::getAlternateHostWhenSelectionChange() const {
  const std::optional<CurrentToken> token = currentToken(m_tokens.text());
  return token ? trimmed(token->text) : "";
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

bool VNAlternateHostController::hasError() const {
  return hasAlternateHostError(m_tokens.text(), getAlternateHostWhenSelectionChange(), isValid);
}

std::string VNAlternateHostController::wordsThatAreNoAddress() const {
  return unknownWords(m_tokens.text(), isValid);
}

}  // namespace vorn
