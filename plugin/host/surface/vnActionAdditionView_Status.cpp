// What the bar shows, and what a click on it does.

#include "host/proxies/HostViews.h"
#include "host/surface/vnActionAdditionView.h"
#include "platform/Localization.h"
#include "workflow/ThreadDictionary.h"
#include "workflow/vnApptUIActionMgr.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

namespace {

bool raw(const HostObject& event, std::string_view selector) { return booleanFromHost(askHost(event, selector)); }

}  // namespace

void vnActionAdditionView::onUIInitialize() {
  m_bOldIsVornMeeting = currentIsVornMeeting();
  onUIChanged(m_bOldIsVornMeeting ? VnUIMeeting : VnUINotMeeting);
}

void vnActionAdditionView::onUIChanged(int status) {
  m_vnUIStatus = status;
  if (status == VnUIHidden) {
    hideAll();
  } else if (status == VnUIMeeting || status == VnUINotMeeting) {
    const bool isMeeting = status == VnUIMeeting;
    m_addButton.hidden = isMeeting;
    m_cancelButton.hidden = !isMeeting;
    m_changeButton.hidden = !isMeeting;
  }
  // Hiding leaves the status as it is: it says what would be shown.
  if (needHideVnView()) hideAll();
  redraw();
}

void vnActionAdditionView::hideAll() {
  m_addButton.hidden = true;
  m_cancelButton.hidden = true;
  m_changeButton.hidden = true;
}

void vnActionAdditionView::redraw() { askHost(m_view, "setNeedsDisplay:", {true}); }

bool vnActionAdditionView::isItemWithMeetingOfSeries() {
  return editorProxy()->isOccurrenceOrException() && currentIsVornMeeting() && meetingData() &&
         !meetingData()->occurrenceIsSingleVornMeeting();
}

bool vnActionAdditionView::needHideVnView() {
  if (vnERCalendarEventEditorViewController* editor = editorProxy()) {
    return editor->isCancelMode() || !editor->isSupportedOwner() || isItemWithMeetingOfSeries();
  }
  return !m_idECCalendarEvent || !vnECCalendarEvent(m_idECCalendarEvent).isSupportVorn();
}

bool vnActionAdditionView::blockDeleteVornMeeting() {
  vnERCalendarEventEditorViewController* editor = editorProxy();
  return !editor || !editor->isSupportedOwner() || isItemWithMeetingOfSeries();
}

void vnActionAdditionView::updateSupportVornButtonFlag(const HostObject& event) {
  const bool isItemOfSeries = raw(event, "isOccurrence") || raw(event, "isModifiedException");
  m_bSupportVorn = raw(event, "isOwner");
  if (m_bSupportVorn && isItemOfSeries && currentIsVornMeeting()) {
    m_bSupportVorn = meetingData()->occurrenceIsSingleVornMeeting();
  }
}

void vnActionAdditionView::enableChangeSettingButton(bool enable) {
  m_changeButton.image = enable ? "Settings_normal" : "Settings_disable";
  m_changeButton.toolTip = enable ? std::string() : localizedString("NotAllowChangeVornSettingsTip");
  m_changeButton.enabled = enable;
  redraw();
}

void vnActionAdditionView::refreshUIForSwitchToRecurringSeries() {
  int status = m_vnUIStatus;
  vnERCalendarEventEditorViewController* editor = editorProxy();
  if (const vnECCalendarEvent* event = editor ? editor->ecCalendarEvent() : nullptr) {
    const bool isMeeting = event->isVornMeeting();
    if (!event->isOccurrence() && !event->isModifiedException()) {
      status = isMeeting ? VnUIMeeting : VnUINotMeeting;
    } else if (isMeeting != event->seriesIsVornMeeting()) {
      // The editor is about to show the series, so the bar shows what the series has.
      status = isMeeting ? VnUINotMeeting : VnUIMeeting;
    }
  }
  onUIChanged(status);
}

void vnActionAdditionView::onClickAddVornMeeting() {
  attachOutlookERCalendarEventEditorWindowController(editorWindowController());
  if (m_vnUIStatus != VnUINotMeeting) return;
  vnApptUIActionMgr::sharedInstance().addVNMeeting(shared_from_this());
}

void vnActionAdditionView::onClickCancelVornMeeting() {
  if (m_vnUIStatus != VnUIMeeting) return;
  vnApptUIActionMgr::sharedInstance().cancelVNMeeting(shared_from_this(), 0);
  enableChangeSettingButton(true);
}

void vnActionAdditionView::onClickChangeSettings() {
  vnApptUIActionMgr::sharedInstance().changeVNMeeting(shared_from_this(), 0);
  if (editorProxy()) editorProxy()->setIsDirty(true);
}

void vnActionAdditionView::autoAddToVnMeeting() {
  ThreadDictionary& left = ThreadDictionary::sharedInstance();
  // The toolbar opens a new appointment. One that is stored already and opens in the same moment is another one.
  const bool isNew = vnECCalendarEvent(m_idECCalendarEvent).UUID().value_or("").empty();
  if (isNew && left[keyFlagAutoAddToVnMeeting].boolValue()) {
    left.remove(keyFlagAutoAddToVnMeeting);
    left.remove(keyFlagVnMeetingArgument);
    onClickAddVornMeeting();
  } else if (left[keyFlagAutoUpdateVnMeeting].boolValue()) {
    left.remove(keyFlagAutoUpdateVnMeeting);
    m_pvnMeetingMgr->setIsForceUpdate(true);
    setOLUIAction(VnApptActionAutoUpdate);
    m_pvnMeetingMgr->sendVnMeetingCommand(VnCmdUpdate, editorViewController());
  }
}

void vnActionAdditionView::setAutoUpdateVornMeetingFlag() {
  ThreadDictionary::sharedInstance().set(keyFlagAutoUpdateVnMeeting, true);
  activateHostApplication();
}

bool vnActionAdditionView::isAutoUpdateVornMeeting() {
  return ThreadDictionary::sharedInstance()[keyFlagAutoUpdateVnMeeting].boolValue();
}

}  // namespace vorn
