#include "lab/shell/RoadPrinter.h"

#include <algorithm>
#include <cstdio>
#include <map>

#include "lab/shell/Masking.h"
#include "lab/shell/Words.h"

namespace vornlab {
namespace {

using vorn::Value;

using Words = std::map<std::int64_t, std::string_view>;

const Words kOperations{{1, "save"},           {2, "save and close"},       {3, "send"},
                        {4, "save and close"}, {5, "edit on the calendar"}, {6, "save after an automatic update"}};
const Words kDataStates{{1, "nothing to tell the service, the host goes on"},
                        {2, "a meeting was added, the host goes on"},
                        {3, "the meeting may have changed, the host waits"},
                        {4, "the meeting was taken off, the host waits"}};
const Words kRequests{{2, "start a meeting"},
                      {6, "user profile"},
                      {9, "audio conferences"},
                      {11, "people scheduled for"},
                      {200, "version"}};
const Words kMeetingOperations{{1, "schedule a meeting"},
                               {2, "update a meeting"},
                               {3, "delete a meeting"},
                               {4, "get a meeting"},
                               {10, "get a meeting by its appointment"}};
constexpr std::int64_t kMeetings = 3;

std::string wordFor(const Words& words, std::int64_t number) {
  const auto found = words.find(number);
  return found == words.end() ? std::to_string(number) : std::string(found->second);
}

// Most meeting requests share one action, with the operation at the head of the content.
std::string requestName(const Value& facts) {
  const std::int64_t action = facts["action"].integerValue();
  if (action == kMeetings) return wordFor(kMeetingOperations, facts["content"].integerValue());
  return wordFor(kRequests, action);
}

// The reply to a meeting request carries the operation as its action.
std::string replyName(const Value& facts) {
  const std::int64_t action = facts["action"].integerValue();
  return wordFor(kMeetingOperations.contains(action) ? kMeetingOperations : kRequests, action);
}

// A command or a state, as "5 VnCmdUpdate".
std::string numberAndName(const Value& number, const Value& name) {
  return number.stringValue() + " " + name.stringValue();
}

// The text on one line, with each run of blanks as one.
std::string closedUp(std::string_view text) {
  std::string result;
  for (const char byte : text) {
    const bool isBlank = static_cast<unsigned char>(byte) <= ' ';
    if (!isBlank) {
      result += byte;
    } else if (!result.empty() && result.back() != ' ') {
      result += ' ';
    }
  }
  return result;
}

}  // namespace

void RoadPrinter::say(std::string_view who, const std::string& what) const {
  const std::chrono::duration<double> since = std::chrono::steady_clock::now() - m_began;
  std::printf("  %6.3f  %-9s %s\n", since.count(), std::string(who).c_str(), what.c_str());
}

void RoadPrinter::print(std::string_view step, const Value& facts) const {
  if (step == "hook") {
    say("hook", wordFor(kOperations, facts["action"].integerValue()) + ": " +
                    wordFor(kDataStates, facts["dataStatus"].integerValue()));
  } else if (step == "command" || step == "finished") {
    say(step, numberAndName(facts["number"], facts["name"]));
  } else if (step == "state") {
    say("state",
        numberAndName(facts["from"], facts["fromName"]) + " -> " + numberAndName(facts["to"], facts["toName"]));
  } else if (step == "sent") {
    printEnvelope("sent", requestName(facts), facts);
  } else if (step == "received") {
    printEnvelope("received", replyName(facts), facts);
  } else {
    std::string told;
    for (const auto& [name, fact] : facts.entries())
      told += (told.empty() ? "" : ", ") + name + " " + fact.stringValue();
    say(step, masked(told));
  }
}

void RoadPrinter::printEnvelope(std::string_view direction, const std::string& what, const Value& facts) const {
  say(direction,
      "action " + facts["action"].stringValue() + ", " + facts["bytes"].stringValue() + " bytes: " + what);
  constexpr std::size_t kColumns = 96;
  constexpr std::size_t kShown = 2 * kColumns;
  const std::string content = masked(closedUp(facts["content"].text()));
  std::string_view rest = content;
  const bool isCut = m_envelopes == Envelopes::cut && rest.size() > kShown;
  if (isCut) rest = beginningOf(rest, kShown);
  while (!rest.empty()) {
    const std::string_view line = beginningOf(rest, kColumns);
    rest.remove_prefix(line.size());
    std::printf("%20s%s%s\n", "", std::string(line).c_str(), isCut && rest.empty() ? " ..." : "");
  }
}

}  // namespace vornlab
