#include <sys/signalfd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdint>
#include <iostream>
#include <string>

#include "lab/client/Server.h"

namespace {

constexpr int kFailed = 1;
constexpr int kBadUsage = 2;

struct Arguments {
  std::string home;
  std::string database;
  std::string account;
  std::string journal;
  std::string faults;
  std::string version = VORNCLIENT_VERSION;
  std::uint64_t seed = 0;
  bool announceVersion = false;
};

// The descriptor that becomes readable when the program is to end.
int stopDescriptor() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGTERM);
  sigaddset(&signals, SIGINT);
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  return signalfd(-1, &signals, SFD_CLOEXEC);
}

// "5.12.3" of "5.12.3.9654".
std::string shortVersion(const std::string& version) {
  std::size_t end = 0;
  for (int parts = 0; parts < 3 && end != std::string::npos; ++parts)
    end = version.find('.', parts == 0 ? 0 : end + 1);
  return version.substr(0, end);
}

int serve(const Arguments& arguments) {
  vornlab::Account account =
      arguments.account.empty() ? vornlab::Account::plain() : vornlab::Account::fromFile(arguments.account);
  vornlab::FaultBook faults =
      arguments.faults.empty() ? vornlab::FaultBook() : vornlab::FaultBook::fromFile(arguments.faults);

  const int stop = stopDescriptor();
  vornlab::Journal journal(arguments.journal);
  vornlab::Service service(std::move(account), {arguments.database, arguments.version, arguments.seed});
  vornlab::Server server(service, journal, std::move(faults),
                         {arguments.home + "/s.vop", arguments.announceVersion});
  server.listen();
  std::cout << "vornclient " << shortVersion(arguments.version) << " listens on " << arguments.home << "/s.vop"
            << std::endl;
  server.run(stop);
  ::close(stop);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  Arguments arguments;
  CLI::App app("The stand-in client: answers a scheduling plug-in over a socket, with meetings in a database.",
               "vornclient");
  app.add_option("--home", arguments.home, "The folder in which the socket s.vop is made")
      ->required()
      ->check(CLI::ExistingDirectory);
  app.add_option("--db", arguments.database, "The file with the meetings; made when it is missing")->required();
  app.add_option("--account", arguments.account, "The account that is signed in, a file as in accounts/")
      ->check(CLI::ExistingFile);
  app.add_option("--faults", arguments.faults, "What goes wrong, and with which reply")->check(CLI::ExistingFile);
  app.add_option("--journal", arguments.journal, "A file to which each event is appended, one JSON object a line");
  app.add_option("--version", arguments.version, "The version that is announced")->capture_default_str();
  app.add_option("--seed", arguments.seed, "Makes the meeting numbers the same each time");
  app.add_flag("--announce-version", arguments.announceVersion, "Send the version to each new connection");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : kBadUsage;
  }

  // The database and the journal are nobody else's business.
  ::umask(0077);
  try {
    return serve(arguments);
  } catch (const vornlab::AccountError& error) {
    std::cerr << "vornclient: " << error.what() << "\n";
    return kBadUsage;
  } catch (const vornlab::FaultError& error) {
    std::cerr << "vornclient: " << error.what() << "\n";
    return kBadUsage;
  } catch (const vornlab::StoreError& error) {
    std::cerr << "vornclient: " << arguments.database << ": " << error.what() << "\n";
  } catch (const std::exception& error) {
    std::cerr << "vornclient: " << error.what() << "\n";
  }
  return kFailed;
}
