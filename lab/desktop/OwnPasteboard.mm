#include "lab/desktop/OwnPasteboard.h"

#import <AppKit/AppKit.h>
#import <objc/runtime.h>

// What was put into it, by type; what its owner only promised is fetched when it is asked for.
@interface vnOwnPasteboard : NSPasteboard {
  NSString* m_name;
  NSMutableArray* m_types;
  NSMutableDictionary* m_contents;
  // Not owned, as with any pasteboard.
  id m_owner;
  NSInteger m_changes;
}
+ (NSPasteboard*)boardNamed:(NSString*)name;
@end

@implementation vnOwnPasteboard
+ (NSPasteboard*)boardNamed:(NSString*)name {
  static NSMutableDictionary* boards = [[NSMutableDictionary alloc] init];
  vnOwnPasteboard* board = [boards objectForKey:name];
  if (board) return board;
  board = [[[vnOwnPasteboard alloc] init] autorelease];
  board->m_name = [name copy];
  board->m_types = [[NSMutableArray alloc] init];
  board->m_contents = [[NSMutableDictionary alloc] init];
  [boards setObject:board forKey:name];
  return board;
}
- (void)dealloc {
  [m_name release];
  [m_types release];
  [m_contents release];
  [super dealloc];
}
- (NSString*)name {
  return m_name;
}
- (NSInteger)declareTypes:(NSArray*)types owner:(id)promising {
  [m_types removeAllObjects];
  [m_contents removeAllObjects];
  ++m_changes;
  return [self addTypes:types owner:promising];
}
- (NSInteger)addTypes:(NSArray*)types owner:(id)promising {
  m_owner = promising;
  [m_types addObjectsFromArray:types];
  return m_changes;
}
- (NSInteger)changeCount {
  return m_changes;
}
- (NSArray*)types {
  return [NSArray arrayWithArray:m_types];
}
- (NSString*)availableTypeFromArray:(NSArray*)types {
  return [types firstObjectCommonWithArray:m_types];
}
- (BOOL)setData:(NSData*)data forType:(NSString*)type {
  if (!data || ![m_types containsObject:type]) return NO;
  [m_contents setObject:data forKey:type];
  return YES;
}
- (BOOL)setString:(NSString*)text forType:(NSString*)type {
  return [self setData:[text dataUsingEncoding:NSUTF8StringEncoding] forType:type];
}
- (NSData*)dataForType:(NSString*)type {
  NSData* data = [m_contents objectForKey:type];
  if (data || ![m_types containsObject:type]) return data;
  if ([m_owner respondsToSelector:@selector(pasteboard:provideDataForType:)])
    [m_owner pasteboard:self provideDataForType:type];
  return [m_contents objectForKey:type];
}
- (NSString*)stringForType:(NSString*)type {
  NSData* data = [self dataForType:type];
  return data ? [[[NSString alloc] initWithData:data encoding:NSUTF8StringEncoding] autorelease] : nil;
}
- (void)releaseGlobally {
}
@end

namespace vornlab {

void useOwnPasteboards() {
  const Method theirs = class_getClassMethod([NSPasteboard class], @selector(pasteboardWithName:));
  const Method ours = class_getClassMethod([vnOwnPasteboard class], @selector(boardNamed:));
  method_setImplementation(theirs, method_getImplementation(ours));
}

}  // namespace vornlab
