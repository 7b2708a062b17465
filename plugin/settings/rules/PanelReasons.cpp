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

// Of what the groups ask besides.
template <auto Fact>
constexpr Reason without(Keys controls, Whose whose = Whose::account) {
  return {controls, State::hidden, whose, memberName<Fact>(),
          [](const Question& q) { return !(q.situation.*Fact); }};
}

template <auto Fact>
constexpr Reason lockedBy(Keys controls) {
  return {controls, State::locked, Whose::administrator, memberName<Fact>(),
          [](const Question& q) { return q.account().*Fact; }};
}

// What the account does not let anybody change is hidden with what would change it.
template <auto Fact>
constexpr Reason hiddenWithLock(Keys controls) {
  return {controls, State::hidden, Whose::administrator, memberName<Fact>(),
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

constexpr Reason lockedByMeeting(Keys controls, std::string_view words) {
  return {controls, State::locked, Whose::meeting, words, always};
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
constexpr Keys kFurtherErrors = {"deleteDomainWarning", "_domainsErrorLabel", "dataCenterNotSelectTextField",
                                 "_errorForNoSelectedField"};
constexpr Keys kCountries = {"selectedCountriesField", "editCountriesButton"};
constexpr Keys kDataCentres = {"dataCenterBox", "enableDataCenterRegionsButton"};

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

    // Meeting ID and template
    without<&S::isEnableScheduleFor>({"scheduleForBox"}),
    hiddenByMeeting({"scheduleForBox"}, "the meeting exists already", isUpdate),
    hiddenByMeeting({"scheduleForBox"}, "there is nobody to schedule for"),
    lockedByMeeting({"scheduleForPopup"}, "the meeting exists already"),
    {{"meetingIDBox"},
     State::hidden,
     Whose::administrator,
     memberName<&S::isDisablePMI>(),
     [](const Question& q) { return q.situation.isDisablePMI; }},
    hiddenByMeeting({"meetingIDBox"}, "there is no personal meeting ID to choose"),
    lockedBy<&F::isLockScheduleUsePMI>({"buttonUsePMI", "buttonOneTimeMeeting"}),
    hiddenByMeeting({"pmiDisableMessageView"}, "there is nothing to say of the personal ID, or the user knows it"),
    hiddenByChoice({"closePMIDisableMessageButton"}, "it is said of somebody else"),
    hiddenByChoice({"templateBox"}, kPersonal, isPersonal),
    without<&S::isEnableAdminTemplate>({"templateBox"}),
    hiddenByMeeting({"templateBox"}, "the account has no templates"),
    hiddenByChoice({"templateTipView"}, "no template is chosen"),

    // Audio
    hiddenByMeeting({"audioOptionsBox"}, "this build offers no audio options"),
    hiddenByChoice({"telephonyButton", "bothButton", "thirdPartyAudioButton", "tspAccountButton",
                    "tspAccountPopup", "thirdPartyAudioTextField"},
                   kEndToEnd, isEndToEnd),
    hiddenByChoice(kCountries, kEndToEnd, isEndToEnd),
    hiddenByMeeting({"telephonyButton"}, "the provider's accounts stand in its place"),
    notOffered<&F::isTspSite>({"tspAccountButton", "tspAccountPopup"}),
    hiddenByMeeting({"tspAccountButton"}, "the provider has one account only"),
    hiddenByChoice({"tspAccountPopup"}, "no provider's account has to be chosen"),
    {{"bothButton"}, State::hidden, Whose::account, memberName<&F::isScheduleAudioBothDisabled>(), always},
    notOffered<&F::enableThirdPartyAudio>({"thirdPartyAudioButton"}),
    hiddenByChoice({"thirdPartyAudioTextField"}, "third-party audio is not chosen"),
    without<&S::isVornClientSupportEditCountries>(kCountries, Whose::client),
    {kCountries, State::hidden, Whose::account, memberName<&F::isTspSite>(),
     [](const Question& q) { return q.account().isTspSite; }},
    hiddenByChoice(kCountries, "the chosen audio has no dial-in numbers"),
    lockedByChoice({"voipButton"}, "the only audio of end-to-end encryption", isEndToEnd),
    lockedBy<&F::isAudioTypeLocked>({"telephonyButton", "voipButton", "bothButton", "thirdPartyAudioButton",
                                     "tspAccountButton", "tspAccountPopup"}),
    hiddenByMeeting({"_includeTollfreeNumberBtn"}, "the account has no toll-free numbers to offer"),
    lockedByChoice({"_doneBtn"}, "no country is chosen"),
    hiddenByChoice({"countryRow"}, "the list needs no such row now"),

    // Regions
    without<&S::isVornClientSupport500Tasks>(kDataCentres, Whose::client),
    without<&S::isSupportRegionCustomization>(kDataCentres),
    hiddenByMeeting(kDataCentres, "there is no further data centre"),
    tooOld<&G::isVornClientSupport550Tasks>({"allowDenyBox"}),
    lockedOffBy<&F::isLockAllowDenyJoinMeetingRegion, &F::isEnableAllowDenyJoinMeetingRegion>({"allowDenyBox"}),
    lockedBy<&F::isLockAllowDenyJoinMeetingRegion>({"allowDenyButton"}),
    hiddenByChoice({"allowDenyText", "allowDenyEditButton"}, "the join regions are not limited",
                   [](const Question& q) { return !q.controls.isOn("allowDenyButton"); }),
    hiddenWithLock<&F::isLockAllowDenyJoinMeetingRegion>({"allowDenyEditButton"}),
    hiddenByMeeting({"dataCenterImpactCountriesTipView", "allowDenyImpactCountriesTipView"},
                    "no chosen country is lost by it"),
    hiddenWithLock<&F::isLockAllowDenyJoinMeetingRegion>({"allowDenyRCAllowButton", "allowDenyRCBlockButton",
                                                          "allowDenyRCRegionsLabel", "allowDenyRCTextField",
                                                          "allowDenyRCCancelButton"}),
    hiddenByMeeting({"allowDenyRCLockedLabel"}, "the regions can be changed"),
    lockedByChoice({"allowDenyRCSaveButton"}, "no region is chosen"),

    // Tracking fields and alternate hosts
    hiddenByMeeting({"trackingFieldsBox"}, "the account has no tracking fields"),
    hiddenByMeeting({"trackingFieldItem._optionalLabel"}, "the field is required"),
    tooOld<&G::isVornClientSupportAHAndMuteOnEntry>({"alternateHostBox"}),
    notOffered<&F::isPaidUser>({"alternateHostBox"}),

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
    hiddenByMeeting(kFurtherErrors, "nothing is wrong"),

    // Waiting room and signed-in users
    lockedOffBy<&F::isLockWaitingRoom, &F::isEnableWaitingRoom>(kWaitingRoom),
    lockedBy<&F::isLockWaitingRoom>(kWaitingRoom),
    hiddenByMeeting({"securityTipView"}, "it is told when the waiting room goes on by itself, and once"),
    tooOld<&G::isVornClientSupport464Tasks>(kSignIn),
    without<&S::isSupportOnlyAuthUsersCanJoin>(kSignIn),
    lockedOffBy<&F::isLockOnlyAuthUsersCanJoin, &F::isDefaultEnableOnlyAuthUsersCanJoin>(kSignIn),
    lockedBy<&F::isLockOnlyAuthUsersCanJoin>(kSignIn),
    hiddenByChoice({"authNamePopup", "domainText", "viewEditButton"}, "signed-in users only is off",
                   [](const Question& q) { return !q.controls.isOn("onlySignedinWithSpecifiedDomains"); }),
    hiddenByMeeting({"authNamePopup"}, "there is only one way of signing in"),
    hiddenByChoice({"domainText"}, "the way of signing in names no domains"),
    hiddenWithLock<&F::isLockOnlyAuthUsersCanJoin>({"viewEditButton", "domains_SaveBtn"}),
    hiddenByChoice({"viewEditButton"}, "the way of signing in names no domains"),
    lockedBy<&F::isLockOnlyAuthUsersCanJoin>({"_domainsTextField"}),

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
    hiddenWithLock<&F::isJoinBeforeHostLocked>(kJoinTime),

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

// What there are many of is numbered in its key, and all have one reason.
std::string withoutNumber(std::string key) {
  std::erase_if(key, [](char c) { return c >= '0' && c <= '9'; });
  return key;
}

std::string ownReason(const Control& control, const Question& question) {
  static const auto kByControl = reasonsByControl();
  if (control.key == "buttonContinue" && !control.enabled) return question.situation.heldBackBy;
  const State state = control.hidden ? State::hidden : State::locked;
  const auto [begin, end] = kByControl.equal_range(withoutNumber(control.key));
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
