#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/ClassRuntime.h"

namespace vorn {

// One call of the host that arrived in a replacement. Main thread only.
class HookCall {
 public:
  HookCall(ClassRuntime& runtime, std::string_view addedSelector, const HostObject& receiver,
           const Arguments& arguments)
      : m_runtime(runtime), m_addedSelector(addedSelector), m_receiver(receiver), m_arguments(arguments) {}

  const HostObject& receiver() const { return m_receiver; }
  const Arguments& arguments() const { return m_arguments; }
  // Absent for an argument that was not passed.
  Value argument(std::size_t index) const { return index < m_arguments.size() ? m_arguments[index] : Value(); }

  // Runs the host's own implementation on the receiver, with the call's arguments or with others, and gives its
  // result. A replacement that does not forward has taken the call over. When the host's method raises, this
  // throws HostRaised, which ends the replacement: as if we were not there, the host gets what it raised itself.
  Value forward() { return forward(m_arguments); }
  Value forward(const Arguments& arguments) {
    m_hostResult = Value();
    Answer answer = m_runtime.call(m_receiver, m_addedSelector, arguments);
    if (answer.raised) throw HostRaised{std::move(answer.raised)};
    m_hostResult = std::move(answer.value);
    return *m_hostResult;
  }
  // What forward() gave last; nothing when the host has not been called.
  const std::optional<Value>& hostResult() const { return m_hostResult; }

 private:
  ClassRuntime& m_runtime;
  std::string_view m_addedSelector;
  const HostObject& m_receiver;
  const Arguments& m_arguments;
  std::optional<Value> m_hostResult;
};

}  // namespace vorn
