// The security section's rules without a world: values go in and values come out.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "settings/rules/EncryptionRules.h"
#include "settings/rules/JoinBeforeHost.h"
#include "settings/rules/PasscodeChecklist.h"
#include "settings/rules/PasscodeField.h"
#include "settings/rules/PasscodeHelp.h"
#include "settings/rules/SecurityRules.h"
#include "tests/settings/RuleTexts.h"

namespace vorn::panel_rules {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// -- The passcode's field ----------------------------------------------------------------------------------------

TEST(PasscodeFieldTest, TypingLosesBlanksAndWhatPartsTheFieldsOfAnOlderClientsRequest) {
  EXPECT_EQ(typedPasscode(" a b;c ", true), "ab;c");
  EXPECT_EQ(typedPasscode(" a b;c ", false), "abc");
}

TEST(PasscodeFieldTest, TheVerdictSpeaksOnlyWhereAPasscodeIsAskedForAndIsWrong) {
  EXPECT_EQ(passcodeVerdict(false, 3, textOfKey), (PasscodeVerdict{0, "", 0.0}));
  EXPECT_EQ(passcodeVerdict(true, 0, textOfKey), (PasscodeVerdict{0, "", 0.0}));
  EXPECT_EQ(passcodeVerdict(true, 3, textOfKey),
            (PasscodeVerdict{3, "Schedule_PasswordDoNotMeetRequirements", 1.5}));
}

TEST(PasscodeFieldTest, AnAcceptedPasscodeIsNotFaultedWhenThePanelLoads) {
  const char* unfit = "Schedule_PasswordDoNotMeetRequirements";
  const struct {
    PasscodeAtLoad passcode;
    const char* error;
    std::optional<double> border;
  } rows[] = {
      {{.isUpdate = true, .isRequired = true, .failedRules = 2}, "", {}},
      {{.usePMI = true, .isUpdate = true, .isRequired = true, .failedRules = 2}, unfit, 1.5},
      {{.isRequired = true, .failedRules = 2}, unfit, 1.5},
      {{.isRequired = false, .failedRules = 2}, "", 0.0},
  };
  for (const auto& row : rows) {
    const PasscodeVerdict verdict = passcodeVerdictAtLoad(row.passcode, textOfKey);
    EXPECT_EQ(verdict.error, row.error);
    EXPECT_EQ(verdict.redBorderWidth, row.border) << row.error;
  }
}

TEST(PasscodeHelpTest, TellsWhoNeedsNotTypeThePasscodeAndWhoCannot) {
  const std::string prompt = "Schedule_Passcode_Help_Prompt";
  const std::string both = prompt + "\nSchedule_PasswordInputHelp";
  const struct {
    PasscodeHelpQuestion question;
    PasscodeHelp help;
  } rows[] = {
      {{.passcode = "123", .isDisablePwdEmbedInJoinUrl = true}, {true, ""}},
      {{.isDisablePwdEmbedInJoinUrl = true}, {true, ""}},
      {{.fieldIsHidden = true, .passcode = "a", .isDisablePwdEmbedInJoinUrl = true}, {true, ""}},
      {{.passcode = "12a", .isDisablePwdEmbedInJoinUrl = true}, {false, "Schedule_PasswordInputHelp"}},
      {{.switchIsHidden = true, .passcode = "12a"}, {true, ""}},
      {{.switchIsHidden = true, .passcode = "12a", .isDisablePwdEmbedInJoinUrl = true}, {true, ""}},
      {{.passcode = ""}, {false, prompt}},
      {{.passcode = "0123456789"}, {false, prompt}},
      // A scanner reads these as whole numbers.
      {{.passcode = "-12"}, {false, prompt}},
      {{.passcode = "\t+7\r"}, {false, prompt}},
      {{.passcode = "12-"}, {false, both}},
      {{.passcode = "-"}, {false, both}},
      {{.passcode = " "}, {false, both}},
      {{.passcode = "1 2"}, {false, both}},
      {{.passcode = "12:"}, {false, both}},
      {{.passcode = "1/2"}, {false, both}},
      {{.passcode = "\xD9\xA1"}, {false, both}},
  };
  for (const auto& row : rows) {
    const PasscodeHelp help = passcodeHelp(row.question, textOfKey);
    EXPECT_EQ(help.hidden, row.help.hidden) << row.question.passcode;
    EXPECT_EQ(help.toolTip, row.help.toolTip) << row.question.passcode;
  }
}

// -- The checklist -----------------------------------------------------------------------------------------------

std::vector<std::string> textsOf(const std::vector<PasscodeChecklist::Line>& lines) {
  std::vector<std::string> texts;
  for (const auto& line : lines) texts.push_back(line.text);
  return texts;
}

TEST(PasscodeChecklistTest, MarksEachRuleOfTheAccountByItsBitAndTheLengthByTheTextItself) {
  const PasscodePolicy all{.rules = 127, .minLength = 3, .consecutiveLength = 4};
  // All have failed; the text has grown since.
  const PasscodeChecklist failed = passcodeChecklist(all, "abc", 127, textOfKey);
  EXPECT_EQ(failed.passwordMust, "Schedule_Password_Must");
  EXPECT_EQ(failed.passwordMustNot, "Schedule_Password_MustNot");
  EXPECT_THAT(textsOf(failed.must),
              ElementsAre("·   Schedule_Psw_Rule_Only_Number", "✔ Schedule_Psw_Rule_Has_Min_Length(3)",
                          "·   Schedule_Psw_Rule_Has_Alphabet", "·   Schedule_Psw_Rule_Has_Number",
                          "·   Schedule_Psw_Rule_Has_Special", "·   Schedule_Psw_Rule_Include_UpperLower"));
  EXPECT_THAT(textsOf(failed.mustNot), ElementsAre("·   Schedule_Psw_Rule_Contain_Consecutive(4)"));
  EXPECT_EQ(failed.must[5].rule, kPswRuleIncludeUpperLower);

  // None has failed; the text has shrunk since. A character outside the basic plane counts two.
  EXPECT_EQ(passcodeChecklist(all, "ab", 0, textOfKey).must[1].text, "·   Schedule_Psw_Rule_Has_Min_Length(3)");
  EXPECT_EQ(passcodeChecklist(all, "a😀", 0, textOfKey).must[1].text, "✔ Schedule_Psw_Rule_Has_Min_Length(3)");
  EXPECT_EQ(passcodeChecklist(all, "", 2, textOfKey).must[2].text, "✔ Schedule_Psw_Rule_Has_Alphabet");
}

TEST(PasscodeChecklistTest, HasAHeadingOnlyAboveARuleAndIsReadOutInTheSameOrder) {
  const PasscodeChecklist must = passcodeChecklist({.rules = 8 + 4}, "", 8, textOfKey);
  EXPECT_EQ(must.passwordMustNot, "");
  EXPECT_THAT(must.mustNot, IsEmpty());
  EXPECT_EQ(spokenPasscodeChecklist(must, textOfKey),
            "Schedule_Security_Passcode:✔ Schedule_Psw_Rule_Has_Alphabet,·   Schedule_Psw_Rule_Has_Number,");

  const PasscodeChecklist mustNot = passcodeChecklist({.rules = 64, .consecutiveLength = 3}, "", 0, textOfKey);
  EXPECT_EQ(mustNot.passwordMust, "");
  EXPECT_EQ(spokenPasscodeChecklist(mustNot, textOfKey),
            "Schedule_Security_Passcode:Schedule_Password_MustNot:✔ Schedule_Psw_Rule_Contain_Consecutive(3),");
}

// -- The passcode's switch ---------------------------------------------------------------------------------------

constexpr PasscodeSituation kOneTime{}, kOneTimeEarly{.enableJBH = true}, kPersonal{.usePMI = true},
    kPersonalEarly{.usePMI = true, .enableJBH = true};

TEST(PasscodeSwitchTest, IsForcedAndLockedByTheAccountForEachKindOfMeeting) {
  using F = AccountFacts;
  const F nothing{}, oneTimeOn{.isEnableRequirePassword = true, .isLockScheduleRequirePassword = true},
      oneTimeOff{.isLockScheduleRequirePassword = true}, required{.isEnableRequirePassword = true},
      personalOn{.isEnablePMIRequirePassword = true, .isLockPMIRequirePassword = true},
      personalOff{.isLockPMIRequirePassword = true}, personalRequired{.isEnablePMIRequirePassword = true},
      early{.isEnableForcePMIJBHWithPassword = true},
      earlyKnown{.isEnableForcePMIJBHWithPassword = true, .supportFeatureRequirePassword = true},
      earlyLocked{.isEnableForcePMIJBHWithPassword = true,
                  .isLockPMIRequirePassword = true,
                  .supportFeatureRequirePassword = true};
  const struct {
    PasscodeSituation situation;
    const F& account;
    bool forced;
    // Absent when the switch is not locked.
    std::optional<bool> locked;
    // After join before host has changed.
    bool forcedByJoin;
  } rows[] = {
      {kOneTime, nothing, false, {}, false},
      {kOneTime, required, true, {}, false},
      {kOneTime, oneTimeOn, true, true, false},
      {kOneTime, oneTimeOff, false, false, false},
      {kOneTime, personalOn, false, {}, false},
      {kOneTimeEarly, earlyLocked, false, {}, false},
      {kPersonal, nothing, false, {}, false},
      {kPersonal, oneTimeOn, false, {}, false},
      {kPersonal, personalRequired, true, {}, false},
      {kPersonal, personalOn, true, true, false},
      {kPersonal, personalOff, false, false, false},
      {kPersonalEarly, personalOff, false, false, false},
      {kPersonal, early, false, {}, false},
      {kPersonalEarly, early, true, true, true},
      {kPersonalEarly, earlyKnown, true, {}, true},
      {kPersonal, earlyLocked, false, {}, false},
      {kPersonalEarly, earlyLocked, true, true, true},
  };
  const ClientGates newClient{.isVornClientSupport520Tasks = true};
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    const auto& row = rows[i];
    EXPECT_EQ(isPasscodeForced(row.situation, row.account), row.forced) << i;
    EXPECT_EQ(isPasscodeLocked(row.situation, row.account), row.locked.has_value()) << i;
    EXPECT_EQ(lockedPasscodeRequired(row.situation, row.account), row.locked) << i;

    const PasscodeSwitchChange change{row.forcedByJoin, !row.locked.has_value()};
    EXPECT_EQ(passcodeSwitchAfterJoinBeforeHost(row.situation, row.account, newClient), change) << i;
    F newLogic = row.account;
    newLogic.isEnableWaitingRoomNewLogic = true;
    EXPECT_EQ(passcodeSwitchAfterJoinBeforeHost(row.situation, newLogic, {}), change) << i;
    EXPECT_EQ(passcodeSwitchAfterJoinBeforeHost(row.situation, newLogic, newClient), PasscodeSwitchChange{}) << i;
  }
}

