#include "lab/shell/watch/WatchWords.h"

#include <array>
#include <cstdio>

#include "lab/shell/Words.h"

namespace vornlab {
namespace {

// With one decimal.
std::string briefSeconds(double seconds) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.1f s", seconds);
  return text.data();
}

std::string timerInWords(const WatchTimer& timer, double now) {
  if (timer.repeats) return "again every " + secondsInWords(timer.seconds);
  if (timer.due <= now) return "over after " + secondsInWords(timer.seconds);
  return briefSeconds(timer.due - now) + " of " + secondsInWords(timer.seconds) + " left";
}

}  // namespace

std::string momentInWords(double at) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%8.3f", at);
  return text.data();
}

std::string worldInWords(const WatchWorld& world) {
  return (world.title.empty() ? "" : world.title + "   ") + "world " + (world.folder.empty() ? "-" : world.folder);
}

std::string stateInWords(const WatchState& state) {
  return "client " + (state.client.empty() ? "-" : state.client) + "   sent " + std::to_string(state.sent) +
         "   received " + std::to_string(state.received);
}

std::string windowInWords(const WatchWindow& window) {
  std::string words = "bar " + window.bar;
  if (!window.state.empty()) words += ", " + window.state;
  if (!window.command.empty()) words += ", last " + window.command;
  if (window.isDirty) words += ", changed";
  if (!window.hostAction.empty()) words += ", the host waits: " + window.hostAction;
  if (!window.meeting.empty()) words += ", meeting " + window.meeting;
  return words;
}

std::string requestInWords(const WatchRequest& request, double now) {
  std::string words = request.name + "   for " + briefSeconds(now - request.since);
  for (const WatchTimer& timer : request.timers) words += ", " + timerInWords(timer, now);
  return words;
}

std::string noticeInWords(const WatchNotice& notice) {
  return "\"" + notice.message + "\"" + (notice.answer.empty() ? "" : " -> " + notice.answer);
}

std::string stepInWords(const WatchStep& step) {
  constexpr std::size_t kStepBytes = 9;
  std::string name = step.step;
  if (name.size() < kStepBytes) name.resize(kStepBytes, ' ');
  return momentInWords(step.at) + "  " + name + " " + step.words +
         (step.content.empty() ? "" : "  " + step.content);
}

}  // namespace vornlab
