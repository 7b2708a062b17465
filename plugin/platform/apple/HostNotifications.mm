#include "platform/apple/HostNotifications.h"

#import <Foundation/Foundation.h>

#include "platform/apple/Conversions.h"

// What the host's center calls.
@interface vnNotificationForwarder : NSObject {
 @public
  // Not owned.
  void* m_center;
}
- (void)forward:(NSNotification*)notification;
@end

@implementation vnNotificationForwarder
- (void)forward:(NSNotification*)notification {
  try {
    static_cast<vorn::NotificationCenter*>(m_center)->post(
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
  forwarder->m_center = &center;
  [[NSNotificationCenter defaultCenter] addObserver:forwarder
                                           selector:@selector(forward:)
                                               name:foundationText(name)
                                             object:nil];
  m_forwarder = Retained<>::adopted(forwarder);
}

HostNotifications::~HostNotifications() {
  [[NSNotificationCenter defaultCenter] removeObserver:m_forwarder.get()];
}

}  // namespace vorn
