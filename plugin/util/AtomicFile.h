#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vorn {

// Whole files by path. Any thread; two writers of one path leave the file of the later one, whole.

// Writes the content to a new file beside the path, brings it to the disk and gives it the name, so that a reader
// finds the old content or the new one and nothing between. An existing file keeps its mode, and its owner and
// group where the system allows it; where it does not, nobody gets rights that were not theirs. A new one takes
// the mode of the model, where there is one. A symbolic link keeps its place: the file that it names is the one
// replaced, or made. A file that holds the content already is left as it is, with its times. False, with the old
// content untouched, when any step fails.
bool replaceFile(const std::string& path, std::string_view content, const std::string& model = "");

// The file that the path means, whether it is there already or not: where the last of its symbolic links leads to.
// "" behind links without an end.
std::string behindLinks(const std::string& path);

// The content of a regular file; absent for anything else and on any failure.
std::optional<std::string> readFile(const std::string& path);

}  // namespace vorn
