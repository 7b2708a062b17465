#include "settings/TokenField.h"

#include <algorithm>
#include <utility>

#include "platform/Registry.h"
#include "platform/RunLoop.h"
#include "settings/PanelSections.h"
#include "settings/rules/TokenWords.h"

namespace vorn {

using namespace panel_rules;

namespace {

constexpr double kDelaySeconds = 0.1;

bool takesKeyboard(const Control& control) {
  switch (control.kind) {
    case Control::Kind::window:
    case Control::Kind::box:
    case Control::Kind::label:
    case Control::Kind::list: return false;
    default: return true;
  }
}

// The control that the keyboard goes to from this one, in the same window and as they stand there; the first
// behind the last.
std::string nextControl(const ControlSet& controls, const std::string& key) {
  std::vector<std::string> keys;
  forEachPlace(layoutOf(panelSections(), controls), [&](const auto& place) { keys.push_back(place.key); });
  const auto found = std::find(keys.begin(), keys.end(), key);
  std::rotate(keys.begin(), found, keys.end());
  const std::string window = controls.windowOf(key);
  for (const std::string& next : keys) {
    const Control& control = *controls.find(next);
    if (next == key || !takesKeyboard(control) || !control.enabled) continue;
    if (controls.isOnScreen(next) && controls.windowOf(next) == window) return next;
  }
  return key;
}

}  // namespace

TokenField::TokenField(const PanelParts& panel, Control& field, TokenSearchList& list, Words& words)
    : m_panel(panel), m_field(field), m_list(list), m_words(words) {}

TokenField::~TokenField() {
  if (RunLoop* runLoop = Registry::platform().runLoop) runLoop->cancelPrevious(this);
}

void TokenField::refill(const std::vector<TokenChip>& chips, const std::string& text) {
  // What is still to come belongs to the text that goes.
  Registry::platform().runLoop->cancelPrevious(this);
  m_request.reset();
  m_tokenRange = {};
  m_list.close();
  m_field.tokens.clear();
  if (!text.empty()) m_field.tokens.replace({}, {{.text = text}});
  if (!chips.empty()) request(chips, {});
}

// -- What the user does ------------------------------------------------------------------------------------------

void TokenField::userTyped() {
  const TokenText::Input input = m_field.tokens.takeInput();
  // Who types on before a chip has come would have it swallow what was typed since.
  settle();
  switch (input.kind) {
    case TokenText::Input::Kind::command: return doCommand(input.command);
    case TokenText::Input::Kind::pasted: takePasted(input.pasted.length); break;
    case TokenText::Input::Kind::changed:
    case TokenText::Input::Kind::none: break;
  }
  textViewDidChangeSelection();
}

void TokenField::textViewDidChangeSelection() {
  const std::optional<CurrentToken> token = currentToken(m_field.tokens);
  if (token) m_tokenRange = token->range;
  const std::string text = token ? token->text : "";
  const std::string word = wordOf(text);
  if (word.empty()) {
    m_list.close();
  } else {
    m_words.search(word);
  }
  if (!holdsSeparator(text)) {
    if (text.empty()) m_words.tokenIsEmpty();
    return;
  }
  if (word.empty()) return;
  const std::optional<std::string> only = onlyWordOf(text);
  if (!only || !m_words.isChipsWord(*only)) return m_list.close();
  // A blank before the word ends none: the first letters of an address may be one already, and the rest would be
  // left over.
  if (endsWithSeparator(text)) m_words.takeWord(*only);
}

void TokenField::doCommand(TokenText::Key command) {
  switch (command) {
    case TokenText::Key::tab:
      m_list.close();
      return m_panel.steps.makeFirstResponderWithObject(nextControl(m_panel.controls, m_field.key));
    case TokenText::Key::down:
      if (m_list.isShown()) m_words.selectNext();
      return;
    case TokenText::Key::up:
      if (m_list.isShown()) m_words.selectPrevious();
      return;
    case TokenText::Key::newLine:
      if (m_list.isShown()) m_words.takeSelected();
      return;
    // Nothing is chosen, and what was typed stays.
    case TokenText::Key::escape: return m_list.close();
    default: return;
  }
}

// The pasted text ends where the caret is.
void TokenField::takePasted(std::size_t length) {
  TokenText& tokens = m_field.tokens;
  const std::size_t end = tokens.selection().end();
  const TextRange range{end - std::min(length, end), std::min(length, end)};
  const std::vector<TokenPiece> pieces = m_words.piecesOf(tokens.text(range));
  const bool hasChip =
      std::any_of(pieces.begin(), pieces.end(), [](const TokenPiece& piece) { return !!piece.chip; });
  if (hasChip) tokens.replace(range, pieces);
}

void TokenField::choose(const TokenChip& chip) {
  settle();
  request(chip);
  m_list.close();
}

// -- What comes later --------------------------------------------------------------------------------------------

void TokenField::request(std::vector<TokenChip> chips, TextRange range) {
  m_request = Request{std::move(chips), range, m_field.tokens.text(range)};
  Registry::platform().runLoop->performAfter(kDelaySeconds, this, "select:", [this] { onDue(); });
}

// A text that has changed meanwhile is the user's, and stays.
bool TokenField::putIn(const Request& request, TokenText& tokens) {
  if (request.range.end() > tokens.length() || tokens.text(request.range) != request.replaced) return false;
  std::vector<TokenPiece> pieces;
  for (const TokenChip& chip : request.chips) pieces.push_back({.chip = chip});
  tokens.replace(request.range, pieces);
  return true;
}

TokenText TokenField::settledText() const {
  TokenText tokens = m_field.tokens;
  if (m_request) putIn(*m_request, tokens);
  return tokens;
}

void TokenField::onDue() {
  const ControlSet::Change change(m_panel.controls);
  const std::optional<Request> due = std::exchange(m_request, std::nullopt);
  if (!due) return;
  if (putIn(*due, m_field.tokens)) {
    m_list.close();
    if (due->range.length > 0) {
      textViewDidChangeSelection();
    } else {
      // The panel has put them in: nobody is offered anything.
      m_words.tokenIsEmpty();
    }
  }
  m_words.textHasChanged();
}

void TokenField::settle() {
  if (!m_request) return;
  Registry::platform().runLoop->cancelPrevious(this);
  m_field.tokens = settledText();
  m_request.reset();
  if (const std::optional<CurrentToken> token = currentToken(m_field.tokens)) m_tokenRange = token->range;
  m_list.close();
  m_words.textHasChanged();
}

}  // namespace vorn
