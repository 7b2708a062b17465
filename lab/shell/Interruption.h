#pragma once

namespace vornlab {

// Turns SIGINT, SIGTERM, SIGHUP and SIGPIPE into a question that waiting code asks, so that the world is cleared
// away and the client is stopped before the program ends. A file that grows over the limit that is set for it is
// an error for its writer, and no end.
class Interruption {
 public:
  // Takes the signals over for the rest of the process's life.
  static void install();
  static bool requested();
  // Throws Interrupted when it is requested.
  static void check();
};

}  // namespace vornlab
