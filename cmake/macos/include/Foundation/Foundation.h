#pragma once

// The classes and functions of Foundation that this project uses, as the system's own header declares them, and no
// others: what is not here cannot be used unseen. For the cross build alone; on a Mac the system's header is used.

#include <limits.h>
#include <objc/NSObject.h>
#include <objc/message.h>
#include <objc/runtime.h>

#ifdef __cplusplus
#define FOUNDATION_EXPORT extern "C"
#else
#define FOUNDATION_EXPORT extern
#endif

@class NSData, NSDate, NSDictionary, NSError, NSString, NSURL;

typedef double CGFloat;
typedef double NSTimeInterval;
typedef unsigned short unichar;

typedef struct CGPoint {
  CGFloat x;
  CGFloat y;
} NSPoint;
typedef struct CGSize {
  CGFloat width;
  CGFloat height;
} NSSize;
typedef struct CGRect {
  NSPoint origin;
  NSSize size;
} NSRect;
typedef struct _NSRange {
  NSUInteger location;
  NSUInteger length;
} NSRange;

static const NSInteger NSNotFound = LONG_MAX;

FOUNDATION_EXPORT const NSRect NSZeroRect;

static inline NSPoint NSMakePoint(CGFloat x, CGFloat y) {
  NSPoint point = {x, y};
  return point;
}
static inline NSSize NSMakeSize(CGFloat width, CGFloat height) {
  NSSize size = {width, height};
  return size;
}
static inline NSRect NSMakeRect(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
  NSRect rect = {{x, y}, {width, height}};
  return rect;
}
static inline CGFloat NSMinX(NSRect rect) { return rect.origin.x; }
static inline CGFloat NSMinY(NSRect rect) { return rect.origin.y; }
static inline CGFloat NSMidX(NSRect rect) { return rect.origin.x + rect.size.width * 0.5; }
static inline CGFloat NSMaxX(NSRect rect) { return rect.origin.x + rect.size.width; }
static inline CGFloat NSMaxY(NSRect rect) { return rect.origin.y + rect.size.height; }
static inline CGFloat NSWidth(NSRect rect) { return rect.size.width; }
static inline CGFloat NSHeight(NSRect rect) { return rect.size.height; }
FOUNDATION_EXPORT NSRect NSInsetRect(NSRect rect, CGFloat x, CGFloat y);
FOUNDATION_EXPORT NSRect NSIntersectionRect(NSRect one, NSRect other);

static inline NSRange NSMakeRange(NSUInteger location, NSUInteger length) {
  NSRange range = {location, length};
  return range;
}
static inline NSUInteger NSMaxRange(NSRange range) { return range.location + range.length; }
FOUNDATION_EXPORT NSRange NSIntersectionRange(NSRange first, NSRange second);

FOUNDATION_EXPORT Class NSClassFromString(NSString* name);
FOUNDATION_EXPORT NSString* NSStringFromSelector(SEL selector);
FOUNDATION_EXPORT NSString* NSHomeDirectory(void);

@protocol NSCopying
- (id)copyWithZone:(struct _NSZone*)zone;
@end
@protocol NSMutableCopying
- (id)mutableCopyWithZone:(struct _NSZone*)zone;
@end

@interface NSObject (NSDelayedPerforming)
- (void)performSelector:(SEL)selector withObject:(id)argument afterDelay:(NSTimeInterval)delay;
@end

@interface NSObject (NSThreadPerformAdditions)
- (void)performSelectorOnMainThread:(SEL)selector withObject:(id)argument waitUntilDone:(BOOL)wait modes:(id)modes;
@end

@interface NSAutoreleasePool : NSObject
- (void)drain;
@end

@interface NSEnumerator : NSObject
- (id)nextObject;
@end

@interface NSArray : NSObject <NSCopying, NSMutableCopying>
@property(readonly) NSUInteger count;
+ (instancetype)array;
+ (instancetype)arrayWithObject:(id)object;
+ (instancetype)arrayWithObjects:(id)first, ... __attribute__((sentinel(0, 1)));
- (NSEnumerator*)objectEnumerator;
- (NSArray*)sortedArrayUsingSelector:(SEL)comparator;
@end

@interface NSMutableArray : NSArray
+ (instancetype)arrayWithCapacity:(NSUInteger)count;
- (void)addObject:(id)object;
@end

@interface NSDictionary : NSObject <NSCopying, NSMutableCopying>
+ (instancetype)dictionaryWithObject:(id)object forKey:(id<NSCopying>)key;
+ (instancetype)dictionaryWithObjectsAndKeys:(id)first, ... __attribute__((sentinel(0, 1)));
+ (NSDictionary*)dictionaryWithContentsOfFile:(NSString*)path;
- (NSEnumerator*)keyEnumerator;
- (id)objectForKey:(id)key;
@end

@interface NSMutableDictionary : NSDictionary
+ (instancetype)dictionaryWithCapacity:(NSUInteger)count;
- (void)setObject:(id)object forKey:(id<NSCopying>)key;
@end

@interface NSIndexSet : NSObject
+ (instancetype)indexSetWithIndex:(NSUInteger)index;
@end

@interface NSData : NSObject
+ (instancetype)dataWithBytes:(const void*)bytes length:(NSUInteger)length;
@property(readonly) const void* bytes;
@end

@interface NSValue : NSObject <NSCopying>
@property(readonly) const char* objCType;
@end

@interface NSNumber : NSValue
+ (NSNumber*)numberWithBool:(BOOL)value;
+ (NSNumber*)numberWithInt:(int)value;
+ (NSNumber*)numberWithLongLong:(long long)value;
+ (NSNumber*)numberWithUnsignedLongLong:(unsigned long long)value;
+ (NSNumber*)numberWithDouble:(double)value;
@property(readonly) BOOL boolValue;
@property(readonly) double doubleValue;
@property(readonly) long long longLongValue;
@property(readonly) unsigned long long unsignedLongLongValue;
@end

@interface NSNull : NSObject
+ (NSNull*)null;
@end

typedef NSInteger NSComparisonResult;
typedef NSUInteger NSStringEncoding;
enum : NSStringEncoding { NSUTF8StringEncoding = 4 };
typedef NSUInteger NSStringCompareOptions;
enum : NSStringCompareOptions { NSBackwardsSearch = 4 };

@interface NSString : NSObject <NSCopying, NSMutableCopying>
@property(readonly) NSUInteger length;
@property(readonly) int intValue;
@property(readonly, copy) NSString* lastPathComponent;
@property(readonly, copy) NSString* pathExtension;
@property(readonly, copy) NSString* stringByDeletingPathExtension;
@property(readonly, copy) NSString* stringByStandardizingPath;
- (instancetype)initWithBytes:(const void*)bytes length:(NSUInteger)length encoding:(NSStringEncoding)encoding;
- (instancetype)initWithString:(NSString*)string;
- (NSString*)stringByAppendingString:(NSString*)string;
- (unichar)characterAtIndex:(NSUInteger)index;
- (void)getCharacters:(unichar*)buffer range:(NSRange)range;
- (NSComparisonResult)compare:(NSString*)string;
- (NSRange)rangeOfComposedCharacterSequenceAtIndex:(NSUInteger)index;
- (NSRange)rangeOfString:(NSString*)string options:(NSStringCompareOptions)options;
- (NSString*)stringByAppendingPathComponent:(NSString*)component;
- (NSString*)substringToIndex:(NSUInteger)end;
- (NSString*)substringWithRange:(NSRange)range;
@end

@interface NSMutableString : NSString
+ (instancetype)string;
- (void)appendString:(NSString*)text;
@end

@interface NSAttributedString : NSObject <NSCopying, NSMutableCopying>
@property(readonly, copy) NSString* string;
@property(readonly) NSUInteger length;
- (instancetype)initWithString:(NSString*)string attributes:(NSDictionary*)attributes;
@end

@interface NSMutableAttributedString : NSAttributedString
- (void)addAttribute:(NSString*)name value:(id)value range:(NSRange)range;
- (void)removeAttribute:(NSString*)name range:(NSRange)range;
@end

@interface NSError : NSObject
@property(readonly, copy) NSString* localizedDescription;
@end

@interface NSURL : NSObject
+ (NSURL*)fileURLWithPath:(NSString*)path;
+ (NSURL*)fileURLWithPath:(NSString*)path isDirectory:(BOOL)isDirectory;
+ (instancetype)URLWithString:(NSString*)text;
@property(readonly, copy) NSString* path;
@end

@interface NSDate : NSObject <NSCopying>
+ (instancetype)date;
@property(readonly) NSTimeInterval timeIntervalSince1970;
@end

@interface NSLocale : NSObject
@property(class, readonly, copy) NSArray* preferredLanguages;
@end

typedef struct {
  NSInteger majorVersion;
  NSInteger minorVersion;
  NSInteger patchVersion;
} NSOperatingSystemVersion;

@interface NSProcessInfo : NSObject
@property(class, readonly, strong) NSProcessInfo* processInfo;
@property(readonly) NSOperatingSystemVersion operatingSystemVersion;
@end

@interface NSFileManager : NSObject
@property(class, readonly, strong) NSFileManager* defaultManager;
- (NSArray*)contentsOfDirectoryAtPath:(NSString*)path error:(NSError**)error;
- (BOOL)fileExistsAtPath:(NSString*)path isDirectory:(BOOL*)isDirectory;
- (BOOL)isExecutableFileAtPath:(NSString*)path;
@end

@interface NSTask : NSObject
+ (NSTask*)launchedTaskWithLaunchPath:(NSString*)path arguments:(NSArray*)arguments;
@end

@interface NSThread : NSObject
@property(class, readonly) BOOL isMainThread;
+ (BOOL)isMultiThreaded;
+ (void)detachNewThreadSelector:(SEL)selector toTarget:(id)target withObject:(id)argument;
@end

FOUNDATION_EXPORT NSString* const NSRunLoopCommonModes;

@interface NSTimer : NSObject
@property(readonly, retain) id userInfo;
+ (NSTimer*)timerWithTimeInterval:(NSTimeInterval)interval
                           target:(id)target
                         selector:(SEL)selector
                         userInfo:(id)userInfo
                          repeats:(BOOL)repeats;
- (void)invalidate;
@end

@interface NSRunLoop : NSObject
@property(class, readonly, strong) NSRunLoop* mainRunLoop;
- (void)addTimer:(NSTimer*)timer forMode:(NSString*)mode;
@end

@interface NSNotification : NSObject
@property(readonly, copy) NSString* name;
@property(readonly, retain) id object;
@property(readonly, copy) NSDictionary* userInfo;
@end

@interface NSNotificationCenter : NSObject
@property(class, readonly, strong) NSNotificationCenter* defaultCenter;
- (void)addObserver:(id)observer selector:(SEL)selector name:(NSString*)name object:(id)object;
- (void)removeObserver:(id)observer;
@end

typedef NSUInteger NSNotificationSuspensionBehavior;
enum : NSNotificationSuspensionBehavior { NSNotificationSuspensionBehaviorDeliverImmediately = 4 };

@interface NSDistributedNotificationCenter : NSNotificationCenter
+ (NSDistributedNotificationCenter*)defaultCenter;
- (void)addObserver:(id)observer
              selector:(SEL)selector
                  name:(NSString*)name
                object:(NSString*)object
    suspensionBehavior:(NSNotificationSuspensionBehavior)behavior;
- (void)postNotificationName:(NSString*)name
                      object:(NSString*)object
                    userInfo:(NSDictionary*)userInfo
          deliverImmediately:(BOOL)deliverImmediately;
@end

@interface NSUserDefaults : NSObject
@property(class, readonly, strong) NSUserDefaults* standardUserDefaults;
- (id)objectForKey:(NSString*)key;
- (void)setObject:(id)value forKey:(NSString*)key;
- (void)removeObjectForKey:(NSString*)key;
- (NSDictionary*)persistentDomainForName:(NSString*)domain;
- (BOOL)synchronize;
@end
