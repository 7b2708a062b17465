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

  bool hostVideoOn() const { return m_hostVideoOn; }
  void setHostVideoOn(bool on) { m_hostVideoOn = on; }
  bool paticipantVideoOn() const { return m_paticipantVideoOn; }
  void setPaticipantVideoOn(bool on) { m_paticipantVideoOn = on; }
  // 0 telephony, 1 VoIP, 2 both, 3 third party; with a telephony provider 10 and 11 telephony with the first and
  // second account, 12 VoIP, 13 and 14 both with the first and second account; 100 no selection.
  std::int64_t audioType() const { return m_audioType; }
  void setAudioType(std::int64_t type) { m_audioType = type; }
  bool requiredMeetingPassword() const { return m_requiredMeetingPassword; }
  void setRequiredMeetingPassword(bool required) { m_requiredMeetingPassword = required; }
  const OptionalText& meetingPassword() const { return m_meetingPassword; }
  void setMeetingPassword(const OptionalText& password) { m_meetingPassword = password; }
  bool enableJBH() const { return m_enableJBH; }
  void setEnableJBH(bool enable) { m_enableJBH = enable; }
  bool usePMI() const { return m_usePMI; }
  void setUsePMI(bool use) { m_usePMI = use; }
  const OptionalText& roomMeetingId() const { return m_roomMeetingId; }
  void setRoomMeetingId(const OptionalText& id) { m_roomMeetingId = id; }
  bool enableThirdPartyAudio() const { return m_enableThirdPartyAudio; }
  void setEnableThirdPartyAudio(bool enable) { m_enableThirdPartyAudio = enable; }
  const OptionalText& thirdPartyAudio() const { return m_thirdPartyAudio; }
  void setThirdPartyAudio(const OptionalText& text) { m_thirdPartyAudio = text; }
  // Empty means oneself.
  const OptionalText& scheduleForEmail() const { return m_scheduleForEmail; }
  void setScheduleForEmail(const OptionalText& email) { m_scheduleForEmail = email; }
  bool isSignedInUsersMeetingOn() const { return m_isSignedInUsersMeetingOn; }
  void setIsSignedInUsersMeetingOn(bool on) { m_isSignedInUsersMeetingOn = on; }
  const OptionalText& restrictJoinDomains() const { return m_restrictJoinDomains; }
  void setRestrictJoinDomains(const OptionalText& domains) { m_restrictJoinDomains = domains; }
  // An array of dictionaries, absent when there is none.
  const Value& trackingFields() const;
  // Anything but an array leaves none.
  void setTrackingFields(const Value& fields);
  // Gives every field of that id the chosen value. A field's dictionary ends at the first absent value, so an
  // absent chosen value loses it "required" as well.
  void updateTrackingFieldMtValue(const OptionalText& id, const OptionalText& mtValue);
  bool enableAutoRecordingMtgLevelFirst() const { return m_enableAutoRecordingMtgLevelFirst; }
  void setEnableAutoRecordingMtgLevelFirst(bool enable) { m_enableAutoRecordingMtgLevelFirst = enable; }
  // 0 none, 1 local and 2 cloud when both are available, 3 local when only local is, 4 cloud when only cloud is,
  // 5 recording unavailable.
  std::int32_t emAutoRecordingType() const { return m_emAutoRecordingType; }
  void setEmAutoRecordingType(std::int32_t type) { m_emAutoRecordingType = type; }
  // This and the three arrays below are always arrays of texts; their setters take anything else as empty.
  const Value& arrAlternateHosts() const { return m_arrAlternateHosts; }
  void setAlternateHosts(const Value& hosts);
  bool muteUponEntry() const { return m_muteUponEntry; }
  void setMuteUponEntry(bool mute) { m_muteUponEntry = mute; }
  bool forceIncludeJoinurlInLocation() const { return m_forceIncludeJoinurlInLocation; }
  void setForceIncludeJoinurlInLocation(bool include) { m_forceIncludeJoinurlInLocation = include; }
  const Value& arrSelectedCountries() const { return m_arrSelectedCountries; }
  void setSelectedCountries(const Value& countries);
  bool includeTollfree() const { return m_includeTollfree; }
  void setIncludeTollfree(bool include) { m_includeTollfree = include; }
  const OptionalText& hash() const { return m_hash; }
  void setHash(const OptionalText& hash) { m_hash = hash; }
  bool enableShowIncludeTollfree() const { return m_enableShowIncludeTollfree; }
  void setEnableShowIncludeTollfree(bool enable) { m_enableShowIncludeTollfree = enable; }
  bool enablePublicEvent() const { return m_enablePublicEvent; }
  void setEnablePublicEvent(bool enable) { m_enablePublicEvent = enable; }
  bool enableAudioWatermark() const { return m_enableAudioWatermark; }
  void setEnableAudioWatermark(bool enable) { m_enableAudioWatermark = enable; }
  bool putTheInvitationAtTheTop() const { return m_putTheInvitationAtTheTop; }
  void setPutTheInvitationAtTheTop(bool top) { m_putTheInvitationAtTheTop = top; }
  const OptionalText& selectInvitationLanguage() const { return m_selectInvitationLanguage; }
  void setSelectInvitationLanguage(const OptionalText& language) { m_selectInvitationLanguage = language; }
  // Minutes before the start; 0 means any time.
  std::int64_t jbhPriorTime() const { return m_jbhPriorTime; }
  void setJbhPriorTime(std::int64_t minutes) { m_jbhPriorTime = minutes; }
  const OptionalText& authId() const { return m_authId; }
  void setAuthId(const OptionalText& id) { m_authId = id; }
  const OptionalText& authName() const { return m_authName; }
  void setAuthName(const OptionalText& name) { m_authName = name; }
  const OptionalText& authDomain() const { return m_authDomain; }
  void setAuthDomain(const OptionalText& domain) { m_authDomain = domain; }
  std::int64_t authType() const { return m_authType; }
  void setAuthType(std::int64_t type) { m_authType = type; }
  bool enableWaitingRoom() const { return m_enableWaitingRoom; }
  void setEnableWaitingRoom(bool enable) { m_enableWaitingRoom = enable; }
  bool supportWaitingRoom() const { return m_supportWaitingRoom; }
  void setSupportWaitingRoom(bool support) { m_supportWaitingRoom = support; }
  bool enableRegionCustomization() const { return m_enableRegionCustomization; }
  void setEnableRegionCustomization(bool enable) { m_enableRegionCustomization = enable; }
  const Value& arrAdditionalDCRegions() const { return m_arrAdditionalDCRegions; }
  void setArrAdditionalDCRegions(const Value& regions);
  bool enableUnmuteAll() const { return m_enableUnmuteAll; }
  void setEnableUnmuteAll(bool enable) { m_enableUnmuteAll = enable; }
  bool enableE2ee() const { return m_enableE2ee; }
  void setEnableE2ee(bool enable) { m_enableE2ee = enable; }
  const OptionalText& templateId() const { return m_templateId; }
  void setTemplateId(const OptionalText& id) { m_templateId = id; }
  const OptionalText& templateName() const { return m_templateName; }
  void setTemplateName(const OptionalText& name) { m_templateName = name; }
  std::int64_t templateType() const { return m_templateType; }
  void setTemplateType(std::int64_t type) { m_templateType = type; }
  bool enableAllowDenyJoinMeetingRegion() const { return m_enableAllowDenyJoinMeetingRegion; }
  void setEnableAllowDenyJoinMeetingRegion(bool enable) { m_enableAllowDenyJoinMeetingRegion = enable; }
  // 0 means that the listed regions are allowed, any other value that they are blocked.
  std::int64_t regionType() const { return m_regionType; }
  void setRegionType(std::int64_t type) { m_regionType = type; }
  const Value& arrRegionCodes() const { return m_arrRegionCodes; }
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

  bool m_hostVideoOn = false;
  bool m_paticipantVideoOn = false;
  std::int64_t m_audioType = 0;
  bool m_requiredMeetingPassword = false;
  OptionalText m_meetingPassword;
  bool m_enableJBH = false;
  bool m_usePMI = false;
  OptionalText m_roomMeetingId;
  bool m_enableThirdPartyAudio = false;
  OptionalText m_thirdPartyAudio;
  OptionalText m_scheduleForEmail;
  bool m_isSignedInUsersMeetingOn = false;
  OptionalText m_restrictJoinDomains;
  // Holds the array under its settings key.
  Value m_trackingFieldsHolder = Value::dictionary();
  bool m_enableAutoRecordingMtgLevelFirst = false;
  std::int32_t m_emAutoRecordingType = 0;
  Value m_arrAlternateHosts = Value::array();
  bool m_muteUponEntry = false;
  bool m_forceIncludeJoinurlInLocation = false;
  Value m_arrSelectedCountries = Value::array();
  bool m_includeTollfree = false;
  OptionalText m_hash;
  bool m_enableShowIncludeTollfree = false;
  bool m_enablePublicEvent = false;
  bool m_enableAudioWatermark = false;
  bool m_putTheInvitationAtTheTop = false;
  OptionalText m_selectInvitationLanguage;
  std::int64_t m_jbhPriorTime = 0;
  OptionalText m_authId;
  OptionalText m_authName;
  OptionalText m_authDomain;
  std::int64_t m_authType = 0;
  bool m_enableWaitingRoom = false;
  bool m_supportWaitingRoom = false;
  bool m_enableRegionCustomization = false;
  Value m_arrAdditionalDCRegions = Value::array();
  bool m_enableUnmuteAll = false;
  bool m_enableE2ee = false;
  OptionalText m_templateId;
  OptionalText m_templateName;
  std::int64_t m_templateType = 0;
  bool m_enableAllowDenyJoinMeetingRegion = false;
  std::int64_t m_regionType = 0;
  Value m_arrRegionCodes = Value::array();
};

}  // namespace vorn
