#include "platform/apple/HostNotifications.h"

#import <Foundation/Foundation.h>

#include "platform/apple/Conversions.h"

// What the host's center calls.
@interface vnNotificationForwarder : NSObject {
 @public
  // Not owned.
  void* center_;
}
- (void)forward:(NSNotification*)notification;
@end

@implementation vnNotificationForwarder
- (void)forward:(NSNotification*)notification {
  try {
    static_cast<vorn::NotificationCenter*>(center_)->post(
        vorn::textFromFoundation([notification name]), static_cast<const void*>([notification object]),
        vorn::valueFromObject(notification, vorn::LiveObjects::Holding::never));
  } catch (...) {
    // No exception of ours may enter the host.
  }
}
@end

namespace vorn {

HostNotifications::HostNotifications(NotificationCenter& center, std::string_view name) {
  vnNotificationForwarder* forwarder = [[vnNotificationForwarder alloc] init];
  forwarder->center_ = &center;
  [[NSNotificationCenter defaultCenter] addObserver:forwarder
                                           selector:@selector(forward:)
                                               name:foundationText(name)
                                             object:nil];
  forwarder_ = forwarder;
}

HostNotifications::~HostNotifications() {
  const id forwarder = static_cast<id>(forwarder_);
  [[NSNotificationCenter defaultCenter] removeObserver:forwarder];
  [forwarder release];
}

}  // namespace vorn
