// The mask of everything that is printed or kept: no address, no token of a join URL and no labelled passcode
// survives it, and covering again changes nothing that a person would miss.

#include <cctype>
#include <string>
#include <string_view>

#include "fuzz/Fuzzing.h"
#include "secrets/SecretMask.h"

namespace {

bool isOfAddress(char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'); }

bool isHex(std::string_view text) {
  return text.find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos;
}

// Whether letters and digits stand before that place that are somebody's name, and not one of the forms in which a
// sign is written: "\\n" and "\\u0040", "%40" and "%2540", "&#64" and "&#x40".
bool isNameBefore(const std::string& text, std::size_t end) {
  std::size_t begin = end;
  while (begin > 0 && std::isalnum(static_cast<unsigned char>(text[begin - 1]))) --begin;
  std::string_view run = std::string_view(text).substr(begin, end - begin);
  if (run.empty() || !isOfAddress(run.back())) return false;
  const char mark = begin > 0 ? text[begin - 1] : ' ';
  while (mark == '%' && run.size() > 2 && run.starts_with("25")) run.remove_prefix(2);
  if (mark == '%') return run.size() != 2 || !isHex(run);
  const bool isUnicode = run.size() == 5 && run.starts_with('u') && isHex(run.substr(1));
  if (mark == '\\') return run.find_first_not_of("nNrt") != std::string_view::npos && !isUnicode;
  if (mark == '#' && (run.starts_with('x') || run.starts_with('X'))) run.remove_prefix(1);
  return mark != '#' || !isHex(run);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vorn::SecretMask;
  using vorn::fuzzing::check;
  const std::string content(reinterpret_cast<const char*>(data), size);
  const std::string seen = SecretMask::covered(content);
  for (std::size_t at = seen.find('@'); at != std::string::npos; at = seen.find('@', at + 1)) {
    check(!isNameBefore(seen, at), "nobody is seen before the sign");
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
