#pragma once

#include <string>

#include "util/HostObject.h"
#include "util/Value.h"

namespace vorn {

// What the proxies ask of those above them: which manager owns an event or an editor, and what it knows.
//
// The bundle hands an implementation over with setMeetingOwners(). Without one every question has the neutral
// answer. Main thread only.
class MeetingOwners {
 public:
  virtual ~MeetingOwners() = default;

  // The working key of the manager that owns the event; "" when it has no meeting.
  virtual std::string meetingKeyForEvent(const HostObject& event) = 0;
  // True when the editor's manager holds an appointment that the desktop client has made.
  virtual bool isOpenFromVornClient(const HostObject& editor) = 0;
  // The host's body editor of the editor's window; absent when none is known.
  virtual HostObject wordMailEditorForEditor(const HostObject& editor) = 0;
  // The source body with the invitation in it, or without it when the invitation is empty. An editor without a
  // manager gets it at the end.
  virtual OptionalText mailBodyWithVornContent(const HostObject& editor, const OptionalText& sourceBody,
                                               const OptionalText& invitation, bool isHTML) = 0;
  // The same by the editor's manager, as the host's newer compose view has it; absent when there is none.
  virtual OptionalText getMailBodyWithVornContentFor1520(const HostObject& editor, const OptionalText& sourceBody,
                                                         const OptionalText& vnEmailBody, bool isHTMLBody) = 0;
  // The source body with the text of a personal audio conference at its end; absent without a source.
  virtual OptionalText mailBodyWithPACText(const OptionalText& sourceBody, const OptionalText& text,
                                           bool isHTML) = 0;
  // Notes the body that the store of the editor's appointment has to write.
  virtual void noteNewBody(const HostObject& editor, const OptionalText& body) = 0;
  // Reading an appointment's iCalendar text: its UUID, and the meeting number in its description.
  virtual OptionalText uuidInCalendarText(const OptionalText& calendarText) = 0;
  virtual OptionalText meetingNumberInCalendarText(const OptionalText& calendarText) = 0;
};

// The owners in force; never null. The caller keeps what it hands over alive until the registry is reset.
MeetingOwners& meetingOwners();
void setMeetingOwners(MeetingOwners* owners);

}  // namespace vorn
