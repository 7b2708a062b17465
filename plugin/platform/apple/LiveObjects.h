#pragma once

#include <objc/objc.h>

#include <cstdint>
#include <mutex>
#include <unordered_set>

#include "util/HostObject.h"

namespace vorn {

// Which objects of the host that this system has met are still alive.
//
// An address that was never handed out from here, or whose object has been deallocated, has no object behind it.
// The memory of a dead object may be used again: once the new object has been met, an old reference means that
// one. An object may end on any thread; everything else is the main thread's.
class LiveObjects {
 public:
  // Whether a reference keeps its object alive.
  enum class Holding {
    // The caller has it, and we are only passing.
    never,
    // When the caller's own hold is the only one, so that the object would end with it; otherwise its owner
    // decides.
    whenUnowned,
    // Whatever its owner decides.
    always,
  };

  // There is one set of objects in a process. It is never destroyed: objects end after everything else.
  static LiveObjects& instance();

  // The reference to an object; the absent object for nil.
  HostObject reference(id object, Holding holding);
  // The object behind a reference; nil when it is absent, unknown or dead.
  id object(const HostObject& reference);

 private:
  static void forget(id object);
  void note(id object);

  std::mutex m_mutex;
  std::unordered_set<std::uintptr_t> m_addresses;
};

}  // namespace vorn
