#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "platform/controls/ControlSet.h"
#include "platform/controls/PanelLayout.h"

namespace vornlab {

// A panel as a person reads it on a terminal, and as JSON. Passcodes and e-mail addresses are covered. Both in
// time linear in what the panel holds.

// What stands in a control, such as "on", the chosen item or the typed text, without addresses and secrets.
std::string shownValue(const vorn::PanelLayout::Place& place, const vorn::Control& control);

// The lines of the panel, in sections. What is hidden is told only when all is wanted.
std::vector<std::string> panelInWords(const std::string& title, const vorn::PanelLayout& layout,
                                      const vorn::ControlSet& controls, bool all);

// "title" and "sections" with all properties of all controls.
nlohmann::ordered_json panelAsJson(const std::string& title, const vorn::PanelLayout& layout,
                                   const vorn::ControlSet& controls);

}  // namespace vornlab
