#include "settings/PanelHistory.h"

namespace vorn {

void PanelHistory::commit(State now) {
  // Of two commits that were refused one after the other, neither is what the meeting has.
  if (!m_beforeCommit) m_beforeCommit = std::move(m_kept);
  m_kept = std::move(now);
}

void PanelHistory::commitRefused() {
  if (m_beforeCommit) m_kept = *std::exchange(m_beforeCommit, std::nullopt);
}

void PanelHistory::changeRecords(const std::function<void(vnSettingData&)>& change) {
  change(m_kept.record);
  if (m_beforeCommit) change(m_beforeCommit->record);
}

}  // namespace vorn
