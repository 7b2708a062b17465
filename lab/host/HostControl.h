#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "util/Rect.h"

namespace vornlab {

// How a control is known: by the action that it sends, and among entries of a menu that share one by their tag.
struct ControlName {
  std::string action;
  std::optional<std::int64_t> tag{};

  ControlName(const char* sent) : action(sent) {}
  ControlName(std::string sent, std::optional<std::int64_t> entry) : action(std::move(sent)), tag(entry) {}
};

// A button or a menu's item, as a person sees it.
struct HostControl {
  bool exists = false;
  bool isShown = false;
  bool isEnabled = false;
  std::string title;
  // The name of the image; "" for none.
  std::string image;
  std::string toolTip;
  // Of the button, in its superview.
  vorn::Rect frame{};
};

}  // namespace vornlab
