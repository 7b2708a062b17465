#include "lab/client/AccountOptions.h"

#include <algorithm>

namespace vornlab {

const std::vector<AccountOption>& accountOptions() {
  static const std::vector<AccountOption> options = {
      {"automaticRecording", 1, 5},
      {"defaultAudioTelephony", 1, 22},
      {"telephony", 1, 25},
      {"cloudRecording", 1, 28},
      {"cloudIsRecordingDefault", 1, 30},
      {"randomPasscode", 1, 33},
      {"defaultAudioThirdParty", 1, 34},
      {"defaultAudioBoth", 1, 35},
      {"hostVideo", 1, 36},
      {"participantVideo", 1, 37},
      {"joinBeforeHost", 1, 38},
      {"localRecordingForbidden", 1, 51},
      {"signedInUsersOnly", 1, 56},
      {"signedInDomainsOnly", 1, 57},
      {"signedInDomainsByDefault", 1, 63},

      {"bothAudioForbidden", 2, 31},
      {"topicNotStored", 2, 32},
      {"recordingForbidden", 2, 39},
      {"personalJoinBeforeHostNeedsPasscode", 2, 45},
      {"defaultAudioVoip", 2, 54},

      {"publicEventOffered", 3, 3},
      {"publicEvent", 3, 5},
      {"muteUponEntry", 3, 6},
      {"audioWatermarkOffered", 3, 7},
      {"personalId", 3, 8},
      {"waitingRoom", 3, 9},
      {"invitationAtTop", 3, 12},
      {"joinUrlNotInLocation", 3, 14},
      {"passcodeRequired", 3, 16},
      {"personalPasscodeRequired", 3, 17},
      {"passcodeNotInJoinUrl", 3, 25},
      {"joinBeforeHostMinutesOffered", 3, 27},
      {"dataCentresOffered", 3, 37},
      {"dataCentres", 3, 38},
      {"personalIdDisabled", 3, 39},
      {"webSettingsTip", 3, 46},
      {"waitingRoomProtects", 3, 47},
      {"unmuteAllOffered", 3, 49},
      {"unmuteAll", 3, 51},
      {"endToEndEncryption", 3, 53},
      {"endToEndEncryptionAllowed", 3, 54},
      {"endToEndEncryptionOffered", 3, 57},
      {"joinUrlInLocationOffered", 3, 60},
      {"joinRegions", 3, 62},

      {"hostVideoLocked", 4, 1},
      {"participantVideoLocked", 4, 2},
      {"audioLocked", 4, 3},
      {"joinBeforeHostLocked", 4, 4},
      {"muteUponEntryLocked", 4, 5},
      {"signedInUsersOnlyLocked", 4, 6},
      {"signedInDomainsLocked", 4, 7},
      {"watermarkLocked", 4, 8},
      {"automaticRecordingLocked", 4, 9},
      {"publicEventLocked", 4, 11},
      {"audioWatermarkLocked", 4, 12},
      {"passcodeRequiredLocked", 4, 13},
      {"personalPasscodeRequiredLocked", 4, 15},
      {"personalIdLocked", 4, 16},
      {"waitingRoomLocked", 4, 17},
      {"joinUrlInLocationLocked", 4, 18},
      {"passcodeMixesLettersAndDigits", 4, 22},
      {"endToEndEncryptionLocked", 4, 26},
      {"joinRegionsLocked", 4, 30},
      {"templatesLocked", 4, 33},

      {"templates", 5, 0},
  };
  return options;
}

const AccountOption* findAccountOption(std::string_view name) {
  const auto& options = accountOptions();
  const auto found = std::find_if(options.begin(), options.end(), [&](const auto& o) { return o.name == name; });
  return found == options.end() ? nullptr : &*found;
}

bool isSet(const OptionWords& words, std::string_view name) {
  const AccountOption* option = findAccountOption(name);
  return option != nullptr && (words[option->word - 1] >> option->bit & 1U) != 0;
}

void set(OptionWords& words, const AccountOption& option, bool value) {
  const std::uint64_t mask = std::uint64_t{1} << option.bit;
  if (value) {
    words[option.word - 1] |= mask;
  } else {
    words[option.word - 1] &= ~mask;
  }
}

}  // namespace vornlab
