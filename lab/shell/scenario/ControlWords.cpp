#include "lab/shell/scenario/ControlWords.h"

namespace vornlab {

namespace {

using Place = ControlWord::Place;

constexpr double kRibbonSeconds = 0.05;

constexpr ControlWord kControls[] = {
    {"add", Place::bar, "onClickAddVornMeeting:"},
    {"cancel", Place::bar, "onClickCancelVornMeeting:"},
    {"settings", Place::bar, "onClickChangeSettings:"},
    {"audio 1", Place::bar, "onClickAddPACAccount1:"},
    {"audio 2", Place::bar, "onClickAddPACAccount2:"},
    {"ribbon schedule", Place::ribbon, "onClickScheduleMeeting:"},
    {"ribbon start with video", Place::ribbon, "onClickStartMeetingWithVideo:"},
    {"ribbon start without video", Place::ribbon, "onClickStartMeetingWithoutVideo:"},
    {"ribbon about", Place::ribbon, "onClickAbout:"},
    {"toolbar start with video", Place::toolbar, "onContextMenuAction_Start:", 0},
    {"toolbar start without video", Place::toolbar, "onContextMenuAction_Start:", 1},
    {"toolbar schedule", Place::toolbar, "onClickScheduleVornMeeting:"},
    {"toolbar audio 1", Place::toolbar, "onContextMenuAction_SchedulePAC:", 0},
    {"toolbar audio 2", Place::toolbar, "onContextMenuAction_SchedulePAC:", 1},
    {"toolbar log folder", Place::toolbar, "onClickOpenLogFolder:"},
};

}  // namespace

HostFace::Control ControlWord::seen(Stage& stage) const {
  // The plug-in sees to the ribbon a moment after the host has drawn it.
  if (place == Place::ribbon) stage.wait(kRibbonSeconds);
  switch (place) {
    case Place::bar: return stage.host().barControl(stage.editor(), name());
    case Place::ribbon: return stage.host().ribbonControl(name());
    case Place::toolbar: return stage.host().toolbarControl(name());
  }
  return {};
}

bool ControlWord::click(Stage& stage) const {
  switch (place) {
    case Place::bar: return stage.host().clickBar(stage.editor(), name());
    case Place::ribbon: return stage.host().clickRibbon(name());
    case Place::toolbar: return stage.host().clickToolbar(name());
  }
  return false;
}

const ControlWord& readControl(LineReader& line) {
  std::string words;
  for (const ControlWord& control : kControls) {
    if (line.take(control.word)) return control;
    words += (words.empty() ? "" : ", ") + std::string(control.word);
  }
  line.fail("one of " + words);
}

std::string stateOf(const HostFace::Control& control) {
  if (!control.exists) return "none";
  if (!control.isShown) return "hidden";
  return control.isEnabled ? "shown" : "disabled";
}

}  // namespace vornlab
