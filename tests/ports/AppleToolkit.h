#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#import "lab/objc/standins/StandIns.h"

namespace vorn {

// What the ports of an Objective-C host are tried with beside the laboratory's stand-ins for the toolkit: a
// workspace, and an ear at the end of sheets.
struct AppleToolkit {
  static AppleToolkit& instance();
  // As at the start of the process: nothing is known, and the desk of the alerts is empty.
  static AppleToolkit& fresh();

  // The windows of the sessions, the uppermost last.
  static std::vector<id> sessions();
  // The panels on the screen with their messages, the oldest first.
  static std::vector<std::pair<id, std::string>> panels();

  // Hears by its selector of each call at the end of a sheet, when it has been followed or refused, and may raise
  // or call back.
  std::function<void(const std::string& selector)> hears;

  // The workspace is there when its applications are known.
  bool hasWorkspace = false;
  // There is one that answers nothing but exceptions.
  bool workspaceRaises = false;
  std::map<std::string, std::string> applications;
  std::string running;
  // The program that the workspace has started last.
  std::string launched;
};

}  // namespace vorn
