#include "platform/apple/AppleDistributedNotifications.h"

#import <Foundation/Foundation.h>

#include "platform/apple/Conversions.h"
#include "platform/apple/Ownership.h"

// What the center calls for one subscription.
@interface vnDistributedObserver : NSObject {
 @public
  // Null when the subscription has ended; not owned.
  const vorn::DistributedNotifications::Handler* m_handler;
}
- (void)receive:(NSNotification*)notification;
@end

@implementation vnDistributedObserver
- (void)receive:(NSNotification*)notification {
  if (!m_handler) return;
  [[self retain] autorelease];
  const vorn::DistributedNotifications::Handler handler = *m_handler;
  try {
    handler(vorn::valueFromObject([notification userInfo], vorn::LiveObjects::Holding::never));
  } catch (...) {
    // No exception of ours may enter the center.
  }
}
@end

namespace vorn {

namespace {

class Registration final : public DistributedNotifications::Subscription {
 public:
  Registration(std::string_view name, DistributedNotifications::Handler handler)
      : m_handler(std::move(handler)),
        m_observer(Retained<vnDistributedObserver*>::adopted([[vnDistributedObserver alloc] init])) {
    m_observer.get()->m_handler = &m_handler;
    try {
      [[NSDistributedNotificationCenter defaultCenter]
                 addObserver:m_observer.get()
                    selector:@selector(receive:)
                        name:foundationText(name)
                      object:nil
          suspensionBehavior:NSNotificationSuspensionBehaviorDeliverImmediately];
    } catch (...) {
      // Raised where the service cannot be reached.
    }
  }
  ~Registration() override {
    m_observer.get()->m_handler = nullptr;
    try {
      [[NSDistributedNotificationCenter defaultCenter] removeObserver:m_observer.get()];
    } catch (...) {
    }
  }
  Registration(const Registration&) = delete;
  Registration& operator=(const Registration&) = delete;

 private:
  DistributedNotifications::Handler m_handler;
  Retained<vnDistributedObserver*> m_observer;
};

}  // namespace

void AppleDistributedNotifications::post(std::string_view name, const Value& userInfo) {
  const AutoreleasePool pool;
  try {
    [[NSDistributedNotificationCenter defaultCenter]
        postNotificationName:foundationText(name)
                      object:nil
                    userInfo:userInfo.isDictionary() ? objectFromValue(userInfo) : nil
          deliverImmediately:YES];
  } catch (...) {
    // No failure of a post is reported to anybody.
  }
}

std::unique_ptr<DistributedNotifications::Subscription> AppleDistributedNotifications::observe(
    std::string_view name, Handler handler) {
  return std::make_unique<Registration>(name, std::move(handler));
}

}  // namespace vorn
