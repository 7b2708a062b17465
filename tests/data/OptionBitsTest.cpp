#include <algorithm>
#include <functional>
#include <span>
#include <vector>

#include "data/CVnGetMeetingProtoParse.h"
#include "data/CVnUserProfileProtoParse.h"
#include "data/OptionBits.h"
#include "tests/data/DataTest.h"

namespace vorn {
namespace {

using Question = std::function<bool()>;

// The bit numbers are the service's own numbering; the table of the code gives masks. Both have to say the same.
struct Row {
  std::string_view accessor;
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
  void walk(std::span<const OptionBit> table, const std::vector<Row>& rows,
            const std::function<void(std::uint64_t)>& setWord) {
    ASSERT_EQ(rows.size(), table.size());
    for (const OptionBit& row : table) {
      const auto tested =
          std::find_if(rows.begin(), rows.end(), [&](const Row& r) { return r.accessor == row.accessor; });
      ASSERT_NE(tested, rows.end()) << row.accessor;
      EXPECT_EQ(row.mask, std::uint64_t{1} << tested->bit) << row.accessor;
    }
    for (int bit = 0; bit < 64; ++bit) {
      setWord(std::uint64_t{1} << bit);
      for (const Row& row : rows) {
        EXPECT_EQ(row.ask(), (row.bit == bit) != row.inverted) << row.accessor << " with bit " << bit;
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
  std::uint64_t word = 0;
  const std::vector<Row> rows = {
      {"EnableAutoRecordingByDefault", 5, ask(&P::EnableAutoRecordingByDefault)},
      {"AlwaysUseTelephonyAsDefaultAudio", 22, ask(&P::AlwaysUseTelephonyAsDefaultAudio)},
      {"HasSelfTelephony", 25, ask(&P::HasSelfTelephony)},
      {"EnableThirdPartyAudio", 25, ask(&P::EnableThirdPartyAudio)},
      {"EnableCloudRecording", 28, ask(&P::EnableCloudRecording)},
      {"EnableCloudRecordingByDefault", 30, ask(&P::EnableCloudRecordingByDefault)},
      {"UseRandomPasswordByDefault", 33, ask(&P::UseRandomPasswordByDefault)},
      // Counts only with the account's own telephony, bit 25, which is set here for it.
      {"Use3rdPartyAsDefaultAudio", 34,
       [&] {
         proto::UserProfile both;
         both.set_useroption(static_cast<std::int64_t>(word | 0x2000000));
         receive(both);
         const bool withTelephony = account().use3rdPartyAsDefaultAudio();
         both.set_useroption(static_cast<std::int64_t>(word));
         receive(both);
         EXPECT_FALSE(account().use3rdPartyAsDefaultAudio());
         return withTelephony;
       }},
      {"AlwaysUseBothAsDefaultAudio", 35, ask(&P::AlwaysUseBothAsDefaultAudio)},
      {"AlwaysTurnOnHostVideoByDefault", 36, ask(&P::AlwaysTurnOnHostVideoByDefault)},
      {"AlwaysTurnOnAttendeeVideoByDefault", 37, ask(&P::AlwaysTurnOnAttendeeVideoByDefault)},
      {"AlwaysEnableJoinBeforeHostByDefault", 38, ask(&P::AlwaysEnableJoinBeforeHostByDefault)},
      {"EnableLocalRecording", 51, ask(&P::EnableLocalRecording), true},
      {"IsSignedInUserMeetingOn", 56, ask(&P::IsSignedInUserMeetingOn)},
      {"IsSpecifiedDomainsMeetingOn", 57, ask(&P::IsSpecifiedDomainsMeetingOn)},
      {"EnforceJoinLoginSpecifiedDomainsDefaultOn", 63, ask(&P::EnforceJoinLoginSpecifiedDomainsDefaultOn)},
  };
  walk(kUserOptionBits, rows, [&](std::uint64_t value) {
    word = value;
    proto::UserProfile profile;
    profile.set_useroption(static_cast<std::int64_t>(value));
    receive(profile);
  });
}

TEST_F(OptionBitsTest, EachQuestionOnUserOption2AnswersToItsOwnBit) {
  const std::vector<Row> rows = {
      {"IsScheduleAudioBothDisabled", 31, answer(&Account::isScheduleAudioBothDisabled)},
      {"EnableNotStoreMeetingTopic", 32, answer(&Account::enableNotStoreMeetingTopic)},
      {"EnableLocalRecording", 39, answer(&Account::enableLocalRecording), true},
      {"EnableCloudRecording", 39, answer(&Account::enableCloudRecording), true},
      {"IsEnableForcePMIJBHWithPassword", 45, answer(&Account::isEnableForcePMIJBHWithPassword)},
      {"AlwaysUseVOIPAsDefaultAudio", 54, answer(&Account::alwaysUseVOIPAsDefaultAudio)},
  };
  walk(kUserOption2Bits, rows, [&](std::uint64_t value) {
    proto::UserProfile profile;
    profile.set_useroption(std::int64_t{1} << 28);
    profile.set_useroption2(static_cast<std::int64_t>(value));
    receive(profile);
  });
}

TEST_F(OptionBitsTest, EachQuestionOnUserOption3AnswersToItsOwnBit) {
  const std::vector<Row> rows = {
      {"isEnableAddMeetingToPublicCalendarEvent", 3, answer(&Account::isEnableAddMeetingToPublicCalendarEvent)},
      {"enableListMeetingInPublicEventListByDefault", 5,
       answer(&Account::enableListMeetingInPublicEventListByDefault)},
      {"muteUponEntryDefaultValue", 6, answer(&Account::muteUponEntryDefaultValue)},
      {"isEnableAudioWatermark", 7, answer(&Account::isEnableAudioWatermark)},
      {"isDefaultScheduleUsePMI", 8, answer(&Account::isDefaultScheduleUsePMI)},
      {"isEnableWaitingRoom", 9, answer(&Account::isEnableWaitingRoom)},
      {"putTheInvitationAtTheTopDefaultValue", 12, answer(&Account::putTheInvitationAtTheTopDefaultValue)},
      {"isAddJoinUrlToLocation", 14, answer(&Account::isAddJoinUrlToLocation), true},
      {"isEnableRequirePassword", 16, answer(&Account::isEnableRequirePassword)},
      {"isEnablePMIRequirePassword", 17, answer(&Account::isEnablePMIRequirePassword)},
      {"isDisablePwdEmbedInJoinUrl", 25, answer(&Account::isDisablePwdEmbedInJoinUrl)},
      {"isSupportJbhPriorTime", 27, answer(&Account::isSupportJbhPriorTime)},
      {"isSupportRegionCustomization", 37, answer(&Account::isSupportRegionCustomization)},
      {"isEnableRegionCustomization", 38, answer(&Account::isEnableRegionCustomization)},
      {"IsDisablePMI", 39, answer(&Account::isDisablePMI)},
      {"isShowUseWebSettingTipView", 46, answer(&Account::isShowUseWebSettingTipView)},
      {"isEnableWaitingRoomNewLogic", 47, answer(&Account::isEnableWaitingRoomNewLogic)},
      {"isSupportUnmuteAll", 49, answer(&Account::isSupportUnmuteAll)},
      {"isEnableUnmuteAll", 51, answer(&Account::isEnableUnmuteAll)},
      {"isEnableE2eeMeeting", 53, answer(&Account::isEnableE2eeMeeting)},
      {"canScheduleE2eeMeeting", 54, answer(&Account::canScheduleE2eeMeeting)},
      {"isSupportE2eeMeeting", 57, answer(&Account::isSupportE2eeMeeting)},
      {"isSupportForceIncludeJoinurlInLocation", 60, answer(&Account::isSupportForceIncludeJoinurlInLocation)},
      {"isEnableAllowDenyJoinMeetingRegion", 62, ownAnswer(&Account::isEnableAllowDenyJoinMeetingRegion)},
  };
  walk(kUserOption3Bits, rows, [&](std::uint64_t value) {
    proto::UserProfile profile;
    profile.set_useroption3(static_cast<std::int64_t>(value));
    receive(profile);
  });
}

TEST_F(OptionBitsTest, EachQuestionOnUserOption4AnswersToItsOwnBit) {
  const std::vector<Row> rows = {
      {"isHostVideoLocked", 1, answer(&Account::isHostVideoLocked)},
      {"isParticipantsLocked", 2, answer(&Account::isParticipantsLocked)},
      {"isAudioTypeLocked", 3, answer(&Account::isAudioTypeLocked)},
      {"isJoinBeforeHostLocked", 4, answer(&Account::isJoinBeforeHostLocked)},
      {"isMuteUponEntryLocked", 5, answer(&Account::isMuteUponEntryLocked)},
      {"isOnlySignedinUserCanJoinLocked", 6, answer(&Account::isOnlySignedinUserCanJoinLocked)},
      {"isSignedinDomainsLocked", 7, answer(&Account::isSignedinDomainsLocked)},
      {"isWatermarkLocked", 8, answer(&Account::isWatermarkLocked)},
      {"isAutomaticRecordingLocked", 9, answer(&Account::isAutomaticRecordingLocked)},
      {"isPublicEventLocked", 11, answer(&Account::isPublicEventLocked)},
      {"isLockAudioWatermark", 12, answer(&Account::isLockAudioWatermark)},
      {"isLockScheduleRequirePassword", 13, answer(&Account::isLockScheduleRequirePassword)},
      {"isLockPMIRequirePassword", 15, answer(&Account::isLockPMIRequirePassword)},
      {"isLockScheduleUsePMI", 16, answer(&Account::isLockScheduleUsePMI)},
      {"isLockWaitingRoom", 17, answer(&Account::isLockWaitingRoom)},
      {"isLockJoinUrlToLocation", 18, answer(&Account::isLockJoinUrlToLocation)},
      {"isEnableNumberalphabet", 22, answer(&Account::isEnableNumberalphabet)},
      {"isLockE2eeMeeting", 26, answer(&Account::isLockE2eeMeeting)},
      {"isLockAllowDenyJoinMeetingRegion", 30, ownAnswer(&Account::isLockAllowDenyJoinMeetingRegion)},
      {"isLockAdminTemplate", 33, ownAnswer(&Account::isLockAdminTemplate)},
  };
  walk(kUserOption4Bits, rows, [&](std::uint64_t value) {
    proto::UserProfile profile;
    profile.set_useroption4(static_cast<std::int64_t>(value));
    receive(profile);
  });
}

TEST_F(OptionBitsTest, TheRemainingAccountWordsAnswerToTheirOwnBits) {
  walk(kUserOption5Bits, {{"isEnableAdminTemplate", 0, ownAnswer(&Account::isEnableAdminTemplate)}},
       [&](std::uint64_t value) {
         proto::UserProfile profile;
         profile.set_useroption5(static_cast<std::int64_t>(value));
         receive(profile);
       });
  const std::vector<Row> features = {
      {"supportEditCountriesFeature", 0, answer(&Account::supportEditCountriesFeature)},
      {"supportPutTheInvitationAtTheTopFeature", 1, answer(&Account::supportPutTheInvitationAtTheTopFeature)},
      {"supportFeatureRequirePassword", 2, answer(&Account::supportFeatureRequirePassword)},
      {"supportFeatureEnablePaidUserForCN", 3, answer(&Account::supportFeatureEnablePaidUserForCN)},
  };
  walk(kSupportFeatureBits, features, [&](std::uint64_t value) {
    Value profile = Value::dictionary();
    profile.set(vn_Profile_SupportFeatureOptions, Value(value));
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
