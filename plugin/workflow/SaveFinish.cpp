#include "workflow/SaveFinish.h"

#include <utility>

#include "channel/commands/vnAPIKeys.h"
#include "data/vnSettingKeys.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "platform/ClassRuntime.h"
#include "platform/Registry.h"
#include "platform/RunLoop.h"
#include "workflow/MeetingNumbers.h"
#include "workflow/RunningSave.h"
#include "workflow/vnMeetingMgr.h"
#include "workflow/vnSavePreparation.h"

namespace vorn {

namespace {

// The host's own methods stand under these names once the hooks are in; sent so, they do not meet their hook
// again.
constexpr std::string_view kHostSave = "vn_ERCalendarEventEditorViewController_save";
constexpr std::string_view kHostSaveColon = "vn_ERCalendarEventEditorViewController_save:";
constexpr std::string_view kHostSaveAndCloseWindow = "vn_ERCalendarEventEditorViewController_saveAndCloseWindow:";
constexpr std::string_view kHostSaveAndCloseReturnError =
    "vn_ERCalendarEventEditorViewController_saveAndCloseWindow:andReturnError:";
constexpr std::string_view kHostSend = "vn_ERCalendarEventEditorViewController_sendMeetingPostValidate";

// The host's operation behind an appointment action; "" where there is none to make again. With attendees only a
// send is: an appointment that was saved and not sent stays open with its data written.
std::string_view hostsOperation(int action, bool hasAttendees) {
  if (hasAttendees) return action == VnApptActionSend ? kHostSend : std::string_view();
  switch (action) {
    case VnApptActionSave: return kHostSaveColon;
    case VnApptActionSaveAndClose: return kHostSaveAndCloseWindow;
    case VnApptActionSaveAndCloseReturnError: return kHostSaveAndCloseReturnError;
    case VnApptActionAutoUpdate: return kHostSave;
    default: return {};
  }
}

Arguments argumentsOf(std::string_view operation) {
  if (operation == kHostSaveColon) return {Value()};
  if (operation == kHostSaveAndCloseWindow) return {true};
  if (operation == kHostSaveAndCloseReturnError) return {true, Value()};
  return {};
}

bool isClose(std::string_view operation) {
  return operation == kHostSaveAndCloseWindow || operation == kHostSaveAndCloseReturnError;
}

// For a delayed step: the host may let go of a window before it has run.
HostObject retained(const HostObject& object) { return Registry::platform().classRuntime->retained(object); }

void convertMailBodyFormat(MeetingWindow& window) {
  if (!window.bar()->fromFieldChanged()) return;
  const vnECCalendarEvent* event = window.event();
  window.proxy().convertBodyContentFormat(!(event && event->shouldDisableCalendarHTMLBody()));
}

}  // namespace

SaveFinish::~SaveFinish() {
  if (RunLoop* loop = Registry::platform().runLoop) loop->cancelPrevious(this);
}

void SaveFinish::cancel() { Registry::platform().runLoop->cancelPrevious(this); }

void SaveFinish::scheduleCloseOLAppointment(const HostObject& editor) {
  Registry::platform().runLoop->performAfter(
      0, this, "closeOLAppointment:", [this, weak = m_manager.weak_from_this(), held = retained(editor)] {
        if (const auto manager = weak.lock()) closeOLAppointment(held);
      });
}

void SaveFinish::closeOLAppointment(const HostObject& editor) {
  vnMeetingDataMgr& data = *m_manager.meetingDataMgr();
  data.setOldForceIncludeJoinurlInLocation(data.forceIncludeJoinUrlInLocation());
  data.setOldSelectInvitationLanguage(data.selectInvitationLanguage());
  MeetingWindow window = MeetingWindow::ofEditor(editor);
  if (window.bar()) {
    performHostsOperation(window);
  } else if (m_manager.isDragAndMove()) {
    m_manager.clearAllSavedData();
  }
}

void SaveFinish::performHostsOperation(MeetingWindow& window) {
  // Or the window would be gone before the delete is answered, with the deleted meeting stored in its appointment.
  if (m_manager.apiMgr()->isWaitingForDelete()) return;
  const bool hasAttendees = !window.proxy().attendeeList().items().empty();
  const std::string_view operation = hostsOperation(window.bar()->olUIAction(), hasAttendees);
  if (operation.empty() || !window.proxy().isValidConnection()) return;

  const bool uuidWasMissing = window.getApptUUID().value_or("").empty();
  const HostObject parentWindow = window.parentWindow();
  const Value meetingData = m_manager.getVornMeetingData(window);
  const vnECCalendarEvent event(window.proxy().content());
  if (isClose(operation) || operation == kHostSend) convertMailBodyFormat(window);
  Answer answer;
  {
    const RunningSave ofThisWindow(window.bar());
    answer = Registry::platform().classRuntime->call(window.editor(), operation, argumentsOf(operation));
  }
  // That ends the replay, as it would if nobody caught it: the window stays open with what the user has typed.
  if (answer.raised) return;

  if (operation != kHostSaveColon) {
    // The host's operation may have closed the window. Its editor shows no event then, but the event itself lasts
    // until the host's call has unwound, and it has just got its UUID.
    const OptionalText uuid = window.getApptUUID();
    updateApptUUIDToMeeting(parentWindow, uuid ? uuid : event.UUID(), meetingData, uuidWasMissing);
  }
  if (isClose(operation)) closeWindowLater(window, answer.value);
}

void SaveFinish::closeWindowLater(MeetingWindow& window, const Value& hostResult) {
  // An appointment that the host could not store stays open with what the user has typed.
  if (hostResult.isPresent() && hostResult.integerValue() == kNotClosed) return;
  // Asked for only now: a window that the host has closed by itself has no bar in it, and is left alone.
  const HostObject windowController = window.bar()->editorWindowController();
  Registry::platform().runLoop->performAfter(0, this, "close", [held = retained(windowController)] {
    Registry::platform().classRuntime->send(held, "close");
  });
}

void SaveFinish::updateApptUUIDToMeeting(const HostObject& parentWindow, const OptionalText& apptUUID,
                                         const Value& meetingData, bool needUpdate) {
  const std::string& key = meetingData[vn_MeetingKey].text();
  if (!needUpdate || apptUUID.value_or("").empty() || key.empty() || key == "0") return;
  Value data = meetingData;
  Value apptInfo = data[vn_Outlook_ApptInfo];
  apptInfo.set(vn_ApptInfo_OlApptUUID, apptUUID);
  data.set(vn_Outlook_ApptInfo, apptInfo);
  data.set(vn_API_Call_Para_ShowCommunicationDlg, false);
  m_manager.apiMgr()->updateMeeting(parentWindow, data);
}

}  // namespace vorn
