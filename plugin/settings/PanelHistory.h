#pragma once

#include <functional>
#include <optional>
#include <utility>

#include "data/VNAvailableDialinCountryContent.h"
#include "data/vnSettingData.h"

namespace vorn {

// What one panel was loaded with and has committed: where it goes back to when it is dismissed, or when a commit
// was refused. What the user edits meanwhile is not part of it.
//
// Main thread only.
class PanelHistory {
 public:
  struct State {
    vnSettingData record;
    // Absent while the account offers none.
    std::optional<VNAvailableDialinCountryContent> countries;
    // As they stood then: what was still to come, and is asked for once more after going back.
    bool waitsForPersonalMeeting = false;
    bool waitsForList = false;
  };

  void load(State now) { m_kept = std::move(now); }
  void commit(State now);
  // The service has accepted what was committed, and a later refusal leaves it alone.
  void commitStands() { m_beforeCommit.reset(); }
  // The service has refused it. Nothing when nothing was committed.
  void commitRefused();
  // Nobody knows yet how a commit ended.
  bool awaitsEndOfCommit() const { return m_beforeCommit.has_value(); }

  // Where a dismissed panel goes back to. What comes only after the loading is laid over it.
  State& kept() { return m_kept; }
  const State& kept() const { return m_kept; }
  // What the service says of a meeting holds for every record of it.
  void changeRecords(const std::function<void(vnSettingData&)>& change);

 private:
  // Loaded or committed last.
  State m_kept;
  // Stood before the oldest commit without an answer.
  std::optional<State> m_beforeCommit;
};

}  // namespace vorn
