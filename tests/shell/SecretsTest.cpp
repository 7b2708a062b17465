// Secrets of all kinds in everything that people give to the laboratory, and none of them in what comes out of it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <nlohmann/json.hpp>
#include <set>

#include "lab/client/InvitationWords.h"
#include "lab/shell/World.h"
#include "tests/shell/Calendars.h"
#include "tests/shell/ProgramRun.h"

namespace vornlab::test {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using ::testing::HasSubstr;

constexpr const char* kUser = "sE4rL6vBYxoT2gSk8qMf3W";

class Secrets : public ::testing::Test {
 protected:
  // A passcode, a code of digits, and an address that stand nowhere else; `kind` is for the report of a leak.
  std::string passcode(const std::string& kind) { return keep("q" + std::to_string(m_next++) + "Zx", kind); }
  std::string digits(const std::string& kind) { return keep(std::to_string(847'101 + m_next++), kind); }
  std::string address(const std::string& kind) {
    const std::string name = keep("vz" + std::to_string(m_next++) + "anna", kind);
    return name + "@" + keep("kw" + std::to_string(m_next++) + "corp", kind) + ".example";
  }

  // -- What goes in

  fs::path calendarFile() {
    std::vector<std::string> events;
    const auto add = [&](const std::string& uid, const std::string& subject, std::vector<std::string> lines) {
      events.push_back(appointment(uid, subject, lines));
      m_uids.push_back(uid);
    };
    for (const char* language : {"en", "de", "fr", "es"}) {
      const std::string label = invitationWords(language).passcode;
      const std::string name = "calendar, " + label;
      add(std::string("in-") + language, label + ": " + passcode(name + " in a subject"),
          {"DESCRIPTION:" + label + ": " + passcode(name) + "\\n" + label + " " + digits(name),
           "X-ALT-DESC;FMTTYPE=text/html:<table><tr><td>" + label + "</td><td>" + passcode(name + " in a cell") +
               "</td></tr></table>",
           "LOCATION:https://vorn.example/j/91234567890?pwd=" + passcode("calendar, pwd")});
    }
    const std::string url = "https://vorn.example/j/91234567891";
    add(address("UID"), "パスコード: " + passcode("subject, Japanese"),
        {"LOCATION:" + url + "?tk=" + passcode("calendar, tk") + "&zak=" + passcode("calendar, zak")});
    add("uid?pwd=" + passcode("UID with a token"), "Пароль " + digits("subject, Russian"),
        {"LOCATION:https://go.example/?u=" + std::string("https%3A%2F%2Fvorn.example%2Fj%2F9%3Fpwd%3D") +
         passcode("calendar, packed URL")});
    std::string encoded = address("calendar, %40");
    encoded.replace(encoded.find('@'), 1, "%40");
    add("coded", "Write to " + encoded + " or " + address("subject"),
        {"ORGANIZER;CN=Organizer:mailto:" + address("organizer"),
         "ATTENDEE;CN=\"Guest " + address("attendee's name") + "\":mailto:" + address("attendee"),
         "LOCATION:Room 4\\, +16465550100\\,\\,91234567890#\\,\\,\\,\\,*" + digits("dial string") + "#"});
    add("record", "With a record \x1b[31mred",
        {"X-VORNLAB-OLMUCINBAND:" + json{{"joinUrl", url + "?pwd=" + passcode("record")},
                                         {"meetingSubject", "PIN: " + digits("record's subject")},
                                         {"subject", "Code " + digits("record's subject") + "#"}}
                                        .dump()});
    return m_folder.write("secrets.ics", calendar(events));
  }

  fs::path accountFile() {
    json account = json::parse(contentOf(fs::path(LAB_ACCOUNTS) / "telephony-provider.json"), nullptr, true, true);
    account["user"].update(
        {{"id", kUser}, {"name", "Jo " + address("account, name")}, {"email", address("account")}});
    account["options"].erase("thirdPartyAudio");
    account["options"]["defaultAudioThirdParty"] = true;
    account["thirdPartyAudio"] = "Bridge +1 303 555 0166, code " + digits("audio, code") + "# or PIN " +
                                 digits("audio, PIN") + ", host code: " + passcode("audio, host code") +
                                 ", then " + digits("audio, bare") + ", Zugangscode " + digits("audio, German");
    for (json& provider : account["telephonyProvider"]["accounts"]) {
      provider["hostPasscode"] = digits("provider, host");
      provider["participantPasscode"] = digits("provider, participant");
    }
    account["links"] = {{"domain", "vorn.example"},
                        {"trashCan", "https://vorn.example/recycle?token=" + passcode("link, token")},
                        {"profileSettings", "https://vorn.example/p?zak=" + passcode("link, zak")}};
    account["people"] = {{{"hostId", "aV2kD8sTQwyN6rHb4mZj0X"},
                          {"name", address("person, name")},
                          {"email", address("person")},
                          {"personalId", "5550131144"}}};
    account["audioConferences"] = {{{"number", "8005550101"},
                                    {"dedicatedNumber", "+1 312 555 0177,,912#,,,,*" + digits("dedicated") + "#"},
                                    {"location", "Ask " + address("conference") + ", PIN " + digits("location")}}};
    account["joinDomains"] = "vorn.example";
    return m_folder.write("account.json", account.dump());
  }

  // The files of a user, as a world has them.
  fs::path world() {
    World::Options options;
    options.folder = m_folder / "w";
    options.userId = kUser;
    options.panelIsOff = false;
    const World world(options);
    for (const char* key : {"meetingPassword", "thirdPartyAudio", "scheduleFor", "meetingTopic"}) {
      world.saveChoice(kUser, key, "Passcode: " + passcode(std::string("choice, ") + key));
    }
    world.saveChoice(kUser, "alternateHosts", json{address("choice, alternate host")}.dump());
    world.saveChoice(kUser, "Kenncode: " + passcode("choice, key"), "true");
    world.saveChoice(World::kSite, "trashCanLink", "https://vorn.example/?pwd=" + passcode("site, link"));
    world.saveChoice(address("file's name"), "a", "1");
    return world.root();
  }

  // Scenarios that fail, each with another secret in what was expected and what was found.
  std::vector<std::string> scenarioFiles() {
    const std::string me = address("scenario, me");
    const std::string secret = passcode("scenario, appointment");
    const std::string begin =
        "appointment a subject \"Kenncode: " + secret + "\" location \"at " + address("scenario, location") +
        "\" html \"<p>Codice di accesso</p><p>" + passcode("scenario, html") +
        "</p>\" body \"mot de passe : " + passcode("scenario, body") + "\" attendee Guest " +
        address("scenario, attendee") +
        " record \"{\\\"joinUrl\\\":\\\"https://vorn.example/j/9?pwd=" + passcode("scenario, record") +
        "\\\"}\"\nme " + me + "\n";
    const std::string panel = "panel on\nnew\nclick add\nsettings set passwordTextField.text \"" +
                              keep("47" + digits("scenario, typed passcode").substr(2), "scenario, typed") +
                              "\"\n";
    const std::string lines[] = {
        begin + "open a\nexpect subject \"PIN: " + passcode("scenario, expected subject") + " of " + me + "\"\n",
        begin + "open a\nexpect location empty\n",
        begin + "open a\nexpect body empty\n",
        begin + "open a\nexpect html empty\n",
        begin + "in a\nexpect stored record none\n",
        begin + "in a\nexpect stored record joinUrl \"?pwd=" + passcode("scenario, expected URL") + "\"\n",
        begin + "open a\ntype subject \"PIN: " + digits("scenario, typed subject") +
            "\"\nsave\nexpect stored unchanged\n",
        begin + "in a\nexpect stored nothing\n",
        begin + "rename nobody \"Kenncode: " + passcode("scenario, command") + "\"\nexpect mailed 0\n",
        panel + "expect settings.passwordTextField.text \"" + passcode("scenario, expected passcode") + "\"\n",
        panel + "settings continue\nexpect service passcode " + passcode("scenario, expected passcode") + "\n",
        "panel on\nnew\nclick add\nsettings paste tokenFieldAH \"" + address("scenario, alternate host") +
            "\"\nwait 0.2 s\nexpect settings.tokenFieldAH.tokens empty\n",
        "client faults \"reply 1 to action 3: content 0;Error Kenncode: " + passcode("scenario, reply") + " of " +
            address("scenario, reply") + "\"\nnew\nclick add\nexpect alert contains nothing\n",
    };
    std::vector<std::string> files;
    for (const std::string& text : lines) {
      files.push_back(m_folder.write("s" + std::to_string(files.size()) + ".vorn", text).string());
    }
    return files;
  }

  // -- What comes out

  ProgramRun run(std::vector<std::string> words, bool asJson) {
    if (asJson) words.insert(words.begin() + (words.front() == "watch" ? 1 : words.size()), "--json");
    const ProgramRun run = runProgram(VORNLAB_PROGRAM, words);
    std::string command;
    for (const std::string& word : words) command += (command.empty() ? "" : " ") + word.substr(0, 40);
    look(run.output, command);
    look(run.errors, command + ", errors");
    EXPECT_FALSE(run.output.empty() && run.errors.empty()) << command;
    return run;
  }

  void runBothWays(const std::vector<std::string>& words) {
    run(words, false);
    run(words, true);
  }

  void report(const std::vector<std::string>& further) {
    const fs::path out = m_folder.write("report", "an earlier one");
    fs::permissions(out, fs::perms(0644));
    std::vector<std::string> words = {"report", "--out", out};
    words.insert(words.end(), further.begin(), further.end());
    for (const bool asJson : {false, true}) {
      const ProgramRun told = run(words, asJson);
      EXPECT_EQ(told.exitCode, 0) << told.errors;
      const std::string text = contentOf(out);
      look(text, "the report");
      for (const char* section : {"versions", "doctor", "hooks", "account", "panel", "steps", "notices"}) {
        EXPECT_THAT(told.output, HasSubstr(section));
        EXPECT_THAT(text, HasSubstr(section));
      }
      EXPECT_EQ(fs::status(out).permissions(), fs::perms(0600));
    }
  }

  // A longer number that a code happens to stand in, such as a meeting's, is none of it.
  static std::size_t findWhole(const std::string& text, const std::string& secret) {
    const auto isDigitAt = [](const std::string& in, std::size_t at) {
      return at < in.size() && in[at] >= '0' && in[at] <= '9';
    };
    const auto isPartOfNumber = [&](std::size_t at) {
      return (isDigitAt(secret, 0) && isDigitAt(text, at - 1)) ||
             (isDigitAt(secret, secret.size() - 1) && isDigitAt(text, at + secret.size()));
    };
    std::size_t at = text.find(secret);
    while (at != std::string::npos && isPartOfNumber(at)) at = text.find(secret, at + 1);
    return at;
  }

  void look(const std::string& text, const std::string& where) {
    for (const auto& [secret, kind] : m_secrets) {
      const std::size_t at = findWhole(text, secret);
      if (at == std::string::npos) continue;
      ADD_FAILURE() << "LEAK " << kind << " | " << where << " | ..."
                    << text.substr(at - std::min<std::size_t>(at, 50), 90);
    }
    EXPECT_EQ(text.find('\x1b'), std::string::npos) << where << " speaks to the terminal";
  }

  // What the service has made up for an appointment.
  void keepInvitationOf(const fs::path& calendar, const std::string& label) {
    const std::string written = unfolded(contentOf(calendar));
    const std::size_t at = written.find(label + "\t");
    ASSERT_NE(at, std::string::npos) << written;
    const std::size_t code = at + label.size() + 1;
    const std::size_t token = written.find("?pwd=") + 5;
    keep(written.substr(code, written.find('\\', code) - code), "invitation, " + label);
    keep(written.substr(token, 12), "invitation, join token");
  }

  std::string keep(const std::string& secret, const std::string& kind) {
    m_secrets.emplace_back(secret, kind);
    return secret;
  }

  TemporaryFolder m_folder;
  std::vector<std::pair<std::string, std::string>> m_secrets;
  std::vector<std::string> m_uids;
  int m_next = 1000;
};

TEST_F(Secrets, OfAnAccountAndItsUserStayInside) {
  const std::string account = accountFile();
  const std::string folder = world();
  const std::vector<std::vector<std::string>> commands = {{"doctor"}, {"account", "show"}, {"account", "defaults"},
                                                          {"panel"},  {"panel", "--all"},  {"panel", "--words"}};
  for (std::vector<std::string> words : commands) {
    words.insert(words.end(), {"--account", account, "--world", folder});
    runBothWays(words);
  }
  look(contentOf(fs::path(folder) / "journal"), "the client's journal");
  // With what the earlier runs have left in the journal.
  report({"--account", account, "--world", folder});
}

TEST_F(Secrets, OfACalendarStayInside) {
  const std::string file = calendarFile();
  runBothWays({"inspect", file});
  runBothWays({"panel", file, "--uid", m_uids.front(), "--all"});
  runBothWays({"inspect", file, "--uid", address("uid on the line"), "--me", address("me on the line")});
  const std::string world = m_folder / "w";
  const std::vector<std::string> meet = {
      "meet", file, "--all", "--out", m_folder / "out.ics", "--client-db", m_folder / "db", "--covered"};
  for (std::vector<std::string> words : {meet, {"inspect", file}}) {
    words.insert(words.end(), {"--runtime", "objc"});
    runBothWays(words);
  }
  std::vector<std::string> words = meet;
  words.insert(words.end(), {"--world", world});
  runBothWays(words);
  report({file, "--uid", m_uids.front(), "--world", world});
  look(contentOf(fs::path(world) / "journal"), "the client's journal");
  run({"demo", file, "--uid", m_uids.front()}, false);
  runBothWays({"meet", file, "--all", "--dry-run", "--client-db", m_folder / "db", "--covered"});
  runBothWays({"meet", m_folder / "out.ics", "--all", "--remove", "--dry-run", "--client-db", m_folder / "db",
               "--covered"});
  // Whoever wants the join URLs has them from the same command, and here it is seen that a secret would be found.
  const ProgramRun open = runProgram(
      VORNLAB_PROGRAM, {"meet", file, "--all", "--out", m_folder / "open.ics", "--client-db", m_folder / "db"});
  for (const auto& [secret, kind] : m_secrets) {
    const bool isShown = kind == "calendar, pwd" || kind == "dial string";
    EXPECT_TRUE(!isShown || open.output.find(secret) != std::string::npos) << kind << open.output;
  }
  EXPECT_EQ(open.output.find('\x1b'), std::string::npos);
}

TEST_F(Secrets, OfRepliesAndOfWordsOnTheLineStayInside) {
  const std::string faults = m_folder.write(
      "faults", "every reply to action 3: content 0;Error 1113;" + address("reply") +
                    "#1 Kenncode: " + passcode("reply") +
                    "\nevery reply to action 6: content 0;Error contraseña: " + passcode("reply, profile") +
                    " of " + address("reply, profile") + "\n");
  const std::string option = "--client-option=--faults=" + faults;
  const std::string file = m_folder.write("one.ics", calendar({appointment("one", "One")}));
  const std::string world = m_folder / "w";
  for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
           {"doctor", "--timeout", "2"},
           {"account", "show", "--timeout", "2"},
           {"panel", "--timeout", "2"},
           {"meet", file, "--all", "--out", m_folder / "out.ics", "--client-db", ":memory:", "--covered"}}) {
    std::vector<std::string> all = words;
    all.insert(all.end(), {option, "--world", world});
    runBothWays(all);
  }
  report({"--timeout", "2", option, "--world", world});
  run({"demo", "--out", m_folder / "demo.ics", option, "--world", world}, false);
  look(contentOf(fs::path(world) / "journal"), "the client's journal");
  look(contentOf(fs::path(world) / "client.err"), "the client's errors");

  const std::string typed = digits("try");
  runBothWays({"panel", "--try", "passcode on, passcode's text = " + typed});
  runBothWays({"panel", "--try", "alternate hosts = \"" + address("try") + "\""});
  for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
           {address("no command")},
           {"doctor", address("extra word")},
           {"doctor", "--account", m_folder / address("no file")},
           {"doctor", "--passcode=" + passcode("no option")},
           {"inspect", m_folder / ("x?pwd=" + passcode("no calendar"))},
           {"panel", file, "--uid", address("no UID")},
           {"panel", "--try", "Kenncode: " + passcode("no act") + " = 1"},
           {"panel", "--try", "no option " + address("no act")},
           {"doctor", "--client-option=" + address("no option of the client")},
           {"play", m_folder.write("bad.vorn", "opne \"Kenncode: " + passcode("bad line") + "\" " +
                                                   address("bad line") + "\n")}}) {
    runBothWays(words);
  }
}

