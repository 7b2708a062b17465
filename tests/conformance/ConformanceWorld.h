#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/ClassRuntime.h"

namespace vorn {

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
//   remember:         nothing; and remembered answers the very object
//   makePart          a new Probe that nobody owns
//   raise             nothing, for it raises
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
  // Sends as the host does itself: without the runtime's port.
  virtual std::string hostAsksForName(const HostObject& object) = 0;

  ClassRef classNamed(const std::string& shortName) { return runtime().NSClassFromString(className(shortName)); }
};

std::unique_ptr<ConformanceWorld> makeEmbeddedWorld();
std::unique_ptr<ConformanceWorld> makeAppleWorld();

}  // namespace vorn
