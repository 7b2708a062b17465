#pragma once

#include <string_view>

#include "settings/PanelParts.h"

namespace vorn {

// Whether only signed-in users may join. Main thread only.
class SignInDomainOptions {
 public:
  explicit SignInDomainOptions(const PanelParts& panel);

  void initOnlySignedin();
  void initRestrictDomainsBox();
  void checkAccountLocked();
  void hideRestrictDomainsBox() { m_restrictDomainsBox.hidden = true; }

  // What the user has changed; nothing for a control that is not this group's.
  void userChanged(std::string_view key);

  // What a commit writes of it.
  void writeSignIn();

 private:
  void onClickOnlySignedinSpecifiedDomains();

  vnSettingData& m_record;
  const SettingsContext& m_context;
  PanelSteps& m_steps;

  Control& m_restrictDomainsBox;
  Control& m_onlySignedinWithSpecifiedDomains;
};

}  // namespace vorn
