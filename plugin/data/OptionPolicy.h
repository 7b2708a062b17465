#pragma once

// Who has a say in an option of a meeting. The rules of the record and those of the panel ask it who offers, gives
// and locks an option; the panel's reasons and the diagnosis tell it. What only the panel asks stands with its
// rules.

#include <array>
#include <string_view>

#include "channel/discovery/vnClientConstants.h"
#include "data/AccountFacts.h"
#include "data/vnSettingKeys.h"
#include "util/MemberName.h"

namespace vorn {

// A question to the account. One that was never asked says nothing.
struct AccountQuestion {
  // The profile reader's name for it; "" for no question.
  std::string_view accessor{};
  Value (*ask)(const AccountFacts& account) = nullptr;

  constexpr bool exists() const { return ask != nullptr; }
  // Whether the answer says anything: on, a number other than 0, a list with something in it.
  bool speaks(const AccountFacts& account) const;
};

inline Value toldAs(const Value& value) { return value; }
inline Value toldAs(const std::optional<VNAvailableDialinCountryContent>& countries) {
  return countries ? countries->selectedCountries : Value();
}

template <auto Fact>
inline constexpr AccountQuestion asking{memberName<Fact>(),
                                        [](const AccountFacts& account) { return toldAs(account.*Fact); }};

// From which version of the client on an option can be used.
struct ClientGate {
  std::string_view predicate{};
  std::string_view version{};
  bool ClientGates::*isOpen = nullptr;

  constexpr bool isOpenIn(const ClientGates& gates) const { return isOpen == nullptr || gates.*isOpen; }
};

template <auto Gate>
constexpr ClientGate since(std::string_view version) {
  return {memberName<Gate>(), version, Gate};
}

struct OptionPolicy {
  // Some options have one policy for a meeting with a number of its own and another for the personal meeting.
  enum class Meeting { any, ownNumber, personalNumber };
  template <std::size_t Most>
  using Questions = std::array<AccountQuestion, Most>;

  std::string_view key;
  std::string_view words;
  // Any of these offers the option; without any it is offered to everybody.
  Questions<2> offeredBy{};
  // The strongest first.
  Questions<5> givenBy{};
  AccountQuestion lockedBy{};
  ClientGate gate{};
  Meeting meeting = Meeting::any;
  // What keeps the strongest from having its way.
  AccountQuestion limitedBy{};

