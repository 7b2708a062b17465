#include "settings/PanelHistory.h"

#include "util/Text.h"

namespace vorn {

namespace {

bool isOf(const vnSettingData& record, const OptionalText& whosePMI) {
  if (record.usePMI() != whosePMI.has_value()) return false;
  return !whosePMI || equalIgnoringCase(*whosePMI, record.scheduleForEmail().value_or(""));
}

}  // namespace

void PanelHistory::commit(State now) {
  now.isCommitted = true;
  // Of two commits that were refused one after the other, neither is what the meeting has.
  if (!m_beforeCommit) m_beforeCommit = std::move(m_kept);
  m_kept = std::move(now);
  m_refused.reset();
}

void PanelHistory::commitStands() {
  m_beforeCommit.reset();
  m_refused.reset();
}

void PanelHistory::commitRefused() {
  if (!m_beforeCommit) return;
  m_refused = std::exchange(m_kept, *std::exchange(m_beforeCommit, std::nullopt));
}

void PanelHistory::keepPersons(const vnSettingData& record,
                               const std::optional<VNAvailableDialinCountryContent>& countries) {
  vnSettingData& kept = m_kept.record;
  kept.setScheduleForEmail(record.scheduleForEmail());
  kept.setEnableRegionCustomization(record.enableRegionCustomization());
  kept.setEnableAllowDenyJoinMeetingRegion(record.enableAllowDenyJoinMeetingRegion());
  kept.setRegionType(record.regionType());
  kept.setArrRegionCodes(record.arrRegionCodes());
  kept.setHash(record.hash());
  kept.setIncludeTollfree(record.includeTollfree());
  kept.setEnableShowIncludeTollfree(record.enableShowIncludeTollfree());
  kept.setSelectedCountries(record.arrSelectedCountries());
  m_kept.countries = countries;
}

const PanelHistory::State* PanelHistory::lastOf(const OptionalText& whosePMI) const {
  if (m_refused && isOf(m_refused->record, whosePMI)) return &*m_refused;
  if (isOf(m_kept.record, whosePMI)) return &m_kept;
  return m_beforeCommit && isOf(m_beforeCommit->record, whosePMI) ? &*m_beforeCommit : nullptr;
}

void PanelHistory::changeRecords(const std::function<void(vnSettingData&)>& change) {
  change(m_kept.record);
  if (m_refused) change(m_refused->record);
  if (m_beforeCommit) change(m_beforeCommit->record);
}

}  // namespace vorn
