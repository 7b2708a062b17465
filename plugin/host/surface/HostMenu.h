#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "util/HostObject.h"

namespace vorn {

// An entry of a menu.
struct MenuEntry {
  std::string title;
  // The selector that choosing it sends to the menu's target.
  std::string_view action;
  std::int64_t tag = 0;
};

// An enabled item at the end of the menu; absent when the host has no menus.
HostObject createMenuItemForMenu(const HostObject& menu, const MenuEntry& entry, const HostObject& target);

// A menu of the host's toolkit, whose items send to the target, which it does not hold. It lives as long as a copy
// of the reference, or as what shows it. Absent when the host has no menus.
HostObject makeMenu(std::string_view title, std::span<const MenuEntry> entries, const HostObject& target);

// Opens the menu below the view. The host comes back when the person has chosen. Nothing when either is absent.
void popUp(const HostObject& menu, const HostObject& view);

// Whoever the menu's items send to is about to end, and the host may keep the menu.
void forgetTarget(const HostObject& menu);

// An image of the bundle by its name, without a type; absent when the host has no images, or cannot read it.
HostObject imageNamed(std::string_view name);

}  // namespace vorn
