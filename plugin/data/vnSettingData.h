#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "util/Value.h"

namespace vorn {

// The record of one meeting's options. Main thread only.
//
// A new record is brought to the state of a new meeting by initSettingData(), may then be overlaid with a fetched
// meeting by initWithSiteMeetingInfo(), and is read by getSettingsData(). The order matters: the overlay leaves
// what the account has locked at the account's defaults. All it knows of the account it asks of the profile
// reader; without a profile, every step that the account drives is skipped.
class vnSettingData {
 public:
  // The rule kinds of a passcode, in the account's option and in the result of a validation, where a set bit is a
  // failed rule.
  enum PasswordRule : std::int64_t {
    kPswRuleOnlyNumber = 1,
    kPswRuleMinLength = 2,
    kPswRuleHasAlphabet = 4,
    kPswRuleHasNumber = 8,
    kPswRuleHasSpecial = 16,
    kPswRuleIncludeUpperLower = 32,
    kPswRuleContainConsecutive = 64,
  };

  // --- The options. Texts may be absent: a setter keeps what it is given.

  bool hostVideoOn() const { return hostVideoOn_; }
  void setHostVideoOn(bool on) { hostVideoOn_ = on; }
  bool paticipantVideoOn() const { return paticipantVideoOn_; }
  void setPaticipantVideoOn(bool on) { paticipantVideoOn_ = on; }
  // 0 telephony, 1 VoIP, 2 both, 3 third party; with a telephony provider 10 and 11 telephony with the first and
  // second account, 12 VoIP, 13 and 14 both with the first and second account; 100 no selection.
  std::int64_t audioType() const { return audioType_; }
  void setAudioType(std::int64_t type) { audioType_ = type; }
  bool requiredMeetingPassword() const { return requiredMeetingPassword_; }
  void setRequiredMeetingPassword(bool required) { requiredMeetingPassword_ = required; }
  const OptionalText& meetingPassword() const { return meetingPassword_; }
  void setMeetingPassword(const OptionalText& password) { meetingPassword_ = password; }
  bool enableJBH() const { return enableJBH_; }
  void setEnableJBH(bool enable) { enableJBH_ = enable; }
  bool usePMI() const { return usePMI_; }
  void setUsePMI(bool use) { usePMI_ = use; }
  const OptionalText& roomMeetingId() const { return roomMeetingId_; }
  void setRoomMeetingId(const OptionalText& id) { roomMeetingId_ = id; }
  bool enableThirdPartyAudio() const { return enableThirdPartyAudio_; }
  void setEnableThirdPartyAudio(bool enable) { enableThirdPartyAudio_ = enable; }
  const OptionalText& thirdPartyAudio() const { return thirdPartyAudio_; }
  void setThirdPartyAudio(const OptionalText& text) { thirdPartyAudio_ = text; }
  // Empty means oneself.
  const OptionalText& scheduleForEmail() const { return scheduleForEmail_; }
  void setScheduleForEmail(const OptionalText& email) { scheduleForEmail_ = email; }
  bool isSignedInUsersMeetingOn() const { return isSignedInUsersMeetingOn_; }
  void setIsSignedInUsersMeetingOn(bool on) { isSignedInUsersMeetingOn_ = on; }
  const OptionalText& restrictJoinDomains() const { return restrictJoinDomains_; }
  void setRestrictJoinDomains(const OptionalText& domains) { restrictJoinDomains_ = domains; }
  // An array of dictionaries, absent when there is none.
  const Value& trackingFields() const;
  // Anything but an array leaves none.
  void setTrackingFields(const Value& fields);
  // Gives every field of that id the chosen value. A field's dictionary ends at the first absent value, so an
  // absent chosen value loses it "required" as well.
  void updateTrackingFieldMtValue(const OptionalText& id, const OptionalText& mtValue);
  bool enableAutoRecordingMtgLevelFirst() const { return enableAutoRecordingMtgLevelFirst_; }
  void setEnableAutoRecordingMtgLevelFirst(bool enable) { enableAutoRecordingMtgLevelFirst_ = enable; }
  // 0 none, 1 local and 2 cloud when both are available, 3 local when only local is, 4 cloud when only cloud is,
  // 5 recording unavailable.
  std::int32_t emAutoRecordingType() const { return emAutoRecordingType_; }
  void setEmAutoRecordingType(std::int32_t type) { emAutoRecordingType_ = type; }
  // This and the three arrays below are always arrays of texts; their setters take anything else as empty.
  const Value& arrAlternateHosts() const { return arrAlternateHosts_; }
  void setAlternateHosts(const Value& hosts);
  bool muteUponEntry() const { return muteUponEntry_; }
  void setMuteUponEntry(bool mute) { muteUponEntry_ = mute; }
  bool forceIncludeJoinurlInLocation() const { return forceIncludeJoinurlInLocation_; }
  void setForceIncludeJoinurlInLocation(bool include) { forceIncludeJoinurlInLocation_ = include; }
  const Value& arrSelectedCountries() const { return arrSelectedCountries_; }
  void setSelectedCountries(const Value& countries);
  bool includeTollfree() const { return includeTollfree_; }
  void setIncludeTollfree(bool include) { includeTollfree_ = include; }
  const OptionalText& hash() const { return hash_; }
  void setHash(const OptionalText& hash) { hash_ = hash; }
  bool enableShowIncludeTollfree() const { return enableShowIncludeTollfree_; }
  void setEnableShowIncludeTollfree(bool enable) { enableShowIncludeTollfree_ = enable; }
  bool enablePublicEvent() const { return enablePublicEvent_; }
  void setEnablePublicEvent(bool enable) { enablePublicEvent_ = enable; }
  bool enableAudioWatermark() const { return enableAudioWatermark_; }
  void setEnableAudioWatermark(bool enable) { enableAudioWatermark_ = enable; }
  bool putTheInvitationAtTheTop() const { return putTheInvitationAtTheTop_; }
  void setPutTheInvitationAtTheTop(bool top) { putTheInvitationAtTheTop_ = top; }
  const OptionalText& selectInvitationLanguage() const { return selectInvitationLanguage_; }
  void setSelectInvitationLanguage(const OptionalText& language) { selectInvitationLanguage_ = language; }
  // Minutes before the start; 0 means any time.
  std::int64_t jbhPriorTime() const { return jbhPriorTime_; }
  void setJbhPriorTime(std::int64_t minutes) { jbhPriorTime_ = minutes; }
  const OptionalText& authId() const { return authId_; }
  void setAuthId(const OptionalText& id) { authId_ = id; }
  const OptionalText& authName() const { return authName_; }
  void setAuthName(const OptionalText& name) { authName_ = name; }
  const OptionalText& authDomain() const { return authDomain_; }
  void setAuthDomain(const OptionalText& domain) { authDomain_ = domain; }
  std::int64_t authType() const { return authType_; }
  void setAuthType(std::int64_t type) { authType_ = type; }
  bool enableWaitingRoom() const { return enableWaitingRoom_; }
  void setEnableWaitingRoom(bool enable) { enableWaitingRoom_ = enable; }
  bool supportWaitingRoom() const { return supportWaitingRoom_; }
  void setSupportWaitingRoom(bool support) { supportWaitingRoom_ = support; }
  bool enableRegionCustomization() const { return enableRegionCustomization_; }
  void setEnableRegionCustomization(bool enable) { enableRegionCustomization_ = enable; }
  const Value& arrAdditionalDCRegions() const { return arrAdditionalDCRegions_; }
  void setArrAdditionalDCRegions(const Value& regions);
  bool enableUnmuteAll() const { return enableUnmuteAll_; }
  void setEnableUnmuteAll(bool enable) { enableUnmuteAll_ = enable; }
  bool enableE2ee() const { return enableE2ee_; }
  void setEnableE2ee(bool enable) { enableE2ee_ = enable; }
  const OptionalText& templateId() const { return templateId_; }
  void setTemplateId(const OptionalText& id) { templateId_ = id; }
  const OptionalText& templateName() const { return templateName_; }
  void setTemplateName(const OptionalText& name) { templateName_ = name; }
  std::int64_t templateType() const { return templateType_; }
  void setTemplateType(std::int64_t type) { templateType_ = type; }
  bool enableAllowDenyJoinMeetingRegion() const { return enableAllowDenyJoinMeetingRegion_; }
  void setEnableAllowDenyJoinMeetingRegion(bool enable) { enableAllowDenyJoinMeetingRegion_ = enable; }
  // 0 means that the listed regions are allowed, any other value that they are blocked.
  std::int64_t regionType() const { return regionType_; }
  void setRegionType(std::int64_t type) { regionType_ = type; }
  const Value& arrRegionCodes() const { return arrRegionCodes_; }
  void setArrRegionCodes(const Value& codes);

