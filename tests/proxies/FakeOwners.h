#pragma once

#include <map>
#include <string>

#include "host/proxies/MeetingOwners.h"

namespace vorn {

// Managers that know what a test tells them.
class FakeOwners final : public MeetingOwners {
 public:
  FakeOwners() { setMeetingOwners(this); }

  std::string meetingKeyForEvent(const HostObject& event) override { return keys[event]; }
  bool isOpenFromVornClient(const HostObject&) override { return openFromClient; }
  HostObject wordMailEditorForEditor(const HostObject&) override { return wordMailEditor; }
  OptionalText mailBodyWithVornContent(const HostObject&, const OptionalText& source,
                                       const OptionalText& invitation, bool) override {
    return source.value_or("") + "+" + invitation.value_or("");
  }
  OptionalText getMailBodyWithVornContentFor1520(const HostObject& editor, const OptionalText& source,
                                                 const OptionalText& invitation, bool isHTML) override {
    if (!hasManager) return {};
    return mailBodyWithVornContent(editor, source, invitation, isHTML);
  }
  OptionalText mailBodyWithPACText(const OptionalText& source, const OptionalText& text, bool) override {
    return source.value_or("") + "|" + text.value_or("");
  }
  void noteNewBody(const HostObject&, const OptionalText& body) override { noted = body; }
  OptionalText uuidInCalendarText(const OptionalText& text) override {
    return text ? OptionalText("uuid in " + *text) : std::nullopt;
  }
  OptionalText meetingNumberInCalendarText(const OptionalText& text) override {
    return text ? OptionalText("number in " + *text) : std::nullopt;
  }

  std::map<HostObject, std::string> keys;
  bool openFromClient = false;
  bool hasManager = true;
  HostObject wordMailEditor;
  OptionalText noted;
};

}  // namespace vorn
