#include "host/proxies/MeetingOwners.h"

#include "platform/Registry.h"

namespace vorn {

namespace {

class NoMeetingOwners final : public MeetingOwners {
 public:
  std::string meetingKeyForEvent(const HostObject&) override { return {}; }
  bool isOpenFromVornClient(const HostObject&) override { return false; }
  HostObject wordMailEditorForEditor(const HostObject&) override { return {}; }
  OptionalText mailBodyWithVornContent(const HostObject&, const OptionalText&, const OptionalText&,
                                       bool) override {
    return {};
  }
  OptionalText getMailBodyWithVornContentFor1520(const HostObject&, const OptionalText&, const OptionalText&,
                                                 bool) override {
    return {};
  }
  OptionalText mailBodyWithPACText(const OptionalText&, const OptionalText&, bool) override { return {}; }
  void noteNewBody(const HostObject&, const OptionalText&) override {}
  OptionalText uuidInCalendarText(const OptionalText&) override { return {}; }
  OptionalText meetingNumberInCalendarText(const OptionalText&) override { return {}; }
};

struct OwnersInForce {
  NoMeetingOwners none;
  MeetingOwners* owners = nullptr;
};

}  // namespace

MeetingOwners& meetingOwners() {
  auto& held = Registry::shared<OwnersInForce>();
  return held.owners ? *held.owners : held.none;
}

void setMeetingOwners(MeetingOwners* owners) { Registry::shared<OwnersInForce>().owners = owners; }

}  // namespace vorn
