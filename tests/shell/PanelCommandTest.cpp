// The settings panel on the command line: the language of what is tried, and the real program with the real
// bundle.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "lab/shell/LabError.h"
#include "lab/shell/panel/TryLanguage.h"
#include "tests/shell/Calendars.h"
#include "tests/shell/ProgramRun.h"

namespace vornlab::test {
namespace {

using nlohmann::json;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using Verb = PanelAct::Verb;

std::string faultOf(std::string_view text) {
  try {
    readTry(text);
  } catch (const UsageError& error) {
    return error.what();
  }
  return "none";
}

TEST(TryLanguage, ReadsWhatAPersonWouldSay) {
  const struct {
    const char* text;
    std::vector<PanelAct> acts;
  } rows[] = {
      {"waiting room off", {{"waiting room", Verb::off}}},
      {" waiting room off ,passcode on", {{"waiting room", Verb::off}, {"passcode", Verb::on}}},
      {"language = German", {{"language", Verb::set, "German"}}},
      {"passcode's text=\"a, \\\"b\\\" \\\\\", host video off",
       {{"passcode's text", Verb::set, "a, \"b\" \\"}, {"host video", Verb::off}}},
      {"edit the countries click", {{"edit the countries", Verb::click}}},
      {"domains =", {{"domains", Verb::set, ""}}},
      {"dial-in on", {{"dial-in", Verb::on}}},
      {"third-party audio's text = x=1; 5\" screen", {{"third-party audio's text", Verb::set, "x=1; 5\" screen"}}},
      {"язык = \xF0\x9F\x98\x80, \xD7\xA9 on", {{"язык", Verb::set, "\xF0\x9F\x98\x80"}, {"\xD7\xA9", Verb::on}}},
  };
  for (const auto& row : rows) EXPECT_EQ(readTry(row.text), row.acts) << row.text;
}

TEST(TryLanguage, SaysWhatItExpected) {
  for (const char* text :
       {"", "on", "waiting room", "waiting room of", "passcode on,", ",", "button", "wait\ton,x"}) {
    EXPECT_THAT(faultOf(text), HasSubstr("expected WORDS on, WORDS off, WORDS click or WORDS = VALUE")) << text;
  }
  EXPECT_THAT(faultOf("= 5"), HasSubstr("expected the words of an option before \"=\""));
  EXPECT_THAT(faultOf("a = \"b"), HasSubstr("expected a closing quote"));
  EXPECT_THAT(faultOf("a = \"b\" c"), HasSubstr("expected nothing behind the closing quote"));
  for (const char* text : {"a b = \"Zq7", "a b = \"Zq\" 7", "a \"Zq7=\"", "a \"Zq7=5", "a Zq7", "a\tZq7 of"}) {
    EXPECT_THAT(faultOf(text), AllOf(EndsWith(" ...\""), Not(HasSubstr("Zq")))) << text;
  }
}

TEST(TryLanguage, ReadsLongTextsInTimeLinearInThem) {
  std::string text = "a = \"" + std::string(64 << 10, '\\') + "\"";
  for (int i = 0; i < 10000; ++i) text += ", b on";
  EXPECT_EQ(readTry(text).size(), 10001u);
}

TEST(TryLanguage, FindsAControlByItsWordsOrItsKeyAndTellsTheWordsOtherwise) {
  using Kind = vorn::Control::Kind;
  vorn::ControlSet controls;
  controls.add(Kind::checkBox, "enableWaitingRoom");
  controls.add(Kind::label, "prompt");
  controls.add(Kind::popup, "extra");
  const vorn::PanelLayout layout{{{"s", "", {{{{"enableWaitingRoom", "waiting room"}, {"prompt"}, {"extra"}}}}}}};
  EXPECT_EQ(keyOfName("Waiting ROOM", layout, controls), "enableWaitingRoom");
  EXPECT_EQ(keyOfName("prompt", layout, controls), "prompt");
  try {
    keyOfName("wating room", layout, controls);
    ADD_FAILURE();
  } catch (const UsageError& error) {
    EXPECT_STREQ(error.what(), "the panel has no \"wating room\"; it has: waiting room, extra");
  }
}

class PanelCommand : public ::testing::Test {
 protected:
  ProgramRun panel(std::vector<std::string> arguments, const char* account = "plain") {
    arguments.insert(arguments.begin(),
                     {"panel", "--account", std::string(LAB_ACCOUNTS) + "/" + account + ".json"});
    return runProgram(VORNLAB_PROGRAM, arguments);
  }
  json documentOf(std::vector<std::string> arguments, const char* account = "plain") {
    arguments.emplace_back("--json");
    m_run = panel(std::move(arguments), account);
    return json::parse(m_run.output, nullptr, false);
  }
  static json controlOf(const json& document, const std::string& key) {
    for (const json& section : document["sections"]) {
      for (const json& row : section["rows"]) {
        for (const json& control : row["controls"]) {
          if (control["key"] == key) return control;
        }
      }
    }
    return {};
  }

