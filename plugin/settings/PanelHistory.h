#pragma once

#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "data/VNAvailableDialinCountryContent.h"
#include "data/vnSettingData.h"

namespace vorn {

// What one panel was loaded with and has committed: where it goes back to when it is dismissed, or when a commit
// was refused; and whose words a meeting had, for who looks at another one and comes back. What the user edits
// meanwhile is not part of it.
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
    // By the user, whatever became of it.
    bool isCommitted = false;
  };

  void load(State now) { m_kept = std::move(now); }
  void commit(State now);
  // The service has accepted what was committed, and a later refusal leaves it alone.
  void commitStands();
  // The service has refused it, or never heard of it, and the user may go on from it. Nothing when nothing was
  // committed.
  void commitRefused();
  // The panel is dismissed, and goes back to kept().
  void dismiss() { m_refused.clear(); }

  // The person of kept() has other countries and regions than were known when it was loaded.
  void keepPersons(const vnSettingData& record, const std::optional<VNAvailableDialinCountryContent>& countries);

  // Where a dismissed panel goes back to. What comes only after the loading is laid over it.
  State& kept() { return m_kept; }
  const State& kept() const { return m_kept; }
  // The last of these states that is this person's personal meeting, "" being oneself, or, absent, a meeting with
  // a number of its own; it holds until the next change. Null when none is, or another was accepted in its place.
  const State* lastOf(const OptionalText& person) const;
  // The same among what was committed and not accepted: refused, or not answered yet.
  const State* notAcceptedOf(const OptionalText& person) const;
  // What the service says of a meeting holds for every record of it.
  void changeRecords(const std::function<void(vnSettingData&)>& change);

 private:
  // Keeps it as refused, in the place of an earlier one of the same meeting.
  void refuse(State state);

  // Refused and not committed anew, one of each meeting: the panel shows it again.
  std::vector<State> m_refused;
  // Loaded or committed last, and not refused.
  State m_kept;
  // Stood before the oldest commit without an answer.
  std::optional<State> m_beforeCommit;
};

}  // namespace vorn
