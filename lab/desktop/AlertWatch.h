#pragma once

#import <AppKit/AppKit.h>

#include <deque>
#include <string>
#include <vector>

#include "platform/Presenter.h"

namespace vornlab {

// What has been asked of a person who sits before the screen, and what is to be answered.
struct AlertDeskOfPerson {
  std::vector<std::string> messages;
  std::deque<vorn::Presenter::Answer> answers;
  // What stopped the person from answering; "" for nothing.
  std::string trouble;
};

}  // namespace vornlab

// A person who reads each alert that comes, and presses the button that was said before; the one by which most
// things are left as they are when nothing was said. The desktop's own question before an editor closes is no
// alert of the plug-in: its answer is not to save.
@interface vnAlertWatch : NSObject {
  NSTimer* m_timer;
  BOOL m_isPressing;
 @public
  // Not owned; outlives this.
  vornlab::AlertDeskOfPerson* m_desk;
}
- (void)begin;
- (void)end;
// Whether a window stands there that only tells something, and asks nothing.
+ (BOOL)isTelling:(NSWindow*)window;
@end
