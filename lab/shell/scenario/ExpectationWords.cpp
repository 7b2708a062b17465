#include <re2/re2.h>

#include <array>
#include <cmath>

#include "lab/shell/Words.h"
#include "lab/shell/scenario/ControlWords.h"
#include "lab/shell/scenario/PanelWords.h"
#include "lab/shell/scenario/ScenarioWords.h"
#include "lab/shell/scenario/TextExpectation.h"
#include "util/HtmlText.h"
#include "util/vStringUtils.h"

namespace vornlab {
namespace {

using vorn::OptionalText;
using vorn::Value;

// -- The window --------------------------------------------------------------------------------------------------

void expectEqual(const std::string& what, const std::string& expected, const std::string& found) {
  if (expected != found) throw Mismatch(what + " " + expected, what + " " + found);
}

std::string oneOf(LineReader& line, std::initializer_list<const char*> words) {
  std::string all;
  for (const char* word : words) {
    if (line.take(word)) return word;
    all += (all.empty() ? "" : ", ") + std::string(word);
  }
  line.fail("one of " + all);
}

std::string barOf(Stage& stage) {
  if (!stage.host().barView(stage.editor())) return "none";
  if (stage.barControl("onClickAddVornMeeting:").isShown) return "add";
  return stage.barControl("onClickCancelVornMeeting:").isShown ? "meeting" : "hidden";
}

StageStep bar(LineReader& line) {
  return [wanted = oneOf(line, {"add", "meeting", "hidden", "none"})](Stage& stage) {
    expectEqual("bar", wanted, barOf(stage));
  };
}

StageStep settings(LineReader& line) {
  if (line.take("panel")) {
    return [wanted = oneOf(line, {"open", "closed"})](Stage& stage) {
      const bool isOpen = stage.session().screen().showsPanel(stage.host().window(stage.editor()));
      expectEqual("settings panel", wanted, isOpen ? "open" : "closed");
    };
  }
  constexpr std::string_view kHead = "settings.";
  if (line.ahead().starts_with(kHead)) {
    const auto property = PanelProperty::read(line.ahead().substr(kHead.size()));
    if (!property) line.fail(std::string("settings.CONTROL.PROPERTY, which is one of ") + PanelProperty::kNames);
    const std::string name = line.text("a property of the panel");
    return [name, property = *property, wanted = TextExpectation::read(line)](Stage& stage) {
      wanted.check(name, property.value(stage));
    };
  }
  return [wanted = oneOf(line, {"enabled", "disabled", "hidden"})](Stage& stage) {
    const std::string found = stateOf(stage.barControl("onClickChangeSettings:"));
    expectEqual("settings", wanted, found == "shown" ? "enabled" : found == "none" ? "hidden" : found);
  };
}

// A control as the person sees it.
StageStep button(LineReader& line) {
  const ControlWord& control = readControl(line);
  const std::string state = oneOf(line, {"shown", "hidden", "disabled", "none"});
  std::vector<std::pair<std::string, std::string>> looks;
  while (!line.atEnd()) {
    std::string look = oneOf(line, {"title", "image", "tooltip"});
    looks.emplace_back(std::move(look), line.quoted());
  }
  return [=](Stage& stage) {
    const HostFace::Control seen = control.seen(stage);
    expectEqual(std::string(control.word), state, stateOf(seen));
    for (const auto& [look, wanted] : looks) {
      expectEqual(look, wanted, look == "title" ? seen.title : look == "image" ? seen.image : seen.toolTip);
    }
  };
}

StageStep window(LineReader& line) {
  return [wanted = oneOf(line, {"open", "closed", "dirty", "clean"})](Stage& stage) {
    if (stage.window().editor == 0) throw Mismatch("a window that was opened before", "none");
    const bool isOpen = stage.isOpen();
    if (wanted == "open" || wanted == "closed") return expectEqual("window", wanted, isOpen ? "open" : "closed");
    const bool isDirty = isOpen && stage.host().isDirty(stage.editor());
    expectEqual("window", wanted, !isOpen ? "closed" : isDirty ? "dirty" : "clean");
  };
}

StageStep manager(LineReader& line) {
  std::vector<std::pair<std::string, std::string>> facts;
  do {
    std::string fact = oneOf(line, {"state", "action", "key", "hostAction", "actionResult", "fromFieldChanged",
                                    "supported", "updateIsForced", "dragIsUnderWay", "openedFromClient"});
    facts.emplace_back(std::move(fact), line.text("its value"));
  } while (!line.atEnd());
  return [facts](Stage& stage) {
    const Value told = stage.told();
    for (const auto& [fact, wanted] : facts) {
      const Value& value = told[fact];
      const std::string& name = told[fact + "Name"].text();
      const std::string number =
          value.kind() == Value::Kind::boolean ? (value.boolValue() ? "yes" : "no") : value.stringValue();
      if (wanted != name && wanted != number)
        throw Mismatch(fact + " " + wanted, fact + " " + number + " " + name);
    }
  };
}

// -- Texts -------------------------------------------------------------------------------------------------------

StageStep textOfEditor(const char* what, LineReader& line, std::string (*read)(HostFace&, HostFace::EditorId)) {
  return [what, read, wanted = TextExpectation::read(line)](Stage& stage) {
    wanted.check(what, read(stage.host(), stage.editor()));
  };
}

StageStep subject(LineReader& line) {
  return textOfEditor("subject", line, [](HostFace& host, HostFace::EditorId id) { return host.subject(id); });
}

StageStep location(LineReader& line) {
  return textOfEditor("location", line, [](HostFace& host, HostFace::EditorId id) { return host.location(id); });
}

StageStep body(LineReader& line) {
  return textOfEditor("body", line,
                      [](HostFace& host, HostFace::EditorId id) { return vorn::htmlToPlainText(host.body(id)); });
}

StageStep html(LineReader& line) {
  return textOfEditor("html", line, [](HostFace& host, HostFace::EditorId id) { return host.body(id); });
}

// -- The calendar ------------------------------------------------------------------------------------------------

std::string timesText(const CalendarEvent& event) {
  const auto start = event.start();
  const auto end = event.end();
  if (!start || !end) return "none";
  return timeInWords(start->seconds, "%Y-%m-%dT%H:%M") + " for " +
         std::to_string(std::lround((end->seconds - start->seconds) / 60)) + " min";
}

OptionalText recordEntry(const CalendarEvent& event, const std::string& key) {
  const Value record = vorn::vStringUtils::toArrayOrNSDictionary(event.olmUCInband());
  const Value& entry = record[key];
  if (entry.isAbsent()) return std::nullopt;
  return entry.kind() == Value::Kind::boolean ? entry.boolValue() ? "true" : "false" : entry.stringValue();
}

using ReadStored = std::function<OptionalText(const CalendarEvent&)>;

StageStep storedText(const std::string& what, LineReader& line, const ReadStored& read) {
  return [=, wanted = TextExpectation::read(line)](Stage& stage) {
    const auto event = stage.stored();
    if (!event) throw Mismatch(what + " in the calendar", "the appointment is not stored");
    wanted.check(what, read(*event));
  };
}

StageStep storedRecord(LineReader& line) {
  if (line.take("none")) {
    return [](Stage& stage) {
      const auto event = stage.stored();
      if (event && event->olmUCInband()) throw Mismatch("stored record none", *event->olmUCInband());
    };
  }
  const std::string key = line.text("a key of the record, or none");
  return storedText("stored record " + key, line, [key](const CalendarEvent& e) { return recordEntry(e, key); });
}

StageStep storedUnchanged(LineReader&) {
  return [](Stage& stage) {
    if (stage.calendar().text() == stage.window().calendarBefore) return;
    const auto event = stage.stored();
    throw Mismatch("the calendar as it was when the window opened",
                   "a changed one:\n" + (event ? event->calendarText() : stage.calendar().text()));
  };
}

StageStep storedNothing(LineReader&) {
  return [](Stage& stage) {
    if (const auto event = stage.stored()) throw Mismatch("nothing stored", event->calendarText());
  };
}

StageStep storedTimes(LineReader& line) {
  std::string wanted(line.ahead());
  line.time();
  line.need("for");
  wanted += " for " + std::to_string(std::lround(line.minutes())) + " min";
  return [wanted](Stage& stage) {
    const auto event = stage.stored();
    expectEqual("stored times", wanted, event ? timesText(*event) : "none");
  };
}

StageStep stored(LineReader& line) {
  if (line.take("unchanged")) return storedUnchanged(line);
  if (line.take("nothing")) return storedNothing(line);
  if (line.take("times")) return storedTimes(line);
  if (line.take("record")) return storedRecord(line);
  const std::pair<const char*, ReadStored> texts[] = {
      {"subject", [](const CalendarEvent& event) { return event.summary(); }},
      {"location", [](const CalendarEvent& event) { return event.location(); }},
      {"body", [](const CalendarEvent& event) { return event.description(); }},
      {"html", [](const CalendarEvent& event) { return event.htmlDescription(); }}};
  for (const auto& [name, read] : texts) {
    if (line.take(name)) return storedText("stored " + std::string(name), line, read);
  }
  line.fail("subject, location, body, html, times, record, unchanged or nothing");
}

StageStep mailed(LineReader& line) {
  return [count = line.number("a number")](Stage& stage) {
    expectEqual("mailed", std::to_string(count), std::to_string(stage.host().sentCount()));
  };
}

// -- The channel and the service ---------------------------------------------------------------------------------

std::string listed(const std::vector<std::string>& names) {
  std::string all;
  for (const std::string& name : names) all += (all.empty() ? "" : ", ") + name;
  return all.empty() ? "nothing" : all;
}

// The number of an action, behind it that of a meeting request's operation.
bool isRequest(std::string_view text) {
  static const re2::RE2 form("(?:0|[1-9][0-9]*)(?:/(?:0|[1-9][0-9]*))?");
  return re2::RE2::FullMatch(text, form);
}

StageStep sent(LineReader& line) {
  std::vector<std::string> wanted;
  if (!line.take("nothing")) {
    do {
      std::string_view name = line.ahead();
      if (name.ends_with(',')) name.remove_suffix(1);
      if (!isRequest(name)) line.fail("requests such as 6, 9, 3/1, 3/4, or nothing");
      wanted.emplace_back(name);
      line.text("a request");
    } while (!line.atEnd());
  }
  return [wanted](Stage& stage) { expectEqual("sent", listed(wanted), listed(stage.takeRequests())); };
}

StageStep request(LineReader& line) {
  line.need("contains");
  return [part = line.quoted()](Stage& stage) {
    if (!stage.requestHolds(part)) throw Mismatch("a request that contains \"" + part + "\"", "none");
  };
}

StageStep alert(LineReader& line) {
  const TextExpectation wanted = TextExpectation::read(line);
  return [wanted](Stage& stage) {
    const std::vector<std::string> alerts = stage.takeAlerts();
    std::string all;
    for (const std::string& text : alerts) all += (all.empty() ? "" : "\n") + text;
    wanted.check("alert", alerts.empty() ? OptionalText() : OptionalText(all));
  };
}

StageStep agent(LineReader& line) {
  std::string wanted = oneOf(line, {"launched", "about"});
  if (wanted == "about") wanted += " " + line.text("a version");
  return [wanted](Stage& stage) { expectEqual("agent", wanted, stage.takeAgentAct()); };
}

StageStep progress(LineReader& line) {
  return [wanted = oneOf(line, {"shown", "hidden"})](Stage& stage) {
    const bool isShown = stage.session().screen().showsProgress();
    expectEqual("progress", wanted, isShown ? "shown" : "hidden");
  };
}

using ReadMeeting = std::string (*)(const Meeting&);

const std::array<std::pair<const char*, ReadMeeting>, 8> kMeetingFacts = {{
    {"number", [](const Meeting& meeting) { return std::to_string(meeting.number); }},
    {"subject", [](const Meeting& meeting) { return meeting.subject; }},
    {"minutes", [](const Meeting& meeting) { return meeting.minutes; }},
    {"passcode", [](const Meeting& meeting) { return meeting.passcode; }},
    {"language", [](const Meeting& meeting) { return meeting.language; }},
    {"host", [](const Meeting& meeting) { return meeting.hostEmail; }},
    {"appointment", [](const Meeting& meeting) { return meeting.appointment; }},
    {"repeats", [](const Meeting& meeting) { return std::string(meeting.recurring ? "yes" : "no"); }},
}};

vorn::OptionalText settingOf(const Meeting& meeting, const std::string& key) {
  const auto found = meeting.settings.find(key);
  if (found == meeting.settings.end()) return std::nullopt;
  return found->is_string() ? found->get<std::string>() : found->dump();
}

StageStep serviceText(const std::string& what, LineReader& line,
                      std::function<vorn::OptionalText(const Meeting&)> read) {
  return [=, wanted = TextExpectation::read(line)](Stage& stage) {
    const auto meeting = stage.meetingAtService();
    if (!meeting) throw Mismatch(what, "the service has no such meeting");
    wanted.check(what, read(*meeting));
  };
}

StageStep service(LineReader& line) {
  if (line.take("count")) {
    return [count = line.number("a number")](Stage& stage) {
      expectEqual("service count", std::to_string(count), std::to_string(stage.meetingsAtService()));
    };
  }
  if (line.take("none")) {
    return [](Stage& stage) {
      if (stage.meetingAtService()) throw Mismatch("no such meeting at the service", "it is there");
    };
  }
  if (line.take("setting")) {
    const std::string key = line.text("the key of a setting");
    return serviceText("service setting " + key, line, [key](const Meeting& m) { return settingOf(m, key); });
  }
  for (const auto& [fact, read] : kMeetingFacts) {
    if (line.take(fact)) return serviceText("service " + std::string(fact), line, read);
  }
  line.fail("number, subject, minutes, passcode, language, host, appointment, repeats, setting, count or none");
}

constexpr std::array kExpectationWords = {
    StageWord{"bar", "expect bar add|meeting|hidden|none", bar},
    StageWord{"button", "expect button BUTTON shown|hidden|disabled|none [title|image|tooltip TEXT]", button},
    StageWord{"settings",
              "expect settings enabled|disabled|hidden, or: expect settings panel open|closed, or: expect "
              "settings.CONTROL.PROPERTY TEXT",
              settings},
    StageWord{"window", "expect window open|closed|dirty|clean", window},
    StageWord{"manager", "expect manager FACT VALUE ..., such as: state VnStateIdle action VnCmdUpdate", manager},
    StageWord{"subject", "expect subject [is] TEXT|contains TEXT ...", subject},
    StageWord{"location", "expect location [is] TEXT|contains TEXT ...", location},
    StageWord{"body", "expect body [is] TEXT|contains TEXT ...", body},
    StageWord{"html", "expect html [is] TEXT|contains TEXT ...", html},
    StageWord{"stored",
              "expect stored subject|location|body|html TEXT, times TIME for N min, record KEY TEXT, record none, "
              "unchanged, or nothing",
              stored},
    StageWord{"mailed", "expect mailed N", mailed},
    StageWord{"sent", "expect sent REQUEST, ..., or: expect sent nothing", sent},
    StageWord{"request", "expect request contains TEXT", request},
    StageWord{"alert", "expect alert contains TEXT ..., or: expect alert none", alert},
    StageWord{"agent", "expect agent launched, or: expect agent about VERSION", agent},
    StageWord{"progress", "expect progress shown|hidden", progress},
    StageWord{"service",
              "expect service number|subject|minutes|passcode|language|host|appointment|repeats|setting KEY TEXT, "
              "count N, or none",
              service},
};

}  // namespace

std::span<const StageWord> expectationWords() { return kExpectationWords; }

}  // namespace vornlab
