#pragma once

// Join before host: what the panel says of it, and the minutes that a commit writes. Pure functions.

#include <cstdint>
#include <string>
#include <vector>

#include "data/AccountFacts.h"
#include "data/MeetingOptions.h"
#include "settings/rules/TextSource.h"

namespace vorn::panel_rules {

// What the account and the meeting leave of the time.
enum class JoinTimes {
  // None is spoken of: the client, the account or the meeting knows no such time.
  none,
  // The account's time, which nobody can change.
  fixed,
  // A popup.
  chosen,
};

struct JoinBeforeHost {
  // Whole; the panel cuts what does not fit.
  std::string title{};
  JoinTimes times = JoinTimes::none;
  // Of the popup, which is shown with the label behind it only when a time can be chosen.
  std::vector<std::string> items{};
  int index = 0;

  bool popupIsHidden() const { return times != JoinTimes::chosen; }
};

struct JoinBeforeHostQuestion {
  // buttonUsePMI is on.
  bool usePMI = false;
  // The appointment is a series.
  bool isEnableRecurrence = false;
  // Minutes; 0 means any time.
  std::int64_t jbhPriorTime = 0;
};

JoinBeforeHost joinBeforeHost(const JoinBeforeHostQuestion& question, const AccountFacts& account,
                              const ClientGates& client, const TextSource& texts);

// Whether a time can be chosen in the popup.
bool joinTimeIsEnabled(bool isJoinBeforeHostOn, const AccountFacts& account);

// The controls when the user goes on.
struct JoinBeforeHostChoice {
  bool buttonIsHidden = false;
  bool buttonIsOn = false;
  bool popupIsHidden = true;
  int index = 0;
};

// Writes enableJBH and jbhPriorTime. A time that does not stand in the popup has become the popup's first.
void commitJoinBeforeHost(MeetingOptions& options, const JoinBeforeHostChoice& choice,
                          const AccountFacts& account);

}  // namespace vorn::panel_rules
