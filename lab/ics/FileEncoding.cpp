#include "lab/ics/FileEncoding.h"

#include <unicode/unistr.h>

#include <algorithm>

#include "util/Utf16.h"

namespace vornlab {

namespace {

// Reads bytes without a character of their own as control characters, which keeps them apart.
constexpr const char* kReader = "windows-1252";

const char* converterOf(FileEncoding encoding) {
  return encoding == FileEncoding::latin1 ? "ISO-8859-1" : kReader;
}

bool isHigh(char c) { return static_cast<unsigned char>(c) >= 0x80; }

}  // namespace

bool isAscii(std::string_view bytes) { return std::none_of(bytes.begin(), bytes.end(), isHigh); }

std::string_view nameOf(FileEncoding encoding) {
  switch (encoding) {
    case FileEncoding::latin1: return "Latin-1";
    case FileEncoding::windows1252: return "Windows-1252";
    case FileEncoding::utf8: break;
  }
  return "UTF-8";
}

bool isOfSingleBytes(std::string_view bytes) {
  if (vorn::isValidUtf8(bytes)) return false;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    if (isHigh(bytes[at]) && vorn::utf8SequenceLength(bytes, at) > 1) return false;
  }
  return true;
}

bool needsWindows1252(std::string_view bytes) {
  return std::any_of(bytes.begin(), bytes.end(),
                     [](char c) { return isHigh(c) && static_cast<unsigned char>(c) < 0xA0; });
}

std::string fromSingleBytes(std::string_view bytes) {
  std::string text;
  icu::UnicodeString(bytes.data(), static_cast<int32_t>(bytes.size()), kReader).toUTF8String(text);
  return text;
}

std::optional<std::string> encoded(std::string_view text, FileEncoding encoding) {
  if (encoding == FileEncoding::utf8 || isAscii(text)) return std::string(text);
  const icu::UnicodeString characters =
      icu::UnicodeString::fromUTF8({text.data(), static_cast<int32_t>(text.size())});
  std::string bytes(text.size(), '\0');
  const int32_t length = characters.extract(0, characters.length(), bytes.data(),
                                            static_cast<uint32_t>(bytes.size()), converterOf(encoding));
  bytes.resize(std::min(bytes.size(), static_cast<std::size_t>(length)));
  // The converter puts a stand-in for what it does not have.
  if (fromSingleBytes(bytes) != text) return std::nullopt;
  return bytes;
}

std::string_view firstMisfit(std::string_view text, FileEncoding encoding) {
  for (std::size_t at = 0; at < text.size();) {
    const std::string_view character = text.substr(at, vorn::utf8SequenceLength(text, at));
    if (!encoded(character, encoding)) return character;
    at += character.size();
  }
  return {};
}

std::string_view wideEncodingOf(std::string_view bytes) {
  const auto begins = [&](std::string_view mark) { return bytes.starts_with(mark); };
  using namespace std::string_view_literals;
  if (begins("\xFF\xFE\0\0"sv) || begins("\0\0\xFE\xFF"sv) || begins("B\0\0\0"sv) || begins("\0\0\0B"sv))
    return "UTF-32";
  if (begins("\xFF\xFE"sv) || begins("\xFE\xFF"sv) || begins("B\0"sv) || begins("\0B"sv)) return "UTF-16";
  return {};
}

}  // namespace vornlab
