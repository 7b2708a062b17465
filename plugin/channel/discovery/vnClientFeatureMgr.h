#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "util/Value.h"

namespace vorn {

// One question for each thing that a client can do from some version on.
//
// Main thread only. The client's version is read afresh at each question that OneReading does not join to another.
class vnClientFeatureMgr {
 public:
  static vnClientFeatureMgr& sharedInstance();

  // While one stands, all questions are about one reading of the version: for those that are asked together and
  // are to fit together. It stands within one call; the loop does not run meanwhile.
  class OneReading {
   public:
    OneReading();
    ~OneReading();
    OneReading(const OneReading&) = delete;
    OneReading& operator=(const OneReading&) = delete;

   private:
    vnClientFeatureMgr& m_client;
  };

  // The oldest that is supported or later, looking at two parts only.
  bool isSupportedVornClientVersion();
  // True when the client is of that version or later, by the first three parts; false without a client.
  bool clientSupportSpecifiedFeature(std::string_view version);

  bool isVornClientSupportPACAndNoVideo();
  bool isVornClientSupportAutoRecord();
  bool isVornClientSupportAHAndMuteOnEntry();
  bool isVornClientSupportExtInfo();
  bool isVornClientSupportPublicEvent();
  bool isVornClientSupportSourceForDelete();
  bool isVornClientSupportAudioWatermark();
  bool isVornClientSupportSceduleForList();
  bool isVornClientSupportSourceForGetMeeting();
  bool isVornClientSupportInvitationLanguage();
  bool isVornClientSupportIPCSocket();
  bool isVornClientSupport464Tasks();
  bool isVornClientSupportPasswordRule();
  bool isVornClientSupport500Tasks();
  bool isVornClientSupport520Tasks();
  bool isVornClientSupport530Tasks();
  bool isVornClientSupport550Tasks();

  // The account's own answer; no version of the client is asked.
  bool isVornClientSupportEditCountries();
  // Who knows that answer. The profile reader says so when it begins to live; without it the answer is false.
  void setEditCountriesSource(std::function<bool()> source);

 private:
  std::string clientVersion();

  std::function<bool()> m_editCountriesSource;
  int m_readingsThatStand = 0;
  // Absent as long as nobody has asked.
  std::optional<std::string> m_reading;
};

}  // namespace vorn
