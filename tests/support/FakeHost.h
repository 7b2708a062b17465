#pragma once

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "platform/embedded/EmbeddedClassRuntime.h"

namespace vorn {

// The host of all tests that script what they need of one: small objects, each made of what it answers. A class
// answers every selector that was given to one of its objects, and "setFoo:" also becomes the answer of "foo". An
// object's state in the runtime is the dictionary of its answers.
class FakeHost {
 public:
  explicit FakeHost(EmbeddedClassRuntime& runtime) : m_runtime(runtime) {}

  HostObject object(const std::string& className,
                    std::initializer_list<std::pair<std::string, Value>> answers = {});
  // The class answers the selectors, with nothing until an object was given something.
  void teach(const std::string& className, std::initializer_list<std::string> selectors);
  // The same for selectors that are asked so often, or by so many, that nobody wants their calls.
  void teachUnnoted(const std::string& className, std::initializer_list<std::string> selectors);
  void set(const HostObject& object, const std::string& selector, const Value& answer);
  Value get(const HostObject& object, const std::string& selector) const;
  // The arguments of each call of the selector so far.
  std::vector<Arguments> calls(const HostObject& object, const std::string& selector) const;

 private:
  void teach(const std::string& className, const std::string& selector, bool notesCalls);

  EmbeddedClassRuntime& m_runtime;
};

// What the host has of one open appointment window, each object leading to the next as the host's do.
struct FakeEditor {
  static FakeEditor open(FakeHost& host);

  HostObject ownWindow, windowController, editor, event;
};

}  // namespace vorn
