#include <gtest/gtest.h>

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
    m_derived = m_runtime.create("Derived");
  }

  EmbeddedClassRuntime m_runtime;
  HostObject m_derived;
};

TEST_F(EmbeddedRuntime, AMethodMayBeReplacedWhileItRuns) {
  int depth = 0;
  m_runtime.setInstanceMethod("Base", "enter", [&](const HostObject& receiver, const Arguments& arguments) {
    if (++depth < 5) return m_runtime.send(receiver, "enter", {arguments.at(0).integerValue() + 1});
    m_runtime.setInstanceMethod("Base", "enter", answering("replaced"));
    return arguments.at(0);
  });
  EXPECT_EQ(m_runtime.send(m_derived, "enter", {1}), 5);
  EXPECT_EQ(m_runtime.send(m_derived, "enter", {1}), "replaced");
}

TEST_F(EmbeddedRuntime, ADeadAddressNeverComesBack) {
  m_runtime.destroy(m_derived);
  m_runtime.destroy(m_derived);
  for (int i = 0; i < 100; ++i) EXPECT_NE(m_runtime.create("Derived"), m_derived);
  EXPECT_FALSE(m_runtime.isAlive(m_derived));
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
