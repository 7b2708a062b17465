#pragma once

// The steps that make and change a meeting's options. Each reads and writes the values that it is given and
// nothing else: no stored value, no shared instance. Who calls them says what the account and the client are at
// that moment.

#include <functional>
#include <string>

#include "data/AccountFacts.h"
#include "data/MeetingOptions.h"

namespace vorn::meeting_options {

// Draws a passcode by the account's rules.
using PasscodeSource = std::function<std::string()>;

// Not all fields: whether only signed-in users can join and whether participants are muted stay as they were.
void resetFields(MeetingOptions& options);

// The account's defaults. Without a profile these two do nothing. The facts' regions, here and in the overlay, are
// those of the person for whom the meeting is scheduled.
void initWithUserProfileDefault(MeetingOptions& options, const AccountFacts& account,
                                const PasscodeSource& passcode);
void initSubDataWithUserProfile(MeetingOptions& options, const AccountFacts& account, bool usePMI,
                                const PasscodeSource& passcode);
void initAudioTypeWithUserProfile(MeetingOptions& options, const AccountFacts& account);

// What the user chose last, from the saved profile's document. True when the user does not see the panel; the
// three resets have then been made.
bool initWithSavedProfile(MeetingOptions& options, const AccountFacts& account, const ClientGates& client,
                          const Value& saved);

void initWithSiteMeetingInfo(MeetingOptions& options, const AccountFacts& account, const Value& meetingInfo);
void resetRequiredPasswordForEditPMIMeeting(MeetingOptions& options, const Value& meetingInfo);
// The chosen values of the items, as one update for each in turn would give them. Time linear in both lists.
void updateTrackingFields(MeetingOptions& options, const Value& items);

void resetMeetingAuthForNotShowAgain(MeetingOptions& options, const AccountFacts& account);
void resetWaitingRoomPasscodeStateForNotShowAgain(MeetingOptions& options, const AccountFacts& account,
                                                  const ClientGates& client);
void resetAffectedStateByE2eeForNotShowAgain(MeetingOptions& options, const AccountFacts& account,
                                             const ClientGates& client);

}  // namespace vorn::meeting_options
