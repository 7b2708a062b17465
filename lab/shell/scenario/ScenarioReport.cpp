#include "lab/shell/scenario/ScenarioReport.h"

#include <algorithm>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "lab/shell/Masking.h"
#include "lab/shell/Words.h"

namespace vornlab {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kMostLines = 30;
constexpr std::size_t kMostEnvelopes = 30;
constexpr std::size_t kEnvelopeColumns = 96;

std::string placeOf(const ScenarioResult& result) {
  const std::size_t line = result.failure->line;
  return line == 0 ? result.file : result.file + ":" + std::to_string(line);
}

// A text of several lines goes on below its first, and is cut when it is long.
void printAligned(const char* title, const std::string& text) {
  const std::string shown = masked(text);
  std::size_t begin = 0;
  for (std::size_t line = 0; line < kMostLines && begin <= shown.size(); ++line) {
    const std::size_t end = std::min(shown.find('\n', begin), shown.size());
    std::printf("  %-10s %s\n", line == 0 ? title : "", shown.substr(begin, end - begin).c_str());
    begin = end + 1;
  }
  if (begin < shown.size()) std::printf("  %-10s ...\n", "");
}

void printEnvelopes(const std::vector<StageEnvelope>& envelopes) {
  const std::size_t first = envelopes.size() > kMostEnvelopes ? envelopes.size() - kMostEnvelopes : 0;
  if (first > 0) std::printf("  %zu envelopes before these\n", first);
  for (std::size_t i = first; i < envelopes.size(); ++i) {
    const StageEnvelope& envelope = envelopes[i];
    std::printf("  %-10s %-5s %s\n", envelope.isRequest ? "sent" : "received", envelope.name.c_str(),
                shortened(onOneLine(masked(envelope.content)), kEnvelopeColumns).c_str());
  }
}

void printFailure(const ScenarioResult& result) {
  std::printf("FAIL %s: %s\n", placeOf(result).c_str(), masked(result.failure->text).c_str());
  printAligned("expected", result.failure->expected);
  printAligned("there was", result.failure->found);
  printEnvelopes(result.envelopes);
}

Json jsonOf(const ScenarioResult& result) {
  Json object{{"file", result.file},
              {"name", result.name},
              {"result", result.failure ? "failed" : "passed"},
              {"seconds", roundedSeconds(result.seconds)}};
  if (!result.failure) return object;
  object["line"] = result.failure->line;
  object["command"] = masked(result.failure->text);
  object["expected"] = masked(result.failure->expected);
  object["found"] = masked(result.failure->found);
  object["envelopes"] = Json::array();
  for (const StageEnvelope& envelope : result.envelopes) {
    object["envelopes"].push_back({{"direction", envelope.isRequest ? "sent" : "received"},
                                   {"name", envelope.name},
                                   {"content", masked(envelope.content)}});
  }
  return object;
}

}  // namespace

void ScenarioReport::tell(const ScenarioResult& result) {
  ++m_played;
  if (result.failure) ++m_failed;
  if (m_form == ReportForm::json) return printJsonLine(jsonOf(result));
  if (result.failure) {
    printFailure(result);
  } else {
    std::printf("OK   %-52s %5.1f s\n", result.name.c_str(), result.seconds);
  }
  std::fflush(stdout);
}

void ScenarioReport::tellSummary(double seconds) const {
  if (m_form == ReportForm::json) {
    return printJsonLine(Json{{"summary",
                               {{"scenarios", m_played},
                                {"passed", m_played - m_failed},
                                {"failed", m_failed},
                                {"seconds", roundedSeconds(seconds)}}}});
  }
  std::printf("\n%zu %s: %zu passed, %zu failed; %.1f seconds\n", m_played,
              m_played == 1 ? "scenario" : "scenarios", m_played - m_failed, m_failed, seconds);
}

}  // namespace vornlab
