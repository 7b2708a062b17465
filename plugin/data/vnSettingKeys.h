#pragma once

// The keys of the settings dictionary: the outward form of a meeting's options, as the panel edits it, the
// meeting reader makes it and the commit command consumes it. The literals are stored data.

#include <string_view>

#include "host/proxies/vnMeetingInfoKeys.h"

namespace vorn {

inline constexpr std::string_view vn_Setting_EnableHostVideo = "enableHostVideo";                        // bool
inline constexpr std::string_view vn_Setting_EnableParticipantsVideo = "enableParticipantsVideo";        // bool
inline constexpr std::string_view vn_Setting_AudioOption = "audioOption";                                // integer
inline constexpr std::string_view vn_Setting_TspAudioOption = "tspAudioOption";                          // integer
inline constexpr std::string_view vn_Setting_EnableThirdPartyAudio = "enableThirdPartyAudio";            // bool
inline constexpr std::string_view vn_Setting_ThirdPartyAudio = "thirdPartyAudio";                        // string
inline constexpr std::string_view vn_Setting_RequiredMPW = "requiredMeetingPassword";                    // bool
inline constexpr std::string_view vn_Setting_MeetingPassword = "meetingPassword";                        // string
inline constexpr std::string_view vn_Setting_EnableJBH = "enableJBH";                                    // bool
inline constexpr std::string_view vn_Setting_JBHPriorTime = "jbhPriorTime";                              // integer
inline constexpr std::string_view vn_Setting_IsPMI = "usePMI";                                           // bool
inline constexpr std::string_view vn_Setting_RoomMeetingId = "roomMeetingId";                            // string
inline constexpr std::string_view vn_Setting_MeetingKey = "meetingKey";                                  // string
inline constexpr std::string_view vn_Setting_NotShowMeAgain = "notShowMeAgain";                          // bool
inline constexpr std::string_view vn_Setting_NotShowUpgradeMessageAgain = "notShowUpgradeMessageAgain";  // bool
inline constexpr std::string_view vn_Setting_ScheduleFor = "scheduleFor";                                // string
inline constexpr std::string_view vn_Setting_TrackingFields = "trackingFields";       // array of dictionaries
inline constexpr std::string_view vn_Setting_TrackingFields_Id = "id";                // string
inline constexpr std::string_view vn_Setting_TrackingFields_Field = "trackingField";  // string
inline constexpr std::string_view vn_Setting_TrackingFields_Value = "trackingValue";  // string
inline constexpr std::string_view vn_Setting_TrackingFields_MtValue = "mtValue";      // string
inline constexpr std::string_view vn_Setting_TrackingFields_Required = "required";    // bool
inline constexpr std::string_view vn_Setting_IsSignedInUsersMeetingOn = "isSignedInUsersMeetingOn";  // bool
inline constexpr std::string_view vn_Setting_RestrictJoinDomains = "restrictJoinDomains";            // string
inline constexpr std::string_view vn_Setting_EnableAutoRecordingMtgLevelFirst =
    "enableAutoRecordingMtgLevelFirst";                                                            // bool
inline constexpr std::string_view vn_Setting_EnableAutoRecordingType = "enableAutoRecordingType";  // integer
inline constexpr std::string_view vn_Setting_EnableCloudRecording = "enableAutoRecordingCloud";    // bool
inline constexpr std::string_view vn_Setting_EnableLocalRecording = "enableAutoRecordingLocal";    // bool
inline constexpr std::string_view vn_Setting_MuteUponEntry = "muteOnEntry";                        // bool
inline constexpr std::string_view vn_Setting_AlternateHosts = "alternateHosts";  // array of strings
inline constexpr std::string_view vn_Setting_ForceIncludeJoinurlInLocation =
    "forceIncludeJoinurlInLocation";                                                             // bool
inline constexpr std::string_view vn_Setting_AvailableDialinCountry = "availableDialinCountry";  // dictionary
inline constexpr std::string_view vn_Setting_DialinCountry_SelectedCountries =
    "selectedCountries";  // array of strings
inline constexpr std::string_view vn_Setting_DialinCountry_IncludeTollfree = "includedTollfree";  // bool
inline constexpr std::string_view vn_Setting_DialinCountry_Hash = "hash";                         // string
inline constexpr std::string_view vn_Setting_DialinCountry_EnableShowIncludeTollfree =
    "enableShowIncludeTollfree";                                                                            // bool
inline constexpr std::string_view vn_Setting_EnableAddMeetingToPublicEvent = "enableMeetingToPublicEvent";  // bool
inline constexpr std::string_view vn_Setting_EnableAudioWatermark = "enableAudioWatermark";                 // bool
inline constexpr std::string_view vn_Setting_PutTheInvitationAtTheTop = "putTheInvitationAtTheTop";         // bool
inline constexpr std::string_view vn_Setting_SelectInvitationLanguage = "language";      // string
inline constexpr std::string_view vn_Setting_MeetingAuth = "meetingAuth";                // dictionary
inline constexpr std::string_view vn_Setting_MeetingAuth_AuthId = "authId";              // string
inline constexpr std::string_view vn_Setting_MeetingAuth_AuthName = "authName";          // string
inline constexpr std::string_view vn_Setting_MeetingAuth_AuthType = "authType";          // integer
inline constexpr std::string_view vn_Setting_MeetingAuth_AuthDomain = "authDomain";      // string
inline constexpr std::string_view vn_Setting_MeetingAuth_DefaultAuth = "defaultAuth";    // bool
inline constexpr std::string_view vn_Setting_EnableWaitingRoom = "enableWaitingRoom";    // bool
inline constexpr std::string_view vn_Setting_SupportWaitingRoom = "supportWaitingRoom";  // bool
inline constexpr std::string_view vn_Setting_EnableRegionCustomization = "enableRegionCustomization";  // bool
inline constexpr std::string_view vn_Setting_AdditionalDCRegions = "additionalDCRegions";    // array of strings
inline constexpr std::string_view vn_Setting_EnableUnmuteAll = "enableUnmuteAll";            // bool
inline constexpr std::string_view vn_Setting_EnableE2ee = "enableE2ee";                      // bool
inline constexpr std::string_view vn_Setting_MeetingTemplate = "meetingTemplate";            // dictionary
inline constexpr std::string_view vn_Setting_MeetingTemplate_TemplateId = "templateId";      // string
inline constexpr std::string_view vn_Setting_MeetingTemplate_TemplateName = "templateName";  // string
inline constexpr std::string_view vn_Setting_MeetingTemplate_TemplateType = "templateType";  // integer
inline constexpr std::string_view vn_Setting_EnableAllowDenyJoinMeetingRegion =
    "enableAllowDenyJoinMeetingRegion";                                      // bool
inline constexpr std::string_view vn_Setting_RegionType = "regionType";      // integer
inline constexpr std::string_view vn_Setting_RegionCodes = "regionCodes";    // array of strings
inline constexpr std::string_view vn_Setting_RegionPolicy = "RegionPolicy";  // dictionary
inline constexpr std::string_view vn_Setting_JoinMeetingRegionSetting = "joinMeetingRegionSetting";  // dictionary
inline constexpr std::string_view vn_Setting_DefaultRegionCode = "defaultRegionCode";                // string
inline constexpr std::string_view vn_Setting_TotalRegionCodes = "totalRegionCodes";                  // array
inline constexpr std::string_view vn_Setting_VnSrc = "vnSrc";                                        // string

}  // namespace vorn
