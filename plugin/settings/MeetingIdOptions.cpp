#include "settings/MeetingIdOptions.h"

#include "data/NotAgainFlags.h"
#include "data/vnGetScheduleForListHelper.h"
#include "data/vnUserProfileHelper.h"
#include "host/proxies/vnMeetingInfoKeys.h"
#include "settings/rules/ControlKeys.h"
#include "settings/rules/LongTexts.h"
#include "settings/rules/MeetingIdRules.h"

namespace vorn {

using Kind = Control::Kind;
using namespace panel_rules;

namespace {

constexpr const char* kMessage = "pmiDisableMessageView";

// Of the person with the e-mail, "" for oneself.
OptionalText personalIdOf(const std::string& email) {
  const vnUserProfileHelper& profile = SettingsContext::profile();
  return email.empty() ? profile.roomMeetingID() : profile.pmiMeetingIDWithScheduleForEmail(email);
}

}  // namespace

MeetingIdOptions::MeetingIdOptions(const PanelParts& panel)
    : m_controls(panel.controls),
      m_record(panel.record),
      m_context(panel.context),
      m_steps(panel.steps),
      m_meetingIDBox(m_controls.add(Kind::box, control_key::meetingIDBox)),
      m_buttonOneTimeMeeting(
          m_controls.add(Kind::radioButton, control_key::buttonOneTimeMeeting, control_key::meetingIDBox)),
      m_buttonUsePMI(m_controls.add(Kind::radioButton, control_key::buttonUsePMI, control_key::meetingIDBox)),
      m_pmiDisableMessageView(m_controls.add(Kind::box, kMessage)),
      m_pmiDisableText(m_controls.add(Kind::label, "pmiDisableText", kMessage)),
      m_closePMIDisableMessageButton(m_controls.add(Kind::button, "closePMIDisableMessageButton", kMessage)) {
  m_pmiDisableMessageView.hidden = true;
}

void MeetingIdOptions::initWithLocalString() {
  m_meetingIDBox.text = panelText("LN_Schedule_Section_MeetingID");
  m_closePMIDisableMessageButton.text = panelText("LN_Schedule_Tip_Close");
}

// -- Loading -----------------------------------------------------------------------------------------------------

void MeetingIdOptions::initPMITitle() {
  m_hasLostPMI = false;
  // The popup is loaded only later.
  const OptionalText& email = m_record.scheduleForEmail();
  const bool isListed = SettingsContext::profile().getScheduleForIndexWithEmail(email) >= 0;
  m_buttonUsePMI.text = getUsePMITitle(isListed ? email.value_or("") : "");
}

// Those of the popup are asked for by who they are: the account may have another list meanwhile.
std::string MeetingIdOptions::emailOf(int index) const { return index < 0 ? "" : m_steps.getUIScheduleForEmail(); }

std::string MeetingIdOptions::getUsePMITitle(const std::string& email) const {
  return usePMITitle(vnSettingData::getFormatRoomMeetingId(personalIdOf(email)), panelText);
}

void MeetingIdOptions::updatePMITitle(int index) {
  m_buttonUsePMI.text = getUsePMITitle(emailOf(index));
  m_buttonUsePMI.toolTip = fitInOneLine({m_buttonUsePMI.text}) ? "" : m_buttonUsePMI.text;
}

void MeetingIdOptions::updateOneTimeMeetingTitle() {
  const bool isPersonal = m_record.usePMI() || m_hasLostPMI;
  m_buttonOneTimeMeeting.text =
      oneTimeMeetingTitle(m_context.isForUpdateVornMeeting() && !isPersonal,
                          vnSettingData::getFormatRoomMeetingId(m_context.getVornMeetingKey()), panelText);
}

void MeetingIdOptions::choosePMI(bool usePMI) {
  m_record.setUsePMI(usePMI);
  m_buttonUsePMI.on = usePMI;
  m_buttonOneTimeMeeting.on = !usePMI;
}

void MeetingIdOptions::initMeetingIDBox() {
  const std::string email = m_record.scheduleForEmail().value_or("");
  m_meetingIDBox.hidden = !email.empty() && !SettingsContext::profile().supportPMIForOnbehalf(email);
  // The record follows, too: the user's own ID must not become that of another person's meeting.
  choosePMI(!m_meetingIDBox.hidden && m_record.usePMI());
}

void MeetingIdOptions::checkAccountLocked() {
  const bool isLocked = policyOf(vn_Setting_IsPMI).isLocked(m_context.facts(m_record).account);
  m_buttonUsePMI.enabled = !isLocked;
  m_buttonOneTimeMeeting.enabled = !isLocked;
}

// -- The personal ID ---------------------------------------------------------------------------------------------

bool MeetingIdOptions::isDisablePMI(int index) const {
  return index < 0 ? SettingsContext::profile().isDisablePMI()
                   : SettingsContext::profile().isDisablePMIWithScheduleForEmail(emailOf(index));
}

bool MeetingIdOptions::hasPMI(int index) const {
  const std::string email = index < 0 ? m_record.scheduleForEmail().value_or("") : emailOf(index);
  return email.empty() || SettingsContext::profile().supportPMIForOnbehalf(email);
}

void MeetingIdOptions::initPMIDisableMessageView(int index) {
  const DisabledPMIMessage message =
      disabledPMIMessage({.isDisabled = isDisablePMI(index),
                          .isForMyself = index < 0,
                          .name = m_context.getDisplayNameWithOnbehalfEmail(emailOf(index)),
                          .isUpdate = m_context.isForUpdateVornMeeting(),
                          .usePMI = m_record.usePMI() || m_hasLostPMI,
                          .personalId = SettingsContext::profile().roomMeetingID(),
                          .doNotShowDisablePMIMessage = doNotShowDisablePMIMessage()},
                         panelText);
  if (message.text) m_pmiDisableText.text = *message.text;
  m_pmiDisableMessageView.hidden = !message.isShown;
  m_closePMIDisableMessageButton.hidden = !message.canBeClosed;
  // With neither could a personal meeting be made.
  m_meetingIDBox.hidden = !needShowMeetingID(index) || !hasPMI(index);
  if (needShowMeetingID(index)) return;
  // The message is asked for more than once while the panel loads, and still has to know.
  m_hasLostPMI = m_hasLostPMI || m_record.usePMI();
  choosePMI(false);
}

void MeetingIdOptions::leavePMIWithoutOne(int index) {
  if (!m_record.usePMI() || (needShowMeetingID(index) && hasPMI(index))) return;
  // Fetching one would show the user's own personal meeting as that person's, so it is as if the user had chosen a
  // number of its own.
  m_record.setScheduleForEmail(m_steps.getUIScheduleForEmail());
  choosePMI(false);
  m_steps.refreshUI(false);
  m_steps.checkIfPasswordRequired();
}

void MeetingIdOptions::getPMIMeetingInfo() {
  const std::string email = m_steps.getUIScheduleForEmail();
  if (!email.empty() && m_buttonUsePMI.on) {
    const Value known = vnGetScheduleForListHelper::sharedInstance().pmiInfoWithScheduleFor(email);
    if (known.count() > 0) {
      m_steps.setPMIMeetingInfo(known);
      m_steps.refreshUI(true);
      return;
    }
  }
  m_context.getPMIMeetingInfo();
  m_steps.checkScheduleButton();
}

void MeetingIdOptions::fetchChosenPMI() {
  if (m_controls.isShown(m_meetingIDBox.key) && m_buttonUsePMI.on) getPMIMeetingInfo();
}

bool MeetingIdOptions::isAnothersPMI(const std::string& number) const {
  const std::string email = m_steps.getUIScheduleForEmail();
  if (number.empty() || number == personalIdOf(email).value_or("")) return false;
  return number == personalIdOf("").value_or("") || SettingsContext::profile().isBossesPMIMeetingID(number);
}

bool MeetingIdOptions::isWantedPMI(const Value& meetingInfo) const {
  return m_buttonUsePMI.on && !isAnothersPMI(meetingInfo[vn_MeetingKey].text());
}

int MeetingIdOptions::checkPMISettingsCompliance(int index) {
  if (m_record.usePMI() && isDisablePMI(index)) m_record.setUsePMI(false);
  return 0;
}

// -- What the user does ------------------------------------------------------------------------------------------

void MeetingIdOptions::userChanged(std::string_view key) {
  if (key == m_buttonUsePMI.key) return onClickMeetingIDType(true);
  if (key == m_buttonOneTimeMeeting.key) return onClickMeetingIDType(false);
  if (key == m_closePMIDisableMessageButton.key) onClickDisablePMIMessageCloseButton();
}

void MeetingIdOptions::onClickMeetingIDType(bool usePMI) {
  const bool wasPMI = m_record.usePMI();
  choosePMI(usePMI);
  if (usePMI) {
    if (!wasPMI) m_steps.leaveMeeting();
    getPMIMeetingInfo();
  } else {
    m_steps.refreshUI(false);
    if (!m_steps.getUIScheduleForEmail().empty()) m_steps.setScheduleForListInfo(true);
  }
  m_steps.checkIfPasswordRequired();
  m_steps.initTemplateBox();
}

void MeetingIdOptions::onClickDisablePMIMessageCloseButton() {
  m_pmiDisableMessageView.hidden = true;
  setDoNotShowDisablePMIMessage(true);
}

bool MeetingIdOptions::doNotShowDisablePMIMessage() { return not_again::disabledPMI().isSet(); }

void MeetingIdOptions::setDoNotShowDisablePMIMessage(bool notAgain) { not_again::disabledPMI().set(notAgain); }

}  // namespace vorn
