#import <Foundation/Foundation.h>
#include <objc/runtime.h>

#include <cstdlib>
#include <cstring>

#include "platform/apple/AppleClassRuntime.h"
#include "platform/apple/CatchRaised.h"
#include "platform/apple/Conversions.h"
#include "platform/apple/Ownership.h"
#include "tests/conformance/ConformanceWorld.h"

// Not owned.
static NSException* lastRaised = nil;

// The pattern of the host's class. Each world has a class of its own with these methods.
@interface vnConformanceProbe : NSObject {
  id m_remembered;
}
@end

@implementation vnConformanceProbe
+ (NSString*)make {
  return @"made";
}
+ (NSString*)callsMake {
  return [self make];
}
- (NSString*)name {
  return @"probe";
}
- (NSString*)callsName {
  return [self name];
}
- (id)echo:(id)object {
  return object;
}
- (BOOL)isNot:(BOOL)flag {
  return !flag;
}
- (int)low:(BOOL)flag {
  return flag;
}
- (double)half:(double)number {
  return number / 2;
}
- (long long)add:(long long)first to:(long long)second {
  return first + second;
}
- (NSRect)moved:(NSRect)rectangle {
  return NSOffsetRect(rectangle, 10, 20);
}
- (int)lengthOf:(const char*)text {
  return text ? static_cast<int>(strlen(text)) : -1;
}
- (NSString*)dragged:(NSString*)event
                  by:(id)tile
                  at:(NSString*)start
             lasting:(double)seconds
          inProgress:(BOOL*)flag
                from:(BOOL)from
                  to:(BOOL)to {
  (void)tile;
  if (flag) *flag = YES;
  return vorn::foundationText(vorn::wordsOfDrag(vorn::textFromFoundation(event), vorn::textFromFoundation(start),
                                                seconds, from != NO, to != NO));
}
- (void*)ended:(id)alert code:(int)code context:(void*)context {
  (void)alert;
  return code == -2 ? context : nullptr;
}
- (unsigned)next:(unsigned)number {
  return number + 1;
}
- (id)itself {
  return self;
}
- (void)remember:(id)object {
  [object retain];
  [m_remembered release];
  m_remembered = object;
}
- (id)remembered {
  return m_remembered;
}
- (id)makePart {
  return [[[[self class] alloc] init] autorelease];
}
- (void)raise {
  lastRaised = [NSException exceptionWithName:NSGenericException reason:@"in trouble" userInfo:nil];
  [lastRaised raise];
}
- (void)callsRaise {
  [self raise];
}
- (void)dealloc {
  [m_remembered release];
  [super dealloc];
}
@end

namespace vorn {

namespace {

void copyMethods(Class from, Class to) {
  unsigned count = 0;
  Method* methods = class_copyMethodList(from, &count);
  for (unsigned i = 0; i < count; ++i) {
    class_addMethod(to, method_getName(methods[i]), method_getImplementation(methods[i]),
                    method_getTypeEncoding(methods[i]));
  }
  std::free(methods);
}

class AppleWorld final : public ConformanceWorld {
 public:
  AppleWorld() : m_number(++worlds()) {
    const Class pattern = [vnConformanceProbe class];
    const Class probe = define("Probe", pattern);
    copyMethods(pattern, probe);
    copyMethods(object_getClass(pattern), object_getClass(probe));
    define("ProbeHeir", "Probe");
    define("ProbeSibling", "Probe");
  }

  ClassRuntime& runtime() override { return m_runtime; }
  std::string className(const std::string& shortName) const override {
    return shortName + std::to_string(m_number);
  }
  HostObject create(const std::string& shortName) override {
    const id made = [[objc_lookUpClass(className(shortName).c_str()) alloc] init];
    return LiveObjects::instance().reference(made, LiveObjects::Holding::never);
  }
  void end(const HostObject& object) override { [LiveObjects::instance().object(object) release]; }
  void define(const std::string& shortName, const std::string& parent) override {
    define(shortName, objc_lookUpClass(className(parent).c_str()));
  }
  std::string hostMeets(const HostObject& object, const std::string& selector) override {
    struct Sending {
      id receiver;
      SEL selector;
    } sending{LiveObjects::instance().object(object), sel_registerName(selector.c_str())};
    const auto send = [](void* context) {
      const auto& one = *static_cast<const Sending*>(context);
      [one.receiver performSelector:one.selector];
    };
    const id raised = [vnCatchRaised(send, &sending) autorelease];
    if (!raised) return "";
    return raised == lastRaised ? textFromFoundation([lastRaised reason]) : "something else";
  }
  std::string hostAsksForName(const HostObject& object) override {
    return textFromFoundation([LiveObjects::instance().object(object) name]);
  }
  bool hostDrags(const HostObject& object) override {
    BOOL flag = NO;
    vnConformanceProbe* probe = LiveObjects::instance().object(object);
    [probe dragged:@"event" by:nil at:@"start" lasting:2.5 inProgress:&flag from:YES to:NO];
    return flag;
  }

 private:
  static int& worlds() {
    static int count = 0;
    return count;
  }

  Class define(const std::string& shortName, Class parent) {
    const Class made = objc_allocateClassPair(parent, className(shortName).c_str(), 0);
    objc_registerClassPair(made);
    return made;
  }

  AutoreleasePool m_pool;
  int m_number;
  AppleClassRuntime m_runtime;
};

}  // namespace

std::unique_ptr<ConformanceWorld> makeAppleWorld() { return std::make_unique<AppleWorld>(); }

}  // namespace vorn
