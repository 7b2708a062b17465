#import <Foundation/Foundation.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "platform/apple/AppleClassRuntime.h"
#include "platform/apple/AppleDistributedNotifications.h"
#include "platform/apple/ApplePresenter.h"
#include "platform/apple/AppleSurroundings.h"
#include "platform/apple/AppleUserDefaults.h"
#include "platform/apple/AppleWorkspace.h"
#include "platform/apple/LiveObjects.h"
#include "platform/apple/Ownership.h"
#include "platform/embedded/VirtualRunLoop.h"
#include "tests/conformance/AppleHostLoop.h"
#include "tests/ports/AppleToolkit.h"
#include "tests/ports/PortsWorld.h"
#include "tests/ports/SmallMachine.h"
#include "util/PropertyList.h"

namespace vorn {

namespace {

namespace fs = std::filesystem;

constexpr auto kWorldVariable = "VORN_PORTS_WORLD";

// The folder in which this process's user defaults lie.
std::string defaultsFolder() { return std::string(std::getenv(kWorldVariable)) + "/defaults"; }

// In the place of the library that draws, which needs a display.
class RecordedDrawing final : public PanelDrawing {
 public:
  explicit RecordedDrawing(PanelRecord& record) : m_record(record) {}
  std::unique_ptr<Presenter::Panel> show(id window, std::string_view title, const PanelLayout& layout,
                                         ControlSet& controls, Presenter::PanelInput used) override {
    const HostObject shownOn = LiveObjects::instance().reference(window, LiveObjects::Holding::never);
    return m_record.show(shownOn, title, layout, controls, std::move(used));
  }

 private:
  PanelRecord& m_record;
};

class ApplePorts final : public PortsWorld {
 public:
  explicit ApplePorts(bool AppleToolkit::*workspace = nullptr) : m_toolkit(with(workspace)) {}
  ~ApplePorts() override {
    std::error_code ignored;
    fs::remove(m_domain, ignored);
    m_defaults.synchronize();
    [m_window release];
  }

  Workspace& workspace() override { return m_workspace; }
  UserDefaults& userDefaults() override { return m_defaults; }
  Surroundings& surroundings() override { return m_surroundings; }
  Presenter& presenter() override { return m_presenter; }
  std::string install(const std::string& name, const std::string& identifier) override {
    const std::string bundle = m_machine.install(name, identifier);
    if (!m_toolkit.hasWorkspace) return bundle;
    // The workspace knows it wherever it lies.
    const std::string elsewhere = m_machine.home() + "/" + name + ".app";
    fs::rename(bundle, elsewhere);
    m_toolkit.applications[identifier] = elsewhere;
    return elsewhere;
  }
  bool wasStarted(const std::string& bundle) override {
    const std::string byWorkspace = m_toolkit.hasWorkspace ? SmallMachine::programOf(bundle) : "";
    return m_toolkit.launched == byWorkspace && m_machine.wasStarted(bundle);
  }
  void run(const std::string& bundle) override {
    if (!m_toolkit.hasWorkspace) return m_machine.run(bundle);
    for (const auto& [identifier, path] : m_toolkit.applications) {
      if (path == bundle) m_toolkit.running = identifier;
    }
  }
  void quit() override {
    m_machine.quit();
    m_toolkit.running.clear();
  }
  void writeResource(const std::string& file, const std::string& content) override {
    m_machine.writeResource(file, content);
  }
  void writeDomain(const std::string& domain, const Value& content) override {
    fs::create_directories(defaultsFolder());
    m_domain = defaultsFolder() + "/" + domain + ".plist";
    writePropertyList(content, m_domain);
  }
  HostObject window() override {
    if (!m_window) m_window = [[NSObject alloc] init];
    return LiveObjects::instance().reference(m_window, LiveObjects::Holding::never);
  }
  void answerNext(const Presenter::Answer& answer) override { vornlab::alertDesk().answers = {answer}; }
  std::vector<Seen> alerts() override {
    m_loop.runDue();
    std::vector<Seen> all;
    for (const vornlab::ShownAlert& alert : vornlab::alertDesk().alerts) {
      all.push_back({LiveObjects::instance().reference(alert.window, LiveObjects::Holding::never), alert.message,
                     alert.buttons, alert.hasIcon, alert.switchTitle});
    }
    return all;
  }
  const PanelRecord* panels() override { return m_toolkit.hasWorkspace ? &m_panels : nullptr; }
  std::vector<std::string> sheets() override {
    std::vector<std::string> messages;
    for (const auto& [panel, message] : AppleToolkit::panels()) messages.push_back(message);
    return messages;
  }

