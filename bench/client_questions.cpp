// The questions about the client, which go to the disk each time. The floor beside them opens, reads and closes
// the one property list that holds the answer, and takes nothing out of it.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>

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
// Questions that belong together, as those of a commit do.
void sevenCapabilities(benchmark::State& state) {
  ask(state, kInstalled, [] {
    const vnClientFeatureMgr::OneReading oneReading;
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
// Any program does for a client that only has to be there.
class RunningClient {
 public:
  explicit RunningClient(const std::string& program) {
    std::filesystem::copy_file("/bin/sleep", program);
    std::string name = program;
    std::string seconds = "600";
    char* const arguments[] = {name.data(), seconds.data(), nullptr};
    if (::posix_spawn(&m_process, program.c_str(), nullptr, nullptr, arguments, environ) != 0) m_process = 0;
  }
  ~RunningClient() {
    if (m_process == 0) return;
    ::kill(m_process, SIGKILL);
    ::waitpid(m_process, nullptr, 0);
  }
  RunningClient(const RunningClient&) = delete;
  RunningClient& operator=(const RunningClient&) = delete;

 private:
  pid_t m_process = 0;
};

void isRunningAlready(benchmark::State& state) {
  const DiskWorld world(kInstalled);
  const RunningClient client(world.path("SystemApplications/vornclient.app/Contents/MacOS/vornclient"));
  const auto once = [&] { benchmark::DoNotOptimize(vnAppHelper::sharedInstance().isVornRunning()); };
  if (!vnAppHelper::sharedInstance().isVornRunning()) state.SkipWithError("the client does not run");
  for ([[maybe_unused]] auto _ : state) once();
  state.counters["system_calls"] = static_cast<double>(SystemCalls::of(once));
}
// Without one, this goes through the processes of the machine.
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
BENCHMARK(isRunningAlready)->Unit(benchmark::kMicrosecond);
BENCHMARK(isRunning)->Unit(benchmark::kMicrosecond);

}  // namespace
