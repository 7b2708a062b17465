#import "lab/desktop/Picture.h"

#import <AppKit/AppKit.h>

#include <utility>

#import "lab/desktop/AlertWatch.h"
#import "lab/desktop/RealHand.h"
#include "lab/shell/LabError.h"

// Looks until something is asked.
@interface vnQuestionPicture : NSObject {
 @public
  std::filesystem::path m_file;
}
- (void)look:(NSTimer*)timer;
@end

@implementation vnQuestionPicture
- (void)look:(NSTimer*)timer {
  NSWindow* asking = [NSApp modalWindow];
  if (!asking || ![asking isVisible] || [vnAlertWatch isTelling:asking]) return;
  [[self retain] autorelease];
  [timer invalidate];
  vornlab::writePicture(asking, m_file);
  constexpr unichar escape = 0x1b;
  vornlab::pressKey(asking, escape);
  vornlab::wakeLoop();
}
@end

namespace vornlab {

void writePicture(NSWindow* window, const std::filesystem::path& file) {
  NSView* shown = [[window contentView] superview];
  [window display];
  [shown lockFocus];
  NSBitmapImageRep* drawn = [[[NSBitmapImageRep alloc] initWithFocusedViewRect:[shown bounds]] autorelease];
  [shown unlockFocus];
  NSData* png = [drawn representationUsingType:NSPNGFileType properties:[NSDictionary dictionary]];
  NSString* path = [NSString stringWithUTF8String:file.c_str()];
  if (!png || ![png writeToFile:path atomically:YES]) throw LabError("cannot write the picture " + file.string());
}

void pictureOfNextQuestion(std::filesystem::path file) {
  vnQuestionPicture* picture = [[[vnQuestionPicture alloc] init] autorelease];
  picture->m_file = std::move(file);
  constexpr double often = 0.05;
  // It has the picture, and goes with it.
  NSTimer* timer = [NSTimer timerWithTimeInterval:often
                                           target:picture
                                         selector:@selector(look:)
                                         userInfo:nil
                                          repeats:YES];
  [[NSRunLoop currentRunLoop] addTimer:timer forMode:NSModalPanelRunLoopMode];
}

}  // namespace vornlab
