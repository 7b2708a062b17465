#pragma once

#include "channel/store/ApptWindowDirectory.h"
#include "host/proxies/MeetingOwners.h"

namespace vorn {

// The workflow's answers to the questions that lower rooms have declared: which window belongs to which bar, and
// which manager owns an event. Main thread only.
class WorkflowDirectory : public ApptWindowDirectory, public MeetingOwners {
 public:
  static WorkflowDirectory& sharedInstance();
  // Makes this the directory in force.
  void install();

  ApptBar* barByWindow(const HostObject& window) override;
  HostObject mainWindow() override;

  std::string meetingKeyForEvent(const HostObject& event) override;
  bool isOpenFromVornClient(const HostObject& editor) override;
  HostObject wordMailEditorForEditor(const HostObject& editor) override;
  OptionalText mailBodyWithVornContent(const HostObject& editor, const OptionalText& sourceBody,
                                       const OptionalText& invitation, bool isHTML) override;
  OptionalText getMailBodyWithVornContentFor1520(const HostObject& editor, const OptionalText& sourceBody,
                                                 const OptionalText& vnEmailBody, bool isHTMLBody) override;
  OptionalText mailBodyWithPACText(const OptionalText& sourceBody, const OptionalText& text, bool isHTML) override;
  void noteNewBody(const HostObject& editor, const OptionalText& body) override;
  OptionalText uuidInCalendarText(const OptionalText& calendarText) override;
  OptionalText meetingNumberInCalendarText(const OptionalText& calendarText) override;
};

}  // namespace vorn
