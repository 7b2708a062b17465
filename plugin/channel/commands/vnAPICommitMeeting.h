#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "channel/commands/ClientRequests.h"
#include "channel/commands/vnAPIBase.h"

namespace vorn {

// Schedules a meeting or updates one: checks what the account's policy demands, reduces the working data to what
// the client of the moment understands, and reads the answer. Main thread only.
class vnAPICommitMeeting : public vnAPICommandFor<CommitOwner> {
 public:
  // The commit data: "apptInfo", "setting" and, for an existing meeting, "meetingKey".
  void setData(const Value& data);
  // The inner operation: 1 schedule, 2 update.
  void setMsgParamAction(std::uint64_t operation) { m_msgParamActionId = operation; }
  bool isUpdateMeeting() const { return m_msgParamActionId == InnerOperation::kUpdate; }
  bool hasValidMeetingInfo() const { return m_dataMeetingInfo.isPresent(); }

  // 0 when the request went out, and also when a check stopped it: the user has then been told, or is shown the
  // settings again. Otherwise the code for which the client's gate refused it.
  int doAction(const HostObject& parentWindow);
  // The reply with its inner operation. One field alone that is no error ends in silence.
  std::optional<CommandResult> onVornFeedback(int operation, const std::string& content);

  // The content of the request: the head and one JSON document. Tells the manager whom the meeting is scheduled
  // for. "" without data, and when the data holds what JSON cannot hold.
  std::string getAPIData();
  std::string getContentIdentifierHead() const;

  // Each is true when the data is fit to send.
  bool validateSecurityState();
  bool validateTemplateState();
  bool validateTrackingFieldsState();
  // True when the data must not be sent: it has no start, or it names a number that is never updated this way.
  bool checkMeetingInfoError();

  // Takes the personal meeting ID out of the settings that the user's next meeting starts from.
  static void updateSettingToNotUsePMI();
  // The client's name for a time zone that the host calls so, without white space at its ends; the given name
  // when the map does not know it, and absent for absence.
  static OptionalText getJodaTimezoneName(const OptionalText& name);

 private:
  void reopenSettings(const HostObject& parentWindow, bool isUpdate, int code);
  // Absent when the data holds what JSON cannot hold.
  OptionalText documentText() const;
  std::string contentOf(const OptionalText& document);
  Value apptInfoDocument() const;
  Value settingDocument() const;

  Value m_dataMeetingInfo = Value::dictionary();
  std::uint64_t m_msgParamActionId = InnerOperation::kSchedule;
};

}  // namespace vorn
