#include "util/EncodeUtils.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "util/Utf16.h"

namespace vorn {

namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr char kPadding = '=';
constexpr std::size_t kGroup = 4;

// What a character at each of the four places of a group adds to the group's 24 bits. Everything outside the
// alphabet sets a bit above them, so that one test tells of all four.
constexpr std::uint32_t kOutside = 1U << 31;
using Values = std::array<std::array<std::uint32_t, 256>, kGroup>;

constexpr Values makeValues() {
  Values values{};
  for (std::size_t place = 0; place < kGroup; ++place) {
    values[place].fill(kOutside);
    for (std::uint32_t i = 0; i < kAlphabet.size(); ++i) {
      values[place][static_cast<unsigned char>(kAlphabet[i])] = i << (6 * (kGroup - 1 - place));
    }
  }
  return values;
}

constexpr Values kValues = makeValues();

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

std::string encoded(const std::string& data) {
  std::string text;
  text.reserve((data.size() + 2) / 3 * 4);
  for (std::size_t at = 0; at < data.size(); at += 3) {
    const std::size_t count = std::min<std::size_t>(3, data.size() - at);
    std::uint32_t group = 0;
    for (std::size_t i = 0; i < 3; ++i) {
      group = (group << 8) | (i < count ? static_cast<unsigned char>(data[at + i]) : 0U);
    }
    for (std::size_t i = 0; i < 4; ++i) {
      text += i <= count ? kAlphabet[(group >> (18 - 6 * i)) & 0x3F] : kPadding;
    }
  }
  return text;
}

// Takes whole groups as long as nothing stands between their characters, and single characters elsewhere.
class Decoder {
 public:
  explicit Decoder(std::string_view text) : m_rest(text), m_data(text.size() / kGroup * 3 + 3, '\0') {}

  OptionalText run() {
    while (!m_rest.empty()) {
      if (m_characters == 0 && m_padding == 0) takeGroups();
      if (!m_rest.empty() && !takeCharacter()) return std::nullopt;
    }
    if (!takeEnd()) return std::nullopt;
    m_data.resize(m_size);
    return std::move(m_data);
  }

 private:
  void takeGroups() {
    const auto* in = reinterpret_cast<const unsigned char*>(m_rest.data());
    const auto* const end = in + m_rest.size();
    char* out = m_data.data() + m_size;
    for (; end - in >= static_cast<std::ptrdiff_t>(kGroup); in += kGroup, out += 3) {
      const std::uint32_t bits = kValues[0][in[0]] | kValues[1][in[1]] | kValues[2][in[2]] | kValues[3][in[3]];
      if (bits & kOutside) break;
      write(bits, 3, out);
    }
    m_size = static_cast<std::size_t>(out - m_data.data());
    m_rest.remove_prefix(m_rest.size() - static_cast<std::size_t>(end - in));
  }

  // False for a character that has no place here.
  bool takeCharacter() {
    const char c = m_rest.front();
    m_rest.remove_prefix(1);
    if (isBlank(c)) return true;
    if (c == kPadding) {
      ++m_padding;
      return true;
    }
    const std::uint32_t bits = kValues[m_characters][static_cast<unsigned char>(c)];
    if (bits == kOutside || m_padding > 0) return false;
    m_bits |= bits;
    if (++m_characters == kGroup) {
      add(3);
      m_bits = 0;
      m_characters = 0;
    }
    return true;
  }

  bool takeEnd() {
    if (m_characters == 1) return false;
    if (m_padding > 0 && (m_characters == 0 || m_characters + m_padding != kGroup)) return false;
    if (m_characters > 0) add(m_characters - 1);
    return true;
  }

  void add(std::size_t bytes) {
    write(m_bits, bytes, m_data.data() + m_size);
    m_size += bytes;
  }

  static void write(std::uint32_t bits, std::size_t bytes, char* out) {
    for (std::size_t i = 0; i < bytes; ++i) out[i] = static_cast<char>(bits >> (16 - 8 * i));
  }

  std::string_view m_rest;
  std::string m_data;
  std::size_t m_size = 0;
  // The group that is not whole yet.
  std::uint32_t m_bits = 0;
  std::size_t m_characters = 0;
  std::size_t m_padding = 0;
};

OptionalText decoded(const std::string& text) { return Decoder(text).run(); }

}  // namespace

OptionalText EncodeUtils::base64Encode(const OptionalText& data) { return base64helper(data, encoded); }

OptionalText EncodeUtils::base64DecodeToData(const OptionalText& text) { return base64helper(text, decoded); }

OptionalText EncodeUtils::base64Decode(const OptionalText& text) {
  OptionalText data = base64DecodeToData(text);
  if (data && !isValidUtf8(*data)) data.reset();
  return data;
}

OptionalText EncodeUtils::base64helper(const OptionalText& data, const Transform& transform) {
  if (!data || !transform) return std::nullopt;
  return transform(*data);
}

}  // namespace vorn
