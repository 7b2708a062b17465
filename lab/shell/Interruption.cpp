#include "lab/shell/Interruption.h"

#include <csignal>

#include "lab/shell/LabError.h"

namespace vornlab {
namespace {

volatile std::sig_atomic_t interrupted = 0;

}  // namespace

void Interruption::install() {
  struct sigaction action = {};
  action.sa_handler = [](int) { interrupted = 1; };
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) sigaction(signal, &action, nullptr);
  // A file that becomes too large is an error of its writer, which says so and takes the rest back.
  std::signal(SIGXFSZ, SIG_IGN);
}

bool Interruption::requested() { return interrupted != 0; }

void Interruption::check() {
  if (requested()) throw Interrupted("interrupted");
}

}  // namespace vornlab
