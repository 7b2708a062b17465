#include "lab/ics/ProducerQuirks.h"

#include <algorithm>
#include <array>

#include "util/Text.h"

namespace vornlab {

namespace {

constexpr std::array<std::string_view, 20> kBlocks{"address", "blockquote", "br", "div", "h1", "h2", "h3",
                                                   "h4",      "h5",         "h6", "hr",  "li", "ol", "p",
                                                   "pre",     "table",      "td", "th",  "tr", "ul"};
constexpr std::array<std::string_view, 13> kOthers{"a", "b", "code", "em",   "font",   "html-blob", "i",
                                                   "u", "s", "span", "body", "strong", "tbody"};

template <typename Names>
bool isAmong(const Names& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

// The name of the tag that begins the text, in lower case; "" for no tag. Behind a blank it needs an attribute: "a
// <b then" is no HTML.
std::string tagAt(std::string_view text) {
  constexpr std::size_t longestName = 10;
  constexpr std::size_t longestFirstAttribute = 40;
  if (!text.starts_with('<')) return "";
  text.remove_prefix(text.starts_with("</") ? 2 : 1);
  const std::size_t end = text.substr(0, longestName + 1).find_first_of("> /\t\r\n");
  if (end == std::string_view::npos) return "";
  if (text[end] != '>' && text[end] != '/') {
    const std::string_view behind = text.substr(end, longestFirstAttribute);
    const std::size_t sign = behind.find_first_of("=>");
    if (sign == std::string_view::npos || behind[sign] == '>') return "";
  }
  return vorn::asciiLower(std::string(text.substr(0, end)));
}

// Web calendars hand out what their own editor holds: HTML in which line ends count as in plain text.
class HtmlInDescription final : public ProducerQuirks {
 public:
  bool descriptionIsHtml(std::string_view text) const override {
    for (std::size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1)) {
      const std::string tag = tagAt(text.substr(at));
      if (isAmong(kBlocks, tag) || isAmong(kOthers, tag)) return true;
    }
    return false;
  }

  std::string htmlOf(std::string_view description) const override {
    std::string html;
    bool isBehindBlock = false;
    bool isPreformatted = false;
    for (std::size_t at = 0; at < description.size();) {
      if (description[at] == '<') {
        const std::size_t end = std::min(description.find('>', at), description.size() - 1) + 1;
        const std::string tag = tagAt(description.substr(at));
        isBehindBlock = isAmong(kBlocks, tag);
        if (tag == "pre") isPreformatted = description[at + 1] != '/';
        html += description.substr(at, end - at);
        at = end;
        continue;
      }
      const std::size_t end = std::min(description.find_first_not_of("\r\n", at), description.size());
      if (end == at) {
        isBehindBlock = isBehindBlock && description[at] == ' ';
        html += description[at++];
        continue;
      }
      // Between blocks a line end is only there to be read by whoever reads the source.
      const std::string_view ends = description.substr(at, end - at);
      const bool isShown = !isPreformatted && !isBehindBlock && !isAmong(kBlocks, tagAt(description.substr(end)));
      for (const char c : ends) html += c == '\n' && isShown ? "<br>\n" : std::string(1, c);
      at = end;
    }
    return html;
  }
};

}  // namespace

std::unique_ptr<ProducerQuirks> ProducerQuirks::of(std::string_view productIdentifier) {
  if (productIdentifier.find("//Google Calendar") != std::string_view::npos)
    return std::make_unique<HtmlInDescription>();
  return std::make_unique<ProducerQuirks>();
}

}  // namespace vornlab
