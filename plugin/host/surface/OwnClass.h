#pragma once

#include <span>
#include <string_view>

#include "platform/ClassRuntime.h"

namespace vorn {

// A method of a class of ours in the host's runtime. It is a plain function, for a class outlives whoever made it:
// whom a receiver stands for is found out in the call.
struct OwnMethod {
  const char* selector;
  const char* encoding;
  Value (*run)(const HostObject& receiver, const Arguments& arguments);
};

// The class of ours with that name below one of the host's, with the methods added; false where the host does not
// have the superclass. Asking again gives the same class. A method that fails answers absent: the host must not
// see our exceptions. So does every method once this system has ended.
ClassRef ownClass(std::string_view name, std::string_view superclass, std::span<const OwnMethod> methods);

// An object of such a class, or of one of the host's, alive as long as a copy of the reference or as the host
// holds it. Absent for a false reference.
HostObject makeInHost(ClassRef target, std::string_view initialiser, const Arguments& arguments = {});
// The same for a class of the host by its name; absent when the host does not have it.
HostObject makeInHost(std::string_view hostClass, std::string_view initialiser, const Arguments& arguments = {});

}  // namespace vorn