TEST(PasscodeSwitchTest, ANewMeetingFollowsTheAccountAndAnyOtherItsRecord) {
  const AccountFacts required{.isEnableRequirePassword = true};
  const struct {
    bool usePMI, isUpdate, recorded;
    bool isRequired, isRequiredByAccount;
  } rows[] = {
      {false, false, false, false, true}, {false, false, true, true, true},   {true, false, false, false, false},
      {true, false, true, true, true},    {false, true, false, false, false}, {false, true, true, true, true},
  };
  for (const auto& row : rows) {
    const MeetingOptions options{.requiredMeetingPassword = row.recorded, .usePMI = row.usePMI};
    EXPECT_EQ(passcodeRequiredAtLoad(options, row.isUpdate, {}), row.isRequired);
    EXPECT_EQ(passcodeRequiredAtLoad(options, row.isUpdate, required), row.isRequiredByAccount);
  }
}

TEST(PasscodeSwitchTest, OnlyAnUnusablePasscodeOfAMeetingWithItsOwnNumberIsReplaced) {
  EXPECT_TRUE(needsNewPasscode(false, true, true, false));
  EXPECT_TRUE(needsNewPasscode(false, true, false, true));
  EXPECT_FALSE(needsNewPasscode(false, true, false, false));
  EXPECT_FALSE(needsNewPasscode(false, false, true, true));
  EXPECT_FALSE(needsNewPasscode(true, true, true, true));
}

