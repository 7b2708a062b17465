#pragma once

#include <string_view>

#include "secrets/CoveredLater.h"
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
  // The step of an envelope: "sent", "dropped" or "received", with its action, its bytes and the head of its
  // content as facts, and the content itself. It is noted as a step with the covered content, of a sent one the
  // whole content too, unless a trace wants to see less.
  virtual void noteEnvelope(std::string_view step, Value facts, const CoveredLater& content);

  // What a person reads of a content at a glance; the rest is told by its size.
  static constexpr std::size_t kBytesAtAGlance = 1000;
};

}  // namespace vorn
