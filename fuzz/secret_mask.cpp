// The mask of everything that is printed or kept: no address, no token of a join URL and no labelled passcode
// survives it, and covering again changes nothing that a person would miss.

#include <string>

#include "fuzz/Fuzzing.h"
#include "secrets/SecretMask.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vorn::SecretMask;
  using vorn::fuzzing::check;
  const std::string content(reinterpret_cast<const char*>(data), size);
  const std::string seen = SecretMask::covered(content);
  const auto isOfAddress = [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'); };
  for (std::size_t at = seen.find('@'); at != std::string::npos; at = seen.find('@', at + 1)) {
    // A letter behind a backslash is a line end or a tab, as JSON writes them.
    const bool isEscape = at > 1 && seen[at - 2] == '\\';
    // A byte that is no character by itself is nobody's name.
    const bool isByte = at > 2 && seen[at - 3] == '%' && (seen[at - 2] < '0' || seen[at - 2] > '7');
    check(at == 0 || isEscape || isByte || !isOfAddress(seen[at - 1]), "nobody is seen before the sign");
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
