#include "lab/shell/PluginReport.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "lab/shell/Output.h"
#include "lab/shell/TextColumns.h"
#include "lab/shell/Words.h"
#include "secrets/SecretMask.h"

namespace vornlab {
namespace {

using vorn::SecretMask;
using vorn::Value;

// A longer value moves the note of its own line only.
constexpr std::size_t kWidestColumn = 44;

std::size_t widthOf(const Value& rows, const char* column) {
  std::size_t width = 0;
  for (const Value& row : rows.items()) width = std::max(width, columnsOf(onTerminal(row[column].text())));
  return std::min(width, kWidestColumn);
}

std::string padded(const std::string& text, std::size_t width) {
  const std::size_t columns = columnsOf(text);
  return columns < width ? text + std::string(width - columns, ' ') : text;
}

std::string wordsOfRefusal(std::int64_t code) {
  switch (code) {
    case 2: return "the client is not installed";
    case 5: return "the client is not running";
    case 6: return "the client is too old";
    default: return "the plug-in refused the request with code " + std::to_string(code);
  }
}

// What went wrong, in words; "" when the reply has come.
std::string fetch(LabSession& session, const char* what, double timeoutSeconds) {
  const std::size_t sent = session.trace().sent();
  const std::size_t received = session.trace().received();
  const Value answer = session.ask("fetch", Value::dictionaryFromPairs({{"what", what}}));
  if (!answer["sent"].boolValue()) return wordsOfRefusal(answer["refused"].integerValue());
  switch (session.waitForQuiet(sent, received, timeoutSeconds)) {
    case LabSession::Quiet::reached: return "";
    case LabSession::Quiet::clientGone: return "the client ended before it answered";
    default: return "the client did not answer within " + secondsInWords(timeoutSeconds);
  }
}

}  // namespace

std::vector<std::string> groupsInWords(const Value& groups) {
  std::vector<std::string> lines;
  for (const Value& group : groups.items()) {
    lines.push_back(SecretMask::covered(group["name"].text()));
    const Value& rows = group["rows"];
    const std::size_t words = widthOf(rows, "words");
    const std::size_t shown = widthOf(rows, "shown");
    for (const Value& row : rows.items()) {
      // The words are the plug-in's own.
      std::string line =
          "  " + padded(row["words"].text(), words) + "  " + SecretMask::covered(row["shown"].text());
      const std::string note = SecretMask::covered(row["note"].text());
      if (!note.empty()) line = padded(line, words + shown + 4) + "  " + note;
      lines.push_back(std::move(line));
    }
    lines.emplace_back();
  }
  return lines;
}

void printGroups(const Value& groups) {
  for (const std::string& line : groupsInWords(groups)) sayAsIs(line);
}

nlohmann::ordered_json groupsAsJson(const Value& groups, nlohmann::ordered_json first) {
  for (const Value& group : groups.items()) {
    nlohmann::ordered_json entries = nlohmann::ordered_json::object();
    for (const Value& row : group["rows"].items()) entries[row["key"].text()] = jsonOf(row["value"]);
    first[group["name"].text()] = std::move(entries);
  }
  return first;
}

void printGroupsAsJson(const Value& groups, nlohmann::ordered_json first) {
  sayJsonLine(groupsAsJson(groups, std::move(first)));
}

std::string fetchAccount(LabSession& session, double timeoutSeconds) {
  session.trace().forgetTrouble();
  const std::string trouble = fetch(session, "profile", timeoutSeconds);
  // A profile may be there although the audio conferences behind it never came.
  if (session.ask("account")["hasProfile"].boolValue()) {
    fetch(session, "people", timeoutSeconds);
    return "";
  }
  const std::string refusal = session.trace().refusal();
  if (refusal == "VornClientNotSignIn") return "nobody is signed in at the client";
  if (!refusal.empty()) return "the client refused the question for the profile with error " + refusal;
  return trouble.empty() ? "the client did not send a profile" : trouble;
}

}  // namespace vornlab
