#include "channel/discovery/vnAppHelper.h"

#include <algorithm>
#include <string_view>

#include "channel/discovery/VersionNumber.h"
#include "channel/discovery/vnClientConstants.h"
#include "platform/DistributedNotifications.h"
#include "platform/Localization.h"
#include "platform/Registry.h"
#include "platform/Surroundings.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"

namespace vorn {

namespace {

constexpr std::int32_t kLowestSupportedSystem = 0x1061;

// In the host's sandbox the user's folders lie in its container. Without these parts the same paths lead to the
// user's real folders.
constexpr std::string_view kContainerLibrary = "Containers/com.microsoft.Outlook/Data/Library/";
constexpr std::string_view kContainerData = "Library/Containers/com.microsoft.Outlook/Data/";

std::string without(std::string_view text, std::string_view part) {
  std::string rest;
  std::size_t from = 0;
  for (std::size_t at = text.find(part); at != std::string_view::npos; at = text.find(part, from)) {
    rest.append(text.substr(from, at - from));
    from = at + part.size();
  }
  return rest.append(text.substr(from));
}

std::string withTildeExpanded(std::string_view path, Surroundings& surroundings) {
  return path.starts_with("~/") ? surroundings.homeDirectory() + std::string(path.substr(1)) : std::string(path);
}

Surroundings* surroundings() { return Registry::platform().surroundings; }
Workspace* workspace() { return Registry::platform().workspace; }

}  // namespace

vnAppHelper& vnAppHelper::sharedInstance() { return Registry::shared<vnAppHelper>(); }

std::int32_t vnAppHelper::macOSVersion() {
  if (!surroundings()) return 0;
  const Surroundings::Version version = surroundings()->systemVersion();
  const auto digit = [](int number) { return std::clamp(number, 0, 9); };
  const int major = std::clamp(version.major, 0, 99);
  return (major / 10) << 12 | (major % 10) << 8 | digit(version.minor) << 4 | digit(version.patch);
}

bool vnAppHelper::isSupportedOSVersion() { return macOSVersion() >= kLowestSupportedSystem; }

std::string vnAppHelper::OutlookVersion() {
  if (!workspace()) return "";
  const std::string path = workspace()->absolutePathForAppBundle(keyOutlookIdentifier);
  if (path.empty()) return "";
  return objectForPropertyListKey("CFBundleShortVersionString", path + "/Contents/Info.plist").stringValue();
}

bool vnAppHelper::isSupportedOutlookVersion() {
  return VersionNumber::parse(OutlookVersion()) >= VersionNumber{14, 1, 4};
}

bool vnAppHelper::isOutlookVersionLargeThan2016() {
  return VersionNumber::parse(OutlookVersion()) >= VersionNumber{15, 9, 0};
}

OptionalText vnAppHelper::installPlace(std::size_t index) {
  switch (index) {
    case 0: {
      UserDefaults* defaults = Registry::platform().userDefaults;
      if (!defaults) return std::nullopt;
      return defaults->persistentDomainForName(kVornusIdentify)["installPath"].optionalText();
    }
    case 1: return getVornusAppPath();
    case 2:
      if (!surroundings()) return std::nullopt;
      return without(withTildeExpanded(kVornusUserAppLaunchPath, *surroundings()), kContainerLibrary);
    default: return getVornusUserAppPath();
  }
}

std::array<OptionalText, vnAppHelper::kInstallPlaces> vnAppHelper::installPlaces() {
  std::array<OptionalText, kInstallPlaces> places;
  for (std::size_t i = 0; i < kInstallPlaces; ++i) places[i] = installPlace(i);
  return places;
}

vnAppHelper::OneLook::OneLook() : m_applications(sharedInstance()) { ++m_applications.m_looksThatStand; }

vnAppHelper::OneLook::~OneLook() {
  if (--m_applications.m_looksThatStand == 0) m_applications.m_look.reset();
}

vnAppHelper::Installation vnAppHelper::installation() {
  if (m_looksThatStand == 0) return lookForInstallation();
  if (!m_look) m_look = lookForInstallation();
  return *m_look;
}

vnAppHelper::Installation vnAppHelper::lookForInstallation() {
  Installation found;
  for (std::size_t i = 0; i < kInstallPlaces && !found.exists; ++i) {
    const OptionalText place = installPlace(i);
    found = {place.value_or(""), IsAppExist(place)};
  }
  return found;
}

std::string vnAppHelper::getVornClientInstallPath() { return installation().path; }

std::string vnAppHelper::getVornusLaunchPath(bool* appExists) {
  const Installation found = installation();
  if (appExists) *appExists = found.exists;
  return workspace() ? workspace()->executablePath(found.path) : "";
}

std::string vnAppHelper::getVornusIdentifier() { return std::string(kVornusIdentify); }

std::string vnAppHelper::getVornusAppPath() {
  constexpr std::string_view kApplications = "/Applications";
  const std::string path = formatText(kVornusAppLaunchPath, {kVornClientAppName});
  if (!surroundings() || !path.starts_with(kApplications)) return path;
  return surroundings()->applicationsDirectory() + path.substr(kApplications.size());
}

std::string vnAppHelper::getVornusUserAppPath() {
  if (!surroundings()) return "";
  return without(surroundings()->userApplicationsDirectory() + "/" + std::string(kVornClientAppName),
                 kContainerData);
}

bool vnAppHelper::IsAppExist(const OptionalText& path) {
  return path && workspace() && workspace()->isFilePackage(*path);
}

bool vnAppHelper::isVornusInstalled() { return installation().exists; }

bool vnAppHelper::isVornRunning() { return workspace() && workspace()->isRunning(kVornusIdentify); }

bool vnAppHelper::LaunchVornClient() {
  bool exists = false;
  const std::string program = getVornusLaunchPath(&exists);
  if (program.empty() || !exists) return false;
  if (isVornRunning()) {
    walkWithAlreadyRunningVornus(std::string(kVornLaunchURL));
    return false;
  }
  return workspace()->launch(program);
}

void vnAppHelper::silentActiveVornClient() {
  if (isVornRunning()) silentActiveAlreadyRunningVornus();
}

void vnAppHelper::silentActiveAlreadyRunningVornus() {
  DistributedNotifications* notifications = Registry::platform().distributedNotifications;
  if (notifications) notifications->post(kNoti_SilentActiveVornApplication, {});
}

void vnAppHelper::walkWithAlreadyRunningVornus(const OptionalText& url) {
  DistributedNotifications* notifications = Registry::platform().distributedNotifications;
  if (!notifications) return;
  notifications->post(kNoti_ActivateVornApplicationExternally,
                      Value::dictionaryFromPairs({{kParam_ActivateVornApplicationExternally, url}}));
}

Value vnAppHelper::objectForPropertyListKey(const OptionalText& key, const OptionalText& filePath) {
  if (!key || !filePath || !workspace()) return {};
  return workspace()->propertyListAtPath(*filePath)[*key];
}

}  // namespace vorn
