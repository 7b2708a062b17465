// What the commands ask of the profile, and what they keep of it.

#include <string>

#include "channel/commands/vnAPIBase.h"
#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "channel/store/vnLocalProfileKeys.h"
#include "channel/store/vnMeetingCommon.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "platform/Registry.h"
#include "platform/UserDefaults.h"

namespace vorn {

bool vnAPIBase::isPMIMeeting(const HostObject& parentWindow) {
  const OptionalText windowId = vnMeetingCommon::getApptWindowIDByWindow(parentWindow);
  if (!windowId || !m_pMeetingMgr) return false;
  return m_pMeetingMgr->getSiteMeetingInfo(windowId)[vn_Setting][vn_Setting_IsPMI].boolValue();
}

bool vnAPIBase::checkMeetingNumberValidity(const std::string& number) {
  vnUserProfileHelper& profile = vnUserProfileHelper::sharedInstance();
  const std::string room = profile.roomMeetingID().value_or("");
  bool isCachedRoom = false;
  if (room.empty() || !profile.hasUserProfile()) {
    const Value site = JsonTextFile(vnMeetingCommon::getLocalVnSiteConfigPath()).read();
    isCachedRoom =
        vnCommon::isExistedInAnotherListWithIgnoreCase(number, site[vn_LocalProfile_CachedRoomMeetingIds]);
  }
  if (number.empty() || number == "0" || isCachedRoom) return true;
  if (Value(number).integerValue() == Value(room).integerValue()) return true;
  return profile.isBossesPMIMeetingID(number);
}

void vnAPIBase::saveUserProfileInfoToLocal() {
  UserDefaults& defaults = *Registry::platform().userDefaults;
  // The link lived in the user defaults once.
  if (defaults.objectForKey(vn_LocalProfile_TrashCanLink).isPresent()) {
    defaults.removeObject(vn_LocalProfile_TrashCanLink);
    defaults.synchronize();
  }
  vnUserProfileHelper& profile = vnUserProfileHelper::sharedInstance();
  const std::string room = profile.roomMeetingID().value_or("");
  if (room.empty() || room == "0") return;

  const JsonTextFile file(vnMeetingCommon::getLocalVnSiteConfigPath());
  Value site = file.read();
  // The list only grows: the numbers of earlier accounts still have to be left alone.
  Value rooms = site[vn_LocalProfile_CachedRoomMeetingIds];
  if (!vnCommon::isExistedInAnotherListWithIgnoreCase(room, rooms)) rooms.append(room);
  site.set(vn_LocalProfile_CachedRoomMeetingIds, rooms);
  // A value that is empty now leaves the stored one in place.
  const std::string link = profile.getMeetingTrashCanLink();
  if (!link.empty()) site.set(vn_LocalProfile_TrashCanLink, link);
  const std::string domain = profile.getVornDomain();
  if (!domain.empty()) site.set(vn_LocalProfile_VornDomain, domain);
  file.write(site);
}

}  // namespace vorn
