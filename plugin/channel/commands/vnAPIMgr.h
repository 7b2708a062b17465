#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "channel/commands/MeetingCommandOwner.h"
#include "platform/DistributedNotifications.h"
#include "platform/NotificationCenter.h"
#include "util/HostObject.h"
#include "util/Value.h"

namespace vorn {

struct CommandResult;
class vnAPICommitMeeting;
class vnAPIDeleteMeeting;
class vnAPIGetMeeting;
class vnAPIGetMeetingByApptUUID;
class vnAPIGetPAC;
class vnAPIGetScheduleForList;
class vnAPIGetUserProfile;

// The desktop client as one meeting manager sees it: a method for each request, and the manager's one entry for
// the replies.
//
// Each instance observes every message that comes in. Nothing but a pending window ties a reply to a request, so
// a reply is taken by every instance whose command of that kind is waiting. A request whose window is absent
// counts as not pending, and its reply is dropped.
//
// Every request answers 0, or the code for which it was refused before anything was sent. Success shows only in
// the later reply, and failure in its absence. After cleanup() every request answers 0 and sends nothing. Main
// thread only.
class vnAPIMgr {
 public:
  // Makes the commands and begins to observe the transport in use.
  vnAPIMgr();
  ~vnAPIMgr();
  vnAPIMgr(const vnAPIMgr&) = delete;
  vnAPIMgr& operator=(const vnAPIMgr&) = delete;

  // The manager to answer to; it has to outlive this object or its cleanup(). Null for none.
  void setMeetingMgrInstance(MeetingCommandOwner* meetingMgr);
  // Lets go of the commands and of the manager. A reply that comes later reaches nobody.
  void cleanup();

  // Starts a meeting now, with video or for sharing only.
  int startMeeting(bool video);
  // Both take the commit data: "apptInfo", "setting" and, for an update, "meetingKey". The update also looks at
  // "showCommunicationDlg", true when absent.
  int scheduleMeeting(const HostObject& parentWindow, const Value& data);
  int updateMeeting(const HostObject& parentWindow, const Value& data);
  // Takes "meetingKey". A number that must be left alone gets neither a request nor a reply.
  int deleteMeeting(const HostObject& parentWindow, const Value& data);
  // Takes "showCommunicationDlg" and "silentAPIError".
  int getUserProfile(const HostObject& parentWindow, const Value& data);
  // Takes "meetingKey", "showCommunicationDlg", "isForPMI" and the "language" inside "setting".
  int getMeeting(const HostObject& parentWindow, const Value& data);
  // Takes "showCommunicationDlg".
  int getPAC(const HostObject& parentWindow, const Value& data);
  // Takes "olApptUUID" and "showCommunicationDlg". No failure of it is ever shown.
  int getMeetingByApptUUID(const HostObject& parentWindow, const Value& data);
  // Asks for the meeting with the key "new". No caller here.
  int getNewMeetingDefault(const HostObject& parentWindow);
  int getScheduleForList(const HostObject& parentWindow);

  // The reply to a fetch of a meeting that is under way is nobody's, if it comes before the next fetch.
  void letGoOfMeeting();
  // The same of an update and of a deletion; and of all that isWaitingForTheService() tells of. The question by
  // UUID stays.
  void letGoOfUpdate();
  void letGoOfDelete();
  void letGoOfTheService();

  // The reply to such a request is waited for.
  bool isWaitingForMeeting() const;
  bool isWaitingForMeetingByApptUUID() const;
  bool isWaitingForDelete() const;
  bool isWaitingForUserProfile() const;
  // To any that a save waits for: a commit, a fetch by number, a deletion. The question by UUID is asked
  // unbidden and holds nothing back.
  bool isWaitingForTheService() const;
  bool isWaitingForScheduleForList() const;

  // The reply may still come, however late: to a commit; to a fetch of a meeting or of the profile.
  bool mayAnswerCommit() const;
  bool mayAnswerFetch() const;

  void showNoMeetingLicenseWindow(const HostObject& parentWindow);

  // Hands a result to the manager: the data under "vnAPIResponse" and the window's id under "keyApptWindowID",
  // each only when it is there. Nothing without a manager, which may have ended itself and this object when this
  // returns.
  void sendResponseToMeetingMgr(const HostObject& parentWindow, std::uint64_t command, const Value& data);

  // An envelope from the client, whichever transport brought it.
  void onMessageResponse(const Value& userInfo);
  void handleMessageRespose(const Value& userInfo);

 private:
  void initIPCChannel();
  // Calls act with the holder of each command; and of each that a save waits for.
  template <typename Act>
  void forEachCommand(Act act);
  template <typename Manager, typename Act>
  static void forEachCommandOfTheService(Manager& manager, Act act);
  // What the command that waits for the reply makes of it; absent when the manager is to hear nothing.
  std::optional<CommandResult> readReply(int action, const std::string& content);

  // Shared, because a reply's handler must outlast a cleanup() that the manager's answer brings about.
  std::shared_ptr<vnAPICommitMeeting> m_apiScheduleMeeting;
  std::shared_ptr<vnAPICommitMeeting> m_apiUpdateMeeting;
  std::shared_ptr<vnAPIGetMeeting> m_apiGetMeeting;
  std::shared_ptr<vnAPIGetUserProfile> m_apiGetUserProfile;
  std::shared_ptr<vnAPIDeleteMeeting> m_apiDeleteMeeting;
  std::shared_ptr<vnAPIGetMeetingByApptUUID> m_apiGetMeetingByApptUUID;
  std::shared_ptr<vnAPIGetPAC> m_apiGetPAC;
  MeetingCommandOwner* m_pMeetingMgr = nullptr;
  std::shared_ptr<vnAPIGetScheduleForList> m_apiGetScheduleForList;

  NotificationCenter::Subscription m_socketReplies;
  std::unique_ptr<DistributedNotifications::Subscription> m_distributedReplies;

  // What the handler of a reply, which may outlive this object, knows of its life.
  std::shared_ptr<vnAPIMgr*> m_self;
};

}  // namespace vorn
