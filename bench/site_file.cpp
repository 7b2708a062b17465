// The site file: one document in JSON within a property list, replaced as a whole. The floors beside it write and
// read the very same bytes without looking into them: fopen, fwrite and rename, with and without the fsync that a
// file needs to outlive the machine, and fopen and fread.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <string>

#include "bench/DiskWorld.h"
#include "channel/store/JsonTextFile.h"
#include "util/AtomicFile.h"
#include "util/vStringUtils.h"

namespace {

using vorn::Value;

Value documentOf(std::int64_t entries) {
  Value document = Value::dictionary();
  for (std::int64_t i = 0; i < entries; ++i) {
    document.set("meeting " + std::to_string(i),
                 Value::dictionaryFromPairs({{"meetingPassword", "123456"}, {"audioOption", 2}, {"größe", true}}));
  }
  return document;
}

struct SiteFile {
  explicit SiteFile(benchmark::State& state)
      : document(documentOf(state.range(0))), path(world.path("Documents/VornOutlookPlugin/site.txt")) {
    vorn::JsonTextFile(path).write(document);
    bytes = vorn::readFile(path).value_or("");
    if (bytes.empty()) state.SkipWithError("nothing was written");
  }

  DiskWorld world{"5.12.3.9654"};
  Value document;
  std::string path;
  // What stands in the file.
  std::string bytes;
};

void writeSiteFile(benchmark::State& state) {
  const SiteFile site(state);
  for ([[maybe_unused]] auto _ : state) vorn::JsonTextFile(site.path).write(site.document);
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * site.bytes.size()));
}

void readSiteFile(benchmark::State& state) {
  const SiteFile site(state);
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(vorn::JsonTextFile(site.path).read());
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * site.bytes.size()));
}

template <bool synced>
void floorWrite(benchmark::State& state) {
  const SiteFile site(state);
  const std::string temporary = site.path + ".new";
  for ([[maybe_unused]] auto _ : state) {
    std::FILE* file = std::fopen(temporary.c_str(), "wb");
    std::fwrite(site.bytes.data(), 1, site.bytes.size(), file);
    std::fflush(file);
    if (synced) ::fsync(::fileno(file));
    std::fclose(file);
    if (std::rename(temporary.c_str(), site.path.c_str()) != 0) state.SkipWithError("not renamed");
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * site.bytes.size()));
}

void floorRead(benchmark::State& state) {
  const SiteFile site(state);
  std::string content(site.bytes.size(), '\0');
  for ([[maybe_unused]] auto _ : state) {
    std::FILE* file = std::fopen(site.path.c_str(), "rb");
    benchmark::DoNotOptimize(std::fread(content.data(), 1, content.size(), file));
    std::fclose(file);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * site.bytes.size()));
}

// A usual document, and one of half a megabyte.
constexpr std::int64_t kUsual = 10;
constexpr std::int64_t kLarge = 5000;

BENCHMARK(writeSiteFile)->Arg(kUsual)->Arg(kLarge)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(floorWrite<true>)->Arg(kUsual)->Arg(kLarge)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(floorWrite<false>)->Arg(kUsual)->Arg(kLarge)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(readSiteFile)->Arg(kUsual)->Arg(kLarge)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(floorRead)->Arg(kUsual)->Arg(kLarge)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace
