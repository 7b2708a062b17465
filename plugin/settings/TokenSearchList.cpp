#include "settings/TokenSearchList.h"

#include <algorithm>

namespace vorn {

namespace {

constexpr double kRowHeight = 26;
constexpr int kMostRows = 5;
constexpr int kNone = -1;

}  // namespace

TokenSearchList::TokenSearchList(ControlSet& controls, const std::string& windowKey, const std::string& inWindow)
    : m_window(controls.add(Control::Kind::window, windowKey, inWindow)),
      m_rows(controls.add(Control::Kind::list, windowKey + "Rows", windowKey)) {
  m_rows.rowHeight = kRowHeight;
  m_rows.mostRows = kMostRows;
  close();
}

void TokenSearchList::setRows(const std::vector<std::string>& rows) {
  m_rows.items.clear();
  m_rows.index = kNone;
  addRows(rows);
}

void TokenSearchList::addRows(const std::vector<std::string>& rows) {
  for (const std::string& row : rows) m_rows.items.emplace_back(row);
  if (m_rows.index == kNone && !isEmpty()) m_rows.index = 0;
}

void TokenSearchList::selectNext() { m_rows.index = std::min(m_rows.index + 1, rowCount() - 1); }

void TokenSearchList::selectPrevious() {
  const int from = m_rows.index == kNone ? rowCount() : m_rows.index;
  m_rows.index = isEmpty() ? kNone : std::max(from - 1, 0);
}

std::optional<std::size_t> TokenSearchList::selectedRow() const {
  if (m_rows.index < 0 || m_rows.index >= rowCount()) return std::nullopt;
  return static_cast<std::size_t>(m_rows.index);
}

void TokenSearchList::close() {
  m_window.hidden = true;
  setRows({});
}

}  // namespace vorn
