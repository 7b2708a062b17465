#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "util/HostObject.h"
#include "util/Value.h"

namespace vorn {

// A checked, by-name connection to one object of the host. Every proxy derives from it.
//
// A proxy holds an object of one host class, or none: an object of another class is not taken. Whatever then goes
// wrong, be it a missing selector, no object, or one that the host has dropped, the answer is absent, false, 0 or
// "", never a failure. A proxy does not keep its object alive. Main thread only.
class vnDelegateBase {
 public:
  vnDelegateBase(std::string_view className, const HostObject& delegate);

  // True while the object is there and of the expected class.
  bool isValidConnection() const;
  // Sends a selector by name; absent after any failed check. An absent argument travels as absent.
  Value getOLItemID(std::string_view selector) const;
  Value getOLItemID(std::string_view selector, const Value& first) const;
  Value getOLItemID(std::string_view selector, const Value& first, const Value& second) const;

  const std::string& className() const { return m_className; }
  const HostObject& delegate() const { return m_delegate; }
  // Replaces the object without a check; a wrong one makes the connection invalid.
  void setDelegate(const HostObject& delegate) { m_delegate = delegate; }

 protected:
  // Reads that give a natural type; what is not of that type gives the neutral answer.
  OptionalText text(std::string_view selector) const { return getOLItemID(selector).optionalText(); }
  HostObject object(std::string_view selector) const { return getOLItemID(selector).object(); }
  bool flag(std::string_view selector) const;
  bool answers(std::string_view selector) const;
  std::int64_t number(std::string_view selector) const { return getOLItemID(selector).integerValue(); }

  // The class of an object whose class has no fixed name; "" for none.
  static std::string ownClassName(const HostObject& object);

 private:
  Value sendChecked(std::string_view selector, const std::vector<Value>& arguments) const;

  std::string m_className;
  HostObject m_delegate;
};

// True for an object of the named class or of one that inherits from it.
bool isKindOfHostClass(const HostObject& object, std::string_view className);
// True for an object whose own class has exactly this name.
bool isExactlyOfHostClass(const HostObject& object, std::string_view className);
// Sends a selector to any object of the host that answers to it; absent otherwise. For the objects that need no
// class of their own here, such as views and windows.
Value askHost(const HostObject& object, std::string_view selector, const std::vector<Value>& arguments = {});
// The low byte of a raw result as a boolean.
bool booleanFromHost(const Value& result);

}  // namespace vorn
