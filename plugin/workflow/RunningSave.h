#pragma once

#include <memory>

#include "util/HostObject.h"
#include "workflow/MeetingBar.h"

namespace vorn {

// Says, as long as it lives, whose store the host is performing.
//
// The host stores synchronously: whatever it stores between the begin and the end of its own save belongs to the
// window whose save it is. That is the only way to recognise an appointment which is stored for the first time,
// since it has no identity before. Scopes nest, because the host may run its loop inside a save. Main thread only.
class RunningSave {
 public:
  // A save of the bar's window begins. What the window has left for its store is brought up to what it shows now.
  // A null bar says that no window is being saved: the host stores an edit that was made on the calendar.
  explicit RunningSave(const std::shared_ptr<MeetingBar>& bar);
  // The same by the host's editor. One that has lost its bar in a save that is still running goes on with that
  // one.
  static RunningSave ofEditor(const HostObject& editor);
  ~RunningSave();
  RunningSave(const RunningSave&) = delete;
  RunningSave& operator=(const RunningSave&) = delete;

  // The window whose appointment the record is, which the host is about to store. Null for an appointment that no
  // window is saving; outside of any save, one that a window shows which has left something for its store.
  static std::shared_ptr<MeetingBar> windowOfRecord(const HostObject& record);

 private:
  RunningSave(const std::shared_ptr<MeetingBar>& bar, const HostObject& editor);
};

}  // namespace vorn
