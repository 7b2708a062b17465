#pragma once

#include "channel/store/ApptWindowDirectory.h"
#include "util/HostObject.h"
#include "util/Value.h"

namespace vorn {

class vnERCalendarEventEditorViewController;

// Where a bar is, for whoever looks for a window by one of the host's objects.
class BarPlace : public ApptBar {
 public:
  // The window that the bar itself lives in; absent when it has left its window.
  virtual HostObject window() = 0;
  virtual HostObject editorWindowController() = 0;
  virtual HostObject editorViewController() = 0;
  // The long-lived proxy; null until the bar is attached to its editor.
  virtual vnERCalendarEventEditorViewController* editorProxy() = 0;
  // The host's body editor; absent when none is known.
  virtual HostObject olWordMailEditor() = 0;
};

// What a save, send or delete asks of its window's bar and notes there.
class BarSave {
 public:
  virtual ~BarSave() = default;
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
};

// What the flows show in the bar, and what it does for them when its editor opens.
class BarFace {
 public:
  virtual ~BarFace() = default;
  // The raw event of the editor; absent when none is known.
  virtual HostObject ecCalendarEvent() = 0;
  // Shows a status of vnUIStatus.
  virtual void onUIChanged(int status) = 0;
  virtual void updateSupportVornButtonFlag(const HostObject& event) = 0;
  // What an editor does on behalf of the toolbar or of the desktop client, when a flag was left for it.
  virtual void autoAddToVnMeeting() = 0;
  virtual void setAutoUpdateVornMeetingFlag() = 0;
  // Takes the meeting off the appointment, as a click on the bar's button does.
  virtual void autoRemoveVornMeeting() = 0;
  // Takes hold of its editor, so that editorProxy() is there. Nothing when it has it already, or when the editor
  // is gone.
  virtual void attachToEditor() = 0;
  // Asks the service which meeting stands behind the appointment's UUID.
  virtual void getMeetingByApptUUID() = 0;
};

// The action bar of one appointment window, as the workflow knows it. Main thread only.
class MeetingBar : public BarPlace, public BarSave, public BarFace {};

}  // namespace vorn
