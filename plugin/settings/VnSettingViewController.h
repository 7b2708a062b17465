#pragma once

#include <string>
#include <string_view>

#include "settings/AllowDenyOptions.h"
#include "settings/AlternateHostOptions.h"
#include "settings/EncryptionOptions.h"
#include "settings/JoinBeforeHostOptions.h"
#include "settings/PlainOptions.h"
#include "settings/SecurityOptions.h"
#include "settings/SignInDomainOptions.h"
#include "settings/VNPasswordRuleWindowController.h"
#include "settings/rules/ContinueRule.h"

namespace vorn {

// The options of one panel: the record that it edits, the controls that show it, and the order in which they are
// loaded and committed. Each step reads the record and the account as they stand when it runs, and a later one may
// overwrite an earlier one.
//
// The context outlives it. Main thread only.
class VnSettingViewController final : private PanelSteps {
 public:
  explicit VnSettingViewController(const SettingsContext& context);
  ~VnSettingViewController() override;
  VnSettingViewController(const VnSettingViewController&) = delete;
  VnSettingViewController& operator=(const VnSettingViewController&) = delete;

  ControlSet& controls() { return m_controls; }

  // Loads the panel: what the account gives a new meeting, and over it the meeting. Empty information is that of a
  // meeting that does not exist yet.
  void initFields(const Value& meetingInfo);
  // Loads the controls once more and keeps what the user has set.
  void updateUIItemsForNextTime();
  void initializeItems();
  // The record is the personal meeting's from now on, or the account's for a meeting with a number of its own.
  void refreshUI(bool forPMI);

  // A press beside the controls, or on one that has nothing to say, comes with the key of none.
  void userChanged(std::string_view key);
  // The passcode's field has another text.
  void fieldTextChange() { m_security.fieldTextChange(); }
  void checkScheduleButton() override;
  void closeSubWindows() override;
  void makeFirstResponderWithObject(std::string_view key) override;

  // The failed rules of the passcode; 0 when none is asked for.
  std::int64_t getPasswordRuleResult() const { return m_security.getPasswordRuleResult(); }
  // Shows them.
  void resetPasswordRuleUI();

  // The record takes the controls, or goes back to where it was.
  void onSettingsCommit(bool isOK);
  // The settings dictionary of the record.
  Value getSettingsData() { return m_settingData.getSettingsData(); }
  // What it would be after a commit; the record stays as it is.
  Value settingsToCommit();

  vnSettingData& settingData() { return m_settingData; }
  const Value& getSiteMeetingInfo() const { return m_siteMeetingInfo; }
  void setPMIMeetingInfo(const Value& meetingInfo);
  void resetMeetingItemWhenUpdateError();
  void updatePasswordAfterCommit(const OptionalText& passcode);

 private:
  // Why what cannot be used cannot, at the end of every change.
  void explain();
  ContinueFacts continueFacts() const;
  void initWithLocalString();
  void setSiteMeetingInfo(const Value& meetingInfo);
  enum class Commit { meant, tried };
  void takeControls(Commit commit);
  void throwEditsAway();
  void checkAccountLocked();
  void checkE2eeAffectedAccountLocked();

  void hideRestrictDomainsBox() override { m_signInDomains.hideRestrictDomainsBox(); }
  void resetSecurityErrorTextField() override { m_security.resetSecurityErrorTextField(); }
  void updatePasswordStateWithJBHChanged() override { m_security.updatePasswordStateWithJBHChanged(); }
  void updateAffectedOptionsForE2ee() override;
  // The dial-in countries have no group yet.
  void updateEditCountriesOptions(bool /*fromRegion*/) override {}
  void updateAllowDenyImpactCountriesTipViewUI(bool isHidden) override {
    m_allowDeny.updateAllowDenyImpactCountriesTipViewUI(isHidden);
  }
  void initAudioWatermarkButton() override { m_plainOptions.initAudioWatermarkButton(); }
  void initAudioWatermark() override { m_plainOptions.initAudioWatermark(); }

  const SettingsContext& m_context;
  vnSettingData m_settingData;
  // A new meeting has no information to go back to, so it goes back to this: what was loaded or committed last.
  vnSettingData m_keptOfNewMeeting;
  Value m_siteMeetingInfo = Value::dictionary();
  Value m_pmiMeetingInfo = Value::dictionary();
  ControlSet m_controls;
  const PanelParts m_parts{m_controls, m_settingData, m_context, *this};
  VNPasswordRuleWindowController m_passwordRuleWindowController{m_controls};
  PlainOptions m_plainOptions{m_parts};
  SecurityOptions m_security{m_parts, m_passwordRuleWindowController};
  SignInDomainOptions m_signInDomains{m_parts};
  JoinBeforeHostOptions m_joinBeforeHost{m_parts};
  EncryptionOptions m_encryption{m_parts};
  AlternateHostOptions m_alternateHosts{m_parts};
  AllowDenyOptions m_allowDeny{m_parts};
  Control& m_buttonContinue = m_controls.add(Control::Kind::button, "buttonContinue");
  Control& m_buttonCancel = m_controls.add(Control::Kind::button, "buttonCancel");
};

}  // namespace vorn
