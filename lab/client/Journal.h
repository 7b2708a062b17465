#pragma once

#include <chrono>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "lab/client/Envelope.h"

namespace vornlab {

// A content with secrets covered, and with base64 and long texts given by their sizes. What is left is short, and
// safe to show.
std::string coveredRequest(const Envelope& request);
std::string coveredReply(const Envelope& reply);

// Appends one JSON object a line to a file, written at once, so that another process can follow it.
class Journal {
 public:
  // An empty path keeps no journal. Throws std::runtime_error when the file cannot be opened.
  explicit Journal(const std::string& path);
  ~Journal();
  Journal(const Journal&) = delete;
  Journal& operator=(const Journal&) = delete;

  bool isKept() const { return m_file >= 0; }

  // Covers secrets in the members and adds "event" and "seconds" (since the start). Failures to write are silent.
  void note(std::string_view event, nlohmann::json members);

 private:
  int m_file = -1;
  std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

}  // namespace vornlab