TEST_F(Secrets, OfFailingScenariosStayInside) {
  std::vector<std::string> words = scenarioFiles();
  words.insert(words.begin(), "play");
  for (const bool asJson : {false, true}) {
    const ProgramRun told = run(words, asJson);
    EXPECT_EQ(told.exitCode, 1);
    EXPECT_EQ(occurrences(told.output, asJson ? "\"result\":\"failed\"" : "FAIL "), words.size() - 1)
        << told.output << told.errors;
  }
}

// The service writes the invitation in the user's language, with a passcode of its own.
TEST_F(Secrets, OfAnInvitationInAnyLanguageStayInside) {
  for (const std::string language : {"en", "de", "fr", "es"}) {
    World::Options options;
    options.folder = m_folder / language;
    options.userId = "kT3vQ9xZRpmW1sLd7nYb2A";
    World(options).saveChoice(options.userId, "language", language);
    const fs::path out = m_folder / (language + ".ics");
    const std::vector<std::string> demo = {"demo", "--full", "--out", out, "--world", options.folder};
    for (std::vector<std::string> words :
         std::vector<std::vector<std::string>>{{}, {"watch", "--"}, {"watch", "--json", "--"}}) {
      words.insert(words.end(), demo.begin(), demo.end());
      const ProgramRun run = runProgram(VORNLAB_PROGRAM, words);
      ASSERT_EQ(run.exitCode, 0) << run.output << run.errors;
      keepInvitationOf(out, invitationWords(language).passcode);
      look(run.output, words.front() + ", " + language);
      look(run.errors, words.front() + ", errors, " + language);
      look(contentOf(options.folder / "journal"), "the client's journal");
    }
    runBothWays({"inspect", out});
  }
}

}  // namespace
}  // namespace vornlab::test
