#include "lab/shell/scenario/CoveredFailure.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "secrets/SecretMask.h"

namespace vornlab {
namespace {

using vorn::SecretMask;

struct LineWord {
  std::size_t begin;
  std::size_t end;
  bool isQuoted;
};

// The words and the quoted texts of a line, each without its quotes.
std::vector<LineWord> wordsOf(std::string_view line) {
  std::vector<LineWord> words;
  for (std::size_t at = 0; at < line.size();) {
    if (line[at] == ' ' || line[at] == '\n') {
      ++at;
      continue;
    }
    const bool isQuoted = line[at] == '"';
    std::size_t end = isQuoted ? at + 1 : at;
    while (end < line.size() && (isQuoted ? line[end] != '"' : line[end] != ' ' && line[end] != '\n')) {
      end += isQuoted && line[end] == '\\' ? 2 : 1;
    }
    end = std::min(end, line.size());
    words.push_back({isQuoted ? at + 1 : at, end, isQuoted});
    at = end + 1;
  }
  return words;
}

// Whether a word of a line names something whose value is a secret: "passcode", "passwordTextField.text". That a
// control is hidden or enabled is none.
bool namesSecret(std::string_view word) {
  constexpr std::string_view kLooks[] = {"hidden", "enabled", "on", "focused", "border", "index"};
  const std::string_view property = word.substr(word.rfind('.') + 1);
  const bool isLook = std::find(std::begin(kLooks), std::end(kLooks), property) != std::end(kLooks);
  return !isLook && (SecretMask::isSecretKey(word) || word.find("tokenFieldAH") != std::string_view::npos);
}

// Words of the scenarios' language about a text, which are no texts themselves.
bool isPlainWord(std::string_view word) {
  constexpr std::string_view kPlain[] = {"is",   "contains", "lacks", "once", "starts", "empty",
                                         "none", "any",      "text",  "set",  "it",     "there"};
  return std::find(std::begin(kPlain), std::end(kPlain), word) != std::end(kPlain);
}

// The line with every text behind a word that names a secret covered.
std::string coveredLine(const std::string& line) {
  std::string result;
  std::size_t shown = 0;
  bool isSecret = false;
  for (const LineWord& word : wordsOf(line)) {
    const std::string_view text = std::string_view(line).substr(word.begin, word.end - word.begin);
    if (isSecret && !text.empty() && (word.isQuoted || !isPlainWord(text))) {
      result += line.substr(shown, word.begin - shown);
      result += SecretMask::kCover;
      shown = word.end;
    }
    isSecret = isSecret || (!word.isQuoted && namesSecret(text));
  }
  return SecretMask::covered(result + line.substr(shown));
}

bool isAboutSecret(const std::string& line) {
  const std::vector<LineWord> words = wordsOf(line);
  return std::any_of(words.begin(), words.end(), [&](const LineWord& word) {
    return !word.isQuoted && namesSecret(std::string_view(line).substr(word.begin, word.end - word.begin));
  });
}

// What there was instead of a secret: a text in quotes, or a few words such as "none".
std::string coveredFinding(const std::string& found) {
  if (!found.starts_with('"')) return SecretMask::covered(found);
  return found == "\"\"" ? found : "\"" + std::string(SecretMask::kCover) + "\"";
}

// Texts of the command that stand in what was found, and cannot be seen there any more, are parts of a secret.
void coverFragments(const ScenarioFailure& raw, ScenarioFailure& covered) {
  constexpr std::size_t kShortest = 3;
  for (const LineWord& word : wordsOf(raw.text)) {
    const std::string text = raw.text.substr(word.begin, word.end - word.begin);
    if (text.size() < kShortest || raw.found.find(text) == std::string::npos) continue;
    if (covered.found.find(text) != std::string::npos) continue;
    for (std::string* seen : {&covered.text, &covered.expected}) {
      for (std::size_t at = seen->find(text); at != std::string::npos; at = seen->find(text, at)) {
        seen->replace(at, text.size(), SecretMask::kCover);
        at += SecretMask::kCover.size();
      }
    }
  }
}

}  // namespace

ScenarioFailure coveredFailure(const ScenarioFailure& failure) {
  ScenarioFailure covered = failure;
  covered.text = coveredLine(failure.text);
  covered.expected = coveredLine(failure.expected);
  covered.found = isAboutSecret(failure.text) ? coveredFinding(failure.found) : SecretMask::covered(failure.found);
  coverFragments(failure, covered);
  return covered;
}

}  // namespace vornlab
