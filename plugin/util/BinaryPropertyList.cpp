#include "util/BinaryPropertyList.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "util/Utf16.h"

namespace vorn {

namespace {

constexpr std::string_view kMagic = "bplist00";
constexpr std::size_t kTrailerSize = 32;

// What many places may refer to counts at each of them for all who walk through the value later. Programs share
// texts and numbers in this way, whole lists only to do harm.
constexpr std::size_t kSharedBytes = std::size_t{1} << 24;
constexpr std::size_t kSharing = 64;

// An object of the file with what it costs those who walk through it.
struct Known {
  Value value;
  int height = 0;
  std::uint64_t size = 1;

  void hold(const Known& inner) {
    height = std::max(height, inner.height + 1);
    size += inner.size;
  }
};

class Reader {
 public:
  Reader(std::string_view content, int deepestNesting)
      : m_content(content),
        m_deepestNesting(deepestNesting),
        m_allowance(content.size()),
        m_largest(kSharedBytes + kSharing * content.size()) {}

  Value read() {
    if (m_content.size() < kMagic.size() + kTrailerSize) return {};
    const std::size_t trailer = m_content.size() - kTrailerSize;
    m_offsetSize = number(trailer + 6, 1);
    m_referenceSize = number(trailer + 7, 1);
    const std::uint64_t count = number(trailer + 8, 8);
    const std::uint64_t top = number(trailer + 16, 8);
    m_table = number(trailer + 24, 8);
    const auto isSize = [](std::uint64_t size) { return size >= 1 && size <= 8; };
    if (!isSize(m_offsetSize) || !isSize(m_referenceSize) || m_table > trailer) return {};
    if (count > (trailer - m_table) / m_offsetSize) return {};
    m_known.resize(count);
    const Known root = object(top, 0);
    return m_failed ? Value() : root.value;
  }

 private:
  Known fail() {
    m_failed = true;
    return {};
  }

  bool holds(std::uint64_t position, std::uint64_t size) const {
    return position <= m_content.size() && size <= m_content.size() - position;
  }

  // A big-endian number; of more than 8 bytes the last 8.
  std::uint64_t number(std::uint64_t position, std::uint64_t size) {
    std::uint64_t result = 0;
    if (!holds(position, size)) m_failed = true;
    if (m_failed) return 0;
    for (const char byte : m_content.substr(position, size)) {
      result = (result << 8) | static_cast<unsigned char>(byte);
    }
    return result;
  }

  // One that is known already may reach deeper from here than from where it was met first.
  Known object(std::uint64_t index, int depth) {
    if (m_failed || index >= m_known.size() || depth > m_deepestNesting) return fail();
    if (!m_known[index]) {
      Known made = objectAt(number(m_table + index * m_offsetSize, m_offsetSize), depth);
      m_known[index] = std::move(made);
    }
    const Known& known = *m_known[index];
    if (known.height > m_deepestNesting - depth || known.size > m_largest) return fail();
    return known;
  }

  Known objectAt(std::uint64_t position, int depth) {
    const std::uint64_t marker = number(position++, 1);
    const std::uint64_t low = marker & 0x0F;
    switch (marker >> 4) {
      case 0x0:
        if (low == 8 || low == 9) return {low == 9};
        return {};
      case 0x1: return low <= 4 ? Known{number(position, std::uint64_t{1} << low)} : fail();
      case 0x2: return real(position, low);
      case 0x5:
      case 0x6:
      case 0xA:
      case 0xD: return counted(marker >> 4, position, low, depth);
      default: return {};
    }
  }

  Known real(std::uint64_t position, std::uint64_t low) {
    if (low == 2) return {double{std::bit_cast<float>(static_cast<std::uint32_t>(number(position, 4)))}};
    if (low == 3) return {std::bit_cast<double>(number(position, 8))};
    return fail();
  }

  Known counted(std::uint64_t type, std::uint64_t position, std::uint64_t count, int depth) {
    if (count == 0x0F) {
      const std::uint64_t marker = number(position++, 1);
      if (marker >> 4 != 0x1 || (marker & 0x0F) > 3) return fail();
      const std::uint64_t size = std::uint64_t{1} << (marker & 0x0F);
      count = number(position, size);
      position += size;
    }
    const std::uint64_t unit = type == 0x5   ? 1
                               : type == 0x6 ? 2
                               : type == 0xA ? m_referenceSize
                                             : 2 * m_referenceSize;
    // Objects do not overlap in an honest file, so together they are no longer than it.
    if (m_failed || count > m_allowance / unit || !holds(position, count * unit)) return fail();
    m_allowance -= count * unit;
    switch (type) {
      case 0x5: return asciiText(m_content.substr(position, count));
      case 0x6: return wideText(m_content.substr(position, 2 * count));
      case 0xA: return array(position, count, depth);
      default: return dictionary(position, count, depth);
    }
  }

  Known asciiText(std::string_view text) { return isValidUtf8(text) ? knownText(std::string(text)) : fail(); }

  static Known wideText(std::string_view bytes) {
    icu::UnicodeString units;
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
      units.append(static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) << 8 |
                                         static_cast<unsigned char>(bytes[i + 1])));
    }
    std::string text;
    return knownText(units.toUTF8String(text));
  }

  static Known knownText(std::string text) {
    const std::uint64_t size = 1 + text.size();
    return {.value = std::move(text), .size = size};
  }

  Known reference(std::uint64_t position, std::uint64_t index, int depth) {
    return object(number(position + index * m_referenceSize, m_referenceSize), depth + 1);
  }

  Known array(std::uint64_t position, std::uint64_t count, int depth) {
    Known result{Value::array()};
    for (std::uint64_t i = 0; i < count && !m_failed; ++i) {
      const Known item = reference(position, i, depth);
      result.hold(item);
      result.value.append(item.value);
    }
    return result;
  }

  Known dictionary(std::uint64_t position, std::uint64_t count, int depth) {
    Known result;
    std::vector<Value::Dictionary::Entry> entries;
    for (std::uint64_t i = 0; i < count && !m_failed; ++i) {
      const Known key = reference(position, i, depth);
      if (!key.value.isText()) continue;
      const Known item = reference(position, count + i, depth);
      result.hold(key);
      result.hold(item);
      if (!item.value.isAbsent()) entries.emplace_back(key.value.text(), item.value);
    }
    result.value = Value::Dictionary(std::move(entries));
    return result;
  }

  std::string_view m_content;
  int m_deepestNesting;
  std::uint64_t m_allowance;
  std::uint64_t m_largest;
  std::uint64_t m_offsetSize = 0;
  std::uint64_t m_referenceSize = 0;
  std::uint64_t m_table = 0;
  std::vector<std::optional<Known>> m_known;
  bool m_failed = false;
};

}  // namespace

bool isBinaryPropertyList(std::string_view content) { return content.starts_with(kMagic); }

Value readBinaryPropertyList(std::string_view content, int deepestNesting) {
  return Reader(content, deepestNesting).read();
}

}  // namespace vorn
