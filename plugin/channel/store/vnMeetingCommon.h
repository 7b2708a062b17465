#pragma once

#include <cstdint>
#include <string>

#include "channel/store/ApptWindowDirectory.h"
#include "util/Value.h"

namespace vorn {

// The site configuration, the ids of appointment windows, and what of a meeting may go into a log.
//
// Class methods only, main thread only.
class vnMeetingCommon {
 public:
  static std::string getLocalVnSiteConfigPath();
  // "" without a user.
  static std::string getPACUserProfilePath(const OptionalText& userId);

  // The window that belongs to a bar; the host's main window without one.
  static HostObject getPluginParentWindow(ApptBar* bar);
  // Absent without a bar.
  static OptionalText getOLAppointmentWindowID(ApptBar* bar);
  // Absent when no bar lives in the window.
  static OptionalText getApptWindowIDByWindow(const HostObject& window);
  // Who knows the windows; null takes it back. The directory stays its giver's.
  static void setApptWindowDirectory(ApptWindowDirectory* directory);

  // Remembers in the site configuration whether the account has personal audio conferences.
  static void savePACConfigToLocal(std::int64_t pacCount);

  // Copies with passcodes, invitations and people covered, whole and under these keys alone: what may be in
  // another text only `secrets` knows. A value that is no dictionary comes back as it is.
  static Value getLogInfo_VNSetting(const Value& setting);
  static Value getLogInfo_ApptInfo(const Value& apptInfo);
  static Value getLogInfo_MeetingData(const Value& meetingData);
};

}  // namespace vorn
