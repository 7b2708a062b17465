#pragma once

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vornlab {

// What a laboratory tells those who watch it: one JSON object a line, in the order of happening. Both ends know
// the events by these structures; docs/laboratory.md lists the keys. All moments are seconds since the
// laboratory's process began. Passcodes and addresses are covered before an event is made.

// The process itself; the first line that a watcher gets.
struct WatchLaboratory {
  double at = 0;
  std::int64_t process = 0;
  // The words of its command line.
  std::string command;
};

// A world begins; what was told of an earlier one is over.
struct WatchWorld {
  double at = 0;
  // What it is for, such as a scenario's file; "" when the command says it all.
  std::string title;
  std::string folder;
};

struct WatchWindow {
  std::int64_t number = 0;
  std::string subject;
  bool isDirty = false;
  // What the bar shows: "add", "meeting", "hidden", or "none" without a bar.
  std::string bar;
  // The manager's last command and what it waits for, such as "5 VnCmdUpdate"; "" when there is none.
  std::string command;
  std::string state;
  // The number of the meeting; "" for none.
  std::string meeting;
  // The host's operation that is put off, such as "save and close"; "" when there is none.
  std::string hostAction;

  bool operator==(const WatchWindow&) const = default;
};

struct WatchTimer {
  double seconds = 0;
  bool repeats = false;
  // When it fires; for a repeating one when it fired first.
  double due = 0;

  bool operator==(const WatchTimer&) const = default;
};

// A command that waits for its reply, with the timers that the plug-in has running for it.
struct WatchRequest {
  std::string name;
  double since = 0;
  std::vector<WatchTimer> timers;

  bool operator==(const WatchRequest&) const = default;
};

// How everything stands; told whenever it has changed.
struct WatchState {
  double at = 0;
  // "running", "stopped", or "none" on a machine without a client.
  std::string client;
  std::int64_t sent = 0;
  std::int64_t received = 0;
  std::vector<WatchWindow> windows;
  std::vector<WatchRequest> pending;
  // The messages of the progress sheets, and of the alerts without an answer, that are on the screen.
  std::vector<std::string> sheets;

  // Whether the same is told, whenever that was.
  bool saysTheSameAs(const WatchState& other) const;
};

// A step of the plug-in as it happens: a hook, a command, a state, an envelope.
struct WatchStep {
  double at = 0;
  std::string step;
  std::string words;
  // An envelope's content as far as it is shown, on one line.
  std::string content{};
  // Told to one who came later.
  bool isPast = false;
};

// An alert that the user was shown, and the button that answered it; "" when none had when this was told.
struct WatchNotice {
  double at = 0;
  std::string message;
  std::string answer;
  bool isPast = false;
};

// The world is over; the process may go on with another one.
struct WatchWorldEnd {
  double at = 0;
};

// The process ends.
struct WatchEnd {
  double at = 0;
};

using WatchEvent =
    std::variant<WatchLaboratory, WatchWorld, WatchState, WatchStep, WatchNotice, WatchWorldEnd, WatchEnd>;

// One line of JSON, with its line break. What is not UTF-8 comes out as U+FFFD.
std::string watchLine(const WatchEvent& event);

// The event of a line; absent for a line that is none. What is missing or of another type in it is left at its
// default, and texts are made fit for a terminal.
std::optional<WatchEvent> watchEvent(std::string_view line);

}  // namespace vornlab
