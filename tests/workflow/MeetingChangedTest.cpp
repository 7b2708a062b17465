#include <gtest/gtest.h>

#include "data/vnProfileKeys.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "meeting.pb.h"
#include "tests/support/TestPlatform.h"
#include "util/EncodeUtils.h"
#include "util/vnOLUtils.h"
#include "workflow/vnMeetingDataMgr.h"

namespace vorn {
namespace {

Value json(const char* text) { return vnOLUtils::toArrayOrNSDictionary(std::string(text)); }

// The usual meeting with some items changed; null takes an item out.
Value meetingWith(const char* changes) {
  Value apptInfo = json(R"({"subject":"Review","location":"Room 7","duration":"60","recurrence":false,
      "olApptUUID":"u-1","startTime":{"UTCTime":"2026-11-23 09:00:00"},"endTime":{},"emailBody":"","attendees":[]})");
  Value settings = json(R"({"audioOption":2,"thirdPartyAudio":"bridge 1","requiredMeetingPassword":true,
      "meetingPassword":"abc123","restrictJoinDomains":"vorn.example","enableAutoRecordingType":0,"jbhPriorTime":5,
      "language":"en-US","alternateHosts":["ada@vorn.example","bob@vorn.example"],
      "trackingFields":[{"id":"1","mtValue":"north"},{"id":"2","mtValue":""}],
      "availableDialinCountry":{"selectedCountries":["DE","FR"],"includedTollfree":false}})");
  const Value wanted = json(changes);
  for (const auto& [key, value] : wanted.entries()) {
    Value& part = apptInfo.contains(key) ? apptInfo : settings;
    if (value.isNull()) {
      part.erase(key);
    } else {
      part.set(key, value);
    }
  }
  return Value::dictionaryFromPairs({{vn_Outlook_ApptInfo, apptInfo}, {vn_Setting, settings}});
}

class MeetingChanged : public testing::Test {
 protected:
  static bool isChanged(const char* now, const char* old = "{}") {
    return vnMeetingDataMgr::isMeetingChanged(meetingWith(now), meetingWith(old));
  }

  TestPlatform test;
};

TEST_F(MeetingChanged, EveryComparedItemFlipsTheAnswerAlone) {
  EXPECT_FALSE(isChanged("{}"));
  for (const char* key : {"enableHostVideo", "enableParticipantsVideo", "enableJBH", "usePMI", "muteOnEntry",
                          "enableMeetingToPublicEvent", "enableAudioWatermark", "enableWaitingRoom",
                          "enableRegionCustomization", "enableUnmuteAll", "enableE2ee", "recurrence",
                          "enableAllowDenyJoinMeetingRegion", "isSignedInUsersMeetingOn"}) {
    EXPECT_TRUE(isChanged(("{\"" + std::string(key) + "\":true}").c_str())) << key;
  }
  for (const char* change :
       {R"({"subject":"review"})",
        R"({"subject":null})",
        R"({"startTime":{"UTCTime":"2026-11-23 9:00:00"}})",
        R"({"startTime":null})",
        R"({"duration":"61"})",
        R"({"olApptUUID":"u-2"})",
        R"({"audioOption":1})",
        R"({"meetingPassword":"abc124"})",
        R"({"meetingPassword":"abc12"})",
        R"({"meetingPassword":""})",
        R"({"requiredMeetingPassword":false})",
        R"({"enableAutoRecordingType":2})",
        R"({"jbhPriorTime":10})",
        R"({"language":"en-us"})",
        R"({"trackingFields":[{"id":"1","mtValue":"North"},{"id":"2","mtValue":""}]})",
        R"({"trackingFields":[{"id":"1","mtValue":"north"}]})",
        R"({"trackingFields":[{"id":"3","mtValue":"north"},{"id":"2","mtValue":""}]})",
        R"({"alternateHosts":["ada@vorn.example"]})",
        R"({"alternateHosts":["ada@vorn.example","eve@vorn.example"]})",
        R"({"alternateHosts":["ada@vorn.example",""]})",
        R"({"alternateHosts":""})",
        R"({"availableDialinCountry":null})",
        R"({"availableDialinCountry":{"selectedCountries":["DE","US"]}})",
        R"({"availableDialinCountry":{"selectedCountries":["DE","FR","US"]}})",
        R"({"availableDialinCountry":{"selectedCountries":["DE","FR"],"includedTollfree":true}})"}) {
    EXPECT_TRUE(isChanged(change)) << change;
  }
}

