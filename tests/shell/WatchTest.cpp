#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <future>
#include <nlohmann/json.hpp>
#include <sstream>
#include <thread>

#include "lab/shell/LabError.h"
#include "lab/shell/TextColumns.h"
#include "lab/shell/watch/WatchFeed.h"
#include "lab/shell/watch/WatchFolder.h"
#include "lab/shell/watch/WatchFrame.h"
#include "lab/shell/watch/WatchLines.h"
#include "lab/shell/watch/WatchPost.h"
#include "tests/shell/ProgramRun.h"

namespace vornlab::test {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

namespace fs = std::filesystem;

// -- What is drawn -----------------------------------------------------------------------------------------------

TEST(TextColumns, CountsAsATerminalDoesAndLetsNothingSpeakToIt) {
  EXPECT_EQ(columnsOf("a会e\u0301\u200b"), 4U);
  const std::tuple<const char*, std::size_t, const char*> cuts[] = {
      {"Weekly", 6, "Weekly"}, {"Weekly", 5, "Week…"}, {"会議室", 6, "会議室"}, {"会議室", 5, "会議…"},
      {"会議室", 4, "会…"},    {"会議", 1, "…"},       {"会議", 0, ""},
  };
  for (const auto& [text, columns, cut] : cuts) EXPECT_EQ(cutToColumns(text, columns), cut) << columns;
  EXPECT_EQ(filledToColumns("会議室", 4), "会… ");
  EXPECT_EQ(onTerminal("a\x1b[2J\u009b\u202e\xff\n\u2028é"), "a [2J     é");
}

WatchState stateOfTwoWindows() {
  WatchState state;
  state.at = 4;
  state.client = "running";
  state.sent = 3;
  state.received = 2;
  state.windows = {{.number = 1,
                    .subject = "Weekly 会議",
                    .isDirty = true,
                    .bar = "meeting",
                    .command = "5 VnCmdUpdate",
                    .state = "3 VnStateCommitting",
                    .meeting = "8123",
                    .hostAction = "save and close"},
                   {.number = 2,
                    .subject = "Other",
                    .bar = "add",
                    .command = "",
                    .state = "",
                    .meeting = "",
                    .hostAction = ""}};
  state.pending = {{"get a meeting", 3, {{60, false, 63}, {2, true, 5}}}, {"user profile", 1, {{1, false, 2}}}};
  state.sheets = {"Contacting"};
  return state;
}

TEST(WatchFrame, ShowsWindowsTimersNoticesAndTheLastOfTheRoad) {
  WatchModel model;
  model.take(WatchLaboratory{0, 7, "play a.vorn"});
  model.take(WatchWorld{0, "a", "/w"});
  for (int i = 0; i < 40; ++i) model.take(WatchStep{3, "sent", "number " + std::to_string(i)});
  model.take(WatchNotice{2, "Not signed in.", "OK"});
  model.take(stateOfTwoWindows());
  const auto drawn = [&](std::size_t columns, std::size_t rows, bool colours = false) {
    return WatchFrame{columns, rows, colours}.draw(model, 65);
  };

  const auto frame = drawn(130, 30);
  for (const char* part :
       {"vornlab play a.vorn   process 7   1:05", "a   world /w   client running   sent 3   received 2",
        "1  \"Weekly 会議\"                 bar meeting, 3 VnStateCommitting, last 5 VnCmdUpdate, "
        "changed, the host waits: save and close",
        "2  \"Other\"                       bar add",
        "get a meeting   for 62.0 s, over after 60 seconds, again every 2 seconds",
        "user profile   for 64.0 s, over after 1 second", "on the screen: \"Contacting\"",
        "\"Not signed in.\" -> OK"}) {
    EXPECT_THAT(frame, Contains(HasSubstr(part)));
  }
  EXPECT_THAT(frame.back(), EndsWith("number 39"));
  EXPECT_THAT(drawn(80, 5), Contains("  and 1 more"));

  for (std::size_t rows = 1; rows < 40; ++rows) {
    for (std::size_t columns = 1; columns < 130; columns += 3) {
      const auto lines = drawn(columns, rows);
      EXPECT_LE(lines.size(), rows);
      for (const std::string& line : lines) EXPECT_LE(columnsOf(line), columns) << line;
      EXPECT_THAT(lines, Not(Contains(HasSubstr("\033"))));
    }
  }
  EXPECT_THAT(drawn(80, 24, true), Contains("\033[1mWindows\033[0m"));

  model.take(WatchWorld{66, "b", "/x"});
  EXPECT_THAT(drawn(80, 24),
              AllOf(Contains("b   world /x   client -   sent 0   received 0"), Not(Contains(HasSubstr("Other")))));
}

TEST(WatchLines, TellEachChangeOnce) {
  WatchLines lines;
  WatchState state = stateOfTwoWindows();
  EXPECT_EQ(lines.take(state).size(), 4U);
  EXPECT_THAT(lines.take(state), IsEmpty());
  state.windows[1].bar = "meeting";
  state.windows.erase(state.windows.begin());
  state.sheets.clear();
  EXPECT_THAT(lines.take(state),
              ElementsAre("   4.000  window    1 has closed", "   4.000  window    2 \"Other\": bar meeting",
                          "   4.000  sheet     gone"));
}

TEST(WatchEvents, ComeBackFromTheirLinesAndNoLineIsTooStrange) {
  const WatchState state = stateOfTwoWindows();
  const auto back = watchEvent(watchLine(state));
  ASSERT_TRUE(back && std::holds_alternative<WatchState>(*back));
  EXPECT_TRUE(std::get<WatchState>(*back).saysTheSameAs(state));
  for (const char* line : {"", "{", "[1]", "7", R"({"event":"other"})", R"({"event":7})"})
    EXPECT_FALSE(watchEvent(line)) << line;
  EXPECT_TRUE(watchEvent(
      R"({"event":"state","at":"x","client":1,"windows":[3,{"window":{}}],"pending":{"a":[]},"sheets":[null]})"));
}

// -- Between the processes ---------------------------------------------------------------------------------------

// Laboratories and watchers of one test are among themselves.
class Watch : public ::testing::Test {
 protected:
  void SetUp() override { setenv("XDG_RUNTIME_DIR", m_folder.path().c_str(), 1); }
  void TearDown() override { unsetenv("XDG_RUNTIME_DIR"); }

