#include "channel/store/vnMeetingCommon.h"

#include <initializer_list>
#include <string_view>

#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "channel/store/vnLocalProfileKeys.h"
#include "channel/store/vnPathConstants.h"
#include "platform/Registry.h"
#include "secrets/SecretMask.h"

namespace vorn {

namespace {

struct ApptWindows {
  ApptWindowDirectory* directory = nullptr;
};

ApptWindowDirectory* directory() { return Registry::shared<ApptWindows>().directory; }

void cover(Value& dictionary, std::initializer_list<std::string_view> keys) {
  for (const std::string_view key : keys) {
    if (dictionary.contains(key)) dictionary.set(key, SecretMask::kCover);
  }
}

}  // namespace

std::string vnMeetingCommon::getLocalVnSiteConfigPath() {
  return vnCommon::getDocumentOutlookPluginRootPath() + "/" + std::string(kvnSiteConfigFile);
}

std::string vnMeetingCommon::getPACUserProfilePath(const OptionalText& userId) {
  return userId ? vnCommon::getDocumentOutlookPluginRootPath() + "/pac_" + *userId + ".txt" : "";
}

HostObject vnMeetingCommon::getPluginParentWindow(ApptBar* bar) {
  if (bar) return bar->editorViewWindow();
  return directory() ? directory()->mainWindow() : HostObject();
}

OptionalText vnMeetingCommon::getOLAppointmentWindowID(ApptBar* bar) {
  return bar ? bar->getAppointmentWindowID() : std::nullopt;
}

OptionalText vnMeetingCommon::getApptWindowIDByWindow(const HostObject& window) {
  return getOLAppointmentWindowID(directory() ? directory()->barByWindow(window) : nullptr);
}

void vnMeetingCommon::setApptWindowDirectory(ApptWindowDirectory* directory) {
  Registry::shared<ApptWindows>().directory = directory;
}

void vnMeetingCommon::savePACConfigToLocal(std::int64_t pacCount) {
  JsonTextFile(getLocalVnSiteConfigPath()).setKey(vn_LocalProfile_EnablePAC, pacCount != 0);
}

Value vnMeetingCommon::getLogInfo_VNSetting(const Value& setting) {
  Value copy = setting;
  cover(copy, {"meetingPassword", "invitationEmail", "alternateHosts"});
  return copy;
}

Value vnMeetingCommon::getLogInfo_ApptInfo(const Value& apptInfo) {
  Value copy = apptInfo;
  cover(copy, {"emailBody"});
  const std::size_t attendees = copy["attendees"].count();
  if (attendees > 0) copy.set("attendees", "count: " + std::to_string(attendees));
  return copy;
}

Value vnMeetingCommon::getLogInfo_MeetingData(const Value& meetingData) {
  Value copy = meetingData;
  if (copy.contains("setting")) copy.set("setting", getLogInfo_VNSetting(copy["setting"]));
  if (copy.contains("apptInfo")) copy.set("apptInfo", getLogInfo_ApptInfo(copy["apptInfo"]));
  return copy;
}

}  // namespace vorn
