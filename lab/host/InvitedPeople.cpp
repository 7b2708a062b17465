#include "lab/host/InvitedPeople.h"

#include <algorithm>
#include <map>
#include <set>

#include "util/CharacterSets.h"

namespace vornlab {
namespace {

// As it is pasted from anywhere, with blanks of every kind around it.
std::string_view bare(std::string_view text) { return vorn::trimmed(text, vorn::isWhitespaceOrNewline); }

// One who was invited without an address, as a file may have it, is known by that text, too.
bool isAddress(std::string_view text) {
  const std::size_t at = text.find('@');
  return at != 0 && at != std::string_view::npos && at + 1 < text.size() &&
         text.find('@', at + 1) == std::string_view::npos && std::none_of(text.begin(), text.end(), [](char c) {
           return static_cast<unsigned char>(c) <= ' ' ||
                  std::string_view("<>\",;:()[]").find(c) != std::string_view::npos;
         });
}

// The pieces between commas, semicolons and line breaks that stand in no quotation marks.
std::vector<std::string_view> piecesOf(std::string_view text) {
  std::vector<std::string_view> pieces;
  std::size_t begin = 0;
  bool isQuoted = false;
  for (std::size_t at = 0; at <= text.size(); ++at) {
    const char c = at < text.size() ? text[at] : '\n';
    if (c == '"') isQuoted = !isQuoted;
    const bool isBetween = c == '\n' || c == '\r' || (!isQuoted && (c == ',' || c == ';'));
    if (!isBetween) continue;
    if (const std::string_view piece = bare(text.substr(begin, at - begin)); !piece.empty())
      pieces.push_back(piece);
    begin = at + 1;
    if (c == '\n' || c == '\r') isQuoted = false;
  }
  return pieces;
}

// In one line, and a quotation mark cannot be typed between two of them.
std::string shownName(std::string name) {
  std::replace(name.begin(), name.end(), '"', '\'');
  std::replace_if(
      name.begin(), name.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
  return name;
}

}  // namespace

InvitedPeople readPeople(std::string_view text, const std::vector<CalendarAttendee>& known) {
  std::map<std::string, CalendarAttendee, std::less<>> byAddress;
  for (const CalendarAttendee& person : known) byAddress.emplace(person.emailAddress, person);
  InvitedPeople read;
  std::set<std::string> taken;
  for (const std::string_view piece : piecesOf(text)) {
    const std::size_t open = piece.back() == '>' ? piece.rfind('<') : std::string_view::npos;
    const bool isNamed = open != std::string_view::npos;
    const std::string address(bare(isNamed ? piece.substr(open + 1, piece.size() - open - 2) : piece));
    std::string name(isNamed ? bare(piece.substr(0, open)) : std::string_view());
    std::erase(name, '"');
    const auto before = byAddress.find(address);
    if (before == byAddress.end() && !isAddress(address)) {
      read.unread.emplace_back(piece);
      continue;
    }
    if (!taken.insert(address).second) continue;
    CalendarAttendee person = before != byAddress.end() ? before->second : CalendarAttendee{address, address, 0};
    // A name that stands as it was shown is the one that was there.
    if (!name.empty() && name != bare(shownName(person.name))) person.name = name;
    read.people.push_back(std::move(person));
  }
  return read;
}

std::string writtenPeople(const std::vector<CalendarAttendee>& people) {
  std::string text;
  for (const CalendarAttendee& person : people) {
    if (!text.empty()) text += ", ";
    if (person.name.empty() || person.name == person.emailAddress) {
      text += person.emailAddress;
      continue;
    }
    const std::string name = shownName(person.name);
    const bool isQuoted = name.find_first_of(",;<>") != std::string::npos;
    text += (isQuoted ? '"' + name + '"' : name) + " <" + person.emailAddress + ">";
  }
  return text;
}

}  // namespace vornlab