TEST(WaitingRoomTest, ANewMeetingWhoseRecordDoesNotKnowOfItFollowsTheAccount) {
  const AccountFacts on{.isEnableWaitingRoom = true};
  const MeetingOptions unknown{}, known{.supportWaitingRoom = true}, personal{.usePMI = true},
      recorded{.enableWaitingRoom = true};
  EXPECT_TRUE(waitingRoomAtLoad(unknown, false, on));
  EXPECT_FALSE(waitingRoomAtLoad(recorded, false, {}));
  EXPECT_FALSE(waitingRoomAtLoad(known, false, on));
  EXPECT_FALSE(waitingRoomAtLoad(personal, false, on));
  EXPECT_FALSE(waitingRoomAtLoad(unknown, true, on));
  EXPECT_TRUE(waitingRoomAtLoad(recorded, true, {}));
}

// -- The section -------------------------------------------------------------------------------------------------

const ClientGates kNewClient{.isVornClientSupport520Tasks = true};
const AccountFacts kOldLogic{.knowsAccount = true};
const AccountFacts kNewLogic{.knowsAccount = true, .isEnableWaitingRoomNewLogic = true};

// In letters: P, W and S for what is on; p, w and s for what is off; "-" for what is hidden. The error, the box.
std::string told(const SecurityControls& c) {
  const auto letter = [](bool hidden, bool on, char off) {
    return hidden ? '-' : static_cast<char>(on ? off - 'a' + 'A' : off);
  };
  return std::string{letter(c.requiredMeetingPswHidden, c.requiredMeetingPswOn, 'p'),
                     letter(c.enableWaitingRoomHidden, c.enableWaitingRoomOn, 'w'),
                     letter(c.restrictDomainsBoxHidden, c.onlySignedinOn, 's')} +
         (c.errorHidden ? "" : " error") + (c.tipHidden ? "" : " tip") +
         (c.meetingPasswordBoxHidden ? " no box" : "");
}

