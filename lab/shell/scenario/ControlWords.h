#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "lab/host/HostFace.h"
#include "lab/shell/scenario/LineReader.h"
#include "lab/shell/scenario/Stage.h"

namespace vornlab {

// A control of the plug-in by the word that scenarios have for it.
struct ControlWord {
  // Where a person finds it.
  enum class Place { bar, ribbon, toolbar };
  std::string_view word;
  Place place;
  // By which the host finds it among its views.
  const char* action;
  // Of an entry of a menu whose entries share their action.
  std::optional<std::int64_t> tag{};

  HostFace::Control seen(Stage& stage) const;
  bool click(Stage& stage) const;

 private:
  ControlName name() const { return {action, tag}; }
};

// The control that the line names next; fails the line when it names none.
const ControlWord& readControl(LineReader& line);
// "none", "hidden", "disabled" or "shown".
std::string stateOf(const HostFace::Control& control);

}  // namespace vornlab
