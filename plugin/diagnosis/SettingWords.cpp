#include "diagnosis/SettingWords.h"

#include <array>
#include <cstdint>

#include "data/vnSettingKeys.h"
#include "diagnosis/DiagnosisReport.h"

namespace vorn {

namespace {

std::string wordsOfAudio(std::int64_t option) {
  switch (option) {
    case 0: return "telephony";
    case 1: return "computer audio";
    case 2: return "telephony and computer audio";
    case 3: return "third party";
    case 10: return "telephony, the provider's first account";
    case 11: return "telephony, the provider's second account";
    case 12: return "computer audio, with a provider";
    case 13: return "both, the provider's first account";
    case 14: return "both, the provider's second account";
    default: return "no selection";
  }
}

std::string wordsOfRecording(std::int64_t type) {
  constexpr std::array<const char*, 6> kWords = {
      "off", "local", "cloud", "local, the only one", "cloud, the only one", "recording is not available"};
  return type >= 0 && type < static_cast<std::int64_t>(kWords.size()) ? kWords[type] : "unknown";
}

}  // namespace

std::string shownSetting(std::string_view key, const Value& value) {
  const std::string number = value.stringValue();
  if (key == vn_Setting_AudioOption) return number + ", " + wordsOfAudio(value.integerValue());
  if (key == vn_Setting_EnableAutoRecordingType) return number + ", " + wordsOfRecording(value.integerValue());
  if (key == vn_Setting_AvailableDialinCountry) {
    return DiagnosisReport::textOf(value[vn_Setting_DialinCountry_SelectedCountries]);
  }
  if (key == vn_Setting_MeetingAuth) return DiagnosisReport::textOf(value[vn_Setting_MeetingAuth_AuthName]);
  if (key == vn_Setting_MeetingTemplate) {
    return DiagnosisReport::textOf(value[vn_Setting_MeetingTemplate_TemplateName]);
  }
  return DiagnosisReport::textOf(value);
}

}  // namespace vorn
