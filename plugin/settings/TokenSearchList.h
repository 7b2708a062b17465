#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/ControlSet.h"

namespace vorn {

// The list under a field of tokens that offers what can be chosen, of which one row is selected. It is a window of
// its own, closed when it is hidden; what its rows stand for is the business of each kind of list. Main thread
// only.
class TokenSearchList {
 public:
  void show() { m_window.hidden = false; }
  void close();
  bool isShown() const { return !m_window.hidden; }
  bool isEmpty() const { return m_rows.items.empty(); }
  // The user has clicked a row, which is selected now.
  bool cellClicked(std::string_view key) const { return key == m_rows.key; }

 protected:
  // The list has the key of its window with "Rows" behind; the window stands in the given one, "" for the sheet.
  TokenSearchList(ControlSet& controls, const std::string& windowKey, const std::string& inWindow = "");
  ~TokenSearchList() = default;
  TokenSearchList(const TokenSearchList&) = delete;
  TokenSearchList& operator=(const TokenSearchList&) = delete;

  // Selects the first row.
  void setRows(const std::vector<std::string>& rows);
  // Behind the others. The selection stays where there was one.
  void addRows(const std::vector<std::string>& rows);
  // Stops at the last row.
  void selectNext();
  // Stops at the first row. Without a selection it is the last one.
  void selectPrevious();
  // Absent without a selection.
  std::optional<std::size_t> selectedRow() const;

 private:
  int rowCount() const { return static_cast<int>(m_rows.items.size()); }

  Control& m_window;
  Control& m_rows;
};

}  // namespace vorn
