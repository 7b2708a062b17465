#pragma once

#include <cstddef>
#include <string_view>

#include "platform/ClassRuntime.h"

namespace vorn {

// One call of the host that arrived in a replacement.
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
  // result. A replacement that does not forward has taken the call over.
  Value forward() { return forward(m_arguments); }
  Value forward(const Arguments& arguments) {
    m_forwarded = true;
    return m_runtime.send(m_receiver, m_addedSelector, arguments);
  }
  bool forwarded() const { return m_forwarded; }

 private:
  ClassRuntime& m_runtime;
  std::string_view m_addedSelector;
  const HostObject& m_receiver;
  const Arguments& m_arguments;
  bool m_forwarded = false;
};

}  // namespace vorn
