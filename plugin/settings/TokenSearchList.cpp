#include "settings/TokenSearchList.h"

#include <algorithm>
#include <utility>

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

void TokenSearchList::setData(const std::vector<Row>& rows) {
  m_chips.clear();
  m_rows.items.clear();
  for (const Row& row : rows) {
    m_rows.items.emplace_back(row.text);
    m_chips.push_back(row.chip);
  }
  m_rows.index = rows.empty() ? kNone : 0;
}

void TokenSearchList::selectNext() {
  const int last = static_cast<int>(m_chips.size()) - 1;
  m_rows.index = std::min(m_rows.index + 1, last);
}

void TokenSearchList::selectPrevious() {
  const int from = m_rows.index == kNone ? static_cast<int>(m_chips.size()) : m_rows.index;
  m_rows.index = m_chips.empty() ? kNone : std::max(from - 1, 0);
}

const TokenChip* TokenSearchList::selected() const {
  const auto index = static_cast<std::size_t>(m_rows.index);
  return m_rows.index >= 0 && index < m_chips.size() ? &m_chips[index] : nullptr;
}

void TokenSearchList::close() {
  m_window.hidden = true;
  setData({});
}

}  // namespace vorn
