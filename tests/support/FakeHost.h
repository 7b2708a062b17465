#pragma once

#include <cctype>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/embedded/EmbeddedClassRuntime.h"

namespace vorn {

// Small objects of a host, made of what they answer. A class answers every selector that was given to one of its
// objects; "setFoo:" also becomes the answer of "foo".
class FakeHost {
 public:
  explicit FakeHost(EmbeddedClassRuntime& runtime) : m_runtime(runtime) {}

  HostObject object(const std::string& className, std::initializer_list<std::pair<std::string, Value>> answers) {
    m_runtime.defineClass(className);
    const auto state = std::make_shared<State>();
    const HostObject made = m_runtime.create(className, state);
    for (const auto& [selector, answer] : answers) {
      state->answers[selector] = answer;
      teach(className, selector);
    }
    return made;
  }
  // The class answers the selectors, with nothing until an object was given something.
  void teach(const std::string& className, std::initializer_list<std::string> selectors) {
    m_runtime.defineClass(className);
    for (const std::string& selector : selectors) teach(className, selector);
  }
  void set(const HostObject& object, const std::string& selector, const Value& answer) {
    m_runtime.state<State>(object)->answers[selector] = answer;
    teach(m_runtime.className(object), selector);
  }
  Value get(const HostObject& object, const std::string& selector) const {
    return m_runtime.state<State>(object)->answers[selector];
  }
  // The arguments of each call of the selector so far.
  std::vector<Arguments> calls(const HostObject& object, const std::string& selector) const {
    return m_runtime.state<State>(object)->calls[selector];
  }

 private:
  struct State {
    std::map<std::string, Value> answers;
    std::map<std::string, std::vector<Arguments>> calls;
  };

  void teach(const std::string& className, const std::string& selector) {
    // The class outlives this object.
    const auto answer = [&runtime = m_runtime, selector](const HostObject& receiver, const Arguments& arguments) {
      const auto state = runtime.state<State>(receiver);
      if (!state) return Value();
      state->calls[selector].push_back(arguments);
      if (selector.rfind("set", 0) == 0 && selector.back() == ':' && arguments.size() == 1) {
        std::string field = selector.substr(3, selector.size() - 4);
        field[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(field[0])));
        state->answers[field] = arguments[0];
      }
      return state->answers[selector];
    };
    if (!m_runtime.class_getInstanceMethod(m_runtime.NSClassFromString(className), selector)) {
      m_runtime.setInstanceMethod(className, selector, answer);
    }
  }

  EmbeddedClassRuntime& m_runtime;
};

}  // namespace vorn
