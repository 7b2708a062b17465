// The host of the Objective-C runtime.

#include "bench/HookedHost.h"

#import <Foundation/Foundation.h>

#include <optional>

#include "platform/apple/AppleClassRuntime.h"
#include "platform/apple/Conversions.h"
#include "platform/apple/Ownership.h"

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
  ObjectiveCHost() { [m_event.get() setOlmUCInband:m_record.get()]; }
  ObjectiveCHost(const ObjectiveCHost&) = delete;
  ObjectiveCHost& operator=(const ObjectiveCHost&) = delete;

  vorn::ClassRuntime& runtime() override { return m_runtime; }
  vorn::HostObject event() override {
    return vorn::LiveObjects::instance().reference(m_event.get(), vorn::LiveObjects::Holding::never);
  }
  void readFlag(bool hooked) override {
    hooked ? [m_event.get() hookedIsOccurrence] : [m_event.get() isOccurrence];
  }
  void readRecord(bool hooked) override {
    if (!hooked) {
      [m_event.get() olmUCInband];
      return;
    }
    // What the replacement answers ends with its caller's pool; a host empties that at each turn of its loop.
    [m_event.get() hookedOlmUCInband];
    if (++m_answers % kAnswersAPool != 0) return;
    m_pool.reset();
    m_pool.emplace();
  }
  void writeRecord(bool hooked) override {
    hooked ? [m_event.get() setHookedOlmUCInband:m_record.get()] : [m_event.get() setOlmUCInband:m_record.get()];
  }

 private:
  static constexpr int kAnswersAPool = 100;

  std::optional<vorn::AutoreleasePool> m_pool{std::in_place};
  vorn::Retained<NSString*> m_record{vorn::foundationText(record())};
  vorn::Retained<ECCalendarEvent*> m_event =
      vorn::Retained<ECCalendarEvent*>::adopted([[ECCalendarEvent alloc] init]);
  vorn::AppleClassRuntime m_runtime;
  int m_answers = 0;
};

}  // namespace

std::unique_ptr<HookedHost> makeObjectiveCHost() { return std::make_unique<ObjectiveCHost>(); }
