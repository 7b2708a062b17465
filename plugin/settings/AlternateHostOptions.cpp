#include "settings/AlternateHostOptions.h"

#include <unordered_set>

#include "settings/rules/ControlKeys.h"

namespace vorn {

using Kind = Control::Kind;
using namespace panel_rules;

namespace {

// In points.
constexpr double g_alternateHostTextViewWidth = 490;

}  // namespace

AlternateHostOptions::AlternateHostOptions(const PanelParts& panel)
    : m_panel(panel),
      m_alternateHostBox(panel.controls.add(Kind::box, control_key::alternateHostBox)),
      m_alternateHostLabel(panel.controls.add(Kind::label, "alternateHostLabel", control_key::alternateHostBox)),
      m_alternateHostTextField(
          panel.controls.add(Kind::tokenField, "alternateHostTextField", control_key::alternateHostBox)),
      m_alternateHostController(panel, m_alternateHostTextField,
                                {.textHasChanged = [this] { textHasChanged(); },
                                 .tokenIsEmpty = [this] { rearrangeAlternateHostTextField(); }}) {}

void AlternateHostOptions::initWithLocalString() {
  m_alternateHostLabel.text = panelText("LN_Schedule_AlternateHosts");
  m_alternateHostTextField.spoken = m_alternateHostLabel.text;
  m_alternateHostTextField.placeholder = panelText("LN_Schedule_AlternateHosts_PlaceHolder");
}

void AlternateHostOptions::initAlternateHosts() {
  const OptionFacts facts = m_panel.context.facts(m_panel.record);
  m_alternateHostBox.hidden = !facts.client.isVornClientSupportAHAndMuteOnEntry || !facts.account.isPaidUser;
  // The panel may be loaded once more while somebody types, and from another meeting: its hosts come as the user
  // would have them, with whom they have put in and without whom they have taken out.
  const std::string typed = m_isEdited ? m_alternateHostController.wordsThatAreNoAddress() : "";
  if (m_isEdited) takeEdits();
  m_loaded.clear();
  std::vector<TokenChip> chips;
  if (!m_alternateHostBox.hidden) {
    std::unordered_set<std::string> known = m_removed;
    const auto add = [&](const std::string& email) {
      if (email.empty() || !known.insert(email).second) return;
      m_loaded.push_back(email);
      chips.push_back(chipOf(VNAlternateHostController::entryOf(email)));
    };
    for (const Value& host : m_panel.record.arrAlternateHosts().items()) add(host.text());
    for (const std::string& host : m_added) add(host);
  }
  m_alternateHostController.field().refill(chips, typed);
  rearrangeAlternateHostTextField();
  takeIntoRecord();
}

// What has changed in the field since it was loaded; a chip that is still to come counts.
void AlternateHostOptions::takeEdits() {
  const std::vector<std::string> now = m_alternateHostController.getInvitedUserInfoToCome();
  const std::unordered_set<std::string> standing(now.begin(), now.end());
  const std::unordered_set<std::string> loaded(m_loaded.begin(), m_loaded.end());
  std::erase_if(m_added,
                [&](const std::string& host) { return standing.count(host) == 0 && loaded.count(host) > 0; });
  for (const std::string& host : m_loaded) {
    if (standing.count(host) == 0) m_removed.insert(host);
  }
  for (const std::string& host : now) {
    m_removed.erase(host);
    if (loaded.count(host) == 0) m_added.push_back(host);
  }
}

void AlternateHostOptions::forgetEdits() {
  m_isEdited = false;
  m_added.clear();
  m_removed.clear();
}

// -- What the user does ------------------------------------------------------------------------------------------

void AlternateHostOptions::userChanged(std::string_view key) {
  const bool isListClicked = m_alternateHostController.isListClicked(key);
  if (!isListClicked && key != m_alternateHostTextField.key) return;
  m_isEdited = true;
  if (isListClicked) {
    m_alternateHostController.takeSelected();
  } else {
    m_alternateHostController.field().userTyped();
  }
  takeIntoRecord();
}

void AlternateHostOptions::closeAlternateHostSearchListWindow() {
  m_alternateHostController.field().settle();
  m_alternateHostController.closeAlternateHostSearchListWindow();
}

// Another choice may load the panel once more from the record, so the record has what was typed until then.
void AlternateHostOptions::takeIntoRecord() {
  if (m_isEdited) writeAlternateHosts();
}

void AlternateHostOptions::textHasChanged() {
  takeIntoRecord();
  m_panel.steps.checkScheduleButton();
}

// -- Rules -------------------------------------------------------------------------------------------------------

bool AlternateHostOptions::checkAlternateHostError() const {
  return !m_alternateHostTextField.hidden && m_alternateHostController.hasError();
}

void AlternateHostOptions::rearrangeAlternateHostTextField() {
  m_alternateHostTextField.extraHeight = requiredAHTextFieldHeight();
}

double AlternateHostOptions::requiredAHTextFieldHeight() const {
  return requiredExtraHeight(m_alternateHostController.getInvitedUserInfoToCome(), g_alternateHostTextViewWidth);
}

// -- Its end -----------------------------------------------------------------------------------------------------

void AlternateHostOptions::writeAlternateHosts() {
  // Nobody saw the field, so nobody took the meeting's hosts out of it.
  if (m_alternateHostBox.hidden) return;
  // A commit may come before a chip that was asked for.
  Value hosts = Value::array();
  for (const std::string& host : m_alternateHostController.getInvitedUserInfoToCome()) hosts.append(host);
  m_panel.record.setAlternateHosts(hosts);
}

}  // namespace vorn
