// Reading and writing JSON. Reading stands beside simdjson's own parse of the same text into its own tree, which
// makes no values of ours; writing beside simdjson's minify of the text, the floor of all that copies it, and
// beside another library's pretty-printer over the same tree.

#include <benchmark/benchmark.h>
#include <simdjson.h>

#include <nlohmann/json.hpp>
#include <string>

#include "util/vStringUtils.h"

namespace {

using vorn::Value;
using vorn::vStringUtils;

// Meetings as a client sends them, with the keys in an order of its own, until the size is reached.
std::string textOf(std::int64_t size) {
  std::string text = "[";
  while (text.size() < static_cast<std::size_t>(size)) {
    text += text.size() > 1 ? ",\n" : "\n";
    text += R"(  {
    "meetingKey" : "99900011122",
    "subject" : "Weekly review, größer als zuvor",
    "startTime" : )" +
            std::to_string(1700000000 + text.size()) + R"(,
    "recurrence" : false,
    "invitationEmail" : "You are invited.\n\nJoin: https://vorn.us/j/99900011122?pwd=abcdef\n\nMeeting ID",
    "setting" : {
      "audioOption" : 2,
      "usePMI" : true,
      "ratio" : 0.25
    }
  })";
  }
  return text + "\n]";
}

void count(benchmark::State& state, const std::string& text) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}

void toArrayOrNSDictionary(benchmark::State& state) {
  const vorn::OptionalText text = textOf(state.range(0));
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(vStringUtils::toArrayOrNSDictionary(text));
  count(state, *text);
}
// A parser for each text, as the reader has one, and one that is kept.
void simdjsonDomParse(benchmark::State& state) {
  const std::string text = textOf(state.range(0));
  for ([[maybe_unused]] auto _ : state) {
    simdjson::dom::parser parser;
    benchmark::DoNotOptimize(parser.parse(text).error());
  }
  count(state, text);
}
void simdjsonDomParseAgain(benchmark::State& state) {
  const std::string text = textOf(state.range(0));
  simdjson::dom::parser parser;
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(parser.parse(text).error());
  count(state, text);
}
void nlohmannParse(benchmark::State& state) {
  const std::string text = textOf(state.range(0));
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(nlohmann::json::parse(text));
  count(state, text);
}

void toJSONString(benchmark::State& state) {
  const std::string text = textOf(state.range(0));
  const Value content = vStringUtils::toArrayOrNSDictionary(text);
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(vStringUtils::toJSONString(content));
  count(state, text);
}
void simdjsonMinify(benchmark::State& state) {
  const std::string text = textOf(state.range(0));
  std::string small(text.size() + simdjson::SIMDJSON_PADDING, '\0');
  for ([[maybe_unused]] auto _ : state) {
    std::size_t size = 0;
    benchmark::DoNotOptimize(simdjson::minify(text.data(), text.size(), small.data(), size));
  }
  count(state, text);
}
void nlohmannPrettyPrint(benchmark::State& state) {
  const std::string text = textOf(state.range(0));
  const nlohmann::json content = nlohmann::json::parse(text);
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(content.dump(2));
  count(state, text);
}

constexpr std::int64_t kReply = 2 << 10;
constexpr std::int64_t kLarge = 1 << 20;

BENCHMARK(toArrayOrNSDictionary)->Arg(kReply)->Arg(kLarge);
BENCHMARK(simdjsonDomParse)->Arg(kReply)->Arg(kLarge);
BENCHMARK(simdjsonDomParseAgain)->Arg(kReply)->Arg(kLarge);
BENCHMARK(nlohmannParse)->Arg(kReply)->Arg(kLarge);
BENCHMARK(toJSONString)->Arg(kReply)->Arg(kLarge);
BENCHMARK(simdjsonMinify)->Arg(kReply)->Arg(kLarge);
BENCHMARK(nlohmannPrettyPrint)->Arg(kReply)->Arg(kLarge);

}  // namespace
