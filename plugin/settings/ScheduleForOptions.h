#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "settings/PanelParts.h"

namespace vorn {

// Whom the meeting is scheduled for: oneself, or one of the people who let the user do it for them. The index of a
// person is that of the popup less one; -1 is oneself. Main thread only.
class ScheduleForOptions {
 public:
  explicit ScheduleForOptions(const PanelParts& panel);

  void initWithLocalString();
  void initScheduleForBox();

  bool isForMyselfFromUI() const;
  int scheduleForIndex() const;
  // The person's e-mail, as the controls have it. For oneself "", one's own, and "".
  std::string getUIScheduleForEmail() const;
  std::string getScheduleForEmail() const;
  // Whose personal meeting it is; that of a number of its own is nobody's.
  std::string getScheduleForEmailFromUI() const;

  // Asks the client for the people with all that they have set. Nothing while it has yet to answer.
  void getScheduleForList();
  // The list has come, or another person is chosen: what depends on the person is theirs from now on.
  void setScheduleForListInfo(bool forOther);

  // What the user has changed; nothing for a control that is not this group's.
  void userChanged(std::string_view key);

  // What a commit writes of it.
  void writeScheduleFor();

 private:
  void scheduleForUserChanged();
  void onScheduleForItemChanged();

  ControlSet& m_controls;
  vnSettingData& m_record;
  const SettingsContext& m_context;
  PanelSteps& m_steps;

  // Of the popup's people: who is chosen is who the user sees, though the account may have others meanwhile.
  std::vector<std::string> m_emails;
  int m_thelastSchedulForIndex = -1;

  Control& m_scheduleForBox;
  Control& m_scheduleForPopup;
};

}  // namespace vorn
