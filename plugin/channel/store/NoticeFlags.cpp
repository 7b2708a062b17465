#include "channel/store/NoticeFlags.h"

#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "channel/store/vnMeetingCommon.h"
#include "platform/Registry.h"
#include "platform/UserDefaults.h"

namespace vorn {

namespace {

JsonTextFile siteFile() { return JsonTextFile(vnMeetingCommon::getLocalVnSiteConfigPath()); }

}  // namespace

bool SiteFlag::isSet() const { return siteFile().read()[m_key].boolValue(); }

void SiteFlag::set(bool value) const { siteFile().setKey(m_key, value); }

bool SavedProfileFlag::isSet() const {
  return JsonTextFile(vnCommon::getVnUserProfilePath(m_userId)).read()[m_key].boolValue();
}

void SavedProfileFlag::set(bool value) const {
  const std::string path = vnCommon::getVnUserProfilePath(m_userId);
  if (!path.empty()) JsonTextFile(path).setKey(m_key, value);
}

bool DefaultsFlag::isSet() const {
  UserDefaults* defaults = Registry::platform().userDefaults;
  return defaults && defaults->objectForKey(m_key).boolValue();
}

void DefaultsFlag::set(bool value) const {
  UserDefaults* defaults = Registry::platform().userDefaults;
  if (!defaults) return;
  defaults->setObject(value, m_key);
  defaults->synchronize();
}

}  // namespace vorn
