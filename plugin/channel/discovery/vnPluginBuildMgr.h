#pragma once

namespace vorn {

// The flavour of this build. Class methods only.
//
// This is the main product; the flavours of resellers are each told by what they leave out.
class vnPluginBuildMgr {
 public:
  static bool isBuildForVorn() { return true; }
  static bool supportScheduleFor() { return true; }

  static bool isBuildWithoutEditCountries() { return false; }
  static bool isBuildWithoutPersonalAudio() { return false; }
  static bool isBuildWithoutAudioOptions() { return false; }
};

}  // namespace vorn
