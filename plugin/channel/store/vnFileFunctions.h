#pragma once

#include <cstdint>
#include <string>

#include "util/Value.h"

namespace vorn {

// Small questions and errands on files. Paths are UTF-8; an absent path answers false, 0 or absent. No failure
// is reported but by the answer.

// True when there is something at the path, a file or a folder.
bool vnIsFileExist(const OptionalText& path);
// True when the path is a folder.
bool vnIsDirection(const OptionalText& path);
// Removes a file, or a folder with all that it holds.
bool vnDeleteFile(const OptionalText& path);
// The names in a folder, in order; absent when the path is no folder.
Value vnGetDirectoryItems(const OptionalText& path);
// Makes a folder with its parents. False when there is something at the path already.
bool vnCreateDirection(const OptionalText& path);
// Moves a file. A missing source leaves the destination alone; otherwise an existing destination goes first.
// No caller here.
bool vnMoveFile(const OptionalText& source, const OptionalText& destination);
// The bundle version of the application at the path; "" when there is none.
std::string vnGetFileVersion(const OptionalText& applicationPath);
// The size in bytes, kept to the 32-bit range; 0 when there is no file. No caller here.
std::int32_t vnGetFileSizeFromPath(const OptionalText& path);
// Puts a file with the text in the place of whatever is there. No caller here.
bool vnCreateFile(const OptionalText& path, const OptionalText& text);

}  // namespace vorn
