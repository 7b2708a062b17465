#include <gtest/gtest.h>

#include "data/vnProfileKeys.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "meeting.pb.h"
#include "tests/support/TestPlatform.h"
#include "util/EncodeUtils.h"
#include "workflow/vnMeetingDataMgr.h"

namespace vorn {
namespace {

Value texts(std::initializer_list<const char*> items) {
  Value result = Value::array();
  for (const char* item : items) result.append(item);
  return result;
}

Value trackingFields(std::initializer_list<std::pair<const char*, const char*>> fields) {
  Value result = Value::array();
  for (const auto& [id, value] : fields) {
    result.append(Value::dictionaryFromPairs(
        {{vn_Setting_TrackingFields_Id, id}, {vn_Setting_TrackingFields_MtValue, value}}));
  }
  return result;
}

Value countries(const Value& selected, bool includeTollfree) {
  return Value::dictionaryFromPairs({{vn_Setting_DialinCountry_SelectedCountries, selected},
                                     {vn_Setting_DialinCountry_IncludeTollfree, includeTollfree}});
}

Value startAt(const char* utc) { return Value::dictionaryFromPairs({{vn_ApptInfo_CalDate_UTCTime, utc}}); }

Value meeting() {
  Value settings = Value::dictionary();
  for (const std::string_view key :
       {vn_Setting_EnableHostVideo, vn_Setting_EnableParticipantsVideo, vn_Setting_EnableJBH, vn_Setting_IsPMI,
        vn_Setting_MuteUponEntry, vn_Setting_EnableAddMeetingToPublicEvent, vn_Setting_EnableAudioWatermark,
        vn_Setting_EnableWaitingRoom, vn_Setting_EnableRegionCustomization, vn_Setting_EnableUnmuteAll,
        vn_Setting_EnableE2ee, vn_Setting_EnableAllowDenyJoinMeetingRegion, vn_Setting_IsSignedInUsersMeetingOn}) {
    settings.set(key, false);
  }
  settings.set(vn_Setting_AudioOption, 2);
  settings.set(vn_Setting_ThirdPartyAudio, "bridge 1");
  settings.set(vn_Setting_RequiredMPW, true);
  settings.set(vn_Setting_MeetingPassword, "abc123");
  settings.set(vn_Setting_RestrictJoinDomains, "vorn.example");
  settings.set(vn_Setting_EnableAutoRecordingType, 0);
  settings.set(vn_Setting_JBHPriorTime, 5);
  settings.set(vn_Setting_SelectInvitationLanguage, "en-US");
  settings.set(vn_Setting_AlternateHosts, texts({"ada@vorn.example", "bob@vorn.example"}));
  settings.set(vn_Setting_TrackingFields, trackingFields({{"1", "north"}, {"2", ""}}));
  settings.set(vn_Setting_AvailableDialinCountry, countries(texts({"DE", "FR"}), false));
  const Value apptInfo = Value::dictionaryFromPairs({{vn_ApptInfo_Subject, "Review"},
                                                     {vn_ApptInfo_Location, "Room 7"},
                                                     {vn_ApptInfo_Duration, "60"},
                                                     {vn_ApptInfo_Recurrence, false},
                                                     {vn_ApptInfo_OlApptUUID, "u-1"},
                                                     {vn_ApptInfo_StartTime, startAt("2026-11-23 09:00:00")}});
  return Value::dictionaryFromPairs({{vn_Outlook_ApptInfo, apptInfo}, {vn_Setting, settings}});
}

// One item of a meeting and the value that it has instead of the usual one; absent takes the item out.
struct Item {
  std::string_view part;
  std::string_view key;
  Value value;
};
using Items = std::vector<Item>;

Value meetingWith(const Items& items) {
  Value changed = meeting();
  for (const Item& item : items) {
    Value part = changed[item.part];
    if (item.value.isAbsent()) {
      part.erase(item.key);
    } else {
      part.set(item.key, item.value);
    }
    changed.set(item.part, part);
  }
  return changed;
}

Item appointment(std::string_view key, const Value& value) { return {vn_Outlook_ApptInfo, key, value}; }
Item setting(std::string_view key, const Value& value) { return {vn_Setting, key, value}; }

class MeetingChanged : public testing::Test {
 protected:
  static void receiveUserOption2(std::int64_t bits) {
    com::tidemar::webapp::proto::UserProfile profile;
    profile.set_useroption2(bits);
    Value data = Value::dictionary();
    data.set(vn_Profile_Proto, EncodeUtils::base64Encode(profile.SerializeAsString()));
    vnUserProfileHelper::sharedInstance().setData(data);
  }

