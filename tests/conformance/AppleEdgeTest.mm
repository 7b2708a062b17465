// What only the Objective-C edge has to do: the identity of Foundation's objects, and its services.

#include <gtest/gtest.h>

#import <Foundation/Foundation.h>
#include <objc/runtime.h>

#include "platform/apple/AppleClassRuntime.h"
#include "platform/apple/AppleDistributedNotifications.h"
#include "platform/apple/ApplePresenter.h"
#include "platform/apple/AppleRunLoop.h"
#include "platform/apple/Conversions.h"
#include "tests/conformance/AppleHostLoop.h"

// A host's class whose methods take what they are given further.
@interface vnEdgeProbe : NSObject
- (id)given:(id)object;
- (id)fresh;
- (BOOL)fill:(BOOL*)flag;
- (int)lengthOf:(const char*)text;
@end

@implementation vnEdgeProbe
- (id)given:(id)object {
  return object;
}
- (id)fresh {
  return [NSMutableArray arrayWithObject:@"one"];
}
- (BOOL)fill:(BOOL*)flag {
  *flag = YES;
  return YES;
}
- (int)lengthOf:(const char*)text {
  return text ? static_cast<int>(strlen(text)) : -1;
}
@end

// A view of the toolkit, as far as views are made here.
@interface vnEdgeView : NSObject {
  NSRect frame_;
}
@end

@implementation vnEdgeView
- (id)initWithFrame:(NSRect)frame {
  if ((self = [super init])) frame_ = frame;
  return self;
}
- (NSRect)frame {
  return frame_;
}
- (void)removeFromSuperview {
}
@end

namespace vorn {
namespace {

class AppleEdge : public testing::Test {
 protected:
  ~AppleEdge() override {
    [probe release];
    [pool drain];
  }

  // Puts a replacement that looks at its arguments and forwards in front of a method.
  void hook(const char* selector) {
    const std::string added = std::string("vn_") + selector;
    const ClassRef target = runtime.NSClassFromString("vnEdgeProbe");
    const auto forwarding = [=](const HostObject& self, const Arguments& arguments) {
      seen = arguments;
      return runtime.send(self, added, arguments);
    };
    runtime.class_addMethod(target, added, forwarding, "@@:@");
    runtime.method_exchangeImplementations(runtime.class_getInstanceMethod(target, selector),
                                           runtime.class_getInstanceMethod(target, added));
  }

  NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
  vnEdgeProbe* probe = [[vnEdgeProbe alloc] init];
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

TEST_F(AppleEdge, PointersReachTheHostAndCTextsAreTexts) {
  hook("fill:");
  hook("lengthOf:");
  BOOL flag = NO;
  EXPECT_TRUE([probe fill:&flag]);
  EXPECT_TRUE(flag);
  EXPECT_EQ([probe lengthOf:"four"], 4);
  EXPECT_EQ(seen.at(0), "four");
  EXPECT_EQ([probe lengthOf:nullptr], -1);
  const HostObject object = LiveObjects::instance().reference(probe, LiveObjects::Holding::never);
  EXPECT_EQ(runtime.send(object, "lengthOf:", {"twelve bytes"}), 12);
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
  id deep = [NSArray array];
  for (int i = 0; i < 100000; ++i) deep = [[[NSArray alloc] initWithObjects:&deep count:1] autorelease];
  EXPECT_EQ(value(deep).count(), 1U);
}

TEST_F(AppleEdge, AViewOfOursLivesUntilItIsReleased) {
  const Class view = objc_allocateClassPair([vnEdgeView class], "NSView", 0);
  if (view) objc_registerClassPair(view);
  AppleRunLoop loop;
  ApplePresenter presenter(loop);
  const HostObject made = presenter.createView("vnEdgeBar", Rect{1, 2, 3, 4});
  EXPECT_EQ(runtime.className(made), "vnEdgeBar");
  EXPECT_EQ(runtime.send(made, "frame")["width"], 3);
  presenter.releaseView(made);
  EXPECT_EQ(runtime.className(made), "");
}

TEST_F(AppleEdge, ADistributedNotificationArrivesWithItsTextsUntilTheSubscriptionEnds) {
  AppleDistributedNotifications notifications;
  std::vector<Value> received;
  auto subscription =
      notifications.observe("vnEdgeNotification", [&](const Value& info) { received.push_back(info); });
  const Value info = Value::Dictionary{{"actionId", "4"}, {"content", "\xC3\xBC"}};
  notifications.post("vnEdgeNotification", info);
  AppleHostLoop loop;
  constexpr double patience = 10;
  ASSERT_TRUE(loop.runUntil([&] { return !received.empty(); }, patience));
  EXPECT_EQ(received.front(), info);
  subscription.reset();
  bool arrived = false;
  const auto other = notifications.observe("vnEdgeOther", [&](const Value&) { arrived = true; });
  notifications.post("vnEdgeNotification", info);
  notifications.post("vnEdgeOther", {});
  ASSERT_TRUE(loop.runUntil([&] { return arrived; }, patience));
  EXPECT_EQ(received.size(), 1U);
}

}  // namespace
}  // namespace vorn
