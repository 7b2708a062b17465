#pragma once

#include <cstdint>
#include <string>

#include "data/MeetingOptions.h"
#include "data/Passcodes.h"
#include "util/Value.h"

namespace vorn {

// The record of one meeting's options: the plain value, its rules with what the account, the client and the user
// say now, and the user's wishes in the user defaults. Main thread only.
//
// A new record is brought to the state of a new meeting by initSettingData(), may then be overlaid with a fetched
// meeting by initWithSiteMeetingInfo(), and is read by getSettingsData(). The order matters: the overlay leaves
// what the account has locked at the account's defaults. Without a profile, every step that the account drives is
// skipped.
class vnSettingData {
 public:
  const MeetingOptions& options() const { return m_options; }

  // --- The options, each with its pair; not every one has a caller here. Texts may be absent: a setter keeps what
  // it is given.

  bool hostVideoOn() const { return m_options.hostVideoOn; }
  void setHostVideoOn(bool on) { m_options.hostVideoOn = on; }
  bool paticipantVideoOn() const { return m_options.paticipantVideoOn; }
  void setPaticipantVideoOn(bool on) { m_options.paticipantVideoOn = on; }
  std::int64_t audioType() const { return m_options.audioType; }
  void setAudioType(std::int64_t type) { m_options.audioType = type; }
  bool requiredMeetingPassword() const { return m_options.requiredMeetingPassword; }
  void setRequiredMeetingPassword(bool required) { m_options.requiredMeetingPassword = required; }
  const OptionalText& meetingPassword() const { return m_options.meetingPassword; }
  void setMeetingPassword(const OptionalText& password) { m_options.meetingPassword = password; }
  bool enableJBH() const { return m_options.enableJBH; }
  void setEnableJBH(bool enable) { m_options.enableJBH = enable; }
  bool usePMI() const { return m_options.usePMI; }
  void setUsePMI(bool use) { m_options.usePMI = use; }
  const OptionalText& roomMeetingId() const { return m_options.roomMeetingId; }
  void setRoomMeetingId(const OptionalText& id) { m_options.roomMeetingId = id; }
  bool enableThirdPartyAudio() const { return m_options.enableThirdPartyAudio; }
  void setEnableThirdPartyAudio(bool enable) { m_options.enableThirdPartyAudio = enable; }
  const OptionalText& thirdPartyAudio() const { return m_options.thirdPartyAudio; }
  void setThirdPartyAudio(const OptionalText& text) { m_options.thirdPartyAudio = text; }
  const OptionalText& scheduleForEmail() const { return m_options.scheduleForEmail; }
  void setScheduleForEmail(const OptionalText& email) { m_options.scheduleForEmail = email; }
  bool isSignedInUsersMeetingOn() const { return m_options.isSignedInUsersMeetingOn; }
  void setIsSignedInUsersMeetingOn(bool on) { m_options.isSignedInUsersMeetingOn = on; }
  const OptionalText& restrictJoinDomains() const { return m_options.restrictJoinDomains; }
  void setRestrictJoinDomains(const OptionalText& domains) { m_options.restrictJoinDomains = domains; }
  const Value& trackingFields() const { return m_options.trackingFields; }
  // Anything but an array leaves none.
  void setTrackingFields(const Value& fields) { m_options.trackingFields = fields.isArray() ? fields : Value(); }
  // Gives every field of that id the chosen value. A field's dictionary ends at the first absent value, so an
  // absent chosen value loses it "required" as well.
  void updateTrackingFieldMtValue(const OptionalText& id, const OptionalText& mtValue);
  bool enableAutoRecordingMtgLevelFirst() const { return m_options.enableAutoRecordingMtgLevelFirst; }
  void setEnableAutoRecordingMtgLevelFirst(bool enable) { m_options.enableAutoRecordingMtgLevelFirst = enable; }
  std::int32_t emAutoRecordingType() const { return m_options.emAutoRecordingType; }
  void setEmAutoRecordingType(std::int32_t type) { m_options.emAutoRecordingType = type; }
  // The setters of this and of the three arrays below take anything but an array as empty.
  const Value& arrAlternateHosts() const { return m_options.arrAlternateHosts; }
  void setAlternateHosts(const Value& hosts) { m_options.arrAlternateHosts = arrayOrEmpty(hosts); }
  bool muteUponEntry() const { return m_options.muteUponEntry; }
  void setMuteUponEntry(bool mute) { m_options.muteUponEntry = mute; }
  bool forceIncludeJoinurlInLocation() const { return m_options.forceIncludeJoinurlInLocation; }
  void setForceIncludeJoinurlInLocation(bool include) { m_options.forceIncludeJoinurlInLocation = include; }
  const Value& arrSelectedCountries() const { return m_options.arrSelectedCountries; }
  void setSelectedCountries(const Value& countries) { m_options.arrSelectedCountries = arrayOrEmpty(countries); }
  bool includeTollfree() const { return m_options.includeTollfree; }
  void setIncludeTollfree(bool include) { m_options.includeTollfree = include; }
  const OptionalText& hash() const { return m_options.hash; }
  void setHash(const OptionalText& hash) { m_options.hash = hash; }
  bool enableShowIncludeTollfree() const { return m_options.enableShowIncludeTollfree; }
  void setEnableShowIncludeTollfree(bool enable) { m_options.enableShowIncludeTollfree = enable; }
  bool enablePublicEvent() const { return m_options.enablePublicEvent; }
  void setEnablePublicEvent(bool enable) { m_options.enablePublicEvent = enable; }
  bool enableAudioWatermark() const { return m_options.enableAudioWatermark; }
  void setEnableAudioWatermark(bool enable) { m_options.enableAudioWatermark = enable; }
  bool putTheInvitationAtTheTop() const { return m_options.putTheInvitationAtTheTop; }
  void setPutTheInvitationAtTheTop(bool top) { m_options.putTheInvitationAtTheTop = top; }
  const OptionalText& selectInvitationLanguage() const { return m_options.selectInvitationLanguage; }
  void setSelectInvitationLanguage(const OptionalText& language) { m_options.selectInvitationLanguage = language; }
  std::int64_t jbhPriorTime() const { return m_options.jbhPriorTime; }
  void setJbhPriorTime(std::int64_t minutes) { m_options.jbhPriorTime = minutes; }
  const OptionalText& authId() const { return m_options.authId; }
  void setAuthId(const OptionalText& id) { m_options.authId = id; }
  const OptionalText& authName() const { return m_options.authName; }
  void setAuthName(const OptionalText& name) { m_options.authName = name; }
  const OptionalText& authDomain() const { return m_options.authDomain; }
  void setAuthDomain(const OptionalText& domain) { m_options.authDomain = domain; }
  std::int64_t authType() const { return m_options.authType; }
  void setAuthType(std::int64_t type) { m_options.authType = type; }
  // How people sign in as another record has it: these four belong together.
  void setSignInChoice(const MeetingOptions& from);
  // None: the account's default is chosen then, where it has one.
  void clearSignInChoice() { setSignInChoice({.authId = "", .authName = "", .authDomain = ""}); }
  bool enableWaitingRoom() const { return m_options.enableWaitingRoom; }
  void setEnableWaitingRoom(bool enable) { m_options.enableWaitingRoom = enable; }
  bool supportWaitingRoom() const { return m_options.supportWaitingRoom; }
  void setSupportWaitingRoom(bool support) { m_options.supportWaitingRoom = support; }
  bool enableRegionCustomization() const { return m_options.enableRegionCustomization; }
  void setEnableRegionCustomization(bool enable) { m_options.enableRegionCustomization = enable; }
  const Value& arrAdditionalDCRegions() const { return m_options.arrAdditionalDCRegions; }
  void setArrAdditionalDCRegions(const Value& regions) {
    m_options.arrAdditionalDCRegions = arrayOrEmpty(regions);
  }
  bool enableUnmuteAll() const { return m_options.enableUnmuteAll; }
  void setEnableUnmuteAll(bool enable) { m_options.enableUnmuteAll = enable; }
  bool enableE2ee() const { return m_options.enableE2ee; }
  void setEnableE2ee(bool enable) { m_options.enableE2ee = enable; }
  const OptionalText& templateId() const { return m_options.templateId; }
  void setTemplateId(const OptionalText& id) { m_options.templateId = id; }
  const OptionalText& templateName() const { return m_options.templateName; }
  void setTemplateName(const OptionalText& name) { m_options.templateName = name; }
  std::int64_t templateType() const { return m_options.templateType; }
  void setTemplateType(std::int64_t type) { m_options.templateType = type; }
  bool enableAllowDenyJoinMeetingRegion() const { return m_options.enableAllowDenyJoinMeetingRegion; }
  void setEnableAllowDenyJoinMeetingRegion(bool enable) { m_options.enableAllowDenyJoinMeetingRegion = enable; }
  std::int64_t regionType() const { return m_options.regionType; }
  void setRegionType(std::int64_t type) { m_options.regionType = type; }
  const Value& arrRegionCodes() const { return m_options.arrRegionCodes; }
  void setArrRegionCodes(const Value& codes) { m_options.arrRegionCodes = arrayOrEmpty(codes); }

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

  static PasscodePolicy passcodePolicy();
  // True when the passcode passes; the result is the set of failed rules.
  static bool ValidateMeetingPassword(const OptionalText& password, std::int64_t& strResult);
  // True when the text holds a run of that many equal, rising or falling characters, or a piece of a keyboard row.
  static bool IsPasswordConsecutiveString(const OptionalText& password, std::int64_t len, bool bIgnoreCase);
  // True when the text stands inside a row of the keyboard, read forward.
  static bool IsKeyboardConsecutive(const OptionalText& text);
  // A passcode made by the account's rules. After five refused ones the next is taken untested.
  static std::string getRandomPassWord();
  // Its steps, which stand among the record's operations and have no caller here.
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
  MeetingOptions m_options;
};

}  // namespace vorn
