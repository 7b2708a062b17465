#pragma once

// The switches of the settings panel that follow one pattern: when each is shown, when it is locked, and what it
// says. Functions of what they are given; time constant.

#include <array>
#include <string_view>

#include "data/MeetingOptions.h"
#include "data/OptionPolicy.h"

namespace vorn {

// What these options depend on, at one moment.
struct OptionFacts {
  AccountFacts account{};
  ClientGates client{};
  // The meeting exists already.
  bool isUpdate = false;
  // The switch by which only signed-in users can join is on the screen and on.
  bool isSignInOnly = false;
};

struct SwitchState {
  bool isShown = false;
  // It keeps its state and cannot be changed.
  bool isLocked = false;
  bool isOn = false;

  bool operator==(const SwitchState&) const = default;
};

struct PlainOption {
  // The name of its control.
  std::string_view control;
  bool MeetingOptions::*field = nullptr;
  const OptionPolicy* policy = nullptr;
  bool (*isShown)(const OptionFacts& facts, const OptionPolicy& policy) = nullptr;
  // A lock does more than to keep the state: what is locked is on.
  bool lockMeansOn = false;
};

namespace plain_option {

inline bool always(const OptionFacts&, const OptionPolicy&) { return true; }
inline bool whenOffered(const OptionFacts& facts, const OptionPolicy& policy) {
  return policy.isOffered(facts.account);
}

inline constexpr PlainOption hostVideo{.control = "videoHostMatrix",
                                       .field = &MeetingOptions::hostVideoOn,
                                       .policy = &policyOf(vn_Setting_EnableHostVideo),
                                       .isShown = always};
inline constexpr PlainOption participantVideo{.control = "videoParticipantMatrix",
                                              .field = &MeetingOptions::paticipantVideoOn,
                                              .policy = &policyOf(vn_Setting_EnableParticipantsVideo),
                                              .isShown = always};
inline constexpr PlainOption publicEvent{.control = "publicEventButton",
                                         .field = &MeetingOptions::enablePublicEvent,
                                         .policy = &policyOf(vn_Setting_EnableAddMeetingToPublicEvent),
                                         .isShown = whenOffered};
inline constexpr PlainOption muteUponEntry{.control = "muteParticipantUponEntry",
                                           .field = &MeetingOptions::muteUponEntry,
                                           .policy = &policyOf(vn_Setting_MuteUponEntry),
                                           .isShown = [](const OptionFacts& facts, const OptionPolicy&) {
                                             return facts.client.isVornClientSupportAHAndMuteOnEntry;
                                           }};
inline constexpr PlainOption unmuteAll{.control = "unmuteParticipantsButton",
                                       .field = &MeetingOptions::enableUnmuteAll,
                                       .policy = &policyOf(vn_Setting_EnableUnmuteAll),
                                       .isShown = [](const OptionFacts& facts, const OptionPolicy&) {
                                         return facts.client.isVornClientSupport520Tasks &&
                                                facts.account.isSupportUnmuteAll;
                                       }};
// Shown to everybody: whom the record lets have it is another question.
inline constexpr PlainOption joinUrlInLocation{.control = "forceIncludeJoinurlInLocation",
                                               .field = &MeetingOptions::forceIncludeJoinurlInLocation,
                                               .policy = &policyOf(vn_Setting_ForceIncludeJoinurlInLocation),
                                               .isShown = always};
inline constexpr PlainOption audioWatermark{
    .control = "audioWatermarkButton",
    .field = &MeetingOptions::enableAudioWatermark,
    .policy = &policyOf(vn_Setting_EnableAudioWatermark),
    .isShown = [](const OptionFacts& facts,
                  const OptionPolicy&) { return facts.isSignInOnly && facts.account.isEnableAudioWatermark; },
    .lockMeansOn = true};
inline constexpr PlainOption invitationAtTheTop{
    .control = "putTheInvitationAtTheTopButton",
    .field = &MeetingOptions::putTheInvitationAtTheTop,
    .policy = &policyOf(vn_Setting_PutTheInvitationAtTheTop),
    .isShown = [](const OptionFacts& facts, const OptionPolicy&) { return !facts.isUpdate; }};

inline constexpr std::array all{hostVideo, participantVideo,  publicEvent,    muteUponEntry,
                                unmuteAll, joinUrlInLocation, audioWatermark, invitationAtTheTop};

}  // namespace plain_option

SwitchState stateOf(const PlainOption& option, const OptionFacts& facts, const MeetingOptions& record);

}  // namespace vorn
