#include "settings/SettingsContext.h"

#include "channel/discovery/vnClientFeatureMgr.h"
#include "data/vnUserProfileHelper.h"
#include "platform/Registry.h"
#include "platform/Surroundings.h"
#include "workflow/MeetingWindow.h"
#include "workflow/vnMeetingMgr.h"
#include "workflow/vnMeetingMgrMonitor.h"
#include "workflow/vnOnbehalfData.h"

namespace vorn {

std::shared_ptr<vnMeetingMgr> SettingsContext::manager() const {
  return vnMeetingMgrMonitor::getMeetingMgrByApptWindowID(m_windowId);
}

Value SettingsContext::meetingInfo() const {
  const auto owner = manager();
  const vnGetMeetingHelper* helper = owner ? owner->getMeetingHelper() : nullptr;
  return helper ? helper->getMeetingInfo() : Value();
}

bool SettingsContext::isForUpdateVornMeeting() const {
  const auto owner = manager();
  return owner && owner->isForUpdateVornMeeting();
}

bool SettingsContext::isEnableRecurrence() const {
  const auto owner = manager();
  if (!owner) return false;
  MeetingWindow window = MeetingWindow::ofHostWindow(m_parentWindow);
  return owner->settingsFlow().isEnableRecurrence(window);
}

bool SettingsContext::durationExceedThanMaxMins() const {
  const auto owner = manager();
  return owner && owner->durationExceedThanMaxMins(MeetingWindow::ofHostWindow(m_parentWindow).editor());
}

Value SettingsContext::attendeesList() const {
  MeetingWindow window = MeetingWindow::ofHostWindow(m_parentWindow);
  vnECCalendarEvent* event = window.event();
  return event ? event->getVnAttendeesData() : Value::array();
}

std::string SettingsContext::getVornMeetingKey() const {
  const auto owner = manager();
  return owner ? owner->getVornMeetingKey().value_or("") : "";
}

OptionalText SettingsContext::getInvitationLanguage() const {
  const auto owner = manager();
  return owner ? owner->meetingDataMgr()->selectInvitationLanguage() : OptionalText("");
}

std::string SettingsContext::getDisplayNameWithOnbehalfEmail(const std::string& email) const {
  return vnOnbehalfData::sharedInstance().getDisplayNameWithOnbehalfEmail(email);
}

void SettingsContext::getPMIMeetingInfo() const {
  const auto owner = manager();
  MeetingWindow window = MeetingWindow::ofHostWindow(m_parentWindow);
  if (owner) owner->settingsFlow().getPMIMeetingInfo(window, VnStatePMIForSettings);
}

void SettingsContext::getScheduleForList() const {
  const auto owner = manager();
  MeetingWindow window = MeetingWindow::ofHostWindow(m_parentWindow);
  if (owner) owner->settingsFlow().getScheduleForList(window);
}

bool SettingsContext::awaitsMeeting() const {
  const auto owner = manager();
  return owner && owner->apiMgr() && owner->apiMgr()->isWaitingForMeeting();
}

bool SettingsContext::awaitsScheduleForList() const {
  const auto owner = manager();
  return owner && owner->apiMgr() && owner->apiMgr()->isWaitingForScheduleForList();
}

bool SettingsContext::isCommitOnItsWay() const {
  const auto owner = manager();
  return owner && owner->settingsFlow().isCommitOnItsWay();
}

std::string SettingsContext::scheduledForAtOpening() const {
  vnOnbehalfData& onbehalf = vnOnbehalfData::sharedInstance();
  return onbehalf.isCurrentScheduleVornForOther(m_windowId) ? onbehalf.onbehalfEmail(m_windowId) : "";
}

std::string SettingsContext::userLanguage() {
  return Registry::platform().surroundings->preferredLanguages().front();
}

vnUserProfileHelper& SettingsContext::profile() { return vnUserProfileHelper::sharedInstance(); }

OptionFacts SettingsContext::facts(const vnSettingData& record) const {
  const vnClientFeatureMgr::OneReading oneReading;
  return {.account = accountFactsWithoutLists(profile(), record.scheduleForEmail()),
          .client = clientGates(),
          .isUpdate = isForUpdateVornMeeting()};
}

}  // namespace vorn
