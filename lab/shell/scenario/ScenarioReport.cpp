#include "lab/shell/scenario/ScenarioReport.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "lab/shell/Output.h"
#include "lab/shell/TextColumns.h"
#include "lab/shell/Words.h"
#include "lab/shell/scenario/CoveredFailure.h"
#include "secrets/SecretMask.h"

namespace vornlab {
namespace {

using Json = nlohmann::ordered_json;
using vorn::SecretMask;

constexpr std::size_t kMostLines = 30;
constexpr std::size_t kMostEnvelopes = 30;
constexpr std::size_t kEnvelopeColumns = 96;
constexpr std::size_t kNameColumns = 52;

std::string placeOf(const ScenarioResult& result) {
  const std::size_t line = result.failure->line;
  return line == 0 ? result.file : result.file + ":" + std::to_string(line);
}

std::string titled(std::string title, const std::string& text) {
  title.resize(10, ' ');
  return "  " + title + " " + text;
}

// A text of several lines goes on below its first, and is cut when it is long.
void printAligned(const char* title, const std::string& shown) {
  std::size_t begin = 0;
  for (std::size_t line = 0; line < kMostLines && begin <= shown.size(); ++line) {
    const std::size_t end = std::min(shown.find('\n', begin), shown.size());
    sayAsIs(titled(line == 0 ? title : "", shown.substr(begin, end - begin)));
    begin = end + 1;
  }
  if (begin < shown.size()) sayAsIs(titled("", "..."));
}

void printEnvelopes(const std::vector<StageEnvelope>& envelopes) {
  const std::size_t first = envelopes.size() > kMostEnvelopes ? envelopes.size() - kMostEnvelopes : 0;
  if (first > 0) say("  " + std::to_string(first) + " envelopes before these");
  for (std::size_t i = first; i < envelopes.size(); ++i) {
    const StageEnvelope& envelope = envelopes[i];
    std::string name = envelope.name;
    name.resize(std::max<std::size_t>(name.size(), 5), ' ');
    const std::string content = SecretMask::covered(envelope.content);
    sayAsIs(titled(envelope.isRequest ? "sent" : "received",
                   name + " " + shortened(onOneLine(content), kEnvelopeColumns)));
  }
}

void printFailure(const ScenarioResult& result) {
  const ScenarioFailure failure = coveredFailure(*result.failure);
  sayAsIs("FAIL " + SecretMask::covered(placeOf(result)) + ": " + failure.text);
  printAligned("expected", failure.expected);
  printAligned("there was", failure.found);
  printEnvelopes(result.envelopes);
}

Json jsonOf(const ScenarioResult& result) {
  Json object{{"file", result.file},
              {"name", result.name},
              {"result", result.failure ? "failed" : "passed"},
              {"seconds", roundedSeconds(result.seconds)}};
  if (!result.failure) return object;
  object["line"] = result.failure->line;
  const ScenarioFailure failure = coveredFailure(*result.failure);
  object["command"] = failure.text;
  object["expected"] = failure.expected;
  object["found"] = failure.found;
  object["envelopes"] = Json::array();
  for (const StageEnvelope& envelope : result.envelopes) {
    object["envelopes"].push_back({{"direction", envelope.isRequest ? "sent" : "received"},
                                   {"name", envelope.name},
                                   {"content", envelope.content}});
  }
  return object;
}

}  // namespace

void ScenarioReport::tell(const ScenarioResult& result) {
  ++m_played;
  if (result.failure) ++m_failed;
  if (m_form == ReportForm::json) return sayJsonLine(jsonOf(result));
  if (result.failure) {
    printFailure(result);
  } else {
    std::array<char, 32> took{};
    std::snprintf(took.data(), took.size(), " %5.1f s", result.seconds);
    std::string name = SecretMask::covered(result.name);
    if (const std::size_t columns = columnsOf(name); columns < kNameColumns)
      name.append(kNameColumns - columns, ' ');
    sayAsIs("OK   " + name + took.data());
  }
  flushOutput();
}

void ScenarioReport::tellSummary(double seconds) const {
  if (m_form == ReportForm::json) {
    return sayJsonLine(Json{{"summary",
                             {{"scenarios", m_played},
                              {"passed", m_played - m_failed},
                              {"failed", m_failed},
                              {"seconds", roundedSeconds(seconds)}}}});
  }
  std::array<char, 32> took{};
  std::snprintf(took.data(), took.size(), "%.1f", seconds);
  say("");
  say(std::to_string(m_played) + (m_played == 1 ? " scenario: " : " scenarios: ") +
      std::to_string(m_played - m_failed) + " passed, " + std::to_string(m_failed) + " failed; " + took.data() +
      " seconds");
}

}  // namespace vornlab
