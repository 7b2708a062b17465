#include "lab/ics/PropertyText.h"

#include <unicode/ucnv.h>
#include <unicode/unistr.h>

#include <cctype>
#include <charconv>
#include <cstdint>
#include <memory>

#include "lab/ics/FileEncoding.h"
#include "util/EncodeUtils.h"
#include "util/Text.h"

namespace vornlab {

namespace {

constexpr std::string_view kHtmlData = "data:text/html";

// Replaces each sign with two hexadecimal digits behind it by the byte that they mean.
std::string decodedBytes(std::string_view text, char sign) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    unsigned byte = 0;
    const char* digits = text.data() + at + 1;
    if (text[at] == sign && at + 2 < text.size() &&
        std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
      result += static_cast<char>(byte);
      at += 2;
    } else {
      result += text[at];
    }
  }
  return result;
}

std::string percentEncoded(std::string_view bytes) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string result;
  result.reserve(bytes.size() * 2);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (std::isalnum(byte) != 0 || std::string_view("-._~").find(c) != std::string_view::npos) {
      result += c;
    } else {
      result.append({'%', digits[byte >> 4], digits[byte & 15]});
    }
  }
  return result;
}

// Before UTF-8 was the only one, a text could say its encoding, or not; "" is for the latter. Absent for an
// encoding that nobody knows.
std::optional<std::string> inUtf8(std::string bytes, const std::string& charset) {
  if (charset.empty()) return isOfSingleBytes(bytes) ? fromSingleBytes(bytes) : wellFormed(std::move(bytes));
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UConverter, decltype(&ucnv_close)> converter(ucnv_open(charset.c_str(), &status),
                                                                     ucnv_close);
  if (U_FAILURE(status)) return {};
  const icu::UnicodeString text(bytes.data(), static_cast<std::int32_t>(bytes.size()), converter.get(), status);
  if (U_FAILURE(status)) return {};
  std::string result;
  text.toUTF8String(result);
  return result;
}

// What an encoded text says; absent where there is no ENCODING, or one that cannot be read whole: a line that goes
// on behind "=" has its rest in another line of the file.
std::optional<std::string> decodedText(const IcsProperty& property) {
  const std::string encoding = vorn::asciiLower(property.parameter("ENCODING"));
  if (encoding == "quoted-printable" && !property.value.ends_with('='))
    return inUtf8(unescapedText(decodedBytes(property.value, '=')), property.parameter("CHARSET"));
  if (encoding != "base64" && encoding != "b") return {};
  const auto decoded = vorn::EncodeUtils::base64DecodeToData(property.value);
  return decoded ? inUtf8(*decoded, property.parameter("CHARSET")) : std::nullopt;
}

}  // namespace

std::string textOf(const IcsProperty& property) {
  const auto decoded = decodedText(property);
  return decoded ? *decoded : wellFormed(unescapedText(property.value));
}

void setText(IcsProperty& property, std::string_view text) {
  // Where nothing was decoded by it, it may tell of the whole file.
  if (decodedText(property)) removeParameter(property, "CHARSET");
  removeParameter(property, "ENCODING");
  if (vorn::asciiLower(property.parameter("VALUE")) == "binary") removeParameter(property, "VALUE");
  property.value = escapedText(text);
}

std::optional<std::string> htmlBeside(const IcsProperty& property) {
  const std::string address = property.parameter("ALTREP");
  const std::size_t comma = address.find(',');
  if (comma == std::string::npos) return {};
  const std::string kind = vorn::asciiLower(address.substr(0, comma));
  if (!kind.starts_with(kHtmlData) || (kind.size() > kHtmlData.size() && kind[kHtmlData.size()] != ';')) return {};
  std::string content = decodedBytes(std::string_view(address).substr(comma + 1), '%');
  if (!kind.ends_with(";base64")) return inUtf8(std::move(content), "");
  const auto decoded = vorn::EncodeUtils::base64DecodeToData(content);
  return decoded ? inUtf8(*decoded, "") : std::nullopt;
}

void setHtmlBeside(IcsProperty& property, std::string_view html) {
  removeParameter(property, "ALTREP");
  property.parameters.emplace_back("ALTREP", '"' + std::string(kHtmlData) + ',' + percentEncoded(html) + '"');
}

void removeParameter(IcsProperty& property, std::string_view name) {
  std::erase_if(property.parameters, [name](const auto& parameter) { return parameter.first == name; });
}

}  // namespace vornlab
