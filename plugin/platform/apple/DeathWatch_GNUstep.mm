// GNUstep's objects carry no others. Every one of them ends in the root class's dealloc, so that is where we look.

#import <Foundation/Foundation.h>
#include <objc/runtime.h>

#include "platform/apple/DeathWatch.h"

namespace vorn {

namespace {

using Dealloc = void (*)(id self, SEL selector);
// What all implementations pass for; the compiler allows no straight way from one type to the other.
using AnyFunction = void (*)();

Dealloc originalDealloc = nullptr;
void (*tell)(id object) = nullptr;

void deallocAndTell(id self, SEL selector) {
  tell(self);
  originalDealloc(self, selector);
}

}  // namespace

void watchDeath(id, void (*died)(id object)) {
  // One watcher is enough for this system, and it knows by itself which objects it wants to hear of.
  if (originalDealloc) return;
  tell = died;
  const Method dealloc = class_getInstanceMethod([NSObject class], @selector(dealloc));
  originalDealloc = reinterpret_cast<Dealloc>(reinterpret_cast<AnyFunction>(method_getImplementation(dealloc)));
  method_setImplementation(dealloc, reinterpret_cast<IMP>(reinterpret_cast<AnyFunction>(deallocAndTell)));
}

}  // namespace vorn
