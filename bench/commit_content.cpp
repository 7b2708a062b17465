// The content of a commit, from the working data to the text that is sent. Beside it stand its two parts that
// cannot be saved: the questions to the client's version, which go to the disk, and the document's way into JSON.

#include <benchmark/benchmark.h>

#include <string>

#include "bench/DiskWorld.h"
#include "channel/commands/vnAPICommitMeeting.h"
#include "channel/commands/vnAPIKeys.h"
#include "channel/discovery/vnClientFeatureMgr.h"
#include "data/vnSettingKeys.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "util/vStringUtils.h"

namespace {

using namespace vorn;

Value attendeesOf(std::int64_t count) {
  Value attendees = Value::array();
  for (std::int64_t i = 0; i < count; ++i) {
    const std::string number = std::to_string(i);
    attendees.append(Value::dictionaryFromPairs({{vn_ApptInfo_AttendeeName, "Attendee Größer " + number},
                                                 {vn_ApptInfo_AttendeeEmail, "person" + number + "@example.com"},
                                                 {vn_ApptInfo_AttendeeType, "1"}}));
  }
  return attendees;
}

Value meetingWith(std::int64_t attendees) {
  const Value start = Value::dictionaryFromPairs(
      {{vn_ApptInfo_CalDate_UTCTime, "2026-03-01 12:00:00"}, {vn_ApptInfo_Timezone, "Europe/Berlin"}});
  const Value apptInfo = Value::dictionaryFromPairs({{vn_ApptInfo_Subject, "Weekly review"},
                                                     {vn_ApptInfo_Location, "Castle"},
                                                     {vn_ApptInfo_Duration, "60"},
                                                     {vn_ApptInfo_StartTime, start},
                                                     {vn_ApptInfo_OlApptUUID, "5E0F6C1A"},
                                                     {vn_ApptInfo_Attendees, attendeesOf(attendees)}});
  const Value setting = Value::dictionaryFromPairs({{vn_Setting_AudioOption, 2},
                                                    {vn_Setting_EnableHostVideo, true},
                                                    {vn_Setting_EnableJBH, false},
                                                    {vn_Setting_RequiredMPW, true},
                                                    {vn_Setting_MeetingPassword, "123456"}});
  return Value::dictionaryFromPairs({{vn_Outlook_ApptInfo, apptInfo}, {vn_Setting, setting}});
}

void commitContent(benchmark::State& state) {
  const DiskWorld world("5.12.3.9654");
  vnAPICommitMeeting command;
  command.setData(meetingWith(state.range(0)));
  std::size_t size = 0;
  for ([[maybe_unused]] auto _ : state) size = command.getAPIData().size();
  state.counters["bytes"] = static_cast<double>(size);
}

void versionQuestionsAlone(benchmark::State& state) {
  const DiskWorld world("5.12.3.9654");
  vnClientFeatureMgr& client = vnClientFeatureMgr::sharedInstance();
  for ([[maybe_unused]] auto _ : state) {
    benchmark::DoNotOptimize(client.isVornClientSupportExtInfo());
    benchmark::DoNotOptimize(client.isVornClientSupportAHAndMuteOnEntry());
    benchmark::DoNotOptimize(client.isVornClientSupportPublicEvent());
    benchmark::DoNotOptimize(client.isVornClientSupportAudioWatermark());
    benchmark::DoNotOptimize(client.isVornClientSupport500Tasks());
    benchmark::DoNotOptimize(client.isVornClientSupport550Tasks());
  }
}

void jsonAlone(benchmark::State& state) {
  const DiskWorld world("5.12.3.9654");
  vnAPICommitMeeting command;
  command.setData(meetingWith(state.range(0)));
  const std::string content = command.getAPIData();
  const Value document = vStringUtils::toArrayOrNSDictionary(content.substr(content.find('{')));
  if (document[vn_Outlook_ApptInfo][vn_ApptInfo_Attendees].count() != static_cast<std::size_t>(state.range(0))) {
    state.SkipWithError("attendees are missing");
  }
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(vStringUtils::toJSONString(document));
}

BENCHMARK(commitContent)->Arg(0)->Arg(500)->Arg(5000)->Unit(benchmark::kMicrosecond);
BENCHMARK(versionQuestionsAlone)->Unit(benchmark::kMicrosecond);
BENCHMARK(jsonAlone)->Arg(0)->Arg(500)->Arg(5000)->Unit(benchmark::kMicrosecond);

}  // namespace
