#pragma once

#include <memory>
#include <string>

#include "data/vnSettingData.h"
#include "settings/rules/PlainOptionRules.h"
#include "util/HostObject.h"
#include "util/Value.h"

namespace vorn {

class vnMeetingMgr;
class vnUserProfileHelper;

// What a panel asks of its appointment's window, of the account and of the client. It keeps no answer: every step
// of the panel goes by what stands when it runs. Main thread only.
class SettingsContext {
 public:
  SettingsContext(std::string windowId, const HostObject& parentWindow)
      : m_windowId(std::move(windowId)), m_parentWindow(parentWindow) {}

  const std::string& windowId() const { return m_windowId; }
  const HostObject& parentWindow() const { return m_parentWindow; }

  // The meeting that the window's manager has read; absent without a manager, empty without a meeting.
  Value meetingInfo() const;
  // The meeting exists already. False without a manager.
  bool isForUpdateVornMeeting() const;
  // The appointment is a series.
  bool isEnableRecurrence() const;
  // The appointment is longer than the account's plan allows. False without a manager.
  bool durationExceedThanMaxMins() const;
  // The people of the appointment; empty without an editor.
  Value attendeesList() const;
  // The meeting's number; "" without a manager or a meeting.
  std::string getVornMeetingKey() const;
  // The language in which the meeting's invitation was written last; absent when none was, "" without a manager.
  OptionalText getInvitationLanguage() const;
  // The name of a person whom the user schedules for; "" for anybody else.
  std::string getDisplayNameWithOnbehalfEmail(const std::string& email) const;
  // Whom the panel is opened for; "" for oneself.
  std::string scheduledForAtOpening() const;

  // The account that is signed in to the client, which the helper keeps.
  static vnUserProfileHelper& profile();
  // In which texts are ordered and compared.
  static std::string userLanguage();

  // Ask the client. The replies come to the panel; nothing without a manager.
  void getPMIMeetingInfo() const;
  void getScheduleForList() const;
  // Whether the client has yet to answer: with a meeting, with the people to schedule for.
  bool awaitsMeeting() const;
  bool awaitsScheduleForList() const;
  // Whether what was committed may still be answered.
  bool isCommitOnItsWay() const;

  // Of the account and the client, and of the person whom the record is scheduled for; without the account's
  // tracking fields and dial-in countries.
  OptionFacts facts(const vnSettingData& record) const;

 private:
  std::shared_ptr<vnMeetingMgr> manager() const;

  std::string m_windowId;
  HostObject m_parentWindow;
};

}  // namespace vorn
