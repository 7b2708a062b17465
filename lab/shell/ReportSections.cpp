#include "lab/shell/ReportSections.h"

#include <sys/utsname.h>

#include <algorithm>
#include <sstream>
#include <utility>

#include "lab/client/CoveredJson.h"
#include "lab/shell/LabError.h"
#include "lab/shell/PluginReport.h"
#include "lab/shell/RoadWords.h"
#include "lab/shell/panel/PanelPrinter.h"
#include "lab/shell/panel/PanelWindow.h"
#include "secrets/SecretMask.h"
#include "util/PropertyList.h"

namespace vornlab {
namespace {

using nlohmann::ordered_json;
using vorn::SecretMask;
using vorn::Value;

constexpr std::size_t kMostSteps = 60;
constexpr std::size_t kMostEarlierLines = 60;

std::vector<std::string> coveredLines(const std::vector<std::string>& lines) {
  std::vector<std::string> covered;
  for (const std::string& line : lines) covered.push_back(SecretMask::covered(line));
  return covered;
}

void addGroups(ReportSection& section, const Value& groups) {
  for (std::string& line : groupsInWords(groups)) section.lines.push_back(std::move(line));
}

ReportSection withoutAnswer(ReportSection section, const std::string& reason) {
  section.lines = {"cannot be told: " + SecretMask::covered(reason)};
  section.json = {{"trouble", SecretMask::covered(reason)}};
  return section;
}

ReportSection ofLines(ReportSection section, const std::vector<std::string>& lines) {
  section.lines = coveredLines(lines);
  section.json = section.lines;
  if (lines.empty()) section.lines = {"none"};
  return section;
}

const Value& rowOf(const Value& groups, std::string_view group, std::string_view key) {
  static const Value kNothing;
  for (const Value& each : groups.items()) {
    if (each["name"].text() != group) continue;
    for (const Value& row : each["rows"].items()) {
      if (row["key"].text() == key) return row["value"];
    }
  }
  return kNothing;
}

}  // namespace

ReportSections::ReportSections(Session& session, const std::filesystem::path& bundle, std::string earlier)
    : m_session(session), m_bundle(bundle), m_earlier(std::move(earlier)) {
  m_session.trace().setListener([this](std::string_view step, const Value& facts) {
    // Told with its answer among the notices.
    if (step == "alert") return;
    const std::string& content = facts["content"].text();
    m_steps.push_back(std::string(step) + "  " + wordsOfStep(step, facts) +
                      (content.empty() ? "" : "  " + closedUp(content)));
    ++m_stepsSeen;
    if (m_steps.size() > kMostSteps) m_steps.pop_front();
  });
}

ReportSections::~ReportSections() { m_session.trace().setListener(nullptr); }

std::vector<ReportSection> ReportSections::all(CalendarStore& calendar, const std::optional<CalendarEvent>& event,
                                               double timeoutSeconds) {
  std::string trouble = "the client is out of reach";
  if (m_session.ask("client")["troubles"].count() == 0) trouble = fetchAccount(m_session, timeoutSeconds);
  const Value found = m_session.ask("client");
  std::vector<ReportSection> sections{
      versions(found["groups"]), doctor(found),          hooks(),
      account(trouble),          appointments(calendar), panel(event, timeoutSeconds)};
  for (ReportSection section : {envelopes(), notices(), earlierEnvelopes()})
    sections.push_back(std::move(section));
  return sections;
}

ReportSection ReportSections::versions(const Value& groups) const {
  utsname machine{};
  uname(&machine);
  const Value bundle = vorn::readPropertyList((m_bundle / "Contents/Info.plist").string());
  const std::pair<const char*, std::string> facts[] = {
      {"plug-in", bundle["CFBundleShortVersionString"].text()},
      {"client", rowOf(groups, "client", "version").text()},
      {"Outlook", rowOf(groups, "system", "OutlookVersion").text()},
      {"macOS, as told to the plug-in", rowOf(groups, "system", "macOSVersion").text()},
      {"this machine", std::string(machine.sysname) + " " + machine.release + " " + machine.machine}};
  ReportSection section{"versions", "of the plug-in, the client, the hosts and this machine", {}, {}};
  for (const auto& [name, version] : facts) {
    const std::string shown = SecretMask::covered(version.empty() ? "unknown" : version);
    section.lines.push_back(name + std::string(": ") + shown);
    section.json[name] = shown;
  }
  return section;
}

ReportSection ReportSections::doctor(const Value& found) const {
  ReportSection section{
      "doctor", "client, channel, system, names of the stored files and of their entries", {}, {}};
  addGroups(section, found["groups"]);
  std::string troubles;
  for (const Value& trouble : found["troubles"].items())
    troubles += (troubles.empty() ? "" : "; ") + trouble.text();
  if (troubles.empty()) troubles = m_session.clientTrouble();
  section.lines.push_back("troubles: " + (troubles.empty() ? "none" : SecretMask::covered(troubles)));
  section.json = coveredJson(groupsAsJson(found["groups"], {{"troubles", jsonOf(found["troubles"])}}));
  return section;
}

ReportSection ReportSections::hooks() {
  const Value told = m_session.ask("hooks");
  ReportSection section{"hooks", "what is hooked in the host, row by row", {}, {}};
  addGroups(section, told["groups"]);
  section.json = coveredJson(groupsAsJson(told["groups"], ordered_json::object()));
  return section;
}

ReportSection ReportSections::account(const std::string& trouble) {
  ReportSection section{
      "account", "the account's rights and policies, its names, and the settings of a new meeting", {}, {}};
  if (!trouble.empty()) return withoutAnswer(std::move(section), trouble);
  for (const char* question : {"account", "defaults"}) {
    const Value groups = m_session.ask(question)["groups"];
    addGroups(section, groups);
    section.json[question] = coveredJson(groupsAsJson(groups, ordered_json::object()));
  }
  return section;
}

ReportSection ReportSections::appointments(CalendarStore& calendar) {
  ReportSection section{"appointments",
                        "what the plug-in sees in each: subject, times and record; no bodies",
                        {},
                        ordered_json::array()};
  for (const CalendarEvent& event : calendar.events()) {
    Value parameters = Value::dictionary();
    parameters.set("event", m_session.host().eventOnGrid(event.index()));
    const Value groups = m_session.ask("appointment", parameters)["groups"];
    section.lines.push_back(SecretMask::covered(event.uid()) +
                            (event.isException() ? ", " + event.recurrenceId() : ""));
    addGroups(section, groups);
    section.json.push_back(
        coveredJson(groupsAsJson(groups, {{"uid", event.uid()}, {"recurrenceId", event.recurrenceId()}})));
  }
  if (section.lines.empty()) section.lines = {"none"};
  return section;
}

ReportSection ReportSections::panel(const std::optional<CalendarEvent>& event, double timeoutSeconds) {
  ReportSection section{"panel", "the settings panel as its user sees it, with why something is locked", {}, {}};
  try {
    const PanelWindow panel(m_session, m_session.presenter().panels(), event, timeoutSeconds);
    section.lines = panelInWords(panel.title(), panel.layout(), panel.controls(), true);
    section.json = coveredJson(panelAsJson(panel.title(), panel.layout(), panel.controls()));
  } catch (const UsageError&) {
    throw;
  } catch (const Interrupted&) {
    throw;
  } catch (const LabError& error) {
    return withoutAnswer(std::move(section), error.what());
  }
  return section;
}

ReportSection ReportSections::envelopes() const {
  std::vector<std::string> lines(m_steps.begin(), m_steps.end());
  ReportSection section =
      ofLines({"steps", "the last steps of the plug-in, and its last envelopes, cut short", {}, {}}, lines);
  const std::size_t before = m_stepsSeen - m_steps.size();
  if (before > 0) section.lines.insert(section.lines.begin(), std::to_string(before) + " steps before these");
  return section;
}

ReportSection ReportSections::notices() const {
  std::vector<std::string> lines;
  for (const auto& shown : m_session.presenter().alerts()) {
    const auto& buttons = shown.alert.buttons;
    const bool isAnswered = shown.answer && shown.answer->button < buttons.size();
    lines.push_back(closedUp(shown.alert.message) + (isAnswered ? "  -> " + buttons[shown.answer->button] : ""));
  }
  return ofLines({"notices", "what the plug-in told its user, with the answers", {}, {}}, lines);
}

ReportSection ReportSections::earlierEnvelopes() const {
  std::deque<std::string> lines;
  std::istringstream text(m_earlier);
  for (std::string line; std::getline(text, line);) {
    lines.push_back(line);
    if (lines.size() > kMostEarlierLines) lines.pop_front();
  }
  return ofLines({"earlier", "the last of the client's journal from earlier runs in this world", {}, {}},
                 {lines.begin(), lines.end()});
}

}  // namespace vornlab
