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

  // Is told each step after it was counted.
  void setListener(Listener listener) { listener_ = std::move(listener); }

  std::size_t sent() const { return sent_; }
  // Replies; what the agent says by itself is none.
  std::size_t received() const { return received_; }
  // Requests that made or changed a meeting at the service.
  std::size_t commits() const { return commits_; }
  // The message of the last alert since forgetTrouble(); "" for none.
  const std::string& alert() const { return alert_; }
  // The code with which the client last refused a request, since forgetTrouble(); "" for none.
  const std::string& refusal() const { return refusal_; }
  void forgetTrouble() {
    alert_.clear();
    refusal_.clear();
  }

 private:
  std::size_t sent_ = 0;
  std::size_t received_ = 0;
  std::size_t commits_ = 0;
  std::string alert_;
  std::string refusal_;
  Listener listener_;
};

}  // namespace vornlab
