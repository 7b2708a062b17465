#pragma once

#include "util/HostObject.h"
#include "workflow/MeetingBar.h"

namespace vorn {

// Which of the host's objects stand for one appointment: its event, the copy that is about to be stored, a fresh
// look at it. Main thread only.

// The appointment that the editor of the bar's window shows; absent when the window has closed.
HostObject shownAppointment(MeetingBar& bar);
// False for one that has never been stored, which has no identity yet.
bool isStoredAppointment(const HostObject& event);
// Two objects that have no identity are the same appointment only when they are the same object.
bool isSameAppointment(const HostObject& one, const HostObject& other);

}  // namespace vorn