TEST_F(MeetingChanged, SomeItemsCountOnlyTogetherWithOthers) {
  const struct {
    const char *what, *now, *old;
    bool expected;
  } rows[] = {
      {"no passcode wanted, and there is none", R"({"requiredMeetingPassword":false})",
       R"({"meetingPassword":""})", false},
      {"no passcode wanted, whatever the panel still holds",
       R"({"requiredMeetingPassword":false,"meetingPassword":"other"})", R"({"meetingPassword":""})", false},
      {"no passcode wanted, but the meeting has one", R"({"requiredMeetingPassword":false})",
       R"({"requiredMeetingPassword":false})", true},
      {"a passcode wanted and empty on both sides", R"({"meetingPassword":""})", R"({"meetingPassword":null})",
       false},
      {"the text of the audio that is chosen", R"({"audioOption":3,"thirdPartyAudio":"bridge 2"})",
       R"({"audioOption":3})", true},
      {"the same text of the audio that is chosen", R"({"audioOption":3})", R"({"audioOption":3})", false},
      {"the text of an audio that is not chosen", R"({"thirdPartyAudio":"bridge 2"})", "{}", false},
      {"domains while only some may join",
       R"({"isSignedInUsersMeetingOn":true,"restrictJoinDomains":"Vorn.example"})",
       R"({"isSignedInUsersMeetingOn":true})", true},
      {"the same domains", R"({"isSignedInUsersMeetingOn":true})", R"({"isSignedInUsersMeetingOn":true})", false},
      {"domains while everybody may join", R"({"restrictJoinDomains":"Vorn.example"})", "{}", false},
      {"a language on one side only", R"({"language":null})", "{}", true},
      {"no language on either side", R"({"language":null})", R"({"language":""})", false},
      {"a UUID that the service does not know", "{}", R"({"olApptUUID":null})", true},
      {"an appointment without UUID", R"({"olApptUUID":null})", "{}", false},
      {"no countries on either side", R"({"availableDialinCountry":null})", R"({"availableDialinCountry":null})",
       false},
      {"countries on the service only", "{}", R"({"availableDialinCountry":null})", true},
      {"countries on the service only, and none of them chosen", R"({"availableDialinCountry":null})",
       R"({"availableDialinCountry":{"selectedCountries":[]}})", true},
      {"no hosts, written in two ways", R"({"alternateHosts":""})", R"({"alternateHosts":null})", false},
  };
  for (const auto& row : rows) EXPECT_EQ(isChanged(row.now, row.old), row.expected) << row.what;
}

TEST_F(MeetingChanged, WhatNeverReachesTheServiceIsNotCompared) {
  for (const char* change : {R"({"location":"elsewhere"})", R"({"emailBody":"another text"})",
                             R"({"attendees":["Ada"]})", R"({"endTime":{"UTCTime":"2026-11-23 11:00:00"}})",
                             R"({"alternateHosts":["BOB@vorn.example","Ada@Vorn.Example"]})",
                             R"({"availableDialinCountry":{"selectedCountries":["fr","de"]}})",
                             R"({"trackingFields":[{"id":"2","mtValue":""},{"id":"1","mtValue":"north"}]})",
                             // An id that the meeting does not have counts as one with the empty value.
                             R"({"trackingFields":[{"id":"1","mtValue":"north"},{"id":"9","mtValue":""}]})"}) {
    EXPECT_FALSE(isChanged(change)) << change;
  }
}

TEST_F(MeetingChanged, TheSubjectIsNotComparedForAnAccountWhoseTopicsAreNotStored) {
  for (const bool notStored : {false, true}) {
    com::tidemar::webapp::proto::UserProfile profile;
    profile.set_useroption2(notStored ? std::int64_t{1} << 32 : 0);
    vnUserProfileHelper::sharedInstance().setData(
        Value::dictionaryFromPairs({{vn_Profile_Proto, EncodeUtils::base64Encode(profile.SerializeAsString())}}));
    EXPECT_EQ(isChanged(R"({"subject":"Another"})"), !notStored);
    EXPECT_TRUE(isChanged(R"({"duration":"5"})"));
  }
}

}  // namespace
}  // namespace vorn