  TemporaryFolder m_folder;
  ProgramRun m_run;
};

TEST_F(PanelCommand, PrintsThePanelAsAPersonSeesItAndWhatIsLocked) {
  const ProgramRun plain = panel({});
  EXPECT_EQ(plain.exitCode, 0) << plain.errors;
  EXPECT_THAT(plain.output,
              AllOf(HasSubstr("\nVideo\n    Host video "), HasSubstr("(x) On  ( ) Off\n"),
                    HasSubstr("[x] Passcode  [******]"),
                    HasSubstr("before the meeting starts  time before the start: join before host is off\n"),
                    HasSubstr("< Continue >"), Not(HasSubstr("hidden:")), Not(HasSubstr("cannot be changed"))));
  const ProgramRun locked = panel({"--all"}, "everything-locked");
  EXPECT_THAT(locked.output,
              AllOf(HasSubstr("  # Host video"), HasSubstr("locked by the account: isHostVideoLocked"),
                    HasSubstr("\n# cannot be changed\n"), HasSubstr("passcode: locked by the account: "),
                    HasSubstr("hidden: not offered by the account: isSupportUnmuteAll")));
}

TEST_F(PanelCommand, TriesWithoutCommittingAndTellsWhatWouldBeWritten) {
  const json told = documentOf({"--try", "host video off, language = germ", "--try", "PASSCODE'S TEXT = \"\""});
  ASSERT_TRUE(told.is_object()) << m_run.output << m_run.errors;
  EXPECT_EQ(m_run.exitCode, 0);
  const json first = told["tries"][0];
  EXPECT_EQ(first["acts"][0]["result"], "done");
  std::vector<std::string> changes;
  for (const json& change : first["changes"]) {
    changes.push_back(change["key"].get<std::string>() + ": " + change["before"].get<std::string>() + " -> " +
                      change["after"].get<std::string>());
  }
  EXPECT_THAT(changes, ElementsAre("videoHostMatrix: On -> Off", "videoParticipantMatrix: On -> Off",
                                   "selectLanguagePopup: English -> German"));
  EXPECT_EQ(told["continue"]["enabled"], false);
  EXPECT_EQ(told["continue"]["reason"], "the passcode is missing");
  std::vector<std::string> written;
  for (const json& setting : told["written"]) written.push_back(setting["key"]);
  EXPECT_THAT(written, ElementsAre("enableHostVideo", "enableParticipantsVideo", "meetingPassword", "language"));

  const ProgramRun alike =
      panel({"--try", "personal ID on", "--try", "one-time ID on, passcode's text = 4567abc9"});
  EXPECT_THAT(alike.output, AllOf(HasSubstr("  passcode (meetingPassword): ****** -> another one\n"),
                                  HasSubstr("  join before host: \"Allow participants to join\" -> \""),
                                  Not(HasSubstr("off -> off"))));
}

TEST_F(PanelCommand, SaysWhyAnActCannotBeDone) {
  const ProgramRun run =
      panel({"--try",
             "host video off, unmute all on, language = Klingon, passcode's text = 12345678901, "
             "alternate hosts of ann@example.com on"},
            "everything-locked");
  EXPECT_EQ(run.exitCode, 2);
  EXPECT_THAT(run.errors, HasSubstr("the panel has no \"alternate hosts of ******\"; it has: "));

  const ProgramRun told = panel({"--try", "host video off, unmute all on, language = Klingon, language = Chinese",
                                 "--try", "passcode's text = 12345678901"},
                                "everything-locked");
  EXPECT_EQ(told.exitCode, 1);
  EXPECT_THAT(told.output,
              AllOf(HasSubstr("host video off: locked (locked by the account: isHostVideoLocked)\n"),
                    HasSubstr("unmute all on: hidden (not offered by the account: isSupportUnmuteAll)\n"),
                    HasSubstr("language = Klingon: refused (no such item; it has: English, "),
                    HasSubstr("language = Chinese: refused (several items begin with it: Chinese"),
                    HasSubstr("passcode's text = ******: refused (it does not take this)\n"),
                    HasSubstr("nothing changes in the panel"), HasSubstr("\nContinue can be used.\n"),
                    HasSubstr("A commit would write nothing else than before.")));
  const std::pair<const char*, const char*> bad[] = {{"continue click", "nothing is committed here"},
                                                     {"passcode = maybe", "\"passcode\" takes on or off"},
                                                     {"passwordPrompt on", "only looked at"}};
  for (const auto& [text, told_] : bad) {
    const ProgramRun refused = panel({"--try", text});
    EXPECT_EQ(refused.exitCode, 2) << text;
    EXPECT_THAT(refused.errors, HasSubstr(told_)) << text;
  }
}

TEST_F(PanelCommand, OpensThePanelOfAStoredMeetingAndSaysWhereThereIsNone) {
  const auto plain =
      m_folder.write("plain.ics", calendar({appointment("one", "Review"), appointment("two", "B")}));
  const auto online = m_folder / "online.ics";
  const std::string service = m_folder / "meetings.db";
  const ProgramRun meet =
      runProgram(VORNLAB_PROGRAM, {"meet", plain, "--out", online, "--uid", "one", "--client-db", service});
  ASSERT_EQ(meet.exitCode, 0) << meet.errors;
  const json stored = documentOf({online, "--uid", "one", "--client-db", service});
  ASSERT_TRUE(stored.is_object()) << m_run.output << m_run.errors;
  EXPECT_EQ(controlOf(stored, "putTheInvitationAtTheTopButton")["reason"], "the meeting exists already");

  EXPECT_EQ(panel({online, "--uid", "two"}).exitCode, 0);
  const ProgramRun unknown = panel({online, "--uid", "three"});
  EXPECT_EQ(unknown.exitCode, 2) << "as of every command that is about one appointment";
  EXPECT_THAT(unknown.errors, HasSubstr("no appointment with the UID three"));
  const ProgramRun several = panel({online});
  EXPECT_EQ(several.exitCode, 2);
  EXPECT_THAT(several.errors, HasSubstr("choose one with --uid"));
  EXPECT_THAT(panel({m_folder.write("none.ics", calendar({}))}).errors,
              HasSubstr("none.ics: the calendar has no appointment\n"));
  EXPECT_EQ(panel({"--uid", "one"}).exitCode, 2);
  const ProgramRun alone = panel({"--without-client"});
  EXPECT_EQ(alone.exitCode, 1);
  EXPECT_THAT(alone.errors, HasSubstr("the panel does not open: "));
}

TEST_F(PanelCommand, ListsTheWordsThatCanBeTried) {
  const ProgramRun run = panel({"--words"});
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_THAT(run.output, AllOf(HasSubstr("waiting room "), HasSubstr("on|off "), HasSubstr("enableWaitingRoom\n"),
                                HasSubstr("= VALUE "), Not(HasSubstr("passcodePrompt"))));
}

}  // namespace
}  // namespace vornlab::test