 private:
  static AppleToolkit& with(bool AppleToolkit::*workspace) {
    AppleToolkit& toolkit = AppleToolkit::fresh();
    if (workspace) toolkit.*workspace = true;
    return toolkit;
  }

  // Outlives the ports.
  AutoreleasePool m_pool;
  AppleToolkit& m_toolkit;
  PanelRecord m_panels;
  SmallMachine m_machine;
  VirtualRunLoop m_loop;
  AppleWorkspace m_workspace{{m_machine.applications(), m_machine.userApplications()}};
  AppleUserDefaults m_defaults;
  AppleSurroundings m_surroundings{m_machine.resources()};
  ApplePresenter m_presenter{m_loop, m_machine.resources(),
                             m_toolkit.hasWorkspace ? std::make_unique<RecordedDrawing>(m_panels) : nullptr};
  id m_window = nil;
  // The file that was written for another program.
  std::string m_domain;
};

// The service of the session, which other programs use too. It carries what this process posts to all, so that is
// like another's post.
class AppleNotificationsWorld final : public NotificationsWorld {
 public:
  DistributedNotifications& notifications() override { return m_notifications; }
  std::string own(const std::string& name) override { return name + std::to_string(::getpid()); }
  void postElsewhere(std::string_view name, const Value& userInfo) override {
    m_notifications.post(name, userInfo);
  }
  // The service is spoken to with calls that wait for their replies and take what arrives meanwhile.
  bool mayDeliverAtOnce() override { return true; }
  bool runUntil(const std::function<bool()>& condition) override { return m_loop.runUntil(condition, 120); }

 private:
  AutoreleasePool m_pool;
  AppleHostLoop m_loop;
  AppleDistributedNotifications m_notifications;
};

// Foundation reads where its files lie once, before main(), so the program goes on anew where that is a folder of
// its own. The configuration takes a path only as seen from the folder that the system has for the user.
void enterOwnWorld(char** arguments) {
  if (std::getenv(kWorldVariable)) return;
  std::string name = (fs::temp_directory_path() / "vorn-ports-XXXXXX").string();
  if (!::mkdtemp(name.data())) std::abort();
  const fs::path world = fs::canonical(name);
  const passwd* user = ::getpwuid(::geteuid());
  std::ofstream(world / "GNUstep.conf")
      << "GNUSTEP_USER_CONFIG_FILE=none\nGNUSTEP_USER_DEFAULTS_DIR="
      << fs::proximate(world / "defaults", user ? user->pw_dir : "/").string() << "\n";
  ::setenv(kWorldVariable, world.c_str(), 1);
  ::setenv("GNUSTEP_CONFIG_FILE", (world / "GNUstep.conf").c_str(), 1);
  ::execv("/proc/self/exe", arguments);
  std::abort();
}

}  // namespace

std::unique_ptr<NotificationsWorld> makeAppleNotifications() {
  return std::make_unique<AppleNotificationsWorld>();
}
std::unique_ptr<PortsWorld> makeApplePorts() { return std::make_unique<ApplePorts>(); }
std::unique_ptr<PortsWorld> makeApplePortsWithWorkspace() {
  return std::make_unique<ApplePorts>(&AppleToolkit::hasWorkspace);
}
std::unique_ptr<PortsWorld> makeApplePortsWithRaisingWorkspace() {
  return std::make_unique<ApplePorts>(&AppleToolkit::workspaceRaises);
}

}  // namespace vorn

int main(int argc, char** argv) {
  vorn::enterOwnWorld(argv);
  testing::InitGoogleTest(&argc, argv);
  const int result = RUN_ALL_TESTS();
  std::filesystem::remove_all(std::getenv(vorn::kWorldVariable));
  return result;
}
