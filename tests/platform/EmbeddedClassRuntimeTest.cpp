#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/embedded/EmbeddedClassRuntime.h"

namespace vorn {
namespace {

Implementation answering(const char* text) {
  return [text](const HostObject&, const Arguments&) { return Value(text); };
}

class EmbeddedRuntime : public testing::Test {
 protected:
  EmbeddedRuntime() {
    runtime_.defineClass("Base");
    runtime_.defineClass("Derived", "Base");
    runtime_.setInstanceMethod("Base", "name", answering("base"));
    runtime_.setClassMethod("Base", "make", answering("made"));
    derived_ = runtime_.create("Derived");
  }

  EmbeddedClassRuntime runtime_;
  HostObject derived_;
};

TEST_F(EmbeddedRuntime, WhatIsMissingAnswersAbsent) {
  EXPECT_FALSE(runtime_.NSClassFromString("Missing"));
  EXPECT_FALSE(runtime_.objc_getMetaClass("Missing"));
  EXPECT_FALSE(runtime_.defineClass("Orphan", "Missing"));
  EXPECT_FALSE(runtime_.create("Missing"));
  const ClassRef base = runtime_.NSClassFromString("Base");
  EXPECT_FALSE(runtime_.class_getInstanceMethod(base, "missing"));
  EXPECT_FALSE(runtime_.class_getInstanceMethod({}, "name"));
  EXPECT_FALSE(runtime_.class_getClassMethod(base, "name"));
  EXPECT_FALSE(runtime_.class_addMethod({}, "x", answering("x"), "@@:"));
  EXPECT_TRUE(runtime_.send(derived_, "missing").isAbsent());
  EXPECT_TRUE(runtime_.send(HostObject(), "name").isAbsent());
  EXPECT_TRUE(runtime_.send(HostObject(12345), "name").isAbsent());
  EXPECT_EQ(runtime_.className(HostObject(12345)), "");
  EXPECT_FALSE(runtime_.respondsTo(HostObject(12345), "name"));
  EXPECT_FALSE(runtime_.isKindOf(derived_, {}));
  runtime_.method_exchangeImplementations({}, runtime_.class_getInstanceMethod(base, "name"));
  EXPECT_EQ(runtime_.send(derived_, "name"), "base");
}

TEST_F(EmbeddedRuntime, ClassesInheritOnBothSides) {
  const ClassRef derived = runtime_.NSClassFromString("Derived");
  EXPECT_EQ(runtime_.send(derived_, "name"), "base");
  EXPECT_EQ(runtime_.send(runtime_.classObject(derived), "make"), "made");
  EXPECT_TRUE(runtime_.class_getClassMethod(derived, "make"));
  EXPECT_TRUE(runtime_.class_getInstanceMethod(runtime_.objc_getMetaClass("Derived"), "make"));
  EXPECT_TRUE(runtime_.isKindOf(derived_, runtime_.NSClassFromString("Base")));
  EXPECT_FALSE(runtime_.isKindOf(runtime_.create("Base"), derived));
  EXPECT_EQ(runtime_.className(derived_), "Derived");
  EXPECT_EQ(runtime_.defineClass("Derived", "Base"), derived);
}

TEST_F(EmbeddedRuntime, AnAddedMethodShadowsTheInheritedOneAndNothingIsAddedTwice) {
  const ClassRef derived = runtime_.NSClassFromString("Derived");
  EXPECT_TRUE(runtime_.class_addMethod(derived, "name", answering("derived"), "@@:"));
  EXPECT_FALSE(runtime_.class_addMethod(derived, "name", answering("again"), "@@:"));
  EXPECT_EQ(runtime_.send(derived_, "name"), "derived");
  EXPECT_EQ(runtime_.send(runtime_.create("Base"), "name"), "base");
}

TEST_F(EmbeddedRuntime, AnExchangeForwardsAndASecondOneUndoesIt) {
  const ClassRef base = runtime_.NSClassFromString("Base");
  runtime_.class_addMethod(
      base, "vn_name",
      [this](const HostObject& receiver, const Arguments&) {
        return Value("hooked " + runtime_.send(receiver, "vn_name").text());
      },
      "@@:");
  const MethodRef original = runtime_.class_getInstanceMethod(base, "name");
  const MethodRef added = runtime_.class_getInstanceMethod(base, "vn_name");
  runtime_.method_exchangeImplementations(original, added);
  EXPECT_EQ(runtime_.send(derived_, "name"), "hooked base");
  runtime_.method_exchangeImplementations(original, added);
  EXPECT_EQ(runtime_.send(derived_, "name"), "base");
}

TEST_F(EmbeddedRuntime, AMethodMayReenterRaiseOrEndItsReceiver) {
  int depth = 0;
  runtime_.setInstanceMethod("Base", "enter", [&](const HostObject& receiver, const Arguments& arguments) {
    if (++depth < 5) return runtime_.send(receiver, "enter", {arguments.at(0).integerValue() + 1});
    runtime_.setInstanceMethod("Base", "enter", answering("replaced"));
    return arguments.at(0);
  });
  EXPECT_EQ(runtime_.send(derived_, "enter", {1}), 5);
  EXPECT_EQ(runtime_.send(derived_, "enter", {1}), "replaced");
  runtime_.setInstanceMethod(
      "Base", "raise", [](const HostObject&, const Arguments&) -> Value { throw std::runtime_error("host"); });
  EXPECT_TRUE(runtime_.send(derived_, "raise").isAbsent());
  runtime_.setInstanceMethod("Base", "end", [&](const HostObject& receiver, const Arguments&) {
    runtime_.destroy(receiver);
    return Value(runtime_.isAlive(receiver));
  });
  EXPECT_EQ(runtime_.send(derived_, "end"), false);
  EXPECT_TRUE(runtime_.send(derived_, "name").isAbsent()) << "a dead object answers nothing";
}

TEST_F(EmbeddedRuntime, ADeadAddressNeverComesBack) {
  runtime_.destroy(derived_);
  runtime_.destroy(derived_);
  for (int i = 0; i < 100; ++i) EXPECT_NE(runtime_.create("Derived"), derived_);
  EXPECT_FALSE(runtime_.isAlive(derived_));
}

TEST_F(EmbeddedRuntime, ATemporaryLivesAsLongAsAReferenceToItAndTakesItsOwnAlong) {
  const auto counted = std::make_shared<int>(1);
  HostObject kept;
  {
    const HostObject inner = runtime_.createTemporary("Derived", counted);
    const HostObject outer = runtime_.createTemporary("Derived", std::make_shared<HostObject>(inner));
    kept = outer;
  }
  EXPECT_TRUE(runtime_.isAlive(kept));
  EXPECT_EQ(counted.use_count(), 2);
  const HostObject plain(kept.address());
  kept = HostObject();
  EXPECT_FALSE(runtime_.isAlive(plain));
  EXPECT_EQ(counted.use_count(), 1);
}

TEST(EmbeddedRuntimeEnd, AReferenceMayOutliveTheRuntime) {
  HostObject last;
  {
    EmbeddedClassRuntime runtime;
    runtime.defineClass("Base");
    last = runtime.createTemporary("Base");
  }
  EXPECT_TRUE(last);
}

}  // namespace
}  // namespace vorn
