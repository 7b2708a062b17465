#pragma once

#include <cstdint>

#include "util/Value.h"

namespace vorn {

// One meeting's options, as a plain value. Texts may be absent.
struct MeetingOptions {
  bool hostVideoOn = false;
  bool paticipantVideoOn = false;
  // As AudioType numbers it.
  std::int64_t audioType = 0;
  bool requiredMeetingPassword = false;
  OptionalText meetingPassword{};
  bool enableJBH = false;
  bool usePMI = false;
  OptionalText roomMeetingId{};
  bool enableThirdPartyAudio = false;
  OptionalText thirdPartyAudio{};
  // Empty means oneself.
  OptionalText scheduleForEmail{};
  bool isSignedInUsersMeetingOn = false;
  OptionalText restrictJoinDomains{};
  // An array of dictionaries, absent when there is none.
  Value trackingFields{};
  bool enableAutoRecordingMtgLevelFirst = false;
  // As RecordingType numbers it.
  std::int32_t emAutoRecordingType = 0;
  // This and the three arrays below are always arrays of texts.
  Value arrAlternateHosts = Value::array();
  bool muteUponEntry = false;
  bool forceIncludeJoinurlInLocation = false;
  Value arrSelectedCountries = Value::array();
  bool includeTollfree = false;
  OptionalText hash{};
  bool enableShowIncludeTollfree = false;
  bool enablePublicEvent = false;
  bool enableAudioWatermark = false;
  bool putTheInvitationAtTheTop = false;
  OptionalText selectInvitationLanguage{};
  // Minutes before the start; 0 means any time.
  std::int64_t jbhPriorTime = 0;
  OptionalText authId{};
  OptionalText authName{};
  OptionalText authDomain{};
  std::int64_t authType = 0;
  bool enableWaitingRoom = false;
  bool supportWaitingRoom = false;
  bool enableRegionCustomization = false;
  Value arrAdditionalDCRegions = Value::array();
  bool enableUnmuteAll = false;
  bool enableE2ee = false;
  OptionalText templateId{};
  OptionalText templateName{};
  std::int64_t templateType = 0;
  bool enableAllowDenyJoinMeetingRegion = false;
  // 0 means that the listed regions are allowed, any other value that they are blocked.
  std::int64_t regionType = 0;
  Value arrRegionCodes = Value::array();
};

// The settings dictionary. What a user wishes of the panel is no option of the meeting, so it is told.
Value settingsOf(const MeetingOptions& options, bool notShowMeAgain);

// The value when it is an array, otherwise an empty one.
Value arrayOrEmpty(const Value& value);

}  // namespace vorn
