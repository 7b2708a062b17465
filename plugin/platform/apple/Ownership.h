#pragma once

#import <Foundation/Foundation.h>

#include <utility>

namespace vorn {

// Foundation counts references by hand here; these two let go of what they hold when their scope ends, by an
// exception too.

// What is released later than at once while this stands ends with it. Pools end in the reverse of their order.
class AutoreleasePool {
 public:
  // Nothing at all when none is wanted: a message to nil does nothing.
  explicit AutoreleasePool(bool isWanted = true) : m_pool(isWanted ? [[NSAutoreleasePool alloc] init] : nil) {}
  ~AutoreleasePool() { [m_pool drain]; }
  AutoreleasePool(const AutoreleasePool&) = delete;
  AutoreleasePool& operator=(const AutoreleasePool&) = delete;

 private:
  NSAutoreleasePool* m_pool;
};

// One reference to an object, or to nil. `Type` is a pointer to objects.
template <typename Type = id>
class Retained {
 public:
  Retained() = default;
  // A reference of its own.
  explicit Retained(Type object) : m_object([object retain]) {}
  // Takes over the caller's reference, as of an object that was just made.
  static Retained adopted(Type object) {
    Retained taken;
    taken.m_object = object;
    return taken;
  }
  Retained(Retained&& other) noexcept : m_object(std::exchange(other.m_object, nil)) {}
  Retained& operator=(Retained&& other) noexcept {
    std::swap(m_object, other.m_object);
    return *this;
  }
  // The end of an object is the host's code, and what it raised here would end the process.
  ~Retained() {
    try {
      [m_object release];
    } catch (...) {
    }
  }
  Retained(const Retained&) = delete;
  Retained& operator=(const Retained&) = delete;

  Type get() const { return m_object; }

 private:
  Type m_object = nil;
};

}  // namespace vorn
