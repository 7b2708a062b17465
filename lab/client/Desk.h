#pragma once

#include <cstddef>
#include <nlohmann/json.hpp>
#include <vector>

#include "lab/client/Faults.h"
#include "lab/client/Journal.h"
#include "lab/client/Service.h"

namespace vornlab {

// Where requests are taken in, whatever brings them: the service answers, the faults say what befalls each reply,
// and the journal keeps both. The transports do the rest.
class Desk {
 public:
  struct Answer {
    Envelope reply;
    std::vector<Fault> faults;
  };

  // The service and the journal must outlive the desk.
  Desk(Service& service, Journal& journal, FaultBook faults)
      : m_service(service), m_journal(journal), m_faults(std::move(faults)) {}

  // The replies in the order in which they go out. `bytes` is the size of the request as it came; the members tell
  // in the journal by which way the request came and its replies go.
  std::vector<Answer> take(const Envelope& request, std::size_t bytes, const nlohmann::json& way,
                           const nlohmann::json& wayBack);

  // What goes wrong from the next reply on.
  void setFaults(FaultBook faults) { m_faults = std::move(faults); }

 private:
  Service& m_service;
  Journal& m_journal;
  FaultBook m_faults;
};

}  // namespace vornlab
