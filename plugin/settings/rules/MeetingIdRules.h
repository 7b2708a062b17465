#pragma once

// The number that a meeting gets: the personal one or one of its own, and what is told when the personal one is
// turned off. Pure functions; time linear in the texts.

#include <optional>
#include <string>

#include "settings/rules/TextSource.h"
#include "util/Value.h"

namespace vorn::panel_rules {

// A user without a personal ID has none, or the number 0.
bool isNewUserWithoutPMI(const OptionalText& personalId);

struct DisabledPMIFacts {
  // Of whom the meeting is for: oneself or somebody else.
  bool isDisabled = false;
  bool isForMyself = true;
  // The other person's name.
  std::string name{};
  bool isUpdate = false;
  // The meeting uses the personal ID.
  bool usePMI = false;
  // The user's own ID, whomever the meeting is for.
  OptionalText personalId{};
  // The user wants to see the message no more.
  bool doNotShowDisablePMIMessage = false;
};

bool needShowPMIDisableMessage(const DisabledPMIFacts& facts);

struct DisabledPMIMessage {
  bool isShown = false;
  // Nobody can say once and for all what holds for another person.
  bool canBeClosed = true;
  // Absent leaves the text as it is.
  std::optional<std::string> text{};

  bool operator==(const DisabledPMIMessage&) const = default;
};

DisabledPMIMessage disabledPMIMessage(const DisabledPMIFacts& facts, const TextSource& texts);

// The titles of the two choices; the IDs come in groups.
std::string usePMITitle(const std::string& personalId, const TextSource& texts);
std::string oneTimeMeetingTitle(bool isUpdateOfOneTimeMeeting, const std::string& meetingKey,
                                const TextSource& texts);

}  // namespace vorn::panel_rules
