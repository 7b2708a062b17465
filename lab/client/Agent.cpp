#include "lab/client/Agent.h"

#include <iostream>
#include <utility>

#include "lab/client/Service.h"

namespace vornlab {
namespace {

constexpr std::string_view kLaunchClient = "VornOutlookPlugin.LaunchClient";
constexpr std::string_view kOpenAboutDialog = "VornOutlookPlugin.OpenAboutDialog";
constexpr auto kVersionAnswer = "vOutlookPluginAgentToVOutlookPlugin";

}  // namespace

Agent::Agent(Journal& journal, std::string version, std::function<void()> launch)
    : m_journal(journal), m_version(std::move(version)), m_launch(std::move(launch)) {}

bool Agent::isMeant(std::string_view name) {
  return name == kVersionQuestion || name == kLaunchClient || name == kOpenAboutDialog;
}

void Agent::take(const std::string& name, NotificationBus& bus) {
  m_journal.note("notification", {{"name", name}});
  if (name == kVersionQuestion) {
    answerVersion(bus);
  } else if (name == kOpenAboutDialog) {
    m_journal.note("about", {{"version", m_version}});
    std::cerr << "About Vorn Plug-in: version " << m_version << std::endl;
  } else if (name == kLaunchClient && m_launch) {
    m_launch();
  }
}

void Agent::answerVersion(NotificationBus& bus) {
  m_journal.note("reply", {{"name", kVersionAnswer},
                           {"action", action::kVersion},
                           {"bytes", m_version.size()},
                           {"micros", 0},
                           {"content", m_version}});
  bus.send(kVersionAnswer, {action::kVersion, m_version});
}

}  // namespace vornlab
