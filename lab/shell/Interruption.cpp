#include "lab/shell/Interruption.h"

#include <csignal>

namespace vornlab {
namespace {

volatile std::sig_atomic_t interrupted = 0;

}  // namespace

void Interruption::install() {
  struct sigaction action = {};
  action.sa_handler = [](int) { interrupted = 1; };
  sigaction(SIGINT, &action, nullptr);
  sigaction(SIGTERM, &action, nullptr);
}

bool Interruption::requested() { return interrupted != 0; }

}  // namespace vornlab
