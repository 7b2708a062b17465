#include "lab/shell/watch/WatchFrame.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "lab/shell/TextColumns.h"
#include "lab/shell/watch/WatchWords.h"

namespace vornlab {
namespace {

constexpr std::size_t kSubjectColumns = 28;

using Lines = std::vector<std::string>;

struct Section {
  const char* title;
  Lines lines;
  // How many lines may be shown; the last ones, or else the first.
  std::size_t most = 0;
  bool showsLast = false;
};

Lines windowLines(const WatchState& state) {
  Lines lines;
  for (const WatchWindow& window : state.windows) {
    lines.push_back("  " + std::to_string(window.number) + "  " +
                    filledToColumns("\"" + window.subject + "\"", kSubjectColumns) + "  " + windowInWords(window));
  }
  return lines;
}

Lines pendingLines(const WatchState& state, double now) {
  Lines lines;
  for (const WatchRequest& request : state.pending) lines.push_back("  " + requestInWords(request, now));
  for (const std::string& sheet : state.sheets) lines.push_back("  on the screen: \"" + sheet + "\"");
  return lines;
}

Lines noticeLines(const WatchModel& model) {
  Lines lines;
  for (const WatchNotice& notice : model.notices()) {
    lines.push_back("  " + momentInWords(notice.at) + "  " + noticeInWords(notice));
  }
  return lines;
}

Lines stepLines(const WatchModel& model) {
  Lines lines;
  for (const WatchStep& step : model.steps()) lines.push_back("  " + stepInWords(step));
  return lines;
}

Lines headLines(const WatchModel& model, double now) {
  const WatchLaboratory& laboratory = model.laboratory();
  const auto seconds = static_cast<long>(std::max(0.0, now));
  std::array<char, 32> clock{};
  std::snprintf(clock.data(), clock.size(), "%ld:%02ld", seconds / 60, seconds % 60);
  return {
      "vornlab " + laboratory.command + "   process " + std::to_string(laboratory.process) + "   " + clock.data(),
      worldInWords(model.world()) + "   " + stateInWords(model.state())};
}

}  // namespace

Lines WatchFrame::draw(const WatchModel& model, double now) const {
  Lines frame;
  const auto put = [&](const std::string& line, bool isHeading) {
    if (frame.size() >= rows) return;
    const std::string cut = cutToColumns(line, columns);
    frame.push_back(isHeading && hasColours && !cut.empty() ? "\033[1m" + cut + "\033[0m" : cut);
  };
  const Lines head = headLines(model, now);
  put(head[0], true);
  put(head[1], false);

  std::array<Section, 4> sections{
      {{"Windows", windowLines(model.state()), std::max<std::size_t>(1, rows / 4)},
       {"Waiting for a reply", pendingLines(model.state(), now), std::max<std::size_t>(1, rows / 6)},
       {"Notices", noticeLines(model), std::max<std::size_t>(1, rows / 8), true},
       {"The road", stepLines(model), rows, true}}};
  // On a small terminal the lines between the sections are worth more.
  const bool isRoomy = rows >= 20;
  for (Section& section : sections) {
    if (isRoomy) put("", false);
    put(section.title, true);
    const std::size_t free = rows - frame.size();
    const std::size_t shown = std::min({section.lines.size(), section.most, free});
    const auto first =
        section.showsLast ? section.lines.end() - static_cast<std::ptrdiff_t>(shown) : section.lines.begin();
    const std::size_t left = section.lines.size() - shown;
    for (auto line = first; line != first + static_cast<std::ptrdiff_t>(shown); ++line) put(*line, false);
    if (section.lines.empty()) put("  none", false);
    if (!section.showsLast && left > 0) put("  and " + std::to_string(left) + " more", false);
  }
  return frame;
}

}  // namespace vornlab
