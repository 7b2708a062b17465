#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "util/Value.h"

namespace vorn {

// What this system knows of the applications around it: the client and the host, and the system they run on.
//
// Main thread only. Nothing is remembered: every question that OneLook does not join to another is answered from
// the disk and the processes of the moment.
class vnAppHelper {
 public:
  static vnAppHelper& sharedInstance();

  // While one stands, where the client lies is looked up once. It stands within one call; the loop does not run
  // meanwhile.
  class OneLook {
   public:
    OneLook();
    ~OneLook();
    OneLook(const OneLook&) = delete;
    OneLook& operator=(const OneLook&) = delete;

   private:
    vnAppHelper& m_applications;
  };

  // The system's version in packed decimal form, 0x1061 for 10.6.1: minor and patch take one digit each and stop
  // at 9. 0 when it is unknown.
  std::int32_t macOSVersion();
  bool isSupportedOSVersion();

  // The host's version text; "" when the host is not found.
  std::string OutlookVersion();
  // 14.1.4 or later.
  bool isSupportedOutlookVersion();
  // 15.9 or later: the agent then launches the client.
  bool isOutlookVersionLargeThan2016();

  // The four places of the client in the order in which they are looked at. The first is what the client itself
  // has told, absent when it has not.
  static constexpr std::size_t kInstallPlaces = 4;
  std::array<OptionalText, kInstallPlaces> installPlaces();
  // The first of the client's four places that holds an application; the last place when none does.
  std::string getVornClientInstallPath();
  // The path of the client's program, "" when there is none. Sets the flag to whether the application exists; a
  // null pointer is passed over.
  std::string getVornusLaunchPath(bool* appExists);
  std::string getVornusIdentifier();
  std::string getVornusAppPath();
  std::string getVornusUserAppPath();
  bool IsAppExist(const OptionalText& path);
  bool isVornusInstalled();
  bool isVornRunning();

  // Starts the client without waiting for it. False when it could not be started, and also when it runs already:
  // it is then asked to come to the front instead.
  bool LaunchVornClient();
  // Wakes a running client without showing it; nothing when it does not run.
  void silentActiveVornClient();
  void silentActiveAlreadyRunningVornus();
  void walkWithAlreadyRunningVornus(const OptionalText& url);

  // A value in the property list at the path; absent when there is none.
  Value objectForPropertyListKey(const OptionalText& key, const OptionalText& filePath);

  // --- Of the product's other pieces and of the host. Nothing here calls these.

  bool isOutlookInstalled();
  bool isOutlookRunning();
  // False when the host is not installed or could not be started.
  bool launchOutlookApp();
  std::string getOutlookSandboxContainerVornPluginPath();
  std::string getMicrosoftApplicationSupportVornPluginFolder();
  // Of the agent's property list among those that start with the user's session.
  std::string getVnPluginAgentPListUserPath();
  // The agent's version; "" when it is not installed.
  std::string getVnPluginVersion();
  // The system's preferred language; "" when it has none.
  std::string getSystemLanguage();

 private:
  // The last place when none holds an application.
  struct Installation {
    std::string path;
    bool exists = false;
  };

  OptionalText installPlace(std::size_t index);
  Installation installation();
  Installation lookForInstallation();

  int m_looksThatStand = 0;
  // Absent as long as nobody has asked.
  std::optional<Installation> m_look;
};

}  // namespace vorn
