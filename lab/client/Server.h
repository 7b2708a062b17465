#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <list>
#include <stdexcept>
#include <string>

#include "lab/client/Desk.h"
#include "lab/client/Faults.h"
#include "lab/client/Journal.h"
#include "lab/client/MessageScanner.h"
#include "lab/client/Service.h"

namespace vornlab {

// A socket that cannot be opened. The message says why.
class ServerError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The service on a Unix-domain stream socket, for several connections at a time, on one thread and without
// blocking.
//
// There is no framing, so a message is sent only when the reader has taken the one before.
class Server {
 public:
  struct Options {
    std::string path;              // of the socket
    bool announceVersion = false;  // send the agent's answer to each new connection
  };

  // The service and the journal must outlive the server.
  Server(Service& service, Journal& journal, FaultBook faults, Options options);
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  // Opens the socket with mode 0600. One that nobody listens on is removed first. Throws ServerError.
  void listen();

  // Serves until the descriptor becomes readable; a signalfd, for one. May be called again.
  void run(int stopDescriptor);

  // Sends the agent's answer to each connection, or to the next one when there is none; on the thread that runs
  // the server and while it does not run.
  void announceVersion();

 private:
  using Clock = std::chrono::steady_clock;

  struct Outgoing {
    std::string bytes;
    std::size_t sent = 0;
    Clock::time_point due;
    Delivery::End end = Delivery::End::none;
  };

  struct Connection {
    int descriptor = -1;
    int id = 0;
    MessageScanner scanner;
    std::deque<Outgoing> outgoing;
    std::string glued;                   // held back until the next message
    std::chrono::microseconds pause{0};  // how long to wait before looking again whether the reader took the last
    Clock::time_point lastWrite;
    bool isOver = false;
  };

  void accept();
  void announceVersion(Connection& connection);
  void receive(Connection& connection);
  void take(Connection& connection, const std::string& message);
  void queue(Connection& connection, const Envelope& reply, const std::vector<Fault>& faults);
  void flush(Connection& connection);
  bool isTaken(Connection& connection) const;
  void close(Connection& connection);
  void closeSocket();
  void restart();

  Service& m_service;
  Journal& m_journal;
  Desk m_desk;
  Options m_options;
  int m_socket = -1;
  std::uint64_t m_device = 0;  // of the socket's file, so that only our own is removed
  std::uint64_t m_inode = 0;
  int m_lastId = 0;
  bool m_restartDue = false;
  bool m_versionIsOwed = false;
  std::list<Connection> m_connections;
};

}  // namespace vornlab
