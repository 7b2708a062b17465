#include <poll.h>
#include <sys/epoll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cstdint>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "lab/client/NotificationTransport.h"
#include "lab/client/Server.h"
#include "lab/client/StopSignals.h"
#include "lab/words/OptionChecks.h"
#include "lab/words/ParserWords.h"
#include "secrets/SecretMask.h"

namespace {

constexpr int kFailed = 1;
constexpr int kBadUsage = 2;

enum class Transport { socket, notifications, both };

struct Arguments {
  std::string home;
  std::string database;
  std::string account;
  std::string journal;
  std::string faults;
  std::string version = VORNCLIENT_VERSION;
  std::uint64_t seed = 0;
  bool announceVersion = false;
  bool withoutAgent = false;
  bool endsWithInput = false;
  Transport transport = Transport::socket;
};

void complain(const std::string& why) { std::cerr << "vornclient: " << vorn::SecretMask::covered(why) << "\n"; }

std::optional<Transport> transportNamed(std::string_view name) {
  if (name == "socket") return Transport::socket;
  if (name == "notifications") return Transport::notifications;
  if (name == "both") return Transport::both;
  return std::nullopt;
}

std::string complaintOfTransport(const std::string& name) {
  return transportNamed(name) ? "" : "there is no way \"" + name + "\"; there are socket, notifications and both";
}

// "5.12.3" of "5.12.3.9654".
std::string shortVersion(const std::string& version) {
  std::size_t end = 0;
  for (int parts = 0; parts < 3 && end != std::string::npos; ++parts)
    end = version.find('.', parts == 0 ? 0 : end + 1);
  return version.substr(0, end);
}

bool isReadable(int descriptor, int milliseconds) {
  pollfd waiting{descriptor, POLLIN, 0};
  return ::poll(&waiting, 1, milliseconds) > 0;
}

void add(int waiting, int descriptor) {
  epoll_event event{};
  event.events = EPOLLIN;
  ::epoll_ctl(waiting, EPOLL_CTL_ADD, descriptor, &event);
}

// Serves the notifications and, when there is one, the socket, on one thread.
void runBeside(vornlab::Server* server, vornlab::NotificationTransport& notifications, int stop) {
  const int either = ::epoll_create1(EPOLL_CLOEXEC);
  add(either, stop);
  add(either, notifications.descriptor());
  while (!isReadable(stop, 0)) {
    if (server != nullptr) {
      server->run(either);
    } else {
      isReadable(either, -1);
    }
    notifications.serve();
  }
  ::close(either);
}

int serve(const Arguments& arguments) {
  vornlab::Account account =
      arguments.account.empty() ? vornlab::Account::plain() : vornlab::Account::fromFile(arguments.account);
  vornlab::FaultBook faults =
      arguments.faults.empty() ? vornlab::FaultBook() : vornlab::FaultBook::fromFile(arguments.faults);

  const int stop = vornlab::stopDescriptor(arguments.endsWithInput);
  vornlab::Journal journal(arguments.journal);
  vornlab::Service service(std::move(account), {arguments.database, arguments.version, arguments.seed});
  std::unique_ptr<vornlab::Server> server;
  std::unique_ptr<vornlab::NotificationTransport> notifications;
  std::string ready = "vornclient " + shortVersion(arguments.version);
  if (arguments.transport != Transport::notifications) {
    const std::string path = arguments.home + "/s.vop";
    server = std::make_unique<vornlab::Server>(service, journal, faults,
                                               vornlab::Server::Options{path, arguments.announceVersion});
    server->listen();
    ready += " listens on " + path;
  }
  if (arguments.transport != Transport::socket) {
    notifications =
        std::make_unique<vornlab::NotificationTransport>(service, journal, faults, !arguments.withoutAgent);
    // Who asks over the bus while it talks over the socket expects the answer there.
    if (server) notifications->onVersionQuestion([&] { server->announceVersion(); });
    notifications->connect();
    ready += server ? " and observes notifications" : " observes notifications";
  }
  std::cout << ready << std::endl;
  if (notifications) {
    runBeside(server.get(), *notifications, stop);
  } else {
    server->run(stop);
  }
  ::close(stop);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  Arguments arguments;
  CLI::App app(
      "The stand-in client: answers a scheduling plug-in over a socket or the session bus, with meetings in a "
      "database.",
      "vornclient");
  app.add_option("--home", arguments.home, "The folder in which the socket s.vop is made")
      ->required()
      ->check(vornlab::complaintOfFolder, "FOLDER");
  app.add_option("--db", arguments.database, "The file with the meetings; made when it is missing")->required();
  app.add_option("--account", arguments.account, "The account that is signed in, a file as in accounts/")
      ->check(vornlab::complaintOfFile, "FILE");
  app.add_option("--faults", arguments.faults, "What goes wrong, and with which reply")
      ->check(vornlab::complaintOfFile, "FILE");
  app.add_option("--journal", arguments.journal, "A file to which each event is appended, one JSON object a line");
  app.add_flag("--ends-with-input", arguments.endsWithInput, "Ends when standard input does");
  app.add_option("--version", arguments.version, "The version that is announced")->capture_default_str();
  app.add_option("--seed", arguments.seed, "Makes the meeting numbers the same each time");
  app.add_flag("--announce-version", arguments.announceVersion, "Send the version to each new connection");
  app.add_flag("--without-agent", arguments.withoutAgent,
               "Leave what is said to the agent to a program of its own");
  app.add_option_function<std::string>(
         "--transport", [&](const std::string& name) { arguments.transport = *transportNamed(name); },
         "How it is reached: socket, which is the usual way, notifications on the session bus, or both")
      ->check(complaintOfTransport, "NAME");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return app.exit(error);
    complain(vornlab::inOwnWords(app, error));
    return kBadUsage;
  }

  // The database and the journal are nobody else's business.
  ::umask(0077);
  try {
    return serve(arguments);
  } catch (const vornlab::AccountError& error) {
    complain(error.what());
    return kBadUsage;
  } catch (const vornlab::FaultError& error) {
    complain(error.what());
    return kBadUsage;
  } catch (const vornlab::StoreError& error) {
    complain(arguments.database + ": " + error.what());
  } catch (const std::exception& error) {
    complain(error.what());
  }
  return kFailed;
}
