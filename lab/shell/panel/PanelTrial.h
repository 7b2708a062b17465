#pragma once

#include <string>
#include <vector>

#include "lab/shell/panel/PanelWindow.h"
#include "lab/shell/panel/TryLanguage.h"

namespace vornlab {

// What a person tries in a panel, and what comes of it.

struct TriedAct {
  // As it was said, covered.
  std::string words{};
  std::string key{};
  // "done"; "hidden" or "locked" with the control's reason; "refused" with why the control does not take it.
  std::string result{};
  std::string reason{};
};

// One control before and after, each with what stands in it, or that and why it is hidden or locked.
struct ControlChange {
  std::string words;
  std::string key;
  std::string before;
  std::string after;
};

struct Trial {
  std::vector<TriedAct> acts;
  std::vector<ControlChange> changes;

  bool isDone() const;
};

// Does the acts one after another; one that cannot be done hinders none behind it. Throws UsageError for a name
// that the panel does not have and for a value that the control cannot have.
Trial tryInPanel(PanelWindow& panel, const std::vector<PanelAct>& acts);

// An entry of the settings that a commit would hand out differently, in words.
struct WrittenSetting {
  std::string key;
  std::string words;
  std::string before;
  std::string after;
};
std::vector<WrittenSetting> differences(const PanelWindow::Settings& before, const PanelWindow::Settings& after);

}  // namespace vornlab
