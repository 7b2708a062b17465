// The stand-in host in the Objective-C runtime, driven from the command line.

#include <CLI/CLI.hpp>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "lab/objc/ObjcLab.h"
#include "lab/shell/Interruption.h"
#include "lab/shell/LabError.h"
#include "lab/shell/MeetingRoad.h"

namespace {

namespace fs = std::filesystem;
using namespace vornlab;

struct Options {
  fs::path input;
  fs::path output;
  std::vector<std::string> uids;
  MeetReport::Form form = MeetReport::Form::table;
  std::string me;
  LabOptions lab;
};

MeetResult unknownAppointment(const std::string& uid) {
  MeetResult result;
  result.uid = uid;
  result.reason = "the calendar has no appointment with this UID";
  return result;
}

MeetResult takeUnlessCancelled(ObjcLab& lab, const CalendarEvent& event) {
  if (!event.isCancelled()) return lab.take(event);
  MeetResult result = describe(event);
  result.outcome = Outcome::skipped;
  result.reason = "the appointment is cancelled";
  return result;
}

// The road of the command "meet".
ExitCode meet(const Options& options) {
  CalendarStore calendar;
  IcsProblem problem;
  if (!calendar.load(options.input.string(), problem))
    throw UsageError(options.input.string() + ": " + problem.message);
  const auto began = std::chrono::steady_clock::now();
  MeetReport report(options.form);
  std::size_t requests = 0;
  std::size_t replies = 0;
  {
    ObjcLab lab(options.lab, calendar, options.me);
    for (const std::string& uid : options.uids) {
      const auto event = calendar.find(uid);
      report.tell(event ? takeUnlessCancelled(lab, *event) : unknownAppointment(uid));
    }
    requests = lab.requests();
    replies = lab.replies();
  }
  if (!calendar.save(options.output.string())) throw LabError("cannot write " + options.output.string());
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - began;
  report.tellSummary(requests, replies, took.count());
  return report.count(Outcome::failed) == 0 ? ExitCode::done : ExitCode::somethingFailed;
}

ExitCode run(int argc, char** argv) {
  Options options;
  CLI::App program("The stand-in host in the Objective-C runtime.", "vornlab-objc");
  program.require_subcommand(1);
  CLI::App* command = program.add_subcommand("meet", "give appointments of a calendar file their meetings");
  command->add_option("IN", options.input, "the calendar file")->required();
  command->add_option("--out", options.output, "where the changed calendar goes; may be IN itself")->required();
  command->add_option("--uid", options.uids, "one appointment; may be repeated")->required();
  command->add_flag_callback(
      "--json", [&options] { options.form = MeetReport::Form::json; }, "one JSON object a line");
  command->add_option("--me", options.me, "the address of the calendar's owner");
  command->add_option("--client-db", options.lab.clientDatabase, "where the stand-in service keeps its meetings")
      ->capture_default_str();
  command->add_option("--account", options.lab.account, "who is signed in at the client")
      ->check(CLI::ExistingFile);
  command->add_option("--timeout", options.lab.timeoutSeconds, "seconds that one appointment may take")
      ->check(CLI::PositiveNumber)
      ->capture_default_str();
  try {
    program.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return program.exit(error) == 0 ? ExitCode::done : ExitCode::badUsage;
  }
  options.lab.programs = fs::read_symlink("/proc/self/exe").parent_path();
  options.lab.world = enterOwnWorld(argv);
  try {
    const ExitCode code = meet(options);
    fs::remove_all(options.lab.world);
    return code;
  } catch (...) {
    fs::remove_all(options.lab.world);
    throw;
  }
}

}  // namespace

int main(int argc, char** argv) {
  Interruption::install();
  try {
    return static_cast<int>(run(argc, argv));
  } catch (const UsageError& error) {
    std::fprintf(stderr, "vornlab-objc: %s\n", error.what());
    return static_cast<int>(ExitCode::badUsage);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "vornlab-objc: %s\n", error.what());
    return static_cast<int>(ExitCode::somethingFailed);
  }
}
