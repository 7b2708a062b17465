#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vorn {

// Makes texts fit for eyes that are not their owner's: passcodes, codes to dial, join tokens and e-mail addresses
// are covered, whatever language, markup or packing they stand in. Everything that is printed, traced, kept in a
// journal or handed on goes through here; SecretTable says what a secret is.
//
// UTF-8 in and out; what is no UTF-8 stays as it is. Covering again changes nothing. Any thread. Costs time in
// proportion to the text, whatever it holds.
class SecretMask {
 public:
  static constexpr std::string_view kCover = "******";

  // The text with "******" in the place of each secret, and with packed data given by their size.
  static std::string covered(std::string_view text);
  // The same, cut short behind that many bytes; what is left out is told by its size.
  static std::string coveredAndCut(std::string_view text, std::size_t mostBytes);

  // The text that stands under a key, in a field or behind the name of a setting: whole when the key says that it
  // is a secret, or else as above. Nothing of an empty text.
  static std::string coveredUnder(std::string_view key, std::string_view text);
  // A text for people who dial in: telephone numbers can be seen, codes cannot.
  static std::string coveredDialText(std::string_view text);

  // Whether what such a key, field or setting holds is a secret.
  static bool isSecretKey(std::string_view key);
  // Of an entry in a dictionary that itself stands under a key: the one of both keys that says what the entry is.
  static std::string_view keyThatCounts(std::string_view outer, std::string_view inner);
};

}  // namespace vorn
