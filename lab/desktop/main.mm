// The stand-in host with real windows.

#include <CLI/CLI.hpp>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "lab/desktop/CalendarFile.h"
#import "lab/desktop/CalendarPane.h"
#import "lab/desktop/ClientWindow.h"
#import "lab/desktop/DesktopScreen.h"
#include "lab/desktop/DesktopSession.h"
#include "lab/desktop/OwnPasteboard.h"
#import "lab/desktop/Picture.h"
#import "lab/desktop/Questions.h"
#include "lab/host/HostScreen.h"
#include "lab/objc/PlayAlone.h"
#include "lab/shell/CalendarInput.h"
#include "lab/shell/CommandLine.h"
#include "lab/shell/LabError.h"
#include "lab/words/OptionChecks.h"

namespace {

namespace fs = std::filesystem;
using namespace vornlab;

constexpr const char* kAdd = "onClickAddVornMeeting:";

struct DesktopWords {
  // Without a file it is an empty calendar.
  CalendarInput input;
  // The panel of a new appointment alone.
  bool panel = false;
  // "" for a window that stays.
  fs::path picture;
  // The folder for the pictures of a tour; "" for none.
  fs::path tour;
  // Scenarios, which are played one after the other; none for the desktop itself.
  PlayOptions play;
  fs::path pictures = ".";
  LabOptions lab;
};

void settle(DesktopSession& session) {
  if (!session.waitForQuiet()) throw LabError("the client did not answer in time");
}

NSWindow* openPanel(DesktopSession& session) {
  if (!session.pressInBar(kAdd)) throw LabError("the bar offers no meeting");
  settle(session);
  NSWindow* panel = [[session.editorWindow() childWindows] lastObject];
  if (panel) return panel;
  const std::string told = session.trace().alert();
  throw LabError("the panel does not open: " + (told.empty() ? "the plug-in shows none" : told));
}

// The panel of a new appointment, as a click in the bar opens it.
void showPanel(DesktopSession& session, const fs::path& picture) {
  session.openEditor(nullptr);
  settle(session);
  NSWindow* panel = openPanel(session);
  if (picture.empty()) return session.run([] { return true; });
  writePicture(panel, picture);
}

void scrollToEnd(NSView* view) {
  if ([view isKindOfClass:[NSScrollView class]]) {
    NSView* shown = [static_cast<NSScrollView*>(view) documentView];
    [shown scrollPoint:NSMakePoint(0, NSMaxY([shown bounds]))];
  }
  NSEnumerator* below = [[view subviews] objectEnumerator];
  while (NSView* each = [below nextObject]) scrollToEnd(each);
}

// The pictures of the documentation, each made by what a person would do.
void takeTour(DesktopSession& session, const fs::path& folder) {
  const std::vector<CalendarEvent> events = session.calendar().events();
  if (events.empty()) throw UsageError("a tour needs a calendar with an appointment");
  const CalendarEvent& event = events.front();
  fs::create_directories(folder);
  session.passTime(0.2);
  writePicture(session.mainWindow(), folder / "week.png");
  session.openEditor(&event);
  settle(session);
  writePicture(session.editorWindow(), folder / "editor.png");
  session.misbehave("reply 1 to action 6: error VornClientNotSignIn");
  pictureOfNextQuestion(folder / "notice.png");
  session.pressInBar(kAdd);
  settle(session);
  session.misbehave("");
  NSWindow* panel = openPanel(session);
  writePicture(panel, folder / "panel.png");
  scrollToEnd([panel contentView]);
  writePicture(panel, folder / "panel-end.png");
  [session.clientWindow() show];
  session.passTime(0.2);
  writePicture([session.clientWindow() window], folder / "client.png");
}

// Somebody who answers alerts where no person waits before the screen.
std::unique_ptr<HostScreen> watchedScreen(const LabOptions& lab, const fs::path& pictures) {
  const fs::path drawing = lab.programs / "objc/vOutlookPlugin.bundle/Contents/Frameworks/vornPluginWindows";
  return std::make_unique<DesktopScreen>(drawing, pictures);
}

void work(const DesktopWords& words) {
  CalendarStore calendar(words.input.storeOptions());
  FileQuestions person;
  CalendarFile file(words.input.file, calendar, person);
  if (!words.input.file.empty()) loadCalendar(calendar, words.input);
  file.begin();
  shownCalendarFile() = &file;
  try {
    const bool isWatched = words.panel && !words.picture.empty();
    DesktopSession session(words.lab, calendar, {}, isWatched ? watchedScreen(words.lab, "") : nullptr);
    if (words.panel) {
      showPanel(session, words.picture);
    } else if (!words.tour.empty()) {
      takeTour(session, words.tour);
    } else {
      session.run([&] { return file.mayEnd(); });
    }
  } catch (const Interrupted& error) {
    shownCalendarFile() = nullptr;
    // Whoever is interrupted cannot be asked.
    if (!file.isChanged()) throw;
    throw Interrupted(error.what() + std::string("; the changes that were not saved to a file are lost"));
  }
  shownCalendarFile() = nullptr;
}

// In the process of one scenario: what nobody types behind the word for it.
ExitCode playOne(char** argv, const std::vector<std::string>& words) {
  LabOptions lab;
  lab.programs = programFolder();
  lab.world = enterOwnWorld(argv);
  const fs::path pictures = words[2];
  const auto start = [&](const LabOptions& asked, CalendarStore& calendar, const HostOptions& host) {
    auto session = std::make_unique<DesktopSession>(asked, calendar, host, watchedScreen(lab, pictures));
    // A person begins when the main window is drawn, with what the plug-in puts into it in the next turns.
    session->waitForQuiet();
    return session;
  };
  const Pool pool;
  DesktopSession::beginApplication();
  useOwnPasteboards();
  return playAlone(words[0], words[1], lab, start);
}

// A display is known by a secret that lies in the person's own home, which is another one here.
void keepTheWayToTheDisplay() {
  const char* home = std::getenv("HOME");
  if (home && !std::getenv("XAUTHORITY")) setenv("XAUTHORITY", (fs::path(home) / ".Xauthority").c_str(), 1);
}

ExitCode run(int argc, char** argv) {
  constexpr int wordsOfOne = 5;
  if (argc == wordsOfOne && std::string(argv[1]) == kPlayAlone) return playOne(argv, {argv + 2, argv + argc});
  DesktopWords words;
  words.lab.programs = programFolder();
  words.lab.panelIsOff = false;
  CLI::App program("The stand-in host with real windows.", "vornlab-desktop");
  addCalendarInput(program, words.input, "the calendar file; without it an empty calendar")->required(false);
  program.add_flag("--panel", words.panel, "open only the settings panel of a new appointment");
  program.add_option("--picture", words.picture, "with --panel: write a picture of it, and end")
      ->check(complaintOfNothing, "FILE");
  program.add_option("--tour", words.tour, "write the pictures of the documentation into this folder, and end")
      ->check(complaintOfNothing, "FOLDER");
  program.add_option("--account", words.lab.account, "who is signed in at the client")
      ->check(complaintOfFile, "FILE");
  addClientVersion(program, "--client-version", words.lab);
  program.add_option("--play", words.play.files, "play scenarios with the mouse and by keys; docs/scenarios.md")
      ->check(complaintOfFile, "FILE");
  program.add_option("--pictures", words.pictures, "with --play: the folder for their pictures")
      ->check(complaintOfNothing, "FOLDER");
  addJsonFlag(program, words.play.form, "with --play: one JSON object a line");
  if (const auto end = readWords(program, {argv + 1, argv + argc})) return *end;
  keepTheWayToTheDisplay();
  if (!words.play.files.empty()) {
    fs::create_directories(words.pictures);
    return playScenarios(words.play, playInProcesses({fs::absolute(words.pictures).string()}));
  }
  words.lab.world = enterOwnWorld(argv);
  try {
    const Pool pool;
    DesktopSession::beginApplication();
    work(words);
  } catch (...) {
    fs::remove_all(words.lab.world);
    throw;
  }
  fs::remove_all(words.lab.world);
  return ExitCode::done;
}

}  // namespace

int main(int argc, char** argv) {
  return runProgram("vornlab-desktop", [&] { return run(argc, argv); });
}
