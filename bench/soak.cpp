// What a long life leaves behind, in one process that never starts anew: thousands of roads with a fault at random
// in every second one, and windows that are open fifty at a time. Whatever went wrong, memory is flat, and
// descriptors, waiting tasks and live objects of the host are back where they were; otherwise the run fails.
//
// The usual run takes some minutes. SOAK_ROADS=100000 and SOAK_WINDOWS=10000 make it a long one, and SOAK_SEED
// another row of accidents.

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "tests/road/Calendars.h"

namespace vorn {
namespace {

namespace fs = std::filesystem;
using EditorId = RoadWorld::EditorId;

constexpr std::size_t kWindowsAtOnce = 50;
// What caches may differ by, and what the allocator counts as used while it keeps it for the next one. One lost
// text a road is more than that before a tenth of the usual run is over.
constexpr double kSlackBytes = 64 * 1024;

std::size_t numberFrom(const char* variable, std::size_t usual) {
  const char* given = std::getenv(variable);
  return given ? std::strtoull(given, nullptr, 10) : usual;
}

struct Standing {
  double bytes = 0;
  double resident = 0;
  double descriptors = 0;
  double objects = 0;
  double waiting = 0;
  double meetings = 0;
};

double residentBytes() {
  std::ifstream file("/proc/self/statm");
  double size = 0;
  double resident = 0;
  file >> size >> resident;
  return resident * static_cast<double>(::sysconf(_SC_PAGESIZE));
}

// The world of all roads, and what is cleared away after each: what a laboratory keeps to be looked at.
class Soak {
 public:
  explicit Soak(std::size_t appointmentCount)
      : m_calendar(calendarOfMany(appointmentCount)), m_world(m_calendar) {}

  RoadWorld& world() { return m_world; }

  void begin() {
    vornlab::IcsProblem problem;
    m_world.store.loadText(m_calendar, problem);
  }
  void clear() {
    for (const EditorId editor : m_world.host.editors()) m_world.abandon(editor);
    m_world.settle(130);
    m_world.presenter.forgetAlerts();
    m_world.client->forgetRequests();
    fs::resize_file(m_world.session.world().journal(), 0);
  }
  // Those of an appointment, also what was made at the service and never came back.
  void forgetMeetings(const std::string& uid) {
    vornlab::MeetingStore& meetings = m_world.service.meetings();
    while (const auto meeting = meetings.findByAppointment(uid)) meetings.remove(meeting->number);
  }

  Standing standing() {
    ::malloc_trim(0);
    const auto& loop = dynamic_cast<VirtualRunLoop&>(m_world.session.runLoop());
    const auto open = std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
    return {static_cast<double>(::mallinfo2().uordblks),
            residentBytes(),
            static_cast<double>(open),
            static_cast<double>(m_world.runtime.liveObjects()),
            static_cast<double>(loop.waiting()),
            static_cast<double>(m_world.service.meetings().count())};
  }

 private:
  std::string m_calendar;
  RoadWorld m_world;
};

// Tells the three standings, and fails when the last is not the first.
void hold(benchmark::State& state, const Standing& first, const Standing& middle, const Standing& last) {
  const std::pair<const char*, double Standing::*> rows[] = {{"bytes", &Standing::bytes},
                                                             {"resident", &Standing::resident},
                                                             {"fds", &Standing::descriptors},
                                                             {"objects", &Standing::objects},
                                                             {"waiting", &Standing::waiting}};
  for (const auto& [name, member] : rows) {
    state.counters[std::string(name) + "_0"] = first.*member;
    state.counters[std::string(name) + "_1"] = middle.*member;
    state.counters[std::string(name) + "_2"] = last.*member;
  }
  state.counters["meetings_2"] = last.meetings;
  // One that gives up loses its counters.
  std::string kept;
  if (last.descriptors != first.descriptors) kept += " descriptors stay open;";
  if (last.objects != first.objects) kept += " objects of the host live on;";
  if (last.waiting != first.waiting) kept += " tasks or timers wait on;";
  if (last.bytes > first.bytes + kSlackBytes) kept += " memory grows;";
  if (kept.empty()) return;
  for (const auto& [name, member] : rows) {
    kept += std::string(" ") + name + " " + std::to_string(first.*member) + " / " +
            std::to_string(middle.*member) + " / " + std::to_string(last.*member);
  }
  state.SkipWithError(kept.c_str());
}

// -- Roads
// ---------------------------------------------------------------------------------------------------------

constexpr const char* kFaults[] = {"silent",
                                   "twice",
                                   "delay 70",
                                   "content",
                                   "content %%%",
                                   "fields 1",
                                   "fields 13",
                                   "truncate 40",
                                   "not-utf8",
                                   "split every 7",
                                   "glue",
                                   "grow 300000",
                                   "close",
                                   "restart",
                                   "die",
                                   "error 3001",
                                   "error 3402",
                                   "error VornClientNotSignIn",
                                   "content 0;Error 9999 the moon is full",
                                   "content 0;Error 1113;ada@vorn.example#no"};

class Roads {
 public:
  explicit Roads(std::size_t seed) : m_random(seed) {}

