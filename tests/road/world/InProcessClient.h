#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "channel/transport/vSocketClientImpl.h"
#include "lab/client/Service.h"
#include "platform/RunLoop.h"

namespace vorn {

// The stand-in client in the place of the socket: what is sent is handled on the run loop, after a delay on its
// clock, and the replies come in as whole messages.
class InProcessClient final : public vSocketClientImpl {
 public:
  // What the client does with a reply before it goes out; absent means that it never goes out.
  using Interference =
      std::function<std::optional<vornlab::Envelope>(const vornlab::Envelope& request, vornlab::Envelope reply)>;

  InProcessClient(RunLoop& runLoop, vornlab::Service& service) : runLoop_(runLoop), service_(service) {}

  void connect() override {}
  void disconnect() override {}
  bool send(const OptionalText& message) override;

  void setInterference(Interference interference) { interference_ = std::move(interference); }
  // The requests so far, in order.
  const std::vector<vornlab::Envelope>& requests() const { return requests_; }
  // "6", "9", "3/1": the action, and the inner operation of a meeting request.
  std::vector<std::string> requestNames() const;
  void forgetRequests() { requests_.clear(); }

 private:
  RunLoop& runLoop_;
  vornlab::Service& service_;
  Interference interference_;
  std::vector<vornlab::Envelope> requests_;
};

}  // namespace vorn
