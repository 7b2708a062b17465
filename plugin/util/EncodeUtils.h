#pragma once

#include <functional>
#include <string>

#include "util/Value.h"

namespace vorn {

// Base64 with the standard alphabet and padding. Any thread; linear in the input.
//
// The decoder accepts blanks, tabs and line breaks anywhere and a text that lacks its padding. Everything else
// outside the alphabet, characters behind the padding and a lone last character make the answer absent.
class EncodeUtils {
 public:
  using Transform = std::function<OptionalText(const std::string& data)>;

  // Bytes to text, without line breaks. Absent for absence, as in the following.
  static OptionalText base64Encode(const OptionalText& data);
  static OptionalText base64DecodeToData(const OptionalText& text);
  // The decoded bytes as text; absent when they are not valid UTF-8.
  static OptionalText base64Decode(const OptionalText& text);

  // What the transform makes of the data; absent without a transform.
  static OptionalText base64helper(const OptionalText& data, const Transform& transform);
};

}  // namespace vorn
