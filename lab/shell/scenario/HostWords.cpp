#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

#include "lab/shell/scenario/ControlWords.h"
#include "lab/shell/scenario/PanelWords.h"
#include "lab/shell/scenario/ScenarioWords.h"

namespace vornlab {
namespace {

using Editing = std::function<void(HostFace&, HostFace::EditorId)>;

// What a person does in the window that the lines mean.
StageStep inEditor(Editing edit) {
  return [edit = std::move(edit)](Stage& stage) { edit(stage.host(), stage.editor()); };
}

std::string appointmentInWords(const std::string& uid, const std::string& occurrence) {
  return "an appointment " + uid + (occurrence.empty() ? "" : " " + occurrence);
}

StageStep open(LineReader& line) {
  const std::string uid = line.text("the UID of an appointment");
  const std::string occurrence = line.take("occurrence") ? line.text("the RECURRENCE-ID of the occurrence") : "";
  const std::string name = line.take("as") ? line.text("a name for the window") : uid;
  return [=](Stage& stage) {
    const auto event = stage.calendar().find(uid, occurrence);
    const auto editor = event ? stage.host().openEditorAt(event->index()) : 0;
    if (editor == 0) throw Mismatch(appointmentInWords(uid, occurrence), "the host cannot open it");
    stage.enter(name, editor, event->index());
  };
}

// The host's own cancellation of a meeting, which opens a window for the words to the attendees.
StageStep callOff(LineReader& line) {
  line.need("off");
  const std::string uid = line.text("the UID of an appointment");
  const std::string name = line.take("as") ? line.text("a name for the window") : uid;
  return [=](Stage& stage) {
    const auto event = stage.calendar().find(uid);
    const auto editor = event ? stage.host().openCancellation(uid, "") : 0;
    if (editor == 0) throw Mismatch("a meeting " + uid + " that can be called off", "the host opens no window");
    stage.enter(name, editor, event->index());
  };
}

StageStep openNew(LineReader& line) {
  std::string name = "new";
  double start = kUsualStart;
  while (!line.atEnd() && line.ahead() != "without") {
    if (line.take("as")) {
      name = line.text("a name for the window");
    } else if (line.take("at")) {
      start = line.time();
    } else {
      line.fail("\"as\" or \"at\"");
    }
  }
  return [=](Stage& stage) { stage.enter(name, stage.host().openNew(start), std::nullopt); };
}

// A window that the host has opened by itself, as for a command of the main window.
StageStep opened(LineReader& line) {
  const std::string name = line.take("as") ? line.text("a name for the window") : "new";
  return [name](Stage& stage) {
    const auto editor = stage.newestUnnamedEditor();
    if (editor == 0) throw Mismatch("another window", "none");
    stage.enter(name, editor, std::nullopt);
  };
}

StageStep enter(LineReader& line) {
  return [name = line.text("the name of a window, or a UID")](Stage& stage) { stage.enter(name); };
}

std::string htmlOf(const std::string& text) {
  std::string html;
  for (const char c : text) {
    switch (c) {
      case '&': html += "&amp;"; break;
      case '<': html += "&lt;"; break;
      case '\n': html += "<br>"; break;
      default: html += c;
    }
  }
  return "<p>" + html + "</p>";
}

std::string inDocument(const std::string& inner) { return "<html><body>" + inner + "</body></html>"; }

// Above or below everything that the body holds.
Editing typeBeside(const std::string& text, bool isAbove) {
  return [piece = htmlOf(text), isAbove](HostFace& host, HostFace::EditorId editor) {
    std::string body = host.body(editor);
    const std::size_t begin = body.find("<body");
    std::size_t at = isAbove && begin != std::string::npos ? body.find('>', begin) + 1 : 0;
    if (!isAbove) at = std::min(body.rfind("</body>"), body.size());
    host.typeBody(editor, body.insert(at, piece));
  };
}

StageStep typeTimes(LineReader& line) {
  const double start = line.time();
  line.need("for");
  const double end = start + 60 * line.minutes();
  return inEditor([=](HostFace& host, HostFace::EditorId editor) { host.typeTimes(editor, start, end); });
}

StageStep type(LineReader& line) {
  if (line.take("times")) return typeTimes(line);
  const std::string field(line.ahead());
  using Typing = void (*)(HostFace&, HostFace::EditorId, const std::string&);
  const std::pair<const char*, Typing> fields[] = {
      {"subject", [](HostFace& host, HostFace::EditorId id, const std::string& t) { host.typeSubject(id, t); }},
      {"location", [](HostFace& host, HostFace::EditorId id, const std::string& t) { host.typeLocation(id, t); }},
      {"body", [](HostFace& host, HostFace::EditorId id,
                  const std::string& t) { host.typeBody(id, inDocument(htmlOf(t))); }},
      {"html",
       [](HostFace& host, HostFace::EditorId id, const std::string& t) { host.typeBody(id, inDocument(t)); }},
      {"above",
       [](HostFace& host, HostFace::EditorId id, const std::string& t) { typeBeside(t, true)(host, id); }},
      {"below",
       [](HostFace& host, HostFace::EditorId id, const std::string& t) { typeBeside(t, false)(host, id); }}};
  for (const auto& [name, typing] : fields) {
    if (!line.take(name)) continue;
    return inEditor([typing = typing, text = line.quoted()](HostFace& host, HostFace::EditorId editor) {
      typing(host, editor, text);
    });
  }
  line.fail("subject, location, times, body, html, above or below");
}

StageStep click(LineReader& line) {
  const ControlWord& control = readControl(line);
  return [control](Stage& stage) {
    const std::string state = stateOf(control.seen(stage));
    if (!control.click(stage)) throw Mismatch("a button for " + std::string(control.word), state);
  };
}

// -- In the main window ------------------------------------------------------------------------------------------

StageStep show(LineReader& line) {
  if (line.take("mail")) return [](Stage& stage) { stage.host().showMailPane(); };
  if (line.take("calendar")) return [](Stage& stage) { stage.host().showCalendarPane(); };
  line.fail("mail or calendar");
}

StageStep ribbon(LineReader& line) {
  if (line.take("rebuilt")) return [](Stage& stage) { stage.host().rebuildRibbon(); };
  line.need("tab");
  return [tab = line.number("the number of a tab")](Stage& stage) {
    stage.host().chooseRibbonTab(static_cast<std::uint32_t>(tab));
  };
}

StageStep toolbar(LineReader& line) {
  line.need("item");
  return [identifier = line.text("the identifier of an item")](Stage& stage) {
    if (!stage.host().addToolbarItem(identifier)) throw Mismatch("a toolbar that takes " + identifier, "none");
  };
}

StageStep inSettings(LineReader& line) {
  if (line.take("open")) {
    return [](Stage& stage) {
      if (!stage.host().clickBar(stage.editor(), "onClickChangeSettings:")) {
        throw Mismatch("a button for settings", stateOf(stage.barControl("onClickChangeSettings:")));
      }
    };
  }
  if (line.take("scroll")) return scrollInPanel;
  if (line.take("continue")) return [](Stage& stage) { clickInPanel(stage, "buttonContinue"); };
  if (line.take("cancel")) return [](Stage& stage) { clickInPanel(stage, "buttonCancel"); };
  if (line.take("click")) {
    return [control = line.text("CONTROL")](Stage& stage) { clickInPanel(stage, control); };
  }
  if (line.take("set")) {
    const auto property = PanelProperty::read(line.ahead());
    if (!property) line.fail(std::string("CONTROL.PROPERTY, which is one of ") + PanelProperty::kNames);
    line.text("CONTROL.PROPERTY");
    return [property = *property, value = line.text("its value")](Stage& stage) { property.set(stage, value); };
  }
  using Typing = void (*)(Stage&, const std::string&, const std::string&);
  for (const auto& [word, typing] :
       {std::pair<const char*, Typing>{"type", typeInPanel}, {"paste", pasteInPanel}}) {
    if (!line.take(word)) continue;
    const std::string control = line.text("a CONTROL");
    return [control, typing = typing, text = line.text("a text")](Stage& stage) { typing(stage, control, text); };
  }
  if (line.take("key")) {
    const std::string control = line.text("a CONTROL");
    if (!isPanelKey(line.ahead())) line.fail(std::string("a key, which is one of ") + kPanelKeys);
    const std::string word = line.text("a key");
    return [control, word](Stage& stage) { pressInPanel(stage, control, word); };
  }
  return [choice = readChoice(line)](Stage& stage) { stage.choose(choice); };
}

StageStep save(LineReader& line) {
  if (!line.take("and close")) {
    return inEditor([](HostFace& host, HostFace::EditorId editor) { host.save(editor); });
  }
  if (line.take("or tell")) {
    return inEditor([](HostFace& host, HostFace::EditorId editor) { host.saveAndCloseOrTell(editor); });
  }
  return inEditor([](HostFace& host, HostFace::EditorId editor) { host.saveAndClose(editor); });
}

StageStep closeWindow(LineReader&) {
  return inEditor([](HostFace& host, HostFace::EditorId editor) { host.closeWithoutSaving(editor); });
}

StageStep send(LineReader&) {
  return inEditor([](HostFace& host, HostFace::EditorId editor) { host.send(editor); });
}

StageStep from(LineReader& line) {
  line.need("changed");
  return inEditor([](HostFace& host, HostFace::EditorId editor) { host.changeFromField(editor); });
}

// -- On the calendar's surface, without a window -----------------------------------------------------------------

// An appointment, and what the lines that follow mean.
struct OnSurface {
  std::string uid;
  std::string occurrence;
};

OnSurface readOnSurface(LineReader& line) {
  OnSurface read;
  read.uid = line.text("the UID of an appointment");
  if (line.take("occurrence")) read.occurrence = line.text("the RECURRENCE-ID of the occurrence");
  return read;
}

// The lines that follow mean the appointment.
StageStep onSurface(const OnSurface& meant, std::function<void(HostFace&, const OnSurface&)> act) {
  return [meant, act = std::move(act)](Stage& stage) {
    const auto event = stage.calendar().find(meant.uid, meant.occurrence);
    if (!event) throw Mismatch(appointmentInWords(meant.uid, meant.occurrence), "none");
    stage.enter(meant.uid, 0, event->index());
    act(stage.host(), meant);
  };
}

StageStep drag(LineReader& line) {
  const OnSurface meant = readOnSurface(line);
  line.need("to");
  return onSurface(meant, [start = line.time()](HostFace& host, const OnSurface& item) {
    host.drag(item.uid, item.occurrence, start);
  });
}

StageStep resize(LineReader& line) {
  const OnSurface meant = readOnSurface(line);
  line.need("to");
  const double start = line.time();
  line.need("for");
  return onSurface(meant, [start, length = 60 * line.minutes()](HostFace& host, const OnSurface& item) {
    host.resize(item.uid, item.occurrence, start, length);
  });
}

StageStep rename(LineReader& line) {
  const OnSurface meant = readOnSurface(line);
  return onSurface(meant, [subject = line.quoted()](HostFace& host, const OnSurface& item) {
    host.rename(item.uid, item.occurrence, subject);
  });
}

StageStep deleteAppointment(LineReader& line) {
  return onSurface(readOnSurface(line), [](HostFace& host, const OnSurface& item) {
    host.deleteFromCalendar(item.uid, item.occurrence);
  });
}

StageStep inStored(std::function<void(CalendarEvent&)> change) {
  return [change = std::move(change)](Stage& stage) {
    auto event = stage.stored();
    if (!event) throw Mismatch("a stored appointment", "none");
    change(*event);
  };
}

// What another program does to the stored appointment.
StageStep record(LineReader& line) {
  if (line.take("removed")) {
    return inStored([](CalendarEvent& event) {
      event.setOlmUCInband("");
      event.setOlmUCCapabilities("");
    });
  }
  if (line.take("moved")) {
    return inStored([](CalendarEvent& event) {
      event.setOlmUCCapabilities(event.olmUCInband().value_or(""));
      event.setOlmUCInband("");
    });
  }
  if (!line.take("text")) line.fail("removed, moved or text");
  return inStored([text = line.quoted()](CalendarEvent& event) { event.setOlmUCInband(text); });
}

StageStep reopen(LineReader& line) {
  line.need("main window");
  // Said in one step: the plug-in looks at a new window a moment after it is there, which a person who then
  // changes the pane would race with.
  const StageStep pane = line.take("on") ? show(line) : [](Stage&) {};
  return [pane](Stage& stage) {
    stage.host().closeMainWindow();
    stage.host().openMainWindow();
    pane(stage);
  };
}

// The button of the next alert, and its switch: the person declines unless told otherwise.
StageStep answer(LineReader& line) {
  const bool isYes = line.take("yes");
  if (!isYes && !line.take("no")) line.fail("yes or no");
  const bool notAgain = line.take("not again");
  return [isYes, notAgain](Stage& stage) {
    using Answer = vorn::Presenter::Answer;
    Answer given = isYes ? Answer::defaultButton : Answer::alternateButton;
    given.notAgain = notAgain;
    stage.session().screen().answerNext(given);
  };
}

// For those who look; nothing where nobody does.
StageStep picture(LineReader& line) {
  const std::string name = line.text("the name of a picture");
  const auto isPlain = [](char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '-' || c == '_';
  };
  if (name.empty() || !std::all_of(name.begin(), name.end(), isPlain)) {
    line.refuse("a picture is named by letters, digits, - and _");
  }
  return [name](Stage& stage) { stage.session().screen().takePicture(name); };
}

StageStep wait(LineReader& line) {
  if (line.atEnd()) return [](Stage&) {};
  return [seconds = line.seconds()](Stage& stage) { stage.wait(seconds); };
}

constexpr std::array kHostWords = {
    StageWord{"open", "open UID [occurrence ID] [as NAME]", open},
    StageWord{"call", "call off UID [as NAME]", callOff},
    StageWord{"new", "new [as NAME] [at TIME]", openNew},
    StageWord{"opened", "opened [as NAME]", opened},
    StageWord{"in", "in NAME", enter},
    StageWord{"type", "type subject|location|body|html|above|below TEXT, or: type times TIME for N min", type},
    StageWord{"click", "click BUTTON, such as: click add, or: click ribbon schedule", click},
    StageWord{"show", "show mail|calendar", show},
    StageWord{"ribbon", "ribbon tab N, or: ribbon rebuilt", ribbon},
    StageWord{"toolbar", "toolbar item IDENTIFIER", toolbar},
    StageWord{"settings", kPanelUsage, inSettings},
    StageWord{"from", "from changed", from},
    StageWord{"drag", "drag UID [occurrence ID] to TIME", drag},
    StageWord{"resize", "resize UID [occurrence ID] to TIME for N min", resize},
    StageWord{"rename", "rename UID [occurrence ID] TEXT", rename},
    StageWord{"delete", "delete UID [occurrence ID]", deleteAppointment},
    StageWord{"save", "save [and close [or tell]]", save},
    StageWord{"send", "send", send},
    StageWord{"close", "close", closeWindow},
    StageWord{"record", "record removed|moved|text TEXT", record},
    StageWord{"answer", "answer yes|no [not again]", answer},
    StageWord{"reopen", "reopen main window [on mail|calendar]", reopen},
    StageWord{"picture", "picture NAME", picture},
    StageWord{"wait", "wait [N s]", wait},
};

}  // namespace

std::span<const StageWord> hostWords() { return kHostWords; }

}  // namespace vornlab
