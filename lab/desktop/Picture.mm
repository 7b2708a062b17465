#import "lab/desktop/Picture.h"

#import <AppKit/AppKit.h>

#include "lab/shell/LabError.h"

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

}  // namespace vornlab
