#include <gmock/gmock.h>

#include <filesystem>
#include <tuple>

#include "channel/discovery/vnAppHelper.h"
#include "channel/discovery/vnClientConstants.h"
#include "channel/discovery/vnClientFeatureMgr.h"
#include "channel/discovery/vnClientNotRunningError.h"
#include "channel/discovery/vnGetClientVersionHelper.h"
#include "channel/store/JsonTextFile.h"
#include "channel/store/vnLocalProfileKeys.h"
#include "channel/store/vnMeetingCommon.h"
#include "channel/store/vnPathConstants.h"
#include "channel/transport/vnIPCConstants.h"
#include "platform/embedded/EmbeddedSurroundings.h"
#include "tests/support/TestPlatform.h"

namespace vorn {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace fs = std::filesystem;

class DiscoveryTest : public ::testing::Test {
 protected:
  // The four places of the client, in the order of their search.
  std::vector<std::string> places() {
    const std::string home = m_world.surroundings.homeDirectory();
    return {home + "/chosen/vornclient.app", m_world.surroundings.applicationsDirectory() + "/vornclient.app",
            home + "/Library/Application Support/vornclient/vornclient.app",
            m_world.surroundings.userApplicationsDirectory() + "/vornclient.app"};
  }
  void install(const std::string& path, const std::string& version = "5.4.59940") {
    fs::create_directories(path);
    m_world.workspace.filePackages.insert(path);
    m_world.workspace.executables[path] = path + "/Contents/MacOS/vornclient";
    setBundleValue(path, "CFBundleVersion", version);
  }
  void setBundleValue(const std::string& path, const std::string& key, const std::string& value) {
    m_world.workspace.propertyLists[path + "/Contents/Info.plist"] = Value::dictionaryFromPairs({{key, value}});
  }
  void setOutlookVersion(const std::string& version) {
    m_world.workspace.installed[std::string(keyOutlookIdentifier)] = "/Outlook.app";
    setBundleValue("/Outlook.app", "CFBundleShortVersionString", version);
  }
  std::vector<std::string> postedNames() {
    std::vector<std::string> names;
    for (const auto& posted : m_world.distributedNotifications.posted) names.push_back(posted.name);
    return names;
  }

