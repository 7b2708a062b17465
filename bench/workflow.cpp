// The decisions of a save that belong to no single request: whether the service must be told, and the location.

#include <benchmark/benchmark.h>

#include <string>

#include "data/vnSettingKeys.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "tests/support/FakeWindow.h"
#include "workflow/LocationRule.h"

namespace vorn {
namespace {

// -- Is the meeting changed --------------------------------------------------------------------------------------

// A meeting with as many alternate hosts, tracking fields and countries. Each call makes a copy that shares
// nothing with those before it, as two readings of one meeting do.
Value meetingWith(std::int64_t people) {
  Value hosts = Value::array();
  Value fields = Value::array();
  Value countries = Value::array();
  for (std::int64_t i = 0; i < people; ++i) {
    const std::string number = std::to_string(i);
    hosts.append("alternate.host." + number + "@vorn.example");
    fields.append(Value::dictionaryFromPairs({{vn_Setting_TrackingFields_Id, "field-" + number},
                                              {vn_Setting_TrackingFields_MtValue, "department " + number}}));
    countries.append("C" + number);
  }
  Value setting = Value::dictionaryFromPairs({{vn_Setting_AudioOption, 2},
                                              {vn_Setting_RequiredMPW, true},
                                              {vn_Setting_MeetingPassword, "123456"},
                                              {vn_Setting_SelectInvitationLanguage, "en-US"},
                                              {vn_Setting_AlternateHosts, hosts},
                                              {vn_Setting_TrackingFields, fields}});
  for (const std::string_view key :
       {vn_Setting_EnableHostVideo, vn_Setting_EnableParticipantsVideo, vn_Setting_EnableJBH, vn_Setting_IsPMI,
        vn_Setting_MuteUponEntry, vn_Setting_EnableWaitingRoom, vn_Setting_EnableUnmuteAll,
        vn_Setting_EnableE2ee}) {
    setting.set(key, true);
  }
  setting.set(vn_Setting_AvailableDialinCountry,
              Value::dictionaryFromPairs({{vn_Setting_DialinCountry_SelectedCountries, countries},
                                          {vn_Setting_DialinCountry_IncludeTollfree, true}}));
  const Value start = Value::dictionaryFromPairs({{vn_ApptInfo_CalDate_UTCTime, "2026-11-23 09:00:00"}});
  const Value apptInfo = Value::dictionaryFromPairs({{vn_ApptInfo_Subject, "Weekly review"},
                                                     {vn_ApptInfo_Duration, "60"},
                                                     {vn_ApptInfo_StartTime, start},
                                                     {vn_ApptInfo_OlApptUUID, "5E0F6C1A"}});
  return Value::dictionaryFromPairs({{vn_Outlook_ApptInfo, apptInfo}, {vn_Setting, setting}});
}

void isMeetingChanged(benchmark::State& state) {
  const TestPlatform test;
  const Value now = meetingWith(state.range(0));
  const Value old = meetingWith(state.range(0));
  if (vnMeetingDataMgr::isMeetingChanged(now, old)) state.SkipWithError("two equal meetings differ");
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(vnMeetingDataMgr::isMeetingChanged(now, old));
}

// The peer: both dictionaries compared whole, which minds the order of lists and every item that does not count.
void wholeDictionaries(benchmark::State& state) {
  const Value now = meetingWith(state.range(0));
  const Value old = meetingWith(state.range(0));
  if (now != old) state.SkipWithError("two equal meetings differ");
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(now == old);
}

BENCHMARK(isMeetingChanged)->Arg(0)->Arg(20)->Arg(2000);
BENCHMARK(wholeDictionaries)->Arg(0)->Arg(20)->Arg(2000);

// -- The location ------------------------------------------------------------------------------------------------

std::string usedUrl(std::int64_t number) {
  return "https://vorn.example/j/" + std::to_string(100'000'000 + number) + (number % 2 == 0 ? "?pwd=Zm9v" : "");
}

struct LocationWorld {
  explicit LocationWorld(std::int64_t urls) {
    defineWindowClasses(test.classRuntime);
    WorkflowDirectory::sharedInstance().install();
    window.emplace(test);
    window->invite("Room 7", 2);
    for (std::int64_t i = 0; i < urls; ++i) window->manager->meetingDataMgr()->setJoinUrl(usedUrl(i));
    shown = "Castle, east wing; second floor; Room 7; " + usedUrl(urls - 1);
    window->showLocation(shown);
  }

  TestPlatform test;
  std::optional<FakeWindow> window;
  std::string shown;
};

void countUrls(benchmark::State& state) {
  state.counters["per_url"] =
      benchmark::Counter(static_cast<double>(state.range(0)),
                         benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void usersOwnLocation(benchmark::State& state) {
  const LocationWorld world(state.range(0));
  const auto& window = *world.window;
  MeetingWindow shown = MeetingWindow::ofBar(window.bar);
  const LocationRule rule(*window.manager->meetingDataMgr());
  if (rule.getOLUserInputLocation(shown) != "Castle, east wing; second floor") {
    state.SkipWithError("the user's own text was not found");
  }
  for ([[maybe_unused]] auto _ : state) {
    benchmark::DoNotOptimize(rule.getOLUserInputLocation(shown));
  }
  countUrls(state);
}

// The floor: each URL looked for once in the same text.
void lookForEachUrl(benchmark::State& state) {
  const LocationWorld world(state.range(0));
  const std::vector<std::string>& urls = world.window->manager->meetingDataMgr()->usedJoinUrlsList();
  for ([[maybe_unused]] auto _ : state) {
    for (const std::string& url : urls) benchmark::DoNotOptimize(world.shown.find(url));
  }
  countUrls(state);
}

// A window that has been given as many URLs, one after the other.
void rememberUrls(benchmark::State& state) {
  const TestPlatform test;
  for ([[maybe_unused]] auto _ : state) {
    vnMeetingDataMgr data;
    for (std::int64_t i = 0; i < state.range(0); ++i) data.setJoinUrl(usedUrl(i));
  }
  countUrls(state);
}

BENCHMARK(usersOwnLocation)->Arg(2)->Arg(20)->Arg(200)->Arg(2000);
BENCHMARK(lookForEachUrl)->Arg(2)->Arg(20)->Arg(200)->Arg(2000);
BENCHMARK(rememberUrls)->Arg(20)->Arg(200)->Arg(2000);

}  // namespace
}  // namespace vorn
