#include "lab/host/BodyHtml.h"

#include "lab/ics/MissingLines.h"
#include "util/HtmlText.h"
#include "util/TextSearch.h"

namespace vornlab {

namespace {

std::string piecesForPlainText(std::string_view text) {
  std::string body;
  body.reserve(text.size() + text.size() / 8);
  bool afterBlank = true;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    switch (c) {
      case '&': body += "&amp;"; break;
      case '<': body += "&lt;"; break;
      case '>': body += "&gt;"; break;
      // The line end of an old program, unless it is a part of one.
      case '\r':
        if (text.substr(at).starts_with("\r\n")) continue;
        [[fallthrough]];
      case '\n': body += "<br>\n"; break;
      // HTML shows a run of blanks as one, and none at the start of a line.
      case ' ': body += afterBlank ? "&nbsp;" : " "; break;
      default: body += c;
    }
    afterBlank = c == ' ' || c == '\n' || c == '\r';
  }
  return body;
}

}  // namespace

std::string htmlForPlainText(std::string_view text) {
  return "<html><head><meta charset=\"utf-8\"></head><body>" + piecesForPlainText(text) + "</body></html>";
}

std::string shownHtml(const CalendarEvent& event) {
  if (const vorn::OptionalText html = event.htmlDescription()) {
    // The HTML stays below, since an invitation is found by what only it has.
    const std::string lines = linesMissingIn(*html, event.plainDescription());
    return lines.empty() ? *html : withPieceInFront(*html, "<div>" + piecesForPlainText(lines) + "</div>");
  }
  const vorn::OptionalText html = event.htmlInDescription();
  return html ? *html : htmlForPlainText(event.description().value_or(""));
}

void storeBody(CalendarEvent& event, const std::string& html, bool isHtml) {
  event.setDescription(vorn::htmlToPlainText(html), isHtml ? vorn::OptionalText(html) : std::nullopt);
}

std::string withPieceInFront(std::string_view html, std::string_view piece) {
  const std::size_t tag = vorn::findIgnoringCase(html, "<body");
  const std::size_t end = tag == std::string_view::npos ? tag : html.find('>', tag);
  const std::size_t at = end == std::string_view::npos ? 0 : end + 1;
  std::string result;
  result.reserve(html.size() + piece.size());
  result += html.substr(0, at);
  result += piece;
  result += html.substr(at);
  return result;
}

}  // namespace vornlab
