#pragma once

#include <functional>
#include <string>
#include <vector>

#include "settings/TokenField.h"
#include "settings/VNAlternateHostSearchListWindowController.h"

namespace vorn {

// The lists and the chips of the field of alternate hosts: who is offered while somebody types, and what a typed
// or a pasted address becomes. Panel and field outlive it. Main thread only.
class VNAlternateHostController final : private TokenField::Words {
 public:
  // Who watches the text hears of what the user has not just done there, and of a text in which nothing is typed.
  struct Watcher {
    std::function<void()> textHasChanged;
    std::function<void()> tokenIsEmpty;
  };
  VNAlternateHostController(const PanelParts& panel, Control& field, Watcher watcher);

  // The word is what is typed; everybody is offered, whatever it is. The range goes by the field's own.
  void initAlternatehostSearchListWithString(const std::string& word);
  void closeAlternateHostSearchListWindow() { m_alternateHostSearchListWindow.close(); }
  bool isListClicked(std::string_view key) const { return m_alternateHostSearchListWindow.cellClicked(key); }
  // Chooses the row that is selected; nothing without one.
  void takeSelected() override;
  // The addresses in the field, each once.
  std::vector<std::string> getInvitedUserInfoFromView() const;
  // And those that are still to come.
  std::vector<std::string> getInvitedUserInfoToCome() const;
  // Something in the field is no address.
  bool hasError() const;
  // What the field holds that is none.
  std::string wordsThatAreNoAddress() const;

  // The field, with what can be chosen for it.
  TokenField& field() { return m_tokens; }

  // The entry of an address that is known by nothing else.
  static panel_rules::VNAlternateHostCell entryOf(const std::string& email);

 private:
  void search(const std::string& word) override { initAlternatehostSearchListWithString(word); }
  bool isChipsWord(const std::string& word) const override;
  void takeWord(const std::string& word) override { updateAlternateHostTextViewByEmail(word); }
  void selectNext() override { m_alternateHostSearchListWindow.selectNextUser(); }
  void selectPrevious() override { m_alternateHostSearchListWindow.selectPreviousUser(); }
  std::vector<TokenPiece> piecesOf(const std::string& pasted) override;
  void tokenIsEmpty() override { m_watcher.tokenIsEmpty(); }
  void textHasChanged() override { m_watcher.textHasChanged(); }

  // The chip of the address, or of the user, takes the place of what is being typed in a moment.
  void updateAlternateHostTextViewByEmail(const std::string& email);
  void selectUserInAlternateHostSearchList(const panel_rules::VNAlternateHostCell& user);
  // What is being typed, without blanks around it; "" for nothing.
  std::string getAlternateHostWhenSelectionChange() const;
  std::vector<panel_rules::VNAlternateHostCell> attendees();
  // In any case of letters, of those whom the list was made with.
  bool isExistedInAttendeeList(const std::string& email) const { return m_attendees.contains(email); }
  std::string getScheduleForEmail() const;
  void showAlternateHostSearchListWindowWithTextView() { m_alternateHostSearchListWindow.show(); }

  const PanelParts& m_panel;
  const Watcher m_watcher;
  VNAlternateHostSearchListWindowController m_alternateHostSearchListWindow;
  panel_rules::FoldedEmails m_attendees;
  TokenField m_tokens;
};

}  // namespace vorn
