#pragma once

#include <array>
#include <cstddef>
#include <mutex>
#include <string>

namespace vorn {

// The texts that were last read out of HTML. One save asks up to six times for the text of two or three bodies,
// and to read HTML costs more than all else that a save does with a body. Any thread.
class RecentTexts {
 public:
  // What a reader of the HTML sees, its "&nbsp;" left out. UTF-8.
  std::string textOf(const std::string& html);

 private:
  struct Text {
    std::string html;
    std::string plain;
  };

  std::mutex m_mutex;
  std::array<Text, 3> m_texts;
  std::size_t m_next = 0;
};

}  // namespace vorn
