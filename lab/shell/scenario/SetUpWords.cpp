#include <array>
#include <filesystem>
#include <system_error>

#include "lab/client/Account.h"
#include "lab/client/Replies.h"
#include "lab/ics/CalendarStore.h"
#include "lab/ics/IcsDocument.h"
#include "lab/shell/CalendarInput.h"
#include "lab/shell/SystemVersion.h"
#include "lab/shell/Words.h"
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

// No for a name that the system takes for none, as one too long, too.
bool isFile(const fs::path& path) {
  std::error_code unknown;
  return fs::is_regular_file(path, unknown);
}

// Beside the scenario, or in the named folder of the tree that the scenario stands in.
fs::path findFile(LineReader& line, const std::string& name, const char* folder) {
  const fs::path own = fs::absolute(line.file()).parent_path();
  if (isFile(own / name)) return own / name;
  for (fs::path at = own; at != at.root_path(); at = at.parent_path()) {
    const fs::path found = at / folder / name;
    if (isFile(found)) return found;
  }
  line.refuse("\"" + name + "\" is neither beside the scenario nor in " + folder);
}

std::string icsTime(double seconds) { return timeInWords(seconds, "%Y%m%dT%H%M%SZ"); }

std::string frequencyOf(LineReader& line) {
  if (line.take("daily")) return "DAILY";
  if (line.take("weekly")) return "WEEKLY";
  if (line.take("monthly")) return "MONTHLY";
  line.fail("daily, weekly or monthly");
}

// Gathers the lines of one VEVENT.
class AppointmentReader {
 public:
  AppointmentReader(LineReader& line, ScenarioSetUp& setUp) : m_line(line), m_setUp(setUp) {}

  void read() {
    m_uid = m_line.text("the UID of the appointment");
    while (!m_line.atEnd()) readOption();
    const std::string name = m_occurrence.empty() ? m_uid : m_uid + " occurrence " + m_occurrence;
    if (!m_setUp.appointmentNames.insert(name).second) {
      m_line.refuse("an appointment \"" + name + "\" stands above already");
    }
    std::string text = "BEGIN:VEVENT\r\n";
    for (const std::string& content : {"UID:" + m_uid, "DTSTAMP:" + icsTime(m_stamp),
                                       "DTSTART:" + icsTime(m_start), "DTEND:" + icsTime(m_start + m_length)}) {
      text += foldedLine(content, "\r\n");
    }
    if (!m_occurrence.empty()) m_further.push_back("RECURRENCE-ID:" + m_occurrence);
    for (const std::string& content : m_further) text += foldedLine(content, "\r\n");
    text += "END:VEVENT\r\n";
    IcsProblem problem;
    if (!IcsDocument::parse(text, problem)) m_line.refuse("this makes no appointment: " + problem.message);
    m_setUp.appointments.push_back(std::move(text));
    for (StoredRecord& record : m_records) {
      record.recurrenceId = m_occurrence;
      m_setUp.records.push_back(std::move(record));
    }
  }

 private:
  void readOption() {
    if (readTime() || readText() || readPerson() || readRecord()) return;
    if (m_line.take("repeats")) {
      const std::string frequency = frequencyOf(m_line);
      const std::int64_t count = m_line.number("how often");
      if (count < 1)
        m_line.refuse("an appointment repeats at least once, not " + std::to_string(count) + " times");
      m_further.push_back("RRULE:FREQ=" + frequency + ";COUNT=" + std::to_string(count));
    } else if (m_line.take("occurrence")) {
      m_occurrence = m_line.text("the RECURRENCE-ID of the occurrence");
    } else if (m_line.take("line")) {
      m_further.push_back(m_line.quoted());
    } else {
      m_line.fail("one of the appointment's options");
    }
  }

  bool readTime() {
    if (m_line.take("at")) {
      m_start = m_line.time();
    } else if (m_line.take("for")) {
      m_length = 60 * m_line.minutes();
    } else if (m_line.take("stamp")) {
      m_stamp = m_line.time();
    } else {
      return false;
    }
    return true;
  }

