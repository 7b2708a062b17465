#pragma once

// How the choice of a meeting's audio is offered, and what a click makes of it. Pure functions; time linear in the
// texts.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "settings/rules/TextSource.h"

namespace vorn::panel_rules {

// What the account, the client and the record say of audio.
struct AudioSite {
  bool isTspSite = false;
  // Of the telephony provider.
  std::size_t tspAccounts = 0;
  bool isScheduleAudioBothDisabled = false;
  // Of the record.
  bool enableThirdPartyAudio = false;
  bool isVornClientSupportEditCountries = false;

  bool moreThanOneTSPAccounts() const { return isTspSite && tspAccounts > 1; }
};

struct AudioControls {
  bool telephonyHidden = false;
  bool telephonyOn = false;
  bool tspAccountHidden = false;
  bool tspAccountOn = false;
  bool tspAccountPopupHidden = false;
  int tspAccountIndex = 0;
  bool voipHidden = false;
  bool voipOn = false;
  bool bothHidden = false;
  bool bothOn = false;
  bool thirdPartyHidden = false;
  bool thirdPartyOn = false;

  bool operator==(const AudioControls&) const = default;
};

// Which of the types a button stands for, on a site of either kind.
enum class AudioButton { telephony, voip, both, thirdParty };

// initAudioBox, for the record's audio type. Everything is told, whatever stood there before.
AudioControls audioAtLoad(const AudioSite& site, std::int64_t audioType);

// What a click on one of the buttons makes of them.
AudioControls audioAfterClick(const AudioControls& controls, AudioButton clicked, const AudioSite& site);
// Whether the list of the provider's accounts is on the panel.
bool tspAccountPopupIsShown(const AudioControls& controls, const AudioSite& site);
// The type that the record takes from controls that the user has just changed; 100 when nothing that the site
// knows is chosen.
std::int64_t audioTypeOfChoice(const AudioControls& controls, const AudioSite& site);
// The type that a commit writes.
std::int64_t audioTypeFromUI(const AudioControls& controls, const AudioSite& site);

// End-to-end encryption leaves the computers' own audio alone.
AudioControls audioForEndToEnd(const AudioControls& controls);

// showEditCountriesOptionsAsAudioType: whether the countries are asked for at all.
bool countriesAreShown(const AudioSite& site, std::int64_t audioType);

// The provider's name as the panel shows it.
std::string tspAccountName(const std::string& tspServiceProvider, const AudioSite& site);
// The entries of the provider's accounts.
std::vector<std::string> tspAccountTitles(const std::string& tspServiceProvider, const AudioSite& site,
                                          const TextSource& texts);
// setTSPAudioTooltip; "" when the name is shown whole.
std::string tspAccountToolTip(const std::string& tspServiceProvider, const AudioSite& site, int index,
                              const TextSource& texts);

}  // namespace vorn::panel_rules
