#include "lab/shell/scenario/Scenario.h"

#include <algorithm>

#include "util/AtomicFile.h"

namespace vornlab {
namespace {

template <typename Words>
const auto* findWord(const Words& words, std::string_view word) {
  const auto found = std::find_if(words.begin(), words.end(), [&](const auto& each) { return each.word == word; });
  return found == words.end() ? nullptr : &*found;
}

template <typename Words>
void addNames(const Words& words, std::string& names) {
  for (const auto& each : words) names += (names.empty() ? "" : ", ") + std::string(each.word);
}

std::string knownWords() {
  std::string setUp;
  addNames(setUpWords(), setUp);
  std::string acts;
  addNames(hostWords(), acts);
  addNames(clientWords(), acts);
  return "one of these words: first " + setUp + "; then " + acts + ", expect";
}

std::string knownExpectations() {
  std::string names;
  addNames(expectationWords(), names);
  return "one of these words: " + names;
}

class ScenarioReader {
 public:
  explicit ScenarioReader(std::string file) { m_scenario.file = std::move(file); }

  Scenario read(std::string_view text) {
    const std::vector<ScenarioLine> lines = readScenarioText(text, m_scenario.file);
    for (const ScenarioLine& line : lines) readLine(line);
    // What looks at nothing would pass for ever.
    if (lines.empty()) throw ScenarioError(m_scenario.file + ":1: the scenario is empty");
    if (!m_expectsAnything) {
      throw ScenarioError(m_scenario.file + ":" + std::to_string(lines.back().number) +
                          ": nothing is expected up to here; a scenario has a line that begins with \"expect\"");
    }
    return std::move(m_scenario);
  }

 private:
  void readLine(const ScenarioLine& line) {
    LineReader reader(line, m_scenario.file);
    const std::string_view first = reader.ahead();
    const SetUpWord* word = findWord(setUpWords(), first);
    if (word && !m_scenario.steps.empty() && !findWord(hostWords(), first)) {
      reader.refuse("\"" + std::string(first) + "\" has to stand before everything that happens");
    }
    if (word && m_scenario.steps.empty()) {
      reader.take(first);
      reader.setUsage(word->usage);
      word->read(reader, m_scenario.setUp);
      reader.needEnd();
    } else {
      m_expectsAnything = m_expectsAnything || first == "expect";
      m_scenario.steps.push_back({line.number, line.text, readStep(reader)});
    }
  }

  static StageStep readStep(LineReader& reader) {
    const std::string_view first = reader.ahead();
    if (reader.take("expect")) {
      const std::string_view second = reader.ahead();
      // A word may go on with what it names: "settings.notShowMeAgain.on".
      const StageWord* word = findWord(expectationWords(), second.substr(0, second.find('.')));
      if (!word) reader.fail(knownExpectations());
      StageStep expectation = readWord(*word, reader);
      reader.needEnd();
      return expectation;
    }
    const StageWord* word = findWord(hostWords(), first);
    if (!word) word = findWord(clientWords(), first);
    if (!word) reader.fail(knownWords());
    StageStep act = readWord(*word, reader);
    if (reader.take("without waiting")) {
      reader.needEnd();
      return act;
    }
    reader.needEnd();
    return [act = std::move(act)](Stage& stage) {
      act(stage);
      stage.settle();
    };
  }

  static StageStep readWord(const StageWord& word, LineReader& reader) {
    reader.take(word.word);
    reader.setUsage(word.usage);
    return word.read(reader);
  }

  Scenario m_scenario;
  bool m_expectsAnything = false;
};

}  // namespace

Scenario scenarioFromText(std::string_view text, const std::string& file) {
  return ScenarioReader(file).read(text);
}

Scenario scenarioFromFile(const std::string& file) {
  const auto text = vorn::readFile(file);
  if (!text) throw UsageError(file + " cannot be read");
  return scenarioFromText(*text, file);
}

}  // namespace vornlab
