#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "lab/client/MeetingStore.h"
#include "lab/shell/MeetingRoad.h"
#include "lab/shell/ProgressBar.h"
#include "tests/shell/Calendars.h"
#include "tests/shell/ProgramRun.h"

namespace vornlab::test {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

// The program's own lines, by UID, and its summary.
struct MeetRun {
  ProgramRun program;
  std::map<std::string, json> byUid;
  json summary;

  std::string told(const std::string& uid, const char* what) const {
    const auto found = byUid.find(uid);
    return found == byUid.end() ? "(no line)" : found->second.value(what, "");
  }
  std::string resultOf(const std::string& uid) const { return told(uid, "result"); }
  std::string reasonOf(const std::string& uid) const { return told(uid, "reason"); }
};

class Meet : public ::testing::Test {
 protected:
  MeetRun meet(const std::filesystem::path& input, const std::filesystem::path& output,
               std::vector<std::string> further = {"--all"}) const {
    std::vector<std::string> arguments{
        "meet", input, "--out", output, "--json", "--client-db", m_folder / "client.db"};
    arguments.insert(arguments.end(), further.begin(), further.end());
    MeetRun run;
    run.program = runProgram(VORNLAB_PROGRAM, arguments);
    std::istringstream lines(run.program.output);
    for (std::string line; std::getline(lines, line);) {
      const json object = json::parse(line, nullptr, false);
      EXPECT_TRUE(object.is_object()) << line;
      if (object.contains("summary")) {
        run.summary = object["summary"];
      } else if (object.is_object()) {
        run.byUid[object.value("uid", "")] = object;
      }
    }
    return run;
  }

