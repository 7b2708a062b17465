#include "util/MD5.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace Halix {

namespace {

// The integer part of 2^32 times |sin(i + 1)|.
std::array<std::uint32_t, 64> makeSines() {
  std::array<std::uint32_t, 64> sines{};
  for (std::size_t i = 0; i < sines.size(); ++i) {
    sines[i] = static_cast<std::uint32_t>(std::floor(4294967296.0 * std::fabs(std::sin(double(i) + 1))));
  }
  return sines;
}

constexpr int kRotations[4][4] = {{7, 12, 17, 22}, {5, 9, 14, 20}, {4, 11, 16, 23}, {6, 10, 15, 21}};

std::uint32_t littleEndianWord(const unsigned char* bytes) {
  return std::uint32_t{bytes[0]} | std::uint32_t{bytes[1]} << 8 | std::uint32_t{bytes[2]} << 16 |
         std::uint32_t{bytes[3]} << 24;
}

}  // namespace

void MD5::init() {
  m_state = {0x67452301, 0xefcdab89, 0x98badcfe, 0x10325476};
  m_pendingSize = 0;
  m_messageSize = 0;
  m_ended = false;
}

void MD5::feed(std::string_view bytes) {
  if (!m_ended) addBytes(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
}

void MD5::feed(const unsigned char* bytes, std::int32_t length) {
  if (!m_ended && bytes && length > 0) addBytes(bytes, static_cast<std::size_t>(length));
}

void MD5::addBytes(const unsigned char* bytes, std::size_t length) {
  m_messageSize += length;
  while (length > 0) {
    if (m_pendingSize == 0 && length >= kBlockSize) {
      addBlock(bytes);
      bytes += kBlockSize;
      length -= kBlockSize;
      continue;
    }
    const std::size_t taken = std::min(length, kBlockSize - m_pendingSize);
    std::copy_n(bytes, taken, m_pending.begin() + static_cast<std::ptrdiff_t>(m_pendingSize));
    m_pendingSize += taken;
    bytes += taken;
    length -= taken;
    if (m_pendingSize == kBlockSize) {
      addBlock(m_pending.data());
      m_pendingSize = 0;
    }
  }
}

void MD5::finalize() {
  if (m_ended) return;
  const std::uint64_t bits = m_messageSize * 8;
  constexpr unsigned char firstPadding = 0x80;
  constexpr unsigned char padding = 0;
  addBytes(&firstPadding, 1);
  while (m_pendingSize != kBlockSize - 8) addBytes(&padding, 1);
  std::array<unsigned char, 8> size{};
  for (std::size_t i = 0; i < size.size(); ++i) size[i] = static_cast<unsigned char>(bits >> (8 * i));
  addBytes(size.data(), size.size());
  m_ended = true;
}

std::array<unsigned char, 16> MD5::binary() {
  finalize();
  std::array<unsigned char, 16> digest{};
  for (std::size_t i = 0; i < digest.size(); ++i) {
    digest[i] = static_cast<unsigned char>(m_state[i / 4] >> (8 * (i % 4)));
  }
  return digest;
}

std::string MD5::hex() {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text;
  for (const unsigned char byte : binary()) {
    text += digits[byte >> 4];
    text += digits[byte & 0x0F];
  }
  return text;
}

void MD5::addBlock(const unsigned char* block) {
  static const std::array<std::uint32_t, 64> sines = makeSines();
  auto [a, b, c, d] = m_state;
  for (std::size_t i = 0; i < 64; ++i) {
    const std::size_t round = i / 16;
    std::uint32_t mixed = 0;
    std::size_t word = 0;
    switch (round) {
      case 0: mixed = (b & c) | (~b & d), word = i; break;
      case 1: mixed = (d & b) | (~d & c), word = (5 * i + 1) % 16; break;
      case 2: mixed = b ^ c ^ d, word = (3 * i + 5) % 16; break;
      default: mixed = c ^ (b | ~d), word = (7 * i) % 16; break;
    }
    const std::uint32_t sum = a + mixed + sines[i] + littleEndianWord(block + 4 * word);
    a = d;
    d = c;
    c = b;
    b += std::rotl(sum, kRotations[round][i % 4]);
  }
  m_state[0] += a;
  m_state[1] += b;
  m_state[2] += c;
  m_state[3] += d;
}

}  // namespace Halix
