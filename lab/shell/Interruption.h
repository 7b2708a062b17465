#pragma once

namespace vornlab {

// Turns SIGINT and SIGTERM into a question that waiting code asks, so that the world is cleared away and the
// client is stopped before the program ends.
class Interruption {
 public:
  // Takes the two signals over for the rest of the process's life.
  static void install();
  static bool requested();
};

}  // namespace vornlab
