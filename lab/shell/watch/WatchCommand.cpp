#include "lab/shell/watch/WatchCommand.h"

#include <poll.h>

#include <CLI/CLI.hpp>
#include <array>
#include <cstdio>
#include <memory>
#include <optional>
#include <utility>

#include "lab/shell/Interruption.h"
#include "lab/shell/Output.h"
#include "lab/shell/watch/WatchFeed.h"
#include "lab/shell/watch/WatchFolder.h"
#include "lab/shell/watch/WatchView.h"
#include "lab/shell/watch/WatchedProgram.h"
#include "lab/words/OptionChecks.h"

namespace vornlab {
namespace {

namespace fs = std::filesystem;

// A laboratory may be over in the time that a person takes to notice it.
constexpr int kLookAgainMilliseconds = 20;
constexpr int kFrameMilliseconds = 100;

// Finds the laboratory that is meant.
class WatchSearch {
 public:
  explicit WatchSearch(const WatchOptions& options) : m_options(options) {
    if (!options.world.empty()) m_world = fs::weakly_canonical(options.world);
  }

  // Waits until there is one. Absent when the person wants to leave. Throws UsageError when several could be
  // meant, or none can come.
  std::optional<WatchDescriptor> wait() {
    bool hasTold = false;
    while (!Interruption::requested()) {
      if (WatchDescriptor socket = connectToOne()) return socket;
      if (m_options.process != 0) {
        throw UsageError("no laboratory runs as process " + std::to_string(m_options.process));
      }
      if (!std::exchange(hasTold, true)) complain("waiting for a laboratory to start ...");
      poll(nullptr, 0, kLookAgainMilliseconds);
    }
    return std::nullopt;
  }

  // The same laboratory anew; absent when it has ended.
  WatchDescriptor connectTo(std::int64_t process) const {
    WatchConnection connection = connectToLaboratory(m_folder.socketOf(process));
    if (connection.isLeftBehind) m_folder.remove(process);
    return std::move(connection.socket);
  }

 private:
  WatchDescriptor connectToOne() const {
    std::vector<WatchEntry> meant;
    for (const WatchEntry& entry : m_folder.entries()) {
      const bool isMeant = (m_options.process == 0 || entry.process == m_options.process) &&
                           (m_world.empty() || entry.world == m_world);
      if (isMeant) meant.push_back(entry);
    }
    if (meant.size() > 1) throw UsageError(choiceOf(meant));
    return meant.empty() ? WatchDescriptor() : connectTo(meant.front().process);
  }

  static std::string choiceOf(const std::vector<WatchEntry>& entries) {
    std::string text = "several laboratories run; --process ID or --world DIR chooses one:";
    for (const WatchEntry& entry : entries) {
      text += "\n  " + std::to_string(entry.process) + "  vornlab " + entry.command + "   world " +
              entry.world.string();
    }
    return text;
  }

  const WatchOptions& m_options;
  WatchFolder m_folder;
  fs::path m_world;
};

// Hands on what comes to a view, until the laboratory has ended or the person leaves.
class WatchRun {
 public:
  WatchRun(const WatchSearch& search, WatchView& view) : m_search(search), m_view(view) {}

  void run(WatchDescriptor connection) {
    WatchFeed feed(std::move(connection));
    while (!Interruption::requested()) {
      std::array<pollfd, 2> awaited{{{feed.descriptor(), POLLIN, 0}, {m_view.keys(), POLLIN, 0}}};
      poll(awaited.data(), awaited.size(), kFrameMilliseconds);
      for (const std::string& line : feed.read()) take(line);
      if ((awaited[1].revents & POLLIN) != 0 && m_view.takeQuit()) break;
      m_view.refresh();
      if (m_hasEnded) return m_view.close("The laboratory has ended.");
      if (!feed.isOver()) continue;
      // Who does not keep up, or was stopped for a while, is let go.
      WatchDescriptor again = m_process == 0 ? WatchDescriptor() : m_search.connectTo(m_process);
      if (!again) return m_view.close("The laboratory has ended without a word.");
      feed = WatchFeed(std::move(again));
    }
    m_view.close("The laboratory goes on; nobody watches it from here.");
  }

 private:
  void take(const std::string& line) {
    const auto event = watchEvent(line);
    if (!event) return;
    if (const auto* laboratory = std::get_if<WatchLaboratory>(&*event)) m_process = laboratory->process;
    m_hasEnded = m_hasEnded || std::holds_alternative<WatchEnd>(*event);
    m_view.take(*event, line);
  }

  const WatchSearch& m_search;
  WatchView& m_view;
  std::int64_t m_process = 0;
  bool m_hasEnded = false;
};

ExitCode exitCodeOf(int code) {
  switch (code) {
    case 0: return ExitCode::done;
    case 2: return ExitCode::badUsage;
    default: return ExitCode::somethingFailed;
  }
}

}  // namespace

ExitCode watch(const WatchOptions& options) {
  const auto view = WatchView::make(options.form);
  WatchSearch search(options);
  if (options.words.empty()) {
    auto connection = search.wait();
    if (connection) WatchRun(search, *view).run(std::move(*connection));
    return ExitCode::done;
  }
  WatchedProgram program(options.lab.programs / "vornlab", options.words);
  WatchRun(search, *view).run(program.takeConnection());
  const int code = program.waitForEnd();
  program.printOutput(options.form == ReportForm::json ? stderr : stdout);
  return exitCodeOf(code);
}

Command addWatch(CLI::App& program, const LabOptions& lab) {
  const auto options = optionsFrom<WatchOptions>(lab);
  CLI::App* command = program.add_subcommand(
      "watch", "show a running laboratory: its windows, what they wait for, and what goes to and fro");
  auto* world = command->add_option("--world", options->world, "the one with this folder")
                    ->check(complaintOfNothing, "FOLDER");
  auto* process = command->add_option("--process", options->process, "the one that runs as this process")
                      ->check(complaintOfProcess, "NUMBER")
                      ->excludes(world);
  command->add_option("COMMAND", options->words, "behind --, a command of this program to start and to watch")
      ->excludes(world)
      ->excludes(process);
  addJsonFlag(*command, options->form, "each event as one JSON object a line");
  return {command, [options] { return watch(*options); }};
}

}  // namespace vornlab
