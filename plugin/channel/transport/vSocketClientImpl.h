#pragma once

#include <memory>
#include <vector>

#include "util/Value.h"

namespace vorn {

class RunLoop;
class SocketDescriptor;
class SocketReader;

// The connection to the client over the local socket "s.vop" in the home folder.
//
// The states are these and no others: a failed connection attempt and a lost peer are not noticed, nothing is
// tried again by itself, and the channel stays silent until disconnect().
//
//   fd() is   after                                   send() then
//   0         the start, or disconnect()              starts connect(), drops the message, false
//   -1        no socket could be made                 the same
//   above 0   the path or the connection failed       writes into nothing, true
//   above 0   connected                               writes, true; false while megabytes are unread
//   above 0   the peer closed                         writes into nothing, true
//
// All operations belong to the main thread; one thread for each connection reads. The operations are virtual so
// that a client in the same process can take the place of the socket: Registry::install<vSocketClientImpl>().
class vSocketClientImpl {
 public:
  static vSocketClientImpl& shareInstance();

  vSocketClientImpl();
  // Ends the connection and waits for its readers, which wake up at once.
  virtual ~vSocketClientImpl();
  vSocketClientImpl(const vSocketClientImpl&) = delete;
  vSocketClientImpl& operator=(const vSocketClientImpl&) = delete;

  // Opens the connection on a thread of its own, which then reads until the stream ends, and returns at once.
  // That thread does nothing when a descriptor is held by then, connected or not.
  virtual void connect();
  // Closes the descriptor, and what is still to be written goes on to the client behind it.
  virtual void disconnect();
  // Writes a message as UTF-8, without waiting for the client to read it. False when it was dropped: without a
  // descriptor, when it is absent or empty, when it has kIPCSendBufferSize bytes or more, and while the client has
  // megabytes left to read.
  virtual bool send(const OptionalText& message);

  int fd() const;

  // Takes a message that has come in: parses it, and posts its two members under one of the two notification
  // names of the process. What is no envelope is ignored.
  void handleSocketGetRequestDone_OLPlugin(const OptionalText& message);

 private:
  class Connection;

  void reapReaders();
  // Goes on with the rest of what was sent after a pause in seconds, as long as some is left: or the client could
  // read neither that message nor the next one.
  void flushLater(const std::shared_ptr<SocketDescriptor>& descriptor, double pause);
  // Closes a descriptor that was given up when nothing has been read of it for long.
  static void endLater(const std::shared_ptr<SocketDescriptor>& descriptor);

  // Shared with the readers: the descriptor of the moment.
  std::shared_ptr<Connection> m_connection;
  // What a reader posts looks here before it touches this object.
  std::shared_ptr<vSocketClientImpl*> m_self;
  std::vector<std::unique_ptr<SocketReader>> m_readers;
};

}  // namespace vorn