  // Lives in the user defaults; the setter brings it to the disk at once.
  bool notShowMeAgain() const;
  void setNotShowMeAgain(bool notShow);
  void saveForceIncludeJoinurlInLocationToUserDefault(bool include);
  void savePutInvitationAtTheTopToUserDefault(bool top);

  // --- The state of a new meeting.

  // The three steps below, one after another.
  void initSettingData();
  // The fields to their fixed values, and the user's wish not to see the panel to false.
  void resetFields();
  // Then the account's defaults, and then what the user chose last.
  void initWithUserProfileDefault();
  void initSubDataWithUserProfile(bool usePMI);
  void initAudioTypeWithUserProfile();
  void initWithSavedProfile();

  // --- Exchange with the dictionaries.

  // Overlays a fetched or stored meeting, given as meeting information. An empty dictionary changes nothing.
  void initWithSiteMeetingInfo(const Value& meetingInfo);
  // A new settings dictionary. Absent third-party audio, schedule-for e-mail and, when it is required, passcode
  // become "" in the record.
  Value getSettingsData();
  // For an edited personal meeting, whose passcode follows the meeting alone.
  void resetRequiredPasswordForEditPMIMeeting(const Value& meetingInfo);

  // --- For a user who never sees the panel and still has to get a consistent meeting.

