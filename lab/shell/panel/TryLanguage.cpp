#include "lab/shell/panel/TryLanguage.h"

#include <algorithm>
#include <optional>

#include "lab/shell/LabError.h"
#include "util/Text.h"

namespace vornlab {
namespace {

using vorn::Control;
using Kind = vorn::Control::Kind;
using Verb = PanelAct::Verb;

constexpr std::pair<std::string_view, Verb> kVerbs[] = {
    {"on", Verb::on}, {"off", Verb::off}, {"click", Verb::click}};

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view trimmed(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

// What can be told of an act that nobody understands: a passcode may stand behind the control's words.
std::string beginningOf(std::string_view act) {
  std::size_t end = act.find_first_of("=\"");
  if (end == std::string_view::npos) end = std::min(act.find_first_of(kBlanks), act.size());
  return std::string(trimmed(act.substr(0, end))) + (end < act.size() ? " ..." : "");
}

[[noreturn]] void fail(std::string_view act, const std::string& expected) {
  // Not the act in front: a name of a secret before a colon has what follows covered.
  throw UsageError("--try: expected " + expected + ", not \"" + beginningOf(act) + "\"");
}

// Up to the next comma that stands in no quotes. A quote begins only behind a blank or "=", so that an apostrophe
// or an inch within a word is none.
std::string_view takeAct(std::string_view& rest, bool& hasMore) {
  bool isQuoted = false;
  char last = ' ';
  for (std::size_t i = 0; i < rest.size(); ++i) {
    if (isQuoted && rest[i] == '\\') {
      ++i;
    } else if (rest[i] == '"' && (isQuoted || last == ' ' || last == '=')) {
      isQuoted = !isQuoted;
    } else if (rest[i] == ',' && !isQuoted) {
      const std::string_view act = rest.substr(0, i);
      rest.remove_prefix(i + 1);
      hasMore = true;
      return act;
    }
    if (i < rest.size()) last = rest[i];
  }
  hasMore = false;
  return rest;
}

std::string unquoted(std::string_view act, std::string_view text) {
  std::string value;
  std::size_t i = 1;
  for (; i < text.size() && text[i] != '"'; ++i) {
    if (text[i] == '\\' && i + 1 < text.size()) ++i;
    value += text[i];
  }
  if (i >= text.size()) fail(act, "a closing quote");
  if (i + 1 < text.size()) fail(act, "nothing behind the closing quote");
  return value;
}

PanelAct readAct(std::string_view act) {
  constexpr const char* kForms = "WORDS on, WORDS off, WORDS click or WORDS = VALUE";
  if (act.empty()) fail(act, kForms);
  if (const std::size_t equals = act.find('='); equals != std::string_view::npos) {
    const std::string_view name = trimmed(act.substr(0, equals));
    const std::string_view value = trimmed(act.substr(equals + 1));
    if (name.empty() || name.find('"') != std::string_view::npos) fail(act, "the words of an option before \"=\"");
    return {std::string(name), Verb::set, value.starts_with('"') ? unquoted(act, value) : std::string(value)};
  }
  for (const auto& [word, verb] : kVerbs) {
    if (!act.ends_with(word)) continue;
    const std::string_view before = act.substr(0, act.size() - word.size());
    const std::string_view name = trimmed(before);
    if (!name.empty() && name.size() < before.size()) return {std::string(name), verb};
  }
  fail(act, kForms);
}

// "" for a control that is only looked at.
std::string verbsOf(Kind kind) {
  switch (kind) {
    case Kind::checkBox: return "on|off";
    case Kind::radioButton: return "on";
    case Kind::button:
    case Kind::link: return "click";
    case Kind::window:
    case Kind::box:
    case Kind::label: return "";
    default: return "= VALUE";
  }
}

}  // namespace

std::string PanelAct::inWords() const {
  if (verb == Verb::set) return name + " = " + value;
  for (const auto& [word, known] : kVerbs) {
    if (known == verb) return name + " " + std::string(word);
  }
  return name;
}

std::vector<PanelAct> readTry(std::string_view text) {
  std::vector<PanelAct> acts;
  std::string_view rest = text;
  for (bool hasMore = true; hasMore;) acts.push_back(readAct(trimmed(takeAct(rest, hasMore))));
  return acts;
}

std::vector<NamedControl> namedControls(const vorn::PanelLayout& layout, const vorn::ControlSet& controls) {
  std::vector<NamedControl> named;
  forEachPlace(layout, [&](const vorn::PanelLayout::Place& place) {
    const Control* control = controls.find(place.key);
    const std::string verbs = control ? verbsOf(control->kind) : "";
    if (!verbs.empty()) named.push_back({place.words.empty() ? place.key : place.words, place.key, verbs});
  });
  return named;
}

std::string keyOfName(const std::string& name, const vorn::PanelLayout& layout, const vorn::ControlSet& controls) {
  const std::string wanted = vorn::caseFolded(name);
  std::string known;
  std::optional<std::string> found;
  for (const NamedControl& each : namedControls(layout, controls)) {
    if (vorn::caseFolded(each.words) == wanted) found = each.key;
    known += (known.empty() ? "" : ", ") + each.words;
  }
  if (found) return *found;
  if (controls.find(name)) return name;
  throw UsageError("the panel has no \"" + name + "\"; it has: " + known);
}

}  // namespace vornlab
