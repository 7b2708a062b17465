// A whole road in one process on the virtual clock: an editor opens, Add is clicked, the appointment is saved, and
// its meeting stands in the calendar. Beside it stand its two floors: the host's own open and save of the same
// appointment with nothing to do for the plug-in, and the client's share of the same requests.

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdlib>
#include <new>

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

}  // namespace
}  // namespace vorn
