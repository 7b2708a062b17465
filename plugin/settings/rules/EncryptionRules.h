#pragma once

// The choice between enhanced and end-to-end encryption. Pure functions.

#include <cstdint>

#include "data/AccountFacts.h"

namespace vorn::panel_rules {

struct EncryptionControls {
  bool boxHidden = false;
  bool enhancedHidden = false;
  bool enhancedOn = false;
  bool enhancedHelpHidden = false;
  bool endtoendHidden = false;
  bool endtoendEnabled = true;
  bool endtoendOn = false;
  bool endtoendHelpHidden = false;

  // What the other options go by.
  bool isEndToEnd() const { return !endtoendHidden && endtoendOn; }
  bool operator==(const EncryptionControls&) const = default;
};

// What the record's enableE2ee becomes when the panel is loaded.
bool enableE2eeAtLoad(bool enableE2ee, const AccountFacts& account);

// initEncryptionBox, with enableE2ee as enableE2eeAtLoad() has left it. Of a choice that is not offered the states
// stay as they stand.
EncryptionControls encryptionBox(const EncryptionControls& controls, bool enableE2ee, const AccountFacts& account,
                                 const ClientGates& client);

// onClickEncryptionType: what the record's enableE2ee becomes.
bool enableE2eeAfterClick(bool clickedEndToEnd, const AccountFacts& account);

// initEncryptionyTipView: the tip goes with end-to-end encryption until the user closes it.
bool encryptionTipIsShown(const EncryptionControls& controls, bool doNotShowEncryptionTip);

// updateAffectedOptionsForE2ee: the only audio that can be encrypted is the computers' own. Of the record.
std::int64_t audioTypeForEndToEnd(const AccountFacts& account);

}  // namespace vorn::panel_rules
