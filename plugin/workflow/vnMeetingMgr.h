#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "channel/commands/MeetingCommandOwner.h"
#include "channel/commands/vnAPIMgr.h"
#include "data/vnGetMeetingHelper.h"
#include "invitation/InvitationOwner.h"
#include "invitation/vnEmailBodyMgr.h"
#include "platform/NotificationCenter.h"
#include "workflow/CalendarEdits.h"
#include "workflow/CommitRefusal.h"
#include "workflow/MeetingBar.h"
#include "workflow/MeetingOpening.h"
#include "workflow/SaveFinish.h"
#include "workflow/SaveRoad.h"
#include "workflow/SettingsFlow.h"
#include "workflow/WriteBack.h"
#include "workflow/vnMeetingDataMgr.h"
#include "workflow/vnMeetingState.h"
#include "workflow/vnPACMeetingMgr.h"
#include "workflow/vnScheduleErrorMessage.h"

namespace vorn {

// The manager of the meeting behind one appointment window.
//
// Whatever can happen to the meeting becomes a numbered command here. The manager notes the command, moves its
// state and hands the work to the flow that knows it; replies come back through the one entry
// onExcuteCommandFinished(), and the state says which flow goes on. One more manager, behind sharedInstance(),
// belongs to no window and serves the toolbar and edits on the calendar. Main thread only; nothing throws.
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

  // -- Commands and replies --------------------------------------------------------------------------------------

  // Commands 1, 2, 3, 11 and 12 come from a bar, 4, 5, 6 and 15 with the host's editor, 9 and 10 with nothing.
  // They give 0, or the code for which the first request was refused; 4, 5 and 15 give 0 then, too. Any other
  // number, and one that comes the wrong way, does nothing and gives 0, but is noted as the last action all the
  // same.
  int sendVnMeetingCommand(std::uint64_t command, const std::shared_ptr<MeetingBar>& bar);
  int sendVnMeetingCommand(std::uint64_t command, const HostObject& editor);
  // Always gives 0.
  int onExcuteCommandFinished(std::uint64_t command, const Value& data) override;

  std::uint64_t getMeetingAction() const { return m_vnMeetingAction; }
  void setMeetingAction(std::uint64_t action) override { m_vnMeetingAction = action; }

  // -- What it owns; null only after freeAllObjects, and emptied by cleanup --------------------------------------

  vnMeetingDataMgr* meetingDataMgr() { return m_meetingDataMgr.get(); }
  vnEmailBodyMgr* emailBodyMgr() { return m_emailBodyMgr.get(); }
  vnPACMeetingMgr* pacMeetingMgr() { return m_pacMeetingMgr.get(); }
  vnAPIMgr* apiMgr() { return m_apiMgr.get(); }
  vnGetMeetingHelper* getMeetingHelper() override { return m_getMeetingHelper.get(); }

  bool isDragAndMove() const { return m_bIsDragAndMove; }
  void setIsDragAndMove(bool drag) { m_bIsDragAndMove = drag; }
  bool isForceUpdate() const { return m_bIsForceUpdate; }
  void setIsForceUpdate(bool force) { m_bIsForceUpdate = force; }
  bool openFromVornClient() const { return m_bOpenFromVornClient; }
  void setOpenFromVornClient(bool open) { m_bOpenFromVornClient = open; }

  // -- The flows, each with one job; they live as long as the manager --------------------------------------------

  MeetingOpening& opening() { return m_opening; }
  SettingsFlow& settingsFlow() { return m_settingsFlow; }
  SaveRoad& saveRoad() { return m_saveRoad; }
  WriteBack& writeBack() { return m_writeBack; }
  SaveFinish& finish() { return m_finish; }
  CalendarEdits& calendarEdits() { return m_calendarEdits; }

  // -- Small views of the working data ---------------------------------------------------------------------------

  OptionalText getVornMeetingKey();
  std::string getInvitationLanguage();
  bool isForUpdateVornMeeting();
  OptionalText getVnDataForOLProperty();
  OptionalText getEncodeMail();
  // The working data (`vnMeetingInfoKeys.h`) of the editor's meeting; of a window with a bar also the window and
  // its id.
  Value getVornMeetingData(MeetingWindow& window);
  Value getVornMeetingData(const HostObject& editor);
  // The window that this manager is paired with; an empty one for the shared manager.
  MeetingWindow ownWindow();

  // -- Licence and plan ------------------------------------------------------------------------------------------

  // The account has no meeting licence; a notice is then on the screen, and the command ends.
  bool checkIfShowNoMeetingLicenseWindow(const HostObject& parentWindow);
  // The account's plan does not allow this appointment; a notice is then on the screen, and asks the user. False
  // for a user who wants no such notice.
  bool hasScheduleError(const HostObject& editor);
  // The appointment is longer than the account's plan allows.
  bool durationExceedThanMaxMins(const HostObject& editor);

  // -- For the commands and the body engine ----------------------------------------------------------------------

  // The last action was an update. One of a body that holds only the user's words, as that of a save which
  // finishes an add, is none: it would take their place.
  bool isUpdateVornMeetingEvent() override {
    return m_vnMeetingAction == VnCmdUpdate && !m_writeBack.holdsOnlyUsersWords();
  }
  OptionalText meetingKey() override;
  void setMeetingKey(const OptionalText& key) override;
  OptionalText scheduleForEmail() override;
  void setScheduleForEmail(const OptionalText& email) override;
  void clearAllSavedData() override;
  bool checkScheduleForEmailValidity() override { return m_commitRefusal.checkScheduleForEmailValidity(); }
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

  std::uint64_t m_vnMeetingAction = 0;
  std::unique_ptr<vnMeetingDataMgr> m_meetingDataMgr;
  std::unique_ptr<vnEmailBodyMgr> m_emailBodyMgr;
  std::unique_ptr<vnPACMeetingMgr> m_pacMeetingMgr;
  std::unique_ptr<vnAPIMgr> m_apiMgr;
  std::unique_ptr<vnGetMeetingHelper> m_getMeetingHelper;
  std::unique_ptr<vnScheduleErrorMessage> m_scheduleErrorMsg;
  bool m_bIsDragAndMove = false;
  bool m_bIsForceUpdate = false;
  bool m_bOpenFromVornClient = false;
  MeetingOpening m_opening{*this};
  SettingsFlow m_settingsFlow{*this};
  CommitRefusal m_commitRefusal{*this};
  SaveRoad m_saveRoad{*this};
  WriteBack m_writeBack{*this};
  SaveFinish m_finish{*this};
  CalendarEdits m_calendarEdits{*this};
  std::vector<NotificationCenter::Subscription> m_subscriptions;
};

}  // namespace vorn
