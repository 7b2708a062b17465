#pragma once

#include <span>

namespace vornlab {

// What the host answers to, whatever its classes are made of: every selector that the plug-in hooks or sends, as
// far as a stand-in host has it.
struct HostSelector {
  const char* className;
  // Of the class itself, not of its objects.
  bool ofTheClass;
  const char* selector;
  // What is answered, and then the arguments behind the receiver and the selector, a letter each: v nothing, @ an
  // object or a class, B a truth value, i a whole number of any size, d a number, * a pointer.
  const char* types;
};

std::span<const HostSelector> hostSelectors();

}  // namespace vornlab
