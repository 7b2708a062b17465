// The diagnosis: the client, the way to it, the machine and the store.

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>

#include "channel/commands/vnAPIBase.h"
#include "channel/discovery/vnAppHelper.h"
#include "channel/discovery/vnClientConstants.h"
#include "channel/discovery/vnClientFeatureMgr.h"
#include "channel/discovery/vnGetClientVersionHelper.h"
#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "channel/store/vnFileFunctions.h"
#include "channel/store/vnLocalProfileKeys.h"
#include "channel/store/vnMeetingCommon.h"
#include "channel/transport/vSocketClientImpl.h"
#include "channel/transport/vnIPCChannel.h"
#include "channel/transport/vnIPCConstants.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "diagnosis/Diagnosis.h"
#include "diagnosis/DiagnosisReport.h"
#include "platform/Registry.h"
#include "platform/Surroundings.h"
#include "platform/UserDefaults.h"
#include "util/MemberName.h"
#include "util/PropertyList.h"
#include "util/Utf16.h"
#include "util/vnOLUtils.h"

namespace vorn {

namespace {

vnAppHelper& applications() { return vnAppHelper::sharedInstance(); }
vnClientFeatureMgr& features() { return vnClientFeatureMgr::sharedInstance(); }

// What is found, and on the way what stands against a meeting.
struct Findings {
  DiagnosisReport report;
  Value troubles = Value::array();
};

// -- The client --------------------------------------------------------------------------------------------------

std::string wordsOfStatus(int status) {
  switch (status) {
    case kClientNotInstalled: return "not installed";
    case kClientNotRunning: return "installed, not running";
    case kClientRunning: return "running";
    default: return "too old";
  }
}

void tellClient(Findings& findings) {
  DiagnosisReport& report = findings.report;
  const std::string path = applications().getVornClientInstallPath();
  bool exists = false;
  const std::string program = applications().getVornusLaunchPath(&exists);
  const std::string version = vnGetClientVersionHelper::getVornClientVersion();
  const bool isFromBundle = !vnGetFileVersion(path).empty();
  const int status = vnAPIBase::GetVornCLientStatus();
  const auto places = applications().installPlaces();
  const auto chosen = std::find_if(places.begin(), places.end(),
                                   [](const OptionalText& place) { return applications().IsAppExist(place); });
  const auto number = static_cast<int>(chosen - places.begin()) + 1;

  report.beginGroup("client");
  report.add("status", "status", status, std::to_string(status) + ", " + wordsOfStatus(status));
  report.add("installPath", "path", path, std::nullopt,
             exists ? "place " + std::to_string(number) : std::string("the last place, where it is not either"));
  report.add("place", "place", exists ? Value(number) : Value());
  report.add("program", "program", program);
  report.add("version", "version", version);
  const char* source = isFromBundle ? "bundle" : "stored copy";
  report.add("versionSource", "version from", version.empty() ? Value() : Value(source));
  report.add("running", "running", applications().isVornRunning());

  if (status == kClientNotInstalled) findings.troubles.append("the client is not installed");
  if (status == kClientNotRunning) findings.troubles.append("the client is not running");
  if (status == kClientNotSupported) {
    findings.troubles.append("the client is too old: it is " +
                             (version.empty() ? "of an unknown version" : version) + ", and " +
                             std::string(kOldestSupportedVornClient) + " is the oldest that is supported");
  }
}

void tellPlaces(DiagnosisReport& report) {
  constexpr std::array<std::string_view, 4> kWords = {"1, told by the client itself", "2, for all users",
                                                      "3, the user's support folder",
                                                      "4, the user's applications"};
  const auto places = applications().installPlaces();
  report.beginGroup("places");
  for (std::size_t i = 0; i < places.size(); ++i) {
    const bool exists = applications().IsAppExist(places[i]);
    Value place = Value::dictionary();
    place.set("path", places[i] ? Value(*places[i]) : Value(nullptr));
    place.set("exists", exists);
    report.add("place" + std::to_string(i + 1), kWords[i], place, places[i].value_or("(nothing told)"),
               exists ? "exists" : "no application");
  }
}

struct Capability {
  std::string_view name;
  std::string_view required;
  bool (vnClientFeatureMgr::*isSupported)();
};

using Features = vnClientFeatureMgr;

template <auto Predicate>
constexpr Capability capability(std::string_view required) {
  return {memberName<Predicate>(), required, Predicate};
}

constexpr Capability kCapabilities[] = {
    capability<&Features::isSupportedVornClientVersion>(kOldestSupportedVornClient),
    capability<&Features::isVornClientSupportPACAndNoVideo>(kVornClientSupportPACAndNoVideoVersion),
    capability<&Features::isVornClientSupportAutoRecord>(kVornClientSupportAutoRecording),
    capability<&Features::isVornClientSupportAHAndMuteOnEntry>(kVornClientSupportAHAndMuteOnEntryVersion),
    capability<&Features::isVornClientSupportExtInfo>(kVornClientSupportExtInfoVersion),
    capability<&Features::isVornClientSupportPublicEvent>(kVornClientSupportPublicEvent),
    capability<&Features::isVornClientSupportSourceForDelete>(kVornClientSupportSourceForDelete),
    capability<&Features::isVornClientSupportAudioWatermark>(kVornClientSupportAudioWatermark),
    capability<&Features::isVornClientSupportSceduleForList>(kVornClientSupportSceduleForList),
    capability<&Features::isVornClientSupportSourceForGetMeeting>(kVornClientSupportSourceForGetMeeting),
    capability<&Features::isVornClientSupportInvitationLanguage>(kVornClientSupportInvitationLanguage),
    capability<&Features::isVornClientSupportIPCSocket>(kVornClientSupportIPCSocket),
    capability<&Features::isVornClientSupport464Tasks>(kVornClientSupport464Tasks),
    capability<&Features::isVornClientSupportPasswordRule>(kVornClientSupportPasswordRule),
    capability<&Features::isVornClientSupport500Tasks>(kVornClientSupport500Tasks),
    capability<&Features::isVornClientSupport520Tasks>(kVornClientSupport520Tasks),
    capability<&Features::isVornClientSupport530Tasks>(kVornClientSupport530Tasks),
    capability<&Features::isVornClientSupport550Tasks>(kVornClientSupport550Tasks),
};

void tellCapabilities(DiagnosisReport& report) {
  report.beginGroup("capabilities");
  for (const Capability& capability : kCapabilities) {
    const bool isSupported = (features().*capability.isSupported)();
    report.add(capability.name, capability.name,
               Value::dictionaryFromPairs({{"required", capability.required}, {"supported", isSupported}}),
               isSupported ? "yes" : "no", "from " + std::string(capability.required));
  }
  const bool canEdit = features().isVornClientSupportEditCountries();
  report.add("isVornClientSupportEditCountries", "isVornClientSupportEditCountries",
             Value::dictionaryFromPairs({{"required", nullptr}, {"supported", canEdit}}), canEdit ? "yes" : "no",
             "the account's answer");
}

// -- The channel -------------------------------------------------------------------------------------------------

// The connection itself never notices that it failed or ended, so the system is asked about its descriptor.
bool hasPeer(int descriptor) {
  if (descriptor <= 0) return false;
  sockaddr_storage peer{};
  socklen_t size = sizeof peer;
  if (getpeername(descriptor, reinterpret_cast<sockaddr*>(&peer), &size) != 0) return false;
  // One that is busy and takes no more just now is there, so it is asked for its end alone.
  pollfd asked{descriptor, POLLHUP, 0};
  return poll(&asked, 1, 0) >= 0 && (asked.revents & (POLLHUP | POLLERR | POLLNVAL)) == 0;
}

std::string wordsOfDescriptor(int descriptor) {
  if (descriptor == 0) return "0, not opened or closed";
  if (descriptor < 0) return "-1, no socket could be made";
  return std::to_string(descriptor) + ", open";
}

void addLength(DiagnosisReport& report, std::string_view unit, std::size_t length, std::size_t limit,
               const char* beyond) {
  const std::string words = "path in " + std::string(unit);
  report.add(unit, words, Value::dictionaryFromPairs({{"length", length}, {"limit", limit}}),
             std::to_string(length) + " of " + std::to_string(limit),
             length > limit ? OptionalText(beyond) : std::nullopt);
}

void tellSocket(Findings& findings) {
  DiagnosisReport& report = findings.report;
  Surroundings* surroundings = Registry::platform().surroundings;
  const std::string home = surroundings ? surroundings->homeDirectory() : "";
  const std::string path = home + "/" + std::string(kIPCPluginSocketName);
  const int descriptor = vSocketClientImpl::shareInstance().fd();
  const bool isConnected = hasPeer(descriptor);
  report.add("transport", "transport", "socket");
  report.add("path", "path", path, std::nullopt,
             OptionalText(vnIsFileExist(path) ? "exists" : "does not exist: no client listens"));
  const std::size_t characters = utf16Length(path);
  addLength(report, "characters", characters, kIPCLongestPathInCharacters, "too long: nothing is connected to it");
  addLength(report, "bytes", path.size(), kIPCLongestPathInBytes,
            "too long: the path is cut, and leads elsewhere");
  report.add("descriptor", "descriptor", descriptor, wordsOfDescriptor(descriptor));
  report.add("connected", "connected", isConnected);

  if (characters > kIPCLongestPathInCharacters || path.size() > kIPCLongestPathInBytes) {
    findings.troubles.append("the path of the client's socket is too long: " + std::to_string(characters) +
                             " characters in " + std::to_string(path.size()) + " bytes, where " +
                             std::to_string(kIPCLongestPathInCharacters) + " and " +
                             std::to_string(kIPCLongestPathInBytes) + " are the limits");
  } else if (!isConnected && vnAPIBase::GetVornCLientStatus() == kClientRunning) {
    findings.troubles.append("the client runs, but the plug-in is not connected to its socket");
  }
}

void tellChannel(Findings& findings) {
  findings.report.beginGroup("channel");
  if (!vnIPCChannel::canUseIPC_Notification()) return tellSocket(findings);
  const bool hasBus = Registry::platform().distributedNotifications != nullptr;
  findings.report.add("transport", "transport", "notifications");
  findings.report.add("available", "available", hasBus);
  if (!hasBus) findings.troubles.append("this session has no distributed notifications");
}

// -- The machine -------------------------------------------------------------------------------------------------

void tellSystem(Findings& findings) {
  DiagnosisReport& report = findings.report;
  Surroundings* surroundings = Registry::platform().surroundings;
  const auto version = surroundings ? surroundings->systemVersion() : Surroundings::Version{};
  const std::string outlook = applications().OutlookVersion();
  const auto verdict = [](bool supported) { return supported ? "supported" : "not supported"; };
  const bool systemIsSupported = applications().isSupportedOSVersion();
  const bool outlookIsSupported = applications().isSupportedOutlookVersion();

  report.beginGroup("system");
  report.add(
      "macOSVersion", "macOS",
      std::to_string(version.major) + "." + std::to_string(version.minor) + "." + std::to_string(version.patch),
      std::nullopt, verdict(systemIsSupported));
  report.add("isSupportedOSVersion", "macOS is supported", systemIsSupported);
  report.add("OutlookVersion", "Outlook", outlook, std::nullopt, verdict(outlookIsSupported));
  report.add("isSupportedOutlookVersion", "Outlook is supported", outlookIsSupported);
  const bool agentLaunches = applications().isOutlookVersionLargeThan2016();
  report.add("isOutlookVersionLargeThan2016", "the agent launches the client", agentLaunches);

  if (!systemIsSupported) findings.troubles.append("this version of macOS is not supported");
  if (!outlookIsSupported) findings.troubles.append("this version of Outlook is not supported");
}

// -- The store ---------------------------------------------------------------------------------------------------

std::string kindOfContent(const std::string& path) {
  const Value list = readPropertyList(path);
  if (list.isAbsent()) return "no property list";
  const OptionalText text = vnOLUtils::readStrFromFile(path);
  if (!text || text->empty()) return "a property list without a text";
  const Value document = vnOLUtils::toArrayOrNSDictionary(text);
  if (!document.isDictionary()) return "a text that is no settings document";
  std::string keys;
  for (const auto& [key, value] : document.entries()) keys += (keys.empty() ? "" : ", ") + key;
  return "a settings document" + (keys.empty() ? ", empty" : ": " + keys);
}

void addFile(DiagnosisReport& report, std::string_view key, std::string_view words, const std::string& path) {
  const bool exists = vnIsFileExist(path);
  const bool isFolder = vnIsDirection(path);
  const bool isReadable = exists && access(path.c_str(), R_OK) == 0;
  std::string kind = "missing";
  if (exists) kind = !isReadable ? "not readable" : isFolder ? "folder" : kindOfContent(path);
  Value facts = Value::dictionaryFromPairs(
      {{"path", path}, {"exists", exists}, {"readable", isReadable}, {"content", kind}});
  report.add(key, words, facts, path, kind);
}

void tellStore(DiagnosisReport& report) {
  const std::string folder = vnCommon::getDocumentOutlookPluginRootPath();
  const std::string site = vnMeetingCommon::getLocalVnSiteConfigPath();
  // A cleared profile leaves the user's choices in force: new meetings begin with them.
  const std::string own = vnCommon::getVnUserProfilePath(vnUserProfileHelper::sharedInstance().getUID());
  report.beginGroup("store");
  addFile(report, "folder", "folder", folder);
  addFile(report, "siteConfiguration", "site configuration", site);
  if (!own.empty()) addFile(report, "savedProfile", "the user's choices", own);
  const Value names = vnGetDirectoryItems(folder);
  for (const Value& name : names.items()) {
    const std::string path = folder + "/" + name.text();
    if (path != site && path != own) addFile(report, name.text(), "further file", path);
  }
}

void tellUserDefaults(DiagnosisReport& report) {
  constexpr std::string_view kKeys[] = {vn_Setting_NotShowMeAgain, vn_Setting_ForceIncludeJoinurlInLocation,
                                        vn_Setting_PutTheInvitationAtTheTop, vn_Delete_DoNotRemind,
                                        vn_LocalProfile_TrashCanLink};
  UserDefaults* defaults = Registry::platform().userDefaults;
  report.beginGroup("userDefaults");
  for (const std::string_view key : kKeys) report.add(key, key, defaults ? defaults->objectForKey(key) : Value());
}

void tellSignedIn(Findings& findings) {
  const vnUserProfileHelper& profile = vnUserProfileHelper::sharedInstance();
  findings.report.beginGroup("account");
  findings.report.add("hasUserProfile", "profile has come", profile.hasUserProfile());
  if (!profile.hasUserProfile()) return;
  findings.report.add("hasProto", "with the packed message", profile.hasProto());
  findings.report.add("isPaidUser", "paid plan", profile.isPaidUser());
  if (profile.isNoMeetingLicenseUser()) {
    findings.troubles.append("the account has no meeting licence");
  }
}

}  // namespace

Value Diagnosis::client() {
  Findings findings;
  tellClient(findings);
  tellPlaces(findings.report);
  tellChannel(findings);
  tellSignedIn(findings);
  tellSystem(findings);
  tellStore(findings.report);
  tellUserDefaults(findings.report);
  tellCapabilities(findings.report);
  return Value::dictionaryFromPairs({{"groups", findings.report.groups()}, {"troubles", findings.troubles}});
}

}  // namespace vorn
