#pragma once

#include <string>
#include <string_view>

#include "util/HostObject.h"
#include "util/Value.h"

namespace vorn {

// What this room has to know of the host's objects, which live in a class runtime that it does not see.
//
// The registry hands an implementation over together with the platform. Main thread only; nothing throws.
class HostObjectQuestions {
 public:
  virtual ~HostObjectQuestions() = default;
  // The name of the object's own class; "" for an absent or a dead object.
  virtual std::string classNameOf(const HostObject& object) const = 0;
  // True for an instance of the named class or of one that inherits from it.
  virtual bool isKindOfClass(const HostObject& object, std::string_view className) const = 0;
  // The views directly below a view; no array for anything else.
  virtual Value subviewsOf(const HostObject& view) const = 0;
};

// The questions in force; null when there is no runtime. The caller keeps what it hands over alive until it hands
// over something else.
const HostObjectQuestions* hostObjectQuestions();
void setHostObjectQuestions(const HostObjectQuestions* questions);

}  // namespace vorn
