// Where objects can carry others: one that ends with its carrier.

#import <Foundation/Foundation.h>
#import <objc/runtime.h>

#include "platform/apple/DeathWatch.h"

@interface vnDeathSentinel : NSObject {
 @public
  // Not retained, and only an address at the end.
  void* m_watched;
  void (*m_died)(id object);
}
@end

@implementation vnDeathSentinel
- (void)dealloc {
  m_died(reinterpret_cast<id>(m_watched));
  [super dealloc];
}
@end

namespace vorn {

namespace {

// Associated data is found by this address.
constexpr char kSentinel = 0;

}  // namespace

void watchDeath(id object, void (*died)(id object)) {
  vnDeathSentinel* sentinel = [[vnDeathSentinel alloc] init];
  sentinel->m_watched = reinterpret_cast<void*>(object);
  sentinel->m_died = died;
  objc_setAssociatedObject(object, &kSentinel, sentinel, OBJC_ASSOCIATION_RETAIN);
  [sentinel release];
}

}  // namespace vorn
