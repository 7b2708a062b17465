#include <gtest/gtest.h>

#include "host/surface/classSwizzle.h"
#include "tests/support/TestPlatform.h"

namespace vorn {
namespace {

Implementation answering(const char* text) {
  return [text](const HostObject&, const Arguments&) { return Value(text); };
}

class Swizzle : public testing::Test {
 protected:
  Swizzle() {
    runtime.defineClass("Host");
    runtime.setInstanceMethod("Host", "run", answering("host"));
    runtime.setClassMethod("Host", "make", answering("host class"));
  }
  ClassRef hostClass() { return runtime.NSClassFromString("Host"); }
  ClassRef metaclass() { return runtime.objc_getMetaClass("Host"); }

  TestPlatform world;
  EmbeddedClassRuntime& runtime = world.classRuntime;
};

TEST_F(Swizzle, RefusesWithoutAnyChangeWhenSomethingIsMissing) {
  using Outcome = classSwizzle::Outcome;
  runtime.class_addMethod(hostClass(), "vn_run", answering("ours"), "@@:");
  runtime.class_addMethod(metaclass(), "vn_make", answering("ours"), "@@:");
  struct {
    const char* why;
    Outcome outcome;
    Outcome expected;
  } const cases[] = {
      {"no class", classSwizzle::exchangeInstanceMethod({}, "run", "vn_run"), Outcome::noClass},
      {"no host method", classSwizzle::exchangeInstanceMethod(hostClass(), "walk", "vn_run"),
       Outcome::noHostMethod},
      {"no alternative", classSwizzle::exchangeInstanceMethod(hostClass(), "run", "vn_walk"),
       Outcome::noAddedMethod},
      {"a class method is no instance method", classSwizzle::exchangeInstanceMethod(hostClass(), "make", "vn_run"),
       Outcome::noHostMethod},
      {"no metaclass", classSwizzle::exchangeClassMethod({}, "make", "vn_make"), Outcome::noClass},
      {"no host class method", classSwizzle::exchangeClassMethod(metaclass(), "run", "vn_make"),
       Outcome::noHostMethod},
      {"no class alternative", classSwizzle::exchangeClassMethod(metaclass(), "make", "vn_run"),
       Outcome::noAddedMethod},
  };
  for (const auto& c : cases) EXPECT_EQ(c.outcome, c.expected) << c.why;
  EXPECT_FALSE(classSwizzle::method_InstanceSwizzle(hostClass(), "run", "vn_walk"));
  EXPECT_FALSE(classSwizzle::method_ClassSwizzle(hostClass(), "walk", "vn_make"));

  const HostObject object = runtime.create("Host");
  EXPECT_EQ(runtime.send(object, "run"), Value("host"));
  EXPECT_EQ(runtime.send(object, "vn_run"), Value("ours"));
  EXPECT_EQ(runtime.send(runtime.classObject(hostClass()), "make"), Value("host class"));
}

}  // namespace
}  // namespace vorn
