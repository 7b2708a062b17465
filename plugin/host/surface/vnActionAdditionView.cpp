#include "host/surface/vnActionAdditionView.h"

#include "channel/commands/vnAPIKeys.h"
#include "channel/discovery/vnAppHelper.h"
#include "host/proxies/HostViews.h"
#include "host/surface/BarView.h"
#include "platform/ClassRuntime.h"
#include "platform/Registry.h"
#include "platform/RunLoop.h"
#include "workflow/SettingsPanel.h"
#include "workflow/vnActionAdditionViewMonitor.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnMeetingMgrMonitor.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

namespace {

constexpr Rect g_vnAdditionViewFrame{460, 13, 400, 30};
constexpr Rect g_vnAdditionViewFrame_OL2016{460, 13, 400, 36};
constexpr std::string_view kEditorWindowController = "ERCalendarEventEditorWindowController";
constexpr double kWindowCloseDelay = 0.01;
constexpr std::string_view kWindowWillClose = "NSWindowWillCloseNotification";
constexpr std::string_view kSendWindowClose = "sendWindowCloseNotification:";
constexpr std::string_view kOnChangeUI = "onChangeUINotification:";

// What delayed calls of the class itself are aimed at.
constexpr char kClassTarget = 0;

// The host may let go of a window that closes at once before the step that was put off has run.
Value retainedEntry(const Value& opened, std::string_view key) {
  ClassRuntime* runtime = Registry::platform().classRuntime;
  return runtime ? Value(runtime->retained(opened[key].object())) : Value();
}

}  // namespace

std::shared_ptr<vnActionAdditionView> vnActionAdditionView::create(const HostObject& headerView) {
  const bool isLarge = vnAppHelper::sharedInstance().isOutlookVersionLargeThan2016();
  const HostObject view = BarView::make(isLarge ? g_vnAdditionViewFrame_OL2016 : g_vnAdditionViewFrame);
  if (!view) return nullptr;
  const auto bar = std::make_shared<vnActionAdditionView>(Key(), view);
  bar->connect();
  bar->createButtons();
  bar->layOut(frameOf(view).width);
  askHost(headerView, "addSubview:", {view});
  return bar;
}

std::shared_ptr<vnActionAdditionView> vnActionAdditionView::from(const std::shared_ptr<MeetingBar>& bar) {
  return std::dynamic_pointer_cast<vnActionAdditionView>(bar);
}

vnActionAdditionView::vnActionAdditionView(Key, const HostObject& view) : m_view(view) {}

vnActionAdditionView::~vnActionAdditionView() {
  const Platform& platform = Registry::platform();
  if (platform.runLoop) platform.runLoop->cancelPrevious(this);
  if (platform.classRuntime) platform.classRuntime->send(m_view, "removeFromSuperview");
}

void vnActionAdditionView::connect() {
  const auto self = shared_from_this();
  BarView::connect(m_view, self);
  vnActionAdditionViewMonitor::sharedInstance().addVnActionAdditionViewInstance(self);
  m_pvnMeetingMgr = vnMeetingMgr::create();
  vnMeetingMgrMonitor::sharedInstance().addInstanceToList(m_pvnMeetingMgr, self);
  m_windowWillClose = Registry::platform().notificationCenter->observe(
      kWindowWillClose, [weak = weak_from_this()](const NotificationCenter::Notification& notification) {
        const auto bar = weak.lock();
        if (bar) bar->onWindowWillClose(HostObject(reinterpret_cast<std::uintptr_t>(notification.object)));
      });
}

// -- The editor around it ----------------------------------------------------------------------------------------

HostObject vnActionAdditionView::window() { return askHost(m_view, "window").object(); }

HostObject vnActionAdditionView::editorWindowController() {
  return askHost(window(), "windowController").object();
}

HostObject vnActionAdditionView::editorViewController() {
  return askHost(editorWindowController(), "editorViewController").object();
}

OptionalText vnActionAdditionView::getAppointmentWindowID() {
  const HostObject appointmentWindow = askHost(editorWindowController(), "window").object();
  if (!appointmentWindow) return {};
  return appointmentWindow.windowId();
}

HostObject vnActionAdditionView::editorViewWindow() {
  return askHost(askHost(editorViewController(), "view").object(), "window").object();
}

// -- When an editor opens ----------------------------------------------------------------------------------------

void vnActionAdditionView::scheduleOnChangeUINotification(const Value& opened) {
  Value held = Value::dictionary();
  for (const std::string_view key : {keyECCalendarEvent, keyERCalendarEventEditorWindowController}) {
    held.set(key, retainedEntry(opened, key));
  }
  Registry::platform().runLoop->performAfter(0, &kClassTarget, kOnChangeUI,
                                             [held] { onChangeUINotification(held); });
}

void vnActionAdditionView::onChangeUINotification(const Value& opened) {
  const HostObject event = opened[keyECCalendarEvent].object();
  const HostObject controller = opened[keyERCalendarEventEditorWindowController].object();
  const auto bar =
      from(vnActionAdditionViewMonitor::sharedInstance().getVnActionAdditionViewByEditorWinCtrl(controller));
  if (!bar) return;
  bar->initMembers(controller, event);
  bar->initMeetingData(event);
  if (bar->currentIsVornMeeting() && bar->isSupportVorn()) {
    bar->attachOutlookERCalendarEventEditorWindowController(controller);
    MeetingWindow window = MeetingWindow::ofBar(bar);
    bar->m_pvnMeetingMgr->settingsFlow().prepareUserProfile(window, bar->isAutoUpdateVornMeeting());
  }
  bar->onUIInitialize();
  bar->autoAddToVnMeeting();
}

