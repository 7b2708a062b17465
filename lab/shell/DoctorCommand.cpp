#include "lab/shell/DoctorCommand.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>
#include <string>

#include "lab/ics/CalendarStore.h"
#include "lab/shell/Interruption.h"
#include "lab/shell/Output.h"
#include "lab/shell/PluginReport.h"
#include "lab/shell/Session.h"
#include "lab/shell/Words.h"

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
  // The client may have got the same signal, and is not to blame.
  Interruption::check();
  Value troubles = found["troubles"];
  if (!noProfile.empty()) troubles.append(noProfile);
  // Of a client that did not start the plug-in knows only that it does not run.
  const bool hasOwnReason = session.client().id() == 0 && !options.lab.withoutClient;
  if (!session.clientTrouble().empty() && (hasOwnReason || troubles.count() == 0)) {
    troubles.append(session.clientTrouble());
  }
  const bool isReady = troubles.count() == 0;

  const std::string folder = session.world().root().string();
  if (options.form == ReportForm::json) {
    printGroupsAsJson(found["groups"], {{"ready", isReady},
                                        {"troubles", jsonOf(troubles)},
                                        {"world", {{"folder", folder}, {"madeBy", "laboratory"}}}});
  } else {
    say("This is not your machine, but a world that the laboratory has made, with a client and an account of its "
        "own:");
    say(folder);
    say("");
    printGroups(found["groups"]);
    if (isReady) {
      say("A meeting could be made now.");
    } else {
      // What a client has said may end with a point of its own.
      std::string sentence = onOneLine(joined(troubles));
      sentence.erase(sentence.find_last_not_of('.') + 1);
      say("No meeting could be made now: " + sentence + ".");
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
