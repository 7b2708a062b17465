#include "settings/VNAlternateHostSearchListWindowController.h"

namespace vorn {

using namespace panel_rules;

namespace {

std::vector<TokenSearchList::Row> rowsOf(const std::vector<AlternateHost>& users) {
  std::vector<TokenSearchList::Row> rows;
  for (const AlternateHost& user : users) rows.push_back({rowOf(user), chipOf(user)});
  return rows;
}

}  // namespace

VNAlternateHostSearchListWindowController::VNAlternateHostSearchListWindowController(ControlSet& controls)
    : m_list(controls, "alternateHostSearchListWindow") {}

void VNAlternateHostSearchListWindowController::setData(const std::vector<AlternateHost>& users) {
  m_list.setData(rowsOf(users));
}

}  // namespace vorn
