#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "host/proxies/vnERCalendarEventEditorViewController.h"
#include "host/surface/vnSettingsButton.h"
#include "platform/NotificationCenter.h"
#include "platform/Presenter.h"
#include "workflow/MeetingBar.h"
#include "workflow/MeetingNumbers.h"
#include "workflow/vnActionResultMgr.h"
#include "workflow/vnMeetingMgr.h"

namespace vorn {

// The strip of buttons in the header of an appointment editor: the user's door to the workflow, and the facts of
// the window that the workflow reads.
//
// A bar is born with its header view and lives, paired with its manager, until its window has closed. Its view in
// the host's runtime is of the class "vnActionAdditionView"; what the host or a click sends to that view arrives
// here. Main thread only.
class vnActionAdditionView final : public MeetingBar, public std::enable_shared_from_this<vnActionAdditionView> {
 public:
  static constexpr std::string_view kViewClass = "vnActionAdditionView";

  // Makes a bar with its manager and puts it into the header view. Null when the host has no views.
  static std::shared_ptr<vnActionAdditionView> create(const HostObject& headerView);
  // An editor has opened: the dictionary names the event and the window controller.
  static void onChangeUINotification(const Value& opened);
  // The same when the present call has unwound. What the dictionary names is kept alive until then.
  static void scheduleOnChangeUINotification(const Value& opened);
  // The bar behind the workflow's reference; null for none.
  static std::shared_ptr<vnActionAdditionView> from(const std::shared_ptr<MeetingBar>& bar);

  class Key {
    friend class vnActionAdditionView;
    Key() = default;
  };
  vnActionAdditionView(Key, const HostObject& view);
  ~vnActionAdditionView() override;
  vnActionAdditionView(const vnActionAdditionView&) = delete;
  vnActionAdditionView& operator=(const vnActionAdditionView&) = delete;

  // The bar's view in the host's runtime; its address is what the host's view tree knows.
  HostObject view() { return m_view; }
  HostObject window() override;
  HostObject editorWindowController() override;
  HostObject editorViewController() override;
  OptionalText getAppointmentWindowID() override;
  HostObject editorViewWindow() override;
  HostObject ecCalendarEvent() override { return m_idECCalendarEvent; }
  vnERCalendarEventEditorViewController* editorProxy() override { return m_pERCalendarEventEditorViewCtrl.get(); }
  void attachToEditor() override { attachOutlookERCalendarEventEditorWindowController(editorWindowController()); }
  HostObject olWordMailEditor() override { return m_olWordMailEditor; }
  void setOLWordMailEditor(const HostObject& editor) { m_olWordMailEditor = editor; }

  bool currentIsVornMeeting() override;
  bool isSupportVorn() override { return m_bSupportVorn; }
  bool isDeleteVornMeeting() override { return getVnDataStatus() == VnDataDeleted; }
  bool blockDeleteVornMeeting() override;
  bool isApptDirty();
  bool fromFieldChanged() override { return m_fromFieldChanged; }
  void setFromFieldChanged(bool changed) { m_fromFieldChanged = changed; }
  int getVnDataStatus() override;
  int olUIAction() override { return m_OLCalEventViewAction; }
  void setOLUIAction(const Value& action) override;
  bool getActionResult() override { return m_vnActionResult.getActionResult(); }
  void setActionResultData(const Value& response) override { m_vnActionResult.setActionResultData(response); }
  void setActionToSuccess() override;

  void initMembers(const HostObject& windowController, const HostObject& event);
  void initMeetingData(const HostObject& event);
  void readMeetingOfSeries(const HostObject& series);
  // Makes the long-lived proxy, once, from a controller that has an editor.
  void attachOutlookERCalendarEventEditorWindowController(const HostObject& windowController);
  void onUIInitialize();
  void onUIChanged(int status) override;
  // Shows the current status anew.
  void refreshUI() { onUIChanged(m_vnUIStatus); }
  void refreshUIForSwitchToRecurringSeries();
  void hideAll();
  bool needHideVnView();
  void enableChangeSettingButton(bool enable);
  void updateSupportVornButtonFlag(const HostObject& event) override;
  int vnUIStatusNow() const { return m_vnUIStatus; }

  void autoAddToVnMeeting() override;
  void autoRemoveVornMeeting() override { onClickCancelVornMeeting(); }
  void setAutoUpdateVornMeetingFlag() override;
  bool isAutoUpdateVornMeeting();
  void getMeetingByApptUUID() override;

  void onClickAddVornMeeting();
  // A conference is the user's own: in a window that is open on behalf of somebody else the user is told so.
  void onClickAddPACAccount1() { addPACMeeting(1); }
  void onClickAddPACAccount2() { addPACMeeting(2); }
  void popupNotSupportPACWarningMsg();
  void onClickCancelVornMeeting();
  void onClickChangeSettings();

  // The controller that the editor was opened with; absent before, and when it is none of an editor. The host may
  // have let go of it since. No caller here.
  const HostObject& openedWindowController() const { return m_idERCalendarEventEditorWindowCtrl; }

  const vnSettingsButton& addButton() const { return m_addButton; }
  const vnSettingsButton& cancelButton() const { return m_cancelButton; }
  const vnSettingsButton& changeButton() const { return m_changeButton; }
  const vnPopupButton& addPACButton() const { return m_addPACButton; }
  // Gives the buttons their places in a bar of this width.
  void layOut(double width);

  // Removes the bar from its pairing and ends what it observes. The bar is not used again afterwards.
  void cleanup();

 private:
  void connect();
  void onWindowWillClose(const HostObject& closing);
  void sendWindowCloseNotification(const OptionalText& windowId);
  // An item of a series that shows the series' meeting and has none of its own.
  bool isItemWithMeetingOfSeries();
  vnMeetingDataMgr* meetingData();
  void createButtons();
  void addPACMeeting(std::int64_t account);
  void redraw();

  HostObject m_view;
  vnActionResultMgr m_vnActionResult;
  HostObject m_idERCalendarEventEditorWindowCtrl;
  HostObject m_idECCalendarEvent;
  std::unique_ptr<vnERCalendarEventEditorViewController> m_pERCalendarEventEditorViewCtrl;
  int m_vnUIStatus = VnUINotMeeting;
  int m_OLCalEventViewAction = 0;
  vnSettingsButton m_addButton;
  vnSettingsButton m_cancelButton;
  vnSettingsButton m_changeButton;
  vnPopupButton m_addPACButton;
  HostObject m_addPACButtonPopupMenu;
  HostObject m_ownWindow;
  int m_vnMeetingDataStatus = 0;
  bool m_bOldIsVornMeeting = false;
  bool m_bSupportVorn = true;
  std::shared_ptr<vnMeetingMgr> m_pvnMeetingMgr;
  HostObject m_olWordMailEditor;
  bool m_fromFieldChanged = false;
  NotificationCenter::Subscription m_windowWillClose;
};

}  // namespace vorn
