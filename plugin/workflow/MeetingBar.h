#pragma once

#include <string>

#include "channel/store/ApptWindowDirectory.h"
#include "util/HostObject.h"
#include "util/Value.h"

namespace vorn {

class vnERCalendarEventEditorViewController;

// The action bar of one appointment window, as the workflow needs it. Main thread only.
class MeetingBar : public ApptBar {
 public:
  // The bar's view in the host's runtime; its address is what the host's view tree knows.
  virtual HostObject view() = 0;
  // The window that the bar itself lives in; absent when it has left its window.
  virtual HostObject window() = 0;
  virtual HostObject editorWindowController() = 0;
  virtual HostObject editorViewController() = 0;
  // The raw event of the editor; absent when none is known.
  virtual HostObject ecCalendarEvent() = 0;
  // The long-lived proxy; null until the bar is attached to its editor.
  virtual vnERCalendarEventEditorViewController* editorProxy() = 0;
  // The host's body editor; absent when none is known.
  virtual HostObject olWordMailEditor() = 0;

  // The working key of the bar's manager is not empty.
  virtual bool currentIsVornMeeting() = 0;
  virtual bool isSupportVorn() = 0;
  virtual bool isDeleteVornMeeting() = 0;
  virtual bool blockDeleteVornMeeting() = 0;
  virtual bool fromFieldChanged() = 0;
  // What a save must do, as in vnMeetingDataStatus.
  virtual int getVnDataStatus() = 0;

  // The host's operation that waits for the end of the work, as in vnApptAction.
  virtual int olUIAction() = 0;
  virtual void setOLUIAction(const Value& action) = 0;

  virtual bool getActionResult() = 0;
  virtual void setActionResultData(const Value& response) = 0;
  virtual void setActionToSuccess() = 0;

  // Shows a status of vnUIStatus.
  virtual void onUIChanged(int status) = 0;
  virtual void updateSupportVornButtonFlag(const HostObject& event) = 0;
  // What an editor does on behalf of the toolbar or of the desktop client, when a flag was left for it.
  virtual void autoAddToVnMeeting() = 0;
  virtual void setAutoUpdateVornMeetingFlag() = 0;
  // Asks the service which meeting stands behind the appointment's UUID.
  virtual void getMeetingByApptUUID() = 0;

  // Removes the bar from its pairing and ends what it observes. The bar is not used again afterwards.
  virtual void cleanup() = 0;
};

}  // namespace vorn
