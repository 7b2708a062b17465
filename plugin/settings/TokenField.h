#pragma once

#include <optional>
#include <string>
#include <vector>

#include "settings/PanelParts.h"
#include "settings/TokenSearchList.h"

namespace vorn {

// What typing does in a field of tokens: it brings up the list, a separator turns a word into a chip, and keys
// walk through the list. A chip that was asked for comes a moment later; until then its word stands in the text.
//
// Field, list and words outlive it. Main thread only.
class TokenField {
 public:
  // What one kind of token has of its own.
  class Words {
   public:
    virtual ~Words() = default;
    // The word that is being typed, never empty: fills and shows the list, or closes it.
    virtual void search(const std::string& word) = 0;
    // Whether a separator behind the word makes a chip of it, and asks for that chip.
    virtual bool isChipsWord(const std::string& word) const = 0;
    virtual void takeWord(const std::string& word) = 0;
    // Keys walk through the list.
    virtual void selectNext() = 0;
    virtual void selectPrevious() = 0;
    // Chooses the row that is selected; nothing without one.
    virtual void takeSelected() = 0;
    // What the field takes for a pasted text.
    virtual std::vector<TokenPiece> piecesOf(const std::string& pasted) = 0;
    // Nothing is being typed.
    virtual void tokenIsEmpty() {}
    // The text has changed though the user did nothing just now.
    virtual void textHasChanged() = 0;
  };

  TokenField(const PanelParts& panel, Control& field, TokenSearchList& list, Words& words);
  // Takes back what has not come yet.
  ~TokenField();
  TokenField(const TokenField&) = delete;
  TokenField& operator=(const TokenField&) = delete;

  const TokenText& text() const { return m_field.tokens; }

  // Empties the field. The chips come a moment later, in front of the text, which is there at once.
  void refill(const std::vector<TokenChip>& chips, const std::string& text);
  // The user did something in the field.
  void userTyped();
  // The chip comes a moment later in place of what is being typed.
  void request(const TokenChip& chip) { request({chip}, m_tokenRange); }
  // The same for one that was chosen from the list, which is closed.
  void choose(const TokenChip& chip);
  // Puts in the chips that have not come yet.
  void settle();
  // The text as it will be when they have come.
  TokenText settledText() const;

 private:
  struct Request {
    std::vector<TokenChip> chips;
    TextRange range;
    // What stood there when the chips were asked for.
    std::string replaced;
  };

  void textViewDidChangeSelection();
  void doCommand(TokenText::Key command);
  void takePasted(std::size_t length);
  void request(std::vector<TokenChip> chips, TextRange range);
  static bool putIn(const Request& request, TokenText& tokens);
  void onDue();

  const PanelParts& m_panel;
  Control& m_field;
  TokenSearchList& m_list;
  Words& m_words;
  // Of the token that is being typed.
  TextRange m_tokenRange;
  // Whoever asks for chips has settled what was asked for before.
  std::optional<Request> m_request;
};

}  // namespace vorn
