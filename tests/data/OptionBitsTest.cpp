#include <functional>
#include <vector>

#include "data/CVnGetMeetingProtoParse.h"
#include "data/CVnUserProfileProtoParse.h"
#include "tests/data/DataTest.h"

namespace vorn {
namespace {

using Question = std::function<bool()>;

// By the bit numbers of the service.
struct Row {
  int bit;
  Question ask;
  bool inverted = false;
};

using Account = vnUserProfileHelper;

Question answer(bool (Account::*question)() const) {
  return [question] { return (Account::sharedInstance().*question)(); };
}

Question ownAnswer(bool (Account::*question)(const OptionalText&) const) {
  return [question] { return (Account::sharedInstance().*question)(""); };
}

class OptionBitsTest : public DataTest {
 protected:
  // Sets one bit after the other and asks everything each time: a question answers to its own bit alone.
  static void walk(const std::vector<Row>& rows, const std::function<void(std::int64_t)>& setWord) {
    for (int bit = 0; bit < 64; ++bit) {
      setWord(static_cast<std::int64_t>(std::uint64_t{1} << bit));
      for (const Row& row : rows) {
        EXPECT_EQ(row.ask(), (row.bit == bit) != row.inverted) << "the question of " << row.bit << " with " << bit;
      }
    }
  }
};

TEST_F(OptionBitsTest, EachQuestionOnUserOptionAnswersToItsOwnBit) {
  const CVnUserProfileProtoParse parser(nullptr, 0);
  const auto ask = [&](bool (CVnUserProfileProtoParse::*question)() const) {
    return [&parser, question] { return (parser.*question)(); };
  };
  using P = CVnUserProfileProtoParse;
  std::int64_t word = 0;
  const std::vector<Row> rows = {
      {5, ask(&P::EnableAutoRecordingByDefault)},
      {22, ask(&P::AlwaysUseTelephonyAsDefaultAudio)},
      {25, ask(&P::HasSelfTelephony)},
      {25, ask(&P::EnableThirdPartyAudio)},
      {28, ask(&P::EnableCloudRecording)},
      {30, ask(&P::EnableCloudRecordingByDefault)},
      {33, ask(&P::UseRandomPasswordByDefault)},
      // Counts only with the account's own telephony, bit 25, which is set here for it.
      {34,
       [&] {
         proto::UserProfile both;
         both.set_useroption(word | 0x2000000);
         receive(both);
         const bool withTelephony = account().use3rdPartyAsDefaultAudio();
         both.set_useroption(word);
         receive(both);
         EXPECT_FALSE(account().use3rdPartyAsDefaultAudio());
         return withTelephony;
       }},
      {35, ask(&P::AlwaysUseBothAsDefaultAudio)},
      {36, ask(&P::AlwaysTurnOnHostVideoByDefault)},
      {37, ask(&P::AlwaysTurnOnAttendeeVideoByDefault)},
      {38, ask(&P::AlwaysEnableJoinBeforeHostByDefault)},
      {51, ask(&P::EnableLocalRecording), true},
      {56, ask(&P::IsSignedInUserMeetingOn)},
      {57, ask(&P::IsSpecifiedDomainsMeetingOn)},
      {63, ask(&P::EnforceJoinLoginSpecifiedDomainsDefaultOn)},
  };
  walk(rows, [&](std::int64_t value) {
    word = value;
    proto::UserProfile profile;
    profile.set_useroption(value);
    receive(profile);
  });
}

TEST_F(OptionBitsTest, EachQuestionOnUserOption2AnswersToItsOwnBit) {
  const std::vector<Row> rows = {
      {31, answer(&Account::isScheduleAudioBothDisabled)},     {32, answer(&Account::enableNotStoreMeetingTopic)},
      {39, answer(&Account::enableLocalRecording), true},      {39, answer(&Account::enableCloudRecording), true},
      {45, answer(&Account::isEnableForcePMIJBHWithPassword)}, {54, answer(&Account::alwaysUseVOIPAsDefaultAudio)},
  };
  walk(rows, [&](std::int64_t value) {
    proto::UserProfile profile;
    profile.set_useroption(std::int64_t{1} << 28);
    profile.set_useroption2(value);
    receive(profile);
  });
}

TEST_F(OptionBitsTest, EachQuestionOnUserOption3AnswersToItsOwnBit) {
  const std::vector<Row> rows = {
      {3, answer(&Account::isEnableAddMeetingToPublicCalendarEvent)},
      {5, answer(&Account::enableListMeetingInPublicEventListByDefault)},
      {6, answer(&Account::muteUponEntryDefaultValue)},
      {7, answer(&Account::isEnableAudioWatermark)},
      {8, answer(&Account::isDefaultScheduleUsePMI)},
      {9, answer(&Account::isEnableWaitingRoom)},
      {12, answer(&Account::putTheInvitationAtTheTopDefaultValue)},
      {14, answer(&Account::isAddJoinUrlToLocation), true},
      {16, answer(&Account::isEnableRequirePassword)},
      {17, answer(&Account::isEnablePMIRequirePassword)},
      {25, answer(&Account::isDisablePwdEmbedInJoinUrl)},
      {27, answer(&Account::isSupportJbhPriorTime)},
      {37, answer(&Account::isSupportRegionCustomization)},
      {38, answer(&Account::isEnableRegionCustomization)},
      {39, answer(&Account::isDisablePMI)},
      {46, answer(&Account::isShowUseWebSettingTipView)},
      {47, answer(&Account::isEnableWaitingRoomNewLogic)},
      {49, answer(&Account::isSupportUnmuteAll)},
      {51, answer(&Account::isEnableUnmuteAll)},
      {53, answer(&Account::isEnableE2eeMeeting)},
      {54, answer(&Account::canScheduleE2eeMeeting)},
      {57, answer(&Account::isSupportE2eeMeeting)},
      {60, answer(&Account::isSupportForceIncludeJoinurlInLocation)},
      {62, ownAnswer(&Account::isEnableAllowDenyJoinMeetingRegion)},
  };
  walk(rows, [&](std::int64_t value) {
    proto::UserProfile profile;
    profile.set_useroption3(value);
    receive(profile);
  });
}

TEST_F(OptionBitsTest, EachQuestionOnUserOption4AnswersToItsOwnBit) {
  const std::vector<Row> rows = {
      {1, answer(&Account::isHostVideoLocked)},
      {2, answer(&Account::isParticipantsLocked)},
      {3, answer(&Account::isAudioTypeLocked)},
      {4, answer(&Account::isJoinBeforeHostLocked)},
      {5, answer(&Account::isMuteUponEntryLocked)},
      {6, answer(&Account::isOnlySignedinUserCanJoinLocked)},
      {7, answer(&Account::isSignedinDomainsLocked)},
      {8, answer(&Account::isWatermarkLocked)},
      {9, answer(&Account::isAutomaticRecordingLocked)},
      {11, answer(&Account::isPublicEventLocked)},
      {12, answer(&Account::isLockAudioWatermark)},
      {13, answer(&Account::isLockScheduleRequirePassword)},
      {15, answer(&Account::isLockPMIRequirePassword)},
      {16, answer(&Account::isLockScheduleUsePMI)},
      {17, answer(&Account::isLockWaitingRoom)},
      {18, answer(&Account::isLockJoinUrlToLocation)},
      {22, answer(&Account::isEnableNumberalphabet)},
      {26, answer(&Account::isLockE2eeMeeting)},
      {30, ownAnswer(&Account::isLockAllowDenyJoinMeetingRegion)},
      {33, ownAnswer(&Account::isLockAdminTemplate)},
  };
  walk(rows, [&](std::int64_t value) {
    proto::UserProfile profile;
    profile.set_useroption4(value);
    receive(profile);
  });
}

TEST_F(OptionBitsTest, TheRemainingAccountWordsAnswerToTheirOwnBits) {
  walk({{0, ownAnswer(&Account::isEnableAdminTemplate)}}, [&](std::int64_t value) {
    proto::UserProfile profile;
    profile.set_useroption5(value);
    receive(profile);
  });
  const std::vector<Row> features = {
      {0, answer(&Account::supportEditCountriesFeature)},
      {1, answer(&Account::supportPutTheInvitationAtTheTopFeature)},
      {2, answer(&Account::supportFeatureRequirePassword)},
      {3, answer(&Account::supportFeatureEnablePaidUserForCN)},
  };
  walk(features, [&](std::int64_t value) {
    Value profile = Value::dictionary();
    profile.set(vn_Profile_SupportFeatureOptions, value);
    account().setData(profile);
  });
}

TEST_F(OptionBitsTest, EachQuestionOnAMeetingAnswersToItsOwnBit) {
  using P = CVnGetMeetingProtoParse;
  struct MeetingRow {
    void (proto::MeetingProto::*set)(std::int64_t);
    int bit;
    bool (P::*ask)() const;
  };
  using M = proto::MeetingProto;
  const MeetingRow rows[] = {
      {&M::set_scheduleoptions, 59, &P::IsSignedInUsersMeetingOn},
      {&M::set_scheduleoptions, 60, &P::IsSignedInUsersMeetingOn},
      {&M::set_scheduleoption2, 5, &P::IsEnableMuteOnEntry},
      {&M::set_scheduleoption2, 18, &P::IsEnableAutoRecordingLocal},
      {&M::set_scheduleoption2, 19, &P::IsEnableAUtoRecordingCloud},
      {&M::set_scheduleoption2, 20, &P::IsEnableAutoRecordingMtgLevelFirst},
      {&M::set_scheduleoption2, 21, &P::IsEnableMeetingToPublic},
      {&M::set_scheduleoption2, 34, &P::IsEnableWaitingRoom},
      {&M::set_scheduleoption2, 35, &P::IsSupportWaitingRoom},
      {&M::set_scheduleoption2, 49, &P::IsEnableAudioWatermark},
      {&M::set_scheduleoption3, 53, &P::IsEnableRegionCustomization},
      {&M::set_scheduleoption4, 8, &P::IsEnableE2ee},
      {&M::set_scheduleoption4, 9, &P::IsEnableUnmuteAll},
      {&M::set_scheduleoption4, 32, &P::IsEnableAllowDenyJoinMeetingRegion},
  };
  for (const MeetingRow& set : rows) {
    proto::MeetingProto message;
    (message.*set.set)(static_cast<std::int64_t>(std::uint64_t{1} << set.bit));
    const std::string bytes = message.SerializeAsString();
    const P parser(reinterpret_cast<const std::uint8_t*>(bytes.data()), static_cast<std::int32_t>(bytes.size()));
    for (const MeetingRow& asked : rows) {
      EXPECT_EQ((parser.*asked.ask)(), asked.ask == set.ask) << "bit " << set.bit << " asked as " << asked.bit;
    }
  }
}

}  // namespace
}  // namespace vorn