  template <typename Condition>
  static bool waitUntil(const Condition& condition) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(2);
    while (!condition()) {
      if (std::chrono::steady_clock::now() > deadline) return false;
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
  }

  static std::future<ProgramRun> start(const std::vector<std::string>& arguments) {
    return std::async(std::launch::async, [arguments] { return runProgram(VORNLAB_PROGRAM, arguments); });
  }

  fs::path runtimeFolder() const { return m_folder / "vornlab"; }

  TemporaryFolder m_folder;
};

TEST_F(Watch, OneWhoDoesNotReadIsLetGoAndHoldsNobodyUp) {
  WatchPost post("meet --me anna@mail.example");
  post.announce("/w");
  const fs::path path = WatchFolder().socketOf(getpid());
  WatchFeed reader(connectToLaboratory(path).socket);
  WatchFeed sleeper(connectToLaboratory(path).socket);
  post.serve([] { return std::vector<WatchEvent>{WatchWorld{0, "", "/w"}}; });
  std::vector<std::string> read;
  const auto readAll = [&](WatchFeed& feed) {
    for (std::string& line : feed.read()) read.push_back(std::move(line));
  };
  const WatchStep step{1, "sent", std::string(1000, 'x')};
  for (int i = 0; i < 4000; ++i) {
    post.tell(step);
    readAll(reader);
  }
  ASSERT_EQ(read.size(), 4002U);
  EXPECT_THAT(read[0], AllOf(HasSubstr("meet --me ******"), Not(HasSubstr("anna"))));
  EXPECT_THAT(read[1], HasSubstr(R"("event":"world")"));
  read.clear();
  readAll(sleeper);
  EXPECT_TRUE(sleeper.isOver());
  EXPECT_LT(read.size(), 2000U);
  // It may come back.
  sleeper = WatchFeed(connectToLaboratory(path).socket);
  post.serve([] { return std::vector<WatchEvent>{}; });
  EXPECT_EQ(sleeper.read().size(), 1U);
}

TEST_F(Watch, AFolderThatOthersCouldEnterIsNotUsed) {
  fs::create_directory(runtimeFolder());
  chmod(runtimeFolder().c_str(), 0755);
  EXPECT_THROW(WatchFolder(), LabError);
  WatchPost("play").announce("/w");
  EXPECT_TRUE(fs::is_empty(runtimeFolder()));
  EXPECT_EQ(runProgram(VORNLAB_PROGRAM, {"watch"}).exitCode, 1);
}

TEST_F(Watch, ALaboratoryThatIsKilledEndsTheWatchAndLeavesNothingBehind) {
  const pid_t killed = fork();
  if (killed == 0) {
    WatchPost post("play");
    post.announce("/w");
    while (!post.isWatched()) post.serve([] { return std::vector<WatchEvent>{}; });
    _exit(0);
  }
  const ProgramRun run = runProgram(VORNLAB_PROGRAM, {"watch", "--json", "--world", "/w"});
  // Its number is not free yet, and still it is known to be gone.
  EXPECT_TRUE(fs::is_empty(runtimeFolder()));
  waitpid(killed, nullptr, 0);
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_THAT(run.output, HasSubstr(R"("command":"play")"));
  EXPECT_THAT(run.errors, HasSubstr("ended without a word"));
}

// -- Real laboratories -------------------------------------------------------------------------------------------

// A request waits for its reply, with what is nobody's business in its subject and among its attendees.
constexpr auto kSlowScenario =
    "appointment one subject \"会議 anna@mail.example Passcode: 4711\" attendee Bea bea@mail.example\n"
    "open one\n"
    "client faults \"reply 1 to action 3: delay 3\"\n"
    "click add\n"
    "expect bar meeting\n";

TEST_F(Watch, EverybodySeesThePresentFirstAndNothingSecret) {
  const std::string scenario = m_folder.write("slow.vorn", kSlowScenario);
  auto early = start({"watch", "--json"});
  auto laboratory = start({"play", scenario});
  ASSERT_TRUE(waitUntil([] { return !WatchFolder().entries().empty(); }));
  WatchFeed feed(connectToLaboratory(WatchFolder().socketOf(WatchFolder().entries().front().process)).socket);
  ASSERT_TRUE(waitUntil([&] {
    const auto lines = feed.read();
    return std::any_of(lines.begin(), lines.end(), [](const std::string& line) {
      return line.find("\"sent\",\"words\":\"action 3") != line.npos;
    });
  }));
  const ProgramRun late = runProgram(VORNLAB_PROGRAM, {"watch"});
  EXPECT_EQ(laboratory.get().exitCode, 0);
  const ProgramRun json = early.get();

  EXPECT_EQ(json.exitCode, 0);
  EXPECT_EQ(late.exitCode, 0);
  EXPECT_THAT(json.output + late.output,
              AllOf(Not(HasSubstr("@")), Not(HasSubstr("4711")), Not(HasSubstr("%40"))));

  std::vector<std::string> order;
  bool sawTimer = false;
  bool sawSubject = false;
  nlohmann::json lastState;
  std::istringstream stream(json.output);
  for (std::string line; std::getline(stream, line);) {
    const auto event = nlohmann::json::parse(line, nullptr, false);
    ASSERT_TRUE(event.is_object()) << line;
    if (order.empty() || order.back() != event["event"]) order.push_back(event["event"]);
    if (event["event"] != "state") continue;
    auto state = event;
    state.erase("at");
    EXPECT_NE(state, lastState) << "told twice";
    lastState = state;
    for (const auto& window : event["windows"]) sawSubject |= window["subject"] == "会議 ****** Passcode: ******";
    for (const auto& request : event["pending"]) {
      sawTimer |= request["request"] == "schedule a meeting" && request["timers"][0]["seconds"] == 60;
    }
  }
  EXPECT_TRUE(lastState["pending"].empty()) << lastState;
  EXPECT_EQ(lastState["windows"].size(), 1U);
  ASSERT_GE(order.size(), 6U);
  EXPECT_EQ(order.front(), "laboratory");
  EXPECT_EQ(order[1], "world");
  EXPECT_THAT(std::vector<std::string>(order.end() - 2, order.end()), ElementsAre("world end", "end"));
  EXPECT_TRUE(sawSubject) << json.output;
  EXPECT_TRUE(sawTimer) << json.output;

  const auto placeOf = [&](const char* part) { return late.output.find(part); };
  EXPECT_LT(placeOf("watching process"), placeOf("1 VnStateAdding, last"));
  EXPECT_LT(placeOf("VnStateCommitting, last 4 VnCmdSchedule"), placeOf("0 VnStateIdle -> 1 VnStateAdding"))
      << late.output;
  EXPECT_THAT(late.output,
              AllOf(HasSubstr("bar meeting"), EndsWith("The laboratory has ended.\n"), Not(HasSubstr("\033"))));
}

TEST_F(Watch, AmongSeveralOneIsChosen) {
  WatchPost here("desktop");
  here.announce("/w1");
  const pid_t other = fork();
  if (other == 0) {
    WatchPost post("play");
    post.announce("/w2");
    pause();
    _exit(0);
  }
  ASSERT_TRUE(waitUntil([] { return WatchFolder().entries().size() == 2; }));
  const ProgramRun any = runProgram(VORNLAB_PROGRAM, {"watch"});
  EXPECT_EQ(any.exitCode, 2);
  EXPECT_THAT(any.errors, AllOf(HasSubstr(std::to_string(getpid()) + "  vornlab desktop   world /w1"),
                                HasSubstr("vornlab play")));
  auto chosen = start({"watch", "--process", std::to_string(getpid())});
  EXPECT_TRUE(waitUntil([&] { return here.serve([] { return std::vector<WatchEvent>{}; }), here.isWatched(); }));
  kill(other, SIGKILL);
  waitpid(other, nullptr, 0);
  EXPECT_THAT(runProgram(VORNLAB_PROGRAM, {"watch", "--process", std::to_string(other)}).errors,
              HasSubstr("no laboratory runs"));
  here.tell(WatchEnd{1});
  EXPECT_EQ(chosen.get().exitCode, 0);
}

// Starts a laboratory and watches it on a terminal; presses a key when the screen shows something. Gives what was
// written to the terminal, with the exit code.
struct OnTerminal {
  std::string written;
  int exitCode = -1;
  bool echoes = false;
};

OnTerminal watchOnTerminal(const std::string& scenario, const char* terminal, const char* noColour,
                           const char* until, const char* key) {
  OnTerminal result;
  int master = -1;
  winsize size{20, 60, 0, 0};
  const pid_t process = forkpty(&master, nullptr, nullptr, &size);
  if (process == 0) {
    setenv("TERM", terminal, 1);
    setenv("NO_COLOR", noColour, 1);
    execl(VORNLAB_PROGRAM, VORNLAB_PROGRAM, "watch", "--", "play", scenario.c_str(), nullptr);
    _exit(127);
  }
  bool isPressed = *key == '\0';
  char bytes[4096];
  for (ssize_t count = 0; (count = read(master, bytes, sizeof bytes)) > 0;) {
    result.written.append(bytes, static_cast<std::size_t>(count));
    if (!isPressed && result.written.find(until) != std::string::npos) {
      isPressed = write(master, key, 1) == 1;
    }
    termios settings{};
    if (tcgetattr(master, &settings) == 0) result.echoes = (settings.c_lflag & ECHO) != 0;
  }
  int status = 0;
  waitpid(process, &status, 0);
  close(master);
  if (WIFEXITED(status)) result.exitCode = WEXITSTATUS(status);
  return result;
}

TEST_F(Watch, TheTerminalComesBackHoweverTheWatchEnds) {
  const std::string slow = m_folder.write("slow.vorn", kSlowScenario);
  const std::string quick =
      m_folder.write("quick.vorn", "appointment one\nopen one\nwait 0.3 s\nexpect bar meeting\n");
  // Whose failure is the command's own.
  const OnTerminal ended = watchOnTerminal(quick, "xterm", "", "", "");
  EXPECT_EQ(ended.exitCode, 1);
  EXPECT_THAT(ended.written, AllOf(HasSubstr("\033[?1049h"), HasSubstr("\033[1mWindows"), HasSubstr("FAIL")));
  EXPECT_GT(ended.written.find("FAIL"), ended.written.find("\033[?25h\033[?1049lThe laboratory has ended."));

  const OnTerminal interrupted = watchOnTerminal(slow, "xterm", "1", "schedule a meeting   for", "\x03");
  EXPECT_THAT(interrupted.written,
              AllOf(HasSubstr("\033[?1049l"), Not(HasSubstr("\033[1m")), HasSubstr("interrupted")));
  EXPECT_EQ(interrupted.exitCode, 1);
  EXPECT_TRUE(ended.echoes && interrupted.echoes);

  const OnTerminal dumb = watchOnTerminal(quick, "dumb", "", "", "");
  EXPECT_THAT(dumb.written, AllOf(Not(HasSubstr("\033")), HasSubstr("window    1 ")));
  EXPECT_THAT(WatchFolder().entries(), IsEmpty());
}

}  // namespace
}  // namespace vornlab::test