  void walk() {
    RoadWorld& world = m_soak.world();
    m_soak.begin();
    const bool isSpoilt = chance(2);
    if (isSpoilt) spoil();
    EditorId editor = world.openEditor("a0");
    const unsigned kind = pick(4);
    if (world.offersAdd(editor)) world.clickAdd(editor);
    if (kind == 1) world.host.typeSubject(editor, "Renamed");
    if (kind != 0) world.saveAndClose(editor);
    if (kind >= 2 && !world.host.isOpen(editor)) {
      editor = world.openEditor("a0");
      if (kind == 3 && world.showsMeeting(editor)) world.clickCancel(editor);
      world.host.typeSubject(editor, "Renamed again");
      world.saveAndClose(editor);
    }
    m_stored += world.record("a0")["meetingKey"].isPresent() ? 1 : 0;
    m_alerts += world.presenter.alerts().size();
    m_soak.clear();
    if (isSpoilt) repair();
    m_soak.forgetMeetings("a0");
  }
  Standing standing() { return m_soak.standing(); }
  double stored() const { return static_cast<double>(m_stored); }
  double alerts() const { return static_cast<double>(m_alerts); }

 private:
  unsigned pick(std::size_t count) { return static_cast<unsigned>(m_random() % count); }
  bool chance(unsigned oneIn) { return pick(oneIn) == 0; }

  // The n-th reply is spoilt, or something happens while the n-th request is on its way.
  void spoil() {
    RoadWorld& world = m_soak.world();
    const std::size_t request = 1 + pick(8);
    const unsigned what = pick(std::size(kFaults) + 4);
    if (what < std::size(kFaults)) {
      world.client->setFaults("reply " + std::to_string(request) + ": " + kFaults[what]);
    } else if (what == std::size(kFaults)) {
      world.setHostStores(false);
    } else {
      world.client->setIncident(request, [&world, what] {
        if (what == std::size(kFaults) + 1) world.quitClient();
        if (what == std::size(kFaults) + 2) world.removeClient();
        return what != std::size(kFaults) + 3;
      });
    }
  }
  void repair() {
    m_soak.world().setHostStores(true);
    m_soak.world().bringClientBack();
    m_soak.clear();
  }

  std::mt19937_64 m_random;
  Soak m_soak{1};
  std::size_t m_stored = 0;
  std::size_t m_alerts = 0;
};

void soakOfRoads(benchmark::State& state) {
  const std::size_t count = numberFrom("SOAK_ROADS", 10'000);
  Roads roads(numberFrom("SOAK_SEED", 1));
  // Each accident has happened once: what is made on first use is there.
  for (std::size_t i = 0; i < std::max<std::size_t>(count / 20, 200); ++i) roads.walk();
  const Standing first = roads.standing();
  Standing middle;
  for ([[maybe_unused]] auto _ : state) {
    for (std::size_t i = 0; i < count; ++i) {
      roads.walk();
      if (i == count / 2) middle = roads.standing();
    }
  }
  state.counters["roads"] = static_cast<double>(count);
  state.counters["with_meeting"] = roads.stored();
  state.counters["alerts"] = roads.alerts();
  hold(state, first, middle, roads.standing());
}
BENCHMARK(soakOfRoads)->Iterations(1)->Unit(benchmark::kSecond);

// -- Windows
// -------------------------------------------------------------------------------------------------------

// All windows ask for their meetings at once; half of them are saved, and half left.
void openMany(Soak& soak) {
  RoadWorld& world = soak.world();
  soak.begin();
  std::vector<EditorId> editors;
  for (std::size_t i = 0; i < kWindowsAtOnce; ++i)
    editors.push_back(world.host.openEditor("a" + std::to_string(i)));
  world.settle();
  for (const EditorId editor : editors) world.host.clickBar(editor, "onClickAddVornMeeting:");
  world.settle();
  for (std::size_t i = 0; i < editors.size(); i += 2) world.host.saveAndClose(editors[i]);
  world.settle();
  soak.clear();
  for (std::size_t i = 0; i < kWindowsAtOnce; ++i) soak.forgetMeetings("a" + std::to_string(i));
}

void soakOfWindows(benchmark::State& state) {
  const std::size_t batches = numberFrom("SOAK_WINDOWS", 1'000) / kWindowsAtOnce;
  Soak soak(kWindowsAtOnce);
  for (int i = 0; i < 3; ++i) openMany(soak);
  const Standing first = soak.standing();
  Standing middle;
  for ([[maybe_unused]] auto _ : state) {
    for (std::size_t i = 0; i < batches; ++i) {
      openMany(soak);
      if (i == batches / 2) middle = soak.standing();
    }
  }
  state.counters["windows"] = static_cast<double>(batches * kWindowsAtOnce);
  hold(state, first, middle, soak.standing());
}
BENCHMARK(soakOfWindows)->Iterations(1)->Unit(benchmark::kSecond);

}  // namespace
}  // namespace vorn
