#include "lab/client/Base64.h"

#include <cstdint>

namespace vornlab {

std::string base64(std::string_view bytes) {
  static constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const auto at = [&](std::size_t k) -> std::uint32_t {
      return i + k < bytes.size() ? static_cast<unsigned char>(bytes[i + k]) : 0U;
    };
    const std::uint32_t group = at(0) << 16U | at(1) << 8U | at(2);
    text += kAlphabet[group >> 18U & 63U];
    text += kAlphabet[group >> 12U & 63U];
    text += i + 1 < bytes.size() ? kAlphabet[group >> 6U & 63U] : '=';
    text += i + 2 < bytes.size() ? kAlphabet[group & 63U] : '=';
  }
  return text;
}

}  // namespace vornlab
