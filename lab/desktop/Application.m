#include "lab/desktop/Application.h"

#import <AppKit/AppKit.h>

BOOL vnMakeApplication(void) {
  @try {
    return [NSApplication sharedApplication] != nil;
  } @catch (NSException* refused) {
    return NO;
  }
}
