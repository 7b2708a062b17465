#pragma once

#include <cstdint>

#include "data/RecordingType.h"

namespace vorn {

// Where a meeting can be recorded, as the account says.
struct RecordingKinds {
  bool local = false;
  bool cloud = false;

  bool any() const { return local || cloud; }
  bool both() const { return local && cloud; }
};

// Automatic recording as the panel shows it.
struct RecordingState {
  enum class Title { cloudOnly, localOnly, both };

  // The switch.
  bool isShown = false;
  bool isOn = false;
  Title title = Title::both;
  bool isLocalShown = false;
  bool isCloudShown = false;
  bool isCloudChosen = false;

  bool operator==(const RecordingState&) const = default;
};

RecordingState::Title recordingTitle(const RecordingKinds& kinds);

// At load, from the record's type.
RecordingState recordingAtLoad(const RecordingKinds& kinds, std::int32_t type);
// After a click on the switch. What is encrypted from end to end cannot be recorded in the cloud.
RecordingState recordingAfterClick(RecordingState state, const RecordingKinds& kinds, bool isOn, bool isEndToEnd);

// What is encrypted from end to end is recorded on the own computer or not at all.
struct EndToEndRecording {
  RecordingState state{};
  bool choicesAreDisabled = false;
  bool switchIsEnabled = true;

  bool operator==(const EndToEndRecording&) const = default;
};
EndToEndRecording recordingForEndToEnd(RecordingState state, const RecordingKinds& kinds, bool switchIsEnabled);

// The record's type after a click on one of the two choices.
constexpr std::int32_t recordingTypeOfChoice(bool isCloud) {
  return isCloud ? kRecordingCloudOfBoth : kRecordingLocalOfBoth;
}
// The type that a commit writes.
std::int32_t recordingTypeToCommit(const RecordingKinds& kinds, const RecordingState& shown, bool enableE2ee);

}  // namespace vorn
