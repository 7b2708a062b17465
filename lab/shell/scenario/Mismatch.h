#pragma once

#include <exception>
#include <string>
#include <utility>

namespace vornlab {

// A line of a scenario that does not come true: what was expected, and what there was.
class Mismatch : public std::exception {
 public:
  Mismatch(std::string expected, std::string found) : expected(std::move(expected)), found(std::move(found)) {}
  const char* what() const noexcept override { return expected.c_str(); }

  std::string expected;
  std::string found;
};

}  // namespace vornlab
