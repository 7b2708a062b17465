#include "platform/apple/HostExceptions.h"

#import <Foundation/Foundation.h>

#include <exception>
#include <utility>

#include "platform/apple/CatchRaised.h"
#include "platform/apple/Ownership.h"

namespace vorn {

namespace {

class Kept {
 public:
  explicit Kept(Retained<> object) : m_object(std::move(object)) {}
  explicit Kept(std::exception_ptr other) : m_other(std::move(other)) {}

  id object() const { return m_object.get(); }
  const std::exception_ptr& other() const { return m_other; }

 private:
  Retained<> m_object;
  std::exception_ptr m_other;
};

}  // namespace

HostException exceptionFrom(void (*body)(void* context), void* context) {
  try {
    auto raised = Retained<>::adopted(vnCatchRaised(body, context));
    return raised.get() ? std::make_shared<Kept>(std::move(raised)) : nullptr;
  } catch (...) {
    return std::make_shared<Kept>(std::current_exception());
  }
}

void raiseAgain(HostException exception) {
  const auto& kept = *static_cast<const Kept*>(exception.get());
  const id object = [[kept.object() retain] autorelease];
  std::exception_ptr other = kept.other();
  exception.reset();
  if (object) @throw object;
  std::rethrow_exception(std::move(other));
}

}  // namespace vorn
