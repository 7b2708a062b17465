// Calendar text: what is seen in every appointment of a file, and the small reader of one appointment's text.

#include <benchmark/benchmark.h>
#include <libical/ical.h>
#include <string.h>

#include <string>

#include "diagnosis/Diagnosis.h"
#include "invitation/vnICalendarContentParse.h"
#include "lab/ics/IcsDocument.h"
#include "tests/road/world/RoadWorld.h"

namespace vorn {
namespace {

std::string event(std::size_t number) {
  const std::string n = std::to_string(number);
  return "BEGIN:VEVENT\r\nUID:appointment-" + n + "\r\nDTSTAMP:20300101T000000Z\r\nSUMMARY:Appointment " + n +
         "\r\nDTSTART;TZID=Europe/Berlin:20300514T120000\r\nDTEND;TZID=Europe/"
         "Berlin:20300514T130000\r\nLOCATION:Room " +
         n + "\r\nDESCRIPTION:Please bring the figures.\\nWe meet on the second floor.\r\nEND:VEVENT\r\n";
}

std::string calendarOf(std::int64_t megabytes) {
  std::string text = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Bench//EN\r\n";
  for (std::size_t i = 0; text.size() < static_cast<std::size_t>(megabytes) << 20; ++i) text += event(i);
  return text + "END:VCALENDAR\r\n";
}

void countBytes(benchmark::State& state, std::size_t bytes) {
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * static_cast<std::int64_t>(state.iterations()));
}

// `vornlab inspect` without its printing: the file is read, and the plug-in is asked about every appointment.
void inspectCalendar(benchmark::State& state) {
  const std::string text = calendarOf(state.range(0));
  RoadWorld world(calendarWith(""));
  std::size_t events = 0;
  for ([[maybe_unused]] auto _ : state) {
    vornlab::IcsProblem problem;
    if (!world.store.loadText(text, problem)) state.SkipWithError("no calendar");
    events = world.store.eventCount();
    for (std::size_t i = 0; i < events; ++i) {
      const HostObject seen = world.host.eventOnGrid(i);
      Value answer;
      Diagnosis::answer("appointment", Value::dictionaryFromPairs({{"event", seen}}), answer);
      benchmark::DoNotOptimize(answer);
    }
  }
  state.counters["events"] = static_cast<double>(events);
  countBytes(state, text.size());
}

// The first step of it alone.
void readDocument(benchmark::State& state) {
  const std::string text = calendarOf(state.range(0));
  for ([[maybe_unused]] auto _ : state) {
    vornlab::IcsProblem problem;
    benchmark::DoNotOptimize(vornlab::IcsDocument::parse(text, problem));
  }
  countBytes(state, text.size());
}

// The peer: the whole text made into components and values, about which nobody is asked anything yet.
void libicalParse(benchmark::State& state) {
  const std::string text = calendarOf(state.range(0));
  for ([[maybe_unused]] auto _ : state) {
    icalcomponent* parsed = icalparser_parse_string(text.c_str());
    if (!parsed) state.SkipWithError("no calendar");
    icalcomponent_free(parsed);
  }
  countBytes(state, text.size());
}

BENCHMARK(inspectCalendar)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);
BENCHMARK(readDocument)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);
BENCHMARK(libicalParse)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);

// -- The small reader --------------------------------------------------------------------------------------------

std::string filled(std::int64_t bytes, const std::string& piece) {
  std::string text;
  while (text.size() < static_cast<std::size_t>(bytes)) text += piece;
  return text;
}

// What a description can be made of, by the argument of a benchmark.
std::string description(std::int64_t kind) {
  constexpr std::int64_t megabyte = 1 << 20;
  const std::string words = "We meet on the second floor and look at the figures.\\n";
  switch (kind) {
    case 0: return filled(megabyte, words) + "Meeting ID: 123 456 7890";
    case 1: return filled(megabyte, words) + "https://vorn.example/j/1234567890?pwd=a";
    case 2: return filled(megabyte, "https://vorn.example/j/1 ") + "Meeting ID: 123456789";
    case 3: return "Meeting ID: " + filled(megabyte, "7");
    default: return filled(megabyte, "\r\n\\n ");
  }
}

void numberFromDescription(benchmark::State& state) {
  const std::string text = description(state.range(0));
  const vnICalendarContentParse reader(std::nullopt);
  for ([[maybe_unused]] auto _ : state) {
    benchmark::DoNotOptimize(reader.getMeetingNumberFromDescription(text));
  }
  countBytes(state, text.size());
}

// The floor: the C library's own search of the same text for the two marks that a number may stand behind.
void searchDescription(benchmark::State& state) {
  const std::string text = description(state.range(0));
  for ([[maybe_unused]] auto _ : state) {
    benchmark::DoNotOptimize(memmem(text.data(), text.size(), "https://no", 10));
    benchmark::DoNotOptimize(memmem(text.data(), text.size(), "No such ID:", 11));
  }
  countBytes(state, text.size());
}

BENCHMARK(numberFromDescription)->DenseRange(0, 4)->Unit(benchmark::kMicrosecond);
BENCHMARK(searchDescription)->DenseRange(0, 4)->Unit(benchmark::kMicrosecond);

std::string eventsWithTheMasterLast(std::int64_t count) {
  std::string text;
  for (std::int64_t i = 0; i < count; ++i) text += event(static_cast<std::size_t>(i));
  return text + "BEGIN:VEVENT\r\nX-MICROSOFT-CDO-INSTTYPE:1\r\nX-ENTOURAGE_UUID:U\r\nEND:VEVENT\r\n";
}

void masterOfManyEvents(benchmark::State& state) {
  const std::string text = eventsWithTheMasterLast(state.range(0));
  for ([[maybe_unused]] auto _ : state) {
    if (vnICalendarContentParse(text).getUUID() != "U") state.SkipWithError("the master was not found");
  }
  countBytes(state, text.size());
}

void searchManyEvents(benchmark::State& state) {
  const std::string text = eventsWithTheMasterLast(state.range(0));
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(strcasestr(text.c_str(), "X-NO-SUCH-TAG:"));
  countBytes(state, text.size());
}

BENCHMARK(masterOfManyEvents)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(searchManyEvents)->Arg(1000)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vorn
