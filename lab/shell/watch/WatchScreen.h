#pragma once

#include <termios.h>

#include <string>
#include <vector>

#include "lab/shell/watch/WatchFrame.h"

namespace vornlab {

// A terminal on which frames are shown, one in place of the other, on the alternate screen. What was on the
// terminal before comes back with the end of this object. One in a process; the standard output is the terminal.
class WatchScreen {
 public:
  // Whether the standard output is a terminal that can do so.
  static bool isThere();

  WatchScreen();
  ~WatchScreen();
  WatchScreen(const WatchScreen&) = delete;
  WatchScreen& operator=(const WatchScreen&) = delete;

  // A frame of the terminal's present size, with colours unless NO_COLOR is set.
  static WatchFrame emptyFrame();
  // Shows the lines with one write; nothing when they are there already.
  void show(const std::vector<std::string>& lines);

  // The descriptor on which keys come; -1 for none. True when the person has pressed q.
  int keys() const { return m_hasKeys ? 0 : -1; }
  bool takeQuit() const;
  // Stops the process when the person has asked for it, with the terminal as it was in the meantime.
  void stopWhenAsked();

 private:
  void enter();
  void leave();

  bool m_hasKeys = false;
  termios m_before{};
  std::vector<std::string> m_shown;
};

}  // namespace vornlab
