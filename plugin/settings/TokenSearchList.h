#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/ControlSet.h"

namespace vorn {

// The list under a field of tokens that offers what can be chosen, of which one row is selected. It is a window of
// its own, closed when it is hidden. Main thread only.
class TokenSearchList {
 public:
  struct Row {
    std::string text;
    // What the field gets for it.
    TokenChip chip;
  };

  // The list has the key of its window with "Rows" behind; the window stands in the given one, "" for the sheet.
  TokenSearchList(ControlSet& controls, const std::string& windowKey, const std::string& inWindow = "");

  // Selects the first row.
  void setData(const std::vector<Row>& rows);

  // Stops at the last row.
  void selectNext();
  // Stops at the first row. Without a selection it is the last one.
  void selectPrevious();
  // Null without a selection.
  const TokenChip* selected() const;

  void show() { m_window.hidden = false; }
  void close();
  bool isShown() const { return !m_window.hidden; }
  // The user has clicked a row, which is selected now.
  bool isClicked(std::string_view key) const { return key == m_rows.key; }

 private:
  Control& m_window;
  Control& m_rows;
  std::vector<TokenChip> m_chips;
};

}  // namespace vorn
