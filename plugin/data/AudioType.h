#pragma once

#include <cstdint>

namespace vorn {

// How people hear each other, as the record and the messages number it. A site of a telephony provider has numbers
// of its own, which say with which of its first two accounts, too.
enum AudioType : std::int64_t {
  kAudioTelephony = 0,
  kAudioVoip = 1,
  kAudioBoth = 2,
  kAudioThirdParty = 3,
  kAudioTspTelephonyFirst = 10,
  kAudioTspTelephonySecond = 11,
  kAudioTspVoip = 12,
  kAudioTspBothFirst = 13,
  kAudioTspBothSecond = 14,
  // Nothing was chosen.
  kAudioNoSelection = 100,
};

}  // namespace vorn
