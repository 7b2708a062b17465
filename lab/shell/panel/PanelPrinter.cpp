#include "lab/shell/panel/PanelPrinter.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "lab/shell/TextColumns.h"
#include "secrets/SecretMask.h"

namespace vornlab {
namespace {

using nlohmann::ordered_json;
using vorn::Control;
using vorn::ControlSet;
using vorn::PanelLayout;
using Kind = vorn::Control::Kind;

using vorn::SecretMask;

// Longer labels and lines move only what stands behind them.
constexpr std::size_t kWidestLabel = 32;
constexpr std::size_t kWidestLine = 60;

std::string nameOf(Kind kind) {
  switch (kind) {
    case Kind::window: return "window";
    case Kind::box: return "box";
    case Kind::label: return "label";
    case Kind::link: return "link";
    case Kind::button: return "button";
    case Kind::checkBox: return "checkBox";
    case Kind::radioButton: return "radioButton";
    case Kind::radioGroup: return "radioGroup";
    case Kind::popup: return "popup";
    case Kind::comboBox: return "comboBox";
    case Kind::textField: return "textField";
    case Kind::tokenField: return "tokenField";
    case Kind::list: return "list";
  }
  return "";
}

std::string typedText(const PanelLayout::Place& place, const Control& control) {
  const std::string text = control.kind == Kind::tokenField ? control.tokens.inWords() : control.text;
  return place.isSecret && !text.empty() ? std::string(SecretMask::kCover) : SecretMask::covered(text);
}

std::string chosenItem(const Control& control) {
  const auto index = static_cast<std::size_t>(control.index);
  return control.index >= 0 && index < control.items.size() ? SecretMask::covered(control.items[index].title) : "";
}

std::string columnsOfGroup(const Control& control) {
  std::string text;
  for (std::size_t i = 0; i < control.items.size(); ++i) {
    const bool isChosen = control.index >= 0 && static_cast<std::size_t>(control.index) == i;
    text += (text.empty() ? "" : "  ") + std::string(isChosen ? "(x) " : "( ) ") +
            SecretMask::covered(control.items[i].title);
  }
  return text;
}

std::string fieldInWords(const PanelLayout::Place& place, const Control& control) {
  const std::string text = typedText(place, control);
  const std::string shown = text.empty() ? "(" + control.placeholder + ")" : text;
  return "[" + (text.empty() && control.placeholder.empty() ? std::string(8, ' ') : shown) + "]";
}

// As it is drawn, without what the control is called; "" for what draws nothing.
std::string drawn(const PanelLayout::Place& place, const Control& control) {
  const std::string text = SecretMask::covered(control.text);
  switch (control.kind) {
    case Kind::window:
    case Kind::box: return "";
    case Kind::label: return text;
    case Kind::link: return "→ " + text;
    case Kind::button: return "< " + text + " >";
    case Kind::checkBox: return std::string(control.on ? "[x] " : "[ ] ") + text;
    case Kind::radioButton: return std::string(control.on ? "(x) " : "( ) ") + text;
    case Kind::radioGroup: return columnsOfGroup(control);
    case Kind::popup: return "[" + chosenItem(control) + " ▾]";
    case Kind::list: return columnsOfGroup(control);
    case Kind::comboBox:
    case Kind::textField:
    case Kind::tokenField: return fieldInWords(place, control);
  }
  return text;
}

// One row on its way to the terminal.
struct Line {
  char mark = ' ';
  int depth = 0;
  std::string label{};
  std::string text{};
  std::string note{};
};

class Page {
 public:
  Page(const ControlSet& controls, bool all) : m_controls(controls), m_all(all) {}

  std::vector<Line> linesOf(const PanelLayout::Section& section) const {
    std::vector<Line> lines;
    for (const PanelLayout::Row& row : section.rows) {
      Line line = lineOf(row);
      if (!line.label.empty() || !line.text.empty()) lines.push_back(std::move(line));
    }
    return lines;
  }

 private:
  Line lineOf(const PanelLayout::Row& row) const {
    Line line{.depth = row.depth};
    bool isAnyShown = false;
    bool canAnyBeUsed = false;
    std::string lastReason;
    std::string wordsOfFirst;
    for (const PanelLayout::Place& place : row.places) {
      const Control& control = *m_controls.find(place.key);
      const bool isShown = m_controls.isOnScreen(place.key);
      const std::string text = onTerminal(drawn(place, control));
      if (text.empty() || (!isShown && !m_all)) continue;
      const bool isFirst = line.label.empty() && line.text.empty();
      addTo(line, row, place, text);
      isAnyShown |= isShown;
      canAnyBeUsed |= isShown && control.enabled && control.kind != Kind::label;
      if (isShown && !control.enabled) line.mark = '#';
      if (control.reason.empty() || control.reason == lastReason) continue;
      lastReason = control.reason;
      if (isFirst) wordsOfFirst = place.words;
      line.note += (line.note.empty() ? "" : "; ") + (isFirst || place.words.empty() ? "" : place.words + ": ") +
                   (isShown ? "" : "hidden: ") + onTerminal(SecretMask::covered(control.reason));
    }
    // The note says what of such a row cannot be used.
    if (canAnyBeUsed) {
      line.mark = ' ';
      if (!wordsOfFirst.empty()) line.note = wordsOfFirst + ": " + line.note;
    }
    if (!isAnyShown) line.mark = '-';
    return line;
  }

