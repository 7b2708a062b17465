#pragma once

#include <memory>
#include <string>

#include "lab/shell/ReportForm.h"
#include "lab/shell/watch/WatchEvents.h"

namespace vornlab {

// How a laboratory is shown to a person or a program, on the standard output.
class WatchView {
 public:
  // In words this is a screen where the standard output is a terminal that can show one, and plain lines
  // elsewhere.
  static std::unique_ptr<WatchView> make(ReportForm form);

  virtual ~WatchView() = default;
  // Takes one event, and the line by which it came.
  virtual void take(const WatchEvent& event, const std::string& line) = 0;
  // Is called at least ten times a second.
  virtual void refresh() {}
  // The descriptor on which the person's keys come; -1 for none. True when the person wants to leave.
  virtual int keys() const { return -1; }
  virtual bool takeQuit() { return false; }
  // Nothing more will come: `words` say why. The view leaves the terminal as it was.
  virtual void close(const std::string& words) = 0;
};

}  // namespace vornlab
