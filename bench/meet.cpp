// `vornlab meet --all` from end to end: the program, the client's process, the bundle and the files.

#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

namespace {

namespace fs = std::filesystem;

// A folder that is removed at the end.
struct TemporaryFolder {
  fs::path path;
  TemporaryFolder() {
    std::string name = (fs::temp_directory_path() / "bench-meet-XXXXXX").string();
    if (mkdtemp(name.data()) != nullptr) path = name;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() { fs::remove_all(path); }
};

void writeCalendar(const fs::path& path, std::int64_t appointments) {
  std::ofstream file(path);
  file << "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Bench//EN\r\n";
  for (std::int64_t i = 0; i < appointments; ++i) {
    file << "BEGIN:VEVENT\r\nUID:appointment-" << i << "\r\nDTSTAMP:20300101T000000Z\r\nSUMMARY:Appointment " << i
         << "\r\nDTSTART:20300514T120000Z\r\nDTEND:20300514T130000Z\r\nLOCATION:Room " << i
         << "\r\nDESCRIPTION:Please bring the figures.\r\nEND:VEVENT\r\n";
  }
  file << "END:VCALENDAR\r\n";
}

// What the client says that it spent on its replies, in seconds.
double clientSeconds(const fs::path& journal) {
  std::ifstream file(journal);
  double micros = 0;
  for (std::string line; std::getline(file, line);) {
    const auto event = nlohmann::json::parse(line, nullptr, false);
    if (event.is_object() && event.value("event", "") == "reply") micros += event.value("micros", 0.0);
  }
  return micros / 1e6;
}

void meetAll(benchmark::State& state) {
  const auto appointments = state.range(0);
  double client = 0;
  for ([[maybe_unused]] auto unused : state) {
    state.PauseTiming();
    const TemporaryFolder folder;
    const std::string at = folder.path.string();
    writeCalendar(folder.path / "in.ics", appointments);
    const std::string command = std::string(VORNLAB_PROGRAM) + " meet " + at + "/in.ics --out " + at +
                                "/out.ics --all --json --client-db " + at + "/client.db --world " + at +
                                "/world > /dev/null";
    state.ResumeTiming();
    if (std::system(command.c_str()) != 0) state.SkipWithError("vornlab meet failed");
    state.PauseTiming();
    client += clientSeconds(folder.path / "world/journal");
    state.ResumeTiming();
  }
  using benchmark::Counter;
  state.counters["client_s"] = Counter(client, Counter::kAvgIterations);
  state.counters["per_second"] = Counter(static_cast<double>(appointments), Counter::kIsIterationInvariantRate);
}

BENCHMARK(meetAll)->Arg(100)->Arg(1000)->Iterations(1)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace
