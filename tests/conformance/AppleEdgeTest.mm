// What only the Objective-C edge has to do: the identity of Foundation's objects, and its services.

#include <gtest/gtest.h>

#import <Foundation/Foundation.h>
#include <objc/runtime.h>

#include <map>
#include <stdexcept>
#include <string>
#include <thread>

#include "host/surface/HookCall.h"
#include "host/surface/HookInstaller.h"
#include "platform/apple/AppleClassRuntime.h"
#include "platform/apple/ApplePresenter.h"
#include "platform/apple/AppleRunLoop.h"
#include "platform/apple/CatchRaised.h"
#include "platform/apple/Conversions.h"
#include "platform/apple/Ownership.h"
#include "platform/apple/TypeEncoding.h"
#include "tests/support/TestPlatform.h"

// A host's class whose methods take what they are given further.
@interface vnEdgeProbe : NSObject
- (id)given:(id)object;
- (id)pattern:(id)object;
- (id)fresh;
- (NSRect)frame;
- (double)half;
- (short)small;
- (const char*)words;
- (id)counted:(id)object;
- (id)raiser:(id)object;
- (id)thrower:(id)object;
- (int)refused:(BOOL)flag andReturnError:(NSError**)error;
@end

// An error that tells of its end.
@interface vnEdgeError : NSError
@end

static int endedErrors = 0;

@implementation vnEdgeError
- (void)dealloc {
  ++endedErrors;
  [super dealloc];
}
@end

// A host's object that does not like to be looked at.
@interface vnEdgeMoody : NSObject
@end

@implementation vnEdgeMoody
- (BOOL)isKindOfClass:(Class)kind {
  (void)kind;
  [NSException raise:NSGenericException format:@"leave me alone"];
  return NO;
}
@end

// A text of the host's own making that is its own copy, and cannot be read.
@interface vnEdgeUnreadable : NSString
@end

@implementation vnEdgeUnreadable
- (NSUInteger)length {
  return 4000;
}
- (id)copyWithZone:(NSZone*)zone {
  (void)zone;
  return [self retain];
}
- (unichar)characterAtIndex:(NSUInteger)index {
  (void)index;
  [NSException raise:NSGenericException format:@"not loaded"];
  return 0;
}
- (void)getCharacters:(unichar*)buffer range:(NSRange)range {
  (void)buffer;
  (void)range;
  [NSException raise:NSGenericException format:@"not loaded"];
}
@end

static int countedCalls = 0;

@implementation vnEdgeProbe
- (id)given:(id)object {
  return object;
}
// Never hooked itself.
- (id)pattern:(id)object {
  return object;
}
- (id)fresh {
  return [NSMutableArray arrayWithObject:@"one"];
}
- (NSRect)frame {
  return NSMakeRect(1, 2, 3, 4);
}
- (double)half {
  return 0.5;
}
- (short)small {
  return 1;
}
- (const char*)words {
  return "words";
}
- (id)counted:(id)object {
  ++countedCalls;
  return object;
}
- (id)raiser:(id)object {
  [NSException raise:NSGenericException format:@"%@", object];
  return nil;
}
- (id)thrower:(id)object {
  throw std::domain_error([object UTF8String]);
}
- (int)refused:(BOOL)flag andReturnError:(NSError**)error {
  *error = [[[vnEdgeError alloc] initWithDomain:NSCocoaErrorDomain code:flag userInfo:nil] autorelease];
  return -1;
}
@end

// Further names for pattern:, which tests put in.
@protocol vnEdgeAdded
- (id)sent:(id)object;
- (id)closing:(id)object;
- (id)elsewhere:(id)object;
- (id)boxed:(id)object;
- (id)raising:(id)object;
- (id)throwing:(id)object;
- (id)early:(id)object;
- (id)late:(id)object;
- (double)lateHalf;
@end

// A class of the host as another version may have it.
@interface OLCalendarGridViewWrapper : NSObject
- (int)performDragFrom:(id)from to:(id)to forDate:(NSRange)date inProgress:(BOOL*)flag;
- (BOOL)subjectChanged:(NSString*)subject forEvent:(id)event andTileView:(id)tile;
@end

@implementation OLCalendarGridViewWrapper
- (int)performDragFrom:(id)from to:(id)to forDate:(NSRange)date inProgress:(BOOL*)flag {
  (void)from;
  (void)to;
  (void)flag;
  return static_cast<int>(date.location + date.length);
}
- (BOOL)subjectChanged:(NSString*)subject forEvent:(id)event andTileView:(id)tile {
  (void)event;
  (void)tile;
  return [subject isEqual:@"Review"];
}
@end

namespace vorn {
namespace {

class AppleEdge : public testing::Test {
 protected:
  ~AppleEdge() override { [probe release]; }

  // Gives the class another method with the code of one that it has.
  static void addLike(const char* pattern, const std::string& selector, const char* encoding) {
    const Method method = class_getInstanceMethod([vnEdgeProbe class], sel_registerName(pattern));
    class_addMethod([vnEdgeProbe class], sel_registerName(selector.c_str()), method_getImplementation(method),
                    encoding ? encoding : method_getTypeEncoding(method));
  }

  // Exchanges a method, which is made after a pattern unless there is one, with a replacement.
  void replace(const std::string& selector, const char* pattern, const Implementation& implementation) {
    if (*pattern) addLike(pattern, selector, nullptr);
    const std::string added = "vn_" + selector;
    const ClassRef target = runtime.NSClassFromString("vnEdgeProbe");
    runtime.class_addMethod(target, added, implementation, "@@:@");
    runtime.method_exchangeImplementations(runtime.class_getInstanceMethod(target, selector),
                                           runtime.class_getInstanceMethod(target, added));
  }

  // With one that looks at its arguments and forwards.
  void hook(const std::string& selector, const char* pattern = "") {
    const std::string added = "vn_" + selector;
    replace(selector, pattern, [=](const HostObject& self, const Arguments& arguments) {
      seen = arguments;
      return HookCall(runtime, added, self, arguments).forward();
    });
  }

  AutoreleasePool pool;
  vnEdgeProbe<vnEdgeAdded>* probe = [static_cast<id>([vnEdgeProbe alloc]) init];
  static AppleClassRuntime runtime;
  static Arguments seen;
};

AppleClassRuntime AppleEdge::runtime;
Arguments AppleEdge::seen;

TEST_F(AppleEdge, WhatIsForwardedIsTheVeryObjectThatTheHostPassed) {
  hook("given:");
  NSMutableDictionary* dictionary = [NSMutableDictionary dictionaryWithObject:@"b" forKey:@"a"];
  EXPECT_EQ([probe given:dictionary], dictionary);
  EXPECT_EQ(seen.at(0), (Value(Value::Dictionary{{"a", "b"}})));
  NSNotification* notification = [NSNotification notificationWithName:@"closing" object:probe];
  EXPECT_EQ([probe given:notification], notification);
  EXPECT_EQ(seen.at(0)["object"].object().address(), reinterpret_cast<std::uintptr_t>(probe));
  EXPECT_EQ([probe given:nil], nil);
  EXPECT_TRUE(seen.at(0).isAbsent());
  hook("fresh");
  [[probe fresh] addObject:@"two"];
}

TEST_F(AppleEdge, WhatTheHostsOwnMethodLeavesForItsCallerLivesUntilTheCallersPoolEnds) {
  hook("refused:andReturnError:");
  NSAutoreleasePool* callers = [[NSAutoreleasePool alloc] init];
  NSError* error = nil;
  EXPECT_EQ([probe refused:YES andReturnError:&error], -1);
  EXPECT_NE(error, nil);
  EXPECT_EQ(endedErrors, 0);
  [callers drain];
  EXPECT_EQ(endedErrors, 1);
}

TEST_F(AppleEdge, AnObjectThatRaisesWhenItIsLookedAtIsForwardedAllTheSame) {
  vnEdgeMoody* moody = [[[vnEdgeMoody alloc] init] autorelease];
  hook("sent:", "pattern:");
  EXPECT_EQ([probe sent:moody], moody);
  EXPECT_TRUE(seen.at(0).isAbsent());
  NSString* unreadable = [[[vnEdgeUnreadable alloc] init] autorelease];
  EXPECT_EQ([probe sent:unreadable], unreadable);
  EXPECT_TRUE(seen.at(0).isAbsent()) << "and not empty, which would take what the user wrote";
  const HostObject object = LiveObjects::instance().reference(moody, LiveObjects::Holding::never);
  EXPECT_FALSE(runtime.isKindOf(object, runtime.NSClassFromString("NSObject")));
}

TEST_F(AppleEdge, WhatEndsWhileAHookRunsIsForwardedAsNothing) {
  vnEdgeProbe* mortal = [[vnEdgeProbe alloc] init];
  replace("closing:", "pattern:", [&](const HostObject& self, const Arguments& arguments) {
    [mortal release];
    return runtime.send(self, "vn_closing:", arguments);
  });
  EXPECT_EQ([probe closing:mortal], nil);
}

TEST_F(AppleEdge, OnAnotherThreadTheHostsOwnMethodRunsAndWhatItRaisesGoesOn) {
  hook("elsewhere:", "pattern:");
  hook("raising:", "raiser:");
  seen = {"untouched"};
  id answer = nil;
  std::string reason;
  const auto send = [](void* object) { [static_cast<vnEdgeProbe<vnEdgeAdded>*>(object) raising:@"in trouble"]; };
  std::thread([&] {
    const AutoreleasePool own;
    answer = [probe elsewhere:probe];
    reason = textFromFoundation([[vnCatchRaised(send, probe) autorelease] reason]);
  }).join();
  EXPECT_EQ(answer, probe);
  EXPECT_EQ(reason, "in trouble");
  EXPECT_EQ(seen.at(0), "untouched");
  hook("throwing:", "thrower:");
  EXPECT_THROW([probe throwing:@"in trouble"], std::domain_error) << "what is thrown in C++ too";
  EXPECT_EQ(seen, Arguments{"in trouble"});
}

TEST_F(AppleEdge, AnExceptionOfOursLosesTheHostNeitherACallNorItsResult) {
  const auto throwing = [](const char* forwarded) {
    return [forwarded](const HostObject& self, const Arguments& arguments) -> Value {
      if (*forwarded) runtime.send(self, forwarded, arguments);
      throw std::runtime_error("ours");
    };
  };
  replace("early:", "counted:", throwing(""));
  EXPECT_EQ([probe early:probe], probe);
  EXPECT_EQ(countedCalls, 1);
  replace("late:", "counted:", throwing("vn_late:"));
  NSMutableArray* list = [NSMutableArray array];
  EXPECT_EQ([probe late:list], list);
  EXPECT_EQ(countedCalls, 2);
  replace("lateHalf", "half", throwing("vn_lateHalf"));
  EXPECT_EQ([probe lateHalf], 0.5);
}

// A method of types that cannot be passed on: a host of another version may have any.
TEST_F(AppleEdge, AMethodOfTypesWithoutValuesIsLeftToTheHost) {
  const char* const encodings[] = {
      "v64@0:8{CGAffineTransform=dddddd}16",  // a structure of too many numbers
      "v32@0:8{Mixed=fdfd}16",                // one with gaps
      "v24@0:8(either=if)16",                 // a union
      "v32@0:8![16,16f]16",                   // a vector
      "v24@0:8@?<v@?B>16",                    // a block that tells its own types
      "v32@0:8D16",                           // a long double
      "t32@0:8@16",                           // a number of sixteen bytes
      "v24@0:8v16",                           // nothing as an argument
      "v24@0:8{Endless=dd16",                 // broken off
      "v24@0:8~16",                           // no type at all
      "v16@0:8",                              // fewer arguments than the selector
      "v32@0:8@16@24",                        // more of them
      "v@",                                   // no selector
  };
  const ClassRef target = runtime.NSClassFromString("vnEdgeProbe");
  const HostObject object = LiveObjects::instance().reference(probe, LiveObjects::Holding::never);
  int number = 0;
  for (const char* encoding : encodings) {
    SCOPED_TRACE(encoding);
    const std::string selector = "unusable" + std::to_string(++number) + ":";
    addLike("pattern:", selector, encoding);
    EXPECT_FALSE(runtime.class_getInstanceMethod(target, selector));
    EXPECT_EQ(runtime.unusableTypes(target, selector), encoding);
    EXPECT_TRUE(runtime.send(object, selector, {"anything"}).isAbsent());
    runtime.class_addMethod(
        target, "vn_" + selector, [](const HostObject&, const Arguments&) { return Value(); }, "v@:@");
    EXPECT_TRUE(runtime.class_getInstanceMethod(target, "vn_" + selector));
  }
  EXPECT_EQ(runtime.unusableTypes(target, "given:"), "");
  EXPECT_EQ(runtime.unusableTypes(target, "missing"), "");
}

TEST_F(AppleEdge, TypesAreCutApartWhateverStandsBetweenThem) {
  const auto split = splitTypeEncoding("rB28@\"NSString\"0:8^{Six=\"a\"d[4{Two=ii}](Or=if)}16r*24Vv");
  ASSERT_TRUE(split);
  EXPECT_EQ(*split, (std::vector<std::string_view>{"B", "@\"NSString\"", ":", "^{Six=\"a\"d[4{Two=ii}](Or=if)}",
                                                   "*", "v"}));
  std::string deep(100000, '{');
  EXPECT_FALSE(splitTypeEncoding("v@:" + deep));
  EXPECT_TRUE(splitTypeEncoding("v@:" + deep + std::string(deep.size(), '}')));
  for (const char* broken : {"v@:\"", "v@:@\"NSString", "v@:^", "v@:r", "v@:!", "v@:j", "v@:}", "v@:@?<v@?"})
    EXPECT_FALSE(splitTypeEncoding(broken)) << broken;
}

TEST_F(AppleEdge, WhatAReplacementAnswersIsMadeToFitTheHostsMethod) {
  const auto answering = [](const Value& answer) {
    return [answer](const HostObject&, const Arguments&) { return answer; };
  };
  replace("frame", "", answering("no rectangle"));
  EXPECT_TRUE(NSEqualRects([probe frame], NSZeroRect));
  replace("half", "", answering("2.5 metres"));
  EXPECT_EQ([probe half], 2.5);
  replace("small", "", answering(-70000));
  EXPECT_EQ([probe small], static_cast<short>(-70000));
  replace("words", "", answering(7));
  EXPECT_EQ([probe words], nullptr);
  replace("boxed:", "pattern:", answering(2.5));
  EXPECT_TRUE([[probe boxed:nil] isEqual:[NSNumber numberWithDouble:2.5]]);
}

// The whole table against a host whose one class has the methods of another version.
TEST_F(AppleEdge, TheTableTellsOfARowWhoseTypesAreUnusable) {
  TestPlatform platform;
  platform.platform().classRuntime = &runtime;
  platform.reinstall();
  HookInstaller::sharedInstance().load();
  std::map<std::string_view, HookState> grid;
  for (const HookState& state : HookInstaller::sharedInstance().states()) {
    if (state.row->hostClass == "OLCalendarGridViewWrapper") grid[state.row->hostSelector] = state;
  }
  EXPECT_EQ(grid["performDragFrom:to:forDate:inProgress:"].standing, HookStanding::unusableTypes);
  EXPECT_NE(grid["performDragFrom:to:forDate:inProgress:"].types.find("_NSRange"), std::string::npos);
  EXPECT_EQ(grid["subjectChanged:forEvent:andTileView:"].standing, HookStanding::stands);
  EXPECT_EQ(
      grid["dragResizedEvent:withTileView:withStartDate:duration:inProgress:partialStart:partialEnd:"].standing,
      HookStanding::noHostMethod);
  OLCalendarGridViewWrapper* wrapper = [[[OLCalendarGridViewWrapper alloc] init] autorelease];
  EXPECT_EQ([wrapper performDragFrom:nil to:nil forDate:NSMakeRange(3, 4) inProgress:nullptr], 7);
  EXPECT_TRUE([wrapper subjectChanged:@"Review" forEvent:nil andTileView:nil]);
}

TEST_F(AppleEdge, FoundationsOwnObjectsKeepTheirMeaning) {
  const auto value = [](id object) { return valueFromObject(object, LiveObjects::Holding::whenUnowned); };
  const Value date = value([NSDate dateWithTimeIntervalSince1970:86400]);
  ASSERT_TRUE(date.isObject());
  EXPECT_EQ(runtime.send(date.object(), "timeIntervalSince1970"), 86400);
  EXPECT_TRUE(value([NSNumber numberWithBool:YES]).isBoolean());
  EXPECT_TRUE(value([NSNumber numberWithInt:1]).isInteger());
  EXPECT_EQ(value([NSNumber numberWithFloat:0.5F]), 0.5);
  NSDictionary* mixed =
      [NSDictionary dictionaryWithObjectsAndKeys:@"text", @"key", @"number", [NSNumber numberWithInt:3], nil];
  EXPECT_EQ(value(mixed), (Value(Value::Dictionary{{"key", "text"}})));
  EXPECT_EQ(textFromFoundation(foundationText("broken \xFF text")), "broken \xEF\xBF\xBD text");
  // A text is made when it is read, of what it was when it came.
  NSString* words = @"Team meeting in the large room on the second floor \u2014 \U0001F389";
  NSMutableString* changing = [NSMutableString stringWithString:words];
  const Value earlier = value(changing);
  [changing appendString:@"!"];
  EXPECT_EQ(earlier.text(), "Team meeting in the large room on the second floor \u2014 \U0001F389");
  EXPECT_EQ(earlier, value(words));
  EXPECT_NE(earlier, value(changing));
  id deep = [NSArray array];
  for (int i = 0; i < 100000; ++i) deep = [[[NSArray alloc] initWithObjects:&deep count:1] autorelease];
  EXPECT_EQ(value(deep).count(), 1U);
}

}  // namespace
}  // namespace vorn