void vnActionAdditionView::initMembers(const HostObject& windowController, const HostObject& event) {
  // None of them is the bar's own: what held them until this step ends with the step.
  if (isKindOfHostClass(windowController, kEditorWindowController)) {
    m_idERCalendarEventEditorWindowCtrl = HostObject(windowController.address());
    m_ownWindow = HostObject(askHost(windowController, "window").object().address());
  }
  m_idECCalendarEvent = HostObject(event.address());
  setOLWordMailEditor(vnApptDataForSaveRecord::sharedInstance().olWordMailEditor(editorViewController()));
}

void vnActionAdditionView::initMeetingData(const HostObject& event) {
  MeetingWindow window = MeetingWindow::ofBar(shared_from_this());
  m_pvnMeetingMgr->opening().loadOIProperty(window, event);
  if (currentIsVornMeeting()) {
    const vnECCalendarEvent proxy(event);
    meetingData()->setSavedApptInfo(proxy.getVnMeetingData());
    meetingData()->setOccurrenceIsSingleVornMeeting(proxy.occurrenceIsSingleVornMeeting());
  }
  updateSupportVornButtonFlag(event);
}

void vnActionAdditionView::attachOutlookERCalendarEventEditorWindowController(const HostObject& windowController) {
  if (m_pERCalendarEventEditorViewCtrl) return;
  if (!isKindOfHostClass(windowController, kEditorWindowController)) return;
  const HostObject editor = askHost(windowController, "editorViewController").object();
  if (!editor) return;
  m_pERCalendarEventEditorViewCtrl = std::make_unique<vnERCalendarEventEditorViewController>(editor);
}

// -- When its window closes --------------------------------------------------------------------------------------

void vnActionAdditionView::onWindowWillClose(const HostObject& closing) {
  // A host that has taken the header apart by now still tells which window it was.
  const HostObject own = window();
  if (!closing || closing != (own ? own : m_ownWindow)) return;
  const auto self = shared_from_this();
  const OptionalText windowId = closing.windowId();
  vnActionAdditionViewMonitor::sharedInstance().removeVnActionAdditionViewInstance(this);
  endSettingsPanel(windowId);
  askHost(m_view, "removeFromSuperview");
  RunLoop& runLoop = *Registry::platform().runLoop;
  runLoop.cancelPrevious(this, kSendWindowClose);
  runLoop.performAfter(kWindowCloseDelay, this, kSendWindowClose, [weak = weak_from_this(), windowId] {
    if (const auto bar = weak.lock()) bar->sendWindowCloseNotification(windowId);
  });
}

void vnActionAdditionView::sendWindowCloseNotification(const OptionalText&) {
  // The bar has left its window, so there is no editor any more and this only ends a drag.
  m_pvnMeetingMgr->finish().closeOLAppointment(editorViewController());
  cleanup();
}

void vnActionAdditionView::cleanup() {
  const auto self = shared_from_this();
  m_windowWillClose.end();
  m_fromFieldChanged = false;
  m_pvnMeetingMgr->cleanup();
  vnMeetingMgrMonitor::sharedInstance().removeInstanceByVnView(this);
}

// -- What the workflow reads and writes --------------------------------------------------------------------------

vnMeetingDataMgr* vnActionAdditionView::meetingData() { return m_pvnMeetingMgr->meetingDataMgr(); }

bool vnActionAdditionView::currentIsVornMeeting() {
  const OptionalText key = m_pvnMeetingMgr->getVornMeetingKey();
  return key && !key->empty();
}

bool vnActionAdditionView::isApptDirty() {
  return m_pERCalendarEventEditorViewCtrl && m_pERCalendarEventEditorViewCtrl->isDirty();
}

int vnActionAdditionView::getVnDataStatus() {
  vnERCalendarEventEditorViewController* editor = editorProxy();
  const vnECCalendarEvent* event = editor ? editor->ecCalendarEvent() : nullptr;
  if (!event || !event->isSupportVorn()) return VnDataNone;
  if (currentIsVornMeeting()) {
    if (m_vnUIStatus == VnUINotMeeting || editor->isCancelMode()) {
      m_vnMeetingDataStatus = VnDataDeleted;
    } else {
      // A new appointment in which nobody has typed counts as unchanged until the meeting is written into it.
      // Saved as it is before that, it would know nothing of the meeting that the service has for it.
      const bool isChanged = editor->isVnMeetingItemsChanged() || m_pvnMeetingMgr->writeBack().isDue();
      m_vnMeetingDataStatus = isChanged ? VnDataChanged : VnDataNone;
    }
  } else if (m_vnUIStatus == VnUINotMeeting) {
    m_vnMeetingDataStatus = VnDataNone;
  } else if (m_vnUIStatus == VnUIMeeting) {
    m_vnMeetingDataStatus = VnDataAdded;
  }
  return m_vnMeetingDataStatus;
}

void vnActionAdditionView::setOLUIAction(const Value& action) {
  m_OLCalEventViewAction = static_cast<int>(action.integerValue());
}

void vnActionAdditionView::setActionToSuccess() {
  setActionResultData(
      Value::dictionaryFromPairs({{keyVNResult, keyVNSuccess}, {keyApptWindowID, getAppointmentWindowID()}}));
}

void vnActionAdditionView::getMeetingByApptUUID() {
  m_pvnMeetingMgr->sendVnMeetingCommand(VnCmdGetMeetingByApptUUID, editorViewController());
}

}  // namespace vorn
