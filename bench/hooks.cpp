// What it costs that a method of the host is hooked, and what a send by name costs: each beside the host's own
// call of the same method, measured in turn with it. "ratio" is the one by the other.
//
// The host's own call is a message in the Objective-C runtime. In the embedded one it is a send by name, which is
// all that there is; there a virtual call in C++ that gives the same value is the floor of the sends.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <vector>

#include "bench/HookedHost.h"
#include "host/proxies/vnDelegateBase.h"
#include "host/surface/HookCall.h"
#include "host/surface/classSwizzle.h"
#include "platform/Registry.h"
#include "platform/embedded/EmbeddedClassRuntime.h"

namespace vorn {
namespace {

class EmbeddedHost final : public HookedHost {
 public:
  EmbeddedHost() {
    m_runtime.defineClass("ECCalendarEvent");
    for (const char* selector : {"isOccurrence", "hookedIsOccurrence"})
      method(selector, [](const HostObject&, const Arguments&) { return Value(true); });
    for (const char* selector : {"olmUCInband", "hookedOlmUCInband"})
      method(selector, [this](const HostObject&, const Arguments&) { return m_record; });
    for (const char* selector : {"setOlmUCInband:", "setHookedOlmUCInband:"}) {
      method(selector, [this](const HostObject&, const Arguments& given) {
        m_record = given.at(0);
        return Value();
      });
    }
    m_event = m_runtime.create("ECCalendarEvent");
  }

  ClassRuntime& runtime() override { return m_runtime; }
  HostObject event() override { return m_event; }
  void readFlag(bool hooked) override {
    m_runtime.send(m_event, hooked ? "hookedIsOccurrence" : "isOccurrence", {});
  }
  void readRecord(bool hooked) override {
    m_runtime.send(m_event, hooked ? "hookedOlmUCInband" : "olmUCInband", {});
  }
  void writeRecord(bool hooked) override {
    m_runtime.send(m_event, hooked ? "setHookedOlmUCInband:" : "setOlmUCInband:", {m_record});
  }

 private:
  void method(const char* selector, Implementation implementation) {
    m_runtime.setInstanceMethod("ECCalendarEvent", selector, std::move(implementation));
  }

  EmbeddedClassRuntime m_runtime;
  HostObject m_event;
  Value m_record = record();
};

HookedHost& embeddedHost() {
  static EmbeddedHost host;
  return host;
}

#ifdef VORN_OBJC
HookedHost& objectiveCHost() {
  static const std::unique_ptr<HookedHost> host = makeObjectiveCHost();
  return *host;
}
#endif

using Host = HookedHost& (*)();

// The host with its hooks, as the installer would set them for rows that forward.
HookedHost& hooked(Host host) {
  static std::vector<const HookedHost*> done;
  HookedHost& made = host();
  Platform platform;
  platform.classRuntime = &made.runtime();
  Registry::install(platform);
  if (std::find(done.begin(), done.end(), &made) != done.end()) return made;
  done.push_back(&made);
  ClassRuntime& runtime = made.runtime();
  const ClassRef target = runtime.NSClassFromString("ECCalendarEvent");
  for (const char* selector : {"hookedIsOccurrence", "hookedOlmUCInband", "setHookedOlmUCInband:"}) {
    const std::string added = std::string("vn_ECCalendarEvent_") + selector;
    const auto forwarding = [added, &runtime](const HostObject& receiver, const Arguments& arguments) {
      return HookCall(runtime, added, receiver, arguments).forward();
    };
    runtime.class_addMethod(target, added, forwarding, "@@:");
    if (!classSwizzle::method_InstanceSwizzle(target, selector, added)) std::abort();
  }
  return made;
}

template <typename Call>
double secondsForAThousand(const Call& call) {
  const auto began = std::chrono::steady_clock::now();
  for (int i = 0; i < 1000; ++i) call();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count();
}

template <typename Call, typename Peer>
void compare(benchmark::State& state, const Call& call, const Peer& peer) {
  double ours = 0;
  double theirs = 0;
  for ([[maybe_unused]] auto _ : state) {
    theirs += secondsForAThousand(peer);
    const double seconds = secondsForAThousand(call);
    ours += seconds;
    state.SetIterationTime(seconds);
  }
  const double calls = 1000.0 * static_cast<double>(state.iterations());
  state.counters["ns_a_call"] = ours / calls * 1e9;
  state.counters["ns_of_peer"] = theirs / calls * 1e9;
  state.counters["ratio"] = ours / theirs;
}

void BM_HookedFlag(benchmark::State& state, Host of) {
  HookedHost& host = hooked(of);
  compare(
      state, [&] { host.readFlag(true); }, [&] { host.readFlag(false); });
}

void BM_HookedRecord(benchmark::State& state, Host of) {
  HookedHost& host = hooked(of);
  compare(
      state, [&] { host.readRecord(true); }, [&] { host.readRecord(false); });
}

void BM_HookedSetter(benchmark::State& state, Host of) {
  HookedHost& host = hooked(of);
  compare(
      state, [&] { host.writeRecord(true); }, [&] { host.writeRecord(false); });
}

// What a plain interface would cost, had the host one.
class PlainEvent {
 public:
  virtual ~PlainEvent() = default;
  virtual Value isOccurrence() const = 0;
  virtual Value olmUCInband() const = 0;
};

class KnownEvent final : public PlainEvent {
 public:
  Value isOccurrence() const override { return true; }
  Value olmUCInband() const override { return m_record; }

