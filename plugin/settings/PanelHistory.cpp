#include "settings/PanelHistory.h"

#include <algorithm>

#include "util/Text.h"

namespace vorn {

namespace {

bool isOf(const vnSettingData& record, const OptionalText& person) {
  if (record.usePMI() != person.has_value()) return false;
  return !person || equalIgnoringCase(*person, record.scheduleForEmail().value_or(""));
}

OptionalText personOfRecord(const vnSettingData& record) {
  return record.usePMI() ? OptionalText(record.scheduleForEmail().value_or("")) : std::nullopt;
}

}  // namespace

void PanelHistory::commit(State now) {
  now.isCommitted = true;
  // Of two commits that were refused one after the other, neither is what the meeting has.
  if (!m_beforeCommit) {
    m_beforeCommit = std::move(m_kept);
  } else {
    refuse(std::move(m_kept));
  }
  std::erase_if(m_refused,
                [person = personOfRecord(now.record)](const State& each) { return isOf(each.record, person); });
  m_kept = std::move(now);
}

void PanelHistory::commitStands() {
  m_beforeCommit.reset();
  m_refused.clear();
}

void PanelHistory::commitRefused() {
  if (m_beforeCommit) refuse(std::exchange(m_kept, *std::exchange(m_beforeCommit, std::nullopt)));
}

void PanelHistory::refuse(State state) {
  std::erase_if(m_refused,
                [person = personOfRecord(state.record)](const State& each) { return isOf(each.record, person); });
  m_refused.push_back(std::move(state));
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

const PanelHistory::State* PanelHistory::lastOf(const OptionalText& person) const {
  if (const State* committed = notAcceptedOf(person)) return committed;
  if (isOf(m_kept.record, person)) return &m_kept;
  return m_beforeCommit && isOf(m_beforeCommit->record, person) ? &*m_beforeCommit : nullptr;
}

const PanelHistory::State* PanelHistory::notAcceptedOf(const OptionalText& person) const {
  const auto refused = std::find_if(m_refused.begin(), m_refused.end(),
                                    [&person](const State& each) { return isOf(each.record, person); });
  if (refused != m_refused.end()) return &*refused;
  return m_beforeCommit && isOf(m_kept.record, person) ? &m_kept : nullptr;
}

void PanelHistory::changeRecords(const std::function<void(vnSettingData&)>& change) {
  change(m_kept.record);
  for (State& refused : m_refused) change(refused.record);
  if (m_beforeCommit) change(m_beforeCommit->record);
}

}  // namespace vorn
