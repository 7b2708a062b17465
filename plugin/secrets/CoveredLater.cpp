#include "secrets/CoveredLater.h"

#include <algorithm>

#include "secrets/SecretMask.h"

namespace vorn {

// Longer numbers may be somebody's, and say nothing about a request.
std::string CoveredLater::head() const {
  constexpr std::size_t kMostDigits = 3;
  const std::size_t digits = std::min(m_text.find_first_not_of("0123456789"), m_text.size());
  return digits > 0 && digits <= kMostDigits && m_text[digits] == ';' ? m_text.substr(0, digits + 1) : "";
}

std::string CoveredLater::covered() const { return SecretMask::covered(m_text); }

std::string CoveredLater::coveredAndCut(std::size_t mostBytes) const {
  return SecretMask::coveredAndCut(m_text, mostBytes);
}

}  // namespace vorn
