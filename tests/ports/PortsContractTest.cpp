// What every platform keeps, whatever it is made of.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <set>

#include "tests/ports/PortsWorld.h"
#include "tests/ports/SmallMachine.h"

namespace vorn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct MadePorts {
  const char* name;
  std::unique_ptr<PortsWorld> (*make)();
};

// The processes of the whole machine are looked at, so no other program, nor another of these tests, may have it.
const std::string kOwn = "us.vorn.contract.own" + std::to_string(::getpid());

class PortsContract : public testing::TestWithParam<MadePorts> {
 protected:
  std::unique_ptr<PortsWorld> world = GetParam().make();
};

TEST_P(PortsContract, AnApplicationIsFoundByItsIdentifierWithWhatItsBundleSays) {
  Workspace& workspace = world->workspace();
  EXPECT_EQ(workspace.absolutePathForAppBundle("us.vorn.xos"), "");
  world->install("Other", "us.vorn.other");
  const std::string bundle = world->install("Vorn", "us.vorn.xos");
  EXPECT_EQ(workspace.absolutePathForAppBundle("us.vorn.xos"), bundle);
  EXPECT_TRUE(workspace.isFilePackage(bundle));
  EXPECT_FALSE(workspace.isFilePackage(bundle + "/Contents"));
  EXPECT_FALSE(workspace.isFilePackage(bundle + ".app"));
  EXPECT_EQ(workspace.executablePath(bundle), bundle + "/Contents/MacOS/main");
  EXPECT_EQ(workspace.executablePath(bundle + ".app"), "");
  EXPECT_EQ(workspace.propertyListAtPath(bundle + "/Contents/Info.plist")["CFBundleIdentifier"], "us.vorn.xos");
  EXPECT_TRUE(workspace.propertyListAtPath(bundle + "/Contents/MacOS/main").isAbsent());
}

TEST_P(PortsContract, AnApplicationRunsFromItsProcesssBeginToItsEnd) {
  const std::string bundle = world->install("Vorn", kOwn);
  SmallMachine other;
  other.run(other.install("Vorn", kOwn));
  EXPECT_FALSE(world->workspace().isRunning(kOwn)) << "what runs in another home is nobody's here";
  world->run(bundle);
  EXPECT_TRUE(world->workspace().isRunning(kOwn));
  EXPECT_FALSE(world->workspace().isRunning(kOwn.substr(0, kOwn.size() - 1)));
  world->quit();
  EXPECT_FALSE(world->workspace().isRunning(kOwn));
}

TEST_P(PortsContract, AProgramIsStartedWithoutWaitingAndOneThatIsNotThereIsNot) {
  const std::string bundle = world->install("Vorn", "us.vorn.xos");
  EXPECT_FALSE(world->workspace().launch(bundle + "/Contents/MacOS/none"));
  EXPECT_FALSE(world->workspace().openFolder(bundle + "/none"));
  EXPECT_FALSE(world->workspace().openWebPage("file://" + bundle)) << "only pages of the web come from outside";
  EXPECT_TRUE(world->workspace().launch(bundle + "/Contents/MacOS/main"));
  EXPECT_TRUE(world->wasStarted(bundle));
}

TEST_P(PortsContract, WhatIsStoredInTheUsersDefaultsComesBackAsItWas) {
  UserDefaults& defaults = world->userDefaults();
  const Value people = Value(Value::Array{"x@y.z", Value(Value::Dictionary{{"ü", 2.5}})});
  for (const Value& value : {Value(true), Value(false), Value(7), Value(-0.5), Value("ü"), Value(""), people}) {
    defaults.setObject(value, "contract");
    EXPECT_EQ(defaults.objectForKey("contract"), value);
    EXPECT_EQ(defaults.objectForKey("contract").isBoolean(), value.isBoolean());
  }
  defaults.setObject("stays", "contract.other");
  defaults.setObject({}, "contract");
  EXPECT_TRUE(defaults.objectForKey("contract").isAbsent());
  defaults.removeObject("contract");
  defaults.synchronize();
  EXPECT_EQ(defaults.objectForKey("contract.other"), "stays");
  defaults.removeObject("contract.other");
  EXPECT_TRUE(defaults.objectForKey("contract.other").isAbsent());
}

TEST_P(PortsContract, AnotherProgramsDefaultsAreReadAsAWhole) {
  // Foundation remembers in one process what it has read once.
  const std::string domain = std::string("us.vorn.") + GetParam().name;
  EXPECT_TRUE(world->userDefaults().persistentDomainForName(domain).isAbsent());
  const Value told = Value::dictionaryFromPairs({{"installPath", "/A place/vornclient.app"}, {"count", 3}});
  world->writeDomain(domain, told);
  world->userDefaults().synchronize();
  EXPECT_EQ(world->userDefaults().persistentDomainForName(domain), told);
}

TEST_P(PortsContract, SurroundingsAreWholePathsAndLikelyFacts) {
  Surroundings& surroundings = world->surroundings();
  for (const std::string& folder :
       {surroundings.homeDirectory(), surroundings.documentsDirectory(), surroundings.applicationsDirectory(),
        surroundings.userApplicationsDirectory()}) {
    EXPECT_TRUE(folder.starts_with("/") && !folder.ends_with("/")) << folder;
  }
  EXPECT_TRUE(surroundings.documentsDirectory().starts_with(surroundings.homeDirectory() + "/"));
  EXPECT_GE(surroundings.systemVersion().major, 10);
  EXPECT_FALSE(surroundings.preferredLanguages().empty());
  EXPECT_GT(surroundings.currentTime(), 1.6e9);
  std::set<std::uint32_t> numbers;
  for (int i = 0; i < 16; ++i) numbers.insert(surroundings.random32());
  EXPECT_GT(numbers.size(), 14U);
}

