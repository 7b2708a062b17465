// The views of an editor, and texts.

#import "lab/objc/HostClasses.h"

@implementation OLAttachmentsAcceptingView
- (id)initWithFrame:(NSRect)frame {
  return [super initWithFrame:frame];
}
@end

@implementation OLCalendarHeaderContainerView
- (void)drawRect:(NSRect)dirty {
  [super drawRect:dirty];
}
- (NSArray*)managedSubviewsData {
  return [self subviews];
}
@end

@implementation OLAutoLayoutView
- (void)drawRect:(NSRect)dirty {
  [super drawRect:dirty];
}
@end

@implementation OLAutoLayoutAttachmentsAcceptingView
- (id)initWithFrame:(NSRect)frame {
  return [super initWithFrame:frame];
}
- (void)drawRect:(NSRect)dirty {
  [super drawRect:dirty];
}
@end

namespace vornlab {

NSString* foundationText(std::string_view text) {
  return [[[NSString alloc] initWithBytes:text.data() length:text.size()
                                 encoding:NSUTF8StringEncoding] autorelease];
}

NSString* foundationText(const std::string& text) { return foundationText(std::string_view(text)); }

NSString* foundationText(const vorn::OptionalText& text) {
  return text ? foundationText(std::string_view(*text)) : nil;
}

std::string plainText(NSString* text) {
  // A text may hold a zero, at which a C string would end.
  const char* bytes = [text UTF8String];
  return bytes ? std::string(bytes, [text lengthOfBytesUsingEncoding:NSUTF8StringEncoding]) : "";
}

}  // namespace vornlab

namespace vornlab {

NSView* barIn(NSView* header) {
  NSEnumerator* views = [[header subviews] objectEnumerator];
  while (NSView* view = [views nextObject]) {
    if ([NSStringFromClass([view class]) isEqual:@"vnActionAdditionView"]) return view;
  }
  return nil;
}

}  // namespace vornlab
