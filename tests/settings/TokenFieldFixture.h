#pragma once

#include <string>

#include "platform/NotificationCenter.h"
#include "platform/RunLoop.h"
#include "tests/settings/PanelFixture.h"
#include "util/Utf16.h"

namespace vorn {

// A panel whose fields of tokens are typed into, character for character.
class TokenFieldTest : public SettingsPanelTest {
 protected:
  using Key = TokenText::Key;

  void edit(const std::string& key, const std::function<void(TokenText&)>& change) {
    EXPECT_EQ(click(key, [&](Control& field) { change(field.tokens); }), Use::done) << key;
  }
  void keyIn(const std::string& key, const std::string& text) {
    for (std::size_t at = 0; at < text.size();) {
      const std::string character = text.substr(at, utf8SequenceLength(text, at));
      edit(key, [&](TokenText& tokens) { tokens.type(character); });
      at += character.size();
    }
  }
  void press(const std::string& key, Key command) {
    edit(key, [&](TokenText& tokens) { tokens.press(command); });
  }
  // The chips that were asked for come.
  void waitForChips() {
    test.runLoop.runUntil([] { return false; }, 0.1);
  }
  std::string tokens(const std::string& key) { return control(key).tokens.inWords(); }
  std::vector<std::string> rows(const std::string& window) {
    std::vector<std::string> titles;
    if (control(window).hidden) return titles;
    for (const ControlItem& item : control(window + "Rows").items) titles.push_back(item.title);
    return titles;
  }
};

}  // namespace vorn