TEST_P(PortsContract, AResourceIsFoundByNameAndTypeAndNothingOutsideTheFolderIs) {
  Surroundings& surroundings = world->surroundings();
  EXPECT_EQ(surroundings.resource("map", "txt"), std::nullopt);
  world->writeResource("map.txt", std::string("a\0ü", 4));
  EXPECT_EQ(surroundings.resource("map", "txt"), std::string("a\0ü", 4));
  EXPECT_EQ(surroundings.resource("map", "png"), std::nullopt);
  EXPECT_EQ(surroundings.resource("../Resources/map", "txt"), std::nullopt);
}

TEST_P(PortsContract, AnAlertShowsAllOfItselfAndTellsTheButtonAndTheSwitch) {
  world->writeResource("warning.png", "an image");
  const Presenter::Alert three{"Title", "Message", {"Save", "Do not save", "Cancel"}, "warning.png", "Not again"};
  const Presenter::Alert one{"", "", {"OK"}, "none.png"};
  const struct {
    const char* name;
    Presenter::Alert alert;
    bool isSheet;
    Presenter::Answer user;
    Presenter::Answer told;
  } rows[] = {
      {"the first button", three, true, {0, false}, {0, false}},
      {"the last one, by itself", three, false, {2, true}, {2, true}},
      {"another with the switch", three, true, {1, true}, {1, true}},
      {"a single button", one, true, {0, true}, {0, false}},
  };
  std::vector<Presenter::Answer> told;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    world->answerNext(row.user);
    const HostObject window = row.isSheet ? world->window() : HostObject();
    world->presenter().showAlert(window, row.alert,
                                 [&](const Presenter::Answer& answer) { told.push_back(answer); });
    const PortsWorld::Seen seen = world->alerts().back();
    EXPECT_EQ(seen.window, window);
    EXPECT_EQ(seen.message, row.alert.message);
    EXPECT_EQ(seen.buttons, row.alert.buttons);
    EXPECT_EQ(seen.hasIcon, row.alert.icon == "warning.png");
    EXPECT_EQ(seen.notAgainSwitch, row.alert.notAgainSwitch);
    EXPECT_EQ(told.back(), row.told);
  }
  EXPECT_THAT(told, SizeIs(std::size(rows)));
}

TEST_P(PortsContract, EachProgressSheetHasItsMessageAndIsEndedByItsOwnerAlone) {
  auto first = world->presenter().beginProgress("first");
  auto second = world->presenter().beginProgress("second");
  auto third = world->presenter().beginProgress("third");
  EXPECT_THAT(world->sheets(), ElementsAre("first", "second", "third"));
  second.reset();
  EXPECT_THAT(world->sheets(), ElementsAre("first", "third"));
  first.reset();
  EXPECT_THAT(world->sheets(), ElementsAre("third"));
  third.reset();
  EXPECT_THAT(world->sheets(), IsEmpty());
  auto late = world->presenter().beginProgress("late");
  world.reset();
}

TEST_P(PortsContract, APanelStandsOnItsWindowUntilItsOwnerLetsItGo) {
  Presenter& presenter = world->presenter();
  const PanelRecord* panels = world->panels();
  ControlSet controls;
  const Control& option = controls.add(Control::Kind::checkBox, "option");
  int told = 0;
  const auto subscription = controls.observe([&](const auto&) { ++told; });
  const PanelLayout layout{{{"section", "Heading", {{{{"option", "an option"}}}}}}};
  std::vector<std::string> used;
  std::unique_ptr<Presenter::Panel> panel, byItself;
  panel = presenter.showPanel(world->window(), "Settings", layout, controls, [&](const std::string& key) {
    used.push_back(key);
    EXPECT_TRUE(option.on && told == 0) << "within the change that the user makes";
    panel.reset();
  });
  EXPECT_EQ(panel != nullptr, panels != nullptr);
  EXPECT_EQ(presenter.canShowPanels(), panels != nullptr);
  if (!panels) return;
  EXPECT_EQ(panels->on(world->window()), &controls);
  EXPECT_EQ(panels->on({}), nullptr);
  EXPECT_EQ(panels->title(world->window()), "Settings");
  EXPECT_EQ(panels->layout(world->window()).sections.at(0).rows.at(0).places.at(0).words, "an option");
  panels->use(world->window(), "option", [](Control& control) { control.on = true; });
  EXPECT_THAT(used, ElementsAre("option"));
  EXPECT_EQ(told, 1);
  EXPECT_EQ(panels->on(world->window()), nullptr);
  byItself = presenter.showPanel({}, "", layout, controls, [](const std::string&) {});
  EXPECT_EQ(panels->on({}), &controls);
  world.reset();
}

const MadePorts kPlatforms[] = {
    {"embedded", makeEmbeddedPorts},
#ifdef VORN_OBJC
    {"apple", makeApplePorts},
    {"appleWithWorkspace", makeApplePortsWithWorkspace},
    {"appleWithRaisingWorkspace", makeApplePortsWithRaisingWorkspace},
#endif
};
INSTANTIATE_TEST_SUITE_P(On, PortsContract, testing::ValuesIn(kPlatforms),
                         [](const auto& made) { return std::string(made.param.name); });

}  // namespace
}  // namespace vorn
