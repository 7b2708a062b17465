#include <algorithm>
#include <set>
#include <stdexcept>

#include "channel/transport/vSocketClientImpl.h"
#include "platform/Registry.h"
#include "tests/surface/SurfaceWorld.h"

namespace vorn {
namespace {

using HookTable = SurfaceWorld;

TEST_F(HookTable, EveryAddedSelectorCarriesOurPrefixItsClassAndTheHostSelector) {
  const auto added = [](const char* hostClass) { return HookRow{hostClass, {}, "save:", {}, {}}.addedSelector(); };
  EXPECT_EQ(added("ECCalendarEvent"), "vn_ECCalendarEvent_save:");
  EXPECT_EQ(added("OLAttachmentsAcceptingView"), "vnOLAttachmentsAcceptingView_save:");
  EXPECT_EQ(added("OLAutoLayoutAttachmentsAcceptingView"), "vnOLAutoLayoutAttachmentsAcceptingView_save:");
  std::set<std::string> all;
  for (const HookClass& hookClass : hookTable()) {
    for (const HookRow& r : hookClass.rows) {
      EXPECT_TRUE(all.insert(r.addedSelector()).second) << r.addedSelector();
      EXPECT_TRUE(r.addedSelector().ends_with("_" + std::string(r.hostSelector))) << r.addedSelector();
    }
  }
}

// The runtime does not look at the types, and these rows are entered as they stand although they say something
// else.
bool hasTypesOfItsOwn(const HookRow& r) {
  return r.hostSelector == "initWithFrame:" || r.hostSelector == "drawRect:" ||
         r.hostSelector == "showWindowForNewEvent";
}

TEST_F(HookTable, TheTypesNameAReceiverASelectorAndEachArgument) {
  for (const HookClass& hookClass : hookTable()) {
    for (const HookRow& r : hookClass.rows) {
      std::string types(r.encoding);
      std::erase(types, '^');
      EXPECT_EQ(types.find_first_not_of("@:vBcdfil"), std::string::npos) << r.addedSelector();
      EXPECT_EQ(types.substr(1, 2), "@:") << r.addedSelector();
      if (hasTypesOfItsOwn(r)) continue;
      EXPECT_EQ(types.size() - 3, std::count(r.hostSelector.begin(), r.hostSelector.end(), ':'))
          << r.addedSelector();
    }
  }
}

TEST_F(HookTable, TellsForEachRowWhetherItStandsAndOfAHostThatIsTooOldInOneAlert) {
  const std::pair<const char*, const char*> has[] = {{"ERCalendarEventEditorViewController", "save:"},
                                                     {"OLCalendarHeaderContainerView", "drawRect:"},
                                                     {"ERageMainWindowController", "windowWillClose:"}};
  for (const auto& [className, selector] : has) host.teach(className, {selector});
  std::size_t rows = 0;
  for (const HookClass& hookClass : hookTable()) rows += hookClass.rows.size();
  for (const bool isTooOld : {true, false}) {
    world.restart();
    setHostVersion(isTooOld ? "14.1.3" : "16.78");
    HookInstaller::sharedInstance().load();
    EXPECT_EQ(world.presenter.alerts().size(), 1u);
    ASSERT_EQ(HookInstaller::sharedInstance().states().size(), rows);
    for (const HookState& state : HookInstaller::sharedInstance().states()) {
      HookStanding expected = HookStanding::noClass;
      if (world.classRuntime.NSClassFromString(state.row->hostClass)) expected = HookStanding::noHostMethod;
      for (const auto& [className, selector] : has) {
        if (state.row->hostClass != className) continue;
        if (state.row->hostSelector == selector) expected = HookStanding::stands;
        if (isTooOld && className != has[0].first) expected = HookStanding::unsupportedHost;
      }
      EXPECT_EQ(nameOfHookStanding(state.standing), nameOfHookStanding(expected)) << state.row->addedSelector();
    }
  }
}

TEST_F(HookTable, AnAddedSelectorWithoutAHostMethodAnswersNothingInsteadOfRunningForEver) {
  HookInstaller::sharedInstance().load();
  EXPECT_TRUE(
      world.classRuntime.respondsTo(editor, "vn_ERCalendarEventEditorViewController_sendMeetingPostValidate"));
  EXPECT_TRUE(world.classRuntime.send(editor, "vn_ERCalendarEventEditorViewController_sendMeetingPostValidate")
                  .isAbsent());
}

TEST_F(HookTable, WhatAHostMethodRaisesReachesTheHostAndEndsTheHook) {
  int calls = 0;
  const auto raising = [&calls](const HostObject&, const Arguments&) -> Value {
    ++calls;
    throw std::domain_error("host");
  };
  world.classRuntime.setInstanceMethod("ECCalendarEvent", "olmUCInband", raising);
  world.classRuntime.setInstanceMethod("OLAutoLayoutAttachmentsAcceptingView", "initWithFrame:", raising);
  host.set(event, "isOccurrence", true);
  HookInstaller::sharedInstance().load();
  EXPECT_THROW(world.classRuntime.sendAsHost(event, "olmUCInband", {}), std::domain_error);
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(world.classRuntime.send(event, "isOccurrence"), Value(true)) << "the trick is over with the call";
  EXPECT_THROW(world.classRuntime.sendAsHost(header, "initWithFrame:", {valueFromRect({})}), std::domain_error);
  EXPECT_FALSE(inHeader);
  EXPECT_TRUE(world.classRuntime.send(event, "olmUCInband").isAbsent()) << "for a send of ours it is nothing";
}

TEST_F(HookTable, AnExceptionOfOursCostsTheHostNeitherItsCallNorItsResult) {
  struct Failing final : vSocketClientImpl {
    void disconnect() override { throw std::runtime_error("ours"); }
  };
  Registry::install<vSocketClientImpl>(std::make_unique<Failing>());
  const HostObject mainWindow = host.object("ERageMainWindowController", {{"windowWillClose:", "closed"}});
  host.set(header, "initWithFrame:", header);
  vnApptUIActionMgr::sharedInstance().setBarFactory([](const HostObject&) { throw std::runtime_error("ours"); });
  HookInstaller::sharedInstance().load();
  EXPECT_EQ(world.classRuntime.send(mainWindow, "windowWillClose:", {Value()}), Value("closed"));
  EXPECT_EQ(world.classRuntime.send(header, "initWithFrame:", {Value()}), Value(header));
  EXPECT_EQ(host.calls(header, "initWithFrame:").size(), 1U);
}

TEST_F(HookTable, TheHostGoesOnAloneAfterTheEndOfThisSystem) {
  host.set(editor, "save:", "saved");
  host.set(event, "olmUCInband", "{}");
  HookInstaller::sharedInstance().load();
  Registry::reset();
  EXPECT_EQ(world.classRuntime.send(editor, "save:", {Value()}), Value("saved"));
  EXPECT_EQ(world.classRuntime.send(event, "olmUCInband"), Value("{}"));
}

TEST_F(HookTable, ASecondStartInTheSameHostFindsTheHooksInPlace) {
  host.set(editor, "save:", "saved");
  const HostObject view = host.object("OLAutoLayoutView", {{"drawRect:", "drawn by the host"}});
  HookInstaller::sharedInstance().load();
  const auto standings = [] {
    std::vector<HookStanding> all;
    for (const HookState& state : HookInstaller::sharedInstance().states()) all.push_back(state.standing);
    return all;
  };
  const std::vector<HookStanding> first = standings();
  world.restart();
  WorkflowDirectory::sharedInstance().install();
  HookInstaller::sharedInstance().load();
  ASSERT_EQ(world.classRuntime.send(view, "drawRect:", {Value()}), Value(true));
  EXPECT_EQ(world.classRuntime.send(view, "vn_OLAutoLayoutView_drawRect:", {Value()}), Value("drawn by the host"));
  EXPECT_EQ(world.classRuntime.send(editor, "save:", {Value()}), Value("saved"));
  EXPECT_EQ(standings(), first);
}

TEST_F(HookTable, AnItemOfASeriesPassesForASingleAppointmentOnlyWhileItsRecordIsReadOrWritten) {
  host.teach("ECMutableCalendarEvent", {});
  for (const char* className : {"ECCalendarEvent", "ECMutableCalendarEvent"}) {
    for (const char* selector : {"olmUCInband", "olmUCCapabilities", "setOlmUCInband:"}) {
      world.classRuntime.setInstanceMethod(className, selector, [this](const HostObject&, const Arguments&) {
        return Value(Value::Array{world.classRuntime.send(event, "isOccurrence"),
                                  world.classRuntime.send(event, "isRecurring")});
      });
    }
  }
  host.set(event, "isOccurrence", true);
  host.set(event, "isRecurring", true);
  HookInstaller::sharedInstance().load();
  const HostObject record = host.object("ECMutableCalendarEvent");
  EXPECT_EQ(world.classRuntime.send(event, "isOccurrence"), Value(true));
  const Value single(Value::Array{false, false});
  EXPECT_EQ(world.classRuntime.send(event, "olmUCInband"), single);
  EXPECT_EQ(world.classRuntime.send(event, "olmUCCapabilities"), single);
  EXPECT_EQ(world.classRuntime.send(record, "setOlmUCInband:", {"{}"}), single);
  EXPECT_EQ(world.classRuntime.send(event, "isOccurrence"), Value(true));
  EXPECT_EQ(world.classRuntime.send(event, "isRecurring"), Value(true));
}

}  // namespace
}  // namespace vorn
