#pragma once

#include <string_view>

#include "util/Value.h"

namespace vorn {

// Where the system tells what it is doing, for people who look over its shoulder. There is none in the host:
// the port is a null pointer there, and nothing is collected.
//
// Whoever notes something has masked passcodes and people's addresses before. Main thread only.
class Trace {
 public:
  virtual ~Trace() = default;
  // A step, such as "command", "state", "finished", "sent" or "received", with its facts.
  virtual void note(std::string_view step, const Value& facts) = 0;
};

}  // namespace vorn
