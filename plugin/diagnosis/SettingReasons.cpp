#include "diagnosis/SettingReasons.h"

#include <array>
#include <optional>

#include "channel/discovery/vnClientConstants.h"
#include "channel/discovery/vnClientFeatureMgr.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "diagnosis/ProfileQuestions.h"

namespace vorn {

namespace {

// From which version of the client on a setting can be used.
struct ClientGate {
  std::string_view predicate;
  std::string_view version;
};

constexpr ClientGate kAutoRecord{"isVornClientSupportAutoRecord", kVornClientSupportAutoRecording};
constexpr ClientGate kPublicEvent{"isVornClientSupportPublicEvent", kVornClientSupportPublicEvent};

// Two settings have one rule for a meeting of its own and another for the personal meeting.
enum class Meeting { any, ownNumber, personalNumber };

// The profile's accessors that have a say in a setting: those by which it is offered at all, those that give its
// value, the strongest first, and the one by which it is locked. "" stands for none.
struct SettingRule {
  std::string_view key;
  std::string_view words;
  std::array<std::string_view, 2> offeredBy{};
  std::array<std::string_view, 5> givenBy{};
  std::string_view lockedBy{};
  ClientGate client{};
  Meeting meeting = Meeting::any;
  // What keeps the strongest from having its way.
  std::string_view limitedBy{};
};

constexpr SettingRule kRules[] = {
    {vn_Setting_EnableHostVideo, "host video", {}, {"alwaysTurnOnHostVideoByDefault"}, "isHostVideoLocked"},
    {vn_Setting_EnableParticipantsVideo,
     "participants' video",
     {},
     {"alwaysTurnOnAttendeeVideoByDefault"},
     "isParticipantsLocked"},
    {vn_Setting_AudioOption,
     "audio",
     {},
     {"alwaysUseBothAsDefaultAudio", "alwaysUseTelephonyAsDefaultAudio", "alwaysUseVOIPAsDefaultAudio",
      "isTspSite", "use3rdPartyAsDefaultAudio"},
     "isAudioTypeLocked",
     {},
     Meeting::any,
     "isScheduleAudioBothDisabled"},
    {vn_Setting_EnableThirdPartyAudio, "third-party audio", {}, {"enableThirdPartyAudio"}},
    {vn_Setting_ThirdPartyAudio, "third-party audio's text", {"enableThirdPartyAudio"}, {"enableThirdPartyAudio"}},
    {vn_Setting_RequiredMPW,
     "passcode required",
     {},
     {"isEnableRequirePassword"},
     "isLockScheduleRequirePassword",
     {},
     Meeting::ownNumber},
    {vn_Setting_RequiredMPW,
     "passcode required",
     {},
     {"isEnablePMIRequirePassword", "isEnableForcePMIJBHWithPassword"},
     "isLockPMIRequirePassword",
     {},
     Meeting::personalNumber},
    {vn_Setting_MeetingPassword, "passcode", {}, {"isEnableRequirePassword"}, "", {}, Meeting::ownNumber},
    {vn_Setting_MeetingPassword, "passcode", {}, {"isEnablePMIRequirePassword"}, "", {}, Meeting::personalNumber},
    {vn_Setting_EnableJBH,
     "join before host",
     {},
     {"alwaysEnableJoinBeforeHostByDefault"},
     "isJoinBeforeHostLocked"},
    {vn_Setting_JBHPriorTime,
     "minutes before the start",
     {"isSupportJbhPriorTime"},
     {"getDefaultJbhPriorTime"},
     "isJoinBeforeHostLocked"},
    {vn_Setting_IsPMI, "personal meeting ID", {}, {"isDefaultScheduleUsePMI"}, "isLockScheduleUsePMI"},
    {vn_Setting_NotShowMeAgain, "panel is not shown"},
    {vn_Setting_ScheduleFor, "scheduled for"},
    {vn_Setting_TrackingFields, "tracking fields", {}, {"trackingFields"}},
    {vn_Setting_IsSignedInUsersMeetingOn,
     "only authenticated users join",
     {},
     {"isDefaultEnableOnlyAuthUsersCanJoin"},
     "isLockOnlyAuthUsersCanJoin"},
    {vn_Setting_MeetingAuth, "way of authentication", {}, {"isDefaultEnableOnlyAuthUsersCanJoin"}},
    {vn_Setting_EnableAutoRecordingMtgLevelFirst,
     "automatic recording can be chosen",
     {},
     {"enableLocalRecording", "enableCloudRecording"},
     "",
     kAutoRecord},
    {vn_Setting_EnableAutoRecordingType,
     "automatic recording",
     {"enableLocalRecording", "enableCloudRecording"},
     {"enableAutoRecordingByDefault"},
     "isAutomaticRecordingLocked",
     kAutoRecord},
    {vn_Setting_AlternateHosts, "alternate hosts"},
    {vn_Setting_MuteUponEntry, "muted upon entry", {}, {"muteUponEntryDefaultValue"}, "isMuteUponEntryLocked"},
    {vn_Setting_ForceIncludeJoinurlInLocation,
     "join URL in the location",
     {"isSupportForceIncludeJoinurlInLocation"},
     {"isAddJoinUrlToLocation"},
     "isLockJoinUrlToLocation"},
    {vn_Setting_AvailableDialinCountry, "dial-in countries", {}, {"getAvailableDialinCountry"}},
    {vn_Setting_EnableAddMeetingToPublicEvent,
     "in the public event list",
     {"isEnableAddMeetingToPublicCalendarEvent"},
     {"enableListMeetingInPublicEventListByDefault"},
     "isPublicEventLocked",
     kPublicEvent},
    {vn_Setting_EnableAudioWatermark, "audio watermark", {}, {}, "isLockAudioWatermark"},
    {vn_Setting_PutTheInvitationAtTheTop,
     "invitation at the top",
     {"supportPutTheInvitationAtTheTopFeature"},
     {"putTheInvitationAtTheTopDefaultValue"}},
    {vn_Setting_SelectInvitationLanguage, "language of the invitation"},
    {vn_Setting_EnableWaitingRoom, "waiting room", {}, {"isEnableWaitingRoom"}, "isLockWaitingRoom"},
    {vn_Setting_SupportWaitingRoom, "waiting room is offered"},
    {vn_Setting_EnableRegionCustomization, "data centres are chosen", {}, {"isEnableRegionCustomization"}},
    {vn_Setting_AdditionalDCRegions, "data centres"},
    {vn_Setting_EnableUnmuteAll, "unmuting all", {}, {"isEnableUnmuteAll"}},
    {vn_Setting_EnableE2ee,
     "end-to-end encryption",
     {"isSupportE2eeMeeting"},
     {"isEnableE2eeMeeting"},
     "isLockE2eeMeeting"},
    {vn_Setting_MeetingTemplate, "template"},
    {vn_Setting_EnableAllowDenyJoinMeetingRegion,
     "join regions are limited",
     {},
     {"isEnableAllowDenyJoinMeetingRegion"},
     "isLockAllowDenyJoinMeetingRegion"},
    {vn_Setting_RegionType,
     "join regions: 0 allowed, otherwise blocked",
     {},
     {"getRegionType"},
     "isLockAllowDenyJoinMeetingRegion"},
    {vn_Setting_RegionCodes,
     "join regions",
     {"isEnableAllowDenyJoinMeetingRegion"},
     {"getRegionCodes"},
     "isLockAllowDenyJoinMeetingRegion"},
};

Value ask(std::string_view accessor) {
  const ProfileQuestion* question = profileQuestion(accessor);
  return question ? question->ask(vnUserProfileHelper::sharedInstance()) : Value();
}

// Whether an answer says anything: on, a number other than 0, a text or a list with something in it.
bool speaks(const Value& answer) {
  return answer.isArray() || answer.isDictionary() ? answer.count() > 0
                                                   : answer.boolValue() || answer.integerValue() != 0;
}

const SettingRule* ruleOf(std::string_view key, const Value& settings) {
  const auto meeting = settings[vn_Setting_IsPMI].boolValue() ? Meeting::personalNumber : Meeting::ownNumber;
  for (const SettingRule& rule : kRules) {
    if (rule.key == key && (rule.meeting == Meeting::any || rule.meeting == meeting)) return &rule;
  }
  return nullptr;
}

std::string inWords(std::string_view accessor) {
  const Value answer = ask(accessor);
  const std::string name = "the profile's " + std::string(accessor);
  if (answer.isBoolean()) return name + " is " + (answer.boolValue() ? "on" : "off");
  if (answer.isInteger()) return name + " is " + answer.stringValue();
  return speaks(answer) ? name : name + " gives nothing";
}

// Absent when the setting is offered, or when nothing can keep it from being so.
std::optional<SettingReason> reasonNotOffered(const SettingRule& rule, bool hasChanged) {
  std::string words;
  for (const std::string_view accessor : rule.offeredBy) {
    if (accessor.empty()) continue;
    if (speaks(ask(accessor))) return std::nullopt;
    words += (words.empty() ? "" : ", ") + inWords(accessor);
  }
  if (words.empty()) return std::nullopt;
  if (hasChanged) return SettingReason{"profile", rule.offeredBy.front(), "", words};
  return SettingReason{"record", rule.offeredBy.front(), "", "default; " + words};
}

SettingReason reasonInProfile(const SettingRule& rule, bool hasChanged) {
  if (!rule.client.predicate.empty() &&
      !vnClientFeatureMgr::sharedInstance().clientSupportSpecifiedFeature(rule.client.version)) {
    return {"client", rule.client.predicate, "",
            "the client is too old: " + std::string(rule.client.predicate) + " from " +
                std::string(rule.client.version)};
  }
  if (const auto notOffered = reasonNotOffered(rule, hasChanged)) return *notOffered;
  for (const std::string_view accessor : rule.givenBy) {
    if (accessor.empty() || !speaks(ask(accessor))) continue;
    const bool isLimited = accessor == rule.givenBy.front() && speaks(ask(rule.limitedBy));
    return {"profile", accessor, "", inWords(accessor) + (isLimited ? ", but " + inWords(rule.limitedBy) : "")};
  }
  const std::string_view strongest = rule.givenBy.front();
  if (strongest.empty()) return {"record", "", "", "default"};
  if (hasChanged) return {"profile", strongest, "", inWords(strongest)};
  return {"record", strongest, "", "default; " + inWords(strongest)};
}

SettingReason reasonInSavedProfile(std::string_view key, const Value& savedProfile) {
  if (savedProfile.contains(key)) return {"savedProfile", "", "", "the user's saved choice"};
  return {"savedProfile", "", "", "adjusted, because the user does not see the panel"};
}

}  // namespace

std::vector<std::string_view> settingKeys() {
  std::vector<std::string_view> keys;
  for (const SettingRule& rule : kRules) {
    if (keys.empty() || keys.back() != rule.key) keys.push_back(rule.key);
  }
  return keys;
}

std::string_view wordsOfSetting(std::string_view key) {
  const SettingRule* rule = ruleOf(key, Value());
  return rule ? rule->words : key;
}

SettingReason reasonOfSetting(std::string_view key, const SettingSteps& steps) {
  const SettingRule* rule = ruleOf(key, steps.afterSavedProfile);
  SettingReason reason;
  if (steps.afterSavedProfile[key] != steps.afterProfile[key]) {
    reason = reasonInSavedProfile(key, steps.savedProfile);
  } else if (!vnUserProfileHelper::sharedInstance().hasUserProfile()) {
    reason = {"record", "", "", "default; there is no profile"};
  } else if (rule) {
    reason = reasonInProfile(*rule, steps.afterProfile[key] != steps.reset[key]);
  } else {
    reason = {"record", "", "", "default"};
  }
  if (rule && speaks(ask(rule->lockedBy))) {
    reason.lockedBy = rule->lockedBy;
    reason.words += "; locked by the administrator (" + std::string(rule->lockedBy) + ")";
  }
  return reason;
}

}  // namespace vorn
