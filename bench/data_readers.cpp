// What it costs to take a profile and a meeting apart, beside protobuf's own parse of the same bytes, and to
// answer a panel's questions. The reader's cost must stay within 1.5 times the library's for 1 MB.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

#include "data/CVnGetMeetingProtoParse.h"
#include "data/CVnUserProfileProtoParse.h"
#include "data/vnGetMeetingHelper.h"
#include "data/vnProfileKeys.h"
#include "data/vnProtoBufConvert.h"
#include "data/vnSettingData.h"
#include "data/vnUserProfileHelper.h"
#include "meeting.pb.h"
#include "platform/Registry.h"
#include "platform/Surroundings.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"
#include "util/EncodeUtils.h"
#include "util/vStringUtils.h"

namespace {

using namespace vorn;
namespace proto = com::tidemar::webapp::proto;

// A world that holds nothing: no client, no files, no stored values.
class NoDefaults final : public UserDefaults {
 public:
  Value objectForKey(std::string_view) override { return {}; }
  void setObject(const Value&, std::string_view) override {}
  void removeObject(std::string_view) override {}
  void synchronize() override {}
  Value persistentDomainForName(std::string_view) override { return {}; }
};

class NoWorkspace final : public Workspace {
 public:
  bool isRunning(std::string_view) override { return false; }
  std::string absolutePathForAppBundle(std::string_view) override { return {}; }
  bool isFilePackage(std::string_view) override { return false; }
  std::string executablePath(std::string_view) override { return {}; }
  Value propertyListAtPath(std::string_view) override { return {}; }
  bool launch(std::string_view) override { return false; }
  bool openFolder(std::string_view) override { return false; }
  bool openWebPage(std::string_view) override { return false; }
};

class BareSurroundings final : public Surroundings {
 public:
  std::string homeDirectory() override { return "/nonexistent"; }
  std::string documentsDirectory() override { return "/nonexistent"; }
  std::string applicationsDirectory() override { return "/nonexistent"; }
  std::string userApplicationsDirectory() override { return "/nonexistent"; }
  std::optional<std::string> resource(std::string_view, std::string_view) override { return std::nullopt; }
  std::string resourcePath(std::string_view, std::string_view) override { return {}; }
  Version systemVersion() override { return {10, 15, 0}; }
  std::vector<std::string> preferredLanguages() override { return {"en-US"}; }
  double currentTime() override { return 0; }
  std::uint32_t random32() override { return m_number += 0x9E3779B9; }

 private:
  std::uint32_t m_number = 1;
};

class World {
 public:
  World() {
    Platform platform;
    platform.userDefaults = &m_defaults;
    platform.workspace = &m_workspace;
    platform.surroundings = &m_surroundings;
    Registry::install(platform);
  }
  ~World() { Registry::reset(); }

 private:
  NoDefaults m_defaults;
  NoWorkspace m_workspace;
  BareSurroundings m_surroundings;
};

template <typename Fields>
void addTrackingField(Fields* fields, std::size_t i) {
  auto* field = fields->Add();
  field->set_id("field-" + std::to_string(i));
  field->set_required(i % 2 == 0);
  field->set_trackfield("Cost centre of the department");
  field->set_trackvalue("North;South;East;West");
  field->set_mtvalue("North");
}

// Half of it the invitation, half of it fields and hosts, as large meetings are.
std::string meetingOf(std::size_t size) {
  proto::MeetingProto meeting;
  meeting.set_meetingnumber(99900011122);
  meeting.set_scheduleoption2(0x40020);
  meeting.set_hostid("host");
  meeting.set_extinfo(R"({"olApptUUID":"5E0F6C1A"})");
  std::string html;
  while (html.size() < size / 2) html += "<p>Join the meeting from the browser, größer</p>\r\n";
  meeting.set_invitehtmlemail(html);
  for (std::size_t i = 0; meeting.ByteSizeLong() < size; ++i) {
    for (int j = 0; j < 8; ++j) {
      addTrackingField(meeting.mutable_trackingfields(), i);
      auto* host = meeting.add_alternatehosts();
      host->set_id("id-" + std::to_string(i) + "-" + std::to_string(j));
      host->set_email("person" + std::to_string(i) + "@department.example.com");
    }
  }
  return meeting.SerializeAsString();
}

std::string profileOf(std::size_t size) {
  proto::UserProfile profile;
  profile.set_id("user");
  profile.set_useroption(0x2000020);
  profile.set_useroption3(0x200);
  for (std::size_t i = 0; profile.ByteSizeLong() < size; ++i) {
    for (int j = 0; j < 8; ++j) addTrackingField(profile.mutable_trackingfields(), i);
  }
  return profile.SerializeAsString();
}

void count(benchmark::State& state, std::size_t bytes) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
}

template <typename Parser>
void parse(benchmark::State& state, const std::string& bytes) {
  const World world;
  for ([[maybe_unused]] auto _ : state) {
    const Parser parser(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                        static_cast<std::int32_t>(bytes.size()));
    benchmark::DoNotOptimize(parser);
  }
  count(state, bytes.size());
}

template <typename Message>
void parseByLibrary(benchmark::State& state, const std::string& bytes) {
  for ([[maybe_unused]] auto _ : state) {
    Message message;
    if (!message.ParseFromString(bytes)) state.SkipWithError("not parsed");
    benchmark::DoNotOptimize(message);
  }
  count(state, bytes.size());
}

