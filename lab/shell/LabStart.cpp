#include "lab/shell/LabStart.h"

#include <system_error>
#include <vector>

#include "lab/shell/LabError.h"

namespace vornlab {

namespace {

std::vector<std::string> clientArguments(const LabOptions& options, const World& world,
                                         const std::string& transport) {
  const std::filesystem::path database = options.clientDatabase;
  std::vector<std::string> arguments{"--home",        world.home(),  "--db",    database,           "--journal",
                                     world.journal(), "--transport", transport, "--ends-with-input"};
  if (!options.account.empty()) arguments.insert(arguments.end(), {"--account", options.account});
  if (options.takesFaults) arguments.push_back("--faults=" + world.faults().string());
  if (options.withAgent) arguments.push_back("--without-agent");
  arguments.insert(arguments.end(), options.clientArguments.begin(), options.clientArguments.end());
  return arguments;
}

}  // namespace

Account signedInAccount(const LabOptions& options) {
  try {
    return options.account.empty() ? Account::plain() : Account::fromFile(options.account.string());
  } catch (const AccountError& error) {
    throw UsageError(error.what());
  }
}

World::Options worldOptions(const LabOptions& options, const std::string& userId) {
  World::Options world;
  world.folder = options.world;
  world.keep = options.keepWorld;
  if (!options.withoutClient) world.client = options.programs / "vornclient.app";
  world.clientVersion = options.clientVersion;
  world.userId = userId;
  world.panelIsOff = options.panelIsOff;
  world.mayBeTooLongForSocket = options.goesOnWithoutClient;
  return world;
}

void startClient(ClientProcess& client, const LabOptions& options, const World& world,
                 const std::string& transport) {
  const std::filesystem::path database = options.clientDatabase;
  if (database.has_parent_path()) {
    std::error_code failed;
    std::filesystem::create_directories(database.parent_path(), failed);
    if (failed) throw LabError("cannot make the folder of " + database.string() + ": " + failed.message());
  }
  client.start(world.clientProgram(), clientArguments(options, world, transport), world.clientErrors(),
               kStartSeconds);
}

void startAgent(ClientProcess& agent, const LabOptions& options, const World& world,
                const std::string& transport) {
  std::vector<std::string> arguments{"--client", world.clientProgram(), "--journal", world.journal(),
                                     "--ends-with-input"};
  if (!options.clientVersion.empty()) arguments.insert(arguments.end(), {"--version", options.clientVersion});
  arguments.push_back("--");
  const std::vector<std::string> ofClient = clientArguments(options, world, transport);
  arguments.insert(arguments.end(), ofClient.begin(), ofClient.end());
  try {
    agent.start(options.programs / "vOutlookPluginAgent", arguments, world.agentErrors(), kStartSeconds);
  } catch (const Interrupted&) {
    throw;
  } catch (const LabError& error) {
    throw LabError(std::string("the agent: ") + error.what());
  }
}

}  // namespace vornlab
