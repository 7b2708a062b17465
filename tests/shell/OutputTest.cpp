#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <thread>

#include "lab/client/ClientLauncher.h"
#include "lab/shell/CalendarInput.h"
#include "lab/shell/ClientProcess.h"
#include "lab/shell/CommandLine.h"
#include "lab/shell/Interruption.h"
#include "tests/shell/Calendars.h"
#include "tests/shell/ProgramRun.h"

namespace vornlab::test {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

class Output : public ::testing::Test {
 protected:
  // The shell's line, in this test's folder, with the program as $V.
  ProgramRun shell(const std::string& line) const {
    return runProgram("/bin/sh",
                      {"-c", "cd '" + m_folder.path().string() + "' && V=" VORNLAB_PROGRAM " && " + line});
  }
  // The same for a line that has appointments to add: it gets the signal as soon as the first of them is told, so
  // that neither a fast machine has done them all by then nor a slow one none.
  ProgramRun stopped(const std::string& line, const std::string& signal) const {
    ProgramRun run = shell("export V && (sh -c 'echo $$ >pid; exec " + line +
                           " 2>&1'; echo $? >status) | while read -r told; do echo \"$told\"; case $told in "
                           "added*) test -e pid && kill -s " +
                           signal + " $(cat pid) && rm pid;; esac; done");
    run.exitCode = std::atoi(contentOf(m_folder / "status").c_str());
    std::filesystem::remove(m_folder / "status");
    return run;
  }
  std::filesystem::path one() const { return m_folder.write("in.ics", calendar({appointment("a", "Budget")})); }
  std::filesystem::path many() const {
    std::vector<std::string> lines;
    for (int i = 0; i < 400; ++i) lines.push_back(appointment("u" + std::to_string(i), "Budget"));
    return m_folder.write("many.ics", calendar(lines));
  }