void meetingReader(benchmark::State& state) {
  parse<CVnGetMeetingProtoParse>(state, meetingOf(static_cast<std::size_t>(state.range(0))));
}
void meetingLibrary(benchmark::State& state) {
  parseByLibrary<proto::MeetingProto>(state, meetingOf(static_cast<std::size_t>(state.range(0))));
}
void profileReader(benchmark::State& state) {
  parse<CVnUserProfileProtoParse>(state, profileOf(static_cast<std::size_t>(state.range(0))));
}
void profileLibrary(benchmark::State& state) {
  parseByLibrary<proto::UserProfile>(state, profileOf(static_cast<std::size_t>(state.range(0))));
}

// From the text of the reply, as the workflow feeds it.
void meetingFromBase64(benchmark::State& state) {
  const World world;
  const std::string bytes = meetingOf(static_cast<std::size_t>(state.range(0)));
  const OptionalText text = EncodeUtils::base64Encode(bytes);
  vnGetMeetingHelper reader;
  for ([[maybe_unused]] auto _ : state) reader.setPBMeetingData(text);
  count(state, bytes.size());
}
void decodeBase64(benchmark::State& state) {
  const OptionalText text = EncodeUtils::base64Encode(meetingOf(static_cast<std::size_t>(state.range(0))));
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(ZeroPaddedBytes(text));
  count(state, text->size() / 4 * 3);
}

constexpr std::int64_t kUsual = 20 << 10;
constexpr std::int64_t kLarge = 1 << 20;

BENCHMARK(meetingReader)->Arg(kUsual)->Arg(kLarge);
BENCHMARK(meetingLibrary)->Arg(kUsual)->Arg(kLarge);
BENCHMARK(profileReader)->Arg(kUsual)->Arg(kLarge);
BENCHMARK(profileLibrary)->Arg(kUsual)->Arg(kLarge);
BENCHMARK(meetingFromBase64)->Arg(kUsual)->Arg(kLarge);
BENCHMARK(decodeBase64)->Arg(kUsual)->Arg(kLarge);

void receiveProfile() {
  Value profile = Value::dictionary();
  profile.set(vn_Profile_Proto, EncodeUtils::base64Encode(profileOf(kUsual)));
  vnUserProfileHelper::sharedInstance().setData(profile);
}

void getMeetingInfo(benchmark::State& state) {
  const World world;
  receiveProfile();
  vnGetMeetingHelper reader;
  reader.setMeetingData(
      vStringUtils::toArrayOrNSDictionary(std::string(
          R"({"meetingKey":"99900011122","subject":"Review","duration":"30","startTime":1700000000,
                                "recurrence":false,"usePMI":false,"meetingPassword":"","joinUrl":"https://j"})")),
      false);
  reader.setPBMeetingData(EncodeUtils::base64Encode(meetingOf(kUsual)));
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(reader.getMeetingInfo());
}
BENCHMARK(getMeetingInfo)->Unit(benchmark::kMicrosecond);

// Thirty questions as a panel asks them, ten times over; none of them looks at the client.
void threeHundredProfileQuestions(benchmark::State& state) {
  const World world;
  receiveProfile();
  using Account = vnUserProfileHelper;
  bool (Account::*const questions[])() const = {&Account::isHostVideoLocked,
                                                &Account::isParticipantsLocked,
                                                &Account::isAudioTypeLocked,
                                                &Account::isJoinBeforeHostLocked,
                                                &Account::isMuteUponEntryLocked,
                                                &Account::isAutomaticRecordingLocked,
                                                &Account::isPublicEventLocked,
                                                &Account::isLockAudioWatermark,
                                                &Account::isLockScheduleUsePMI,
                                                &Account::isLockWaitingRoom,
                                                &Account::isLockE2eeMeeting,
                                                &Account::isEnableWaitingRoom,
                                                &Account::isEnableWaitingRoomNewLogic,
                                                &Account::isSupportE2eeMeeting,
                                                &Account::canScheduleE2eeMeeting,
                                                &Account::isSupportJbhPriorTime,
                                                &Account::isSupportUnmuteAll,
                                                &Account::isSupportRegionCustomization,
                                                &Account::isTspSite,
                                                &Account::moreThanOneTSPAccounts,
                                                &Account::isScheduleAudioBothDisabled,
                                                &Account::enableThirdPartyAudio,
                                                &Account::enablePSTN,
                                                &Account::isEnableRequirePassword,
                                                &Account::isEnablePMIRequirePassword,
                                                &Account::isDisablePMI,
                                                &Account::isSupportOnlyAuthUsersCanJoin,
                                                &Account::isEnableScheduleFor,
                                                &Account::isPaidUser,
                                                &Account::supportEditCountriesFeature};
  const Account& account = Account::sharedInstance();
  for ([[maybe_unused]] auto _ : state) {
    int yes = 0;
    for (int round = 0; round < 10; ++round) {
      for (const auto question : questions) yes += (account.*question)();
    }
    benchmark::DoNotOptimize(yes);
  }
}
BENCHMARK(threeHundredProfileQuestions)->Unit(benchmark::kMicrosecond);

void getSettingsData(benchmark::State& state) {
  const World world;
  receiveProfile();
  vnSettingData record;
  record.initSettingData();
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(record.getSettingsData());
}
BENCHMARK(getSettingsData)->Unit(benchmark::kMicrosecond);

}  // namespace
