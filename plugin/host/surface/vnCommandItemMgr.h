#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "host/surface/vnErageAppDelegate.h"
#include "util/Value.h"

namespace vorn {

// A boolean in the data of command 1.
inline constexpr std::string_view kPara_StartWithVideo = "startWithVideo";

// The commands that this system offers outside the editor, in the host's main window. Process-wide; main thread
// only.
class vnCommandItemMgr {
 public:
  enum Command : std::int32_t {
    kStartInstantMeeting = 1,
    kScheduleNewMeeting = 2,
    kScheduleNewPACMeeting = 3,
    kOpenLogFolder = 4,
  };

  static vnCommandItemMgr& sharedInstance();

  // Takes the delegate of the host's application. Before that, and without one, nothing can be scheduled.
  void initPluginInstance();

  // Always 0. Any other command does nothing. The data may be absent.
  int SendToolbarItemCommand(std::int32_t command, const Value& data);

  // Starts a meeting now, with video when the data says so.
  void startInstantMeeting(const Value& data);
  // Opens a new appointment, whose bar then adds an online meeting, or a personal audio conference. The data is
  // left for the bar.
  void scheduleNewMeeting(const Value& data);
  void scheduleNewPACMeeting(const Value& data);
  void openLogFolder();

 private:
  // Null before initPluginInstance(), and when the application has none.
  const vnErageAppDelegate* appDelegate();

  std::optional<vnErageAppDelegate> m_appDelegate;
};

}  // namespace vorn