  TemporaryFolder m_folder;
};

TEST_F(Output, IsRefusedBeforeAMeetingIsMadeWhereItWouldCostSomething) {
  one();
  std::filesystem::create_directories(m_folder / "mine");
  m_folder.write("mine/letter", "Dear");
  m_folder.write("read.ics", "kept");
  ::chmod((m_folder / "read.ics").c_str(), 0444);
  shell("ln -s loop.ics loop.ics; ln -s away/out.ics lost.ics");
  const std::pair<const char*, const char*> cases[] = {
      {"$V meet in.ics --all --out db --client-db db", "needed for something else"},
      {"$V meet in.ics --all --out ./db --client-db db", "needed for something else"},
      {"$V meet in.ics --all --out read.ics --client-db db", "may only be read"},
      {"$V meet in.ics --all --out mine --client-db db", "is a folder"},
      {"$V meet in.ics --all --out loop.ics --client-db db", "cannot write into loop.ics: "},
      {"$V meet in.ics --all --out lost.ics --client-db db", "cannot write into the folder ./away: "},
      {"$V meet in.ics --all --out $(printf %0256d 0) --client-db db", "name too long"},
      {"$V meet in.ics --all --out out.ics --client-db mine", "mine is a folder"},
      {"$V meet in.ics --all --dry-run --client-db mine", "mine is a folder"},
      {"$V meet in.ics --all --out out.ics --client-db in.ics/db", "in.ics is no folder"},
      {"$V panel in.ics --client-db mine", "mine is a folder"},
      {"$V meet in.ics --all --out out.ics --client-db db --me mailto:kim", "\"mailto:kim\" is no address; that"},
      {"HOME= XDG_STATE_HOME= $V meet in.ics --all --out out.ics", "--client-db"},
      {"$V meet in.ics --all --out out.ics --client-db db --world mine", "somebody's"}};
  for (const auto& [line, complaint] : cases) {
    const ProgramRun run = shell(line);
    EXPECT_EQ(run.exitCode, 2) << line;
    EXPECT_THAT(run.errors, HasSubstr(complaint)) << line;
    EXPECT_FALSE(std::filesystem::exists(m_folder / "db")) << line;
    EXPECT_FALSE(std::filesystem::exists(m_folder / "out.ics")) << line;
  }
  EXPECT_EQ(contentOf(m_folder / "read.ics"), "kept");
}

TEST_F(Output, GoesIntoPipesAndDevicesAndNewFilesAreAsPrivateAsTheirInput) {
  ::chmod(one().c_str(), 0600);
  EXPECT_EQ(shell("$V meet in.ics --all --out out.ics --client-db db").exitCode, 0);
  struct stat facts {};
  EXPECT_EQ(::stat((m_folder / "out.ics").c_str(), &facts), 0);
  EXPECT_EQ(facts.st_mode & 0777, 0600u);

  ProgramRun run = shell("cat in.ics | $V meet - --all --out - --client-db :memory:");
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_THAT(run.output, ::testing::StartsWith("BEGIN:VCALENDAR"));
  EXPECT_THAT(run.errors, HasSubstr("1 added"));
  shell("mkfifo pipe");
  for (const char* line : {"$V meet in.ics --all --out pipe --client-db :memory:",
                           "$V body text in.ics --out pipe", "$V demo --out pipe"}) {
    run = shell(std::string("(cat pipe > copy &) && ") + line);
    EXPECT_EQ(run.exitCode, 0) << line << run.errors;
    EXPECT_EQ(::stat((m_folder / "pipe").c_str(), &facts), 0);
    EXPECT_TRUE(S_ISFIFO(facts.st_mode)) << line;
  }
}

TEST_F(Output, ThatCannotBeToldIsAFailure) {
  one();
  const std::pair<const char*, const char*> cases[] = {
      {"$V inspect in.ics >/dev/full", "could not be written: No space left on device\n"},
      {"$V inspect in.ics --json >/dev/full", "could not be written: No space left on device\n"},
      {"$V inspect in.ics >&-", "could not be written: "},
      {"$V watch -- inspect in.ics >/dev/full", "could not be written: No space left on device\n"}};
  for (const auto& [line, complaint] : cases) {
    const ProgramRun run = shell(line);
    EXPECT_EQ(run.exitCode, 1) << line;
    EXPECT_THAT(run.errors, HasSubstr(complaint)) << line;
  }
  // Whoever has closed a pipe does not want to read on.
  for (const char* line : {"$V inspect in.ics | :", "$V inspect in.ics --json | :", "$V body text in.ics | :"}) {
    EXPECT_EQ(shell(line).errors, "") << line;
  }
}

// The service has its meetings already, so the calendar that knows them is somewhere.
TEST_F(Output, GoesElsewhereWhenItsPlaceHasChangedMeanwhile) {
  const std::string meet = "TMPDIR=$PWD $V meet in.ics --all --client-db :memory: --out ";
  const std::string told = " 2>&1 | while read -r line; do echo \"$line\"; case $line in added*) ";
  const std::tuple<std::string, const char*, const char*, const char*> cases[] = {
      {meet + "in.ics" + told + "echo X >>in.ics;; esac; done", "has been changed meanwhile", "in", "640\n"},
      {"mkdir away; " + meet + "away/o.ics" + told + "rm -rf away;; esac; done", "its folder away is gone", "o",
       "600\n"},
      {meet + "- | :", "cannot write into standard output", "vornlab", "600\n"},
      // What would be covered, and what has no room for more, has another name.
      {"echo X >kim@vorn.example.ics; chmod 600 kim*; " + meet + "kim@vorn.example.ics" + told +
           "echo X >>kim@vorn.example.ics;; esac; done",
       "has been changed meanwhile", "vornlab", "600\n"},
      {"L=$(printf %0246d.ics 0); " + meet + "$L" + told + "echo X >$L;; esac; done", "has been changed meanwhile",
       "vornlab", "640\n"}};
  std::vector<std::string> appointments;
  for (int i = 0; i < 20; ++i) appointments.push_back(appointment("u" + std::to_string(i), "Budget"));
  for (const auto& [line, reason, name, mode] : cases) {
    ::chmod(m_folder.write("in.ics", calendar(appointments)).c_str(), 0640);
    const ProgramRun run = shell(line);
    EXPECT_THAT(run.output + run.errors, AllOf(HasSubstr("20 added"), HasSubstr(reason),
                                               HasSubstr("; the calendar with its 20 new meetings is in "),
                                               HasSubstr(std::string(name) + "-")));
    EXPECT_EQ(occurrences(contentOf(m_folder / "in.ics"), "vorn.example/j/"), 0u) << line;
    EXPECT_EQ(shell(std::string("stat -c %a ") + name + "-??????.ics").output, mode) << line;
    const std::string found = shell(std::string("cat ") + name + "-??????.ics").output;
    EXPECT_EQ(occurrences(unfolded(found), "LOCATION:https"), 20u) << line;
    shell(std::string("rm ") + name + "-??????.ics");
  }
}

// The limit stands for a disk that is full: it meets each file where it is written.
TEST_F(Output, ThatHasNoRoomIsToldBeforeAMeetingIsMadeAndCostsNothing) {
  const std::string before = contentOf(many());
  const std::pair<const char*, const char*> cases[] = {
      {"ulimit -f 100; $V meet many.ics --uid u1 --out out.ics --client-db db", "no room for"},
      {"ulimit -f 100; $V meet many.ics --uid u1 --out many.ics --client-db db", "no room for"},
      {"ulimit -f 20; $V body text many.ics --out out.ics", "cannot write out.ics"},
      {"$V meet many.ics --uid u1 --out /proc/out.ics --client-db db", "cannot write into the folder /proc"}};
  for (const auto& [line, complaint] : cases) {
    const ProgramRun run = shell(line);
    EXPECT_EQ(run.exitCode, 1) << line;
    EXPECT_THAT(run.errors, HasSubstr(complaint)) << line;
    EXPECT_EQ(contentOf(m_folder / "many.ics"), before) << line;
    EXPECT_EQ(shell("ls -A").output, "many.ics\n") << line << ": not even the service has something new";
  }
}

TEST_F(Output, HasWhatIsDoneWhenThePersonStopsIt) {
  many();
  for (const char* signal : {"INT", "HUP"}) {
    const ProgramRun run = stopped("$V meet many.ics --all --out out.ics --client-db db", signal);
    EXPECT_EQ(run.exitCode, 130) << signal << run.output;
    EXPECT_THAT(run.output, HasSubstr("interrupted; "));
    const std::string written =
        std::filesystem::exists(m_folder / "out.ics") ? contentOf(m_folder / "out.ics") : "";
    // The last one may be stored and not yet told.
    const std::size_t told = occurrences("\n" + run.output, "\nadded ");
    EXPECT_THAT(occurrences(unfolded(written), "LOCATION:https"), ::testing::AnyOf(told, told + 1));
    std::filesystem::remove(m_folder / "out.ics");
    std::filesystem::remove(m_folder / "db");
  }
}

// Runs it as a program that gets SIGINT over and over.
[[noreturn]] void runInterrupted(const std::function<void()>& run) {
  std::thread([mainThread = pthread_self()] {
    while (true) {
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
      pthread_kill(mainThread, SIGINT);
    }
  }).detach();
  Interruption::install();
  std::_Exit(vornlab::runProgram("lab", [&run] { return run(), ExitCode::done; }));
}

TEST_F(Output, SaysThatItWasInterruptedWhereverItWaits) {
  const auto startClient = [this] { ClientProcess().start("/bin/cat", {}, m_folder / "errors", 100); };
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  const auto readStream = [&ends] {
    CalendarStore calendar;
    loadCalendar(calendar, {"/dev/fd/" + std::to_string(ends[0]), "", false});
  };
  EXPECT_EXIT(runInterrupted(startClient), ::testing::ExitedWithCode(130), "^lab: interrupted\n$");
  EXPECT_EXIT(runInterrupted(readStream), ::testing::ExitedWithCode(130), "^lab: interrupted\n$");
}

TEST_F(Output, LeavesNothingBehindWhenTheProgramIsKilled) {
  many();
  const std::string inFolder = "env TMPDIR=\"$PWD\" ";
  stopped(inFolder + "$V meet many.ics --all --out out.ics --client-db db", "KILL");
  const auto left = [&] { return shell("ls | grep -c vornlab-run").output; };
  EXPECT_EQ(left(), "1\n");
  shell(inFolder + "$V doctor; touch -d '2 minutes ago' vornlab-run-*; " + inFolder + "$V doctor");
  EXPECT_EQ(left(), "0\n");
  EXPECT_THAT(shell("env TMPDIR=/no/such $V doctor 2>&1").output,
              ::testing::HasSubstr("vornlab: cannot make the folder /no/such/vornlab-run-"));
  EXPECT_EQ(shell("env TMPDIR= $V hooks").exitCode, 0);
  stopped("$V meet many.ics --all --out out.ics --client-db db --world world", "KILL");
  const auto client = m_folder / "world/Applications/vornclient.app/Contents/MacOS/vornclient";
  ASSERT_TRUE(std::filesystem::exists(client));
  // One that stayed would hold the test until its limit.
  while (!processesOf(client).empty()) std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

}  // namespace
}  // namespace vornlab::test
