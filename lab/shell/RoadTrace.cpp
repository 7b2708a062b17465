#include "lab/shell/RoadTrace.h"

#include <utility>

namespace vornlab {
namespace {

// Most meeting requests share one number; the operation stands at the head of the content.
bool isCommit(const vorn::Value& envelope) {
  const std::string& content = envelope["content"].text();
  return envelope["action"].integerValue() == 3 && (content.starts_with("1;") || content.starts_with("2;"));
}

bool startsMeeting(const vorn::Value& envelope) { return envelope["action"].integerValue() == 2; }

// The agent's word about the client's version, which answers no request.
bool isFromAgent(const vorn::Value& envelope) { return envelope["action"].integerValue() == 200; }

}  // namespace

void RoadTrace::noteEnvelope(std::string_view step, vorn::Value facts, const vorn::CoveredLater& content) {
  if (m_listener || content.head() == "0;") {
    Trace::noteEnvelope(step, std::move(facts), content);
  } else {
    note(step, facts);
  }
}

void RoadTrace::note(std::string_view step, const vorn::Value& facts) {
  if (step == "sent") {
    ++m_sent;
    if (isCommit(facts)) ++m_commits;
    if (startsMeeting(facts)) ++m_withoutReply;
  } else if (step == "received") {
    if (!isFromAgent(facts)) ++m_received;
    constexpr std::string_view kError = "0;Error ";
    if (const std::string& content = facts["content"].text(); content.starts_with(kError)) {
      m_refusal = content.substr(kError.size());
    }
  } else if (step == "alert") {
    m_alert = facts["message"].text();
  }
  if (m_listener) m_listener(step, facts);
}

}  // namespace vornlab
