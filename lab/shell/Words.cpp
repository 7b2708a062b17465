#include "lab/shell/Words.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <ctime>

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

}  // namespace vornlab
