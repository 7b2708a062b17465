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
      : runtime_(runtime), addedSelector_(addedSelector), receiver_(receiver), arguments_(arguments) {}

  const HostObject& receiver() const { return receiver_; }
  const Arguments& arguments() const { return arguments_; }
  // Absent for an argument that was not passed.
  Value argument(std::size_t index) const { return index < arguments_.size() ? arguments_[index] : Value(); }

  // Runs the host's own implementation on the receiver, with the call's arguments or with others, and gives its
  // result. A replacement that does not forward has taken the call over.
  Value forward() { return forward(arguments_); }
  Value forward(const Arguments& arguments) {
    forwarded_ = true;
    return runtime_.send(receiver_, addedSelector_, arguments);
  }
  bool forwarded() const { return forwarded_; }

 private:
  ClassRuntime& runtime_;
  std::string_view addedSelector_;
  const HostObject& receiver_;
  const Arguments& arguments_;
  bool forwarded_ = false;
};

}  // namespace vorn
