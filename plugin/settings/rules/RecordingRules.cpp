#include "settings/rules/RecordingRules.h"

namespace vorn {

RecordingState::Title recordingTitle(const RecordingKinds& kinds) {
  if (kinds.both()) return RecordingState::Title::both;
  return kinds.cloud ? RecordingState::Title::cloudOnly : RecordingState::Title::localOnly;
}

RecordingState recordingAtLoad(const RecordingKinds& kinds, std::int32_t type) {
  RecordingState state;
  if (!kinds.any()) return state;
  state.isShown = true;
  state.isOn = type != kRecordingNone;
  state.title = recordingTitle(kinds);
  if (!kinds.both()) return state;
  state.isLocalShown = state.isCloudShown = state.isOn;
  state.isCloudChosen = type == kRecordingCloudOfBoth;
  return state;
}

RecordingState recordingAfterClick(RecordingState state, const RecordingKinds& kinds, bool isOn, bool isEndToEnd) {
  state.isOn = isOn;
  state.isLocalShown = isOn && kinds.both();
  state.isCloudShown = state.isLocalShown && !isEndToEnd;
  return state;
}

EndToEndRecording recordingForEndToEnd(RecordingState state, const RecordingKinds& kinds, bool switchIsEnabled) {
  EndToEndRecording result{state, false, switchIsEnabled};
  RecordingState& shown = result.state;
  if (kinds.local || !kinds.cloud) {
    if (shown.isOn && shown.isLocalShown && shown.isCloudShown && shown.isCloudChosen) {
      shown.isCloudChosen = false;
      shown.isLocalShown = false;
      shown.isOn = false;
    }
    shown.isCloudShown = false;
    result.choicesAreDisabled = true;
  } else {
    shown.isLocalShown = shown.isCloudShown = false;
    shown.isOn = false;
    result.switchIsEnabled = false;
  }
  if (!shown.isOn && !result.switchIsEnabled) shown.isShown = false;
  return result;
}

std::int32_t recordingTypeToCommit(const RecordingKinds& kinds, const RecordingState& shown, bool enableE2ee) {
  if (enableE2ee) {
    if (!kinds.local || !shown.isShown || !shown.isOn) return kRecordingNone;
    return kinds.cloud ? kRecordingLocalOfBoth : kRecordingOnlyLocal;
  }
  if (!kinds.any()) return kRecordingUnavailable;
  if (!shown.isOn) return kRecordingNone;
  if (kinds.both()) return recordingTypeOfChoice(shown.isCloudChosen);
  return kinds.cloud ? kRecordingOnlyCloud : kRecordingOnlyLocal;
}

}  // namespace vorn
