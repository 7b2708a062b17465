// The questions about the client, which go to the disk each time. The floor beside them opens, reads and closes
// the one property list that holds the answer, and takes nothing out of it.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "bench/DiskWorld.h"
#include "bench/SystemCalls.h"
#include "channel/discovery/vnAppHelper.h"
#include "channel/discovery/vnClientFeatureMgr.h"
#include "channel/discovery/vnGetClientVersionHelper.h"

namespace {

using namespace vorn;

template <typename Question>
void ask(benchmark::State& state, const std::string& clientVersion, Question question) {
  const DiskWorld world(clientVersion);
  const auto once = [&] { benchmark::DoNotOptimize(question()); };
  once();
  for ([[maybe_unused]] auto _ : state) once();
  state.counters["system_calls"] = static_cast<double>(SystemCalls::of(once));
}

constexpr const char* kInstalled = "5.12.3.9654";

void clientVersion(benchmark::State& state) {
  ask(state, kInstalled, [] { return vnGetClientVersionHelper::getVornClientVersion(); });
}
void capability(benchmark::State& state) {
  ask(state, kInstalled, [] { return vnClientFeatureMgr::sharedInstance().isVornClientSupport550Tasks(); });
}
// As many as a commit asks.
void sevenCapabilities(benchmark::State& state) {
  ask(state, kInstalled, [] {
    vnClientFeatureMgr& client = vnClientFeatureMgr::sharedInstance();
    return client.isVornClientSupportExtInfo() + client.isVornClientSupportAHAndMuteOnEntry() +
           client.isVornClientSupportPublicEvent() + client.isVornClientSupportAudioWatermark() +
           client.isVornClientSupport500Tasks() + client.isVornClientSupport550Tasks() +
           client.isVornClientSupportIPCSocket();
  });
}
void installPath(benchmark::State& state) {
  ask(state, kInstalled, [] { return vnAppHelper::sharedInstance().getVornClientInstallPath(); });
}
// Goes through the processes of the machine.
void isRunning(benchmark::State& state) {
  ask(state, kInstalled, [] { return vnAppHelper::sharedInstance().isVornRunning(); });
}

void floorOneFileRead(benchmark::State& state) {
  const DiskWorld world(kInstalled);
  const std::string path = world.path("SystemApplications/vornclient.app/Contents/Info.plist");
  const auto once = [&] {
    char content[4096];
    const int file = ::open(path.c_str(), O_RDONLY);
    benchmark::DoNotOptimize(::read(file, content, sizeof content));
    ::close(file);
  };
  for ([[maybe_unused]] auto _ : state) once();
  state.counters["system_calls"] = static_cast<double>(SystemCalls::of(once));
}

BENCHMARK(floorOneFileRead)->Unit(benchmark::kMicrosecond);
BENCHMARK(installPath)->Unit(benchmark::kMicrosecond);
BENCHMARK(clientVersion)->Unit(benchmark::kMicrosecond);
BENCHMARK(capability)->Unit(benchmark::kMicrosecond);
BENCHMARK(sevenCapabilities)->Unit(benchmark::kMicrosecond);
BENCHMARK(isRunning)->Unit(benchmark::kMicrosecond);

}  // namespace
