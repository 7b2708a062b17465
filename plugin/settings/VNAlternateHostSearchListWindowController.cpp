#include "settings/VNAlternateHostSearchListWindowController.h"

#include <utility>

namespace vorn {

using namespace panel_rules;

namespace {

std::vector<std::string> rowsOf(const std::vector<VNAlternateHostCell>& users) {
  std::vector<std::string> rows;
  for (const VNAlternateHostCell& user : users) rows.push_back(rowOf(user));
  return rows;
}

}  // namespace

VNAlternateHostSearchListWindowController::VNAlternateHostSearchListWindowController(ControlSet& controls)
    : TokenSearchList(controls, "alternateHostSearchListWindow") {}

void VNAlternateHostSearchListWindowController::setData(Users users) {
  m_dataArray = std::move(users);
  setRows(rowsOf(m_dataArray));
}

void VNAlternateHostSearchListWindowController::addDataWithArray(const Users& users) {
  // A list that was closed has forgotten its rows.
  if (isEmpty()) m_dataArray.clear();
  m_dataArray.insert(m_dataArray.end(), users.begin(), users.end());
  addRows(rowsOf(users));
}

const VNAlternateHostCell* VNAlternateHostSearchListWindowController::getSelectedUserInfo() const {
  const auto row = selectedRow();
  return row ? &m_dataArray[*row] : nullptr;
}

}  // namespace vorn
