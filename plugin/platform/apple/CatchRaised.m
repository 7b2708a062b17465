#import "platform/apple/CatchRaised.h"

#import <Foundation/NSObject.h>

id vnCatchRaised(void (*body)(void* context), void* context) {
  @try {
    body(context);
  } @catch (id raised) {
    return [raised retain];
  }
  return nil;
}
