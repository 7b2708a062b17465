// What every class runtime promises, tried on the embedded one and on the Objective-C one.

#include <gtest/gtest.h>

#include "host/surface/HookCall.h"
#include "host/surface/classSwizzle.h"
#include "platform/Registry.h"
#include "tests/conformance/ConformanceWorld.h"

namespace vorn {
namespace {

struct Embedded {
  static std::unique_ptr<ConformanceWorld> make() { return makeEmbeddedWorld(); }
};
#ifdef VORN_OBJC
struct Apple {
  static std::unique_ptr<ConformanceWorld> make() { return makeAppleWorld(); }
};
using Worlds = testing::Types<Embedded, Apple>;
#else
using Worlds = testing::Types<Embedded>;
#endif

template <typename World>
class ClassRuntimeConformance : public testing::Test {
 protected:
  ClassRuntimeConformance() {
    Platform platform;
    platform.classRuntime = &runtime;
    Registry::install(platform);
  }
  ~ClassRuntimeConformance() override {
    world->end(probe);
    Registry::reset();
  }

  ClassRef classNamed(const char* shortName) { return world->classNamed(shortName); }
  ClassRef metaclassNamed(const char* shortName) { return runtime.objc_getMetaClass(world->className(shortName)); }
  std::string nameOf(const HostObject& object) { return runtime.send(object, "name").text(); }

  // Adds a replacement to a class and exchanges it with the host's method.
  bool hook(ClassRef target, const char* selector, const char* added, Implementation implementation,
            const char* encoding = "@@:") {
    runtime.class_addMethod(target, added, std::move(implementation), encoding);
    return classSwizzle::method_InstanceSwizzle(target, selector, added);
  }
  // A replacement that puts a word in front of the host's name.
  Implementation hookedName(const char* added) {
    return [this, added = std::move(added)](const HostObject& self, const Arguments& arguments) {
      return Value("hooked " + runtime.send(self, added, arguments).text());
    };
  }
  // A replacement that forwards.
  Implementation forwarding(std::string added) {
    return [this, added = std::move(added)](const HostObject& self, const Arguments& arguments) {
      seen = arguments;
      return runtime.send(self, added, arguments);
    };
  }

