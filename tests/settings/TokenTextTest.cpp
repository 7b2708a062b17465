// A text with chips, as it is edited and as its words are found.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/controls/TokenText.h"
#include "settings/rules/TokenWords.h"

namespace vorn {
namespace {

using namespace panel_rules;
using Key = TokenText::Key;
using InputKind = TokenText::Input::Kind;
constexpr auto kExtends = TokenText::Extends::yes;

TokenPiece chip(const std::string& title) {
  return {.chip = TokenChip{.title = title, .fields = {{"email", title}}}};
}
TokenPiece plain(const std::string& text) { return {.text = text}; }

// The text in words, with the caret as "|", and a selection in braces.
std::string seen(const TokenText& tokens) {
  const TextRange at = tokens.selection();
  TokenText marked = tokens;
  marked.replace({at.end(), 0}, {plain(at.length > 0 ? "}" : "|")});
  if (at.length > 0) marked.replace({at.begin, 0}, {plain("{")});
  return marked.inWords();
}

using Edit = std::function<void(TokenText&)>;

Edit typing(const std::string& text) {
  return [=](TokenText& tokens) { tokens.type(text); };
}
Edit pressing(Key key, TokenText::Extends extends = TokenText::Extends::no) {
  return [=](TokenText& tokens) { tokens.press(key, extends); };
}
Edit selecting(std::size_t begin, std::size_t length) {
  return [=](TokenText& tokens) { tokens.select({begin, length}); };
}
Edit replacing(const TextRange& range, const std::vector<TokenPiece>& by) {
  return [=](TokenText& tokens) { tokens.replace(range, by); };
}

TEST(TokenText, IsEditedAsAPersonExpects) {
  const Edit left = pressing(Key::left, kExtends), start = pressing(Key::start),
             backward = pressing(Key::deleteBackward), forward = pressing(Key::deleteForward);
  const Edit paste = [](TokenText& tokens) { tokens.paste("a\uFFFCb"); };
  const struct {
    const char* what;
    std::vector<TokenPiece> before;
    std::vector<Edit> edits;
    const char* after;
  } rows[] = {
      {"typing at the end", {chip("a"), plain("b")}, {typing("c")}, "[a]bc|"},
      {"typing over a selection", {chip("a"), plain("bcd"), chip("e")}, {selecting(0, 3), typing("x")}, "x|d[e]"},
      {"deleting a chip backward", {plain("a"), chip("b")}, {backward}, "a|"},
      {"deleting at the edges", {plain("a")}, {forward, start, backward}, "|a"},
      {"a character outside the plane goes whole", {plain("a\U0001F600")}, {backward}, "a|"},
      {"and forward", {plain("\U0001F600a")}, {start, forward}, "|a"},
      {"and is stepped over", {plain("\U0001F600a")}, {start, pressing(Key::right)}, "\U0001F600|a"},
      {"a selection does not cut it",
       {plain("\U0001F600\U0001F601")},
       {selecting(1, 2)},
       "{\U0001F600\U0001F601}"},
      {"nor does a caret", {plain("\U0001F600")}, {selecting(1, 0)}, "|\U0001F600"},
      {"a selection behind the end", {plain("ab")}, {selecting(1, SIZE_MAX)}, "a{b}"},
      {"extending to the left", {plain("abc")}, {left, left}, "a{bc}"},
      {"extending to the left, and leaving there", {plain("abc")}, {left, left, pressing(Key::left)}, "a|bc"},
      {"a pasted chip's character is no chip", {}, {paste}, "ab|"},
      {"a key that is for the owner", {plain("a")}, {pressing(Key::newLine)}, "a|"},
      {"replacing before the caret", {plain("ab c")}, {replacing({0, 3}, {chip("x")})}, "[x]c|"},
      {"around it", {plain("abc")}, {selecting(1, 0), replacing({0, 2}, {chip("x"), plain("y")})}, "[x]y|c"},
      {"behind it", {plain("abc"), chip("d")}, {selecting(1, 0), replacing({2, 2}, {chip("x")})}, "a|b[x]"},
      {"replacing half a character", {plain("\U0001F600a")}, {replacing({1, 1}, {chip("x")})}, "[x]a|"},
      {"right to left and combining marks", {plain("שלום")}, {typing("e\u0301")}, "שלוםe\u0301|"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    TokenText tokens;
    tokens.replace({}, row.before);
    for (const Edit& edit : row.edits) edit(tokens);
    EXPECT_EQ(seen(tokens), row.after);
    TokenText again;
    again.replace({}, tokens.pieces());
    EXPECT_EQ(again.inWords(), tokens.inWords()) << "chips and their places agree";
  }
}

TEST(TokenText, TellsOnceWhatTheUserHasDone) {
  TokenText tokens;
  tokens.type("a");
  EXPECT_EQ(tokens.takeInput().kind, InputKind::changed);
  EXPECT_EQ(tokens.takeInput().kind, InputKind::none);
  tokens.paste("\U0001F600b");
  const TokenText::Input pasted = tokens.takeInput();
  EXPECT_EQ(pasted.kind, InputKind::pasted);
  EXPECT_EQ(pasted.pasted, (TextRange{1, 3}));
  tokens.press(Key::down);
  const TokenText::Input pressed = tokens.takeInput();
  EXPECT_EQ(pressed.kind, InputKind::command);
  EXPECT_EQ(pressed.command, Key::down);
  tokens.replace({0, 1}, {chip("x")});
  EXPECT_EQ(tokens.takeInput().kind, InputKind::none) << "not the user's doing";
}

TEST(TokenWords, TheTokenIsWhatStandsBetweenChipAndCaret) {
  const struct {
    std::vector<TokenPiece> pieces;
    TextRange selection;
    std::optional<CurrentToken> token;
  } rows[] = {
      {{}, {0, 0}, std::nullopt},
      {{plain("ab")}, {0, 0}, std::nullopt},
      {{plain("ab")}, {1, 1}, std::nullopt},
      {{plain("ab")}, {2, 0}, CurrentToken{"ab", {0, 2}}},
      {{plain("ab cd")}, {4, 0}, CurrentToken{"ab c", {0, 4}}},
      {{chip("a"), plain("bc"), chip("d")}, {3, 0}, CurrentToken{"bc", {1, 2}}},
      {{chip("a"), plain("bc"), chip("d")}, {4, 0}, CurrentToken{"", {4, 0}}},
  };
  for (const auto& row : rows) {
    TokenText tokens;
    tokens.replace({}, row.pieces);
    tokens.select(row.selection);
    EXPECT_EQ(currentToken(tokens), row.token) << seen(tokens);
  }
}

TEST(TokenWords, SemicolonsJoinNoWords) {
  const struct {
    const char* text;
    const char* word;
    std::optional<std::string> only;
  } rows[] = {
      {"", "", ""},
      {" ;\n; ", "", ""},
      {" ab ", "ab", "ab"},
      {";ab;", "ab", "ab"},
      {"; ab ;;", "ab", "ab"},
      {"a;b", "ab", std::nullopt},
      {" a ;b; ", "a b", std::nullopt},
      {"a b;", "a b", "a b"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(wordOf(row.text), row.word) << row.text;
    EXPECT_EQ(onlyWordOf(row.text), row.only) << row.text;
  }
}

}  // namespace
}  // namespace vorn
