#include "platform/embedded/EmbeddedDistributedNotifications.h"
#include "platform/embedded/EmbeddedPresenter.h"
#include "platform/embedded/EmbeddedSurroundings.h"
#include "platform/embedded/EmbeddedUserDefaults.h"
#include "platform/embedded/EmbeddedWorkspace.h"
#include "platform/embedded/RealTimeRunLoop.h"
#include "tests/ports/PortsWorld.h"
#include "tests/ports/SmallMachine.h"
#include "tests/support/PrivateBus.h"
#include "util/AtomicFile.h"
#include "util/PropertyList.h"

namespace vorn {

namespace {

class EmbeddedPorts final : public PortsWorld {
 public:
  Presenter& presenter() override { return m_presenter; }
  HostObject window() override { return HostObject(0x51); }
  void answerNext(const Presenter::Answer& answer) override { m_presenter.answerNext(answer); }
  std::vector<Seen> alerts() override {
    std::vector<Seen> all;
    for (const auto& [window, alert, answer, answered] : m_presenter.alerts()) {
      // An image that an alert names has to be among the resources, or the user sees none.
      const bool hasIcon = readFile(m_machine.resources() + "/" + alert.icon).has_value();
      all.push_back({window, alert.message, alert.buttons, hasIcon, alert.notAgainSwitch});
    }
    return all;
  }
  std::vector<std::string> sheets() override { return m_presenter.progress().open(); }
  const PanelRecord* panels() override { return &m_presenter.panels(); }
  Workspace& workspace() override { return m_workspace; }
  UserDefaults& userDefaults() override { return m_defaults; }
  Surroundings& surroundings() override { return m_surroundings; }
  std::string install(const std::string& name, const std::string& identifier) override {
    return m_machine.install(name, identifier);
  }
  bool wasStarted(const std::string& bundle) override { return m_machine.wasStarted(bundle); }
  void run(const std::string& bundle) override { m_machine.run(bundle); }
  void quit() override { m_machine.quit(); }
  void writeResource(const std::string& file, const std::string& content) override {
    m_machine.writeResource(file, content);
  }
  void writeDomain(const std::string& domain, const Value& content) override {
    writePropertyList(content, m_machine.home() + "/" + domain + ".plist");
  }

 private:
  SmallMachine m_machine;
  EmbeddedPresenter m_presenter;
  EmbeddedWorkspace m_workspace{m_machine.home(), {m_machine.applications(), m_machine.userApplications()}};
  EmbeddedUserDefaults m_defaults{m_machine.home(), "com.example.host"};
  EmbeddedSurroundings m_surroundings{{.home = m_machine.home(), .resources = m_machine.resources()}};
};

// Two connections are two processes to the bus.
class BusWorld final : public NotificationsWorld {
 public:
  bool isUp() const { return m_ours && m_theirs; }
  DistributedNotifications& notifications() override { return *m_ours; }
  void postElsewhere(std::string_view name, const Value& userInfo) override { m_theirs->post(name, userInfo); }
  bool runUntil(const std::function<bool()>& condition) override { return m_loop.runUntil(condition, 120); }

 private:
  RealTimeRunLoop m_loop;
  PrivateBus m_bus;
  std::unique_ptr<DistributedNotifications> m_ours =
      EmbeddedDistributedNotifications::connect(m_loop, m_bus.address());
  std::unique_ptr<DistributedNotifications> m_theirs =
      EmbeddedDistributedNotifications::connect(m_loop, m_bus.address());
};

}  // namespace

std::unique_ptr<PortsWorld> makeEmbeddedPorts() { return std::make_unique<EmbeddedPorts>(); }

std::unique_ptr<NotificationsWorld> makeEmbeddedNotifications() {
  if (!PrivateBus::isInstalled()) return nullptr;
  auto world = std::make_unique<BusWorld>();
  return world->isUp() ? std::move(world) : nullptr;
}

}  // namespace vorn