  void resetMeetingAuthForNotShowAgain();
  void resetWaitingRoomPasscodeStateForNotShowAgain();
  void resetAffectedStateByE2eeForNotShowAgain();

  // --- Passcodes. Lengths count UTF-16 units. The rules are the account's.

  // True when the passcode passes; the result is the set of failed rules.
  static bool ValidateMeetingPassword(const OptionalText& password, std::int64_t& strResult);
  // True when the text holds a run of that many equal, rising or falling characters, or a piece of a keyboard row.
  static bool IsPasswordConsecutiveString(const OptionalText& password, std::int64_t len, bool bIgnoreCase);
  // True when the text stands inside a row of the keyboard, read forward.
  static bool IsKeyboardConsecutive(const OptionalText& text);
  // A passcode made by the account's rules. After five refused ones the next is taken untested.
  static std::string getRandomPassWord();
  static std::string GetNumberPassword(std::int64_t length);
  static std::string GetComplexPassword(std::int64_t length, const std::string& charset);
  static std::string GetNumberalphabetPassword(std::int64_t length);
  static std::string GetPasswordWithRules(std::int64_t length);
  static std::string ShuffleStr(const std::string& text);

  // A meeting number in groups: "123 456 7890". "" for an absent text.
  static std::string getFormatRoomMeetingId(const OptionalText& meetingId);

  // Lets go of all texts and containers; the record must not be used after.
  void cleanup();

 private:
  void initRecordingWithUserProfile();
  void initPasswordWithUserProfile(bool usePMI);
  void initRegionPolicyWithUserProfile();
  void applySavedTspAudio(std::int64_t saved);
  void overlayPassword(const Value& setting);
  void overlayTrackingFields(const Value& fields);
  void overlayDialinCountries(const Value& countries);

  bool hostVideoOn_ = false;
  bool paticipantVideoOn_ = false;
  std::int64_t audioType_ = 0;
  bool requiredMeetingPassword_ = false;
  OptionalText meetingPassword_;
  bool enableJBH_ = false;
  bool usePMI_ = false;
  OptionalText roomMeetingId_;
  bool enableThirdPartyAudio_ = false;
  OptionalText thirdPartyAudio_;
  OptionalText scheduleForEmail_;
  bool isSignedInUsersMeetingOn_ = false;
  OptionalText restrictJoinDomains_;
  // Holds the array under its settings key.
  Value trackingFieldsHolder_ = Value::dictionary();
  bool enableAutoRecordingMtgLevelFirst_ = false;
  std::int32_t emAutoRecordingType_ = 0;
  Value arrAlternateHosts_ = Value::array();
  bool muteUponEntry_ = false;
  bool forceIncludeJoinurlInLocation_ = false;
  Value arrSelectedCountries_ = Value::array();
  bool includeTollfree_ = false;
  OptionalText hash_;
  bool enableShowIncludeTollfree_ = false;
  bool enablePublicEvent_ = false;
  bool enableAudioWatermark_ = false;
  bool putTheInvitationAtTheTop_ = false;
  OptionalText selectInvitationLanguage_;
  std::int64_t jbhPriorTime_ = 0;
  OptionalText authId_;
  OptionalText authName_;
  OptionalText authDomain_;
  std::int64_t authType_ = 0;
  bool enableWaitingRoom_ = false;
  bool supportWaitingRoom_ = false;
  bool enableRegionCustomization_ = false;
  Value arrAdditionalDCRegions_ = Value::array();
  bool enableUnmuteAll_ = false;
  bool enableE2ee_ = false;
  OptionalText templateId_;
  OptionalText templateName_;
  std::int64_t templateType_ = 0;
  bool enableAllowDenyJoinMeetingRegion_ = false;
  std::int64_t regionType_ = 0;
  Value arrRegionCodes_ = Value::array();
};

}  // namespace vorn
