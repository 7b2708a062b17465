#pragma once

#include <string>

#include "lab/shell/watch/WatchEvents.h"

namespace vornlab {

// What a watcher is told, in words for people, each on one line.

// A moment on the laboratory's clock, as "  12.345".
std::string momentInWords(double at);

// "scenario" and the folder of the world.
std::string worldInWords(const WatchWorld& world);
// The client and how much went and came.
std::string stateInWords(const WatchState& state);
// A window without its number and subject.
std::string windowInWords(const WatchWindow& window);
// What is waited for, how long that has lasted at the moment, and the timers that are running.
std::string requestInWords(const WatchRequest& request, double now);
std::string noticeInWords(const WatchNotice& notice);
// The moment, the step, and an envelope's content behind it.
std::string stepInWords(const WatchStep& step);

}  // namespace vornlab
