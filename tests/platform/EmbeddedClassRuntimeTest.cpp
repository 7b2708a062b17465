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
    m_runtime.defineClass("Base");
    m_runtime.defineClass("Derived", "Base");
    m_runtime.setInstanceMethod("Base", "name", answering("base"));
    m_runtime.setClassMethod("Base", "make", answering("made"));
    m_derived = m_runtime.create("Derived");
  }

  EmbeddedClassRuntime m_runtime;
  HostObject m_derived;
};

TEST_F(EmbeddedRuntime, WhatIsMissingAnswersAbsent) {
  EXPECT_FALSE(m_runtime.NSClassFromString("Missing"));
  EXPECT_FALSE(m_runtime.objc_getMetaClass("Missing"));
  EXPECT_FALSE(m_runtime.defineClass("Orphan", "Missing"));
  EXPECT_FALSE(m_runtime.create("Missing"));
  const ClassRef base = m_runtime.NSClassFromString("Base");
  EXPECT_FALSE(m_runtime.class_getInstanceMethod(base, "missing"));
  EXPECT_FALSE(m_runtime.class_getInstanceMethod({}, "name"));
  EXPECT_FALSE(m_runtime.class_getClassMethod(base, "name"));
  EXPECT_FALSE(m_runtime.class_addMethod({}, "x", answering("x"), "@@:"));
  EXPECT_TRUE(m_runtime.send(m_derived, "missing").isAbsent());
  EXPECT_TRUE(m_runtime.send(HostObject(), "name").isAbsent());
  EXPECT_TRUE(m_runtime.send(HostObject(12345), "name").isAbsent());
  EXPECT_EQ(m_runtime.className(HostObject(12345)), "");
  EXPECT_FALSE(m_runtime.respondsTo(HostObject(12345), "name"));
  EXPECT_FALSE(m_runtime.isKindOf(m_derived, {}));
  m_runtime.method_exchangeImplementations({}, m_runtime.class_getInstanceMethod(base, "name"));
  EXPECT_EQ(m_runtime.send(m_derived, "name"), "base");
}

TEST_F(EmbeddedRuntime, ClassesInheritOnBothSides) {
  const ClassRef derived = m_runtime.NSClassFromString("Derived");
  EXPECT_EQ(m_runtime.send(m_derived, "name"), "base");
  EXPECT_EQ(m_runtime.send(m_runtime.classObject(derived), "make"), "made");
  EXPECT_TRUE(m_runtime.class_getClassMethod(derived, "make"));
  EXPECT_TRUE(m_runtime.class_getInstanceMethod(m_runtime.objc_getMetaClass("Derived"), "make"));
  EXPECT_TRUE(m_runtime.isKindOf(m_derived, m_runtime.NSClassFromString("Base")));
  EXPECT_FALSE(m_runtime.isKindOf(m_runtime.create("Base"), derived));
  EXPECT_EQ(m_runtime.className(m_derived), "Derived");
  EXPECT_EQ(m_runtime.defineClass("Derived", "Base"), derived);
}

TEST_F(EmbeddedRuntime, AnAddedMethodShadowsTheInheritedOneAndNothingIsAddedTwice) {
  const ClassRef derived = m_runtime.NSClassFromString("Derived");
  EXPECT_TRUE(m_runtime.class_addMethod(derived, "name", answering("derived"), "@@:"));
  EXPECT_FALSE(m_runtime.class_addMethod(derived, "name", answering("again"), "@@:"));
  EXPECT_EQ(m_runtime.send(m_derived, "name"), "derived");
  EXPECT_EQ(m_runtime.send(m_runtime.create("Base"), "name"), "base");
}

TEST_F(EmbeddedRuntime, AnExchangeForwardsAndASecondOneUndoesIt) {
  const ClassRef base = m_runtime.NSClassFromString("Base");
  m_runtime.class_addMethod(
      base, "vn_name",
      [this](const HostObject& receiver, const Arguments&) {
        return Value("hooked " + m_runtime.send(receiver, "vn_name").text());
      },
      "@@:");
  const MethodRef original = m_runtime.class_getInstanceMethod(base, "name");
  const MethodRef added = m_runtime.class_getInstanceMethod(base, "vn_name");
  m_runtime.method_exchangeImplementations(original, added);
  EXPECT_EQ(m_runtime.send(m_derived, "name"), "hooked base");
  m_runtime.method_exchangeImplementations(original, added);
  EXPECT_EQ(m_runtime.send(m_derived, "name"), "base");
}

TEST_F(EmbeddedRuntime, AMethodMayReenterRaiseOrEndItsReceiver) {
  int depth = 0;
  m_runtime.setInstanceMethod("Base", "enter", [&](const HostObject& receiver, const Arguments& arguments) {
    if (++depth < 5) return m_runtime.send(receiver, "enter", {arguments.at(0).integerValue() + 1});
    m_runtime.setInstanceMethod("Base", "enter", answering("replaced"));
    return arguments.at(0);
  });
  EXPECT_EQ(m_runtime.send(m_derived, "enter", {1}), 5);
  EXPECT_EQ(m_runtime.send(m_derived, "enter", {1}), "replaced");
  m_runtime.setInstanceMethod(
      "Base", "raise", [](const HostObject&, const Arguments&) -> Value { throw std::runtime_error("host"); });
  EXPECT_TRUE(m_runtime.send(m_derived, "raise").isAbsent());
  m_runtime.setInstanceMethod("Base", "end", [&](const HostObject& receiver, const Arguments&) {
    m_runtime.destroy(receiver);
    return Value(m_runtime.isAlive(receiver));
  });
  EXPECT_EQ(m_runtime.send(m_derived, "end"), false);
  EXPECT_TRUE(m_runtime.send(m_derived, "name").isAbsent()) << "a dead object answers nothing";
}

TEST_F(EmbeddedRuntime, ADeadAddressNeverComesBack) {
  m_runtime.destroy(m_derived);
  m_runtime.destroy(m_derived);
  for (int i = 0; i < 100; ++i) EXPECT_NE(m_runtime.create("Derived"), m_derived);
  EXPECT_FALSE(m_runtime.isAlive(m_derived));
}

TEST_F(EmbeddedRuntime, ATemporaryLivesAsLongAsAReferenceToItAndTakesItsOwnAlong) {
  const auto counted = std::make_shared<int>(1);
  HostObject kept;
  {
    const HostObject inner = m_runtime.createTemporary("Derived", counted);
    const HostObject outer = m_runtime.createTemporary("Derived", std::make_shared<HostObject>(inner));
    kept = outer;
  }
  EXPECT_TRUE(m_runtime.isAlive(kept));
  EXPECT_EQ(counted.use_count(), 2);
  const HostObject plain(kept.address());
  kept = HostObject();
  EXPECT_FALSE(m_runtime.isAlive(plain));
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
