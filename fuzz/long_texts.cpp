// Texts of any length and script where the laboratory draws: they keep to their line, to their columns and to
// their secrets.

#include "fuzz/Fuzzing.h"
#include "lab/shell/TextColumns.h"
#include "lab/shell/Words.h"
#include "lab/shell/panel/PanelPrinter.h"
#include "util/Utf16.h"

namespace {

using vorn::Control;
using vorn::fuzzing::check;

bool keepsToItsLine(std::string_view text) {
  for (const char c : text) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) return false;
  }
  return vorn::isValidUtf8(text);
}

void tryColumns(const std::string& raw, std::size_t width) {
  check(keepsToItsLine(vornlab::onTerminal(raw)), "nothing speaks to the terminal");
  check(vornlab::shortened(raw, width).size() <= width + 4, "a beginning has the room that it is given");
  const std::string text = vornlab::onTerminal(raw);
  check(vornlab::columnsOf(text) <= 2 * text.size(), "a character takes two columns at most");
  check(vornlab::columnsOf(vornlab::cutToColumns(text, width)) <= width, "a cut text keeps to its columns");
  check(vornlab::columnsOf(vornlab::filledToColumns(text, width)) == width, "a filled one has exactly those");
  if (vornlab::columnsOf(text) <= width) check(vornlab::cutToColumns(text, width) == text, "what fits is not cut");
}

// One control of each kind that shows the text, in a layout with it as label and title.
void tryPanel(const std::string& text) {
  vorn::ControlSet controls;
  vorn::PanelLayout layout{{{"section", text, {}}}};
  for (int kind = 0; kind <= static_cast<int>(Control::Kind::list); ++kind) {
    Control& control = controls.add(static_cast<Control::Kind>(kind), "c" + std::to_string(kind));
    control.text = control.toolTip = control.note = control.reason = control.placeholder = text;
    control.items.emplace_back(text);
    control.items.push_back(vorn::ControlItem::heading(text));
    control.index = kind % 3 - 1;
    control.enabled = kind % 2 == 0;
    control.tokens.replace({}, {{.text = text}, {.chip = vorn::TokenChip{.title = text}}});
    layout.sections.front().rows.push_back({{{control.key, text, kind == 9}, {control.key, "twice"}}, text});
  }
  for (const bool all : {false, true}) {
    for (const std::string& line : vornlab::panelInWords(text, layout, controls, all)) {
      check(keepsToItsLine(line), "each line of a panel is one line");
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vorn::fuzzing::Input input(data, size);
  const std::size_t width = input.byte();
  const std::string text(input.rest());
  tryColumns(text, width);
  if (size < 4096) tryPanel(text);
  return 0;
}
