// What a person waits for before the desktop, on a display: the settings panel of the richest account from the
// click to its drawing, the week of a large calendar, and whether panels and editors leave anything behind.

#import <Foundation/NSDebug.h>
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#import "lab/desktop/CalendarPane.h"
#include "lab/desktop/DesktopSession.h"
#import "lab/desktop/RealHand.h"
#include "lab/shell/LabError.h"

namespace vornlab {
namespace {

constexpr double kMonday = 1900022400;  // 2030-03-18
constexpr int kMany = 1000;
constexpr int kAppointments = 10000;
// What caches may differ by, over a thousand rounds: a lost text a round is more than that.
constexpr double kSlackMegabytes = 0.25;

std::string& worldFolder() {
  static std::string folder;
  return folder;
}

CalendarStore& calendar() {
  static CalendarStore store;
  return store;
}

std::unique_ptr<DesktopSession>& running() {
  static std::unique_ptr<DesktopSession> session;
  return session;
}

DesktopSession& session() {
  if (running()) return *running();
  DesktopSession::beginApplication();
  LabOptions options;
  options.programs = VORNLAB_PROGRAMS;
  options.account = EVERYTHING_ON;
  options.world = worldFolder();
  options.panelIsOff = false;
  running() = std::make_unique<DesktopSession>(options, calendar(), "");
  return *running();
}

bool waitForPanel(NSWindow*& panel, bool isWanted) {
  return session().waitUntil(
      [&] {
        panel = [[session().editorWindow() childWindows] lastObject];
        return (panel != nil) == isWanted;
      },
      10);
}

// Asks the runtime, as a class without NSObject above it, of which some are counted, would raise.
bool isBelow(Class each, Class ancestor) {
  while (each && each != ancestor) each = class_getSuperclass(each);
  return each != Nil;
}

// The views and windows that live, of every class.
double livingViews() {
  double count = 0;
  for (Class* each = GSDebugAllocationClassList(); each && *each; ++each) {
    if (isBelow(*each, [NSView class]) || isBelow(*each, [NSWindow class])) count += GSDebugAllocationCount(*each);
  }
  return count;
}

double usedMegabytes() {
  const auto info = mallinfo2();
  return static_cast<double>(info.uordblks + info.hblkhd) / (1024 * 1024);
}

bool openPanel(NSWindow*& panel) {
  return session().pressInBar("onClickAddVornMeeting:") && waitForPanel(panel, true);
}

void openAndClosePanel() {
  const Pool pool;
  NSWindow* panel = nil;
  if (!openPanel(panel)) throw LabError("no panel opens");
  [shownButton([panel contentView], @"Cancel") performClick:nil];
  waitForPanel(panel, false);
}

void openAndCloseEditor() {
  const Pool pool;
  session().openEditor(nullptr);
  session().closeEditors();
  session().passTime(0.02);
}

// A timer that has fired stays in the other modes of GNUstep's loop until these run, as they do for each question
// and each drag.
void settle() {
  session().passTime(0.5);
  for (NSString* mode : {NSModalPanelRunLoopMode, NSEventTrackingRunLoopMode})
    [[NSRunLoop currentRunLoop] limitDateForMode:mode];
}

// The settled state is that after some rounds, in which caches are filled.
void comeAndGo(benchmark::State& state, const std::function<void()>& round) {
  session();
  GSDebugAllocationActive(YES);
  for (int i = 0; i < 50; ++i) round();
  settle();
  const double views = livingViews();
  const double megabytes = usedMegabytes();
  for (auto _ : state) {
    for (int i = 0; i < kMany; ++i) round();
  }
  settle();
  const double moreViews = livingViews() - views;
  const double moreMegabytes = usedMegabytes() - megabytes;
  GSDebugAllocationActive(NO);
  state.counters["more_views"] = moreViews;
  state.counters["more_MB"] = moreMegabytes;
  if (moreViews > 0) return state.SkipWithError("views are left behind");
  if (moreMegabytes > kSlackMegabytes) {
    state.SkipWithError(("memory has grown by " + std::to_string(moreMegabytes) + " MB").c_str());
  }
}

// The reply of the client is part of it, as it is for the person.
void clickToDrawnPanel(benchmark::State& state) {
  session().openEditor(nullptr);
  session().waitForQuiet();
  for (auto _ : state) {
    const Pool pool;
    NSWindow* panel = nil;
    if (!openPanel(panel)) return state.SkipWithError("no panel opens");
    [panel display];
    state.PauseTiming();
    [shownButton([panel contentView], @"Cancel") performClick:nil];
    waitForPanel(panel, false);
    session().passTime(0.02);
    state.ResumeTiming();
  }
  session().closeEditors();
}

void panelsComeAndGo(benchmark::State& state) {
  session().openEditor(nullptr);
  session().waitForQuiet();
  comeAndGo(state, openAndClosePanel);
  session().closeEditors();
}

void editorsComeAndGo(benchmark::State& state) { comeAndGo(state, openAndCloseEditor); }

// All in one week, or an hour apart.
void loadMany(double seconds) {
  std::string text = "BEGIN:VCALENDAR\r\n";
  for (int i = 0; i < kAppointments; ++i) {
    const std::time_t start = static_cast<std::time_t>(kMonday + i * seconds);
    char stated[32];
    std::strftime(stated, sizeof stated, "%Y%m%dT%H%M%SZ", std::gmtime(&start));
    text += "BEGIN:VEVENT\r\nUID:" + std::to_string(i) + "\r\nDTSTART:" + stated +
            "\r\nDURATION:PT30M\r\nSUMMARY:Appointment with number " + std::to_string(i) + "\r\nEND:VEVENT\r\n";
  }
  IcsProblem problem;
  calendar().loadText(text + "END:VCALENDAR\r\n", problem);
  session();
}

void readLargeCalendar(benchmark::State& state) {
  loadMany(3600);
  for (auto _ : state) calendarHasChanged();
}

void scrollTheWeek(benchmark::State& state) {
  loadMany(static_cast<double>(state.range(0)));
  calendarHasChanged();
  vnWeekView* week = [shownPane() week];
  [week showWeekOf:kMonday + 86400];
  double y = 0;
  for (auto _ : state) {
    const Pool pool;
    y = y > 600 ? 0 : y + 40;
    [week scrollPoint:NSMakePoint(0, y)];
    [[week window] displayIfNeeded];
  }
}

void nextWeek(benchmark::State& state) {
  loadMany(static_cast<double>(state.range(0)));
  calendarHasChanged();
  vnWeekView* week = [shownPane() week];
  bool isForth = false;
  for (auto _ : state) {
    const Pool pool;
    isForth = !isForth;
    [week showWeekOf:kMonday + (isForth ? 8 : 1) * 86400.0];
    [[week window] displayIfNeeded];
  }
}

constexpr int kOneWeek = 60;
constexpr int kHourly = 3600;

BENCHMARK(clickToDrawnPanel)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
BENCHMARK(readLargeCalendar)->Unit(benchmark::kMillisecond);
BENCHMARK(scrollTheWeek)->Arg(kHourly)->Arg(kOneWeek)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(nextWeek)->Arg(kHourly)->Arg(kOneWeek)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(panelsComeAndGo)->Unit(benchmark::kSecond)->UseRealTime()->Iterations(1);
BENCHMARK(editorsComeAndGo)->Unit(benchmark::kSecond)->UseRealTime()->Iterations(1);

}  // namespace
}  // namespace vornlab

int main(int argc, char** argv) {
  vornlab::worldFolder() = vornlab::enterOwnWorld(argv).string();
  const vornlab::Pool pool;
  int result = 0;
  try {
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    result = 1;
  }
  vornlab::running().reset();
  std::filesystem::remove_all(vornlab::worldFolder());
  return result;
}
