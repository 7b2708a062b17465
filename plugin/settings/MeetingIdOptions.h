#pragma once

#include <string>
#include <string_view>

#include "settings/PanelParts.h"

namespace vorn {

// The number that the meeting gets: the personal ID of whom it is for, or one of its own; and the message that the
// personal ID is turned off. The index of a person is as in ScheduleForOptions. Main thread only.
class MeetingIdOptions {
 public:
  explicit MeetingIdOptions(const PanelParts& panel);

  void initWithLocalString();

  // The steps of loading, which the panel calls in its order.
  void initPMITitle();
  void initMeetingIDBox();
  void initPMIDisableMessageView(int index);
  void checkAccountLocked();
  void updateOneTimeMeetingTitle();

  // Another person is chosen.
  void updatePMITitle(int index);
  void leavePMIWithoutOne(int index);
  // Shows the personal meeting, from what was fetched before or when the client has answered.
  void getPMIMeetingInfo();
  // The same, if the personal ID is offered and chosen.
  void fetchChosenPMI();
  // Whether a personal meeting that has come is to be shown: the user may have turned to another person, or to a
  // number of its own, since it was asked for.
  bool isWantedPMI(const Value& meetingInfo) const;

  // What the user has changed; nothing for a control that is not this group's.
  void userChanged(std::string_view key);

  // Before every commit: a personal ID that has been turned off meanwhile is no meeting's. Gives 0.
  int checkPMISettingsCompliance(int index);

 private:
  // Whether the number is the personal one of somebody else than whom the meeting is for.
  bool isAnothersPMI(const std::string& number) const;
  bool isDisablePMI(int index) const;
  bool needShowMeetingID(int index) const { return !isDisablePMI(index); }
  // A person without one has nothing to choose.
  bool hasPMI(int index) const;
  std::string emailOf(int index) const;
  // "" for oneself.
  std::string getUsePMITitle(const std::string& email) const;
  void choosePMI(bool usePMI);
  void onClickMeetingIDType(bool usePMI);
  void onClickDisablePMIMessageCloseButton();
  // The user wants to see the message no more.
  static bool doNotShowDisablePMIMessage();
  static void setDoNotShowDisablePMIMessage(bool notAgain);

  ControlSet& m_controls;
  vnSettingData& m_record;
  const SettingsContext& m_context;
  PanelSteps& m_steps;

  // The meeting was loaded as a personal one, and the ID that is turned off has been taken from it since.
  bool m_hasLostPMI = false;

  Control& m_meetingIDBox;
  Control& m_buttonOneTimeMeeting;
  Control& m_buttonUsePMI;
  Control& m_pmiDisableMessageView;
  Control& m_pmiDisableText;
  Control& m_closePMIDisableMessageButton;
};

}  // namespace vorn