TEST(SecurityBoxTest, AsksForAnOptionUnderTheNewLogicAndHidesWhatIsLockedOffUnderBoth) {
  AccountFacts noRoom{}, noPasscode{}, noSignIn{};
  noRoom.isLockWaitingRoom = noPasscode.isLockScheduleRequirePassword = noSignIn.isLockOnlyAuthUsersCanJoin = true;
  AccountFacts nothing = noRoom;
  nothing.isLockScheduleRequirePassword = nothing.isLockOnlyAuthUsersCanJoin = true;
  AccountFacts lockedOn = nothing;
  lockedOn.isEnableWaitingRoom = lockedOn.isDefaultEnableOnlyAuthUsersCanJoin = true;
  const struct {
    const AccountFacts& account;
    bool passcode, room, signIn, wasRefused;
    const char* oldLogic;
    const char* newLogic;
  } rows[] = {
      {kOldLogic, false, false, false, false, "pws", "pWs tip"},
      {kOldLogic, true, false, false, false, "Pws", "Pws"},
      {kOldLogic, false, true, false, false, "pWs", "pWs"},
      {kOldLogic, false, false, true, false, "pwS", "pwS"},
      {kOldLogic, false, false, false, true, "pws error", "pWs tip"},
      {kOldLogic, true, false, false, true, "Pws", "Pws"},
      {noRoom, false, false, false, false, "p-s", "p-s error"},
      {noRoom, false, true, false, false, "p-s", "p-s error"},
      {noRoom, false, true, false, true, "p-s error", "p-s error"},
      {noRoom, true, false, false, false, "P-s", "P-s"},
      {noPasscode, false, false, false, false, "-ws", "-Ws tip"},
      {noPasscode, true, false, false, false, "Pws", "Pws"},
      {noSignIn, false, false, true, false, "pw-", "pW- tip"},
      {nothing, false, false, false, false, "--- no box", "--- error"},
      // Nobody could see an error in a box that is hidden.
      {nothing, false, false, false, true, "--- no box", "--- error"},
      {nothing, true, false, false, true, "P--", "P--"},
      {lockedOn, false, false, false, false, "-ws", "-Ws tip"},
  };
  for (const auto& row : rows) {
    const SecurityControls controls{.meetingPasswordBoxHidden = true,
                                    .requiredMeetingPswHidden = true,
                                    .requiredMeetingPswOn = row.passcode,
                                    .enableWaitingRoomHidden = true,
                                    .enableWaitingRoomOn = row.room,
                                    .onlySignedinOn = row.signIn,
                                    .errorHidden = false,
                                    .tipHidden = false};
    const SecuritySituation situation{.wasSecurityNotSelected = row.wasRefused};
    AccountFacts account = row.account;
    account.knowsAccount = true;
    EXPECT_EQ(told(securityBox(controls, situation, account, kNewClient).controls), row.oldLogic);
    account.isEnableWaitingRoomNewLogic = true;
    EXPECT_EQ(told(securityBox(controls, situation, account, {}).controls), row.oldLogic) << "an older client";
    EXPECT_EQ(told(securityBox(controls, situation, account, kNewClient).controls), row.newLogic) << row.oldLogic;
  }
}

