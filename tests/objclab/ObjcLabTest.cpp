// The real bundle in the host of true Objective-C classes, with the client as a process of its own. Without the
// Objective-C edge there is nothing to try here.

#ifdef VORN_OBJC

#include <gtest/gtest.h>
#include <objc/runtime.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "lab/host/HostSelectors.h"
#include "lab/objc/OwnWorld.h"
#include "lab/objc/standins/HeadlessSession.h"
#include "lab/objc/standins/LivingViews.h"
#include "lab/shell/LabError.h"

namespace vornlab {
namespace {

std::filesystem::path& ownWorld() {
  static std::filesystem::path world;
  return world;
}

// As the table of selectors writes it, for a type as the runtime tells it.
char letterOf(char* told) {
  const std::unique_ptr<char, void (*)(void*)> type(told, free);
  const std::string_view code = std::string_view(type.get()).substr(std::strspn(type.get(), "rnNoORV"));
  if (code.empty()) return '?';
  if (std::strchr("cCB", code.front())) return 'B';
  if (std::strchr("iIlLqQsS", code.front())) return 'i';
  if (std::strchr("df", code.front())) return 'd';
  if (std::strchr("@#", code.front())) return '@';
  return std::strchr("^*", code.front()) ? '*' : code.front();
}

std::string typesOf(Method method) {
  std::string types(1, letterOf(method_copyReturnType(method)));
  for (unsigned i = 2; i < method_getNumberOfArguments(method); ++i)
    types += letterOf(method_copyArgumentType(method, i));
  return types;
}

template <typename Result, typename... Arguments>
Result sendTo(id receiver, const char* selector, Arguments... arguments) {
  const SEL name = sel_registerName(selector);
  // Told by the runtime as a function of whatever arguments, which the compiler would rather know.
  const auto method = reinterpret_cast<void (*)()>(class_getMethodImplementation(object_getClass(receiver), name));
  return reinterpret_cast<Result (*)(id, SEL, Arguments...)>(method)(receiver, name, arguments...);
}

class ObjectiveCHost : public testing::Test {
 protected:
  // A process has one host.
  static void SetUpTestSuite() {
    static CalendarStore shown;
    calendar = &shown;
    IcsProblem problem;
    calendar->loadText(
        "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:test\r\n"
        "BEGIN:VEVENT\r\nUID:one\r\nDTSTAMP:20300101T000000Z\r\nDTSTART:20300514T120000Z\r\n"
        "DTEND:20300514T133000Z\r\nSUMMARY:Review\r\nEND:VEVENT\r\n"
        "BEGIN:VEVENT\r\nUID:plain\r\nDTSTAMP:20300101T000000Z\r\nDTSTART:20300515T120000Z\r\n"
        "DTEND:20300515T130000Z\r\nSUMMARY:Lunch\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n",
        problem);
    LabOptions options;
    options.programs = VORNLAB_PROGRAMS;
    options.world = ownWorld();
    session = std::make_unique<HeadlessSession>(options, *calendar, HostOptions());
    host = &session->host();
  }
  static void TearDownTestSuite() { session.reset(); }

  static CalendarEvent event(const char* uid) { return calendar->find(uid).value(); }
  // Without saving, until the plug-in has cleared up.
  static void closeEditors() {
    for (const HostFace::EditorId editor : host->editors()) host->closeWithoutSaving(editor);
    session->passTime(2 * kClearingSeconds);
  }
  // The plug-in sees to the ribbon a moment after the host has drawn it.
  static void letRibbonBeSeenTo() { session->passTime(0.03); }
  static std::string ribbonState() {
    letRibbonBeSeenTo();
    const HostControl seen = host->ribbonControl("onClickAbout:");
    return !seen.exists ? "none" : seen.isShown ? "shown" : "hidden";
  }

