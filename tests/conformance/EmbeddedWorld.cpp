#include <cstdint>
#include <stdexcept>

#include "platform/embedded/EmbeddedClassRuntime.h"
#include "tests/conformance/ConformanceWorld.h"

namespace vorn {

namespace {

class EmbeddedWorld final : public ConformanceWorld {
 public:
  EmbeddedWorld() {
    m_runtime.defineClass("NSObject");
    m_runtime.defineClass("Probe", "NSObject");
    m_runtime.defineClass("ProbeHeir", "Probe");
    m_runtime.defineClass("ProbeSibling", "Probe");
    method("name", [](const HostObject&, const Arguments&) { return Value("probe"); });
    method("callsName", [this](const HostObject& self, const Arguments&) { return m_runtime.send(self, "name"); });
    method("echo:", [](const HostObject&, const Arguments& given) { return given.at(0); });
    method("isNot:", [](const HostObject&, const Arguments& given) { return Value(!given.at(0).boolValue()); });
    method("low:", [](const HostObject&, const Arguments& given) { return Value(given.at(0).integerValue()); });
    method("half:", [](const HostObject&, const Arguments& given) { return Value(given.at(0).realValue() / 2); });
    method("add:to:", [](const HostObject&, const Arguments& given) {
      return Value(given.at(0).integerValue() + given.at(1).integerValue());
    });
    method("moved:", [](const HostObject&, const Arguments& given) {
      Value moved = given.at(0);
      moved.set("x", moved["x"].realValue() + 10);
      moved.set("y", moved["y"].realValue() + 20);
      return moved;
    });
    method("lengthOf:", [](const HostObject&, const Arguments& given) {
      return given.at(0).isText() ? Value(given.at(0).text().size()) : Value(-1);
    });
    method(kDrag, [](const HostObject&, const Arguments& given) {
      if (auto* flag = reinterpret_cast<bool*>(given.at(4).integerValue())) *flag = true;
      return Value(wordsOfDrag(given.at(0).text(), given.at(2).text(), given.at(3).realValue(),
                               given.at(5).boolValue(), given.at(6).boolValue()));
    });
    method("ended:code:context:", [](const HostObject&, const Arguments& given) {
      return given.at(1).integerValue() == -2 ? given.at(2) : Value();
    });
    method("next:", [](const HostObject&, const Arguments& given) {
      return Value(static_cast<std::uint32_t>(given.at(0).integerValue() + 1));
    });
    method("itself", [](const HostObject& self, const Arguments&) { return Value(self); });
    method("remember:", [this](const HostObject& self, const Arguments& given) {
      m_runtime.setState(self, std::make_shared<Value>(m_runtime.retained(given.at(0).object())));
      return Value();
    });
    method("remembered", [this](const HostObject& self, const Arguments&) {
      const auto held = m_runtime.state<Value>(self);
      return held ? *held : Value();
    });
    method("makePart",
           [this](const HostObject&, const Arguments&) { return Value(m_runtime.createTemporary("Probe")); });
    method("raise", [](const HostObject&, const Arguments&) -> Value { throw std::domain_error("in trouble"); });
    method("callsRaise",
           [this](const HostObject& self, const Arguments&) { return m_runtime.sendAsHost(self, "raise", {}); });
    m_runtime.setClassMethod("Probe", "make", [](const HostObject&, const Arguments&) { return Value("made"); });
    m_runtime.setClassMethod("Probe", "callsMake", [this](const HostObject& self, const Arguments&) {
      return m_runtime.send(self, "make");
    });
  }

  ClassRuntime& runtime() override { return m_runtime; }
  std::string className(const std::string& shortName) const override { return shortName; }
  HostObject create(const std::string& shortName) override { return m_runtime.create(shortName); }
  void end(const HostObject& object) override { m_runtime.destroy(object); }
  void define(const std::string& shortName, const std::string& parent) override {
    m_runtime.defineClass(shortName, parent);
  }
  std::string hostMeets(const HostObject& object, const std::string& selector) override {
    try {
      m_runtime.sendAsHost(object, selector, {});
      return "";
    } catch (const std::domain_error& raised) {
      return raised.what();
    } catch (...) {
      return "something else";
    }
  }
  std::string hostAsksForName(const HostObject& object) override { return m_runtime.send(object, "name").text(); }
  bool hostDrags(const HostObject& object) override {
    bool flag = false;
    m_runtime.send(object, kDrag,
                   {"event", {}, "start", 2.5, reinterpret_cast<std::uintptr_t>(&flag), true, false});
    return flag;
  }

 private:
  void method(const char* selector, Implementation implementation) {
    m_runtime.setInstanceMethod("Probe", selector, std::move(implementation));
  }

  EmbeddedClassRuntime m_runtime;
};

}  // namespace

std::unique_ptr<ConformanceWorld> makeEmbeddedWorld() { return std::make_unique<EmbeddedWorld>(); }

}  // namespace vorn