TEST(SecurityBoxTest, TellsTheRecordWhatItForcedAndTheFilesWhatIsTold) {
  const SecurityControls off{.pswHelpHidden = false};
  SecurityOutcome forced = securityBox(off, {.wasSecurityNotSelected = true}, kNewLogic, kNewClient);
  EXPECT_EQ(forced.enableWaitingRoom, true);
  EXPECT_EQ(forced.requiredMeetingPassword, std::nullopt);
  EXPECT_EQ(forced.isSignedInUsersMeetingOn, std::nullopt);
  EXPECT_TRUE(forced.clearsSecurityNotSelected);
  EXPECT_TRUE(forced.remembersWaitingRoomTip);

  forced = securityBox(off, {.isWaitingRoomTipKnown = true}, kNewLogic, kNewClient);
  EXPECT_EQ(told(forced.controls), "pWs") << "the tip is shown once";
  EXPECT_FALSE(forced.remembersWaitingRoomTip);
  EXPECT_FALSE(forced.clearsSecurityNotSelected);

  AccountFacts lockedOff{.knowsAccount = true,
                         .isLockScheduleRequirePassword = true,
                         .isLockWaitingRoom = true,
                         .isLockOnlyAuthUsersCanJoin = true};
  const SecurityOutcome hidden = securityBox(off, {.wasSecurityNotSelected = true}, lockedOff, {});
  EXPECT_EQ(hidden.enableWaitingRoom, false);
  EXPECT_EQ(hidden.requiredMeetingPassword, false);
  EXPECT_EQ(hidden.isSignedInUsersMeetingOn, false);
  EXPECT_TRUE(hidden.controls.passwordFieldHidden && hidden.controls.passwordPromptHidden &&
              hidden.controls.pswHelpHidden && hidden.controls.waitingRoomPromptHidden);
  EXPECT_FALSE(hidden.clearsSecurityNotSelected) << "the box is hidden, so the user was told nothing";

  SecurityControls shownAgain{.requiredMeetingPswOn = true,
                              .passwordPromptHidden = true,
                              .passwordFieldHidden = true,
                              .waitingRoomPromptHidden = true};
  EXPECT_EQ(securityBox(shownAgain, {}, kOldLogic, {}).controls, (SecurityControls{.requiredMeetingPswOn = true}));
  EXPECT_TRUE(securityBox({}, {}, kOldLogic, {}).controls.passwordFieldHidden);
}

TEST(SecurityBoxTest, WithoutAProfileSaysNothingOfErrorsAndForcesNothing) {
  AccountFacts unknown = kNewLogic;
  unknown.knowsAccount = false;
  unknown.isLockWaitingRoom = true;
  const SecurityOutcome outcome = securityBox({.errorHidden = false, .tipHidden = false},
                                              {.wasSecurityNotSelected = true}, unknown, kNewClient);
  EXPECT_EQ(told(outcome.controls), "pws error tip") << "both as they stood";
  EXPECT_EQ(outcome.enableWaitingRoom, std::nullopt);
  EXPECT_FALSE(outcome.clearsSecurityNotSelected);
}

