#pragma once

#include <memory>
#include <typeindex>
#include <utility>

#include "platform/Platform.h"

namespace vorn {

// The one holder of everything process-wide: the platform, and each class's shared instance.
//
// A shared instance is made on first use and lives until reset(). Main thread only, except the accessors of the
// platform's ports, which may be read from any thread between install() and reset().
class Registry {
 public:
  // Hands the platform over. Called once, before anything else of this system runs.
  static void install(const Platform& platform);
  // Forgets the platform and destroys every shared instance, the youngest first, so that the next install()
  // starts as a fresh process does.
  static void reset();

  static const Platform& platform();

  // The shared instance of a class, made with its default constructor.
  template <typename T>
  static T& shared() {
    if (void* held = find(typeid(T))) return *static_cast<T*>(held);
    return install<T>(std::make_unique<T>());
  }
  // Puts an instance of a derived class in the place of the shared instance, before its first use.
  template <typename T>
  static T& install(std::unique_ptr<T> instance) {
    std::shared_ptr<T> kept = std::move(instance);
    T& result = *kept;
    keep(typeid(T), kept, &result);
    return result;
  }

 private:
  static void* find(std::type_index type);
  static void keep(std::type_index type, std::shared_ptr<void> instance, void* address);
};

}  // namespace vorn