  bool readText() {
    if (m_line.take("subject")) {
      m_further.push_back("SUMMARY:" + escapedText(m_line.quoted()));
    } else if (m_line.take("location")) {
      m_further.push_back("LOCATION:" + escapedText(m_line.quoted()));
    } else if (m_line.take("body")) {
      m_further.push_back("DESCRIPTION:" + escapedText(m_line.quoted()));
    } else if (m_line.take("html")) {
      m_further.push_back("X-ALT-DESC;FMTTYPE=text/html:" + escapedText(m_line.quoted()));
    } else {
      return false;
    }
    return true;
  }

  bool readPerson() {
    if (m_line.take("attendee")) {
      const std::string name = m_line.text("a name");
      m_further.push_back("ATTENDEE;CN=\"" + name + "\":mailto:" + m_line.text("an address"));
    } else if (m_line.take("room")) {
      m_further.push_back("ATTENDEE;CUTYPE=ROOM;CN=\"" + m_line.text("the name of a room") +
                          "\":mailto:room@rooms.example");
    } else if (m_line.take("organizer")) {
      m_further.push_back("ORGANIZER:mailto:" + m_line.text("an address"));
    } else {
      return false;
    }
    return true;
  }

  bool readRecord() {
    const bool isOlder = m_line.take("older record");
    if (!isOlder && !m_line.take("record")) return false;
    m_records.push_back({m_uid, "", m_line.quoted(), isOlder});
    return true;
  }

  LineReader& m_line;
  ScenarioSetUp& m_setUp;
  std::string m_uid;
  double m_start = kUsualStart;
  double m_length = kUsualLength;
  double m_stamp = kUsualStart - 86400;
  std::string m_occurrence;
  std::vector<std::string> m_further;
  std::vector<StoredRecord> m_records;
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
      meeting.minutes = std::to_string(static_cast<int>(line.minutes()));
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

const std::array kSetUpWords = {
    SetUpWord{"account", "account FILE",
              [](LineReader& line, ScenarioSetUp& setUp) {
                setUp.account = findFile(line, line.text("a file"), "lab/client/accounts");
              }},
    SetUpWord{"calendar", "calendar FILE",
              [](LineReader& line, ScenarioSetUp& setUp) {
                setUp.calendar = findFile(line, line.text("a file"), "lab/calendars");
                IcsProblem problem;
                if (CalendarStore().load(setUp.calendar.string(), problem)) return;
                line.refuse(faultInWords(setUp.calendar, problem));
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
                if (!setUp.panelIsOn && !line.take("off")) line.fail("on or off");
              }},
    SetUpWord{"version", "version V",
              [](LineReader& line, ScenarioSetUp& setUp) {
                setUp.clientVersion = line.text("the version of the client, such as 5.12.3.9654");
              }},
    SetUpWord{"without", "without client|toolbar|add-ins",
              [](LineReader& line, ScenarioSetUp& setUp) {
                if (line.take("toolbar")) {
                  setUp.host.hasToolbar = false;
                } else if (line.take("add-ins")) {
                  setUp.host.hasAddinsChunk = false;
                } else if (line.take("client")) {
                  setUp.withoutClient = true;
                } else {
                  line.fail("client, toolbar or add-ins");
                }
              }},
    SetUpWord{"with", "with agent",
              [](LineReader& line, ScenarioSetUp& setUp) {
                line.need("agent");
                setUp.withAgent = true;
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
  if (line.take("default")) {
    choice.place = SavedChoice::Place::userDefaults;
  } else if (line.take("site")) {
    choice.place = SavedChoice::Place::site;
  }
  choice.key = line.text("the key of a setting");
  choice.value = line.text("its value");
  return choice;
}

std::span<const SetUpWord> setUpWords() { return kSetUpWords; }

}  // namespace vornlab
