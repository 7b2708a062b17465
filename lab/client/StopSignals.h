#pragma once

#include <sys/signalfd.h>

#include <csignal>

namespace vornlab {

// The descriptor that becomes readable when the program is to end, by SIGTERM or SIGINT.
inline int stopDescriptor() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGTERM);
  sigaddset(&signals, SIGINT);
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  return signalfd(-1, &signals, SFD_CLOEXEC);
}

}  // namespace vornlab
