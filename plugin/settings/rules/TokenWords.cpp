#include "settings/rules/TokenWords.h"

#include <algorithm>

#include "util/vnOLUtils.h"

namespace vorn::panel_rules {

namespace {

constexpr char kSemicolon = ';';

}  // namespace

std::string trimmed(std::string_view text) {
  return vnOLUtils::trimAllSpaceAndNewLine(std::string(text)).value_or("");
}

std::optional<CurrentToken> currentToken(const TokenText& tokens) {
  const TextRange caret = tokens.selection();
  if (caret.length > 0 || caret.begin == 0) return std::nullopt;
  std::size_t begin = caret.begin;
  while (begin > 0 && !tokens.isChip(begin - 1)) --begin;
  const TextRange range{begin, caret.begin - begin};
  return CurrentToken{range.length == 0 ? "" : tokens.text(range), range};
}

bool holdsSeparator(std::string_view text) { return text.find_first_of(" ;") != std::string_view::npos; }

bool endsWithSeparator(std::string_view text) {
  return !text.empty() && holdsSeparator(text.substr(text.size() - 1));
}

std::string wordOf(std::string_view token) {
  std::string word(token);
  std::erase(word, kSemicolon);
  return trimmed(word);
}

std::optional<std::string> onlyWordOf(std::string_view text) {
  // Semicolons and blanks alternate as they like, so the ends are found with both counted as one kind.
  std::string blanked(text);
  std::replace(blanked.begin(), blanked.end(), kSemicolon, ' ');
  const std::string inside = trimmed(blanked);
  if (inside.empty()) return "";
  std::string word(text.substr(blanked.find(inside), inside.size()));
  if (word.find(kSemicolon) != std::string::npos) return std::nullopt;
  return word;
}

std::string unknownWords(const TokenText& tokens, const std::function<bool(const std::string&)>& isKnown) {
  std::string words;
  for (const TokenPiece& piece : tokens.pieces()) {
    if (piece.chip) continue;
    const std::optional<std::string> word = onlyWordOf(piece.text);
    if (word && (word->empty() || isKnown(*word))) continue;
    if (!words.empty()) words += ' ';
    words += word.value_or(trimmed(piece.text));
  }
  return words;
}

}  // namespace vorn::panel_rules
