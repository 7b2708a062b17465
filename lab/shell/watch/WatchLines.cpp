#include "lab/shell/watch/WatchLines.h"

#include <algorithm>

#include "lab/shell/watch/WatchWords.h"

namespace vornlab {
namespace {

using Lines = std::vector<std::string>;

std::string line(double at, const std::string& what, const std::string& words) {
  return stepInWords({.at = at, .step = what, .words = words});
}

const WatchWindow* windowOf(const WatchState& state, std::int64_t number) {
  const auto found = std::find_if(state.windows.begin(), state.windows.end(),
                                  [number](const WatchWindow& window) { return window.number == number; });
  return found == state.windows.end() ? nullptr : &*found;
}

bool holds(const std::vector<std::string>& texts, const std::string& text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

}  // namespace

Lines WatchLines::take(const WatchEvent& event) {
  return std::visit([this](const auto& what) { return linesOf(what); }, event);
}

Lines WatchLines::linesOf(const WatchLaboratory& laboratory) {
  return {"watching process " + std::to_string(laboratory.process) + ": vornlab " + laboratory.command};
}

Lines WatchLines::linesOf(const WatchWorld& world) {
  m_state = {};
  return {line(world.at, "world", worldInWords(world))};
}

Lines WatchLines::linesOf(const WatchState& state) {
  Lines lines;
  if (state.client != m_state.client) lines.push_back(line(state.at, "client", state.client));
  for (const WatchWindow& before : m_state.windows) {
    if (windowOf(state, before.number) == nullptr) {
      lines.push_back(line(state.at, "window", std::to_string(before.number) + " has closed"));
    }
  }
  for (const WatchWindow& window : state.windows) {
    const WatchWindow* before = windowOf(m_state, window.number);
    if (before != nullptr && *before == window) continue;
    lines.push_back(line(state.at, "window",
                         std::to_string(window.number) + " \"" + window.subject + "\": " + windowInWords(window)));
  }
  for (const std::string& sheet : state.sheets) {
    if (!holds(m_state.sheets, sheet)) lines.push_back(line(state.at, "sheet", "\"" + sheet + "\""));
  }
  for (const std::string& sheet : m_state.sheets) {
    if (!holds(state.sheets, sheet)) lines.push_back(line(state.at, "sheet", "gone"));
  }
  m_state = state;
  return lines;
}

Lines WatchLines::linesOf(const WatchStep& step) { return {stepInWords(step)}; }

Lines WatchLines::linesOf(const WatchNotice& notice) { return {line(notice.at, "notice", noticeInWords(notice))}; }

Lines WatchLines::linesOf(const WatchWorldEnd& end) {
  m_state = {};
  return {line(end.at, "world", "over")};
}

Lines WatchLines::linesOf(const WatchEnd&) { return {}; }

}  // namespace vornlab
