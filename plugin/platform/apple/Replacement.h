#pragma once

#include <ffi.h>
#include <objc/runtime.h>

#include <memory>
#include <vector>

#include "platform/ClassRuntime.h"
#include "platform/apple/MethodSignature.h"
#include "platform/apple/Ownership.h"

namespace vorn {

// A method implementation for the Objective-C runtime that runs one of ours.
//
// Main thread only, but for the host's calls: one that comes on another thread runs the host's own method as if
// there were no replacement. What the host's own method raises reaches the host, past our code. An exception of
// ours does not: where one ends the implementation, the host gets the result of its own method.
class Replacement {
 public:
  // One call of the host that is being replaced.
  struct Call {
    const Replacement* replacement = nullptr;
    id receiver = nil;
    SEL selector = nullptr;
    std::vector<void*> native;
    Arguments arguments;
    // What the host's own method answered when it was last forwarded to: an object with the value made of it.
    bool isForwarded = false;
    Retained<> forwardedResult;
    Value forwardedValue;

    void setForwarded(id result, const Value& value);
  };

  // Null when the machine allows no more code to be made. Once a class refers to it, it must not be destroyed.
  static std::unique_ptr<Replacement> make(Implementation implementation,
                                           std::shared_ptr<MethodSignature> signature,
                                           CharacterPointers characters);
  ~Replacement();
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  IMP code() const { return m_code; }
  // From now on it is called as that method is.
  void setSignature(std::shared_ptr<MethodSignature> signature);
  // The two selectors between which it and the host's own method were exchanged.
  void setSelectors(SEL first, SEL second);

  // The call, innermost first, that a send of the selector to the receiver forwards; null for an ordinary send.
  static Call* forwardedBy(id receiver, SEL selector);

 private:
  Replacement(Implementation implementation, CharacterPointers characters);
  static void enter(ffi_cif* call, void* result, void** arguments, void* replacement);
  // These three write the result and give what the host's own method raised instead.
  HostException run(void* result, void** arguments);
  HostException runGuarded(MethodSignature& signature, Call& call, void* result, void** arguments);
  HostException runHostsOwn(MethodSignature& signature, void* result, void** arguments) const;
  void runOurs(const MethodSignature& signature, Call& call, void* result, void** arguments);
  void readArguments(const MethodSignature& signature, void** arguments, Call& call) const;
  // The one of the two selectors that reaches the host's own method when the call came by the given one; null
  // before the exchange, and for a call by another name.
  SEL otherSelector(SEL entered) const;
  bool isForwardedBy(SEL entered, SEL sent) const;

  Implementation m_implementation;
  CharacterPointers m_characters;
  std::shared_ptr<MethodSignature> m_signature;
  ffi_closure* m_closure = nullptr;
  IMP m_code = nullptr;
  SEL m_first = nullptr;
  SEL m_second = nullptr;
};

}  // namespace vorn
