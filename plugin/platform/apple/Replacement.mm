#include "platform/apple/Replacement.h"

#import <Foundation/Foundation.h>

#include <cstring>

#include "platform/apple/HostExceptions.h"
#include "platform/apple/LiveObjects.h"

namespace vorn {

namespace {

// The calls that are being replaced now, the innermost last. They belong to the process's stack, not to a runtime.
std::vector<Replacement::Call*>& callsInProgress() {
  static std::vector<Replacement::Call*> calls;
  return calls;
}

// Each hooked call asks, and Foundation takes long to answer: it is asked once on each thread.
bool isOnMainThread() {
  thread_local const bool answer = [NSThread isMainThread];
  return answer;
}

class InProgress {
 public:
  explicit InProgress(Replacement::Call& call) { callsInProgress().push_back(&call); }
  ~InProgress() { callsInProgress().pop_back(); }
  InProgress(const InProgress&) = delete;
  InProgress& operator=(const InProgress&) = delete;
};

// The very object that the host's own method answered; any other result from its value.
void writeForwarded(const MethodSignature& signature, const Replacement::Call& call, void* result) {
  if (!signature.result().isObject()) return signature.result().writeResult(call.forwardedValue, result);
  const id original = [[call.forwardedResult.get() retain] autorelease];
  std::memcpy(result, &original, sizeof original);
}

}  // namespace

void Replacement::Call::setForwarded(id result, const Value& value) {
  isForwarded = true;
  forwardedResult = Retained<>(result);
  forwardedValue = value;
}

Replacement::Replacement(Implementation implementation, CharacterPointers characters)
    : m_implementation(std::move(implementation)), m_characters(characters) {
  void* code = nullptr;
  m_closure = static_cast<ffi_closure*>(ffi_closure_alloc(sizeof(ffi_closure), &code));
  if (m_closure) m_code = reinterpret_cast<IMP>(code);
}

Replacement::~Replacement() {
  if (m_closure) ffi_closure_free(m_closure);
}

std::unique_ptr<Replacement> Replacement::make(Implementation implementation,
                                               std::shared_ptr<MethodSignature> signature,
                                               CharacterPointers characters) {
  std::unique_ptr<Replacement> made(new Replacement(std::move(implementation), characters));
  if (!made->m_closure) return nullptr;
  made->setSignature(std::move(signature));
  return made;
}

void Replacement::setSignature(std::shared_ptr<MethodSignature> signature) {
  m_signature = std::move(signature);
  ffi_prep_closure_loc(m_closure, &m_signature->call(), &Replacement::enter, this,
                       reinterpret_cast<void*>(m_code));
}

void Replacement::setSelectors(SEL first, SEL second) {
  m_first = first;
  m_second = second;
}

Replacement::Call* Replacement::forwardedBy(id receiver, SEL selector) {
  const auto& calls = callsInProgress();
  for (auto call = calls.rbegin(); call != calls.rend(); ++call) {
    if ((*call)->receiver == receiver && (*call)->replacement->isForwardedBy((*call)->selector, selector))
      return *call;
  }
  return nullptr;
}

SEL Replacement::otherSelector(SEL entered) const {
  if (!m_first) return nullptr;
  if (sel_isEqual(entered, m_first)) return m_second;
  return sel_isEqual(entered, m_second) ? m_first : nullptr;
}

bool Replacement::isForwardedBy(SEL entered, SEL sent) const {
  const SEL other = otherSelector(entered);
  return other && sel_isEqual(sent, other);
}

void Replacement::enter(ffi_cif*, void* result, void** arguments, void* replacement) {
  HostException raised;
  try {
    raised = static_cast<Replacement*>(replacement)->run(result, arguments);
  } catch (...) {
    // Not even the host's own method could be run; its call answers with the zero that stands there.
  }
  if (raised) raiseAgain(std::move(raised));
}

HostException Replacement::run(void* result, void** arguments) {
  // Both may be exchanged for others while the call is running.
  const std::shared_ptr<MethodSignature> signature = m_signature;
  std::memset(result, 0, signature->resultSize());
  if (!isOnMainThread()) return runHostsOwn(*signature, result, arguments);
  Call call;
  call.replacement = this;
  std::memcpy(&call.receiver, arguments[0], sizeof(id));
  std::memcpy(&call.selector, arguments[1], sizeof(SEL));
  return runGuarded(*signature, call, result, arguments);
}

HostException Replacement::runGuarded(MethodSignature& signature, Call& call, void* result, void** arguments) {
  try {
    runOurs(signature, call, result, arguments);
    return nullptr;
  } catch (const HostRaised& raised) {
    return raised.exception;
  } catch (...) {
    // No exception of ours may enter the host. It works as if we were not there, and its method runs only once.
  }
  if (call.isForwarded) {
    writeForwarded(signature, call, result);
    return nullptr;
  }
  const HostObject receiver(reinterpret_cast<std::uintptr_t>(call.receiver));
  return LiveObjects::instance().object(receiver) ? runHostsOwn(signature, result, arguments) : nullptr;
}

void Replacement::runOurs(const MethodSignature& signature, Call& call, void* result, void** arguments) {
  const HostObject receiver = LiveObjects::instance().reference(call.receiver, LiveObjects::Holding::never);
  readArguments(signature, arguments, call);
  const InProgress inProgress(call);
  const Value answer = m_implementation(receiver, call.arguments);
  const bool isForwardedObject =
      signature.result().isObject() && call.isForwarded && answer == call.forwardedValue;
  if (isForwardedObject) return writeForwarded(signature, call, result);
  signature.result().writeResult(answer, result);
}

HostException Replacement::runHostsOwn(MethodSignature& signature, void* result, void** arguments) const {
  id receiver = nil;
  SEL entered = nullptr;
  std::memcpy(&receiver, arguments[0], sizeof receiver);
  std::memcpy(&entered, arguments[1], sizeof entered);
  SEL hosts = otherSelector(entered);
  if (!hosts) return nullptr;
  const IMP code = class_getMethodImplementation(object_getClass(receiver), hosts);
  std::vector<void*> native(arguments, arguments + signature.argumentCount() + 2);
  native[1] = &hosts;
  return exceptionFrom([&] { ffi_call(&signature.call(), FFI_FN(code), result, native.data()); });
}

void Replacement::readArguments(const MethodSignature& signature, void** arguments, Call& call) const {
  for (std::size_t i = 0; i < signature.argumentCount(); ++i) {
    call.native.push_back(arguments[i + 2]);
    try {
      call.arguments.push_back(signature.argument(i).readArgument(arguments[i + 2], m_characters));
    } catch (...) {
      // An object of the host that raises when it is looked at. It is absent to us, and forwarded as it came.
      call.arguments.emplace_back();
    }
  }
}

}  // namespace vorn
