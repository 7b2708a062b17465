#pragma once

#include "host/proxies/vnDelegateBase.h"

namespace vorn {

// The record that the host is about to store. What is written at that moment is decided by the workflow.
class vnECMutableCalendarEvent : public vnDelegateBase {
 public:
  explicit vnECMutableCalendarEvent(const HostObject& delegate)
      : vnDelegateBase("ECMutableCalendarEvent", delegate) {}

  OptionalText summary() const { return text("summary"); }
  OptionalText location() const { return text("location"); }
  Value olmUCCapabilities() const { return getOLItemID("olmUCCapabilities"); }
  Value body() const { return getOLItemID("body"); }
  void setSummary(const Value& summary) const { getOLItemID("setSummary:", summary); }
  void setLocation(const Value& location) const { getOLItemID("setLocation:", location); }
  void setBody(const Value& body) const { getOLItemID("setBody:", body); }
  void setOlmUCInband(const Value& record) const { getOLItemID("setOlmUCInband:", record); }
  // The name is sent without a colon. The host has no such method, so nothing happens, and the stored format of
  // the body stays the host's choice.
  void setIsBodyHTML(bool isHTML) const { getOLItemID("setIsBodyHTML", isHTML); }
};

}  // namespace vorn
