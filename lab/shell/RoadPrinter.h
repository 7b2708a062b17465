#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "util/Value.h"

namespace vornlab {

// Prints the steps of the road in words, one line each, with the time since the printer was made. Secrets are
// covered.
class RoadPrinter {
 public:
  enum class Envelopes { cut, whole };

  explicit RoadPrinter(Envelopes envelopes) : m_envelopes(envelopes) {}

  void print(std::string_view step, const vorn::Value& facts) const;
  // A line of what happens outside the plug-in, such as a click.
  void say(std::string_view who, const std::string& what) const;

 private:
  void printContent(const std::string& content) const;

  Envelopes m_envelopes;
  std::chrono::steady_clock::time_point m_began = std::chrono::steady_clock::now();
};

}  // namespace vornlab