  static CalendarStore* calendar;
  static std::unique_ptr<HeadlessSession> session;
  static HostFace* host;
};

CalendarStore* ObjectiveCHost::calendar = nullptr;
std::unique_ptr<HeadlessSession> ObjectiveCHost::session;
HostFace* ObjectiveCHost::host = nullptr;

TEST_F(ObjectiveCHost, EveryRowOfTheTableStands) {
  const vorn::Value told = session->ask("hooks");
  EXPECT_GT(told["rows"].integerValue(), 0);
  EXPECT_EQ(told["standing"], told["rows"]);
  EXPECT_THROW(session->ask("no such question"), LabError);
}

TEST_F(ObjectiveCHost, AnswersEverySelectorOfAHostWithItsTypes) {
  for (const auto& [className, ofTheClass, selector, types] : hostSelectors()) {
    SCOPED_TRACE(std::string(className) + " " + selector);
    Class found = objc_getClass(className);
    ASSERT_TRUE(found);
    const SEL name = sel_registerName(selector);
    const Method method = ofTheClass ? class_getClassMethod(found, name) : class_getInstanceMethod(found, name);
    ASSERT_TRUE(method);
    EXPECT_EQ(typesOf(method), types);
  }
}

TEST_F(ObjectiveCHost, TheBundleSharesTheLibraryThatTheHostHasAlready) {
  std::set<std::string> copies;
  std::ifstream maps("/proc/self/maps");
  for (std::string line; std::getline(maps, line);) {
    if (line.find("/libvorn_platform.") != std::string::npos) copies.insert(line.substr(line.find('/')));
  }
  EXPECT_EQ(copies.size(), 1U);
}

TEST_F(ObjectiveCHost, TheRibbonHasOneButtonAndLetsGoOfTheOthers) {
  for (int i = 0; i < 50; ++i) {
    i % 2 == 0 ? host->showMailPane() : host->showCalendarPane();
    if (i % 7 == 0) host->rebuildRibbon();
    if (i % 3 == 0) letRibbonBeSeenTo();
  }
  EXPECT_EQ(ribbonState(), "shown");
  const HostControl button = host->ribbonControl("popUpMenu:");
  EXPECT_EQ(livingViews("vnPopupButton"), 1U);
  EXPECT_EQ(livingViews("OUIRibbonView"), 1U);
  EXPECT_EQ(button.frame.x, 240) << "behind the two chunks of the calendar's tab";
  EXPECT_EQ(button.frame.width, 60);
  EXPECT_EQ(button.frame.height, 60);
}

TEST_F(ObjectiveCHost, TheBarPlacesItsButtonsAndGoesWithItsWindow) {
  letRibbonBeSeenTo();
  const std::size_t before = livingViews("vnPopupButton");
  for (int i = 0; i < 10; ++i) {
    host->openEditorAt(event("plain").index());
    ASSERT_TRUE(session->waitForQuiet());
    const std::pair<const char*, double> buttons[] = {{"onClickAddVornMeeting:", 0},
                                                      {"onClickCancelVornMeeting:", 0},
                                                      {"onClickChangeSettings:", 195},
                                                      {"popUpMenu:", 195}};
    for (const auto& [action, left] : buttons) {
      const HostControl seen = host->barControl(host->editors().back(), action);
      EXPECT_EQ(seen.frame.x, left) << action;
      EXPECT_EQ(seen.frame.width, 190) << action;
    }
    closeEditors();
  }
  EXPECT_EQ(livingViews("vnPopupButton"), before);
  for (const char* gone : {"vnSettingsButton", "vnActionAdditionView", "OLCalendarHeaderContainerView"})
    EXPECT_EQ(livingViews(gone), 0U) << gone;
}

TEST_F(ObjectiveCHost, AnEditorThatHasClosedStoresNothing) {
  const std::string before = calendar->text();
  const HostFace::EditorId editor = host->openEditorAt(event("plain").index());
  host->typeSubject(editor, "typed too late");
  const id kept = reinterpret_cast<id>(host->viewController(editor).address());
  const id window = reinterpret_cast<id>(host->window(editor).address());
  sendTo<void>(window, "close");
  EXPECT_FALSE(host->isOpen(editor)) << "a window that closes by itself takes its editor along";
  EXPECT_EQ(sendTo<int>(kept, "saveAndCloseWindow:", true), -1);
  session->passTime(2 * kClearingSeconds);
  EXPECT_EQ(calendar->text(), before);
}

}  // namespace
}  // namespace vornlab

// The second run of this program, in a world of its own, is the one that tries anything.
int main(int argc, char** argv) {
  vornlab::ownWorld() = vornlab::enterOwnWorld(argv);
  testing::InitGoogleTest(&argc, argv);
  const int result = RUN_ALL_TESTS();
  std::filesystem::remove_all(vornlab::ownWorld());
  return result;
}

#endif
