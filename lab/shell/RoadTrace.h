#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "platform/Trace.h"
#include "util/Value.h"

namespace vornlab {

// Follows the plug-in's steps: counts what went to the client and came back, and keeps the last alert.
class RoadTrace final : public vorn::Trace {
 public:
  using Listener = std::function<void(std::string_view step, const vorn::Value& facts)>;

  void note(std::string_view step, const vorn::Value& facts) override;
  // What is counted stands at the head; only a listener and the code of a refusal need more.
  void noteEnvelope(std::string_view step, vorn::Value facts, const vorn::CoveredLater& content) override;

  // Is told each step after it was counted.
  void setListener(Listener listener) { m_listener = std::move(listener); }

  std::size_t sent() const { return m_sent; }
  // Those of them that have no reply, which start a meeting.
  std::size_t withoutReply() const { return m_withoutReply; }
  // Replies; what the agent says by itself is none.
  std::size_t received() const { return m_received; }
  // Requests that made or changed a meeting at the service.
  std::size_t commits() const { return m_commits; }
  // The message of the last alert since forgetTrouble(); "" for none.
  const std::string& alert() const { return m_alert; }
  // The code with which the client last refused a request, since forgetTrouble(); "" for none.
  const std::string& refusal() const { return m_refusal; }
  void forgetTrouble() {
    m_alert.clear();
    m_refusal.clear();
  }

 private:
  std::size_t m_sent = 0;
  std::size_t m_withoutReply = 0;
  std::size_t m_received = 0;
  std::size_t m_commits = 0;
  std::string m_alert;
  std::string m_refusal;
  Listener m_listener;
};

}  // namespace vornlab
