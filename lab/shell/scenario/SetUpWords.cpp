#include <array>
#include <cmath>
#include <ctime>

#include "lab/client/Account.h"
#include "lab/client/Replies.h"
#include "lab/outlook/IcsDocument.h"
#include "lab/shell/Session.h"
#include "lab/shell/scenario/ScenarioWords.h"

namespace vornlab {
namespace {

namespace fs = std::filesystem;

constexpr auto kAppointment =
    "appointment UID [subject TEXT] [at TIME] [for N min] [location TEXT] [body TEXT] [html HTML] [attendee NAME "
    "ADDRESS] [room NAME] [organizer ADDRESS] [repeats daily|weekly|monthly N] [occurrence ID] [stamp TIME] "
    "[line LINE] [record TEXT] [older record TEXT]";
constexpr auto kMeeting =
    "meeting NUMBER [of UID] [subject TEXT] [at TIME] [for N min] [passcode TEXT] [language TEXT] [host ADDRESS] "
    "[repeating]";

constexpr double kUsualLength = 3600;

// Beside the scenario, or in the named folder of the tree that the scenario stands in.
fs::path findFile(LineReader& line, const std::string& name, const char* folder) {
  const fs::path own = fs::absolute(line.file()).parent_path();
  if (fs::is_regular_file(own / name)) return own / name;
  for (fs::path at = own; at != at.root_path(); at = at.parent_path()) {
    const fs::path found = at / folder / name;
    if (fs::is_regular_file(found)) return found;
  }
  line.refuse("\"" + name + "\" is neither beside the scenario nor in " + folder);
}

std::string icsTime(double seconds) {
  const auto time = static_cast<std::time_t>(std::floor(seconds));
  std::tm parts{};
  gmtime_r(&time, &parts);
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%Y%m%dT%H%M%SZ", &parts);
  return text.data();
}

std::string frequencyOf(LineReader& line) {
  if (line.take("daily")) return "DAILY";
  if (line.take("weekly")) return "WEEKLY";
  if (line.take("monthly")) return "MONTHLY";
  line.fail("daily, weekly or monthly");
}

// Gathers the lines of one VEVENT.
class AppointmentReader {
 public:
  AppointmentReader(LineReader& line, ScenarioSetUp& setUp) : line_(line), setUp_(setUp) {}

  void read() {
    uid_ = line_.text("the UID of the appointment");
    while (!line_.atEnd()) readOption();
    std::string text = "BEGIN:VEVENT\r\n";
    for (const std::string& content : {"UID:" + uid_, "DTSTAMP:" + icsTime(stamp_), "DTSTART:" + icsTime(start_),
                                       "DTEND:" + icsTime(start_ + length_)}) {
      text += foldedLine(content, "\r\n");
    }
    if (!occurrence_.empty()) further_.push_back("RECURRENCE-ID:" + occurrence_);
    for (const std::string& content : further_) text += foldedLine(content, "\r\n");
    setUp_.appointments.push_back(text + "END:VEVENT\r\n");
    for (StoredRecord& record : records_) {
      record.recurrenceId = occurrence_;
      setUp_.records.push_back(std::move(record));
    }
  }

 private:
  void readOption() {
    if (readTime() || readText() || readPerson() || readRecord()) return;
    if (line_.take("repeats")) {
      const std::string frequency = frequencyOf(line_);
      further_.push_back("RRULE:FREQ=" + frequency + ";COUNT=" + std::to_string(line_.number("how often")));
    } else if (line_.take("occurrence")) {
      occurrence_ = line_.text("the RECURRENCE-ID of the occurrence");
    } else if (line_.take("line")) {
      further_.push_back(line_.quoted());
    } else {
      line_.fail("one of the appointment's options");
    }
  }

  bool readTime() {
    if (line_.take("at")) {
      start_ = line_.time();
    } else if (line_.take("for")) {
      length_ = line_.minutes();
    } else if (line_.take("stamp")) {
      stamp_ = line_.time();
    } else {
      return false;
    }
    return true;
  }

  bool readText() {
    if (line_.take("subject")) {
      further_.push_back("SUMMARY:" + escapedText(line_.quoted()));
    } else if (line_.take("location")) {
      further_.push_back("LOCATION:" + escapedText(line_.quoted()));
    } else if (line_.take("body")) {
      further_.push_back("DESCRIPTION:" + escapedText(line_.quoted()));
    } else if (line_.take("html")) {
      further_.push_back("X-ALT-DESC;FMTTYPE=text/html:" + escapedText(line_.quoted()));
    } else {
      return false;
    }
    return true;
  }

  bool readPerson() {
    if (line_.take("attendee")) {
      const std::string name = line_.text("a name");
      further_.push_back("ATTENDEE;CN=\"" + name + "\":mailto:" + line_.text("an address"));
    } else if (line_.take("room")) {
      further_.push_back("ATTENDEE;CUTYPE=ROOM;CN=\"" + line_.text("the name of a room") +
                         "\":mailto:room@rooms.example");
    } else if (line_.take("organizer")) {
      further_.push_back("ORGANIZER:mailto:" + line_.text("an address"));
    } else {
      return false;
    }
    return true;
  }

