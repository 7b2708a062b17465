#include "settings/AlternateHostOptions.h"

#include <unordered_set>

namespace vorn {

using Kind = Control::Kind;
using namespace panel_rules;

namespace {

constexpr const char* kAlternateHostBox = "alternateHostBox";
// In points.
constexpr double g_alternateHostTextViewWidth = 490;

}  // namespace

AlternateHostOptions::AlternateHostOptions(const PanelParts& panel)
    : m_panel(panel),
      m_alternateHostBox(panel.controls.add(Kind::box, kAlternateHostBox)),
      m_alternateHostLabel(panel.controls.add(Kind::label, "alternateHostLabel", kAlternateHostBox)),
      m_alternateHostTextField(panel.controls.add(Kind::tokenField, "alternateHostTextField", kAlternateHostBox)),
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
  // The panel may be loaded once more while somebody types, and from another meeting: what was typed stays, beside
  // the hosts of that meeting.
  const std::string typed = m_isEdited ? m_alternateHostController.wordsThatAreNoAddress() : "";
  std::vector<TokenChip> chips;
  if (!m_alternateHostBox.hidden) {
    std::unordered_set<std::string> known;
    const auto add = [&](const std::string& email) {
      if (!email.empty() && known.insert(email).second) {
        chips.push_back(chipOf(VNAlternateHostController::entryOf(email)));
      }
    };
    for (const Value& host : m_panel.record.arrAlternateHosts().items()) add(host.text());
    if (m_isEdited) {
      for (const std::string& host : m_alternateHostController.getInvitedUserInfoToCome()) add(host);
    }
  }
  m_alternateHostController.field().refill(chips, typed);
  takeIntoRecord();
}

// -- What the user does ------------------------------------------------------------------------------------------

void AlternateHostOptions::userChanged(std::string_view key) {
  const bool isListClicked = m_alternateHostController.isListClicked(key);
  if (!isListClicked && key != m_alternateHostTextField.key) return;
  m_isEdited = true;
  if (isListClicked) {
    m_alternateHostController.field().userChose();
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
  return requiredExtraHeight(m_alternateHostController.getInvitedUserInfoFromView(), g_alternateHostTextViewWidth);
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
