#pragma once

#include <string>
#include <vector>

namespace vornlab::test {

// The lines as one calendar file with CRLF, framed as a VCALENDAR.
inline std::string calendar(const std::vector<std::string>& lines) {
  std::string text = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Test//EN\r\n";
  for (const std::string& line : lines) text += line + "\r\n";
  return text + "END:VCALENDAR\r\n";
}

// One appointment of an hour in the future, with further lines.
inline std::string appointment(const std::string& uid, const std::string& subject,
                               const std::vector<std::string>& further = {}) {
  std::string text = "BEGIN:VEVENT\r\nUID:" + uid + "\r\nDTSTAMP:20300101T000000Z\r\nSUMMARY:" + subject +
                     "\r\nDTSTART:20300514T120000Z\r\nDTEND:20300514T130000Z\r\n";
  for (const std::string& line : further) text += line + "\r\n";
  return text + "END:VEVENT";
}

// A calendar file without its folds.
inline std::string unfolded(const std::string& text) {
  std::string lines;
  std::size_t from = 0;
  for (std::size_t fold = text.find("\r\n "); fold != std::string::npos; fold = text.find("\r\n ", from)) {
    lines.append(text, from, fold - from);
    from = fold + 3;
  }
  return lines.append(text, from);
}

inline std::size_t occurrences(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

}  // namespace vornlab::test