  TemporaryFolder m_folder;
};

TEST_F(Meet, AddsMeetingsAndASecondRunOnTheOutputChangesNothing) {
  const auto input = m_folder.write(
      "in.ics",
      calendar({"X-UNKNOWN;P=1:kept", appointment("plain", "Budget", {"LOCATION:Room 4\\, east; left"}),
                appointment("sent", "Übergabe",
                            {"ORGANIZER:mailto:anna@mail.example", "ATTENDEE;CN=Ben:mailto:ben@mail.example",
                             "ATTENDEE;CUTYPE=ROOM;CN=Room 9:mailto:room9@mail.example"}),
                appointment("series", "Weekly", {"RRULE:FREQ=WEEKLY;COUNT=5"})}));
  const MeetRun first = meet(input, m_folder / "out.ics");
  ASSERT_EQ(first.program.exitCode, 0) << first.program.output << first.program.errors;
  EXPECT_EQ(first.summary["appointments"], 3);
  EXPECT_EQ(first.summary["added"], 3);
  EXPECT_EQ(first.summary["sent"], first.summary["received"]);
  const std::string once = contentOf(m_folder / "out.ics");
  EXPECT_THAT(once, HasSubstr("X-UNKNOWN;P=1:kept\r\n"));
  for (const char* uid : {"plain", "sent", "series"}) {
    const json& line = first.byUid.at(uid);
    EXPECT_NE(line["meetingKey"], "") << uid;
    EXPECT_EQ(occurrences(line["location"], "https://"), 1U) << line["location"];
  }
  EXPECT_THAT(first.byUid.at("plain")["location"].get<std::string>(), ::testing::StartsWith("Room 4, east; left"));

  const MeetRun second = meet(m_folder / "out.ics", m_folder / "again.ics");
  EXPECT_EQ(second.program.exitCode, 0) << second.program.errors;
  EXPECT_EQ(second.summary["unchanged"], 3) << second.program.output;
  EXPECT_EQ(contentOf(m_folder / "again.ics"), once);
  for (const auto& [uid, line] : first.byUid) EXPECT_EQ(second.byUid.at(uid)["meetingKey"], line["meetingKey"]);
  EXPECT_EQ(occurrences(unfolded(once), "MacVnBookmarkBegin"), 3U);
}

TEST_F(Meet, UpdatesAMeetingWhoseAppointmentHasMoved) {
  const auto file =
      m_folder.write("in.ics", calendar({appointment("a", "Budget", {"DESCRIPTION:Agenda v1 tea"})}));
  const MeetRun added = meet(file, file);
  ASSERT_EQ(added.resultOf("a"), "added") << added.program.output << added.program.errors;
  std::string text = contentOf(file);
  for (const auto& [from, to] : {std::pair{"20300514T12", "20300515T12"},
                                 {"20300514T13", "20300515T13"},
                                 {"ON:Agenda v1", "ON:CONTRACT "}}) {
    text.replace(text.find(from), std::string_view(from).size(), to);
  }
  m_folder.write("in.ics", text);
  const MeetRun moved = meet(file, file);
  EXPECT_EQ(moved.resultOf("a"), "updated") << moved.program.output;
  EXPECT_EQ(moved.byUid.at("a")["meetingKey"], added.byUid.at("a")["meetingKey"]);
  EXPECT_EQ(occurrences(unfolded(contentOf(file)), "MacVnBookmarkBegin"), 1U);
  EXPECT_THAT(moved.program.errors, HasSubstr(": DESCRIPTION has words that the HTML beside it lacks"));
  EXPECT_EQ(meet(file, file, {"--all", "--remove"}).resultOf("a"), "removed");
  const std::string removed = unfolded(contentOf(file));
  for (const char* words : {"CONTRACT", "Agenda v1"}) EXPECT_EQ(occurrences(removed, words), 2U) << removed;
  EXPECT_EQ(occurrences(removed, "https://"), 0U) << removed;
}

TEST_F(Meet, SkipsWhatGetsNoMeetingOfItsOwnAndSaysWhy) {
  const auto input =
      m_folder.write("in.ics", calendar({appointment("off", "Off", {"STATUS:CANCELLED"}),
                                         appointment("theirs", "Theirs", {"ORGANIZER:MAILTO:Ben@mail.example"}),
                                         appointment("mine", "Mine", {"ORGANIZER:MAILTO:Anna@Mail.example"}),
                                         appointment("moved", "Moved", {"RECURRENCE-ID:20300507T120000Z"})}));
  EXPECT_EQ(meet(input, m_folder / "out.ics", {"--all", "--me", "kim"}).resultOf("mine"), "skipped");
  const MeetRun run = meet(input, m_folder / "out.ics", {"--all", "--me", "anna@mail.example"});
  EXPECT_EQ(run.program.exitCode, 0) << run.program.errors;
  EXPECT_EQ(run.resultOf("mine"), "added") << run.reasonOf("mine");
  for (const char* uid : {"off", "theirs", "moved"}) {
    EXPECT_EQ(run.resultOf(uid), "skipped");
    EXPECT_NE(run.reasonOf(uid), "");
  }
}

TEST_F(Meet, TakesOnlyTheChosenAppointmentsAndFailsForAnUnknownUid) {
  const auto input =
      m_folder.write("in.ics", calendar({appointment("first", "First"), appointment("second", "Second")}));
  const MeetRun run = meet(input, m_folder / "out.ics", {"--uid", "second", "--uid", "nobody"});
  EXPECT_EQ(run.program.exitCode, 1);
  EXPECT_EQ(run.resultOf("second"), "added") << run.reasonOf("second") << run.program.errors;
  EXPECT_EQ(run.resultOf("nobody"), "failed");
  EXPECT_EQ(run.summary["appointments"], 2);
  EXPECT_THAT(contentOf(m_folder / "out.ics"), HasSubstr(appointment("first", "First")));
}

TEST_F(Meet, RefusesWhatIsNoCalendarWithItsLineAndWritesNothing) {
  const std::pair<const char*, const char*> cases[] = {
      {"Dear all,\nplease come.\n", "in.ics:1:"},
      {"BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VEVENT\r\nSUMM", "in.ics:4:"},
      {"", "in.ics"},
  };
  for (const auto& [content, complaint] : cases) {
    const auto input = m_folder.write("in.ics", content);
    const MeetRun run = meet(input, m_folder / "out.ics");
    EXPECT_EQ(run.program.exitCode, 2) << content;
    EXPECT_THAT(run.program.errors, HasSubstr(complaint));
    EXPECT_THAT(run.program.output, IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(m_folder / "out.ics"));
  }
  EXPECT_EQ(meet(m_folder / "missing.ics", m_folder / "out.ics").program.exitCode, 2);
}

TEST_F(Meet, WarnsOfWhatIsDoubtfulAndRefusesItWhereThatIsWanted) {
  const std::vector<std::string> zoned{"RRULE:FREQ=DAILY", "ORGANIZER;CN=A"};
  std::string text = calendar({appointment("a", "Lost", zoned), appointment("b", "Floating")});
  for (const auto& [from, to] : {std::pair{"DTSTART:20300514T120000Z", "DTSTART;TZID=Nowhere:20300514T120000"},
                                 {"DTSTART:20300514T120000Z", "DTSTART:20300514T120000"},
                                 {"DTEND:20300514T130000Z\r\nEND", "DURATION:PT1H\r\nEND"}}) {
    text.replace(text.find(from), std::string_view(from).size(), to);
  }
  const auto input = m_folder.write("in.ics", text);
  const MeetRun run = meet(input, m_folder / "out.ics");
  EXPECT_EQ(run.program.exitCode, 0) << run.program.errors;
  EXPECT_THAT(run.program.errors, HasSubstr("in.ics:8: nobody knows the zone \"Nowhere\""));
  EXPECT_THAT(run.program.errors, HasSubstr("in.ics:11: "));
  EXPECT_EQ(run.resultOf("a"), "added");
  EXPECT_THAT(run.reasonOf("a"), HasSubstr("\"Nowhere\""));
  EXPECT_THAT(run.reasonOf("b"), HasSubstr("--zone"));
  EXPECT_THAT(contentOf(m_folder / "out.ics"), HasSubstr("\r\nORGANIZER;CN=A\r\n"));

  const MeetRun zone = meet(input, m_folder / "out.ics", {"--uid", "b", "--zone", "Asia/Tokyo"});
  EXPECT_EQ(zone.reasonOf("b"), "");
  const ProgramRun seen = runProgram(VORNLAB_PROGRAM, {"inspect", input, "--uid", "b", "--zone", "Asia/Tokyo"});
  EXPECT_THAT(seen.output, HasSubstr("2030-05-14 03:00:00"));
  EXPECT_EQ(meet(input, m_folder / "out.ics", {"--all", "--zone", "Nowhere"}).program.exitCode, 2);
  std::filesystem::remove(m_folder / "out.ics");
  const MeetRun strict = meet(input, m_folder / "out.ics", {"--all", "--strict"});
  EXPECT_EQ(strict.program.exitCode, 2);
  EXPECT_THAT(strict.program.errors, HasSubstr("in.ics:8:"));
  EXPECT_FALSE(std::filesystem::exists(m_folder / "out.ics"));
}

TEST_F(Meet, LeavesAMeetingAloneThatOnlyTheServiceKnows) {
  const auto file = m_folder.write("in.ics", calendar({appointment("a", "Budget")}));
  const MeetRun added = meet(file, file);
  const std::string key = added.told("a", "meetingKey");
  m_folder.write("in.ics", calendar({appointment("a", "Budget", {"DESCRIPTION:Meeting ID: " + key})}));
  const MeetRun run = meet(file, m_folder / "out.ics");
  EXPECT_EQ(run.program.exitCode, 0);
  EXPECT_EQ(run.resultOf("a"), "unchanged");
  EXPECT_EQ(run.told("a", "meetingKey"), key);
  EXPECT_THAT(run.reasonOf("a"), HasSubstr("the calendar has no record of it"));
  EXPECT_EQ(contentOf(m_folder / "out.ics"), contentOf(file));
  const MeetRun removed = meet(file, m_folder / "out.ics", {"--all", "--remove"});
  EXPECT_EQ(removed.resultOf("a"), "failed");
  EXPECT_EQ(removed.reasonOf("a"), run.reasonOf("a"));
}

TEST_F(Meet, FailsWhereAnInvitationDoesNotFitIntoTheFile) {
  std::string latin = calendar({appointment("a", "Caf\xE9"), appointment("off", "Off", {"STATUS:CANCELLED"})});
  const auto input = m_folder.write("in.ics", latin);
  const auto account = m_folder.write("account.json", R"({"user": {"name": "山田"}})");
  const MeetRun run = meet(input, m_folder / "out.ics", {"--all", "--account", account});
  EXPECT_EQ(run.resultOf("a"), "failed") << run.program.errors;
  EXPECT_THAT(run.reasonOf("a"), HasSubstr("in.ics:4: the file is in Latin-1, which has no \"山\""));
  EXPECT_EQ(contentOf(m_folder / "out.ics"), latin);
}

TEST_F(Meet, LosesNothingInTroubleAndTellsTheReason) {
  const auto input =
      m_folder.write("in.ics", calendar({appointment("a", "Budget", {"DESCRIPTION:Bring figures"})}));
  const auto faulty = [&](const char* name, const char* faults) {
    return "--client-option=--faults=" + m_folder.write(name, faults).string();
  };
  // Who notices the end of the client first, the plug-in or the program, is open.
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"--without-client"}, "not installed"},
      {{"--client-version", "3.1.0"}, "too old"},
      {{"--timeout", "0.5", faulty("silent", "every reply to action 3: silent\n")},
       "did not answer within 0.5 seconds"},
      {{faulty("refusing", "every reply to action 3 operation 1: error 3113\n")},
       "error 3113; the settings panel waits"},
      {{faulty("at-the-profile", "reply 1 to action 6: die\n")}, "client ended|not running"},
      {{faulty("at-the-commit", "reply 1 to action 3 operation 1: die\n")}, "client ended|not running"}};
  for (auto [options, reason] : cases) {
    SCOPED_TRACE(options.back());
    options.emplace_back("--all");
    const MeetRun run = meet(input, m_folder / "out.ics", options);
    EXPECT_EQ(run.program.exitCode, 1) << run.program.errors;
    EXPECT_EQ(run.resultOf("a"), "failed");
    EXPECT_THAT(run.reasonOf("a"), ::testing::ContainsRegex(reason));
    EXPECT_EQ(contentOf(m_folder / "out.ics"), contentOf(input));
  }
}

