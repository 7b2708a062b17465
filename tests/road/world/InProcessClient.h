#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
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

  static constexpr double kAnswerSeconds = 0.05;

  // What befalls one request.
  struct Fault {
    // Answered with these words in place of the service's; the service never hears of the request.
    std::optional<std::string> refusal;
    // The service never hears of the request, and no answer comes.
    bool isLost = false;
    // What becomes of the content of the service's answer.
    std::function<std::string(std::string content)> spoil;
    // How often the answer goes out; 0 for never.
    int times = 1;
    double answerSeconds = kAnswerSeconds;
    // No answer goes out from here on, to no request.
    bool goesSilent = false;
    // Happens while the request is on its way.
    std::function<void()> meanwhile;
  };

  InProcessClient(RunLoop& runLoop, vornlab::Service& service) : m_runLoop(runLoop), m_service(service) {}

  void connect() override {}
  void disconnect() override {}
  bool send(const OptionalText& message) override;

  void setInterference(Interference interference) { m_interference = std::move(interference); }
  // The n-th request from now on, counted from 1, suffers the fault.
  void failAt(std::size_t request, Fault fault) { m_faults[m_requests.size() + request] = std::move(fault); }
  // All is well again.
  void heal();

  // The requests so far, in order.
  const std::vector<vornlab::Envelope>& requests() const { return m_requests; }
  // "6", "9", "3/1": the action, and the inner operation of a meeting request.
  std::vector<std::string> requestNames() const;
  // Faults that are still to come are forgotten with them.
  void forgetRequests();

 private:
  void answer(const vornlab::Envelope& request, const vornlab::Envelope& reply, const Fault& fault);

  RunLoop& m_runLoop;
  vornlab::Service& m_service;
  Interference m_interference;
  std::map<std::size_t, Fault> m_faults;
  bool m_isSilent = false;
  std::vector<vornlab::Envelope> m_requests;
};

}  // namespace vorn
