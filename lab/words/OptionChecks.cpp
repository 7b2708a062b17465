#include "lab/words/OptionChecks.h"

#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstring>
#include <filesystem>

namespace vornlab {
namespace {

namespace fs = std::filesystem;

constexpr double kLeastSeconds = 0.001;
constexpr double kMostSeconds = 86'400;

std::string complaintOfPath(const std::string& path, bool wantsFolder) {
  if (std::string complaint = complaintOfNothing(path); !complaint.empty()) return complaint;
  std::error_code failed;
  const fs::file_status status = fs::status(path, failed);
  if (status.type() == fs::file_type::not_found) return "there is no " + path;
  if (status.type() == fs::file_type::none) return path + " cannot be looked at: " + failed.message();
  if (wantsFolder != fs::is_directory(status)) return path + (wantsFolder ? " is no folder" : " is a folder");
  return ::access(path.c_str(), R_OK) == 0 ? "" : path + " cannot be read: " + std::strerror(errno);
}

bool isFile(const std::string& database) {
  std::error_code unknown;
  return database != ":memory:" && fs::status(database, unknown).type() != fs::file_type::not_found;
}

}  // namespace

std::string complaintOfNothing(const std::string& text) {
  return text.empty() ? "\"\" is no name of anything" : "";
}

std::string complaintOfFile(const std::string& path) { return complaintOfPath(path, false); }

std::string complaintOfFolder(const std::string& path) { return complaintOfPath(path, true); }

std::string complaintOfMeetings(const std::string& path) {
  return isFile(path) ? complaintOfFile(path) : complaintOfNothing(path);
}

std::string complaintOfDatabase(const std::string& path) {
  if (isFile(path)) {
    if (std::string complaint = complaintOfFile(path); !complaint.empty()) return complaint;
    return ::access(path.c_str(), W_OK) == 0 ? "" : path + " cannot be written: " + std::strerror(errno);
  }
  if (path.empty() || path == ":memory:") return complaintOfNothing(path);
  std::error_code unknown;
  const fs::path folder = fs::absolute(path, unknown).parent_path();
  if (fs::status(folder, unknown).type() == fs::file_type::not_found) return "";
  if (std::string complaint = complaintOfFolder(folder); !complaint.empty()) return complaint;
  return ::access(folder.c_str(), W_OK) == 0
             ? ""
             : "cannot write into the folder " + folder.string() + ": " + std::strerror(errno);
}

std::string complaintOfSeconds(const std::string& text) {
  double seconds = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, seconds);
  const bool isFit =
      read.ec == std::errc() && read.ptr == end && seconds >= kLeastSeconds && seconds <= kMostSeconds;
  return isFit ? "" : "seconds are a number from 0.001 to 86400, not \"" + text + "\"";
}

std::string complaintOfProcess(const std::string& text) {
  int process = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, process);
  const bool isFit = read.ec == std::errc() && read.ptr == end && process > 0;
  return isFit ? "" : "a process has a number above 0, not \"" + text + "\"";
}

}  // namespace vornlab
