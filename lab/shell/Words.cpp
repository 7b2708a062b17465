#include "lab/shell/Words.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <memory>

#include "lab/shell/LabError.h"

namespace vornlab {

std::string_view beginningOf(std::string_view text, std::size_t bytes) {
  if (bytes >= text.size()) return text;
  while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & 0xC0U) == 0x80U) --bytes;
  return text.substr(0, bytes);
}

std::string shortened(std::string_view text, std::size_t bytes) {
  const std::string_view beginning = beginningOf(text, bytes);
  return std::string(beginning) + (beginning.size() < text.size() ? " ..." : "");
}

std::string onOneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](unsigned char c) { return c < ' '; }, ' ');
  return text;
}

std::string timeInWords(double seconds, const char* form) {
  const auto time = static_cast<std::time_t>(std::floor(seconds));
  std::tm parts{};
  gmtime_r(&time, &parts);
  std::array<char, 64> text{};
  std::strftime(text.data(), text.size(), form, &parts);
  return text.data();
}

std::string secondsInWords(double seconds) {
  std::string text = std::to_string(seconds);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text + (text == "1" ? " second" : " seconds");
}

std::string faultInWords(const std::filesystem::path& file, const IcsProblem& problem) {
  const std::string line = problem.line == 0 ? "" : ":" + std::to_string(problem.line);
  return file.string() + line + ": " + problem.message;
}

namespace {

// A pipe or a device; standard input is called "-".
bool isStream(const std::filesystem::path& file) {
  std::error_code unknown;
  const std::filesystem::file_status status = std::filesystem::status(file, unknown);
  return file == "-" || std::filesystem::is_fifo(status) || std::filesystem::is_character_file(status) ||
         std::filesystem::is_socket(status);
}

std::string contentOfStream(const std::filesystem::path& file) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(
      file == "-" ? ::fdopen(::dup(STDIN_FILENO), "r") : std::fopen(file.c_str(), "r"), &std::fclose);
  if (!stream) throw UsageError("cannot read " + file.string() + ": " + std::strerror(errno));
  std::string content;
  std::array<char, 65536> piece{};
  while (const std::size_t count = std::fread(piece.data(), 1, piece.size(), stream.get())) {
    content.append(piece.data(), count);
  }
  if (std::ferror(stream.get()) != 0)
    throw UsageError("cannot read " + file.string() + ": " + std::strerror(errno));
  return content;
}

}  // namespace

void loadCalendar(CalendarStore& calendar, const std::filesystem::path& file) {
  IcsProblem problem;
  const bool isRead =
      isStream(file) ? calendar.loadText(contentOfStream(file), problem) : calendar.load(file.string(), problem);
  if (!isRead) throw UsageError(faultInWords(file, problem));
}

}  // namespace vornlab
