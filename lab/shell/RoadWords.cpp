#include "lab/shell/RoadWords.h"

#include <map>

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

std::string wordFor(const Words& words, std::int64_t number) {
  const auto found = words.find(number);
  return found == words.end() ? std::to_string(number) : std::string(found->second);
}

// A command or a state, as "5 VnCmdUpdate".
std::string numberAndName(const Value& number, const Value& name) {
  return number.stringValue() + " " + name.stringValue();
}

std::string envelopeWords(const Value& facts, const std::string& what) {
  return "action " + facts["action"].stringValue() + ", " + facts["bytes"].stringValue() + " bytes: " + what;
}

std::string allFacts(const Value& facts) {
  std::string told;
  for (const auto& [name, fact] : facts.entries())
    told += (told.empty() ? "" : ", ") + name + " " + fact.stringValue();
  return told;
}

}  // namespace

std::string wordsOfStep(std::string_view step, const Value& facts) {
  if (step == "hook") {
    return operationName(facts["action"].integerValue()) + ": " +
           wordFor(kDataStates, facts["dataStatus"].integerValue());
  }
  if (step == "command" || step == "finished") return numberAndName(facts["number"], facts["name"]);
  if (step == "state") {
    return numberAndName(facts["from"], facts["fromName"]) + " -> " + numberAndName(facts["to"], facts["toName"]);
  }
  if (step == "sent" || step == "dropped") return envelopeWords(facts, requestName(facts));
  if (step == "received") return envelopeWords(facts, replyName(facts));
  return allFacts(facts);
}

// Most meeting requests share one action, with the operation at the head of the content.
std::string requestName(const Value& facts) {
  const std::int64_t action = facts["action"].integerValue();
  if (action == kMeetingRequests) return wordFor(kMeetingOperations, facts["content"].integerValue());
  return wordFor(kRequests, action);
}

// The reply to a meeting request carries the operation as its action.
std::string replyName(const Value& facts) {
  const std::int64_t action = facts["action"].integerValue();
  return wordFor(kMeetingOperations.contains(action) ? kMeetingOperations : kRequests, action);
}

std::string operationName(std::int64_t number) { return wordFor(kOperations, number); }

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

}  // namespace vornlab
