// The host of the Objective-C runtime.

#include "bench/HookedHost.h"

#import <Foundation/Foundation.h>

#include "platform/apple/AppleClassRuntime.h"
#include "platform/apple/Conversions.h"

@interface ECCalendarEvent : NSObject {
  NSString* record_;
}
- (BOOL)isOccurrence;
- (BOOL)hookedIsOccurrence;
- (NSString*)olmUCInband;
- (NSString*)hookedOlmUCInband;
- (void)setOlmUCInband:(NSString*)record;
- (void)setHookedOlmUCInband:(NSString*)record;
@end

@implementation ECCalendarEvent
- (BOOL)isOccurrence {
  return YES;
}
- (BOOL)hookedIsOccurrence {
  return YES;
}
- (NSString*)olmUCInband {
  return record_;
}
- (NSString*)hookedOlmUCInband {
  return record_;
}
- (void)setOlmUCInband:(NSString*)record {
  [record retain];
  [record_ release];
  record_ = record;
}
- (void)setHookedOlmUCInband:(NSString*)record {
  [record retain];
  [record_ release];
  record_ = record;
}
- (void)dealloc {
  [record_ release];
  [super dealloc];
}
@end

namespace {

class ObjectiveCHost final : public HookedHost {
 public:
  ObjectiveCHost() { [event_ setOlmUCInband:record_]; }
  ~ObjectiveCHost() override {
    [event_ release];
    [record_ release];
    [pool_ drain];
  }
  ObjectiveCHost(const ObjectiveCHost&) = delete;
  ObjectiveCHost& operator=(const ObjectiveCHost&) = delete;

  vorn::ClassRuntime& runtime() override { return runtime_; }
  vorn::HostObject event() override {
    return vorn::LiveObjects::instance().reference(event_, vorn::LiveObjects::Holding::never);
  }
  void readFlag(bool hooked) override { hooked ? [event_ hookedIsOccurrence] : [event_ isOccurrence]; }
  void readRecord(bool hooked) override {
    if (!hooked) {
      [event_ olmUCInband];
      return;
    }
    // What the replacement answers ends with its caller's pool; a host empties that at each turn of its loop.
    [event_ hookedOlmUCInband];
    if (++answers_ % kAnswersAPool == 0) emptyPool();
  }
  void writeRecord(bool hooked) override {
    hooked ? [event_ setHookedOlmUCInband:record_] : [event_ setOlmUCInband:record_];
  }

 private:
  static constexpr int kAnswersAPool = 100;

  void emptyPool() {
    [pool_ drain];
    pool_ = [[NSAutoreleasePool alloc] init];
  }

  NSAutoreleasePool* pool_ = [[NSAutoreleasePool alloc] init];
  NSString* record_ = [vorn::foundationText(record()) retain];
  ECCalendarEvent* event_ = [[ECCalendarEvent alloc] init];
  vorn::AppleClassRuntime runtime_;
  int answers_ = 0;
};

}  // namespace

std::unique_ptr<HookedHost> makeObjectiveCHost() { return std::make_unique<ObjectiveCHost>(); }
