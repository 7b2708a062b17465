// The stand-in agent: a program of its own, which lives while the client does not run.

#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <array>
#include <iostream>
#include <string>
#include <vector>

#include "lab/client/Agent.h"
#include "lab/client/ClientLauncher.h"
#include "lab/client/StopSignals.h"
#include "lab/words/OptionChecks.h"
#include "lab/words/ParserWords.h"
#include "secrets/SecretMask.h"

namespace {

constexpr int kFailed = 1;
constexpr int kBadUsage = 2;

struct Arguments {
  std::string client;
  std::vector<std::string> clientArguments;
  std::string journal;
  std::string version = VORNCLIENT_VERSION;
  bool endsWithInput = false;
};

void complain(const std::string& why) {
  std::cerr << "vOutlookPluginAgent: " << vorn::SecretMask::covered(why) << "\n";
}

void serve(const Arguments& arguments) {
  const int stop = vornlab::stopDescriptor(arguments.endsWithInput);
  vornlab::Journal journal(arguments.journal);
  vornlab::ClientLauncher launcher(journal, arguments.client, arguments.clientArguments);
  vornlab::Agent agent(journal, arguments.version, [&launcher] { launcher.launch(); });
  vornlab::NotificationBus bus;
  std::cout << "vOutlookPluginAgent " << arguments.version << " observes notifications" << std::endl;

  std::array<pollfd, 3> waiting{};
  do {
    while (const auto notification = bus.next()) {
      if (vornlab::Agent::isMeant(notification->name)) agent.take(notification->name, bus);
    }
    if ((waiting[2].revents) != 0) launcher.takeOutput();
    const auto awaited = bus.awaited();
    waiting = {{{stop, POLLIN, 0}, {awaited.descriptor, awaited.events, 0}, {launcher.descriptor(), POLLIN, 0}}};
    ::poll(waiting.data(), waiting.size(), -1);
  } while (waiting[0].revents == 0);
  ::close(stop);
}

}  // namespace

int main(int argc, char** argv) {
  Arguments arguments;
  CLI::App app(
      "The stand-in agent: tells the client's version, shows the About dialog, and starts the client when it does "
      "not run.",
      "vOutlookPluginAgent");
  app.add_option("--client", arguments.client, "The client's program")
      ->required()
      ->check(vornlab::complaintOfFile, "FILE");
  app.add_option("--journal", arguments.journal, "A file to which each event is appended, one JSON object a line");
  app.add_flag("--ends-with-input", arguments.endsWithInput, "Ends when standard input does");
  app.add_option("--version", arguments.version, "The version that it tells")->capture_default_str();
  app.add_option("arguments", arguments.clientArguments, "What the client is started with, behind --");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return app.exit(error);
    complain(vornlab::inOwnWords(app, error));
    return kBadUsage;
  }
  ::umask(0077);
  try {
    serve(arguments);
    return 0;
  } catch (const std::exception& error) {
    complain(error.what());
  }
  return kFailed;
}
