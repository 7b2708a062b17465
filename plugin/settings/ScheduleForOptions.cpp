#include "settings/ScheduleForOptions.h"

#include <utility>

#include "channel/discovery/vnClientFeatureMgr.h"
#include "data/vnGetScheduleForListHelper.h"
#include "data/vnUserProfileHelper.h"
#include "settings/rules/ControlKeys.h"
#include "settings/rules/ScheduleForRules.h"

namespace vorn {

using Kind = Control::Kind;
using namespace panel_rules;

namespace {

constexpr const char* kScheduleForBox = "scheduleForBox";

vnGetScheduleForListHelper& people() { return vnGetScheduleForListHelper::sharedInstance(); }

}  // namespace

ScheduleForOptions::ScheduleForOptions(const PanelParts& panel)
    : m_controls(panel.controls),
      m_record(panel.record),
      m_context(panel.context),
      m_steps(panel.steps),
      m_scheduleForBox(m_controls.add(Kind::box, kScheduleForBox)),
      m_scheduleForPopup(m_controls.add(Kind::popup, "scheduleForPopup", kScheduleForBox)) {
  m_scheduleForBox.hidden = true;
}

void ScheduleForOptions::initWithLocalString() {
  m_scheduleForBox.text = panelText("LN_Schedule_Label_ScheduleFor");
  m_scheduleForPopup.spoken = m_scheduleForBox.text;
}

void ScheduleForOptions::initScheduleForBox() {
  const bool isUpdate = m_context.isForUpdateVornMeeting();
  const std::string email = m_record.scheduleForEmail().value_or("");
  m_scheduleForBox.hidden = !SettingsContext::profile().isEnableScheduleFor() || (isUpdate && email.empty());
  if (m_scheduleForBox.hidden) return;
  ScheduleForChoice choice = scheduleForChoice(SettingsContext::profile().bossesInfo(),
                                               panelText("LN_Schedule_ScheduleFor_Myself_183499"), email);
  m_scheduleForPopup.items = std::move(choice.items);
  m_scheduleForPopup.index = choice.index;
  m_scheduleForPopup.enabled = !isUpdate;
  m_emails = std::move(choice.emails);
  if (!people().hasScheduleForList()) getScheduleForList();
  scheduleForUserChanged();
}

// -- Who it is ---------------------------------------------------------------------------------------------------

bool ScheduleForOptions::isForMyselfFromUI() const { return scheduleForIndex() < 0; }

int ScheduleForOptions::scheduleForIndex() const {
  return m_scheduleForBox.hidden ? -1 : m_scheduleForPopup.index - 1;
}

std::string ScheduleForOptions::getUIScheduleForEmail() const {
  const auto index = static_cast<std::size_t>(scheduleForIndex());
  return isForMyselfFromUI() || index >= m_emails.size() ? "" : m_emails[index];
}

std::string ScheduleForOptions::getScheduleForEmail() const {
  return isForMyselfFromUI() ? SettingsContext::profile().userEmail() : getUIScheduleForEmail();
}

std::string ScheduleForOptions::getScheduleForEmailFromUI() const {
  return m_controls.isOn(control_key::buttonUsePMI) ? getUIScheduleForEmail() : "";
}

// -- Their list --------------------------------------------------------------------------------------------------

void ScheduleForOptions::getScheduleForList() {
  if (!vnClientFeatureMgr::sharedInstance().isVornClientSupportSceduleForList()) return;
  if (!m_context.awaitsScheduleForList()) m_context.getScheduleForList();
  m_steps.checkScheduleButton();
}

void ScheduleForOptions::setScheduleForListInfo(bool forOther) {
  m_steps.checkScheduleButton();
  const std::string email = getUIScheduleForEmail();
  // The list has nothing to say of oneself, and who has begun to choose options keeps them when it comes.
  if (email.empty() && m_record.scheduleForEmail().value_or("").empty()) return;
  const MeetingOptions before = m_record.options();
  m_record.setScheduleForEmail(email);
  m_record.initSubDataWithUserProfile(m_record.usePMI());
  if (m_record.usePMI()) {
    // The words are that personal meeting's already, and perhaps nobody fetches them again.
    m_record.setThirdPartyAudio(before.thirdPartyAudio);
    m_record.setSignInChoice(before);
  } else {
    // What was written into a meeting with a number of its own is in it whomever it is for.
    m_steps.takeBackWords(before);
  }
  m_steps.keepShownSwitches();
  m_steps.initEncryptionBox();
  m_steps.initCountriesOfPerson(forOther && !isForMyselfFromUI());
  m_steps.initTemplateBox();
  m_steps.initDataCenterRegionsBox();
  m_steps.initAllowDenyOptionBox();
}

// -- What the user does ------------------------------------------------------------------------------------------

void ScheduleForOptions::userChanged(std::string_view key) {
  if (key == m_scheduleForPopup.key) onScheduleForItemChanged();
}

void ScheduleForOptions::scheduleForUserChanged() {
  m_thelastSchedulForIndex = scheduleForIndex();
  m_steps.updatePMITitle(m_thelastSchedulForIndex);
  m_steps.initPMIDisableMessageView(m_thelastSchedulForIndex);
}

void ScheduleForOptions::onScheduleForItemChanged() {
  const int index = scheduleForIndex();
  if (index == m_thelastSchedulForIndex) return;
  m_steps.leaveMeeting();
  m_steps.leavePMIWithoutOne(index);
  if (index < 0 || people().hasScheduleForList()) {
    setScheduleForListInfo(index >= 0);
  } else {
    getScheduleForList();
  }
  m_steps.fetchChosenPMI();
  scheduleForUserChanged();
}

// -- Commit ------------------------------------------------------------------------------------------------------

void ScheduleForOptions::writeScheduleFor() {
  if (!isForMyselfFromUI()) m_record.setScheduleForEmail(getUIScheduleForEmail());
}

}  // namespace vorn
