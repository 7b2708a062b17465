#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vornlab {

// The stand-in host is there twice: "embedded", in a class runtime of our own, and "objc", of true Objective-C
// classes. Each is a program of its own, and both lie in one folder.

// A line for the help of either program.
constexpr auto kRuntimeHelp =
    "--runtime embedded|objc, anywhere on the line, chooses the stand-in host; in the Objective-C one go hooks, "
    "inspect, meet and play.";

// Takes "--runtime NAME" out of a command's words, wherever it stands. When it names another runtime than the own
// one, this process goes on as the other program with the same words. Throws UsageError for a name that is none,
// and when that program was not built.
void chooseRuntime(std::vector<std::string>& words, std::string_view own, const std::filesystem::path& programs);

}  // namespace vornlab
