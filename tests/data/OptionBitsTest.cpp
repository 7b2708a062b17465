#include <functional>
#include <vector>

#include "data/CVnGetMeetingProtoParse.h"
#include "tests/data/DataTest.h"

namespace vorn {
namespace {

using Question = std::function<bool()>;

// By the bit numbers of the service.
struct Row {
  int bit;
  Question ask;
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
        EXPECT_EQ(row.ask(), row.bit == bit) << "the question of " << row.bit << " with " << bit;
      }
    }
  }
};

// What a new meeting and its overlay are made of is tried with the record; these are the others.
TEST_F(OptionBitsTest, EachFurtherQuestionAnswersToItsOwnBit) {
  using Word = void (proto::UserProfile::*)(std::int64_t);
  const auto walkWord = [](Word set, const std::vector<Row>& rows) {
    walk(rows, [set](std::int64_t value) {
      proto::UserProfile profile;
      (profile.*set)(value);
      receive(profile);
    });
  };
  walkWord(&proto::UserProfile::set_useroption,
           {{33, answer(&Account::useRandomPasswordByDefault)},
            {56, answer(&Account::isSignedInUserMeetingOn)},
            {57, answer(&Account::isSpecifiedDomainsMeetingOn)},
            {63, answer(&Account::enforceJoinLoginSpecifiedDomainsDefaultOn)}});
  walkWord(&proto::UserProfile::set_useroption2, {{32, answer(&Account::enableNotStoreMeetingTopic)}});
  walkWord(&proto::UserProfile::set_useroption3, {{7, answer(&Account::isEnableAudioWatermark)},
                                                  {25, answer(&Account::isDisablePwdEmbedInJoinUrl)},
                                                  {37, answer(&Account::isSupportRegionCustomization)},
                                                  {39, answer(&Account::isDisablePMI)},
                                                  {39, answer(&Account::isDisablePMIForOther)},
                                                  {46, answer(&Account::isShowUseWebSettingTipView)},
                                                  {47, answer(&Account::isEnableWaitingRoomNewLogic)},
                                                  {49, answer(&Account::isSupportUnmuteAll)},
                                                  {54, answer(&Account::canScheduleE2eeMeeting)}});
  walkWord(&proto::UserProfile::set_useroption4, {{6, answer(&Account::isOnlySignedinUserCanJoinLocked)},
                                                  {7, answer(&Account::isSignedinDomainsLocked)},
                                                  {8, answer(&Account::isWatermarkLocked)},
                                                  {13, answer(&Account::isLockScheduleRequirePassword)},
                                                  {15, answer(&Account::isLockPMIRequirePassword)},
                                                  {18, answer(&Account::isLockJoinUrlToLocation)},
                                                  {22, answer(&Account::isEnableNumberalphabet)},
                                                  {30, ownAnswer(&Account::isLockAllowDenyJoinMeetingRegion)},
                                                  {33, ownAnswer(&Account::isLockAdminTemplate)}});
  walkWord(&proto::UserProfile::set_useroption5, {{0, ownAnswer(&Account::isEnableAdminTemplate)}});
  walk({{0, answer(&Account::supportEditCountriesFeature)},
        {1, answer(&Account::supportPutTheInvitationAtTheTopFeature)},
        {2, answer(&Account::supportFeatureRequirePassword)},
        {3, answer(&Account::supportFeatureEnablePaidUserForCN)}},
       [](std::int64_t value) {
         account().setData(Value::dictionaryFromPairs({{vn_Profile_SupportFeatureOptions, value}}));
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
