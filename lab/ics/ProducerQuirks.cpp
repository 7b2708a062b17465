#include "lab/ics/ProducerQuirks.h"

namespace vornlab {

namespace {

// Web calendars hand out what their own editor holds.
class HtmlInDescription final : public ProducerQuirks {
 public:
  bool descriptionIsHtml(std::string_view text) const override {
    for (const std::string_view tag :
         {"<br>", "<br/>", "<p>", "<a href=", "<html-blob>", "<ul>", "<b>", "<span>"}) {
      if (text.find(tag) != std::string_view::npos) return true;
    }
    return false;
  }
};

}  // namespace

std::unique_ptr<ProducerQuirks> ProducerQuirks::of(std::string_view productIdentifier) {
  if (productIdentifier.find("//Google Calendar") != std::string_view::npos)
    return std::make_unique<HtmlInDescription>();
  return std::make_unique<ProducerQuirks>();
}

}  // namespace vornlab
