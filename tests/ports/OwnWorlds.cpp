#include "platform/embedded/EmbeddedPresenter.h"
#include "platform/embedded/EmbeddedSurroundings.h"
#include "platform/embedded/EmbeddedUserDefaults.h"
#include "platform/embedded/EmbeddedWorkspace.h"
#include "tests/ports/PortsWorld.h"
#include "tests/ports/SmallMachine.h"
#include "util/AtomicFile.h"
#include "util/PropertyList.h"

namespace vorn {

namespace {

// What both have: a presenter without a screen.
class OwnPorts : public PortsWorld {
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

 protected:
  SmallMachine m_machine;

 private:
  EmbeddedPresenter m_presenter;
};

class EmbeddedPorts final : public OwnPorts {
 public:
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
  EmbeddedWorkspace m_workspace{m_machine.home(), {m_machine.applications(), m_machine.userApplications()}};
  EmbeddedUserDefaults m_defaults{m_machine.home(), "com.example.host"};
  EmbeddedSurroundings m_surroundings{{.home = m_machine.home(), .resources = m_machine.resources()}};
};

// The ports that the tests of other rooms lean on keep the same promises.
class FakePortsWorld final : public OwnPorts {
 public:
  Workspace& workspace() override { return m_workspace; }
  UserDefaults& userDefaults() override { return m_defaults; }
  Surroundings& surroundings() override { return m_surroundings; }
  std::string install(const std::string& name, const std::string& identifier) override {
    const std::string bundle = m_machine.install(name, identifier);
    m_workspace.installed[identifier] = bundle;
    m_workspace.filePackages.insert(bundle);
    m_workspace.executables[bundle] = SmallMachine::programOf(bundle);
    return bundle;
  }
  bool wasStarted(const std::string& bundle) override {
    return m_workspace.launched == std::vector{SmallMachine::programOf(bundle)};
  }
  void run(const std::string& bundle) override {
    const std::string identifier =
        m_workspace.propertyListAtPath(bundle + "/Contents/Info.plist")["CFBundleIdentifier"].text();
    m_workspace.running.insert(identifier);
  }
  void quit() override { m_workspace.running.clear(); }
  void writeResource(const std::string& file, const std::string& content) override {
    m_surroundings.resources[file] = content;
    m_machine.writeResource(file, content);
  }
  void writeDomain(const std::string& domain, const Value& content) override {
    m_defaults.domains[domain] = content;
  }

 private:
  FakeWorkspace m_workspace;
  MemoryUserDefaults m_defaults;
  TestSurroundings m_surroundings;
};

}  // namespace

std::unique_ptr<PortsWorld> makeEmbeddedPorts() { return std::make_unique<EmbeddedPorts>(); }
std::unique_ptr<PortsWorld> makeFakePorts() { return std::make_unique<FakePortsWorld>(); }

}  // namespace vorn
