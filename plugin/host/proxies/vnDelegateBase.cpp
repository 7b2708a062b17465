#include "host/proxies/vnDelegateBase.h"

#include "platform/ClassRuntime.h"
#include "platform/Registry.h"
#include "util/vnOLUtils.h"

namespace vorn {

namespace {

ClassRuntime* classRuntime() { return Registry::platform().classRuntime; }

}  // namespace

vnDelegateBase::vnDelegateBase(std::string_view className, const HostObject& delegate) : m_className(className) {
  if (isKindOfHostClass(delegate, className)) m_delegate = delegate;
}

bool vnDelegateBase::isValidConnection() const { return isKindOfHostClass(m_delegate, m_className); }

Value vnDelegateBase::getOLItemID(std::string_view selector) const { return sendChecked(selector, {}); }

Value vnDelegateBase::getOLItemID(std::string_view selector, const Value& first) const {
  return sendChecked(selector, {first});
}

Value vnDelegateBase::getOLItemID(std::string_view selector, const Value& first, const Value& second) const {
  return sendChecked(selector, {first, second});
}

Value vnDelegateBase::sendChecked(std::string_view selector, const std::vector<Value>& arguments) const {
  if (selector.empty() || !isValidConnection()) return {};
  ClassRuntime& runtime = *classRuntime();
  if (!runtime.respondsTo(m_delegate, selector)) return {};
  return runtime.send(m_delegate, selector, arguments);
}

bool vnDelegateBase::flag(std::string_view selector) const { return booleanFromHost(getOLItemID(selector)); }

bool vnDelegateBase::answers(std::string_view selector) const {
  return isValidConnection() && classRuntime()->respondsTo(m_delegate, selector);
}

std::string vnDelegateBase::ownClassName(const HostObject& object) {
  ClassRuntime* runtime = classRuntime();
  return runtime && object ? runtime->className(object) : std::string();
}

bool isKindOfHostClass(const HostObject& object, std::string_view className) {
  return object && vnOLUtils::kindofClass(object, className);
}

bool isExactlyOfHostClass(const HostObject& object, std::string_view className) {
  ClassRuntime* runtime = classRuntime();
  return runtime && object && !className.empty() && runtime->className(object) == className;
}

Value askHost(const HostObject& object, std::string_view selector, const std::vector<Value>& arguments) {
  ClassRuntime* runtime = classRuntime();
  if (!runtime || !object || !runtime->respondsTo(object, selector)) return {};
  return runtime->send(object, selector, arguments);
}

bool booleanFromHost(const Value& result) {
  if (result.isInteger()) return (result.integerValue() & 0xff) != 0;
  return result.boolValue();
}

}  // namespace vorn