  bool isOffered(const AccountFacts& account) const;
  // What the strongest says.
  bool isGiven(const AccountFacts& account) const { return givenBy.front().speaks(account); }
  bool isLocked(const AccountFacts& account) const { return lockedBy.speaks(account); }
  // Nobody can ever turn it on.
  bool isLockedOff(const AccountFacts& account) const { return isLocked(account) && !isGiven(account); }
};

namespace option_policy {

using F = AccountFacts;
using enum OptionPolicy::Meeting;

inline constexpr ClientGate kAutoRecord =
    since<&ClientGates::isVornClientSupportAutoRecord>(kVornClientSupportAutoRecording);
inline constexpr ClientGate kPublicEvent =
    since<&ClientGates::isVornClientSupportPublicEvent>(kVornClientSupportPublicEvent);

// In the order in which a person reads them.
inline constexpr OptionPolicy kRows[] = {
    {.key = vn_Setting_EnableHostVideo,
     .words = "host video",
     .givenBy = {asking<&F::alwaysTurnOnHostVideoByDefault>},
     .lockedBy = asking<&F::isHostVideoLocked>},
    {.key = vn_Setting_EnableParticipantsVideo,
     .words = "participants' video",
     .givenBy = {asking<&F::alwaysTurnOnAttendeeVideoByDefault>},
     .lockedBy = asking<&F::isParticipantsLocked>},
    {.key = vn_Setting_AudioOption,
     .words = "audio",
     .givenBy = {asking<&F::alwaysUseBothAsDefaultAudio>, asking<&F::alwaysUseTelephonyAsDefaultAudio>,
                 asking<&F::alwaysUseVOIPAsDefaultAudio>, asking<&F::isTspSite>,
                 asking<&F::use3rdPartyAsDefaultAudio>},
     .lockedBy = asking<&F::isAudioTypeLocked>,
     .limitedBy = asking<&F::isScheduleAudioBothDisabled>},
    {.key = vn_Setting_EnableThirdPartyAudio,
     .words = "third-party audio",
     .givenBy = {asking<&F::enableThirdPartyAudio>}},
    {.key = vn_Setting_ThirdPartyAudio,
     .words = "third-party audio's text",
     .offeredBy = {asking<&F::enableThirdPartyAudio>},
     .givenBy = {asking<&F::enableThirdPartyAudio>}},
    {.key = vn_Setting_RequiredMPW,
     .words = "passcode required",
     .givenBy = {asking<&F::isEnableRequirePassword>},
     .lockedBy = asking<&F::isLockScheduleRequirePassword>,
     .meeting = ownNumber},
    {.key = vn_Setting_RequiredMPW,
     .words = "passcode required",
     .givenBy = {asking<&F::isEnablePMIRequirePassword>, asking<&F::isEnableForcePMIJBHWithPassword>},
     .lockedBy = asking<&F::isLockPMIRequirePassword>,
     .meeting = personalNumber},
    {.key = vn_Setting_MeetingPassword,
     .words = "passcode",
     .givenBy = {asking<&F::isEnableRequirePassword>},
     .meeting = ownNumber},
    {.key = vn_Setting_MeetingPassword,
     .words = "passcode",
     .givenBy = {asking<&F::isEnablePMIRequirePassword>, asking<&F::isEnableForcePMIJBHWithPassword>},
     .meeting = personalNumber},
    {.key = vn_Setting_EnableJBH,
     .words = "join before host",
     .givenBy = {asking<&F::alwaysEnableJoinBeforeHostByDefault>},
     .lockedBy = asking<&F::isJoinBeforeHostLocked>},
    {.key = vn_Setting_JBHPriorTime,
     .words = "minutes before the start",
     .offeredBy = {asking<&F::isSupportJbhPriorTime>},
     .givenBy = {asking<&F::getDefaultJbhPriorTime>},
     .lockedBy = asking<&F::isJoinBeforeHostLocked>},
    {.key = vn_Setting_IsPMI,
     .words = "personal meeting ID",
     .givenBy = {asking<&F::isDefaultScheduleUsePMI>},
     .lockedBy = asking<&F::isLockScheduleUsePMI>},
    {.key = vn_Setting_NotShowMeAgain, .words = "panel is not shown"},
    {.key = vn_Setting_ScheduleFor, .words = "scheduled for"},
    {.key = vn_Setting_TrackingFields, .words = "tracking fields", .givenBy = {asking<&F::trackingFields>}},
    {.key = vn_Setting_IsSignedInUsersMeetingOn,
     .words = "only authenticated users join",
     .givenBy = {asking<&F::isDefaultEnableOnlyAuthUsersCanJoin>},
     .lockedBy = asking<&F::isLockOnlyAuthUsersCanJoin>},
    {.key = vn_Setting_MeetingAuth,
     .words = "way of authentication",
     .givenBy = {asking<&F::isDefaultEnableOnlyAuthUsersCanJoin>}},
    {.key = vn_Setting_EnableAutoRecordingMtgLevelFirst,
     .words = "automatic recording can be chosen",
     .givenBy = {asking<&F::enableLocalRecording>, asking<&F::enableCloudRecording>},
     .gate = kAutoRecord},
    {.key = vn_Setting_EnableAutoRecordingType,
     .words = "automatic recording",
     .offeredBy = {asking<&F::enableLocalRecording>, asking<&F::enableCloudRecording>},
     .givenBy = {asking<&F::enableAutoRecordingByDefault>},
     .lockedBy = asking<&F::isAutomaticRecordingLocked>,
     .gate = kAutoRecord},
    {.key = vn_Setting_AlternateHosts, .words = "alternate hosts"},
    {.key = vn_Setting_MuteUponEntry,
     .words = "muted upon entry",
     .givenBy = {asking<&F::muteUponEntryDefaultValue>},
     .lockedBy = asking<&F::isMuteUponEntryLocked>},
    {.key = vn_Setting_ForceIncludeJoinurlInLocation,
     .words = "join URL in the location",
     .offeredBy = {asking<&F::isSupportForceIncludeJoinurlInLocation>},
     .givenBy = {asking<&F::isAddJoinUrlToLocation>},
     .lockedBy = asking<&F::isLockJoinUrlToLocation>},
    {.key = vn_Setting_AvailableDialinCountry,
     .words = "dial-in countries",
     .givenBy = {asking<&F::getAvailableDialinCountry>}},
    {.key = vn_Setting_EnableAddMeetingToPublicEvent,
     .words = "in the public event list",
     .offeredBy = {asking<&F::isEnableAddMeetingToPublicCalendarEvent>},
     .givenBy = {asking<&F::enableListMeetingInPublicEventListByDefault>},
     .lockedBy = asking<&F::isPublicEventLocked>,
     .gate = kPublicEvent},
    {.key = vn_Setting_EnableAudioWatermark,
     .words = "audio watermark",
     .lockedBy = asking<&F::isLockAudioWatermark>},
    {.key = vn_Setting_PutTheInvitationAtTheTop,
     .words = "invitation at the top",
     .offeredBy = {asking<&F::supportPutTheInvitationAtTheTopFeature>},
     .givenBy = {asking<&F::putTheInvitationAtTheTopDefaultValue>}},
    {.key = vn_Setting_SelectInvitationLanguage, .words = "language of the invitation"},
    {.key = vn_Setting_EnableWaitingRoom,
     .words = "waiting room",
     .givenBy = {asking<&F::isEnableWaitingRoom>},
     .lockedBy = asking<&F::isLockWaitingRoom>},
    {.key = vn_Setting_SupportWaitingRoom,
     .words = "waiting room is offered",
     .lockedBy = asking<&F::isLockWaitingRoom>},
    {.key = vn_Setting_EnableRegionCustomization,
     .words = "data centres are chosen",
     .givenBy = {asking<&F::isEnableRegionCustomization>}},
    {.key = vn_Setting_AdditionalDCRegions, .words = "data centres"},
    {.key = vn_Setting_EnableUnmuteAll, .words = "unmuting all", .givenBy = {asking<&F::isEnableUnmuteAll>}},
    {.key = vn_Setting_EnableE2ee,
     .words = "end-to-end encryption",
     .offeredBy = {asking<&F::isSupportE2eeMeeting>},
     .givenBy = {asking<&F::isEnableE2eeMeeting>},
     .lockedBy = asking<&F::isLockE2eeMeeting>},
    {.key = vn_Setting_MeetingTemplate, .words = "template"},
    {.key = vn_Setting_EnableAllowDenyJoinMeetingRegion,
     .words = "join regions are limited",
     .givenBy = {asking<&F::isEnableAllowDenyJoinMeetingRegion>},
     .lockedBy = asking<&F::isLockAllowDenyJoinMeetingRegion>},
    {.key = vn_Setting_RegionType,
     .words = "join regions: 0 allowed, otherwise blocked",
     .givenBy = {asking<&F::getRegionType>},
     .lockedBy = asking<&F::isLockAllowDenyJoinMeetingRegion>},
    {.key = vn_Setting_RegionCodes,
     .words = "join regions",
     .offeredBy = {asking<&F::isEnableAllowDenyJoinMeetingRegion>},
     .givenBy = {asking<&F::getRegionCodes>},
     .lockedBy = asking<&F::isLockAllowDenyJoinMeetingRegion>},
};

}  // namespace option_policy

// The policy of an option, and of two the one for that meeting. A key that the table lacks does not compile.
consteval const OptionPolicy& policyOf(std::string_view key,
                                       OptionPolicy::Meeting meeting = OptionPolicy::Meeting::any) {
  for (const OptionPolicy& row : option_policy::kRows) {
    if (row.key == key && row.meeting == meeting) return row;
  }
  throw "the table has no such row";
}

}  // namespace vorn