 private:
  Value m_record = HookedHost::record();
};

PlainEvent& plainEvent() {
  static KnownEvent event;
  benchmark::DoNotOptimize(&event);
  return event;
}

using Peer = std::function<void(HookedHost&)>;

void flagOfPlain(HookedHost&) { benchmark::DoNotOptimize(plainEvent().isOccurrence()); }
void recordOfPlain(HookedHost&) { benchmark::DoNotOptimize(plainEvent().olmUCInband()); }

void BM_SendFlag(benchmark::State& state, Host of, const Peer& peer) {
  HookedHost& host = hooked(of);
  const HostObject event = host.event();
  compare(
      state, [&] { benchmark::DoNotOptimize(host.runtime().send(event, "isOccurrence")); }, [&] { peer(host); });
}

void BM_SendRecord(benchmark::State& state, Host of, const Peer& peer) {
  HookedHost& host = hooked(of);
  const HostObject event = host.event();
  compare(
      state, [&] { benchmark::DoNotOptimize(host.runtime().send(event, "olmUCInband")); }, [&] { peer(host); });
}

void BM_ProxyRecord(benchmark::State& state, Host of, const Peer& peer) {
  HookedHost& host = hooked(of);
  const vnDelegateBase proxy("ECCalendarEvent", host.event());
  compare(
      state, [&] { benchmark::DoNotOptimize(proxy.getOLItemID("olmUCInband")); }, [&] { peer(host); });
}

BENCHMARK_CAPTURE(BM_HookedFlag, embedded, &embeddedHost)->UseManualTime();
BENCHMARK_CAPTURE(BM_HookedRecord, embedded, &embeddedHost)->UseManualTime();
BENCHMARK_CAPTURE(BM_HookedSetter, embedded, &embeddedHost)->UseManualTime();
BENCHMARK_CAPTURE(BM_SendFlag, embedded, &embeddedHost, &flagOfPlain)->UseManualTime();
BENCHMARK_CAPTURE(BM_SendRecord, embedded, &embeddedHost, &recordOfPlain)->UseManualTime();
BENCHMARK_CAPTURE(BM_ProxyRecord, embedded, &embeddedHost, &recordOfPlain)->UseManualTime();

#ifdef VORN_OBJC
void flagOfHost(HookedHost& host) { host.readFlag(false); }
void recordOfHost(HookedHost& host) { host.readRecord(false); }

BENCHMARK_CAPTURE(BM_HookedFlag, objc, &objectiveCHost)->UseManualTime();
BENCHMARK_CAPTURE(BM_HookedRecord, objc, &objectiveCHost)->UseManualTime();
BENCHMARK_CAPTURE(BM_HookedSetter, objc, &objectiveCHost)->UseManualTime();
BENCHMARK_CAPTURE(BM_SendFlag, objc, &objectiveCHost, &flagOfHost)->UseManualTime();
BENCHMARK_CAPTURE(BM_SendRecord, objc, &objectiveCHost, &recordOfHost)->UseManualTime();
BENCHMARK_CAPTURE(BM_ProxyRecord, objc, &objectiveCHost, &recordOfHost)->UseManualTime();
#endif

}  // namespace
}  // namespace vorn
