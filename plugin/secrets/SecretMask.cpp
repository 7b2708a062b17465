#include "secrets/SecretMask.h"

#include "secrets/CoveredRanges.h"
#include "secrets/HarmlessTexts.h"
#include "secrets/ReadableText.h"
#include "secrets/SecretRules.h"
#include "secrets/SecretTable.h"

namespace vorn {

namespace {

CoveredRanges rangesOf(const ReadableText& text) {
  CoveredRanges ranges;
  coverKeyedValues(text, ranges);
  coverLabelledValues(text, ranges);
  coverParameters(text, ranges);
  coverAddresses(text, ranges);
  coverDialledCodes(text, ranges);
  coverPackedData(text, ranges);
  return ranges;
}

}  // namespace

std::string SecretMask::covered(std::string_view text) {
  thread_local HarmlessTexts harmless;
  if (harmless.contains(text)) return std::string(text);
  const CoveredRanges ranges = rangesOf(ReadableText(text));
  if (ranges.isEmpty()) harmless.remember(text);
  return ranges.applied(text, std::string_view::npos).text;
}

// Only the beginning is read, as far as it takes; what the end of that hides may reach into what is shown.
std::string SecretMask::coveredAndCut(std::string_view text, std::size_t mostBytes) {
  constexpr std::size_t kFarthest = 1024;
  constexpr std::size_t kGrowth = 4;
  CoveredRanges::Seen seen{"", 0};
  for (std::size_t window = 2 * (mostBytes + kFarthest);; window *= kGrowth) {
    const std::string_view part = text.substr(0, window);
    seen = rangesOf(ReadableText(part)).applied(part, mostBytes + 1);
    if (part.size() == text.size() || seen.end + kFarthest <= part.size()) break;
  }
  if (seen.text.size() <= mostBytes) return seen.text;
  std::size_t cut = mostBytes;
  while (cut > 0 && (static_cast<unsigned char>(seen.text[cut]) & 0xC0U) == 0x80U) --cut;
  const std::size_t notShown = text.size() - seen.end + (seen.text.size() - cut);
  seen.text.resize(cut);
  return seen.text + "… <" + std::to_string(notShown) + " bytes more>";
}

namespace {

// The names of values come again and again, and most are plain. One that is a secret by itself is not remembered.
KeyKind kindOfName(std::string_view name) {
  thread_local HarmlessTexts plain;
  if (plain.contains(name)) return KeyKind::plain;
  const KeyKind kind = kindOfKey(name);
  if (kind == KeyKind::plain && SecretMask::covered(name) == name) plain.remember(name);
  return kind;
}

}  // namespace

std::string SecretMask::coveredUnder(std::string_view key, std::string_view text) {
  switch (kindOfName(key)) {
    case KeyKind::secret: return std::string(text.empty() ? text : kCover);
    case KeyKind::dialText: return coveredDialText(text);
    default: return covered(text);
  }
}

std::string SecretMask::coveredDialText(std::string_view text) {
  const ReadableText readable(text);
  CoveredRanges ranges = rangesOf(readable);
  coverCodes(readable, 0, readable.size(), ranges);
  return ranges.applied(text, std::string_view::npos).text;
}

bool SecretMask::isSecretKey(std::string_view key) { return kindOfName(key) == KeyKind::secret; }

std::string_view SecretMask::keyThatCounts(std::string_view outer, std::string_view inner) {
  const bool isInnerSilent = kindOfName(inner) == KeyKind::plain && !tellsOfItsOwner(inner);
  return isInnerSilent && kindOfName(outer) != KeyKind::plain ? outer : inner;
}

}  // namespace vorn
