#include "util/EncodeUtils.h"

#include <array>
#include <cstdint>
#include <string_view>

#include "util/Utf16.h"

namespace vorn {

namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr char kPadding = '=';
constexpr std::int8_t kOutside = -1;

constexpr std::array<std::int8_t, 256> makeValues() {
  std::array<std::int8_t, 256> values{};
  values.fill(kOutside);
  for (std::size_t i = 0; i < kAlphabet.size(); ++i) {
    values[static_cast<unsigned char>(kAlphabet[i])] = static_cast<std::int8_t>(i);
  }
  return values;
}

constexpr std::array<std::int8_t, 256> kValues = makeValues();

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

OptionalText decoded(const std::string& text) {
  std::string data;
  data.reserve(text.size() / 4 * 3 + 2);
  std::uint32_t group = 0;
  std::size_t characters = 0;
  std::size_t padding = 0;
  for (const char c : text) {
    if (isBlank(c)) continue;
    if (c == kPadding) {
      ++padding;
      continue;
    }
    const std::int8_t value = kValues[static_cast<unsigned char>(c)];
    if (value == kOutside || padding > 0) return std::nullopt;
    group = (group << 6) | static_cast<std::uint32_t>(value);
    if (++characters % 4 == 0) {
      for (const int shift : {16, 8, 0}) data += static_cast<char>((group >> shift) & 0xFF);
      group = 0;
    }
  }
  const std::size_t left = characters % 4;
  const bool paddingFits = padding == 0 || (left > 0 && left + padding == 4);
  if (left == 1 || !paddingFits) return std::nullopt;
  group <<= 6 * (4 - left);
  if (left >= 2) data += static_cast<char>((group >> 16) & 0xFF);
  if (left == 3) data += static_cast<char>((group >> 8) & 0xFF);
  return data;
}

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
