#pragma once

#include <string>

#include "lab/client/Account.h"
#include "lab/shell/ClientProcess.h"
#include "lab/shell/LabOptions.h"
#include "lab/shell/World.h"

namespace vornlab {

// What every laboratory makes of its options when it starts, whatever runtime its host stands in.

// Seconds that a start may take on a machine that is busy with other things.
inline constexpr double kStartSeconds = 20;

// Who is signed in at the client. Throws UsageError for a file that is no account.
Account signedInAccount(const LabOptions& options);

World::Options worldOptions(const LabOptions& options, const std::string& userId);

// Starts the client that is installed in the world, listening on "socket", "notifications" or "both"; or the
// agent, which starts it so when it is asked to. Each throws LabError.
void startClient(ClientProcess& client, const LabOptions& options, const World& world,
                 const std::string& transport);
void startAgent(ClientProcess& agent, const LabOptions& options, const World& world, const std::string& transport);

}  // namespace vornlab
