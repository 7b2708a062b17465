#pragma once

#include <span>
#include <string>
#include <string_view>

#include "host/surface/HookCall.h"

namespace vorn {

// What is exchanged in the host, as data: one row a method, grouped by host class in the order at load.

enum class HookMethod { ofInstances, ofTheClass };

struct HookRow {
  std::string_view hostClass;
  HookMethod method;
  std::string_view hostSelector;
  // As the runtime takes it. Several do not match their method; the runtime does not look.
  std::string_view encoding;
  Value (*function)(HookCall& call);
  CharacterPointers characters = CharacterPointers::opaque;

  // The selector that reaches the host's own implementation once the hook stands.
  std::string addedSelector() const;
};

struct HookClass {
  // Our class that holds the replacements.
  std::string_view name;
  std::string_view hostClass;
  std::span<const HookRow> rows;
  // Runs first, whether or not the host has the class; false leaves the class without hooks. May be null.
  bool (*prepare)() = nullptr;
  // Runs when the rows of a class that is wanted have been installed. May be null.
  void (*finish)() = nullptr;
};

// In the order at load.
std::span<const HookClass> hookTable();

}  // namespace vorn