TEST_F(Meet, GoesOnAfterOneAppointmentThatFails) {
  const auto faults = m_folder.write("faults", "reply 1 to action 3 operation 1: error 3000\n");
  const auto input = m_folder.write("in.ics", calendar({appointment("a", "First"), appointment("b", "Second")}));
  const MeetRun run = meet(input, m_folder / "out.ics", {"--all", "--client-option=--faults=" + faults.string()});
  EXPECT_EQ(run.program.exitCode, 1);
  EXPECT_EQ(run.resultOf("a"), "failed");
  EXPECT_EQ(run.resultOf("b"), "added") << run.reasonOf("b");
}

TEST_F(Meet, ATrialTellsWhatWouldComeAndARemovalTakesMeetingsOutOfFileAndService) {
  const auto input = m_folder.write(
      "in.ics", calendar({appointment("a", "First"), appointment("b", "Second", {"LOCATION:Castle"})}));
  const auto output = m_folder / "out.ics";
  const auto run = [&](std::vector<std::string> further) {
    std::vector<std::string> arguments{"meet", "--all", "--client-db", m_folder / "client.db"};
    arguments.insert(arguments.end(), further.begin(), further.end());
    return runProgram(VORNLAB_PROGRAM, arguments).output;
  };
  EXPECT_THAT(run({input, "--dry-run"}), HasSubstr("2 added"));
  EXPECT_FALSE(std::filesystem::exists(m_folder / "client.db"));
  EXPECT_THAT(run({input, "--remove", "--dry-run"}), HasSubstr("it has no meeting"));

  EXPECT_THAT(run({input, "--out", output}), HasSubstr("2 added"));
  const std::string online = contentOf(output);
  EXPECT_THAT(run({output, "--remove", "--dry-run", "--json"}), HasSubstr("\"removed\":2"));
  EXPECT_EQ(contentOf(output), online);
  EXPECT_THAT(run({output, "--remove", "--out", output}), HasSubstr("2 removed"));
  EXPECT_THAT(unfolded(contentOf(output)),
              AllOf(HasSubstr("LOCATION:Castle\r\n"), Not(HasSubstr("vorn.example/j/"))));
  EXPECT_EQ(MeetingStore((m_folder / "client.db").string()).count(), 0);
}

