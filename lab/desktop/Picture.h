#pragma once

#include <filesystem>

@class NSWindow;

namespace vornlab {

// Writes what stands in the window into a PNG file. The window has to be on the screen. Throws LabError when the
// file cannot be written.
void writePicture(NSWindow* window, const std::filesystem::path& file);
// Writes what the next question looks like, and gets out of it as the escape key does.
void pictureOfNextQuestion(std::filesystem::path file);

}  // namespace vornlab
