#pragma once

#include <filesystem>
#include <string>

#include "lab/shell/CommandLine.h"

namespace vornlab {

struct BodyOptions {
  // "insert", "update", "remove" or "text".
  std::string operation;
  std::filesystem::path body;
  // The invitation's text: needed to insert and to update, of no use otherwise.
  std::filesystem::path invitation;
  bool invitationIsPlain = false;
  // Above the user's own text.
  bool atTop = false;
  // The meeting had been made before, so an invitation whose bookmarks are gone replaces the body.
  bool existingMeeting = false;
  // Where the result goes; "" for the standard output. May be the body's own file.
  std::filesystem::path output;
  LabOptions lab;
  ReportForm form = ReportForm::words;
};

// Has the plug-in apply one operation to the body of an appointment, so that a body that somebody has reported can
// be tried. The result is the output's only content, byte for byte; with JSON it is one entry of the object. Exit
// code 1, with the reason, when the operation gives nothing; nothing is written then.
ExitCode changeBody(const BodyOptions& options);

// The command "body".
Command addBody(CLI::App& program, const LabOptions& lab);

}  // namespace vornlab
