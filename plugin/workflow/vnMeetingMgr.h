#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "channel/commands/MeetingCommandOwner.h"
#include "channel/commands/vnAPIMgr.h"
#include "data/vnGetMeetingHelper.h"
#include "host/proxies/vnECCalendarEvent.h"
#include "host/proxies/vnERCalendarEventEditorViewController.h"
#include "invitation/InvitationOwner.h"
#include "invitation/vnEmailBodyMgr.h"
#include "platform/NotificationCenter.h"
#include "workflow/MeetingBar.h"
#include "workflow/vnMeetingDataMgr.h"
#include "workflow/vnMeetingState.h"
#include "workflow/vnScheduleErrorMessage.h"

namespace vorn {

// The manager of the meeting behind one appointment window.
//
// Whatever can happen to the meeting becomes a numbered command here. The manager notes the command, moves its
// state, asks the desktop client through its apiMgr, and finishes when the reply comes back through the one entry
// onExcuteCommandFinished(). One more manager, behind sharedInstance(), belongs to no window and serves the
// toolbar and edits on the calendar. Main thread only; nothing throws.
class vnMeetingMgr : public vnMeetingState,
                     public MeetingCommandOwner,
                     public InvitationOwner,
                     public std::enable_shared_from_this<vnMeetingMgr> {
 public:
  // Managers live in shared pointers, because replies and delayed calls may come after their window has gone.
  static std::shared_ptr<vnMeetingMgr> create();
  static std::shared_ptr<vnMeetingMgr> sharedInstance();

  class Key {
    friend class vnMeetingMgr;
    Key() = default;
  };
  explicit vnMeetingMgr(Key);
  ~vnMeetingMgr() override;
  vnMeetingMgr(const vnMeetingMgr&) = delete;
  vnMeetingMgr& operator=(const vnMeetingMgr&) = delete;

  // -- Commands and replies
  // -----------------------------------------------------------------------------------------

  // Commands 1, 2, 3, 11 and 12 come from a bar, 4, 5, 6 and 15 with the host's editor, 9 and 10 with nothing. A
  // number outside 1 to 15 does nothing and gives 0, but is noted as the last action all the same.
  int sendVnMeetingCommand(std::uint64_t command, const std::shared_ptr<MeetingBar>& bar);
  int sendVnMeetingCommand(std::uint64_t command, const HostObject& editor);
  // The form without a live editor: 5 or 6 with a complete vnMeetingData. 1 when the request was refused, else 0.
  int sendVnMeetingCommand(std::uint64_t command, const Value& meetingData);
  int onExcuteCommandFinished(std::uint64_t command, const Value& data) override;

  std::uint64_t getMeetingAction() const { return m_vnMeetingAction; }
  void setMeetingAction(std::uint64_t action) override { m_vnMeetingAction = action; }
  // The last action was an update. A save that finishes an add, whose reply with the invitation never came, is
  // none: the body holds only the user's words yet, and an update would take their place.
  bool isUpdateVornMeetingEvent() override { return m_vnMeetingAction == VnCmdUpdate && !m_firstInvitationIsDue; }

  // -- What it owns; null only after freeAllObjects, and emptied by cleanup
  // ------------------------------------------------------------------------------

  vnMeetingDataMgr* meetingDataMgr() { return m_meetingDataMgr.get(); }
  vnEmailBodyMgr* emailBodyMgr() { return m_emailBodyMgr.get(); }
  vnAPIMgr* apiMgr() { return m_apiMgr.get(); }
  vnGetMeetingHelper* getMeetingHelper() override { return m_getMeetingHelper.get(); }

  bool isDragAndMove() const { return m_bIsDragAndMove; }
  void setIsDragAndMove(bool drag) { m_bIsDragAndMove = drag; }
  bool isForceUpdate() const { return m_bIsForceUpdate; }
  void setIsForceUpdate(bool force) { m_bIsForceUpdate = force; }
  bool openFromVornClient() const { return m_bOpenFromVornClient; }
  void setOpenFromVornClient(bool open) { m_bOpenFromVornClient = open; }

  // -- Small views of the working data
  // -------------------------------------------------------------------------------

  OptionalText getVornMeetingKey();
  std::string getInvitationLanguage();
  bool isForUpdateVornMeeting();
  OptionalText getVnDataForOLProperty();
  OptionalText getEncodeMail();
  // The vnMeetingData of the editor, with the window and its id.
  Value getVornMeetingData(const HostObject& editor);
  bool isMeetingChanged(const Value& meetingData, const Value& oldMeetingInfo);

  // -- Opening an appointment
  // ----------------------------------------------------------------------------------------

  // Finds out whether a meeting stands behind the event, from what the appointment itself holds.
  bool loadOIProperty(const HostObject& event);
  void prepareUserProfile(const std::shared_ptr<MeetingBar>& bar, bool fromClientSchedule);

  // -- Add, cancel, change
  // -------------------------------------------------------------------------------------------

  int addVornMeeting(const std::shared_ptr<MeetingBar>& bar);
  int cancelVornMeeting(const std::shared_ptr<MeetingBar>& bar);
  int changeSettings(const std::shared_ptr<MeetingBar>& bar);
  void prepareOpenSettings(const std::shared_ptr<MeetingBar>& bar);
  void executeGetMeetingForChangeSetting(const std::shared_ptr<MeetingBar>& bar);
  void showSettingsWindow(const std::shared_ptr<MeetingBar>& bar, const Value& meetingData);
  // The user has told the system not to show the panel.
  bool notShowSetting();
  void getPMIMeetingInfo(const std::shared_ptr<MeetingBar>& bar, std::uint64_t state);
  std::string getScheduldForEmailFromUI(const std::shared_ptr<MeetingBar>& bar);
  // Asks for the people whom this user schedules for. The code of a refusal, or 0 when the request went out.
  int getScheduleForList(const std::shared_ptr<MeetingBar>& bar);
  bool isEnableRecurrence(const HostObject& editor);

  // -- Save, send, delete
  // --------------------------------------------------------------------------------------------

  int scheduleUpdateVornMeeting(const HostObject& editor, std::uint64_t command);
  int deleteVornMeeting(const HostObject& editor);
  // The account has no meeting licence; a notice is then on the screen, and the command ends.
  bool checkIfShowNoMeetingLicenseWindow(const HostObject& parentWindow);
  // The account's plan does not allow this appointment; a notice is then on the screen, and asks the user. False
  // for a user who wants no such notice.
  bool hasScheduleError(const HostObject& editor);
  // The appointment is longer than the account's plan allows.
  bool durationExceedThanMaxMins(const HostObject& editor);
  void commitUpdateMeeting(const std::shared_ptr<MeetingBar>& bar, const Value& meetingData);
  void updatePMIMeeting(const std::shared_ptr<MeetingBar>& bar, const Value& meetingData);
  void updateMailBodyForSchedule(const HostObject& editor);
  void updateVnKeyInfoToAppointment(const HostObject& editor, const Value& meetingInfo, bool commitFinished);
  void updateVnMeetingInfoToAppointmentForDelete(const HostObject& editor, const Value& response);
  // Performs the host's operation that the hook refused. An absent editor only ends a drag.
  void closeOLAppointment(const HostObject& editor);
  // Calls closeOLAppointment() when the present call has unwound.
  void scheduleCloseOLAppointment(const HostObject& editor);
  void convertMailBodyFormat(const HostObject& editor);
  void updateApptUUIDToMeeting(const HostObject& parentWindow, const OptionalText& apptUUID,
                               const Value& meetingData, bool needUpdate);
  bool checkScheduleOwnerMatched(const HostObject& editor);
  bool needCheckOwnerMatched(const HostObject& editor);

  // -- Edits on the calendar
  // ------------------------------------------------------------------------------------------

  // Asks which meeting stands behind the UUID of the appointment in the vnMeetingData, and parks the command, 5 or
  // 6, until the reply. An edit that is parked already gives way. 1 when the request was refused, else 0.
  int getMeetingByApptUUIDForUpdateOnCalendar(std::uint64_t command, const Value& meetingData);

  // -- Location
  // ------------------------------------------------------------------------------------------------------

  // Rooms first, then the join URL; absent without a bar.
  OptionalText getVnLocation(const std::shared_ptr<MeetingBar>& bar);
  // The user's own part of the editor's location.
  OptionalText getOLUserInputLocation(const HostObject& editor);
  bool needUpdateLocation(const HostObject& editor, const OptionalText& oldJoinUrl);
  static bool findRoomInAttendees(const OptionalText& name, const Value& attendees);

  // -- For the commands and the body engine
  // --------------------------------------------------------------------------

  OptionalText meetingKey() override;
  void setMeetingKey(const OptionalText& key) override;
  OptionalText scheduleForEmail() override;
  void setScheduleForEmail(const OptionalText& email) override;
  void clearAllSavedData() override;
  bool checkScheduleForEmailValidity() override;
  void changeUIWithScheduleForEmainError(const HostObject& parentWindow) override;
  std::string getDisplayNameWithOnbehalfEmail(const std::string& email) override;
  void showSettingsWindowWithCommitError(const HostObject& parentWindow, int errorCode) override;
  void resetMeetingItemWhenUpdateError(const HostObject& parentWindow) override;
  Value getSiteMeetingInfo(const OptionalText& windowId) override;
  void showCommitWarning(const HostObject& parentWindow, const Value& meetingData) override;
  void showNoMeetingLicenseWindow(const HostObject& parentWindow) override;
  bool putInvitationAtTheTop() override;
  OptionalText encodeMailBody() override;
  // The source body with the invitation in it, or without it when the invitation is empty.
  OptionalText getMailBodyWithVornContentFor1520(const OptionalText& sourceBody, const OptionalText& vnEmailBody,
                                                 bool isHTMLBody);

  // Ends everything that this manager does for its window, in a fixed order. Nothing comes back afterwards.
  void cleanup();
  // Gives up the objects that it owns; the parked edit is cleanup's. The end of a manager calls it, nobody else.
  void freeAllObjects();

 private:
  void observeNotifications();

  // The bar that this manager is paired with; null for the shared manager.
  std::shared_ptr<MeetingBar> ownBar();
  static std::shared_ptr<MeetingBar> barOfReply(const Value& data);
  static OptionalText getApptUUID(const HostObject& editor);

  int getMeetingByApptUUID(const HostObject& editor);
  void setSecurityOptionErrorInfo(std::string_view key, bool value);

  bool loadOIPropertyAsStoreLocation(vnECCalendarEvent& event, bool isFromUCInband);
  bool loadICSDataForClientSchedule(vnECCalendarEvent& event);
  static bool needGetMeetingWithApptUUID(vnECCalendarEvent& event);

  void onAddCancelVornMeetingFinished(std::uint64_t command, const Value& data);
  void onChangeSettingFinished(const Value& data);
  void onSchdulerActionFinished(std::uint64_t command, const Value& data);
  void onDeleteActionFinished(const Value& data);
  void onGetMeetingActionFinished(const Value& data);
  void onGetUserProfileActionFinished(const Value& data);
  void onGetMeetingByApptUUIDActionFinished(const Value& data);
  void onGetScheduleForListFinished(const Value& data);
  // The reply by UUID names another appointment than the one that was asked for. A reply carries no number of its
  // request, so it may be the answer to another window or to an edit before. False when it names none.
  bool isReplyToAnotherUUID() const;
  // The parked edit goes on, without an editor.
  void replayUpdateOnCalendar();
  static bool isSettingCommitOK(const Value& data);

  void onInvokeSettingCommit(const Value& userInfo);
  void onInvokeScheduleErrorMessageCommit(const Value& userInfo);
  void onInvokeScheduleAlternateHostError(const Value& userInfo);
  void onInvokeCommitChooseAnotherTemplate(const Value& userInfo);
  static void notifyActionResultToCalActionMgr(const Value& response);

  std::uint64_t m_vnMeetingAction = 0;
  std::unique_ptr<vnMeetingDataMgr> m_meetingDataMgr;
  std::unique_ptr<vnEmailBodyMgr> m_emailBodyMgr;
  std::unique_ptr<vnAPIMgr> m_apiMgr;
  std::unique_ptr<vnGetMeetingHelper> m_getMeetingHelper;
  std::unique_ptr<vnScheduleErrorMessage> m_scheduleErrorMsg;
  Value m_updatedMeetingDataOnCalendar = Value::dictionary();
  // No other edit was waiting for its reply when this one was parked.
  bool m_parkedEditIsAlone = true;
  // The appointment's UUID that was asked for last.
  OptionalText m_askedUUID;
  bool m_bIsDragAndMove = false;
  bool m_bIsForceUpdate = false;
  bool m_bOpenFromVornClient = false;
  // The service has confirmed a new meeting, and its invitation is not in the appointment yet.
  bool m_firstInvitationIsDue = false;
  std::vector<NotificationCenter::Subscription> m_subscriptions;
};

}  // namespace vorn
