#include "settings/rules/PanelReasons.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <string_view>
#include <vector>

#include "data/OptionPolicy.h"
#include "settings/rules/ControlKeys.h"
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
  bool isEndToEnd() const { return controls.isShownAndOn(control_key::endtoendButton); }
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
  // What the option's policy has to say besides; it has the name then.
  const OptionPolicy* policy = nullptr;
  bool (*says)(const OptionPolicy& policy, const AccountFacts& account) = nullptr;
  // Of what is locked: the key of the text for the user.
  std::string_view noteKey{};

  bool appliesTo(const Question& question) const {
    return holds(question) && (policy == nullptr || says(*policy, question.account()));
  }
};

std::string nameOf(const Reason& reason) {
  if (reason.policy == nullptr) return std::string(reason.name);
  if (reason.whose == Whose::administrator) return std::string(reason.policy->lockedBy.accessor);
  std::string names;
  for (const AccountQuestion& question : reason.policy->offeredBy) {
    if (question.exists()) names.append(names.empty() ? "" : ", ").append(question.accessor);
  }
  return names;
}

std::string inWords(const Reason& reason) {
  const std::string name = nameOf(reason);
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

constexpr std::string_view kLockedByAccount = "LN_Schedule_Note_LockedByAccount";

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

bool isLocked(const OptionPolicy& policy, const AccountFacts& account) { return policy.isLocked(account); }
bool isLockedOff(const OptionPolicy& policy, const AccountFacts& account) { return policy.isLockedOff(account); }
bool isNotOffered(const OptionPolicy& policy, const AccountFacts& account) { return !policy.isOffered(account); }

constexpr Reason byAdministrator(State state, const OptionPolicy& policy, Keys controls,
                                 bool (*says)(const OptionPolicy&, const AccountFacts&) = isLocked,
                                 bool (*holds)(const Question&) = always) {
  return {controls, state, Whose::administrator, {}, holds, &policy, says, kLockedByAccount};
}

constexpr Reason lockedBy(const OptionPolicy& policy, Keys controls) {
  return byAdministrator(State::locked, policy, controls);
}

// What the account does not let anybody change is hidden with what would change it.
constexpr Reason hiddenWithLock(const OptionPolicy& policy, Keys controls) {
  return byAdministrator(State::hidden, policy, controls);
}

// What is locked in its off state is of no use, so it is hidden.
constexpr Reason lockedOffBy(const OptionPolicy& policy, Keys controls) {
  return byAdministrator(State::hidden, policy, controls, isLockedOff);
}

// None of those who could offers it.
constexpr Reason notOffered(const OptionPolicy& policy, Keys controls) {
  return {controls, State::hidden, Whose::account, {}, always, &policy, isNotOffered};
}

constexpr Reason hiddenByChoice(Keys controls, std::string_view words, bool (*holds)(const Question&) = always) {
  return {controls, State::hidden, Whose::choice, words, holds};
}

constexpr Reason lockedByChoice(Keys controls, std::string_view words, std::string_view noteKey,
                                bool (*holds)(const Question&) = always) {
  return {controls, State::locked, Whose::choice, words, holds, nullptr, nullptr, noteKey};
}

constexpr Reason hiddenByMeeting(Keys controls, std::string_view words, bool (*holds)(const Question&) = always) {
  return {controls, State::hidden, Whose::meeting, words, holds};
}

constexpr Reason lockedByMeeting(Keys controls, std::string_view words, std::string_view noteKey) {
  return {controls, State::locked, Whose::meeting, words, always, nullptr, nullptr, noteKey};
}

// By which of its locks the passcode's switch is locked.
bool isOneTime(const Question& q) { return !q.situation.usePMI; }
bool isPersonal(const Question& q) { return q.situation.usePMI; }
bool isForcedForPersonal(const Question& q) {
  return isPersonal(q) && q.account().isEnableForcePMIJBHWithPassword;
}
constexpr Reason passcodeForced(State state, Keys controls) {
  return {controls,
          state,
          Whose::administrator,
          memberName<&F::isEnableForcePMIJBHWithPassword>(),
          isForcedForPersonal,
          nullptr,
          nullptr,
          kLockedByAccount};
}

constexpr std::string_view kEndToEnd = "off while end-to-end encryption is chosen";
constexpr std::string_view kEndToEndNote = "LN_Schedule_Note_OffWithEndToEnd";
constexpr std::string_view kPersonal = "the meeting ID is the personal one";
constexpr std::string_view kUnwanted = "the user wants to see it no more";
bool isEndToEnd(const Question& q) { return q.isEndToEnd(); }
bool isUpdate(const Question& q) { return q.situation.facts.isUpdate; }
bool canRecordInOneWay(const Question& q) {
  return q.account().enableLocalRecording != q.account().enableCloudRecording;
}

constexpr auto kOwnNumber = OptionPolicy::Meeting::ownNumber;
constexpr auto kPersonalNumber = OptionPolicy::Meeting::personalNumber;
constexpr const OptionPolicy& kPasscodeOfOwn = policyOf(vn_Setting_RequiredMPW, kOwnNumber);
constexpr const OptionPolicy& kPasscodeOfPersonal = policyOf(vn_Setting_RequiredMPW, kPersonalNumber);
constexpr const OptionPolicy& kRegionsPolicy = policyOf(vn_Setting_EnableAllowDenyJoinMeetingRegion);
constexpr const OptionPolicy& kWaitingRoomLock = policyOf(vn_Setting_EnableWaitingRoom);
constexpr const OptionPolicy& kSignInLock = policyOf(vn_Setting_IsSignedInUsersMeetingOn);
constexpr const OptionPolicy& kJoinEarly = policyOf(vn_Setting_EnableJBH);
constexpr const OptionPolicy& kEndToEndPolicy = policyOf(vn_Setting_EnableE2ee);
constexpr const OptionPolicy& kRecordingPolicy = policyOf(vn_Setting_EnableAutoRecordingType);
constexpr const OptionPolicy& kPublicEventPolicy = policyOf(vn_Setting_EnableAddMeetingToPublicEvent);

constexpr Keys kPasscode = {control_key::requiredMeetingPswButton, "passwordPrompt", "pswHelpButton"};
constexpr Keys kWaitingRoom = {"enableWaitingRoom", "waitingRoomPrompt"};
constexpr Keys kSignIn = {control_key::restrictDomainsBox, control_key::onlySignedinWithSpecifiedDomains};
constexpr Keys kJoinTime = {"jbhLimitTimePopUp", "jbhBeforeStartTime"};
constexpr Keys kEncryption = {"encryptionBox", "enhancedButton", "enhancedHelpButton", control_key::endtoendButton,
                              "endtoendHelpButton"};
constexpr Keys kRecording = {"autoRecordingBox", "autoRecordingButton", "autoRecordingOptionMatrixLocal",
                             "autoRecordingOptionMatrixCloud"};
constexpr Keys kRecordingChoices = {"autoRecordingOptionMatrixLocal", "autoRecordingOptionMatrixCloud"};
constexpr Keys kPublicEvent = {"publicEventBox", "publicEventButton", "publicEventListButton"};
constexpr Keys kErrors = [] {
  Keys keys;
  std::copy(std::begin(control_key::errorFields), std::end(control_key::errorFields), keys.begin());
  return keys;
}();
constexpr Keys kFurtherErrors = {"deleteDomainWarning", "_domainsErrorLabel", "dataCenterNotSelectTextField",
                                 "_errorForNoSelectedField"};
constexpr Keys kCountries = {control_key::selectedCountriesField, "editCountriesButton"};
constexpr Keys kDataCentres = {"dataCenterBox", control_key::enableDataCenterRegionsButton};

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
    lockedByMeeting({"scheduleForPopup"}, "the meeting exists already", "LN_Schedule_Note_MeetingExists"),
    {{control_key::meetingIDBox},
     State::hidden,
     Whose::administrator,
     memberName<&S::isDisablePMI>(),
     [](const Question& q) { return q.situation.isDisablePMI; }},
    hiddenByMeeting({control_key::meetingIDBox}, "there is no personal meeting ID to choose"),
    lockedBy(policyOf(vn_Setting_IsPMI), {control_key::buttonUsePMI, control_key::buttonOneTimeMeeting}),
    hiddenByMeeting({"pmiDisableMessageView"}, "there is nothing to say of the personal ID, or the user knows it"),
    hiddenByChoice({"closePMIDisableMessageButton"}, "it is said of somebody else"),
    hiddenByChoice({"templateBox"}, kPersonal, isPersonal),
    without<&S::isEnableAdminTemplate>({"templateBox"}),
    hiddenByMeeting({"templateBox"}, "the account has no templates"),
    hiddenByChoice({"templateTipView"}, "no template is chosen"),

    // Audio
    hiddenByMeeting({control_key::audioOptionsBox}, "this build offers no audio options"),
    hiddenByChoice({"telephonyButton", "bothButton", "thirdPartyAudioButton", "tspAccountButton",
                    "tspAccountPopup", "thirdPartyAudioTextField"},
                   kEndToEnd, isEndToEnd),
    hiddenByChoice(kCountries, kEndToEnd, isEndToEnd),
    hiddenByMeeting({"telephonyButton"}, "the provider's accounts stand in its place"),
    notOffered<&F::isTspSite>({"tspAccountButton", "tspAccountPopup"}),
    hiddenByMeeting({"tspAccountButton"}, "the provider has one account only"),
    hiddenByChoice({"tspAccountPopup"}, "no provider's account has to be chosen"),
    {{"bothButton"}, State::hidden, Whose::account, memberName<&F::isScheduleAudioBothDisabled>(), always},
    notOffered(policyOf(vn_Setting_ThirdPartyAudio), {"thirdPartyAudioButton"}),
    hiddenByChoice({"thirdPartyAudioTextField"}, "third-party audio is not chosen"),
    without<&S::isVornClientSupportEditCountries>(kCountries, Whose::client),
    {kCountries, State::hidden, Whose::account, memberName<&F::isTspSite>(),
     [](const Question& q) { return q.account().isTspSite; }},
    hiddenByChoice(kCountries, "the chosen audio has no dial-in numbers"),
    lockedByChoice({"voipButton"}, "the only audio of end-to-end encryption", "LN_Schedule_Note_OnlyAudio",
                   isEndToEnd),
    lockedBy(policyOf(vn_Setting_AudioOption), {"telephonyButton", "voipButton", "bothButton",
                                                "thirdPartyAudioButton", "tspAccountButton", "tspAccountPopup"}),
    hiddenByMeeting({"_includeTollfreeNumberBtn"}, "the account has no toll-free numbers to offer"),
    lockedByChoice({"_doneBtn"}, "no country is chosen", "LN_Schedule_Note_NoCountry"),
    hiddenByChoice({"countryRow"}, "the list needs no such row now"),

    // Regions
    without<&S::isVornClientSupport500Tasks>(kDataCentres, Whose::client),
    without<&S::isSupportRegionCustomization>(kDataCentres),
    without<&S::isSupportAdditionalDc>(kDataCentres),
    hiddenByMeeting(kDataCentres, "there is no further data centre"),
    tooOld<&G::isVornClientSupport550Tasks>({"allowDenyBox"}),
    lockedOffBy(kRegionsPolicy, {"allowDenyBox"}),
    lockedBy(kRegionsPolicy, {control_key::allowDenyButton}),
    hiddenByChoice({"allowDenyText", "allowDenyEditButton"}, "the join regions are not limited",
                   [](const Question& q) { return !q.controls.isOn(control_key::allowDenyButton); }),
    hiddenWithLock(kRegionsPolicy, {"allowDenyEditButton"}),
    hiddenByMeeting({"dataCenterImpactCountriesTipView", "allowDenyImpactCountriesTipView"},
                    "no chosen country is lost by it"),
    hiddenWithLock(kRegionsPolicy, {"allowDenyRCAllowButton", "allowDenyRCBlockButton", "allowDenyRCRegionsLabel",
                                    "allowDenyRCTextField", "allowDenyRCCancelButton"}),
    hiddenByMeeting({"allowDenyRCLockedLabel"}, "the regions can be changed"),
    lockedByChoice({"allowDenyRCSaveButton"}, "no region is chosen", "LN_Schedule_Note_NoRegion"),

    // Tracking fields and alternate hosts
    hiddenByMeeting({control_key::trackingFieldsBox}, "the account has no tracking fields"),
    hiddenByMeeting({"trackingFieldItem._optionalLabel"}, "the field is required"),
    tooOld<&G::isVornClientSupportAHAndMuteOnEntry>({control_key::alternateHostBox}),
    notOffered<&F::isPaidUser>({control_key::alternateHostBox}),

    // Video
    lockedBy(policyOf(vn_Setting_EnableHostVideo), {"videoHostMatrix"}),
    lockedBy(policyOf(vn_Setting_EnableParticipantsVideo), {"videoParticipantMatrix"}),

    // Passcode
    byAdministrator(State::hidden, kPasscodeOfOwn, kPasscode, isLocked, isOneTime),
    byAdministrator(State::hidden, kPasscodeOfPersonal, kPasscode, isLocked, isPersonal),
    passcodeForced(State::hidden, kPasscode),
    byAdministrator(State::locked, kPasscodeOfOwn, kPasscode, isLocked, isOneTime),
    byAdministrator(State::locked, kPasscodeOfPersonal, kPasscode, isLocked, isPersonal),
    passcodeForced(State::locked, kPasscode),
    hiddenByChoice({control_key::passwordTextField}, "the passcode is off"),
    lockedByChoice({control_key::passwordTextField}, "the passcode is off", "LN_Schedule_Note_PasscodeOff"),
    hiddenByChoice({"pswHelpButton"}, "there is nothing to say of this passcode"),
    hiddenByMeeting({"meetingPasswordBox"}, "none of its options is offered"),
    hiddenByMeeting(kErrors, "nothing is wrong"),
    hiddenByMeeting(kFurtherErrors, "nothing is wrong"),

    // Waiting room and signed-in users
    lockedOffBy(kWaitingRoomLock, kWaitingRoom),
    lockedBy(kWaitingRoomLock, kWaitingRoom),
    hiddenByMeeting({"securityTipView"}, "it is told when the waiting room goes on by itself, and once"),
    tooOld<&G::isVornClientSupport464Tasks>(kSignIn),
    without<&S::isSupportOnlyAuthUsersCanJoin>(kSignIn),
    lockedOffBy(kSignInLock, kSignIn),
    lockedBy(kSignInLock, kSignIn),
    hiddenByChoice(
        {"authNamePopup", "domainText", "viewEditButton"}, "signed-in users only is off",
        [](const Question& q) { return !q.controls.isOn(control_key::onlySignedinWithSpecifiedDomains); }),
    hiddenByMeeting({"authNamePopup"}, "there is only one way of signing in"),
    hiddenByChoice({"domainText"}, "the way of signing in names no domains"),
    hiddenWithLock(kSignInLock, {"viewEditButton", "domains_SaveBtn"}),
    hiddenByChoice({"viewEditButton"}, "the way of signing in names no domains"),
    lockedBy(kSignInLock, {"_domainsTextField"}),

    // Join before host
    hiddenByChoice({control_key::enableJBHButton, "jbhLimitTimePopUp", "jbhBeforeStartTime"}, kEndToEnd,
                   isEndToEnd),
    lockedBy(kJoinEarly, {control_key::enableJBHButton, "jbhLimitTimePopUp"}),
    lockedByChoice({control_key::enableJBHButton}, kEndToEnd, kEndToEndNote, isEndToEnd),
    lockedByChoice({"jbhLimitTimePopUp"}, "join before host is off", "LN_Schedule_Note_JoinBeforeHostOff"),
    tooOld<&G::isVornClientSupport464Tasks>(kJoinTime),
    notOffered(policyOf(vn_Setting_JBHPriorTime), kJoinTime),
    hiddenByChoice(kJoinTime, kPersonal, isPersonal),
    hiddenByMeeting(kJoinTime, "the appointment is a series",
                    [](const Question& q) { return q.situation.isEnableRecurrence; }),
    hiddenWithLock(kJoinEarly, kJoinTime),

    // Encryption
    tooOld<&G::isVornClientSupport530Tasks>(kEncryption),
    notOffered(kEndToEndPolicy, kEncryption),
    lockedOffBy(kEndToEndPolicy, kEncryption),
    hiddenWithLock(kEndToEndPolicy, {"enhancedButton", "enhancedHelpButton"}),
    lockedBy(kEndToEndPolicy, {control_key::endtoendButton}),
    hiddenByChoice({"encryptionTipView"}, "end-to-end encryption is not chosen",
                   [](const Question& q) { return !q.isEndToEnd(); }),
    hiddenByChoice({"encryptionTipView"}, kUnwanted),

    // Recording
    notOffered(kRecordingPolicy, kRecording),
    hiddenByMeeting(kRecordingChoices, "there is only one way to record", canRecordInOneWay),
    hiddenByChoice(kRecording, kEndToEnd, isEndToEnd),
    hiddenByChoice(kRecordingChoices, "automatic recording is off"),
    lockedBy(kRecordingPolicy, kRecording),
    lockedByChoice(kRecording, kEndToEnd, kEndToEndNote, isEndToEnd),

    // Advanced
    tooOld<&G::isVornClientSupportAHAndMuteOnEntry>({"muteUponEntryBox", "muteParticipantUponEntry"}),
    lockedBy(policyOf(vn_Setting_MuteUponEntry), {"muteParticipantUponEntry"}),
    tooOld<&G::isVornClientSupport520Tasks>({"unmuteParticipantsButton"}),
    notOffered<&F::isSupportUnmuteAll>({"unmuteParticipantsButton"}),
    notOffered<&F::isEnableAudioWatermark>({"audioWatermarkButton"}),
    hiddenByChoice({"audioWatermarkButton"}, "it is for signed-in users only, which is off"),
    lockedBy(policyOf(vn_Setting_EnableAudioWatermark), {"audioWatermarkButton"}),
    notOffered(kPublicEventPolicy, kPublicEvent),
    lockedBy(kPublicEventPolicy, {"publicEventButton"}),
    hiddenByChoice({"publicEventListButton"}, "the public event is off"),
    tooOld<&G::isVornClientSupportInvitationLanguage>({"selectLanguageText", "selectLanguagePopup"}),
    lockedBy(policyOf(vn_Setting_ForceIncludeJoinurlInLocation), {"forceIncludeJoinurlInLocation"}),
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

struct Explained {
  std::string reason{};
  std::string_view noteKey{};
};

Explained ownReason(const Control& control, const Question& question) {
  static const auto kByControl = reasonsByControl();
  if (control.key == control_key::buttonContinue && !control.enabled) {
    const HeldBack& heldBack = question.situation.heldBackBy;
    return {std::string(heldBack.reason), heldBack.noteKey};
  }
  const State state = control.hidden ? State::hidden : State::locked;
  const auto [begin, end] = kByControl.equal_range(withoutNumber(control.key));
  for (auto each = begin; each != end; ++each) {
    const Reason& reason = *each->second;
    if (reason.state == state && reason.appliesTo(question)) return {inWords(reason), reason.noteKey};
  }
  return {control.kind == Control::Kind::window ? "the window is closed" : ""};
}

// The box or window by which a control is off the screen although it is not hidden itself; null when it is on it.
const Control* hiddenAround(const Control& control, const ControlSet& controls) {
  const Control* around = controls.find(control.box);
  while (around && !around->hidden) around = controls.find(around->box);
  return around;
}

}  // namespace

void explain(ControlSet& controls, const PanelSituation& situation, const TextSource& texts) {
  const Question question{situation, controls};
  for (const std::string& key : controls.keys()) {
    Control& control = *controls.find(key);
    Explained own;
    if (control.hidden || !control.enabled) own = ownReason(control, question);
    control.note = control.hidden || own.noteKey.empty() ? "" : texts(own.noteKey, {});
    control.reason = own.reason;
    if (!control.reason.empty()) continue;
    if (const Control* around = hiddenAround(control, controls))
      control.reason = ownReason(*around, question).reason;
  }
}

}  // namespace vorn::panel_rules
