#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/surface/HookTable.h"

namespace vorn {

// How one row of the table fared.
enum class HookStanding {
  // The host's selector runs our function, and the added one the host's.
  stands,
  // This version of the host has no such class.
  noClass,
  // The class is there but its hooks are not wanted in this version of the host.
  unsupportedHost,
  // The class has no such selector. The added method remains and answers absent.
  noHostMethod,
  // The class has the selector, with types that cannot be passed on. The host's method stays as it is.
  unusableTypes,
  // The added method could not be found after it was added.
  noAddedMethod,
};

// "stands", "no class" and so on, for people.
std::string_view nameOfHookStanding(HookStanding standing);

struct HookState {
  const HookRow* row = nullptr;
  HookStanding standing = HookStanding::noClass;
  // The types that cannot be passed on; "" for every other standing.
  std::string types;
};

// Attaches this system to the host, once, at load. Hooks are never taken away again; after an end of this system
// the next start takes up those that stand.
//
// A class or a selector that the host lacks costs only its own rows, and nothing is reported. Main thread only.
class HookInstaller {
 public:
  static HookInstaller& sharedInstance();

  // Goes through the table. A second call does nothing: exchanging again would undo the hooks.
  void load();
  // One state for each row of the table, in its order; empty before load().
  const std::vector<HookState>& states() const { return m_states; }

 private:
  void loadClass(const HookClass& hookClass);
  static HookState install(const HookRow& row);

  bool m_loaded = false;
  std::vector<HookState> m_states;
};

}  // namespace vorn