  TestPlatform test;
};

TEST_F(MeetingChanged, EveryComparedItemFlipsTheAnswerAlone) {
  const Item items[] = {
      appointment(vn_ApptInfo_Subject, "review"),
      appointment(vn_ApptInfo_Subject, Value()),
      appointment(vn_ApptInfo_StartTime, startAt("2026-11-23 9:00:00")),
      appointment(vn_ApptInfo_StartTime, Value()),
      appointment(vn_ApptInfo_Duration, "61"),
      appointment(vn_ApptInfo_Recurrence, true),
      appointment(vn_ApptInfo_OlApptUUID, "u-2"),
      setting(vn_Setting_EnableHostVideo, true),
      setting(vn_Setting_EnableParticipantsVideo, true),
      setting(vn_Setting_AudioOption, 1),
      setting(vn_Setting_MeetingPassword, "abc124"),
      setting(vn_Setting_MeetingPassword, "abc12"),
      setting(vn_Setting_MeetingPassword, ""),
      setting(vn_Setting_RequiredMPW, false),
      setting(vn_Setting_EnableJBH, true),
      setting(vn_Setting_IsPMI, true),
      setting(vn_Setting_IsSignedInUsersMeetingOn, true),
      setting(vn_Setting_TrackingFields, trackingFields({{"1", "south"}, {"2", ""}})),
      setting(vn_Setting_TrackingFields, trackingFields({{"1", "North"}, {"2", ""}})),
      setting(vn_Setting_TrackingFields, trackingFields({{"1", "north"}})),
      setting(vn_Setting_TrackingFields, trackingFields({{"3", "north"}, {"2", ""}})),
      setting(vn_Setting_EnableAutoRecordingType, 2),
      setting(vn_Setting_MuteUponEntry, true),
      setting(vn_Setting_AlternateHosts, texts({"ada@vorn.example"})),
      setting(vn_Setting_AlternateHosts, texts({"ada@vorn.example", "eve@vorn.example"})),
      setting(vn_Setting_AlternateHosts, texts({"ada@vorn.example", ""})),
      setting(vn_Setting_AlternateHosts, ""),
      setting(vn_Setting_AvailableDialinCountry, Value()),
      setting(vn_Setting_AvailableDialinCountry, countries(texts({"DE", "US"}), false)),
      setting(vn_Setting_AvailableDialinCountry, countries(texts({"DE", "FR", "US"}), false)),
      setting(vn_Setting_AvailableDialinCountry, countries(texts({"DE", "FR"}), true)),
      setting(vn_Setting_EnableAddMeetingToPublicEvent, true),
      setting(vn_Setting_EnableAudioWatermark, true),
      setting(vn_Setting_SelectInvitationLanguage, "en-us"),
      setting(vn_Setting_JBHPriorTime, 10),
      setting(vn_Setting_EnableWaitingRoom, true),
      setting(vn_Setting_EnableRegionCustomization, true),
      setting(vn_Setting_EnableUnmuteAll, true),
      setting(vn_Setting_EnableE2ee, true),
      setting(vn_Setting_EnableAllowDenyJoinMeetingRegion, true),
  };
  EXPECT_FALSE(vnMeetingDataMgr::isMeetingChanged(meeting(), meeting()));
  for (const Item& item : items) {
    EXPECT_TRUE(vnMeetingDataMgr::isMeetingChanged(meetingWith({item}), meeting())) << item.key;
  }
}

TEST_F(MeetingChanged, SomeItemsCountOnlyTogetherWithOthers) {
  const Item noPasscode = setting(vn_Setting_RequiredMPW, false);
  const Item thirdParty = setting(vn_Setting_AudioOption, 3);
  const Item otherBridge = setting(vn_Setting_ThirdPartyAudio, "bridge 2");
  const Item signedIn = setting(vn_Setting_IsSignedInUsersMeetingOn, true);
  const Item otherDomains = setting(vn_Setting_RestrictJoinDomains, "Vorn.example");
  struct Row {
    const char* what;
    Items now, old;
    bool expected;
  };
  const Row rows[] = {
      {"no passcode wanted, and there is none", {noPasscode}, {setting(vn_Setting_MeetingPassword, "")}, false},
      {"no passcode wanted, whatever the panel still holds",
       {noPasscode, setting(vn_Setting_MeetingPassword, "other")},
       {setting(vn_Setting_MeetingPassword, "")},
       false},
      {"no passcode wanted, but the meeting has one", {noPasscode}, {noPasscode}, true},
      {"a passcode wanted and empty on both sides",
       {setting(vn_Setting_MeetingPassword, "")},
       {setting(vn_Setting_MeetingPassword, Value())},
       false},
      {"the text of the audio that is chosen", {thirdParty, otherBridge}, {thirdParty}, true},
      {"the same text of the audio that is chosen", {thirdParty}, {thirdParty}, false},
      {"the text of an audio that is not chosen", {otherBridge}, {}, false},
      {"domains while only some may join", {signedIn, otherDomains}, {signedIn}, true},
      {"the same domains", {signedIn}, {signedIn}, false},
      {"domains while everybody may join", {otherDomains}, {}, false},
      {"a language on one side only", {setting(vn_Setting_SelectInvitationLanguage, Value())}, {}, true},
      {"no language on either side",
       {setting(vn_Setting_SelectInvitationLanguage, Value())},
       {setting(vn_Setting_SelectInvitationLanguage, "")},
       false},
      {"a UUID that the service does not know", {}, {appointment(vn_ApptInfo_OlApptUUID, Value())}, true},
      {"an appointment without UUID", {appointment(vn_ApptInfo_OlApptUUID, Value())}, {}, false},
      {"no countries on either side",
       {setting(vn_Setting_AvailableDialinCountry, Value())},
       {setting(vn_Setting_AvailableDialinCountry, Value())},
       false},
      {"countries on the service only", {}, {setting(vn_Setting_AvailableDialinCountry, Value())}, true},
      {"no hosts, written in two ways",
       {setting(vn_Setting_AlternateHosts, "")},
       {setting(vn_Setting_AlternateHosts, Value())},
       false},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(vnMeetingDataMgr::isMeetingChanged(meetingWith(row.now), meetingWith(row.old)), row.expected)
        << row.what;
  }
}

TEST_F(MeetingChanged, WhatNeverReachesTheServiceIsNotCompared) {
  const Item items[] = {
      appointment(vn_ApptInfo_Location, "elsewhere"),
      appointment(vn_ApptInfo_Body, "another text"),
      appointment(vn_ApptInfo_EndTime, startAt("2026-11-23 11:00:00")),
      appointment(vn_ApptInfo_Attendees, texts({"Ada"})),
      setting(vn_Setting_AlternateHosts, texts({"BOB@vorn.example", "Ada@Vorn.Example"})),
      setting(vn_Setting_AvailableDialinCountry, countries(texts({"fr", "de"}), false)),
      setting(vn_Setting_TrackingFields, trackingFields({{"2", ""}, {"1", "north"}})),
      // An id that the meeting does not have counts as one with the empty value.
      setting(vn_Setting_TrackingFields, trackingFields({{"1", "north"}, {"9", ""}})),
  };
  for (const Item& item : items) {
    EXPECT_FALSE(vnMeetingDataMgr::isMeetingChanged(meetingWith({item}), meeting())) << item.key;
  }
}

TEST_F(MeetingChanged, TheSubjectIsNotComparedForAnAccountWhoseTopicsAreNotStored) {
  const Value renamed = meetingWith({appointment(vn_ApptInfo_Subject, "Another")});
  for (const bool notStored : {false, true}) {
    receiveUserOption2(notStored ? std::int64_t{1} << 32 : 0);
    EXPECT_EQ(vnMeetingDataMgr::isMeetingChanged(renamed, meeting()), !notStored);
    EXPECT_TRUE(
        vnMeetingDataMgr::isMeetingChanged(meetingWith({appointment(vn_ApptInfo_Duration, "5")}), meeting()));
  }
}

}  // namespace
}  // namespace vorn
