// The mask of everything that is printed or kept: no address, no token of a join URL and no labelled passcode
// survives it, and covering again changes nothing that a person would miss.

#include <algorithm>
#include <cctype>
#include <charconv>
#include <string>
#include <string_view>

#include "fuzz/Fuzzing.h"
#include "secrets/SecretMask.h"

namespace {

bool isNobodysName(const char* from, const char* to, int base) {
  unsigned sign = 0;
  if (std::from_chars(from, to, sign, base).ptr != to) return false;
  constexpr std::string_view kSignsOfNames = "._+-'!$*^%~";
  return sign >= 0x80 || (!std::isalnum(static_cast<int>(sign)) &&
                          kSignsOfNames.find(static_cast<char>(sign)) == std::string_view::npos);
}

// Whether a sign that is neither a letter nor a digit stands before that place, as a packed byte or by its number.
bool isWrittenSign(const std::string& text, std::size_t end) {
  const char* const last = text.data() + end;
  // Packed once more, "%40" is "%2540".
  std::size_t digits = std::max<std::size_t>(end, 2) - 2;
  while (digits > 2 && text.compare(digits - 2, 2, "25") == 0) digits -= 2;
  if (digits > 0 && text[digits - 1] == '%' && isNobodysName(last - 2, last, 16)) return true;
  const std::size_t number = text.rfind("&#", end);
  if (number == std::string::npos) return false;
  const bool isHex = text.compare(number + 2, 1, "x") == 0 || text.compare(number + 2, 1, "X") == 0;
  return isNobodysName(text.data() + number + (isHex ? 3 : 2), last, isHex ? 16 : 10);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vorn::SecretMask;
  using vorn::fuzzing::check;
  const std::string content(reinterpret_cast<const char*>(data), size);
  const std::string seen = SecretMask::covered(content);
  const auto isOfAddress = [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'); };
  for (std::size_t at = seen.find('@'); at != std::string::npos; at = seen.find('@', at + 1)) {
    // A letter behind a backslash is a line end or a tab, as JSON writes them.
    const bool isEscape = at > 1 && seen[at - 2] == '\\';
    check(at == 0 || isEscape || isWrittenSign(seen, at) || !isOfAddress(seen[at - 1]),
          "nobody is seen before the sign");
    check(at + 1 >= seen.size() || !isOfAddress(seen[at + 1]), "no domain is seen behind the sign");
  }

  // A secret between other bytes is found, whatever these are; what makes one of them a part of it is left out.
  constexpr std::string_view kSecret = "q7Zx4711";
  for (const std::string& framed : {content + "\n?pwd=" + std::string(kSecret) + "\n" + content,
                                    content + "\nKenncode: " + std::string(kSecret) + "\n" + content,
                                    content + "\n" + std::string(kSecret) + "@x.example\n" + content}) {
    if (content.find(kSecret) != std::string::npos) break;
    check(SecretMask::covered(framed).find(kSecret) == std::string::npos, "the secret is covered");
  }
  SecretMask::coveredAndCut(content, 100);
  SecretMask::coveredDialText(content);
  return 0;
}
