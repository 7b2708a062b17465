// What the settings panel of one appointment window would commit.

#include <algorithm>

#include "diagnosis/Diagnosis.h"
#include "diagnosis/DiagnosisReport.h"
#include "diagnosis/SettingReasons.h"
#include "diagnosis/SettingWords.h"
#include "util/CoveredValue.h"
#include "workflow/SettingsPanel.h"
#include "workflow/vnActionAdditionViewMonitor.h"

namespace vorn {

Value Diagnosis::panel(const Value& parameters) {
  const auto bar = barOfEditor(parameters["editor"].object());
  const auto panel = bar ? openSettingsPanel(bar->getAppointmentWindowID()) : nullptr;
  const Value settings = panel ? panel->settingsToCommit() : Value();
  if (settings.isAbsent()) return Value::dictionaryFromPairs({{"hasPanel", false}});

  const Value shown = covered(settings);
  DiagnosisReport report;
  report.beginGroup("settings");
  const auto known = settingKeys();
  const auto add = [&](std::string_view key) {
    if (shown.contains(key)) report.add(key, wordsOfSetting(key), shown[key], shownSetting(key, shown[key]));
  };
  for (const std::string_view key : known) add(key);
  for (const auto& [key, value] : shown.entries()) {
    if (std::find(known.begin(), known.end(), key) == known.end()) add(key);
  }
  return Value::dictionaryFromPairs(
      {{"hasPanel", true}, {"groups", covered(report.groups())}, {"settings", settings}});
}

}  // namespace vorn
