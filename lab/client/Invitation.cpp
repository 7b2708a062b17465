#include "lab/client/Invitation.h"

#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <utility>

#include "lab/client/InvitationWords.h"

namespace vornlab {
namespace {

std::string filled(const std::string& format, const std::string& value) {
  const auto at = format.find("%1");
  return at == std::string::npos ? format : format.substr(0, at) + value + format.substr(at + 2);
}

struct ZoneFormat {
  std::unique_ptr<icu::SimpleDateFormat> format;
  std::string shownZone;
};

// Making a formatter costs far more than using it, and a calendar knows few time zones.
const ZoneFormat& zoneFormat(const InvitationWords& words, const std::string& timezone) {
  constexpr std::size_t kMostKept = 64;
  thread_local std::map<std::pair<std::string, std::string>, ZoneFormat> kept;
  if (kept.size() > kMostKept) kept.clear();
  auto& entry = kept[{words.language, timezone}];
  if (entry.format != nullptr) return entry;

  UErrorCode status = U_ZERO_ERROR;
  entry.format = std::make_unique<icu::SimpleDateFormat>(icu::UnicodeString::fromUTF8(words.datePattern),
                                                         icu::Locale(words.language), status);
  std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(timezone)));
  const bool known = *zone != icu::TimeZone::getUnknown();
  entry.shownZone = known ? timezone : "UTC";
  entry.format->adoptTimeZone(known ? zone.release() : icu::TimeZone::getGMT()->clone());
  return entry;
}

std::string timeText(const InvitationWords& words, const InvitationFacts& facts) {
  const ZoneFormat& zone = zoneFormat(words, facts.timezone);
  icu::UnicodeString time;
  zone.format->format(static_cast<UDate>(facts.start) * 1000.0, time);
  std::string text;
  return time.toUTF8String(text) + " " + zone.shownZone;
}

std::vector<DialInNumber> numbersOf(const InvitationFacts& facts) {
  std::vector<DialInNumber> numbers;
  if (!facts.telephony || !facts.otherAudio.empty()) return numbers;
  for (const auto& country : facts.countries) {
    for (auto& number : dialInNumbers(country, facts.tollFree)) numbers.push_back(std::move(number));
  }
  return numbers;
}

struct RoomAddress {
  const char* address;
  const char* place;
};

// Addresses that are set aside for examples.
constexpr std::array<RoomAddress, 8> kRoomAddresses = {{{"192.0.2.17", "US West"},
                                                        {"192.0.2.81", "US East"},
                                                        {"198.51.100.20", "Netherlands"},
                                                        {"198.51.100.75", "Germany"},
                                                        {"198.51.100.130", "Australia (Sydney)"},
                                                        {"203.0.113.44", "Singapore"},
                                                        {"203.0.113.90", "Canada (Toronto)"},
                                                        {"203.0.113.151", "Japan (Tokyo)"}}};

std::string localNumbersUrl(const InvitationFacts& facts) { return "https://vorn.example/u/k" + facts.number; }

std::string plainText(const InvitationWords& words, const InvitationFacts& facts) {
  const auto numbers = numbersOf(facts);
  std::string text = filled(words.invites, facts.hostName) + "\n\n";
  text += std::string(words.topic) + ": " + facts.topic + "\n";
  if (facts.start != 0) text += std::string(words.time) + ": " + timeText(words, facts) + "\n";
  if (facts.recurring) text += std::string(words.every) + "\n";
  text += "\n" + std::string(words.join) + "\n" + facts.joinUrl + "\n\n";
  text += std::string(words.meetingId) + ": " + grouped(facts.number) + "\n";
  if (!facts.passcode.empty()) text += std::string(words.passcode) + ": " + facts.passcode + "\n";
  text += "\n---\n\n";
  if (!facts.otherAudio.empty()) text += std::string(words.otherAudio) + "\n" + facts.otherAudio + "\n\n";
  if (!numbers.empty()) {
    text += std::string(words.oneTap) + "\n";
    for (const auto& n : numbers) text += "• " + n.number + ",," + facts.number + "# " + n.place + "\n";
    text += "\n---\n\n" + std::string(words.dial) + "\n";
    for (const auto& n : numbers) {
      text +=
          "• " + n.number + " " + n.place + (n.tollFree ? std::string(" (") + words.tollFree + ")" : "") + "\n";
    }
    text += "\n" + std::string(words.meetingId) + ": " + grouped(facts.number) + "\n";
    if (!facts.passcode.empty()) text += std::string(words.passcode) + ": " + facts.passcode + "\n";
    text += "\n" + std::string(words.findNumber) + ": " + localNumbersUrl(facts) + "\n\n---\n\n";
  }
  text += std::string(words.sip) + "\n• " + facts.number + "@sip.vorn.example\n\n";
  text += std::string(words.roomSystem) + "\n";
  for (const auto& room : kRoomAddresses) text += std::string("• ") + room.address + " (" + room.place + ")\n";
  text += "\n";
  text += std::string(words.meetingId) + ": " + grouped(facts.number) + "\n\n---\n\n";
  text += std::string(words.firstTime) + "\n\n" + words.keepPrivate + "\n\n";
  text += std::string(words.help) + ": https://vorn.example/help/joining\n";
  return text;
}

constexpr const char* kFont = "font-family:'Segoe UI',Helvetica,Arial,sans-serif;font-size:14px;line-height:20px;";