  TestPlatform m_world;
  vnAppHelper& m_applications = vnAppHelper::sharedInstance();
  vnClientFeatureMgr& m_features = vnClientFeatureMgr::sharedInstance();
};

TEST_F(DiscoveryTest, FindsTheClientAtTheFirstOfItsFourPlaces) {
  m_world.userDefaults.domains[std::string(kVornusIdentify)] =
      Value::dictionaryFromPairs({{"installPath", places()[0]}});
  EXPECT_EQ(m_applications.getVornClientInstallPath(), places()[3]) << "the last place, even with nothing there";
  EXPECT_FALSE(m_applications.isVornusInstalled());
  EXPECT_FALSE(m_applications.IsAppExist(std::nullopt));
  m_world.workspace.filePackages.insert(places()[1]);
  EXPECT_FALSE(m_applications.IsAppExist(places()[1])) << "missing";
  m_world.workspace.filePackages.clear();
  fs::create_directories(places()[1]);
  EXPECT_FALSE(m_applications.IsAppExist(places()[1])) << "a plain folder";
  for (std::size_t place = places().size(); place-- > 0;) {
    install(places()[place]);
    EXPECT_EQ(m_applications.getVornClientInstallPath(), places()[place]);
    EXPECT_TRUE(m_applications.isVornusInstalled());
  }
}

TEST_F(DiscoveryTest, LooksForTheClientInTheUsersRealFoldersAndNotInTheHostsContainer) {
  EmbeddedSurroundings inside({.home = "/Users/me/Library/Containers/com.microsoft.Outlook/Data"});
  m_world.platform().surroundings = &inside;
  m_world.reinstall();
  const auto found = m_applications.installPlaces();
  EXPECT_EQ(found[2], "/Users/me/Library/Application Support/vornclient/vornclient.app");
  EXPECT_EQ(found[3], "/Users/me/Applications/vornclient.app");
  m_world.platform().surroundings = &m_world.surroundings;
  m_world.platform().workspace = nullptr;
  m_world.reinstall();
  EXPECT_EQ(m_applications.OutlookVersion(), "") << "without the port";
}

TEST_F(DiscoveryTest, ComparesTheClientsVersionWithEachBoundary) {
  install(places()[1]);
  const std::tuple<const char*, const char*, bool> cases[] = {{"5.4.59939", "5.4.59940", false},
                                                              {"5.4.59940", "5.4.59940", true},
                                                              {"5.5.1", "5.4.59940", true},
                                                              {"6.0.0", "5.4.59940", true},
                                                              {"4.99.99999", "5.4.59940", false},
                                                              {"5.3.99999", "5.4.59940", false},
                                                              {"4.6", "4.6.14768", false},
                                                              {"4.6", "4.6.00000", true},
                                                              {"4", "4.0.0", true},
                                                              {"5.4.59940.1", "5.4.59940", true},
                                                              {"5.4.59939.9", "5.4.59940", false},
                                                              {"five.4.59940", "0.4.59940", true},
                                                              {"5.x.9", "5.0.9", true},
                                                              {"5..9", "5.0.9", true},
                                                              {"...", "0.0.1", false}};
  for (const auto& [client, required, supports] : cases) {
    setBundleValue(places()[1], "CFBundleVersion", client);
    EXPECT_EQ(m_features.clientSupportSpecifiedFeature(required), supports) << client << " for " << required;
  }
  for (const auto& [client, isSupported] : {std::pair("2.9.9", false), std::pair("3.4.99999", false),
                                            std::pair("3.5", true), std::pair("4.0.1", true)}) {
    setBundleValue(places()[1], "CFBundleVersion", client);
    EXPECT_EQ(m_features.isSupportedVornClientVersion(), isSupported) << client;
  }
  setBundleValue(places()[1], "CFBundleVersion", "");
  EXPECT_FALSE(m_features.clientSupportSpecifiedFeature("0.0.0")) << "no version supports nothing";
}

TEST_F(DiscoveryTest, AsksOneVersionWhileItsAnswersAreToFitTogetherAndAfreshBehindThat) {
  install(places()[1]);
  setBundleValue(places()[1], "CFBundleVersion", "5.0.0");
  {
    const vnClientFeatureMgr::OneReading outer;
    EXPECT_TRUE(m_features.clientSupportSpecifiedFeature("5.0.0"));
    setBundleValue(places()[1], "CFBundleVersion", "6.0.0");
    { const vnClientFeatureMgr::OneReading inner; }
    EXPECT_FALSE(m_features.clientSupportSpecifiedFeature("6.0.0"));
  }
  EXPECT_TRUE(m_features.clientSupportSpecifiedFeature("6.0.0"));
}

TEST_F(DiscoveryTest, LooksOnceForTheClientWhileItsAnswersAreToFitTogetherAndAfreshBehindThat) {
  {
    const vnAppHelper::OneLook outer;
    EXPECT_FALSE(m_applications.isVornusInstalled());
    install(places()[1]);
    { const vnAppHelper::OneLook inner; }
    EXPECT_EQ(m_applications.getVornClientInstallPath(), places()[3]);
  }
  EXPECT_TRUE(m_applications.isVornusInstalled());
}

TEST_F(DiscoveryTest, LetsTheAccountAloneDecideOnDialInCountries) {
  EXPECT_FALSE(m_features.isVornClientSupportEditCountries());
  m_features.setEditCountriesSource([] { return true; });
  EXPECT_TRUE(m_features.isVornClientSupportEditCountries()) << "with no client at all";
}

TEST_F(DiscoveryTest, FallsBackToTheVersionThatTheAgentToldLast) {
  EXPECT_EQ(vnGetClientVersionHelper::getVornClientVersion(), "");
  vnGetClientVersionHelper& versions = vnGetClientVersionHelper::sharedInstance();
  versions.getClientVersion();
  EXPECT_THAT(postedNames(), ElementsAre(kIPCPluginGetClientVersion));

  JsonTextFile site(vnMeetingCommon::getLocalVnSiteConfigPath());
  site.setKey(vn_LocalProfile_TrashCanLink, "kept");
  const auto answer = [](const char* action, const char* content) {
    return Value::dictionaryFromPairs({{VN_IPC_ACTION_ID, action}, {VN_IPC_CONTENT, content}});
  };
  m_world.notificationCenter.post(NOTI_HANDLE_SOCKET_GET_REQUEST_DONE_OLPLUGINAGENT, nullptr,
                                  answer("4", "9.9.9"));
  EXPECT_EQ(vnGetClientVersionHelper::getVornClientVersion(), "");
  m_world.notificationCenter.post(NOTI_HANDLE_SOCKET_GET_REQUEST_DONE_OLPLUGINAGENT, nullptr,
                                  answer("200", "4.5.6"));
  EXPECT_EQ(vnGetClientVersionHelper::getVornClientVersion(), "4.5.6");
  EXPECT_EQ(site.read()[vn_LocalProfile_TrashCanLink].text(), "kept");

  m_world.surroundings.version = {10, 14, 6};
  m_world.restart();
  vnGetClientVersionHelper::sharedInstance();
  m_world.distributedNotifications.deliver(VN_IPC_PLUGINAGENT_TO_OUTLOOKPLUGIN, answer("200", "3.9.1"));
  EXPECT_EQ(vnGetClientVersionHelper::getVornClientVersion(), "3.9.1") << "told over the bus of older systems";

  install(places()[1], "5.0.1");
  EXPECT_EQ(vnGetClientVersionHelper::getVornClientVersion(), "5.0.1") << "an installed client speaks for itself";
}

TEST_F(DiscoveryTest, KnowsTheLinesOfTheHostsVersion) {
  EXPECT_FALSE(m_applications.isSupportedOutlookVersion()) << "no host";
  const std::tuple<const char*, bool, bool> cases[] = {
      {"14.1.3", false, false}, {"14.1.4", true, false}, {"14.1", false, false}, {"14.2.0", true, false},
      {"13.9.9", false, false}, {"15.0", true, false},   {"15.8", true, false},  {"15.9", true, true},
      {"16.0", true, true},     {"", false, false}};
  for (const auto& [version, isSupported, isLargeThan2016] : cases) {
    setOutlookVersion(version);
    EXPECT_EQ(m_applications.isSupportedOutlookVersion(), isSupported) << version;
    EXPECT_EQ(m_applications.isOutlookVersionLargeThan2016(), isLargeThan2016) << version;
  }
}

TEST_F(DiscoveryTest, PacksTheSystemsVersion) {
  using Version = Surroundings::Version;
  const std::tuple<Version, std::int32_t, bool> cases[] = {{Version{10, 6, 1}, 0x1061, true},
                                                           {Version{10, 6, 0}, 0x1060, false},
                                                           {Version{10, 15, 7}, 0x1097, true},
                                                           {Version{14, 2, 0}, 0x1420, true},
                                                           {Version{0, 0, 0}, 0, false}};
  for (const auto& [version, packed, isSupported] : cases) {
    m_world.surroundings.version = version;
    EXPECT_EQ(m_applications.macOSVersion(), packed);
    EXPECT_EQ(m_applications.isSupportedOSVersion(), isSupported) << std::hex << packed;
  }
}

TEST_F(DiscoveryTest, LaunchesTheClientOrBringsARunningOneForward) {
  EXPECT_FALSE(m_applications.LaunchVornClient()) << "not installed";
  install(places()[1]);
  EXPECT_TRUE(m_applications.LaunchVornClient());
  EXPECT_THAT(m_world.workspace.launched, ElementsAre(places()[1] + "/Contents/MacOS/vornclient"));
  m_world.workspace.launchSucceeds = false;
  EXPECT_FALSE(m_applications.LaunchVornClient());

  m_world.workspace.running.insert(std::string(kVornusIdentify));
  EXPECT_FALSE(m_applications.LaunchVornClient()) << "though the notification goes out";
  ASSERT_THAT(postedNames(), ElementsAre(kNoti_ActivateVornApplicationExternally));
  EXPECT_EQ(m_world.distributedNotifications.posted[0].userInfo,
            Value::dictionaryFromPairs({{kParam_ActivateVornApplicationExternally, kVornLaunchURL}}));
}

TEST_F(DiscoveryTest, OffersToLaunchTheClientAndLeavesItToTheAgentOnNewerHosts) {
  install(places()[1]);
  setOutlookVersion("15.8");
  m_world.presenter.answerNext(Presenter::Answer::alternateButton);
  m_world.presenter.setAnswer(Presenter::Answer::defaultButton);
  vnClientNotRunningError& error = vnClientNotRunningError::sharedInstance();
  error.showClientError(HostObject(), "It does not run.");
  EXPECT_THAT(m_world.workspace.launched, IsEmpty()) << "cancelled";
  error.showClientError(HostObject(), "It does not run.");
  EXPECT_EQ(m_world.workspace.launched.size(), 1u);
  setOutlookVersion("15.9");
  m_world.workspace.running.insert(std::string(kVornusIdentify));
  error.showClientError(HostObject(0x5), "It does not run.");
  error.showClientErrorWithoutLaunchClient(HostObject(), "It does not run.");
  EXPECT_EQ(m_world.workspace.launched.size(), 1u);
  EXPECT_THAT(postedNames(), ElementsAre(kIPCPluginLaunchClient));

  const Presenter::Alert& alert = m_world.presenter.alerts()[2].alert;
  EXPECT_EQ(m_world.presenter.alerts()[2].window, HostObject(0x5));
  EXPECT_EQ(alert.title, "");
  EXPECT_EQ(alert.message, "It does not run.");
  EXPECT_THAT(alert.buttons, ElementsAre("Button_LaunchClient", "Button_Cancel")) << "the keys without a table";
  EXPECT_EQ(alert.icon, "warning.png");
  EXPECT_THAT(m_world.presenter.alerts()[3].alert.buttons, ElementsAre("OK"));
}

}  // namespace
}  // namespace vorn