TEST(ProgressLine, FitsTheTerminalAndTellsTheTimeLeft) {
  const std::tuple<std::size_t, double, std::size_t, const char*> rows[] = {
      {0, 0, 79, "[........................................] 0 of 200"},
      {50, 10, 79, "[##########..............................] 50 of 200, 30 s left"},
      {50, 100, 40, "[###.........] 50 of 200, 5 min 0 s left"},
      {50, 10000, 28, "50 of 200, 8 h 20 min left"},
      {50, 10000, 12, "50 of 200"},
      {50, 10000, 4, "50 o"},
      {200, 9, 79, "[########################################] 200 of 200"}};
  for (const auto& [done, seconds, columns, line] : rows) {
    EXPECT_EQ(progressLine(done, 200, seconds, columns), line) << columns;
  }
}

TEST(ProgressBar, DrawsOnlyOnATerminalThatCanTakeItBack) {
  const char* const before = getenv("TERM");
  const std::string terminalBefore = before ? before : "";
  for (const auto& [terminal, isDrawn] : {std::pair{"xterm", true}, {"dumb", false}, {"", false}}) {
    setenv("TERM", terminal, 1);
    int master = -1;
    int slave = -1;
    ASSERT_EQ(openpty(&master, &slave, nullptr, nullptr, nullptr), 0);
    std::FILE* stream = fdopen(slave, "w");
    ProgressBar(stream, 3).show(1);
    std::fputs("end", stream);
    std::fflush(stream);
    std::string seen;
    for (char c = 0; !seen.ends_with("end") && read(master, &c, 1) == 1;) seen += c;
    EXPECT_EQ(seen.find('\033') != std::string::npos, isDrawn) << terminal;
    std::fclose(stream);
    close(master);
  }
  before ? setenv("TERM", terminalBefore.c_str(), 1) : unsetenv("TERM");
}

