#pragma once

#include <string_view>

#include "settings/PanelParts.h"

namespace vorn {

// Whether others may join before the host, and from when on. Main thread only.
class JoinBeforeHostOptions {
 public:
  explicit JoinBeforeHostOptions(const PanelParts& panel);

  void initJBHOptions();
  // Nobody can join before the host what is encrypted from end to end. Two steps: what depends on the switch moves
  // between them.
  void turnOffForEndToEnd();
  void hideForEndToEnd();
  void checkE2eeAffectedAccountLocked();

  // What the user has changed; nothing for a control that is not this group's.
  void userChanged(std::string_view key);

  // What a commit writes of it.
  void writeJoinBeforeHost();

 private:
  void onClickEnableJBHButton();
  void checkJbhPriorTimeAccountLocked();

  vnSettingData& m_record;
  const SettingsContext& m_context;
  PanelSteps& m_steps;

  Control& m_enableJBHButton;
  Control& m_jbhLimitTimePopUp;
  Control& m_jbhBeforeStartTime;
};

}  // namespace vorn
