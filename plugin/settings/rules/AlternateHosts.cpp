#include "settings/rules/AlternateHosts.h"

#include <algorithm>
#include <utility>

#include "settings/rules/TokenWords.h"
#include "util/Text.h"
#include "util/Utf16.h"
#include "util/vnOLUtils.h"

namespace vorn::panel_rules {

namespace {

// Between addresses of a list. People separate with commas, too, but an address may hold one, and so may the name
// of a person: a comma counts only where nothing else makes sense of it.
constexpr std::string_view kEndsEntry = ";\n\r";
constexpr std::string_view kBlank = " \t";

// Where the first entry of a list ends. A comma ends one behind an address in brackets.
std::size_t endOfEntry(std::string_view list) {
  char last = 0;
  for (std::size_t at = 0; at < list.size(); ++at) {
    const char c = list[at];
    if (kEndsEntry.find(c) != std::string_view::npos || (c == ',' && last == '>')) return at;
    if (kBlank.find(c) == std::string_view::npos) last = c;
  }
  return list.size();
}

// Takes the entries of a pasted list one after another.
class PasteReader {
 public:
  explicit PasteReader(const AddressTest& isValid) : m_isValid(isValid) {}

  void takeEntry(std::string_view entry) {
    if (takeNamed(entry)) return;
    while (!entry.empty()) {
      const std::size_t blanks = std::min(entry.find_first_not_of(kBlank), entry.size());
      m_text += entry.substr(0, blanks);
      entry.remove_prefix(blanks);
      const std::string_view word = entry.substr(0, entry.find_first_of(kBlank));
      if (!takeWord(word)) m_text += word;
      entry.remove_prefix(word.size());
    }
  }
  void takeSeparator(char separator) { m_text += separator; }

  std::vector<TokenPiece> pieces() && {
    endText();
    return std::move(m_pieces);
  }

 private:
  bool isAddress(std::string_view word) const { return m_isValid(std::string(word)); }

  // What stood between two chips only to separate them has done its work.
  void endText() {
    constexpr std::string_view kSeparators = " \t\r\n;,";
    const std::size_t begin = m_text.find_first_not_of(kSeparators);
    if (begin != std::string::npos) {
      const std::size_t end = m_text.find_last_not_of(kSeparators) + 1;
      m_pieces.push_back({.text = m_text.substr(begin, end - begin)});
    }
    m_text.clear();
  }

  void takeHost(std::string name, std::string_view email) {
    endText();
    m_pieces.push_back({.chip = chipOf({.name = std::move(name), .email = std::string(email)})});
  }

  bool takeNamed(std::string_view entry) {
    const std::string whole = trimmed(entry);
    const std::size_t begin = whole.rfind('<');
    if (begin == std::string::npos || !whole.ends_with('>')) return false;
    const std::string_view email = std::string_view(whole).substr(begin + 1, whole.size() - begin - 2);
    std::string name = trimmed(std::string_view(whole).substr(0, begin));
    if (name.size() >= 2 && name.front() == '"' && name.back() == '"') name = name.substr(1, name.size() - 2);
    if (name.empty()) name = email;
    // Another address among the words before it is no part of a name.
    if (!isAddress(email) || (name.find('@') != std::string::npos && !equalIgnoringCase(name, email)))
      return false;
    takeHost(std::move(name), email);
    return true;
  }

  bool takeWord(std::string_view word) {
    if (word.starts_with('<') && word.ends_with('>') && takeNamed(word)) return true;
    const bool hasEdge = word.starts_with(',') || word.ends_with(',');
    if (!hasEdge && isAddress(word)) {
      takeHost(std::string(word), word);
      return true;
    }
    if (word.find(',') == std::string_view::npos) return false;
    while (!word.empty()) {
      const std::string_view part = word.substr(0, word.find(','));
      if (isAddress(part)) {
        takeHost(std::string(part), part);
        word.remove_prefix(std::min(part.size() + 1, word.size()));
      } else {
        m_text += word.substr(0, part.size() + 1);
        word.remove_prefix(std::min(part.size() + 1, word.size()));
      }
    }
    return true;
  }