TEST(SecurityBoxTest, TheErrorFollowsTheOptionsUnderTheNewLogicAlone) {
  const SecurityControls none{}, room{.enableWaitingRoomOn = true};
  EXPECT_FALSE(securityErrorIsHidden(none, kNewLogic, kNewClient));
  EXPECT_TRUE(securityErrorIsHidden(room, kNewLogic, kNewClient));
  EXPECT_TRUE(securityErrorIsHidden(none, kNewLogic, {}));
  EXPECT_TRUE(securityErrorIsHidden(none, kOldLogic, kNewClient));
  EXPECT_EQ(passcodePrompt({}, textOfKey), "Schedule_Passcode_Prompt");
  EXPECT_EQ(passcodePrompt({.isDisablePwdEmbedInJoinUrl = true}, textOfKey), "Schedule_Passcode_Disable_Prompt");
}

// -- Join before host --------------------------------------------------------------------------------------------

TEST(JoinBeforeHostTest, SpeaksOfATimeOnlyWhereTheMeetingCanHaveOne) {
  const ClientGates client{.isVornClientSupport464Tasks = true};
  const AccountFacts none{}, chosen{.isSupportJbhPriorTime = true},
      given{.alwaysEnableJoinBeforeHostByDefault = true, .isSupportJbhPriorTime = true},
      lockedOff{.isSupportJbhPriorTime = true, .isJoinBeforeHostLocked = true},
      fixed{.alwaysEnableJoinBeforeHostByDefault = true,
            .isSupportJbhPriorTime = true,
            .isJoinBeforeHostLocked = true};
  const std::string plain = "Schedule_EnableJoinBeforeHost_ForPMI";
  const std::string title = "Schedule_EnableJoinBeforeHost";
  const std::string behind = " Schedule_JBH_TimeLimit_Options";
  const struct {
    const AccountFacts& account;
    ClientGates client;
    JoinBeforeHostQuestion question;
    std::string title;
    // -1 without a popup.
    int index;
  } rows[] = {
      {fixed, {}, {.jbhPriorTime = 5}, plain, -1},
      {none, client, {.jbhPriorTime = 5}, plain, -1},
      {fixed, client, {.usePMI = true, .jbhPriorTime = 5}, plain, -1},
      {chosen, client, {.isEnableRecurrence = true, .jbhPriorTime = 5}, plain, -1},
      {fixed, client, {.jbhPriorTime = 10}, title + " 10 Schedule_JBH_TimeLimit_Min" + behind, -1},
      {fixed, client, {.jbhPriorTime = 0}, title + " Schedule_JBH_TimeLimit_AnyTime" + behind, -1},
      {chosen, client, {.jbhPriorTime = 5}, title, 0},
      {given, client, {.jbhPriorTime = 10}, title, 1},
      {lockedOff, client, {.jbhPriorTime = 15}, title, 2},
      {chosen, client, {.jbhPriorTime = 0}, title, 3},
      {chosen, client, {.jbhPriorTime = 7}, title, 0},
      {chosen, client, {.jbhPriorTime = -1}, title, 0},
  };
  for (const auto& row : rows) {
    const JoinBeforeHost shown = joinBeforeHost(row.question, row.account, row.client, textOfKey);
    EXPECT_EQ(shown.title, row.title);
    EXPECT_EQ(shown.popupIsHidden(), row.index < 0) << row.title;
    EXPECT_EQ(shown.items.empty(), row.index < 0) << row.title;
    EXPECT_EQ(shown.index, std::max(row.index, 0)) << row.question.jbhPriorTime;
  }
  const std::string minutes = " Schedule_JBH_TimeLimit_Min";
  EXPECT_THAT(joinBeforeHost({}, chosen, client, textOfKey).items,
              ElementsAre("5" + minutes, "10" + minutes, "15" + minutes, "Schedule_JBH_TimeLimit_AnyTime"));
  EXPECT_TRUE(joinTimeIsEnabled(true, given));
  EXPECT_FALSE(joinTimeIsEnabled(false, given));
  EXPECT_FALSE(joinTimeIsEnabled(true, fixed));
}

