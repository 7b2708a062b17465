// What the bar shows, and what a click on it does.

#include <algorithm>

#include "channel/commands/vnAlertHelper.h"
#include "channel/discovery/vnPluginBuildMgr.h"
#include "data/vnGetPACHelper.h"
#include "data/vnSettingKeys.h"
#include "host/proxies/HostViews.h"
#include "host/surface/HostMenu.h"
#include "host/surface/vnActionAdditionView.h"
#include "platform/Localization.h"
#include "workflow/SettingsPanel.h"
#include "workflow/ThreadDictionary.h"
#include "workflow/vnApptUIActionMgr.h"
#include "workflow/vnOnbehalfData.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

namespace {

// Where the buttons stand in a bar of the usual width. No more than two are shown at a time.
constexpr Rect kFirstButtonFrame{0, 2, 190, 28};
constexpr Rect gChangeSettingButtonFrame{195, 2, 190, 28};

// A narrower bar has narrower buttons, so that none is out of reach.
Rect inBarOfWidth(double width, const Rect& usual) {
  const double scale = std::min(1.0, width / (gChangeSettingButtonFrame.x + gChangeSettingButtonFrame.width));
  return {usual.x * scale, usual.y, usual.width * scale, usual.height};
}

bool raw(const HostObject& event, std::string_view selector) { return booleanFromHost(askHost(event, selector)); }

bool offersPersonalAudio() {
  return vnGetPACHelper::sharedInstance().isPACEnabled() && !vnPluginBuildMgr::isBuildWithoutPersonalAudio();
}

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
    m_addPACButton.hidden = isMeeting || !offersPersonalAudio();
    m_cancelButton.hidden = !isMeeting;
    m_changeButton.hidden = !isMeeting;
  }
  // Hiding leaves the status as it is: it says what would be shown.
  if (needHideVnView()) hideAll();
  redraw();
}

void vnActionAdditionView::hideAll() {
  for (vnSettingsButton* button : {&m_addButton, &m_cancelButton, &m_changeButton}) button->hidden = true;
  m_addPACButton.hidden = true;
}

void vnActionAdditionView::createButtons() {
  m_addButton.title = localizedString("AddVornMeetingLabel");
  m_addButton.image = "Schedule_Meeting_normal_32";
  m_addButton.toolTip = localizedString("ScheduleMeetingTooltip");
  m_cancelButton.title = localizedString("CancelVornMeetingLabel");
  m_cancelButton.image = "Cancel_Meeting_normal";
  m_cancelButton.toolTip = localizedString("CancelVornMeetingTooltip");
  m_changeButton.title = localizedString("ChangeVornSettingsLabel");
  m_changeButton.image = "Settings_normal";
  m_addPACButton.title = localizedString("SchedulePACMeetingLabel");
  m_addPACButton.image = "Schedule_PACMeeting_32";
  m_addPACButton.toolTip = localizedString("SchedulePACMeetingTooltip");

  m_addButton.create(m_view, m_view, "onClickAddVornMeeting:");
  m_cancelButton.create(m_view, m_view, "onClickCancelVornMeeting:");
  m_changeButton.create(m_view, m_view, "onClickChangeSettings:");
  const MenuEntry accounts[] = {{localizedString("PACAccount1Label"), "onClickAddPACAccount1:"},
                                {localizedString("PACAccount2Label"), "onClickAddPACAccount2:"}};
  m_addPACButtonPopupMenu = makeMenu("vnSchedulePACMeetingMenu", accounts, m_view);
  m_addPACButton.create(m_view, m_addPACButtonPopupMenu);
}

void vnActionAdditionView::layOut(double width) {
  const Rect first = inBarOfWidth(width, kFirstButtonFrame);
  // The header asks whenever it is drawn, and a change would have it drawn again.
  if (first.width == m_addButton.frame.width) return;
  m_addButton.frame = m_cancelButton.frame = first;
  m_changeButton.frame = m_addPACButton.frame = inBarOfWidth(width, gChangeSettingButtonFrame);
  redraw();
}

void vnActionAdditionView::redraw() {
  for (const vnSettingsButton* button : {&m_addButton, &m_cancelButton, &m_changeButton}) button->draw();
  m_addPACButton.draw();
  askHost(m_view, "setNeedsDisplay:", {true});
}

bool vnActionAdditionView::isItemWithMeetingOfSeries() {
  return editorProxy()->isOccurrenceOrException() && currentIsVornMeeting() && meetingData() &&
         !meetingData()->occurrenceIsSingleVornMeeting();
}

bool vnActionAdditionView::needHideVnView() {
  if (vnERCalendarEventEditorViewController* editor = editorProxy()) {
    return editor->isCancelMode() || !editor->isSupportedOwner() || isItemWithMeetingOfSeries();
  }
  if (!m_idECCalendarEvent) return true;
  // An item without a record of its own supports a meeting, also where the service has found the series' meeting
  // by the UUID: only the bar knows of that. The host may have let go of the event; what was read of it still
  // stands.
  if (!m_bSupportVorn) return true;
  const vnECCalendarEvent event(m_idECCalendarEvent);
  return event.isValidConnection() && !event.isSupportVorn();
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

void vnActionAdditionView::readMeetingOfSeries(const HostObject& series) {
  endSettingsPanel(getAppointmentWindowID());
  m_pvnMeetingMgr->opening().forgetItem();
  m_idECCalendarEvent = HostObject(series.address());
  initMeetingData(series);
}

void vnActionAdditionView::refreshUIForSwitchToRecurringSeries() {
  int status = m_vnUIStatus;
  vnERCalendarEventEditorViewController* editor = editorProxy();
  if (const vnECCalendarEvent* event = editor ? editor->ecCalendarEvent() : nullptr) {
    const bool isItem = event->isOccurrence() || event->isModifiedException();
    if (!isItem) readMeetingOfSeries(event->delegate());
    const bool isMeeting = event->isVornMeeting();
    if (!isItem) {
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

void vnActionAdditionView::addPACMeeting(std::int64_t account) {
  // First of all: a bar that is not attached cannot tell on whose behalf its window is open.
  attachOutlookERCalendarEventEditorWindowController(editorWindowController());
  if (vnOnbehalfData::sharedInstance().isOnbehalf(getAppointmentWindowID())) {
    popupNotSupportPACWarningMsg();
  } else if (m_vnUIStatus == VnUINotMeeting) {
    vnApptUIActionMgr::sharedInstance().addPACMeeting(shared_from_this(), account);
  }
}

void vnActionAdditionView::popupNotSupportPACWarningMsg() {
  vnAlertHelper::sharedInstance().showAlertMessage(editorViewWindow(),
                                                   localizedString("NotSupportPACForOnBehalf"));
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
  // Only what the host itself keeps counts: a new one may have an id in its calendar text before it is stored.
  const bool isNew = askHost(m_idECCalendarEvent, "UUID").text().empty();
  if (isNew && left[keyFlagAutoAddToVnMeeting].boolValue()) {
    left.remove(keyFlagAutoAddToVnMeeting);
    left.remove(keyFlagVnMeetingArgument);
    onClickAddVornMeeting();
  } else if (isNew && left[keyFlagAutoAddToPACMeeting].boolValue()) {
    left.remove(keyFlagAutoAddToPACMeeting);
    const std::int64_t account = left[keyFlagVnMeetingArgument][vn_PAC_Setting_PACAccountNo].integerValue();
    left.remove(keyFlagVnMeetingArgument);
    if (account == 1) onClickAddPACAccount1();
    if (account == 2) onClickAddPACAccount2();
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
