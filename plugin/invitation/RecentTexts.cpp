#include "invitation/RecentTexts.h"

#include <algorithm>
#include <utility>

#include "util/HtmlText.h"

namespace vorn {
namespace {

// Longer ones are rare, and what is remembered stays as long as the host runs.
constexpr std::size_t kLongest = std::size_t{64} * 1024;

}  // namespace

std::string RecentTexts::textOf(const std::string& html) {
  if (html.size() > kLongest) return htmlToPlainText(html, NoBreakSpaceEntity::leftOut);
  const std::lock_guard lock(m_mutex);
  const auto known =
      std::find_if(m_texts.begin(), m_texts.end(), [&](const Text& text) { return text.html == html; });
  if (known != m_texts.end()) return known->plain;
  Text& text = m_texts[std::exchange(m_next, (m_next + 1) % m_texts.size())];
  text = {html, htmlToPlainText(html, NoBreakSpaceEntity::leftOut)};
  return text.plain;
}

}  // namespace vorn
