#include "host/surface/vnErageAppDelegate.h"
#include "tests/surface/SurfaceWorld.h"
#include "workflow/ThreadDictionary.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {
namespace {

using AppDelegate = SurfaceWorld;

TEST_F(AppDelegate, OpensANewMeetingLaterAndLeavesWordForItsBar) {
  const HostObject application = host.object("NSApplication", {{"isActive", false}});
  host.set(application, "activateIgnoringOtherApps:", Value());
  world.classRuntime.setClassMethod(
      "NSApplication", "sharedApplication",
      [application](const HostObject&, const Arguments&) { return Value(application); });
  const HostObject appDelegate = host.object("ErageAppDelegate", {{"newCalendarMeeting:", Value()}});
  const Value argument(Value::Dictionary{{"account", 1}});
  vnErageAppDelegate(appDelegate).autoAddPACToAppointment(argument);

  const ThreadDictionary& left = ThreadDictionary::sharedInstance();
  EXPECT_TRUE(left[keyFlagAutoAddToPACMeeting].boolValue());
  EXPECT_EQ(left[keyFlagVnMeetingArgument], argument);
  EXPECT_EQ(host.calls(application, "activateIgnoringOtherApps:").size(), 1u);
  EXPECT_TRUE(host.calls(appDelegate, "newCalendarMeeting:").empty());
  world.runLoop.runDue();
  EXPECT_EQ(host.calls(appDelegate, "newCalendarMeeting:").size(), 1u);
  EXPECT_TRUE(left[keyFlagAutoAddToPACMeeting].boolValue()) << "a busy host opens its window later";

  // The next command takes the place of the one before, and a window that never comes is not waited for.
  vnErageAppDelegate(appDelegate).autoAddVornToAppointment(Value());
  vnErageAppDelegate(appDelegate).autoAddVornToAppointment(Value());
  world.runLoop.runDue();
  EXPECT_EQ(host.calls(appDelegate, "newCalendarMeeting:").size(), 2u) << "two clicks in one turn are one";
  EXPECT_TRUE(left[keyFlagAutoAddToPACMeeting].isAbsent());
  EXPECT_TRUE(left[keyFlagVnMeetingArgument].isAbsent());
  EXPECT_TRUE(left[keyFlagAutoAddToVnMeeting].boolValue());
  world.runLoop.runFor(6);
  EXPECT_TRUE(left[keyFlagAutoAddToVnMeeting].isAbsent()) << "no window came, and the next one is another matter";
}

TEST_F(AppDelegate, AnArgumentThatIsNoDictionaryIsNotLeft) {
  vnErageAppDelegate(host.object("ErageAppDelegate")).autoAddVornToAppointment("sender");
  EXPECT_TRUE(ThreadDictionary::sharedInstance()[keyFlagAutoAddToVnMeeting].boolValue());
  EXPECT_TRUE(ThreadDictionary::sharedInstance()[keyFlagVnMeetingArgument].isAbsent());
  world.runLoop.runDue();
}

}  // namespace
}  // namespace vorn