TEST(JoinBeforeHostTest, ACommitWritesTheMinutesThatTheControlsShow) {
  const AccountFacts open{}, locked{.isJoinBeforeHostLocked = true};
  const struct {
    JoinBeforeHostChoice choice;
    const AccountFacts& account;
    bool enabled;
    // 7 is what stood there.
    std::int64_t minutes;
  } rows[] = {
      {{.buttonIsOn = true, .popupIsHidden = false, .index = 0}, open, true, 5},
      {{.buttonIsOn = true, .popupIsHidden = false, .index = 1}, open, true, 10},
      {{.buttonIsOn = false, .popupIsHidden = false, .index = 2}, locked, false, 15},
      {{.buttonIsOn = true, .popupIsHidden = false, .index = 3}, open, true, 0},
      {{.buttonIsOn = true, .popupIsHidden = false, .index = 4}, open, true, 7},
      {{.buttonIsOn = true, .popupIsHidden = false, .index = -1}, open, true, 7},
      {{.buttonIsOn = true}, locked, true, 7},
      {{.buttonIsOn = true}, open, true, 0},
      {{.buttonIsOn = false}, locked, false, 0},
      {{.buttonIsHidden = true, .buttonIsOn = true}, locked, false, 0},
  };
  for (const auto& row : rows) {
    MeetingOptions options{.enableJBH = !row.enabled, .jbhPriorTime = 7};
    commitJoinBeforeHost(options, row.choice, row.account);
    EXPECT_EQ(options.enableJBH, row.enabled) << row.minutes;
    EXPECT_EQ(options.jbhPriorTime, row.minutes);
  }
}

// -- Encryption --------------------------------------------------------------------------------------------------

TEST(EncryptionTest, OffersTheChoiceAsTheAccountAndTheClientAllow) {
  const ClientGates client{.isVornClientSupport530Tasks = true};
  using C = EncryptionControls;
  const C hidden{.boxHidden = true,
                 .enhancedHidden = true,
                 .enhancedOn = true,
                 .enhancedHelpHidden = true,
                 .endtoendHidden = true,
                 .endtoendHelpHidden = true};
  const AccountFacts offered{.isSupportE2eeMeeting = true},
      lockedOn{.isSupportE2eeMeeting = true, .isEnableE2eeMeeting = true, .isLockE2eeMeeting = true},
      lockedOff{.isSupportE2eeMeeting = true, .isLockE2eeMeeting = true};
  const C before{.enhancedOn = true, .endtoendEnabled = false};
  EXPECT_EQ(encryptionBox(before, true, offered, client), (C{.endtoendOn = true}));
  EXPECT_EQ(encryptionBox(before, false, offered, client), (C{.enhancedOn = true}));
  EXPECT_EQ(encryptionBox(before, true, lockedOn, client),
            (C{.enhancedHidden = true, .enhancedHelpHidden = true, .endtoendEnabled = false, .endtoendOn = true}));
  EXPECT_EQ(encryptionBox(before, false, lockedOff, client), hidden);
  EXPECT_EQ(encryptionBox(before, true, offered, {}), hidden) << "the states stay as they stood";
  EXPECT_EQ(encryptionBox(before, true, {}, client), hidden);
}

TEST(EncryptionTest, IsEndToEndOnlyForAnAccountThatCanScheduleItAndOnAShownButton) {
  const AccountFacts can{.canScheduleE2eeMeeting = true};
  for (const auto isOn : {enableE2eeAtLoad, enableE2eeAfterClick}) {
    EXPECT_TRUE(isOn(true, can) && !isOn(false, can) && !isOn(true, {}));
  }
  EXPECT_TRUE(encryptionTipIsShown({.endtoendOn = true}, false));
  EXPECT_FALSE(encryptionTipIsShown({.endtoendOn = true}, true));
  EXPECT_FALSE(encryptionTipIsShown({.endtoendHidden = true, .endtoendOn = true}, false));
  EXPECT_FALSE(encryptionTipIsShown({}, false));

  EXPECT_EQ(audioTypeForEndToEnd({}), 1);
  EXPECT_EQ(audioTypeForEndToEnd({.isTspSite = true}), 12);
}

}  // namespace
}  // namespace vorn::panel_rules
