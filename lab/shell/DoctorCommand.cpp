#include "lab/shell/DoctorCommand.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <string>

#include "lab/outlook/CalendarStore.h"
#include "lab/shell/PluginReport.h"
#include "lab/shell/Session.h"

namespace vornlab {
namespace {

using vorn::Value;

std::string joined(const Value& texts) {
  std::string all;
  for (const Value& text : texts.items()) all += (all.empty() ? "" : "; ") + text.text();
  return all;
}

}  // namespace

ExitCode doctor(const DoctorOptions& options) {
  CalendarStore nothing;
  Session session(options.lab, nothing, {});
  std::string noProfile;
  // Only a client that can be reached is asked for the profile; otherwise the reason is known already.
  if (session.ask("client")["troubles"].count() == 0) {
    noProfile = fetchAccount(session, options.lab.timeoutSeconds);
  }
  const Value found = session.ask("client");
  Value troubles = found["troubles"];
  if (!noProfile.empty()) troubles.append(noProfile);
  if (troubles.count() == 0 && !session.clientTrouble().empty()) troubles.append(session.clientTrouble());
  const bool isReady = troubles.count() == 0;

  if (options.form == ReportForm::json) {
    printGroupsAsJson(found["groups"], Value::dictionaryFromPairs({{"ready", isReady}, {"troubles", troubles}}));
  } else {
    printGroups(found["groups"]);
    if (isReady) {
      std::printf("A meeting could be made now.\n");
    } else {
      std::printf("No meeting could be made now: %s.\n", joined(troubles).c_str());
    }
  }
  return isReady ? ExitCode::done : ExitCode::somethingFailed;
}

Command addDoctor(CLI::App& program, const LabOptions& lab) {
  const auto options = optionsFrom<DoctorOptions>(lab);
  options->lab.goesOnWithoutClient = true;
  CLI::App* command =
      program.add_subcommand("doctor", "tell what the plug-in finds, and whether a meeting could be made");
  askClient(*command, options->lab, options->form);
  return {command, [options] { return doctor(*options); }};
}

}  // namespace vornlab