  bool readRecord() {
    const bool isOlder = line_.take("older record");
    if (!isOlder && !line_.take("record")) return false;
    records_.push_back({uid_, "", line_.quoted(), isOlder});
    return true;
  }

  LineReader& line_;
  ScenarioSetUp& setUp_;
  std::string uid_;
  double start_ = kUsualStart;
  double length_ = kUsualLength;
  double stamp_ = kUsualStart - 86400;
  std::string occurrence_;
  std::vector<std::string> further_;
  std::vector<StoredRecord> records_;
};

Account accountOf(LineReader& line, const ScenarioSetUp& setUp) {
  try {
    return setUp.account.empty() ? Account::plain() : Account::fromFile(setUp.account.string());
  } catch (const AccountError& error) {
    line.refuse(error.what());
  }
}

void readMeeting(LineReader& line, ScenarioSetUp& setUp) {
  Meeting meeting;
  meeting.number = line.number("the number of a meeting");
  meeting.start = static_cast<std::int64_t>(kUsualStart);
  meeting.minutes = "60";
  meeting.token = "scenario";
  meeting.settings = newMeetingSettings(accountOf(line, setUp));
  while (!line.atEnd()) {
    if (line.take("of")) {
      meeting.appointment = line.text("the UID of an appointment");
    } else if (line.take("subject")) {
      meeting.subject = line.quoted();
    } else if (line.take("at")) {
      meeting.start = static_cast<std::int64_t>(line.time());
    } else if (line.take("for")) {
      meeting.minutes = std::to_string(static_cast<int>(line.minutes() / 60));
    } else if (line.take("passcode")) {
      meeting.passcode = line.text("a passcode");
    } else if (line.take("language")) {
      meeting.language = line.text("a language such as de-DE");
    } else if (line.take("host")) {
      meeting.hostEmail = line.text("an address");
    } else if (line.take("repeating")) {
      meeting.recurring = true;
    } else {
      line.fail("one of the meeting's options");
    }
  }
  setUp.meetings.push_back(std::move(meeting));
}

const std::array kWords = {
    SetUpWord{"account", "account FILE",
              [](LineReader& line, ScenarioSetUp& setUp) {
                setUp.account = findFile(line, line.text("a file"), "lab/client/accounts");
              }},
    SetUpWord{"calendar", "calendar FILE",
              [](LineReader& line, ScenarioSetUp& setUp) {
                setUp.calendar = findFile(line, line.text("a file"), "lab/calendars");
              }},
    SetUpWord{"appointment", kAppointment,
              [](LineReader& line, ScenarioSetUp& setUp) { AppointmentReader(line, setUp).read(); }},
    SetUpWord{"meeting", kMeeting, readMeeting},
    SetUpWord{"me", "me ADDRESS",
              [](LineReader& line, ScenarioSetUp& setUp) { setUp.host.userAddress = line.text("an address"); }},
    SetUpWord{"delegating", "delegating", [](LineReader&, ScenarioSetUp& setUp) { setUp.host.delegating = true; }},
    SetUpWord{"plain", "plain text",
              [](LineReader& line, ScenarioSetUp& setUp) {
                line.need("text");
                setUp.host.plainTextOnly = true;
              }},
    SetUpWord{"settings", kSettingsUsage,
              [](LineReader& line, ScenarioSetUp& setUp) { setUp.choices.push_back(readChoice(line)); }},
    SetUpWord{"panel", "panel on|off",
              [](LineReader& line, ScenarioSetUp& setUp) {
                setUp.panelIsOn = line.take("on");
                if (!setUp.panelIsOn) line.need("off");
              }},
    SetUpWord{"version", "version V",
              [](LineReader& line, ScenarioSetUp& setUp) {
                setUp.clientVersion = line.text("the version of the client, such as 5.12.3.9654");
              }},
    SetUpWord{"without", "without client",
              [](LineReader& line, ScenarioSetUp& setUp) {
                line.need("client");
                setUp.withoutClient = true;
              }},
    SetUpWord{"os", "os V",
              [](LineReader& line, ScenarioSetUp& setUp) {
                if (!parseSystemVersion(std::string(line.ahead()))) line.fail("a version such as 10.14.6");
                setUp.systemVersion = line.text("a version");
              }},
};

}  // namespace

SavedChoice readChoice(LineReader& line) {
  SavedChoice choice;
  if (line.take("default")) choice.place = SavedChoice::Place::userDefaults;
  choice.key = line.text("the key of a setting");
  choice.value = line.text("its value");
  return choice;
}

std::span<const SetUpWord> setUpWords() { return kWords; }

}  // namespace vornlab
