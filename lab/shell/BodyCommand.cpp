#include "lab/shell/BodyCommand.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>
#include <optional>
#include <vector>

#include "lab/ics/CalendarStore.h"
#include "lab/shell/CalendarOutput.h"
#include "lab/shell/Output.h"
#include "lab/shell/Session.h"
#include "lab/words/OptionChecks.h"
#include "util/AtomicFile.h"

namespace vornlab {

using vorn::Value;

namespace {

std::string contentOf(const std::filesystem::path& file) {
  std::optional<std::string> content = vorn::readFile(file.string());
  if (!content) throw UsageError(file.string() + ": no file that can be read");
  return std::move(*content);
}

Value parametersOf(const BodyOptions& options, const std::string& body) {
  Value parameters = Value::dictionaryFromPairs({{"operation", options.operation},
                                                 {"body", body},
                                                 {"isHTML", !options.invitationIsPlain},
                                                 {"atTop", options.atTop},
                                                 {"existingMeeting", options.existingMeeting}});
  if (!options.invitation.empty()) parameters.set("invitation", contentOf(options.invitation));
  return parameters;
}

void printAsJson(const BodyOptions& options, const std::string& body, const Value& answer) {
  const Value& result = answer["result"];
  nlohmann::ordered_json object{{"operation", options.operation},
                                {"changed", result.isText() && result.text() != body},
                                {"bytesBefore", body.size()},
                                {"bytesAfter", nullptr},
                                {"bookmarks", answer["bookmarks"].text()},
                                {"reason", answer["reason"].text()},
                                {"text", nullptr}};
  if (result.isText()) {
    object["bytesAfter"] = result.text().size();
    object["text"] = result.text();
  }
  // The text is the person's own, and what was asked for.
  sayJsonLineAsIs(object);
}

// One command below another for each operation, so that none takes an option that it has no use for.
CLI::App& addOperation(CLI::App& bodies, const char* name, const char* what, BodyOptions& options) {
  CLI::App* command = bodies.add_subcommand(name, what);
  command->add_option("BODY", options.body, "the body as HTML")->required()->check(complaintOfFile, "FILE");
  command->add_option("--out", options.output, "where the result goes, instead of the standard output")
      ->check(complaintOfNothing, "FILE");
  addJsonFlag(*command, options.form);
  command->callback([&options, name] { options.operation = name; });
  return *command;
}

void addInvitation(CLI::App& command, BodyOptions& options) {
  command.add_option("--invitation", options.invitation, "the invitation's text, HTML unless --plain is given")
      ->required()
      ->check(complaintOfFile, "FILE");
  command.add_flag("--plain", options.invitationIsPlain, "the invitation is plain text");
  command.add_flag("--top", options.atTop, "above the user's own text");
}

}  // namespace

ExitCode changeBody(const BodyOptions& options) {
  std::optional<CalendarOutput> output;
  if (!options.output.empty()) output.emplace(options.output, std::vector<std::filesystem::path>{});
  const std::string body = contentOf(options.body);
  const Value parameters = parametersOf(options, body);
  CalendarStore nothing;
  Session session(options.lab, nothing, {});
  const Value answer = session.ask("body", parameters);
  const Value& result = answer["result"];
  const bool isJson = options.form == ReportForm::json;
  if (result.isText() && output) output->write(result.text(), options.body);
  if (isJson) {
    printAsJson(options, body, answer);
  } else if (!result.isText()) {
    complain(options.body.string() + ": " + answer["reason"].text(), "vornlab");
  } else if (options.output.empty()) {
    sayBytes(result.text());
  } else {
    say(options.operation + ": " + std::to_string(body.size()) + " bytes became " +
        std::to_string(result.text().size()) + "; bookmarks: " + answer["bookmarks"].text());
  }
  return result.isText() ? ExitCode::done : ExitCode::somethingFailed;
}

Command addBody(CLI::App& program, const LabOptions& lab) {
  const auto options = optionsFrom<BodyOptions>(lab);
  options->lab.withoutClient = true;
  CLI::App* bodies = program.add_subcommand("body", "apply one operation to the body of an appointment");
  bodies->require_subcommand(1);
  addInvitation(addOperation(*bodies, "insert", "add an invitation between bookmarks", *options), *options);
  CLI::App& update = addOperation(*bodies, "update", "bring an invitation in as the body calls for", *options);
  addInvitation(update, *options);
  update.add_flag("--existing-meeting", options->existingMeeting,
                  "the meeting was made before; without bookmarks the invitation replaces the body");
  addOperation(*bodies, "remove", "take the invitation out", *options);
  addOperation(*bodies, "text", "tell what a reader sees", *options);
  return {bodies, [options] { return changeBody(*options); }};
}

}  // namespace vornlab
