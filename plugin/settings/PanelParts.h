#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "platform/controls/ControlSet.h"
#include "settings/SettingsContext.h"

namespace vorn {

// The steps of the panel that reach beyond the group that asks for them. A group changes its own controls alone;
// what follows in others it leaves to these, and it reads the controls of others by their keys.
//
// Main thread only.
class PanelSteps {
 public:
  virtual ~PanelSteps() = default;

  // -- The panel
  // Continue can be used or not.
  virtual void checkScheduleButton() = 0;
  virtual void closeSubWindows() = 0;
  // The control gets the keyboard when the present event is over. Only the last wish counts.
  virtual void makeFirstResponderWithObject(std::string_view key) = 0;

  // -- Meeting ID, and whom the meeting is scheduled for; -1 is oneself, others are counted from 0
  virtual void refreshUI(bool forPMI) = 0;
  virtual void setPMIMeetingInfo(const Value& meetingInfo) = 0;
  // Fetches the personal meeting of whom the meeting is for, if that is what was chosen.
  virtual void fetchChosenPMI() = 0;
  virtual void updatePMITitle(int index) = 0;
  virtual void initPMIDisableMessageView(int index) = 0;
  // Another person is chosen, or the personal meeting: what is still open, or was loaded, for the meeting before
  // must not get into that one.
  virtual void leaveMeeting() = 0;
  // The meeting gets a number of its own if that person has no personal ID to use.
  virtual void leavePMIWithoutOne(int index) = 0;
  // The person's e-mail as the controls have it; "" for oneself. The record may still be another's.
  virtual std::string getUIScheduleForEmail() const = 0;
  virtual void setScheduleForListInfo(bool forOther) = 0;
  // The record has taken the account's defaults for a meeting with a number of its own: its words come back. The
  // options are those before.
  virtual void takeBackWords(const MeetingOptions& before) = 0;
  // The record has taken the account's defaults; what stays on the screen goes on to hold.
  virtual void keepShownSwitches() = 0;

  // -- What depends on the person
  virtual void initEncryptionBox() = 0;
  // Another person's countries, or the account's.
  virtual void initCountriesOfPerson(bool isOther) = 0;
  virtual void initTemplateBox() = 0;
  virtual void initDataCenterRegionsBox() = 0;
  virtual void initAllowDenyOptionBox() = 0;

  // -- Security
  virtual void checkIfPasswordRequired() = 0;
  virtual void hideRestrictDomainsBox() = 0;
  virtual void resetSecurityErrorTextField() = 0;
  virtual void updatePasswordStateWithJBHChanged() = 0;
  virtual void updateAffectedOptionsForE2ee() = 0;

  // -- Audio watermark, which depends on who may join
  virtual void initAudioWatermarkButton() = 0;
  virtual void initAudioWatermark() = 0;

  // -- Dial-in countries, which depend on the audio, the data centres and the join regions
  virtual void initCountriesFromRecord() = 0;
  virtual void initEditCountriesOptions() = 0;
  virtual void showEditCountriesOptionsAsAudioType(std::int64_t audioType) = 0;
  // Narrows the offer once more, because of the join regions or of the data centres.
  virtual void updateEditCountriesOptions(bool isFromRegion) = 0;
  // The tips that tell of countries that were taken away so.
  virtual void updateDataCenterImpactCountriesTipViewUI(bool isHidden) = 0;
  virtual void updateAllowDenyImpactCountriesTipViewUI(bool isHidden) = 0;
};

// What all groups of one panel share. The panel owns it all and outlives its groups.
struct PanelParts {
  ControlSet& controls;
  vnSettingData& record;
  const SettingsContext& context;
  PanelSteps& steps;
};

// Whose personal meeting is shown, "" being oneself; absent is a meeting with a number of its own.
OptionalText shownPerson(const vnSettingData& record, const PanelSteps& steps);

// The text behind a key with its values; what the rules take as their TextSource.
std::string panelText(std::string_view key, std::initializer_list<std::string_view> values = {});

}  // namespace vorn
