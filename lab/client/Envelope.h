#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vornlab {

// What passes over the socket in both directions: a number and a text.
struct Envelope {
  std::uint32_t action = 0;
  std::string content;

  bool operator==(const Envelope&) const = default;
};

// The JSON text of an envelope, ASCII only and with "actionId" behind "content".
//
// Both matter to a reader that takes a message for complete when a read ends in "}" and both member names have
// been seen: a read can end inside the content without harm as long as the second name has not come, and no read
// can cut a character in two. Bytes in the content that are not UTF-8 become U+FFFD.
std::string toText(const Envelope& envelope);

// The envelope of one JSON text, or nothing when it is no JSON object, or a member is missing, or is not a text,
// or the action is no number. An action text is read as far as it is decimal digits.
std::optional<Envelope> fromText(std::string_view text);

}  // namespace vornlab
