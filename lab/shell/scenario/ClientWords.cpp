#include <array>

#include "lab/client/Faults.h"
#include "lab/shell/scenario/ScenarioWords.h"

namespace vornlab {
namespace {

// Rules in the language of the client's faults file, one text each.
StageStep faults(LineReader& line) {
  std::string rules;
  if (!line.take("none")) {
    do {
      const std::string rule = line.quoted();
      try {
        FaultBook::fromText(rule, "the rule");
      } catch (const FaultError& error) {
        line.refuse(error.what());
      }
      rules += rule + "\n";
    } while (line.isQuotedAhead());
  }
  return [rules](Stage& stage) { stage.setFaults(rules); };
}

StageStep client(LineReader& line) {
  if (line.take("faults")) return faults(line);
  if (line.take("stop")) return [](Stage& stage) { stage.stopClient(); };
  if (line.take("start")) return [](Stage& stage) { stage.startClient(); };
  if (line.take("kill")) return [](Stage& stage) { stage.killClient(); };
  line.fail("start, stop, kill or faults");
}

constexpr std::array kClientWords = {
    StageWord{"client", "client start|stop|kill, or: client faults none|RULE ...", client}};

}  // namespace

std::span<const StageWord> clientWords() { return kClientWords; }

}  // namespace vornlab
