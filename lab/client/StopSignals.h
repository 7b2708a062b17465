#pragma once

#include <sys/epoll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>

namespace vornlab {

// The descriptor that becomes readable when the program is to end: by SIGTERM, SIGINT or SIGHUP and, when it was
// started so, with whoever started it, whose end closes the program's standard input.
inline int stopDescriptor(bool endsWithInput) {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) sigaddset(&signals, signal);
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  const int bySignal = signalfd(-1, &signals, SFD_CLOEXEC);
  if (!endsWithInput) return bySignal;
  const int either = epoll_create1(EPOLL_CLOEXEC);
  for (const int each : {bySignal, STDIN_FILENO}) {
    epoll_event event{};
    event.events = EPOLLIN;
    epoll_ctl(either, EPOLL_CTL_ADD, each, &event);
  }
  return either;
}

}  // namespace vornlab
