#include "platform/apple/HostExceptions.h"

#import <Foundation/Foundation.h>

#include <exception>
#include <utility>

#include "platform/apple/CatchRaised.h"

namespace vorn {

namespace {

class Kept {
 public:
  // The object is retained for this one.
  explicit Kept(id object) : m_object(object) {}
  explicit Kept(std::exception_ptr other) : m_other(std::move(other)) {}
  ~Kept() { [m_object release]; }
  Kept(const Kept&) = delete;
  Kept& operator=(const Kept&) = delete;

  id object() const { return m_object; }
  const std::exception_ptr& other() const { return m_other; }

 private:
  id m_object = nil;
  std::exception_ptr m_other;
};

}  // namespace

HostException exceptionFrom(void (*body)(void* context), void* context) {
  try {
    const id raised = vnCatchRaised(body, context);
    return raised ? std::make_shared<Kept>(raised) : nullptr;
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
