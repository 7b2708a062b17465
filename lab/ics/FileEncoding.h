#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vornlab {

// The encodings of calendar files: UTF-8, and two of one byte a character, of which the second is the first with
// quotation marks, dashes and the like in place of control characters.
enum class FileEncoding { utf8, latin1, windows1252 };

// What the file's name for it is, for a sentence.
std::string_view nameOf(FileEncoding encoding);

// The same in every encoding.
bool isAscii(std::string_view bytes);

// Whether the bytes are a text of one byte a character: they are no UTF-8, nor a damaged form of it.
bool isOfSingleBytes(std::string_view bytes);
// Whether such a text uses what only the second encoding has.
bool needsWindows1252(std::string_view bytes);

// UTF-8 of a text of single bytes, read so that each byte comes back as itself.
std::string fromSingleBytes(std::string_view bytes);

// The UTF-8 text as bytes of the encoding; absent when it has none for one of the characters.
std::optional<std::string> encoded(std::string_view text, FileEncoding encoding);
// The first character that the encoding has no bytes for, as UTF-8; "" when there is none.
std::string_view firstMisfit(std::string_view text, FileEncoding encoding);

// "UTF-16" or "UTF-32" for a file that is written in it, with or without a mark at its beginning; "" for another.
std::string_view wideEncodingOf(std::string_view bytes);

}  // namespace vornlab