TEST(MeetingRoad, GivesTheServicesBareCodesASentence) {
  for (const char* said : {"0;Error 9999", "Error 9999"}) {
    EXPECT_EQ(noticeInWords(said), "the service refused, and the plug-in has no words for it: Error 9999");
  }
  EXPECT_EQ(noticeInWords("0 people"), "0 people");
}

TEST(Vornlab, TellsBadUsageWithExitCode2) {
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"surgeon"}, "there is no command \"surgeon\"; there are meet, demo, doctor"},
      {{}, "a command is missing; there are meet"},
      {{"meet", "in.ics", "--all", "--out"}, "--out needs a value"},
      {{"meet", "in.ics", "--all", "--dry-run", "--out", "o"}, "--out and --dry-run do not go together"},
      {{"meet", "in.ics", "--all", "--out", "o", "--timeout", "soon"}, "--timeout: seconds are a number"},
      {{"demo", "--timeout", "1e9"}, "not \"1e9\""},
      {{"demo", "--uid", ""}, "--uid: \"\" is no name of anything"},
      {{"panel", "--client", ""}, "--client: \"\" is no name of anything"},
      {{"meet", "", "--all", "--dry-run"}, "vornlab: IN: \"\" is no name of anything"},
      {{"meet", "in.ics", "--all", "--dry-run", "--client-db", ""}, "--client-db: \"\" is no name of anything"},
      {{"panel", "--client-db", ""}, "--client-db: \"\" is no name of anything"},
      {{"report", "--out", ""}, "--out: \"\" is no name of anything"},
      {{"watch", "--world", ""}, "--world: \"\" is no name of anything"},
      {{"hooks", "--world", ""}, "--world: \"\" is no name of anything"},
      {{"meet", "in.ics", "--all", "--dry-run", "--me", ""}, "--me: \"\" is no address"},
      {{"watch", "--process", "-1"}, "--process: a process has a number above 0"},
      {{"play", "/"}, "/ is a folder"},
      {{"doctor", "--loudly"}, "--loudly"},
      {{"meet", "in.ics", "--foo", "a", "b", "--all"}, "nothing is known of --foo a b;"},
      {{"--foo"}, "nothing is known of --foo; vornlab --help"},
      {{"body", "foo", "b"}, "there is no command \"foo\"; there are insert, update, remove, text; vornlab body"},
      {{"account"}, "a command is missing; there are show, defaults; vornlab account --help"},
      {{"account", "--account", "X.json"}, "a command is missing; there are show, defaults; vornlab account"},
      {{"account", "show", "--account", "/no/such/account.json"}, "/no/such/account.json"},
      {{"meet", "in.ics"}, "--uid,--all"},
      {{"meet", "in.ics", "--all"}, "--out is missing"},
      {{"meet", "in.ics", "--out", "out.ics", "--all", "--uid", "a"}, "--uid,--all"},
      {{"meet", "in.ics", "--out", "/no/such/folder/out.ics", "--all"}, "/no/such/folder"},
  };
  for (const auto& [arguments, complaint] : cases) {
    const ProgramRun run = runProgram(VORNLAB_PROGRAM, arguments);
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_THAT(run.errors, ::testing::StartsWith("vornlab: "));
    EXPECT_THAT(run.errors, HasSubstr(complaint));
    EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
  }
}