// A row of two cells; both texts are HTML already.
std::string row(const std::string& label, const std::string& value) {
  return std::string("<tr>\n  <td style=\"") + kFont +
         "color:#747487;padding:4px 24px 4px 0;vertical-align:top;white-space:nowrap;\">" + label +
         "</td>\n  <td style=\"" + kFont + "color:#131619;padding:4px 0;vertical-align:top;\">" + value +
         "</td>\n</tr>\n";
}

std::string link(const std::string& url, const std::string& shown) {
  return "<a href=\"" + escapeHtml(url) +
         "\" target=\"_blank\" rel=\"noopener\" style=\"color:#0e71eb;text-decoration:none;\">" + shown + "</a>";
}

std::string paragraph(const std::string& html) {
  return std::string("<p style=\"") + kFont + "color:#131619;margin:0 0 12px 0;\">" + html + "</p>\n";
}

std::string heading(const char* text) {
  return std::string("<p style=\"") + kFont + "color:#131619;font-weight:600;margin:20px 0 6px 0;\">" +
         escapeHtml(text) + "</p>\n";
}

constexpr const char* kTable =
    "<table role=\"presentation\" cellpadding=\"0\" cellspacing=\"0\" border=\"0\" "
    "style=\"border-collapse:collapse;margin:0 0 12px 0;\">\n";
constexpr const char* kRule =
    "<div style=\"border-top:1px solid #dfe3e8;height:1px;line-height:1px;margin:16px 0;\">&nbsp;</div>\n";

void addIdentity(std::string& html, const InvitationWords& words, const InvitationFacts& facts) {
  html += kTable;
  html += row(words.meetingId, escapeHtml(grouped(facts.number)));
  if (!facts.passcode.empty()) html += row(words.passcode, escapeHtml(facts.passcode));
  html += "</table>\n";
}

void addNumbers(std::string& html, const InvitationWords& words, const InvitationFacts& facts) {
  const auto numbers = numbersOf(facts);
  if (numbers.empty()) return;
  html += heading(words.oneTap);
  html += kTable;
  for (const auto& n : numbers) {
    const std::string dialled = n.number + ",," + facts.number + "#";
    std::string dialUrl = "tel:" + dialled;
    dialUrl.erase(std::remove(dialUrl.begin(), dialUrl.end(), ' '), dialUrl.end());
    html += row(link(dialUrl, escapeHtml(dialled)), escapeHtml(n.place));
  }
  html += "</table>\n";
  html += heading(words.dial);
  html += kTable;
  for (const auto& n : numbers) {
    html += row(escapeHtml(n.number),
                escapeHtml(n.place) + (n.tollFree ? std::string(" (") + words.tollFree + ")" : ""));
  }
  html += "</table>\n";
  addIdentity(html, words, facts);
  html += paragraph(link(localNumbersUrl(facts), escapeHtml(words.findNumber)));
  html += kRule;
}

std::string htmlText(const InvitationWords& words, const InvitationFacts& facts) {
  std::string html = "<div style=\"max-width:640px;padding:8px 0;\">\n";
  html += paragraph(escapeHtml(filled(words.invites, facts.hostName)));
  html += kTable;
  html += row(words.topic, "<b>" + escapeHtml(facts.topic) + "</b>");
  if (facts.start != 0) html += row(words.time, escapeHtml(timeText(words, facts)));
  html += "</table>\n";
  if (facts.recurring) html += paragraph(escapeHtml(words.every));
  html += std::string("<p style=\"margin:16px 0;\"><a href=\"") + escapeHtml(facts.joinUrl) +
          "\" target=\"_blank\" rel=\"noopener\" style=\"" + kFont +
          "background:#0e71eb;border-radius:8px;color:#ffffff;display:inline-block;padding:8px 20px;"
          "text-decoration:none;\">" +
          escapeHtml(words.join) + "</a></p>\n";
  html += paragraph(link(facts.joinUrl, escapeHtml(facts.joinUrl)));
  addIdentity(html, words, facts);
  html += kRule;
  if (!facts.otherAudio.empty()) {
    html += heading(words.otherAudio);
    html += paragraph(escapeHtml(facts.otherAudio));
  }
  addNumbers(html, words, facts);
  html += heading(words.sip);
  html += paragraph(link("sip:" + facts.number + "@sip.vorn.example", facts.number + "@sip.vorn.example"));
  html += heading(words.roomSystem);
  html += kTable;
  for (const auto& room : kRoomAddresses) html += row(room.address, room.place);
  html += "</table>\n";
  addIdentity(html, words, facts);
  html += kRule;
  html += paragraph(escapeHtml(words.firstTime));
  html += paragraph(escapeHtml(words.keepPrivate));
  html += paragraph(link("https://vorn.example/help/joining", escapeHtml(words.help)));
  html += "</div>\n";
  return html;
}

}  // namespace

Invitation makeInvitation(const InvitationFacts& facts) {
  const InvitationWords& words = invitationWords(facts.language);
  return {plainText(words, facts), htmlText(words, facts)};
}

std::string grouped(const std::string& digits) {
  if (digits.size() < 9) return digits;
  const std::size_t second = digits.size() < 11 ? 6 : 7;
  return digits.substr(0, 3) + " " + digits.substr(3, second - 3) + " " + digits.substr(second);
}

std::string escapeHtml(const std::string& text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (const char c : text) {
    switch (c) {
      case '&': escaped += "&amp;"; break;
      case '<': escaped += "&lt;"; break;
      case '>': escaped += "&gt;"; break;
      case '"': escaped += "&quot;"; break;
      case '\'': escaped += "&#39;"; break;
      default: escaped += c;
    }
  }
  return escaped;
}

}  // namespace vornlab
