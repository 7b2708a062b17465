#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/ClassRuntime.h"

namespace vorn {

// More arguments than there are registers for.
constexpr auto kDrag = "dragged:by:at:lasting:inProgress:from:to:";

inline std::string wordsOfDrag(const std::string& event, const std::string& start, double seconds, bool from,
                               bool to) {
  return event + " at " + start + " for " + std::to_string(seconds) + (from ? " from" : "") + (to ? " to" : "");
}

// A host in one of the runtimes, with classes of its own: "Probe", its heir "ProbeHeir" and its other heir
// "ProbeSibling". No other world has seen the classes, so that what is exchanged in one test stays in it.
//
// A Probe answers, as a host of the platform would:
//   name              the text "probe"
//   callsName         what it answers itself to name
//   echo:             its argument, an object
//   isNot:            the opposite of a boolean of one byte
//   low:              its argument, a boolean of one byte, as a number of four
//   half:             half of a double
//   add:to:           the sum of two integers of eight bytes
//   moved:            a rectangle, 10 further to the right and 20 further down
//   itself            the receiver
//   remember:         nothing, and holds the object; remembered answers that very one
//   lengthOf:         the length of a C text; -1 for none
//   dragged:by:at:lasting:inProgress:from:to:
//                     what it was given, in words; it fills in the flag behind its pointer, if any
//   ended:code:context:
//                     its context, a pointer, when the code, a number of four bytes, is -2
//   next:             the number of four bytes without a sign behind its argument
//   makePart          a new Probe that nobody owns
//   raise             nothing, for it raises
//   callsRaise        what it answers itself to raise
//   +make             the text "made"
//   +callsMake        what the class answers itself to make
class ConformanceWorld {
 public:
  virtual ~ConformanceWorld() = default;

  virtual ClassRuntime& runtime() = 0;
  // The name under which a class of this world is known.
  virtual std::string className(const std::string& shortName) const = 0;
  // An object that its host owns until end().
  virtual HostObject create(const std::string& shortName) = 0;
  virtual void end(const HostObject& object) = 0;
  // Defines a class now; its parent is one of this world.
  virtual void define(const std::string& shortName, const std::string& parent) = 0;

  // What the host has to catch when it sends the selector itself: the words of what raise has just raised, "" for
  // nothing, and "something else".
  virtual std::string hostMeets(const HostObject& object, const std::string& selector) = 0;

  // Sends as the host does itself: without the runtime's port.
  virtual std::string hostAsksForName(const HostObject& object) = 0;
  // The host drags with a flag of its own; whether the flag has been filled in.
  virtual bool hostDrags(const HostObject& object) = 0;

  ClassRef classNamed(const std::string& shortName) { return runtime().NSClassFromString(className(shortName)); }
};

std::unique_ptr<ConformanceWorld> makeEmbeddedWorld();
std::unique_ptr<ConformanceWorld> makeAppleWorld();

}  // namespace vorn
