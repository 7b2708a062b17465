#include <gmock/gmock.h>

#include <filesystem>

#include "channel/store/vnCommon.h"
#include "host/surface/MainWindowToolbar.h"
#include "host/surface/vnCommandItemMgr.h"
#include "tests/surface/SurfaceWorld.h"
#include "workflow/ThreadDictionary.h"
#include "workflow/vnMeetingMgr.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {
namespace {

using testing::ElementsAre;
using Identifiers = std::vector<std::string>;

// A main window with a toolbar that inserts what it is told to.
class MainWindow : public SurfaceWorld {
 protected:
  MainWindow() {
    host.set(mainWindow, "toolbar", toolbar);
    host.set(mainWindow, "windowController", host.object("ERageMainWindowController", {{"window", mainWindow}}));
    host.set(application, "windows", Value(Value::Array{window, mainWindow}));
    world.classRuntime.setClassMethod("NSApplication", "sharedApplication",
                                      [this](const HostObject&, const Arguments&) { return Value(application); });
    world.classRuntime.setInstanceMethod(
        "NSToolbar",
        "insertItemWithItemIdentifier:atIndex:", [this](const HostObject&, const Arguments& arguments) {
          Identifiers now = shown();
          now.insert(now.begin() + arguments.at(1).integerValue(), arguments.at(0).text());
          show(now);
          return Value();
        });
  }

  void show(const Identifiers& identifiers) {
    Value items = Value::array();
    for (const std::string& identifier : identifiers) {
      items.append(host.object("NSToolbarItem", {{"itemIdentifier", identifier}}));
    }
    host.set(toolbar, "items", items);
    host.set(toolbar, "visibleItems", items);
  }
  Identifiers shown() {
    Identifiers identifiers;
    for (const Value& item : host.get(toolbar, "items").items()) {
      identifiers.push_back(host.get(item.object(), "itemIdentifier").text());
    }
    return identifiers;
  }

  HostObject toolbar = host.object("NSToolbar", {{"isVisible", true}});
  HostObject mainWindow = host.object("NSWindow");
  HostObject application = host.object("NSApplication", {{"isActive", true}});
};

TEST_F(MainWindow, AnItemComesBeforeTheLastFlexibleSpaceAndOnlyOnce) {
  const std::string space = "NSToolbarFlexibleSpaceItem";
  const std::string line = "NSToolbarSeparatorItem";
  const std::string ours = "VNScheduleToolbarItem";
  const struct {
    Identifiers before, after;
    bool isVisible = true;
  } rows[] = {
      {{"A", space, "B", space, "C"}, {"A", space, "B", ours, space, "C"}},
      {{"A", "B"}, {ours, "A", "B"}},
      {{}, {ours}},
      {{space, "A"}, {ours, space, "A"}},
      {{"A", line, space}, {"A", line, line, ours, space}},
      {{line, "A"}, {ours, line, "A"}},
      {{"A", ours, space}, {"A", ours, space}},
      {{"A", space}, {"A", space}, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.before));
    host.set(toolbar, "isVisible", row.isVisible);
    show(row.before);
    addUIToMainWindow(m_scheduleMeetingItemIdentifier);
    EXPECT_EQ(shown(), row.after);
    addUIToMainWindow(m_scheduleMeetingItemIdentifier);
    EXPECT_EQ(shown(), row.after);
  }
}

TEST_F(MainWindow, GetsItemsAtLoadOnlyWhereUsersDoNotFindThem) {
  for (const char* version : {"14.5.1", "14.6.0", "16.78", "14.1.0", ""}) {
    world.restart();
    setHostVersion(version);
    show({"A", "NSToolbarFlexibleSpaceItem"});
    HookInstaller::sharedInstance().load();
    const bool gets = std::string(version).starts_with("14.5");
    EXPECT_EQ(shown(), gets ? Identifiers({"A", "VNScheduleToolbarItem", "VNStartToolbarItem",
                                           "NSToolbarFlexibleSpaceItem"})
                            : Identifiers({"A", "NSToolbarFlexibleSpaceItem"}))
        << version;
  }
}

TEST_F(MainWindow, ACommandOutsideTheFourDoesNothing) {
  vnCommandItemMgr& commands = vnCommandItemMgr::sharedInstance();
  for (const int number : {0, 5, -1}) EXPECT_EQ(commands.SendToolbarItemCommand(number, Value()), 0);
  EXPECT_EQ(vnMeetingMgr::sharedInstance()->getMeetingAction(), 0u);
  EXPECT_TRUE(world.workspace.openedFolders.empty());
  EXPECT_TRUE(ThreadDictionary::sharedInstance()[keyFlagAutoAddToVnMeeting].isAbsent());
}

TEST_F(MainWindow, AnInstantMeetingStartsWithOrWithoutVideo) {
  vnCommandItemMgr& commands = vnCommandItemMgr::sharedInstance();
  const std::pair<Value, std::uint64_t> rows[] = {{"1", 9}, {"0", 10}, {true, 9}, {false, 10}, {Value(), 10}};
  for (const auto& [withVideo, command] : rows) {
    commands.SendToolbarItemCommand(1, Value::dictionaryFromPairs({{kPara_StartWithVideo, withVideo}}));
    EXPECT_EQ(vnMeetingMgr::sharedInstance()->getMeetingAction(), command);
  }
}

TEST_F(MainWindow, SchedulingNeedsTheApplicationsDelegate) {
  vnCommandItemMgr& commands = vnCommandItemMgr::sharedInstance();
  const ThreadDictionary& left = ThreadDictionary::sharedInstance();
  commands.SendToolbarItemCommand(2, Value());
  commands.initPluginInstance();
  commands.SendToolbarItemCommand(3, Value());
  EXPECT_TRUE(left[keyFlagAutoAddToVnMeeting].isAbsent());
  EXPECT_TRUE(left[keyFlagAutoAddToPACMeeting].isAbsent());

  const HostObject appDelegate = host.object("ErageAppDelegate", {{"newCalendarMeeting:", Value()}});
  host.set(application, "delegate", appDelegate);
  HookInstaller::sharedInstance().load();
  commands.SendToolbarItemCommand(2, Value());
  EXPECT_TRUE(left[keyFlagAutoAddToVnMeeting].boolValue());
  world.runLoop.runDue();
  EXPECT_EQ(host.calls(appDelegate, "newCalendarMeeting:").size(), 1u);
  commands.SendToolbarItemCommand(3, Value::dictionaryFromPairs({{"accountNo", 2}}));
  EXPECT_TRUE(left[keyFlagAutoAddToPACMeeting].boolValue());
  EXPECT_EQ(left[keyFlagVnMeetingArgument]["accountNo"], Value(2));
}

TEST_F(MainWindow, TheLogFolderIsShown) {
  std::filesystem::create_directories(vnCommon::getDocumentOutlookPluginRootPath());
  vnCommandItemMgr::sharedInstance().SendToolbarItemCommand(4, Value());
  EXPECT_THAT(world.workspace.openedFolders, ElementsAre(vnCommon::getDocumentOutlookPluginRootPath()));
}

}  // namespace
}  // namespace vorn
