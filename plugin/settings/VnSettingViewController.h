#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/NotificationCenter.h"
#include "settings/AllowDenyOptions.h"
#include "settings/AlternateHostOptions.h"
#include "settings/AudioOptions.h"
#include "settings/CountryOptions.h"
#include "settings/DataCenterOptions.h"
#include "settings/EncryptionOptions.h"
#include "settings/JoinBeforeHostOptions.h"
#include "settings/MeetingIdOptions.h"
#include "settings/PanelHistory.h"
#include "settings/PlainOptions.h"
#include "settings/ScheduleForOptions.h"
#include "settings/SecurityOptions.h"
#include "settings/SignInDomainOptions.h"
#include "settings/TemplateOptions.h"
#include "settings/VNDomainsWindowController.h"
#include "settings/VNEditCountriesWindowController.h"
#include "settings/VNPasswordRuleWindowController.h"
#include "settings/rules/ContinueRule.h"
#include "settings/rules/ControlKeys.h"
#include "settings/vnTrackingFieldsController.h"

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
  // Who hears that the panel shows the personal meeting, or one with a number of its own.
  void setRefreshTarget(std::function<void(bool forPMI)> target) { m_refreshTarget = std::move(target); }

  // Loads the panel: what the account gives a new meeting, and over it the meeting. Empty information is that of a
  // meeting that does not exist yet.
  void initFields(const Value& meetingInfo);
  // Loads the controls once more and keeps what the user has set.
  void updateUIItemsForNextTime();
  // Loads the controls from the record, as opening does.
  void initializeItems();
  // The record is the personal meeting's from now on, or the account's for a meeting with a number of its own.
  void refreshUI(bool forPMI) override;

  // `key` is "" for a press beside the controls.
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
  // The chosen template is gone; shows it.
  bool checkIfDeletedTemplate() const { return m_template.checkIfDeletedTemplate(); }
  void resetTemplateBoxUI();
  const ScheduleForOptions& scheduleFor() const { return m_scheduleFor; }
  // The e-mail of the person whose personal meeting is chosen; "" for oneself, and for a meeting with a number of
  // its own.
  std::string getScheduldForEmailFromUI() const { return m_scheduleFor.getScheduleForEmailFromUI(); }
  // The client has answered with the people to schedule for.
  void setScheduleForListInfo(bool forOther) override;
  // Before every commit: what the account has turned off meanwhile.
  void checkPMISettingsCompliance() { m_meetingId.checkPMISettingsCompliance(m_scheduleFor.scheduleForIndex()); }
  // False when data centres are wanted and none is chosen.
  bool getDataCenterIfSelected() const { return m_dataCenters.getDataCenterIfSelected(); }
  // Warns of it.
  void resetDataCenterBoxUI();

  // The record takes the controls, or goes back to where it was.
  void onSettingsCommit(bool isOK);
  // The settings dictionary of the record.
  Value getSettingsData() { return m_settingData.getSettingsData(); }
  // What it would be after a commit; the record stays as it is.
  Value settingsToCommit();

  vnSettingData& settingData() { return m_settingData; }
  const Value& getSiteMeetingInfo() const { return m_siteMeetingInfo; }
  void setPMIMeetingInfo(const Value& meetingInfo) override;
  // The personal meeting that was set last has come from the client.
  void onPMIMeetingInfo();

  // As SettingsPanel's operations of these names.
  void resetMeetingItemWhenUpdateError();
  void commitRefused();
  void commitStands();
  void updatePasswordAfterCommit(const OptionalText& passcode);
  void filterInvalidAlternateHosts(const Value& emails);

 private:
  // Why what cannot be used cannot, at the end of every change.
  void explain();
  ContinueFacts continueFacts() const;
  void initWithLocalString();
  void makeGoodWhatCameMeanwhile();
  void setSiteMeetingInfo(const Value& meetingInfo);
  enum class Commit { meant, tried };
  void takeControls(Commit commit);
  PanelHistory::State whatStands() const {
    return {m_settingData, m_countries.countryContent(), m_waitsForPersonalMeeting, m_waitsForList};
  }
  void goBack();
  // The edited one and those of the history.
  void changeRecords(const std::function<void(vnSettingData&)>& change);
  // Whether a dismissed panel goes back to this person, "" being oneself; the case of an address does not matter.
  bool isKeptPerson(const std::string& person) const;
  void keepWhatIsThePersons();
  void layPersonalMeetingOver(vnSettingData& record, const std::string& person) const;
  // What the user had put into a meeting, or chosen of how one gets in, is in the edited record again.
  void giveWordsOf(const vnSettingData& own);
  void closeWindows();
  void checkAccountLocked();
  void checkE2eeAffectedAccountLocked();
  void onSelectedCountriesChanged();
  void onTrackingFieldValueChanged() { checkScheduleButton(); }

  void leaveMeeting() override;
  void fetchChosenPMI() override { m_meetingId.fetchChosenPMI(); }
  void updatePMITitle(int index) override { m_meetingId.updatePMITitle(index); }
  void initPMIDisableMessageView(int index) override { m_meetingId.initPMIDisableMessageView(index); }
  void leavePMIWithoutOne(int index) override { m_meetingId.leavePMIWithoutOne(index); }
  std::string getUIScheduleForEmail() const override { return m_scheduleFor.getUIScheduleForEmail(); }
  void takeBackWords(const MeetingOptions& before) override;
  void keepShownSwitches() override { m_plainOptions.writeShownSwitches(); }
  void initEncryptionBox() override { m_encryption.initEncryptionBox(); }
  void initCountriesOfPerson(bool isOther) override { m_countries.initCountriesOfPerson(isOther); }
  void initTemplateBox() override { m_template.initTemplateBox(); }
  void initDataCenterRegionsBox() override { m_dataCenters.initDataCenterRegionsBox(); }
  void initAllowDenyOptionBox() override { m_allowDeny.initAllowDenyOptionBox(); }
  void checkIfPasswordRequired() override { m_security.checkIfPasswordRequired(); }
  void hideRestrictDomainsBox() override { m_signInDomains.hideRestrictDomainsBox(); }
  void resetSecurityErrorTextField() override { m_security.resetSecurityErrorTextField(); }
  void updatePasswordStateWithJBHChanged() override { m_security.updatePasswordStateWithJBHChanged(); }
  void updateAffectedOptionsForE2ee() override;
  void initAudioWatermarkButton() override { m_plainOptions.initAudioWatermarkButton(); }
  void initAudioWatermark() override { m_plainOptions.initAudioWatermark(); }
  void initCountriesFromRecord() override { m_countries.initCountriesFromRecord(); }
  void initEditCountriesOptions() override { m_countries.initEditCountriesOptions(); }
  void showEditCountriesOptionsAsAudioType(std::int64_t audioType) override {
    m_countries.showEditCountriesOptionsAsAudioType(audioType);
  }
  void updateEditCountriesOptions(bool isFromRegion) override {
    m_countries.updateEditCountriesOptions(isFromRegion);
  }
  void updateDataCenterImpactCountriesTipViewUI(bool isHidden) override {
    m_dataCenters.updateDataCenterImpactCountriesTipViewUI(isHidden);
  }
  void updateAllowDenyImpactCountriesTipViewUI(bool isHidden) override {
    m_allowDeny.updateAllowDenyImpactCountriesTipViewUI(isHidden);
  }

  const SettingsContext& m_context;
  vnSettingData m_settingData;
  PanelHistory m_history;
  bool m_waitsForPersonalMeeting = false;
  bool m_waitsForList = false;
  // As it was at the last load: telling it means to read the whole appointment.
  bool m_isEnableRecurrence = false;
  Value m_siteMeetingInfo = Value::dictionary();
  Value m_pmiMeetingInfo = Value::dictionary();
  ControlSet m_controls;
  const PanelParts m_parts{m_controls, m_settingData, m_context, *this};
  // The windows beside the panel are made in this order, and the regions' with their group.
  AlternateHostOptions m_alternateHosts{m_parts};
  VNEditCountriesWindowController m_editCountriesWindowController{m_controls};
  VNDomainsWindowController m_domainsWindowController{m_controls};
  VNPasswordRuleWindowController m_passwordRuleWindowController{m_controls};
  PlainOptions m_plainOptions{m_parts};
  SecurityOptions m_security{m_parts, m_passwordRuleWindowController};
  SignInDomainOptions m_signInDomains{m_parts, m_domainsWindowController};
  ScheduleForOptions m_scheduleFor{m_parts};
  MeetingIdOptions m_meetingId{m_parts};
  TemplateOptions m_template{m_parts};
  JoinBeforeHostOptions m_joinBeforeHost{m_parts};
  EncryptionOptions m_encryption{m_parts};
  AllowDenyOptions m_allowDeny{m_parts};
  DataCenterOptions m_dataCenters{m_parts};
  AudioOptions m_audio{m_parts};
  CountryOptions m_countries{m_parts, m_editCountriesWindowController};
  vnTrackingFieldsController m_trackingFieldsController{m_parts};
  Control& m_buttonContinue = m_controls.add(Control::Kind::button, control_key::buttonContinue);
  Control& m_buttonCancel = m_controls.add(Control::Kind::button, control_key::buttonCancel);
  std::function<void(bool forPMI)> m_refreshTarget;
  NotificationCenter::Subscription m_clientWaitEnded;
  NotificationCenter::Subscription m_trackingFieldChanges;
  NotificationCenter::Subscription m_countryChanges;
};

}  // namespace vorn
