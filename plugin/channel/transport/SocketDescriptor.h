#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

namespace vorn {

// A local stream socket, closed with its last owner.
//
// The sending thread and the reading thread both own it: a number that one of them closed could be another
// file's by the time the other uses it. write(), flush() and unsent() belong to the sending thread; all else may
// be called from both threads at once.
class SocketDescriptor {
 public:
  // Null when no socket can be made.
  static std::shared_ptr<SocketDescriptor> make();
  explicit SocketDescriptor(int number) : m_number(number) {}
  ~SocketDescriptor();
  SocketDescriptor(const SocketDescriptor&) = delete;
  SocketDescriptor& operator=(const SocketDescriptor&) = delete;

  int number() const { return m_number; }

  // Connects to the listener at the path, of which no more counts than an address holds. Waits while the listener
  // has no room, until shutDown() at the latest.
  bool connectTo(const std::string& path);
  // Waits for bytes and reads some. 0 at the end of the stream, after shutDown() and on every failure.
  std::size_t read(char* buffer, std::size_t size);
  // Writes what the peer takes at once, and keeps the rest for flush(). A peer that is gone takes everything,
  // silently. False, and nothing of it is written, when megabytes are still unread. What is unsent at shutDown()
  // is lost.
  bool write(std::string_view bytes);
  // Writes of the rest what the peer takes now.
  void flush();
  // In bytes.
  std::size_t unsent() const { return m_unsent.size(); }

  // Ends the stream in both directions and wakes whoever waits in it.
  void shutDown();
  // From now on what comes in is to be thrown away, and what is unsent can still be flushed. It is read all the
  // same until shutDown(): a peer that may not write any more would take that for the end of the stream.
  void discardWhatComes() { m_isDiscarding = true; }
  bool isDiscarding() const { return m_isDiscarding; }

 private:
  // How many of the bytes are done with.
  std::size_t sendSome(std::string_view bytes);

  const int m_number;
  std::atomic<bool> m_isShutDown{false};
  std::atomic<bool> m_isDiscarding{false};
  // Held for one attempt to connect, which does not wait.
  std::mutex m_connecting;
  // Of the sending thread.
  std::string m_unsent;
};

}  // namespace vorn