  const AddressTest& m_isValid;
  std::vector<TokenPiece> m_pieces;
  // Not yet known to be more than separators.
  std::string m_text;
};

}  // namespace

TokenChip chipOf(const VNAlternateHostCell& host) {
  return {.title = host.name.empty() ? host.email : host.name,
          .fields = {{"name", host.name}, {"jid", host.jid}, {"email", host.email}}};
}

std::string rowOf(const VNAlternateHostCell& host) {
  return host.name.empty() ? host.email : host.name + " <" + host.email + ">";
}

std::vector<std::string> invitedUsers(const TokenText& tokens, const AddressTest& isValid) {
  std::vector<std::string> users;
  std::unordered_set<std::string> known;
  for (const TokenPiece& piece : tokens.pieces()) {
    // A semicolon is no part of the address that it was typed with, though the service's test would take it for
    // one.
    const std::string user = piece.chip ? piece.chip->field("email") : onlyWordOf(piece.text).value_or("");
    if (user.empty() || (!piece.chip && !isValid(user))) continue;
    if (known.insert(user).second) users.push_back(user);
  }
  return users;
}

bool hasAlternateHostError(const TokenText& tokens, const std::string& typed, const AddressTest& isValid) {
  const auto isInvalid = [&isValid](const std::string& user) { return !isValid(user); };
  const std::vector<std::string> users = invitedUsers(tokens, isValid);
  if (std::any_of(users.begin(), users.end(), isInvalid)) return true;
  if (!typed.empty() && !isValid(typed)) return true;
  // Away from the caret, too: a commit would lose it without a word.
  return !unknownWords(tokens, isValid).empty();
}

FoldedEmails::FoldedEmails(const std::vector<std::string>& emails) {
  for (const std::string& email : emails) add(email);
}

bool FoldedEmails::add(const std::string& email) { return m_emails.insert(caseFolded(email)).second; }

bool FoldedEmails::contains(const std::string& email) const { return m_emails.contains(caseFolded(email)); }

std::vector<VNAlternateHostCell> offeredHosts(std::vector<VNAlternateHostCell> users,
                                              const AddressTest& isUserExisted, const std::string& ownEmail) {
  const FoldedEmails own({ownEmail});
  std::erase_if(users, [&](const VNAlternateHostCell& user) {
    return user.email.empty() || own.contains(user.email) || isUserExisted(user.email);
  });
  return users;
}

std::vector<VNAlternateHostCell> earlierHosts(const std::vector<std::string>& history,
                                              const AddressTest& isExistedInAttendeeList) {
  std::vector<VNAlternateHostCell> hosts;
  for (const std::string& email : history) {
    if (!isExistedInAttendeeList(email)) hosts.push_back({.jid = email, .email = email});
  }
  return hosts;
}

std::vector<TokenPiece> pastedHosts(std::string_view text, const AddressTest& isValid) {
  PasteReader reader(isValid);
  while (!text.empty()) {
    const std::size_t end = endOfEntry(text);
    reader.takeEntry(text.substr(0, end));
    if (end < text.size()) reader.takeSeparator(text[end]);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return std::move(reader).pieces();
}

double requiredExtraHeight(const std::vector<std::string>& hosts, double width) {
  constexpr std::size_t kSpaceOfChip = 3;
  constexpr double kWidthOfCharacter = 7.9;
  constexpr double kSecondLine = 40;
  std::size_t characters = 0;
  for (const std::string& host : hosts) characters += utf16Length(host) + kSpaceOfChip;
  return static_cast<double>(characters) * kWidthOfCharacter > width ? kSecondLine : 0;
}

}  // namespace vorn::panel_rules
