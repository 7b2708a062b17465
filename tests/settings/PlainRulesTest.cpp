// The rules of the panel's plain options, each with what the account, the client and the record say.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "settings/rules/ContinueRule.h"
#include "settings/rules/InvitationLanguages.h"
#include "settings/rules/PlainOptionRules.h"
#include "settings/rules/RecordingRules.h"

namespace vorn {
namespace {

using Title = RecordingState::Title;

TEST(PlainOptions, AreShownAndLockedByTheirOwnAnswersAlone) {
  // What shows each of them, and what locks it; nothing else does.
  const struct {
    PlainOption option;
    std::vector<void (*)(OptionFacts&)> shownBy;
    void (*lock)(OptionFacts&);
  } rows[] = {
      {plain_option::hostVideo, {}, [](OptionFacts& f) { f.account.isHostVideoLocked = true; }},
      {plain_option::participantVideo, {}, [](OptionFacts& f) { f.account.isParticipantsLocked = true; }},
      {plain_option::publicEvent,
       {[](OptionFacts& f) { f.account.isEnableAddMeetingToPublicCalendarEvent = true; }},
       [](OptionFacts& f) { f.account.isPublicEventLocked = true; }},
      {plain_option::muteUponEntry,
       {[](OptionFacts& f) { f.client.isVornClientSupportAHAndMuteOnEntry = true; }},
       [](OptionFacts& f) { f.account.isMuteUponEntryLocked = true; }},
      {plain_option::unmuteAll,
       {[](OptionFacts& f) { f.client.isVornClientSupport520Tasks = true; },
        [](OptionFacts& f) { f.account.isSupportUnmuteAll = true; }},
       nullptr},
      {plain_option::joinUrlInLocation, {}, [](OptionFacts& f) { f.account.isLockJoinUrlToLocation = true; }},
      {plain_option::audioWatermark,
       {[](OptionFacts& f) { f.isSignInOnly = true; },
        [](OptionFacts& f) { f.account.isEnableAudioWatermark = true; }},
       [](OptionFacts& f) { f.account.isLockAudioWatermark = true; }},
      {plain_option::invitationAtTheTop, {[](OptionFacts& f) { f.isUpdate = false; }}, nullptr},
  };
  ASSERT_EQ(std::size(rows), plain_option::all.size());
  for (const auto& row : rows) {
    SCOPED_TRACE(row.option.control);
    OptionFacts facts{.isUpdate = true};
    for (const auto show : row.shownBy) {
      EXPECT_FALSE(stateOf(row.option, facts, {}).isShown);
      show(facts);
    }
    EXPECT_EQ(stateOf(row.option, facts, {}), (SwitchState{.isShown = true}));
    MeetingOptions on;
    on.*row.option.field = true;
    EXPECT_TRUE(stateOf(row.option, facts, on).isOn);
    if (!row.lock) continue;
    row.lock(facts);
    // Whose watermark is locked has it.
    const bool isOn = row.option.control == "audioWatermarkButton";
    EXPECT_EQ(stateOf(row.option, facts, {}), (SwitchState{.isShown = true, .isLocked = true, .isOn = isOn}));
  }
}

constexpr RecordingKinds kBoth{true, true}, kLocal{true, false}, kCloud{false, true};

TEST(AutomaticRecording, LoadsAndCommitsEachTypeByWhatTheAccountCanRecord) {
  const struct {
    const char* name;
    RecordingKinds kinds;
    std::int32_t type;
    RecordingState loaded;
    std::int32_t committed, committedEncrypted;
  } rows[] = {
      {"nothing can be recorded", {false, false}, 1, {}, 5, 0},
      {"local, off", kLocal, 0, {true, false, Title::localOnly, false, false, false}, 0, 0},
      {"local, on", kLocal, 3, {true, true, Title::localOnly, false, false, false}, 3, 3},
      {"cloud, on", kCloud, 4, {true, true, Title::cloudOnly, false, false, false}, 4, 0},
      {"both, off", kBoth, 0, {true, false, Title::both, false, false, false}, 0, 0},
      {"both, local", kBoth, 1, {true, true, Title::both, true, true, false}, 1, 1},
      {"both, cloud", kBoth, 2, {true, true, Title::both, true, true, true}, 2, 1},
      {"both, a type of one kind alone", kBoth, 4, {true, true, Title::both, true, true, false}, 1, 1},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const RecordingState loaded = recordingAtLoad(row.kinds, row.type);
    EXPECT_EQ(loaded, row.loaded);
    EXPECT_EQ(recordingTypeToCommit(row.kinds, loaded, false), row.committed);
    EXPECT_EQ(recordingTypeToCommit(row.kinds, loaded, true), row.committedEncrypted);
  }
}

TEST(AutomaticRecording, OfAnEncryptedMeetingIsLocalOrNone) {
  const struct {
    const char* name;
    RecordingKinds kinds;
    std::int32_t type;
    bool switchIsEnabled;
    EndToEndRecording expected;
  } rows[] = {
      {"local", kLocal, 3, true, {{true, true, Title::localOnly, false, false, false}, true, true}},
      {"cloud alone", kCloud, 4, true, {{false, false, Title::cloudOnly, false, false, false}, false, false}},
      {"both, local", kBoth, 1, true, {{true, true, Title::both, true, false, false}, true, true}},
      {"both, cloud", kBoth, 2, true, {{true, false, Title::both, false, false, false}, true, true}},
      {"locked, cloud", kBoth, 2, false, {{false, false, Title::both, false, false, false}, true, false}},
      {"locked, local", kBoth, 1, false, {{true, true, Title::both, true, false, false}, true, false}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(recordingForEndToEnd(recordingAtLoad(row.kinds, row.type), row.kinds, row.switchIsEnabled),
              row.expected)
        << row.name;
  }
}

TEST(AutomaticRecording, OffersItsChoicesWhenSwitchedOnAndNoCloudToAnEncryptedMeeting) {
  const auto shown = [](const RecordingKinds& kinds, bool isOn, bool isEndToEnd) {
    const RecordingState state = recordingAfterClick(recordingAtLoad(kinds, 2), kinds, isOn, isEndToEnd);
    return std::tuple(state.isOn, state.isLocalShown, state.isCloudShown);
  };
  EXPECT_EQ(shown({true, true}, true, false), std::tuple(true, true, true));
  EXPECT_EQ(shown({true, true}, true, true), std::tuple(true, true, false));
  EXPECT_EQ(shown({true, true}, false, false), std::tuple(false, false, false));
  EXPECT_EQ(shown({false, true}, true, false), std::tuple(true, false, false));
}

TEST(InvitationLanguages, AreSelectedByTagAndWrittenAsTheWireHasThem) {
  const struct {
    const char* tag;
    int index;
    const char* code;
  } rows[] = {{"en-GB", 0, "en"},    {"zh-CN", 1, "zh-CN"},   {"zh-Hans-SG", 1, "zh-CN"},
              {"zh-TW", 2, "zh-TW"}, {"zh-Hant", 2, "zh-TW"}, {"zh-CN-x", 0, "en"},
              {"zh", 0, "en"},       {"ja-JP", 3, "ja"},      {"ru", 4, "ru"},
              {"fr-CA", 5, "fr"},    {"de-AT", 6, "de"},      {"es-419", 7, "es"},
              {"pt-BR", 8, "pt-pt"}, {"ko-KR", 9, "ko-KO"},   {"it", 10, "it-IT"},
              {"vi", 11, "vi-VN"},   {"nl-NL", 0, "en"},      {"", 0, "en"},
              {"DE-de", 0, "en"}};
  for (const auto& row : rows) {
    EXPECT_EQ(invitationLanguageIndex(row.tag), row.index) << row.tag;
    EXPECT_EQ(invitationLanguageCode(row.index), row.code) << row.tag;
  }
  EXPECT_EQ(invitationLanguageCode(-1), "en");
  EXPECT_EQ(invitationLanguageCode(12), "en");

  EXPECT_EQ(initialInvitationLanguage("de", "fr", "it"), "de");
  EXPECT_EQ(initialInvitationLanguage("", "fr", "it"), "fr") << "nobody has chosen the empty one";
  EXPECT_EQ(initialInvitationLanguage(std::nullopt, "fr", "it"), "fr");
  EXPECT_EQ(initialInvitationLanguage(std::nullopt, "", "it"), "it");
}

TEST(Continue, IsHeldUpByWhatIsShownAlone) {
  const struct {
    const char* name;
    ContinueFacts facts;
    bool may;
  } rows[] = {
      {"nothing", {}, true},
      {"a passcode of blanks", {.isPasscodeShown = true, .isPasscodeOn = true, .passcode = " \n "}, false},
      {"a passcode", {.isPasscodeShown = true, .isPasscodeOn = true, .passcode = " 1 "}, true},
      {"no passcode, switched off", {.isPasscodeShown = true}, true},
      {"no passcode, not shown", {.isPasscodeOn = true}, true},
      {"a fault on the screen", {.isErrorShown = true}, false},
      {"a missing tracking field", {.isTrackingShown = true, .missedRequiredTrackingFields = true}, false},
      {"a missing tracking field, not shown", {.missedRequiredTrackingFields = true}, true},
      {"a wrong host", {.isAlternateHostShown = true, .hasAlternateHostError = true}, false},
      {"a wrong host, not shown", {.hasAlternateHostError = true}, true},
      {"no country", {.areCountriesShown = true, .areCountriesEmpty = true}, false},
      {"no country, not shown", {.areCountriesEmpty = true}, true},
      {"a reply that is due", {.awaitsReply = true}, false},
  };
  for (const auto& row : rows) EXPECT_EQ(mayContinue(row.facts), row.may) << row.name;
}

}  // namespace
}  // namespace vorn
