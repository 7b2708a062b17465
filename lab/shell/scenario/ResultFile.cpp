#include "lab/shell/scenario/ResultFile.h"

#include <nlohmann/json.hpp>

#include "util/AtomicFile.h"

namespace vornlab {

using nlohmann::json;

bool writeResult(const std::filesystem::path& file, const ScenarioResult& result) {
  json object{{"file", result.file}, {"name", result.name}, {"seconds", result.seconds}};
  if (const auto& failure = result.failure) {
    object["failure"] = {{"line", failure->line},
                         {"text", failure->text},
                         {"expected", failure->expected},
                         {"found", failure->found}};
  }
  object["envelopes"] = json::array();
  for (const StageEnvelope& envelope : result.envelopes) {
    object["envelopes"].push_back(
        {{"isRequest", envelope.isRequest}, {"name", envelope.name}, {"content", envelope.content}});
  }
  return vorn::replaceFile(file.string(), object.dump(-1, ' ', false, json::error_handler_t::replace));
}

std::optional<ScenarioResult> readResult(const std::filesystem::path& file) {
  const json object = json::parse(vorn::readFile(file.string()).value_or(""), nullptr, false);
  if (!object.is_object()) return std::nullopt;
  ScenarioResult result;
  result.file = object.value("file", "");
  result.name = object.value("name", "");
  result.seconds = object.value("seconds", 0.0);
  if (const auto failure = object.find("failure"); failure != object.end()) {
    result.failure = {failure->value("line", std::size_t{0}), failure->value("text", ""),
                      failure->value("expected", ""), failure->value("found", "")};
  }
  for (const json& envelope : object.value("envelopes", json::array())) {
    result.envelopes.push_back(
        {envelope.value("isRequest", false), envelope.value("name", ""), envelope.value("content", ""), ""});
  }
  return result;
}

}  // namespace vornlab
