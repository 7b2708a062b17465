#include "host/proxies/vnERCalendarEventEditorViewController.h"

#include "channel/discovery/vnPluginBuildMgr.h"
#include "host/proxies/MeetingOwners.h"
#include "host/proxies/vnApptInfoKeys.h"

namespace vorn {

HostObject vnERCalendarEventEditorViewController::window() const { return askHost(view(), "window").object(); }

void vnERCalendarEventEditorViewController::setIsDirty(bool dirty) {
  m_bVnSettingOpened = true;
  getOLItemID("setIsDirty:", dirty);
}

Value vnERCalendarEventEditorViewController::uncommittedChanges() {
  const bool dirty = isDirty();
  const Value changes = getOLItemID("uncommittedChanges");
  setIsDirty(dirty);
  return changes;
}

Value vnERCalendarEventEditorViewController::changesNow() const {
  const bool dirty = isDirty();
  const Value changes = getOLItemID("uncommittedChanges");
  getOLItemID("setIsDirty:", dirty);
  return changes;
}

vnECCalendarEvent* vnERCalendarEventEditorViewController::ecCalendarEvent() {
  const HostObject shown = content();
  if (!shown) {
    m_pECCalendarEvent = {};
    m_ECCalendarEvent.reset();
  } else if (!m_ECCalendarEvent || shown.windowId() != m_pECCalendarEvent.windowId()) {
    resetECCalendarEventInstance();
  } else {
    // The host's dictionary of changes lives on while the user types; the value that the proxy holds is a copy, so
    // it is renewed. That is no reading of the changes and must not count as opening the settings.
    m_ECCalendarEvent->setUnCommitedChanges(changesNow());
  }
  return m_ECCalendarEvent.get();
}

void vnERCalendarEventEditorViewController::resetECCalendarEventInstance() {
  m_pECCalendarEvent = content();
  m_ECCalendarEvent = std::make_unique<vnECCalendarEvent>(m_pECCalendarEvent);
  m_ECCalendarEvent->setUnCommitedChanges(uncommittedChanges());
}

Value vnERCalendarEventEditorViewController::getVnMeetingData() {
  const vnECCalendarEvent* event = ecCalendarEvent();
  if (!event) return {};
  Value data = event->getVnMeetingData();
  const OptionalText onBehalf = onbehalfEmailAddress();
  if (onBehalf && !onBehalf->empty()) data.set(vn_ApptInfo_OnbehalfEmailAddress, onBehalf);
  return data;
}

bool vnERCalendarEventEditorViewController::isVnMeetingItemsChanged() {
  const vnECCalendarEvent* event = ecCalendarEvent();
  const OptionalText uuid = event ? event->UUID() : OptionalText();
  if (uuid && !uuid->empty()) return true;
  if (!isDirty()) return false;
  return m_bVnSettingOpened || isOutlookAppointmentItemChanged();
}

bool vnERCalendarEventEditorViewController::isOutlookAppointmentItemChanged() {
  const Value changes = uncommittedChanges();
  for (const char* item :
       {"content.startTime", "content.endTime", "content.summary", "content.recurrence", "content.attendeeList"}) {
    if (changes.contains(item)) return true;
  }
  return false;
}

bool vnERCalendarEventEditorViewController::isOnBehalf() {
  if (!vnPluginBuildMgr::supportScheduleFor()) return false;
  if (meetingOwners().isOpenFromVornClient(delegate())) return false;
  const vnECCalendarEvent* event = ecCalendarEvent();
  if (event && event->accountNotReady()) return false;
  return isDelegating();
}

OptionalText vnERCalendarEventEditorViewController::onbehalfEmailAddress() {
  return isOnBehalf() ? currentEmailAddress() : OptionalText();
}

OptionalText vnERCalendarEventEditorViewController::currentEmailAddress() const {
  const HostObject account = currentEmailAccount();
  return account ? vnECEmailAccount(account).emailAddress() : OptionalText("");
}

OptionalText vnERCalendarEventEditorViewController::curFromEmailAddress() {
  const vnECCalendarEvent* event = ecCalendarEvent();
  return event ? event->curFromAddress() : OptionalText();
}

bool vnERCalendarEventEditorViewController::isSupportedOwner() {
  const vnECCalendarEvent* event = ecCalendarEvent();
  return event && event->isSupportedOwner();
}

bool vnERCalendarEventEditorViewController::currentIsRecurrence() const {
  const OptionalText recurrence = recurrenceStringForCurrentEvent();
  return !isOccurrenceOrException() && recurrence && !recurrence->empty();
}

bool vnERCalendarEventEditorViewController::canGetApptKeyInfoForCompareMeetingChanged() const {
  return getSubject().isPresent() && getLocation().isPresent() && getStartTime().isPresent();
}

OptionalText vnERCalendarEventEditorViewController::getLocationFromUI() const {
  return askHost(locationTextField(), "stringValue").optionalText();
}

void vnERCalendarEventEditorViewController::updateLocationFieldFromUI(const Value& location) const {
  askHost(locationTextField(), "setStringValue:", {location});
}

void vnERCalendarEventEditorViewController::saveVnDataToOLProperty(const Value& record) const {
  setOlmUCInband(record);
}

}  // namespace vorn