TEST(Demo, ShowsTheRoadWithEveryNumber) {
  const TemporaryFolder folder;
  const ProgramRun run = runProgram(VORNLAB_PROGRAM, {"demo", "--full", "--out", (folder / "out.ics").string()});
  ASSERT_EQ(run.exitCode, 0) << run.output << run.errors;
  for (const char* part : {"The appointment before", "4 VnCmdSchedule", "1 VnStateAdding", "sent      action 3",
                           "received  action 6", "The appointment after", "an online meeting now"}) {
    EXPECT_THAT(run.output, HasSubstr(part));
  }
  EXPECT_THAT(run.output, Not(HasSubstr("@")));
}

TEST(Demo, TakesAnAppointmentOfOnesOwnAndWritesOnlyWhereItIsTold) {
  const TemporaryFolder folder;
  const auto own = folder.write("own.ics", calendar({appointment("a", "First"), appointment("b", "Second")}));
  const std::string before = contentOf(own);
  const ProgramRun run = runProgram(VORNLAB_PROGRAM, {"demo", own.string(), "--uid", "b"});
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_THAT(run.output, AllOf(HasSubstr("Subject    Second"), HasSubstr("an online meeting now"),
                                Not(HasSubstr("The calendar is in"))));
  EXPECT_EQ(contentOf(own), before);
  EXPECT_EQ(runProgram(VORNLAB_PROGRAM, {"demo", own.string(), "--uid", "c"}).errors,
            "vornlab: " + own.string() + ": the calendar has no appointment with the UID c\n");
}

}  // namespace
}  // namespace vornlab::test