  // What names the row stands in a column of its own.
  void addTo(Line& line, const PanelLayout::Row& row, const PanelLayout::Place& place,
             const std::string& text) const {
    const Control& control = *m_controls.find(place.key);
    const bool isFirst = line.label.empty() && line.text.empty();
    if (isFirst && !row.label.empty()) line.label = onTerminal(SecretMask::covered(row.label));
    if (isFirst && control.kind == Kind::radioGroup) line.label = onTerminal(SecretMask::covered(control.text));
    if (isFirst && control.kind == Kind::label && row.places.size() > 1 && &place != &row.places.back() &&
        line.label.empty() && isField(row.places[1])) {
      line.label = text;
    } else {
      line.text += (line.text.empty() ? "" : "  ") + text;
    }
  }

  bool isField(const PanelLayout::Place& place) const {
    const Control* control = m_controls.find(place.key);
    return control && isFilledIn(control->kind);
  }

  const ControlSet& m_controls;
  bool m_all;
};

std::size_t widthOfLabels(const std::vector<Line>& lines) {
  std::size_t width = 0;
  for (const Line& line : lines) width = std::max(width, std::min(columnsOf(line.label), kWidestLabel));
  return width;
}

std::string paddedTo(const std::string& text, std::size_t columns) {
  const std::size_t width = columnsOf(text);
  return width < columns ? text + std::string(columns - width, ' ') : text;
}

std::string inWords(const Line& line, std::size_t labelWidth) {
  std::string text =
      std::string("  ") + line.mark + " " + std::string(2 * static_cast<std::size_t>(line.depth), ' ');
  if (!line.label.empty()) text += paddedTo(line.label, labelWidth) + "  ";
  return text + line.text;
}

ordered_json jsonOf(const PanelLayout::Place& place, const ControlSet& controls) {
  const Control& control = *controls.find(place.key);
  ordered_json json = {{"key", control.key}, {"kind", nameOf(control.kind)}, {"words", place.words}};
  json["box"] = control.box;
  json["hidden"] = control.hidden;
  json["onScreen"] = controls.isOnScreen(place.key);
  json["enabled"] = control.enabled;
  json["reason"] = control.reason;
  json["on"] = control.on;
  json["text"] = typedText(place, control);
  json["items"] = ordered_json::array();
  for (const vorn::ControlItem& item : control.items) {
    json["items"].push_back({{"title", SecretMask::covered(item.title)},
                             {"toolTip", SecretMask::covered(item.toolTip)},
                             {"enabled", item.enabled},
                             {"separator", item.isSeparator}});
  }
  json["index"] = control.index;
  json["toolTip"] = SecretMask::covered(control.toolTip);
  json["spoken"] = SecretMask::covered(control.spoken);
  json["placeholder"] = control.placeholder;
  json["redBorderWidth"] = control.redBorderWidth;
  json["focused"] = control.isFocused;
  return json;
}

}  // namespace

std::string shownValue(const PanelLayout::Place& place, const Control& control) {
  switch (control.kind) {
    case Kind::checkBox:
    case Kind::radioButton: return control.on ? "on" : "off";
    case Kind::radioGroup:
    case Kind::list:
    case Kind::popup: return chosenItem(control);
    case Kind::window: return "open";
    case Kind::box: return "shown";
    default: return "\"" + typedText(place, control) + "\"";
  }
}

std::vector<std::string> panelInWords(const std::string& title, const PanelLayout& layout,
                                      const ControlSet& controls, bool all) {
  const Page page(controls, all);
  std::vector<std::string> printed{onTerminal(SecretMask::covered(title))};
  bool hasLocked = false;
  for (const PanelLayout::Section& section : layout.sections) {
    const std::vector<Line> lines = page.linesOf(section);
    if (lines.empty()) continue;
    printed.emplace_back();
    if (!section.title.empty()) printed.push_back(onTerminal(section.title));
    const std::size_t labels = widthOfLabels(lines);
    for (const Line& line : lines) {
      std::string text = inWords(line, labels);
      if (!line.note.empty()) text = paddedTo(text, kWidestLine) + "  " + line.note;
      printed.push_back(std::move(text));
      hasLocked |= line.mark == '#';
    }
  }
  if (hasLocked) printed.insert(printed.end(), {"", "# cannot be changed"});
  return printed;
}

ordered_json panelAsJson(const std::string& title, const PanelLayout& layout, const ControlSet& controls) {
  ordered_json json = {{"title", title}, {"sections", ordered_json::array()}};
  for (const PanelLayout::Section& section : layout.sections) {
    ordered_json rows = ordered_json::array();
    for (const PanelLayout::Row& row : section.rows) {
      ordered_json places = ordered_json::array();
      for (const PanelLayout::Place& place : row.places) places.push_back(jsonOf(place, controls));
      rows.push_back({{"label", row.label}, {"depth", row.depth}, {"controls", std::move(places)}});
    }
    json["sections"].push_back({{"key", section.key}, {"title", section.title}, {"rows", std::move(rows)}});
  }
  return json;
}

}  // namespace vornlab
