#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "lab/inprocess/InProcessSession.h"
#include "lab/shell/scenario/ScenarioPlayer.h"

// The scenarios once more, in one process and on the virtual clock.

namespace vorn {
namespace {

// What can only be told with more than one process, and why.
const std::map<std::string, std::string> kLeftOut = {
    {"agent-shows-about", "the agent is a process of its own"},
    {"agent-starts-the-client", "the agent is a process of its own"},
    {"over-notifications", "needs a bus between two processes"},
};

std::vector<std::string> scenarios() {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(SCENARIOS)) {
    const std::filesystem::path& path = entry.path();
    if (path.extension() == ".vorn" && !kLeftOut.contains(path.stem().string())) files.push_back(path.string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

class Scenarios : public testing::TestWithParam<std::string> {};

TEST_P(Scenarios, ComeTrueInOneProcessToo) {
  const vornlab::ScenarioResult result =
      vornlab::play(vornlab::scenarioFromFile(GetParam()), {}, InProcessSession::start);
  if (!result.failure) return;
  std::string gone;
  for (const vornlab::StageEnvelope& envelope : result.envelopes) {
    gone += (envelope.isRequest ? "\n  -> " : "\n  <- ") + envelope.name + " " + envelope.content;
  }
  ADD_FAILURE() << GetParam() << ":" << result.failure->line << ": " << result.failure->text << "\nexpected "
                << result.failure->expected << "\nfound " << result.failure->found << gone;
}

INSTANTIATE_TEST_SUITE_P(Of, Scenarios, testing::ValuesIn(scenarios()), [](const auto& info) {
  std::string name = std::filesystem::path(info.param).stem().string();
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
  return name;
});

TEST(ScenariosLeftOut, AreThere) {
  for (const auto& [name, why] : kLeftOut) {
    EXPECT_TRUE(std::filesystem::exists(std::string(SCENARIOS) + "/" + name + ".vorn")) << name;
  }
}

}  // namespace
}  // namespace vorn
