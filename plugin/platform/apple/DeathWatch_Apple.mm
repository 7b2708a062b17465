// Where objects can carry others: one that ends with its carrier.

#import <Foundation/Foundation.h>
#import <objc/runtime.h>

#include "platform/apple/DeathWatch.h"

@interface vnDeathSentinel : NSObject {
 @public
  // Not retained, and only an address at the end.
  void* watched_;
  void (*died_)(id object);
}
@end

@implementation vnDeathSentinel
- (void)dealloc {
  died_(reinterpret_cast<id>(watched_));
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
  sentinel->watched_ = reinterpret_cast<void*>(object);
  sentinel->died_ = died;
  objc_setAssociatedObject(object, &kSentinel, sentinel, OBJC_ASSOCIATION_RETAIN);
  [sentinel release];
}

}  // namespace vorn
