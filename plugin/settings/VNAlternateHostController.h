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
  void closeAlternateHostSearchListWindow() { m_list.list().close(); }
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
  bool isListClicked(std::string_view key) const;

  // The entry of an address that is known by nothing else.
  static panel_rules::AlternateHost entryOf(const std::string& email);

 private:
  void search(const std::string& word) override { initAlternatehostSearchListWithString(word); }
  std::optional<TokenChip> chipOfWord(const std::string& word) override;
  std::vector<TokenPiece> piecesOf(const std::string& pasted) override;
  void tokenIsEmpty() override { m_watcher.tokenIsEmpty(); }
  void textHasChanged() override { m_watcher.textHasChanged(); }

  std::vector<panel_rules::AlternateHost> attendees() const;
  std::string getScheduleForEmail() const;

  const PanelParts& m_panel;
  const Watcher m_watcher;
  VNAlternateHostSearchListWindowController m_list;
  TokenField m_tokens;
};

}  // namespace vorn
