#pragma once

#include <objc/objc.h>

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/Presenter.h"

namespace vorn {

// What stands in for the toolkit of an Objective-C host in this process, and what it has seen. It is as strict as
// a toolkit may be: a session that is ended while another one stands on it raises, and so does stopping none.
struct AppleToolkit {
  static AppleToolkit& instance();

  struct Alert {
    id window = nil;
    std::string message;
    std::vector<std::string> buttons;
    bool hasIcon = false;
    std::string switchTitle;
  };
  std::vector<Alert> alerts;
  std::deque<Presenter::Answer> answers;

  // Not retained; the uppermost last.
  std::vector<id> sessions;
  // The panels on the screen with their messages, the oldest first.
  std::vector<std::pair<id, std::string>> panels;
  // How often the session of somebody else has been stopped.
  int wronglyStopped = 0;

  // Hears by its selector of each call at the end of a sheet or a view, and may raise or call back.
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
