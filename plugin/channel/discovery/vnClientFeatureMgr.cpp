#include "channel/discovery/vnClientFeatureMgr.h"

#include <string>
#include <utility>

#include "channel/discovery/VersionNumber.h"
#include "channel/discovery/vnClientConstants.h"
#include "channel/discovery/vnGetClientVersionHelper.h"
#include "channel/discovery/vnPluginBuildMgr.h"
#include "platform/Registry.h"

namespace vorn {

vnClientFeatureMgr& vnClientFeatureMgr::sharedInstance() { return Registry::shared<vnClientFeatureMgr>(); }

vnClientFeatureMgr::OneReading::OneReading() : m_client(sharedInstance()) { ++m_client.m_readingsThatStand; }

vnClientFeatureMgr::OneReading::~OneReading() {
  if (--m_client.m_readingsThatStand == 0) m_client.m_reading.reset();
}

std::string vnClientFeatureMgr::clientVersion() {
  if (m_readingsThatStand == 0) return vnGetClientVersionHelper::getVornClientVersion();
  if (!m_reading) m_reading = vnGetClientVersionHelper::getVornClientVersion();
  return *m_reading;
}

bool vnClientFeatureMgr::isSupportedVornClientVersion() {
  const VersionNumber client = VersionNumber::parse(clientVersion());
  const VersionNumber oldest = VersionNumber::parse(kOldestSupportedVornClient);
  return client >= VersionNumber{oldest.major, oldest.minor, client.third};
}

bool vnClientFeatureMgr::clientSupportSpecifiedFeature(std::string_view version) {
  const std::string client = clientVersion();
  return !client.empty() && VersionNumber::parse(client) >= VersionNumber::parse(version);
}

bool vnClientFeatureMgr::isVornClientSupportPACAndNoVideo() {
  return clientSupportSpecifiedFeature(kVornClientSupportPACAndNoVideoVersion);
}

bool vnClientFeatureMgr::isVornClientSupportAutoRecord() {
  return clientSupportSpecifiedFeature(kVornClientSupportAutoRecording);
}

bool vnClientFeatureMgr::isVornClientSupportAHAndMuteOnEntry() {
  return clientSupportSpecifiedFeature(kVornClientSupportAHAndMuteOnEntryVersion);
}

bool vnClientFeatureMgr::isVornClientSupportExtInfo() {
  return clientSupportSpecifiedFeature(kVornClientSupportExtInfoVersion);
}

bool vnClientFeatureMgr::isVornClientSupportPublicEvent() {
  return clientSupportSpecifiedFeature(kVornClientSupportPublicEvent);
}

bool vnClientFeatureMgr::isVornClientSupportSourceForDelete() {
  return clientSupportSpecifiedFeature(kVornClientSupportSourceForDelete);
}

bool vnClientFeatureMgr::isVornClientSupportAudioWatermark() {
  return clientSupportSpecifiedFeature(kVornClientSupportAudioWatermark);
}

bool vnClientFeatureMgr::isVornClientSupportSceduleForList() {
  return clientSupportSpecifiedFeature(kVornClientSupportSceduleForList);
}

bool vnClientFeatureMgr::isVornClientSupportSourceForGetMeeting() {
  return clientSupportSpecifiedFeature(kVornClientSupportSourceForGetMeeting);
}

bool vnClientFeatureMgr::isVornClientSupportInvitationLanguage() {
  return clientSupportSpecifiedFeature(kVornClientSupportInvitationLanguage);
}

bool vnClientFeatureMgr::isVornClientSupportIPCSocket() {
  return clientSupportSpecifiedFeature(kVornClientSupportIPCSocket);
}

bool vnClientFeatureMgr::isVornClientSupport464Tasks() {
  return clientSupportSpecifiedFeature(kVornClientSupport464Tasks);
}

bool vnClientFeatureMgr::isVornClientSupportPasswordRule() {
  return clientSupportSpecifiedFeature(kVornClientSupportPasswordRule);
}

bool vnClientFeatureMgr::isVornClientSupport500Tasks() {
  return clientSupportSpecifiedFeature(kVornClientSupport500Tasks);
}

bool vnClientFeatureMgr::isVornClientSupport520Tasks() {
  return clientSupportSpecifiedFeature(kVornClientSupport520Tasks);
}

bool vnClientFeatureMgr::isVornClientSupport530Tasks() {
  return clientSupportSpecifiedFeature(kVornClientSupport530Tasks);
}

bool vnClientFeatureMgr::isVornClientSupport550Tasks() {
  return clientSupportSpecifiedFeature(kVornClientSupport550Tasks);
}

bool vnClientFeatureMgr::isVornClientSupportEditCountries() {
  if (vnPluginBuildMgr::isBuildWithoutEditCountries()) return false;
  return m_editCountriesSource && m_editCountriesSource();
}

void vnClientFeatureMgr::setEditCountriesSource(std::function<bool()> source) {
  m_editCountriesSource = std::move(source);
}

}  // namespace vorn
