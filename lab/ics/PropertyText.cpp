#include "lab/ics/PropertyText.h"

#include <cctype>
#include <charconv>

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

// Before UTF-8 was the only one, a text could say its encoding, or not.
std::string inUtf8(std::string bytes) {
  return isOfSingleBytes(bytes) ? fromSingleBytes(bytes) : wellFormed(std::move(bytes));
}

}  // namespace

std::string textOf(const IcsProperty& property) {
  const std::string encoding = vorn::asciiLower(property.parameter("ENCODING"));
  if (encoding == "quoted-printable") return inUtf8(unescapedText(decodedBytes(property.value, '=')));
  if (encoding == "base64" || encoding == "b") {
    if (const auto decoded = vorn::EncodeUtils::base64DecodeToData(property.value)) return inUtf8(*decoded);
  }
  return wellFormed(unescapedText(property.value));
}

void setText(IcsProperty& property, std::string_view text) {
  for (const std::string_view name : {"ENCODING", "CHARSET"}) removeParameter(property, name);
  property.value = escapedText(text);
}

std::optional<std::string> htmlBeside(const IcsProperty& property) {
  const std::string address = property.parameter("ALTREP");
  const std::size_t comma = address.find(',');
  if (comma == std::string::npos) return {};
  const std::string kind = vorn::asciiLower(address.substr(0, comma));
  if (!kind.starts_with(kHtmlData) || (kind.size() > kHtmlData.size() && kind[kHtmlData.size()] != ';')) return {};
  std::string content = decodedBytes(std::string_view(address).substr(comma + 1), '%');
  if (!kind.ends_with(";base64")) return inUtf8(std::move(content));
  const auto decoded = vorn::EncodeUtils::base64DecodeToData(content);
  return decoded ? std::optional(inUtf8(*decoded)) : std::nullopt;
}

void setHtmlBeside(IcsProperty& property, std::string_view html) {
  removeParameter(property, "ALTREP");
  property.parameters.emplace_back("ALTREP", '"' + std::string(kHtmlData) + ',' + percentEncoded(html) + '"');
}

void removeParameter(IcsProperty& property, std::string_view name) {
  std::erase_if(property.parameters, [name](const auto& parameter) { return parameter.first == name; });
}

}  // namespace vornlab
