// The host of the Objective-C runtime.

#include "bench/HookedHost.h"

#import <Foundation/Foundation.h>

#include "platform/apple/AppleClassRuntime.h"
#include "platform/apple/Conversions.h"

@interface ECCalendarEvent : NSObject {
  NSString* m_record;
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
  return m_record;
}
- (NSString*)hookedOlmUCInband {
  return m_record;
}
- (void)setOlmUCInband:(NSString*)record {
  [record retain];
  [m_record release];
  m_record = record;
}
- (void)setHookedOlmUCInband:(NSString*)record {
  [record retain];
  [m_record release];
  m_record = record;
}
- (void)dealloc {
  [m_record release];
  [super dealloc];
}
@end

namespace {

class ObjectiveCHost final : public HookedHost {
 public:
  ObjectiveCHost() { [m_event setOlmUCInband:m_record]; }
  ~ObjectiveCHost() override {
    [m_event release];
    [m_record release];
    [m_pool drain];
  }
  ObjectiveCHost(const ObjectiveCHost&) = delete;
  ObjectiveCHost& operator=(const ObjectiveCHost&) = delete;

  vorn::ClassRuntime& runtime() override { return m_runtime; }
  vorn::HostObject event() override {
    return vorn::LiveObjects::instance().reference(m_event, vorn::LiveObjects::Holding::never);
  }
  void readFlag(bool hooked) override { hooked ? [m_event hookedIsOccurrence] : [m_event isOccurrence]; }
  void readRecord(bool hooked) override {
    if (!hooked) {
      [m_event olmUCInband];
      return;
    }
    // What the replacement answers ends with its caller's pool; a host empties that at each turn of its loop.
    [m_event hookedOlmUCInband];
    if (++m_answers % kAnswersAPool == 0) emptyPool();
  }
  void writeRecord(bool hooked) override {
    hooked ? [m_event setHookedOlmUCInband:m_record] : [m_event setOlmUCInband:m_record];
  }

 private:
  static constexpr int kAnswersAPool = 100;

  void emptyPool() {
    [m_pool drain];
    m_pool = [[NSAutoreleasePool alloc] init];
  }

  NSAutoreleasePool* m_pool = [[NSAutoreleasePool alloc] init];
  NSString* m_record = [vorn::foundationText(record()) retain];
  ECCalendarEvent* m_event = [[ECCalendarEvent alloc] init];
  vorn::AppleClassRuntime m_runtime;
  int m_answers = 0;
};

}  // namespace

std::unique_ptr<HookedHost> makeObjectiveCHost() { return std::make_unique<ObjectiveCHost>(); }
