// Roads in one process on the virtual clock.
//
// The whole road: an editor opens, Add is clicked, the appointment is saved, and its meeting stands in the
// calendar. Beside it stand its two floors: the host's own open and save of the same appointment with nothing to
// do for the plug-in, and the client's share of the same requests.
//
// A save alone: a meeting that stands already is renamed and saved, which is told to the service, fetched anew and
// written back. Each round measures the host and the client by themselves as well, so that the rest is the
// plug-in's own share: the host with a body that changes as the plug-in would change it, and the client with its
// journal.
//
// The longest hold: for how long at once such a save keeps the main thread, host and client in it, with a body of
// growing size. "whole_ms" is the save altogether, and "host_ms" what the host takes of it by itself.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <ctime>
#include <new>

#include "lab/client/Desk.h"
#include "lab/client/Envelope.h"
#include "lab/client/Faults.h"
#include "lab/client/Journal.h"
#include "platform/Registry.h"
#include "tests/road/world/RoadWorld.h"

namespace {

std::atomic<std::uint64_t> allocations{0};

}  // namespace

// Counting is all that these do; benchmarks alone link them. Inlined, they would look like mismatched pairs to the
// compiler.
[[gnu::noinline]] void* operator new(std::size_t size) {
  allocations.fetch_add(1, std::memory_order_relaxed);
  if (void* memory = std::malloc(size ? size : 1)) return memory;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace vorn {
namespace {

std::string appointment() {
  return calendarWith("SUMMARY:Weekly review\r\nLOCATION:Castle\r\nDESCRIPTION:Bring the figures.\\nThanks\r\n");
}

void showAppointment(RoadWorld& world) {
  vornlab::IcsProblem problem;
  world.store.loadText(appointment(), problem);
  world.client->forgetRequests();
}

void BM_WholeRoad(benchmark::State& state) {
  RoadWorld world(appointment());
  std::uint64_t counted = 0;
  for ([[maybe_unused]] auto _ : state) {
    state.PauseTiming();
    showAppointment(world);
    const std::uint64_t before = allocations;
    state.ResumeTiming();
    const auto editor = world.openEditor("one");
    world.clickAdd(editor);
    world.saveAndClose(editor);
    counted += allocations - before;
    if (!world.record("one")["meetingKey"].isPresent()) state.SkipWithError("no meeting came of it");
  }
  state.counters["allocations"] =
      benchmark::Counter(static_cast<double>(counted), benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_WholeRoad)->Unit(benchmark::kMicrosecond);

void BM_FloorHostAlone(benchmark::State& state) {
  RoadWorld world(appointment());
  for ([[maybe_unused]] auto _ : state) {
    const auto editor = world.openEditor("one");
    world.saveAndClose(editor);
  }
}
BENCHMARK(BM_FloorHostAlone)->Unit(benchmark::kMicrosecond);

void BM_FloorClientAlone(benchmark::State& state) {
  RoadWorld world(appointment());
  const auto editor = world.openEditor("one");
  world.clickAdd(editor);
  world.saveAndClose(editor);
  const std::vector<vornlab::Envelope> requests = world.client->requests();
  for ([[maybe_unused]] auto _ : state) {
    for (const vornlab::Envelope& request : requests) benchmark::DoNotOptimize(world.service.handle(request));
  }
  state.counters["requests"] = static_cast<double>(requests.size());
}
BENCHMARK(BM_FloorClientAlone)->Unit(benchmark::kMicrosecond);

// The processor's time, since the parts of a round are subtracted from one another and a busy machine would show.
template <typename Work>
double secondsOf(const Work& work) {
  const std::clock_t begin = std::clock();
  work();
  return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

// The calendar with the appointment as it is once its meeting stands.
std::string withMeeting(RoadWorld& world) {
  const auto editor = world.openEditor("one");
  world.clickAdd(editor);
  world.saveAndClose(editor);
  return world.calendarText();
}

std::string withoutLinks(std::string text) {
  for (const char* mark : {"https://", "Meeting ID:"}) {
    for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos; ++at) text[at] = 'x';
  }
  return text;
}

// The same appointment with texts of the same length, in which nobody sees a meeting: what the host has to do with
// it by itself.
std::string asAnybodysAppointment(const std::string& calendar) {
  vornlab::CalendarStore store;
  vornlab::IcsProblem problem;
  store.loadText(calendar, problem);
  vornlab::CalendarEvent event = store.eventAt(0);
  event.setOlmUCInband("");
  event.setLocation(withoutLinks(event.location().value_or("")));
  event.setDescription(withoutLinks(event.description().value_or("")),
                       withoutLinks(event.htmlDescription().value_or("")));
  return store.text();
}

// Opens the appointment anew and renames it.
vornlab::OutlookHost::EditorId editorOfRenamed(RoadWorld& world, const std::string& calendar,
                                               const std::string& subject) {
  vornlab::IcsProblem problem;
  world.store.loadText(calendar, problem);
  const auto editor = world.openEditor("one");
  world.host.typeSubject(editor, subject);
  world.client->forgetRequests();
  return editor;
}

double renameAndSave(RoadWorld& world, const std::string& calendar, const std::string& subject) {
  const auto editor = editorOfRenamed(world, calendar, subject);
  return secondsOf([&] { world.saveAndClose(editor); });
}

// The host's own part of that: nobody but the user has changed the body.
double renameAndSavePlain(RoadWorld& world, const std::string& calendar, const std::string& subject) {
  const auto editor = editorOfRenamed(world, calendar, subject);
  world.host.typeBody(editor, world.store.eventAt(0).htmlDescription().value_or("") + subject);
  return secondsOf([&] { world.saveAndClose(editor); });
}

// The client's own part: what it was sent, read, answered, kept in a journal, and the replies as they go out.
double answerAlone(RoadWorld& world) {
  std::vector<std::string> messages;
  for (const vornlab::Envelope& request : world.client->requests()) messages.push_back(toText(request));
  vornlab::Journal journal("/dev/null");
  vornlab::Desk desk(world.service, journal, {});
  return secondsOf([&] {
    for (const std::string& message : messages) {
      for (const auto& answer : desk.take(*vornlab::fromText(message), message.size(), {}, {}))
        benchmark::DoNotOptimize(deliveryOf(answer.reply, answer.faults));
    }
  });
}

// In the host nobody follows what is done.
void stopTracing() {
  Platform platform = Registry::platform();
  platform.trace = nullptr;
  Registry::install(platform);
}

void BM_SaveOfAMeeting(benchmark::State& state) {
  RoadWorld world(appointment());
  stopTracing();
  const std::string meeting = withMeeting(world);
  const std::string plain = asAnybodysAppointment(meeting);
  double whole = 0;
  double host = 0;
  double client = 0;
  double requests = 0;
  int round = 0;
  for ([[maybe_unused]] auto _ : state) {
    const std::string subject = "Renamed " + std::to_string(++round);
    const double save = renameAndSave(world, meeting, subject);
    const std::size_t sent = world.client->requests().size();
    client += answerAlone(world);
    host += renameAndSavePlain(world, plain, subject);
    if (sent != 3 || !world.client->requests().empty()) state.SkipWithError("the service was not told");
    requests += static_cast<double>(sent);
    whole += save;
    state.SetIterationTime(save);
  }
  const auto microseconds = [](double seconds) {
    return benchmark::Counter(seconds * 1e6, benchmark::Counter::kAvgIterations);
  };
  state.counters["host_us"] = microseconds(host);
  state.counters["client_us"] = microseconds(client);
  state.counters["ours_us"] = microseconds(whole - host - client);
  state.counters["ours_part"] = (whole - host - client) / whole;
  state.counters["requests"] = benchmark::Counter(requests, benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_SaveOfAMeeting)->UseManualTime()->Unit(benchmark::kMicrosecond);

void BM_LongestHold(benchmark::State& state) {
  std::string body;
  while (body.size() < static_cast<std::size_t>(state.range(0)))
    body += "Bring the figures of the last quarter\\, please.\\n";
  RoadWorld world(calendarWith("SUMMARY:Weekly review\r\nDESCRIPTION:" + body + "\r\n"));
  stopTracing();
  const std::string meeting = withMeeting(world);
  const std::string plain = asAnybodysAppointment(meeting);
  double longest = 0;
  double whole = 0;
  double host = 0;
  int round = 0;
  for ([[maybe_unused]] auto _ : state) {
    const std::string subject = "Renamed " + std::to_string(++round);
    const auto editor = editorOfRenamed(world, meeting, subject);
    // Between two of the loop's tasks the condition is asked, and in the real host the person's next key is read.
    std::clock_t last = std::clock();
    const auto endOfHold = [&] {
      const std::clock_t now = std::clock();
      const double hold = static_cast<double>(now - last) / CLOCKS_PER_SEC;
      longest = std::max(longest, hold);
      whole += hold;
      last = now;
      return false;
    };
    world.host.saveAndClose(editor);
    endOfHold();
    world.session.runLoop().runUntil(endOfHold, 10);
    host += renameAndSavePlain(world, plain, subject);
  }
  state.counters["longest_ms"] = longest * 1e3;
  state.counters["whole_ms"] = benchmark::Counter(whole * 1e3, benchmark::Counter::kAvgIterations);
  state.counters["host_ms"] = benchmark::Counter(host * 1e3, benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_LongestHold)->Arg(1 << 10)->Arg(1 << 20)->Arg(16 << 20)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vorn
