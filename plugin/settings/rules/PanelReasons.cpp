#include "settings/rules/PanelReasons.h"

#include <array>
#include <map>
#include <string_view>
#include <vector>

#include "util/MemberName.h"

namespace vorn::panel_rules {

namespace {

using F = AccountFacts;
using G = ClientGates;
using S = PanelSituation;

struct Question {
  const PanelSituation& situation;
  const ControlSet& controls;

  const AccountFacts& account() const { return situation.facts.account; }
  const ClientGates& client() const { return situation.facts.client; }
  bool isEndToEnd() const { return controls.isShownAndOn("endtoendButton"); }
};

enum class State { hidden, locked };
enum class Whose { client, account, administrator, choice, meeting };
using Keys = std::array<std::string_view, 6>;

// Of several that hold the first one counts.
struct Reason {
  Keys controls;
  State state;
  Whose whose;
  // The client's predicate or the account's accessor, or what has been chosen, in words.
  std::string_view name;
  bool (*holds)(const Question& question);
  std::string_view secondName{};
};

std::string inWords(const Reason& reason) {
  std::string name(reason.name);
  if (!reason.secondName.empty()) name.append(", ").append(reason.secondName);
  switch (reason.whose) {
    case Whose::client: return "the client is too old: " + name;
    case Whose::account: return "not offered by the account: " + name;
    case Whose::administrator: return "locked by the account: " + name;
    case Whose::choice:
    case Whose::meeting: return name;
  }
  return name;
}

constexpr bool always(const Question&) { return true; }

template <auto Gate>
constexpr Reason tooOld(Keys controls) {
  return {controls, State::hidden, Whose::client, memberName<Gate>(),
          [](const Question& q) { return !(q.client().*Gate); }};
}

template <auto Fact>
constexpr Reason notOffered(Keys controls) {
  return {controls, State::hidden, Whose::account, memberName<Fact>(),
          [](const Question& q) { return !(q.account().*Fact); }};
}

template <auto Fact>
constexpr Reason notOfferedAtAll(Keys controls) {
  return {controls, State::hidden, Whose::account, memberName<Fact>(),
          [](const Question& q) { return !(q.situation.*Fact); }};
}

template <auto Fact>
constexpr Reason lockedBy(Keys controls) {
  return {controls, State::locked, Whose::administrator, memberName<Fact>(),
          [](const Question& q) { return q.account().*Fact; }};
}

// What is locked in its off state is of no use, so it is hidden.
template <auto Lock, auto Default>
constexpr Reason lockedOffBy(Keys controls) {
  return {controls, State::hidden, Whose::administrator, memberName<Lock>(),
          [](const Question& q) { return q.account().*Lock && !(q.account().*Default); }};
}

constexpr Reason hiddenByChoice(Keys controls, std::string_view words, bool (*holds)(const Question&) = always) {
  return {controls, State::hidden, Whose::choice, words, holds};
}

constexpr Reason lockedByChoice(Keys controls, std::string_view words, bool (*holds)(const Question&) = always) {
  return {controls, State::locked, Whose::choice, words, holds};
}

constexpr Reason hiddenByMeeting(Keys controls, std::string_view words, bool (*holds)(const Question&) = always) {
  return {controls, State::hidden, Whose::meeting, words, holds};
}

// By which of its locks the passcode's switch is locked.
template <auto Fact>
constexpr Reason passcodeLockedBy(Keys controls, State state, bool (*holds)(const Question&)) {
  return {controls, state, Whose::administrator, memberName<Fact>(), holds};
}
bool isLockedForOneTime(const Question& q) {
  return !q.situation.usePMI && q.account().isLockScheduleRequirePassword;
}
bool isLockedForPersonal(const Question& q) { return q.situation.usePMI && q.account().isLockPMIRequirePassword; }
bool isForcedForPersonal(const Question& q) {
  return q.situation.usePMI && q.account().isEnableForcePMIJBHWithPassword;
}

constexpr std::string_view kEndToEnd = "off while end-to-end encryption is chosen";
constexpr std::string_view kPersonal = "the meeting ID is the personal one";
constexpr std::string_view kUnwanted = "the user wants to see it no more";
bool isPersonal(const Question& q) { return q.situation.usePMI; }
bool isEndToEnd(const Question& q) { return q.isEndToEnd(); }
bool isUpdate(const Question& q) { return q.situation.facts.isUpdate; }
bool canRecordInOneWay(const Question& q) {
  return q.account().enableLocalRecording != q.account().enableCloudRecording;
}
bool cannotRecord(const Question& q) {
  return !q.account().enableLocalRecording && !q.account().enableCloudRecording;
}

constexpr Keys kPasscode = {"requiredMeetingPswButton", "passwordPrompt", "pswHelpButton"};
constexpr Keys kWaitingRoom = {"enableWaitingRoom", "waitingRoomPrompt"};
constexpr Keys kSignIn = {"restrictDomainsBox", "onlySignedinWithSpecifiedDomains"};
constexpr Keys kJoinTime = {"jbhLimitTimePopUp", "jbhBeforeStartTime"};
constexpr Keys kEncryption = {"encryptionBox", "enhancedButton", "enhancedHelpButton", "endtoendButton",
                              "endtoendHelpButton"};
constexpr Keys kRecording = {"autoRecordingBox", "autoRecordingButton", "autoRecordingOptionMatrixLocal",
                             "autoRecordingOptionMatrixCloud"};
constexpr Keys kRecordingChoices = {"autoRecordingOptionMatrixLocal", "autoRecordingOptionMatrixCloud"};
constexpr Keys kPublicEvent = {"publicEventBox", "publicEventButton", "publicEventListButton"};
constexpr Keys kErrors = {"pswFormatErrorTextField", "securityErrorTextField", "templateDeletedTipTextField"};

constexpr Keys kTurnoffParts = {"pluginTurnoffText", "pluginTurnoffLink", "pluginTurnoffTextAfterLink",
                                "pluginTurnoffHelperLink"};

constexpr Reason kReasons[] = {
    // Banners
    hiddenByChoice({"pluginTurnoffView"}, kUnwanted),
    hiddenByMeeting(kTurnoffParts, "the notice has no such part"),
    hiddenByMeeting({"epidemicTipView"}, "the account needs no such notice"),
    hiddenByMeeting({"userSettingTipView"}, "the meeting exists already", isUpdate),
    hiddenByChoice({"userSettingTipView"}, kPersonal, isPersonal),
    {{"userSettingTipView"},
     State::hidden,
     Whose::administrator,
     memberName<&S::isShowUseWebSettingTipView>(),
     [](const Question& q) { return q.situation.isShowUseWebSettingTipView; }},
    hiddenByChoice({"userSettingTipView"}, kUnwanted),
    hiddenByMeeting({"scheduleLimitationView"}, "the meeting is not too long for the plan, or the user knows it"),
    hiddenByMeeting({"upgradeButton"}, "the account has no way to an upgrade"),

    // Video
    lockedBy<&F::isHostVideoLocked>({"videoHostMatrix"}),
    lockedBy<&F::isParticipantsLocked>({"videoParticipantMatrix"}),

    // Passcode
    passcodeLockedBy<&F::isLockScheduleRequirePassword>(kPasscode, State::hidden, isLockedForOneTime),
    passcodeLockedBy<&F::isLockPMIRequirePassword>(kPasscode, State::hidden, isLockedForPersonal),
    passcodeLockedBy<&F::isEnableForcePMIJBHWithPassword>(kPasscode, State::hidden, isForcedForPersonal),
    passcodeLockedBy<&F::isLockScheduleRequirePassword>(kPasscode, State::locked, isLockedForOneTime),
    passcodeLockedBy<&F::isLockPMIRequirePassword>(kPasscode, State::locked, isLockedForPersonal),
    passcodeLockedBy<&F::isEnableForcePMIJBHWithPassword>(kPasscode, State::locked, isForcedForPersonal),
    hiddenByChoice({"passwordTextField"}, "the passcode is off"),
    lockedByChoice({"passwordTextField"}, "the passcode is off"),
    hiddenByChoice({"pswHelpButton"}, "there is nothing to say of this passcode"),
    hiddenByMeeting({"meetingPasswordBox"}, "none of its options is offered"),
    hiddenByMeeting(kErrors, "nothing is wrong"),

    // Waiting room and signed-in users
    lockedOffBy<&F::isLockWaitingRoom, &F::isEnableWaitingRoom>(kWaitingRoom),
    lockedBy<&F::isLockWaitingRoom>(kWaitingRoom),
    hiddenByMeeting({"securityTipView"}, "it is told when the waiting room goes on by itself, and once"),
    tooOld<&G::isVornClientSupport464Tasks>(kSignIn),
    notOfferedAtAll<&S::isSupportOnlyAuthUsersCanJoin>(kSignIn),
    lockedOffBy<&F::isLockOnlyAuthUsersCanJoin, &F::isDefaultEnableOnlyAuthUsersCanJoin>(kSignIn),
    lockedBy<&F::isLockOnlyAuthUsersCanJoin>(kSignIn),

    // Join before host
    hiddenByChoice({"enableJBHButton", "jbhLimitTimePopUp", "jbhBeforeStartTime"}, kEndToEnd, isEndToEnd),
    lockedBy<&F::isJoinBeforeHostLocked>({"enableJBHButton", "jbhLimitTimePopUp"}),
    lockedByChoice({"enableJBHButton"}, kEndToEnd, isEndToEnd),
    lockedByChoice({"jbhLimitTimePopUp"}, "join before host is off"),
    tooOld<&G::isVornClientSupport464Tasks>(kJoinTime),
    notOffered<&F::isSupportJbhPriorTime>(kJoinTime),
    hiddenByChoice(kJoinTime, kPersonal, isPersonal),
    hiddenByMeeting(kJoinTime, "the appointment is a series",
                    [](const Question& q) { return q.situation.isEnableRecurrence; }),
    {kJoinTime, State::hidden, Whose::administrator, memberName<&F::isJoinBeforeHostLocked>(),
     [](const Question& q) { return q.account().isJoinBeforeHostLocked; }},

    // Encryption
    tooOld<&G::isVornClientSupport530Tasks>(kEncryption),
    notOffered<&F::isSupportE2eeMeeting>(kEncryption),
    lockedOffBy<&F::isLockE2eeMeeting, &F::isEnableE2eeMeeting>(kEncryption),
    {{"enhancedButton", "enhancedHelpButton"},
     State::hidden,
     Whose::administrator,
     memberName<&F::isLockE2eeMeeting>(),
     [](const Question& q) { return q.account().isLockE2eeMeeting; }},
    lockedBy<&F::isLockE2eeMeeting>({"endtoendButton"}),
    hiddenByChoice({"encryptionTipView"}, "end-to-end encryption is not chosen",
                   [](const Question& q) { return !q.isEndToEnd(); }),
    hiddenByChoice({"encryptionTipView"}, kUnwanted),

    // Recording
    {kRecording, State::hidden, Whose::account, memberName<&F::enableLocalRecording>(), cannotRecord,
     memberName<&F::enableCloudRecording>()},
    hiddenByMeeting(kRecordingChoices, "there is only one way to record", canRecordInOneWay),
    hiddenByChoice(kRecording, kEndToEnd, isEndToEnd),
    hiddenByChoice(kRecordingChoices, "automatic recording is off"),
    lockedBy<&F::isAutomaticRecordingLocked>(kRecording),
    lockedByChoice(kRecording, kEndToEnd, isEndToEnd),

    // Advanced
    tooOld<&G::isVornClientSupportAHAndMuteOnEntry>({"muteUponEntryBox", "muteParticipantUponEntry"}),
    lockedBy<&F::isMuteUponEntryLocked>({"muteParticipantUponEntry"}),
    tooOld<&G::isVornClientSupport520Tasks>({"unmuteParticipantsButton"}),
    notOffered<&F::isSupportUnmuteAll>({"unmuteParticipantsButton"}),
    notOffered<&F::isEnableAudioWatermark>({"audioWatermarkButton"}),
    hiddenByChoice({"audioWatermarkButton"}, "it is for signed-in users only, which is off"),
    lockedBy<&F::isLockAudioWatermark>({"audioWatermarkButton"}),
    notOffered<&F::isEnableAddMeetingToPublicCalendarEvent>(kPublicEvent),
    lockedBy<&F::isPublicEventLocked>({"publicEventButton"}),
    hiddenByChoice({"publicEventListButton"}, "the public event is off"),
    tooOld<&G::isVornClientSupportInvitationLanguage>({"selectLanguageText", "selectLanguagePopup"}),
    lockedBy<&F::isLockJoinUrlToLocation>({"forceIncludeJoinurlInLocation"}),
    hiddenByMeeting({"putTheInvitationAtTheTopButton"}, "the meeting exists already", isUpdate),
};

std::multimap<std::string_view, const Reason*> reasonsByControl() {
  std::multimap<std::string_view, const Reason*> all;
  for (const Reason& reason : kReasons) {
    for (const std::string_view control : reason.controls) {
      if (!control.empty()) all.emplace(control, &reason);
    }
  }
  return all;
}

std::string ownReason(const Control& control, const Question& question) {
  static const auto kByControl = reasonsByControl();
  if (control.key == "buttonContinue" && !control.enabled) return question.situation.heldBackBy;
  const State state = control.hidden ? State::hidden : State::locked;
  const auto [begin, end] = kByControl.equal_range(control.key);
  for (auto each = begin; each != end; ++each) {
    const Reason& reason = *each->second;
    if (reason.state == state && reason.holds(question)) return inWords(reason);
  }
  return control.kind == Control::Kind::window ? "the window is closed" : "";
}

// The box or window by which a control is off the screen although it is not hidden itself; null when it is on it.
const Control* hiddenAround(const Control& control, const ControlSet& controls) {
  const Control* around = controls.find(control.box);
  while (around && !around->hidden) around = controls.find(around->box);
  return around;
}

}  // namespace

void explain(ControlSet& controls, const PanelSituation& situation) {
  const Question question{situation, controls};
  for (const std::string& key : controls.keys()) {
    Control& control = *controls.find(key);
    control.reason.clear();
    if (control.hidden || !control.enabled) control.reason = ownReason(control, question);
    if (!control.reason.empty()) continue;
    if (const Control* around = hiddenAround(control, controls)) control.reason = ownReason(*around, question);
  }
}

}  // namespace vorn::panel_rules