  const std::unique_ptr<ConformanceWorld> world = World::make();
  ClassRuntime& runtime = world->runtime();
  const HostObject probe = world->create("Probe");
  Arguments seen;
};

TYPED_TEST_SUITE(ClassRuntimeConformance, Worlds);

TYPED_TEST(ClassRuntimeConformance, WhatIsMissingAnswersAbsentAndIsNotExchanged) {
  ClassRuntime& runtime = this->runtime;
  const ClassRef probe = this->classNamed("Probe");
  EXPECT_FALSE(runtime.NSClassFromString("vnNoSuchClass"));
  EXPECT_FALSE(runtime.NSClassFromString(""));
  EXPECT_FALSE(runtime.objc_getMetaClass("vnNoSuchClass"));
  EXPECT_FALSE(runtime.classObject({}));
  EXPECT_FALSE(runtime.class_getInstanceMethod(probe, "missing"));
  EXPECT_FALSE(runtime.class_getInstanceMethod({}, "name"));
  EXPECT_FALSE(runtime.class_getInstanceMethod(probe, "make")) << "a class method is no instance method";
  EXPECT_FALSE(runtime.class_getClassMethod(probe, "name"));
  EXPECT_FALSE(runtime.class_getClassMethod({}, "make"));
  const auto implementation = [](const HostObject&, const Arguments&) { return Value(); };
  EXPECT_FALSE(runtime.class_addMethod({}, "vn_name", implementation, "@@:"));
  EXPECT_FALSE(runtime.class_addMethod(probe, "", implementation, "@@:"));
  EXPECT_FALSE(runtime.class_addMethod(probe, "name", implementation, "@@:")) << "the class has one already";
  EXPECT_TRUE(runtime.send(this->probe, "missing").isAbsent());
  EXPECT_TRUE(runtime.send(this->probe, "").isAbsent());
  for (const HostObject& nobody : {HostObject(), HostObject(12345)}) {
    EXPECT_TRUE(runtime.send(nobody, "name").isAbsent());
    EXPECT_FALSE(runtime.respondsTo(nobody, "name"));
    EXPECT_FALSE(runtime.isKindOf(nobody, probe));
    EXPECT_EQ(runtime.className(nobody), "");
  }
  EXPECT_FALSE(classSwizzle::method_InstanceSwizzle({}, "name", "callsName"));
  EXPECT_FALSE(classSwizzle::method_InstanceSwizzle(probe, "name", "missing"));
  EXPECT_FALSE(classSwizzle::method_InstanceSwizzle(probe, "missing", "name"));
  EXPECT_FALSE(classSwizzle::method_InstanceSwizzle(probe, "make", "name"));
  EXPECT_FALSE(classSwizzle::method_ClassSwizzle({}, "make", "callsMake"));
  EXPECT_FALSE(classSwizzle::method_ClassSwizzle(probe, "name", "callsName"));
  EXPECT_FALSE(classSwizzle::method_ClassSwizzle(this->metaclassNamed("Probe"), "make", "missing"));
  EXPECT_EQ(this->nameOf(this->probe), "probe");
  EXPECT_EQ(runtime.send(runtime.classObject(probe), "make"), "made");
}

TYPED_TEST(ClassRuntimeConformance, AnObjectIsKnownByItsClassAndItsSelectors) {
  ClassRuntime& runtime = this->runtime;
  const HostObject heir = this->world->create("ProbeHeir");
  EXPECT_EQ(runtime.className(heir), this->world->className("ProbeHeir"));
  EXPECT_TRUE(runtime.isKindOf(heir, this->classNamed("Probe")));
  EXPECT_FALSE(runtime.isKindOf(this->probe, this->classNamed("ProbeHeir")));
  EXPECT_FALSE(runtime.isKindOf(heir, {}));
  EXPECT_TRUE(runtime.respondsTo(heir, "add:to:"));
  EXPECT_FALSE(runtime.respondsTo(heir, "add:"));
  EXPECT_TRUE(runtime.class_addMethod(
      this->classNamed("ProbeHeir"), "name", [](const HostObject&, const Arguments&) { return Value("heir"); },
      "@@:"));
  EXPECT_EQ(this->nameOf(heir), "heir");
  EXPECT_EQ(this->nameOf(this->probe), "probe");
  this->world->end(heir);
}

TYPED_TEST(ClassRuntimeConformance, AHookRunsForTheHostTooAndForwardsUntilItIsExchangedAgain) {
  ClassRuntime& runtime = this->runtime;
  const ClassRef probe = this->classNamed("Probe");
  ASSERT_TRUE(this->hook(probe, "name", "vn_name", this->hookedName("vn_name")));
  EXPECT_EQ(this->nameOf(this->probe), "hooked probe");
  EXPECT_EQ(runtime.send(this->probe, "callsName"), "hooked probe");
  EXPECT_EQ(this->world->hostAsksForName(this->probe), "hooked probe");
  EXPECT_EQ(runtime.send(this->probe, "vn_name"), "probe") << "the added selector reaches the host";
  ASSERT_TRUE(classSwizzle::method_InstanceSwizzle(probe, "name", "vn_name"));
  EXPECT_EQ(this->world->hostAsksForName(this->probe), "probe");
}

TYPED_TEST(ClassRuntimeConformance, AnInheritedMethodIsExchangedForTheHeirAlone) {
  const HostObject heir = this->world->create("ProbeHeir");
  const HostObject sibling = this->world->create("ProbeSibling");
  ASSERT_TRUE(this->hook(this->classNamed("ProbeHeir"), "name", "vn_name", this->hookedName("vn_name")));
  EXPECT_EQ(this->nameOf(heir), "hooked probe");
  EXPECT_EQ(this->nameOf(this->probe), "probe");
  EXPECT_EQ(this->nameOf(sibling), "probe");
  EXPECT_FALSE(this->runtime.respondsTo(this->probe, "vn_name"));
  // One that stands in the parent reaches all heirs, and the heir's own runs around it.
  ASSERT_TRUE(this->hook(this->classNamed("Probe"), "name", "vnParent_name", this->hookedName("vnParent_name")));
  EXPECT_EQ(this->nameOf(sibling), "hooked probe");
  EXPECT_EQ(this->world->hostAsksForName(sibling), "hooked probe");
  EXPECT_EQ(this->nameOf(heir), "hooked probe");
  this->world->end(heir);
  this->world->end(sibling);
}

TYPED_TEST(ClassRuntimeConformance, ClassMethodsAreExchangedOnTheMetaclass) {
  ClassRuntime& runtime = this->runtime;
  const ClassRef meta = this->metaclassNamed("Probe");
  runtime.class_addMethod(meta, "vn_make", this->hookedName("vn_make"), "@@:@");
  EXPECT_FALSE(runtime.respondsTo(this->probe, "vn_make"));
  ASSERT_TRUE(classSwizzle::method_ClassSwizzle(meta, "make", "vn_make"));
  const HostObject object = runtime.classObject(this->classNamed("Probe"));
  EXPECT_EQ(runtime.send(object, "make"), "hooked made");
  EXPECT_EQ(runtime.send(object, "callsMake"), "hooked made");
  EXPECT_EQ(runtime.send(object, "vn_make"), "made");
  EXPECT_TRUE(runtime.class_getClassMethod(this->classNamed("ProbeHeir"), "make"));
}

TYPED_TEST(ClassRuntimeConformance, AHookMayBeEnteredAgainFromInside) {
  int depth = 0;
  const auto enterAgain = [&](const HostObject& self, const Arguments& arguments) {
    if (++depth < 50) return Value("(" + this->runtime.send(self, "callsName").text() + ")");
    return this->runtime.send(self, "vn_name", arguments);
  };
  ASSERT_TRUE(this->hook(this->classNamed("Probe"), "name", "vn_name", enterAgain));
  EXPECT_EQ(this->nameOf(this->probe), std::string(49, '(') + "probe" + std::string(49, ')'));
}

TYPED_TEST(ClassRuntimeConformance, WhatTheHostRaisesIsAbsentToASendAndToldApartByACall) {
  EXPECT_TRUE(this->runtime.send(this->probe, "raise").isAbsent());
  EXPECT_TRUE(this->runtime.call(this->probe, "raise", {}).raised);
  EXPECT_FALSE(this->runtime.call(this->probe, "missing", {}).raised);
  EXPECT_FALSE(this->runtime.call(HostObject(), "raise", {}).raised);
  EXPECT_FALSE(this->runtime.call(this->probe, "name", {}).raised);
}

TYPED_TEST(ClassRuntimeConformance, WhatTheHostRaisesReachesTheHostPastAHookThatForwards) {
  int unwound = 0;
  const auto forwarding = [&](const char* added) {
    return [&, added](const HostObject& self, const Arguments& arguments) {
      struct Unwinding {
        int& count;
        ~Unwinding() { ++count; }
      } const unwinding{unwound};
      return HookCall(this->runtime, added, self, arguments).forward();
    };
  };
  ASSERT_TRUE(this->hook(this->classNamed("Probe"), "raise", "vn_raise", forwarding("vn_raise"), "v@:"));
  EXPECT_EQ(this->world->hostMeets(this->probe, "raise"), "in trouble");
  EXPECT_EQ(unwound, 1);
  EXPECT_TRUE(this->runtime.send(this->probe, "raise").isAbsent());
  // One hook inside the other, with the host between them.
  ASSERT_TRUE(
      this->hook(this->classNamed("Probe"), "callsRaise", "vn_callsRaise", forwarding("vn_callsRaise"), "v@:"));
  EXPECT_EQ(this->world->hostMeets(this->probe, "callsRaise"), "in trouble");
  EXPECT_EQ(unwound, 4);
  // What has raised is over: the added selector is no longer its way to the host.
  ASSERT_TRUE(this->hook(this->classNamed("Probe"), "echo:", "vn_echo:", this->forwarding("vn_echo:"), "@@:@"));
  EXPECT_EQ(this->runtime.send(this->probe, "echo:", {"after"}), "after");
  EXPECT_EQ(this->world->hostMeets(this->probe, "name"), "");
}

// One method and what it makes of its arguments, first unhooked, then through a replacement that forwards.
struct CallCase {
  const char* selector;
  // As it is added, which need not fit the method.
  const char* encoding;
  Arguments arguments;
  Value result;
};

TYPED_TEST(ClassRuntimeConformance, ArgumentsAndResultsOfEveryKindCrossUnhookedAndHooked) {
  const Value rectangle =
      Value::dictionaryFromPairs({{"x", 1.5}, {"y", -2.0}, {"width", 300.0}, {"height", 0.25}});
  const Value moved = Value::dictionaryFromPairs({{"x", 11.5}, {"y", 18.0}, {"width", 300.0}, {"height", 0.25}});
  const std::int64_t large = std::int64_t{1} << 62;
  const CallCase cases[] = {
      {"isNot:", "B@:ffff", {true}, false},
      {"isNot:", "B@:@", {false}, true},
      {"low:", "v@:@", {true}, 1},
      {"half:", "@@:", {-3.0}, -1.5},
      {"half:", "@@:@", {5}, 2.5},
      {"add:to:", "l@:@", {large, large - 1}, 2 * (large - 1) + 1},
      {"add:to:", "l@:", {-7, 3}, -4},
      {"moved:", "B@:ffff", {rectangle}, moved},
      {"next:", "v@:@", {0xFFFFFFFEU}, 0xFFFFFFFFU},
      {"ended:code:context:", "v@:@i^v", {"alert", -2, large}, large},
      {"ended:code:context:", "v@:@i^v", {"alert", 1, large}, {}},
      {kDrag,
       "B@:@@@d^cBB",
       {"event", "tile", "start", 1770.5, {}, false, true},
       wordsOfDrag("event", "start", 1770.5, false, true)},
  };
  for (const CallCase& one : cases) {
    SCOPED_TRACE(one.selector);
    EXPECT_EQ(this->runtime.send(this->probe, one.selector, one.arguments), one.result);
    const std::string added = std::string("vn_") + one.selector;
    ASSERT_TRUE(this->hook(this->classNamed("Probe"), one.selector, added.c_str(), this->forwarding(added.c_str()),
                           one.encoding));
    EXPECT_EQ(this->runtime.send(this->probe, one.selector, one.arguments), one.result);
    EXPECT_EQ(this->seen, one.arguments);
    EXPECT_EQ(this->seen.at(0).isBoolean(), one.arguments.at(0).isBoolean());
    ASSERT_TRUE(classSwizzle::method_InstanceSwizzle(this->classNamed("Probe"), one.selector, added));
  }
}

TYPED_TEST(ClassRuntimeConformance, APointerToCharactersIsATextOnlyWhereItIsSaidToBeOne) {
  const ClassRef probe = this->classNamed("Probe");
  this->runtime.class_addMethod(probe, "vn_lengthOf:", this->forwarding("vn_lengthOf:"), "B@:^c",
                                CharacterPointers::texts);
  ASSERT_TRUE(classSwizzle::method_InstanceSwizzle(probe, "lengthOf:", "vn_lengthOf:"));
  EXPECT_EQ(this->runtime.send(this->probe, "lengthOf:", {"gr\xC3\xBC\xC3\x9F"}), 6);
  EXPECT_EQ(this->seen, (Arguments{"gr\xC3\xBC\xC3\x9F"}));
  EXPECT_EQ(this->runtime.send(this->probe, "lengthOf:", {Value()}), -1);
  EXPECT_TRUE(this->seen.at(0).isAbsent());

  const std::string added = std::string("vn_") + kDrag;
  ASSERT_TRUE(this->hook(probe, kDrag, added.c_str(), this->forwarding(added.c_str()), "B@:@@@d^cBB"));
  EXPECT_TRUE(this->world->hostDrags(this->probe)) << "the host's flag reaches the host's method";
  EXPECT_TRUE(this->seen.at(4).isInteger()) << "and is not looked at on the way";
  EXPECT_EQ(this->seen.at(3), 2.5);
}

TYPED_TEST(ClassRuntimeConformance, ObjectValuesCrossBothWaysWithTheirKinds) {
  const HostObject other = this->world->create("Probe");
  const Value list = Value::Array{1, "two", nullptr, Value::Array{Value(3.5)}};
  const Value map =
      Value::Dictionary{{"null", nullptr}, {"inside", Value::Dictionary{{"flag", true}}}, {"event", other}};
  const Value large = std::int64_t{1} << 53, zero = std::string("a zero \0 inside", 15);
  const Value values[] = {{},    nullptr,
                          true,  false,
                          0,     -1,
                          large, 2.5,
                          "",    "Sitzung \xC3\xBC\x62\x65r \xF0\x9F\x93\x85",
                          zero,  Value::array(),
                          list,  Value::dictionary(),
                          other, map};
  ASSERT_TRUE(this->hook(this->classNamed("Probe"), "echo:", "vn_echo:", this->forwarding("vn_echo:"), "@@:@"));
  for (const char* selector : {"echo:", "vn_echo:"}) {
    for (const Value& value : values) {
      const Value answer = this->runtime.send(this->probe, selector, {value});
      EXPECT_EQ(answer, value) << selector << " kind " << static_cast<int>(value.kind());
      EXPECT_EQ(answer.kind(), value.kind()) << selector;
    }
  }
  this->world->end(other);
}

TYPED_TEST(ClassRuntimeConformance, AMethodMayEndItsReceiverWhichThenAnswersAbsentEverywhere) {
  ClassRuntime& runtime = this->runtime;
  const HostObject mortal = this->world->create("ProbeHeir");
  const auto ending = [&](const HostObject& self, const Arguments& arguments) {
    this->world->end(self);
    return runtime.send(self, "vn_name", arguments);
  };
  ASSERT_TRUE(this->hook(this->classNamed("ProbeHeir"), "name", "vn_name", ending));
  runtime.send(mortal, "name");
  EXPECT_TRUE(runtime.send(mortal, "name").isAbsent());
  EXPECT_FALSE(runtime.respondsTo(mortal, "name"));
  EXPECT_FALSE(runtime.isKindOf(mortal, this->classNamed("Probe")));
  EXPECT_EQ(runtime.className(mortal), "");
}

TYPED_TEST(ClassRuntimeConformance, ATemporaryLivesAsLongAsAReferenceToIt) {
  Value kept;
  std::uintptr_t address = 0;
  {
    const Value part = this->runtime.send(this->probe, "makePart");
    ASSERT_TRUE(part.isObject());
    address = part.object().address();
    kept = Value::Dictionary{{"part", part}};
  }
  EXPECT_EQ(this->nameOf(kept["part"].object()), "probe");
  kept = Value();
  EXPECT_TRUE(this->runtime.send(HostObject(address), "name").isAbsent());
}

TYPED_TEST(ClassRuntimeConformance, WhatIsRetainedOutlivesItsOwner) {
  HostObject part;
  {
    const Value temporary = this->runtime.send(this->probe, "makePart");
    part = this->runtime.retained(HostObject(temporary.object().address()));
  }
  const HostObject owned = this->world->create("Probe");
  HostObject first = this->runtime.retained(owned);
  HostObject second = this->runtime.retained(first);
  this->world->end(owned);
  first = {};
  for (HostObject* held : {&part, &second}) {
    const HostObject plain(held->address());
    EXPECT_EQ(this->nameOf(plain), "probe");
    *held = {};
    EXPECT_EQ(this->runtime.className(plain), "");
    EXPECT_FALSE(this->runtime.retained(plain));
  }
  EXPECT_FALSE(this->runtime.retained({}));
}

TYPED_TEST(ClassRuntimeConformance, AnObjectOfOursLivesAsLongAsAReferenceOrItsHolder) {
  const std::string name = this->world->className("Ours");
  const ClassRef ours = this->runtime.defineClass(name, this->world->className("Probe"));
  ASSERT_TRUE(ours);
  EXPECT_EQ(ours, this->runtime.defineClass(name, "NoSuchClass")) << "the class that has the name";
  EXPECT_FALSE(this->runtime.defineClass(this->world->className("Orphan"), "NoSuchClass"));
  this->runtime.class_addMethod(
      ours, "name", [](const HostObject&, const Arguments&) { return Value("ours"); }, "@@:");

  HostObject made = this->runtime.instantiate(ours, "itself", {});
  ASSERT_TRUE(made);
  const HostObject plain(made.address());
  this->runtime.send(this->probe, "remember:", {made});
  made = {};
  EXPECT_EQ(this->nameOf(plain), "ours");
  this->runtime.send(this->probe, "remember:", {Value()});
  EXPECT_EQ(this->runtime.className(plain), "");

  for (const char* initialiser : {"noSuchInitialiser", "raise", "remembered"}) {
    EXPECT_FALSE(this->runtime.instantiate(ours, initialiser, {})) << initialiser;
  }
  EXPECT_FALSE(this->runtime.instantiate({}, "itself", {}));
}

TYPED_TEST(ClassRuntimeConformance, AClassThatComesLaterIsFoundThenAndSharesItsParentsHooks) {
  EXPECT_FALSE(this->classNamed("ProbeLate"));
  ASSERT_TRUE(this->hook(this->classNamed("Probe"), "name", "vn_name", this->hookedName("vn_name")));
  this->world->define("ProbeLate", "Probe");
  EXPECT_TRUE(this->classNamed("ProbeLate"));
  const HostObject late = this->world->create("ProbeLate");
  EXPECT_EQ(this->world->hostAsksForName(late), "hooked probe");
  this->world->end(late);
}

}  // namespace
}  // namespace vorn
