#pragma once

#include <string_view>

namespace vorn {

// The keys of the keyboard that mean something in a text field without changing its text. A front end tells of
// them as of any other use, with the field's key, a colon and the name of the command: "_searchField:moveDown". In
// a window they are the field's own where its control takes them, and else the window's.
namespace field_key {

inline constexpr std::string_view kReturn = "insertNewline";
inline constexpr std::string_view kDown = "moveDown";
inline constexpr std::string_view kUp = "moveUp";
inline constexpr std::string_view kEscape = "cancelOperation";

}  // namespace field_key

// The field of such a key; any other key as it is.
constexpr std::string_view fieldOf(std::string_view key) { return key.substr(0, key.find(':')); }
// The command of such a key; "" for any other.
constexpr std::string_view commandOf(std::string_view key) {
  const std::size_t colon = key.find(':');
  return colon == std::string_view::npos ? std::string_view() : key.substr(colon + 1);
}

}  // namespace vorn
