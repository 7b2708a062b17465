#include <gtest/gtest.h>

#include "data/vnSettingKeys.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "tests/support/TestPlatform.h"
#include "workflow/vnMeetingDataMgr.h"

namespace vorn {
namespace {

Value texts(std::initializer_list<const char*> items) {
  Value result = Value::array();
  for (const char* item : items) result.append(item);
  return result;
}

Value trackingField(const char* id, const char* value) {
  return Value::dictionaryFromPairs(
      {{vn_Setting_TrackingFields_Id, id}, {vn_Setting_TrackingFields_MtValue, value}});
}

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
  Value fields = Value::array();
  fields.append(trackingField("1", "north"));
  fields.append(trackingField("2", ""));
  settings.set(vn_Setting_TrackingFields, fields);
  settings.set(vn_Setting_AvailableDialinCountry,
               Value::dictionaryFromPairs({{vn_Setting_DialinCountry_SelectedCountries, texts({"DE", "FR"})},
                                           {vn_Setting_DialinCountry_IncludeTollfree, false}}));
  const Value apptInfo = Value::dictionaryFromPairs(
      {{vn_ApptInfo_Subject, "Review"},
       {vn_ApptInfo_Location, "Room 7"},
       {vn_ApptInfo_Duration, "60"},
       {vn_ApptInfo_Recurrence, false},
       {vn_ApptInfo_OlApptUUID, "u-1"},
       {vn_ApptInfo_StartTime,
        Value::dictionaryFromPairs({{vn_ApptInfo_CalDate_UTCTime, "2026-11-23 09:00:00"}})}});
  return Value::dictionaryFromPairs({{vn_Outlook_ApptInfo, apptInfo}, {vn_Setting, settings}});
}

Value with(std::string_view part, std::string_view key, const Value& value) {
  Value changed = meeting();
  Value inner = changed[part];
  if (value.isAbsent()) {
    inner.erase(key);
  } else {
    inner.set(key, value);
  }
  changed.set(part, inner);
  return changed;
}

class MeetingChanged : public testing::Test {
 protected:
  TestPlatform test;
};

TEST_F(MeetingChanged, EveryComparedItemFlipsTheAnswerAlone) {
  EXPECT_FALSE(vnMeetingDataMgr::isMeetingChanged(meeting(), meeting()));

  std::vector<std::pair<std::string, Value>> changes;
  const auto setting = [&](std::string_view key, const Value& value) {
    changes.emplace_back(std::string(key), with(vn_Setting, key, value));
  };
  const auto appointment = [&](std::string_view key, const Value& value) {
    changes.emplace_back(std::string(key), with(vn_Outlook_ApptInfo, key, value));
  };
  appointment(vn_ApptInfo_Subject, "review");
  appointment(vn_ApptInfo_Duration, "61");
  appointment(vn_ApptInfo_Recurrence, true);
  appointment(vn_ApptInfo_OlApptUUID, "u-2");
  appointment(vn_ApptInfo_StartTime,
              Value::dictionaryFromPairs({{vn_ApptInfo_CalDate_UTCTime, "2026-11-23 9:00:00"}}));
  for (const auto& [key, value] : meeting()[vn_Setting].entries()) {
    if (value.isBoolean() && key != vn_Setting_RequiredMPW) setting(key, true);
  }
  setting(vn_Setting_RequiredMPW, false);
  setting(vn_Setting_MeetingPassword, "abc124");
  setting(vn_Setting_AudioOption, 1);
  setting(vn_Setting_EnableAutoRecordingType, 2);
  setting(vn_Setting_JBHPriorTime, 10);
  setting(vn_Setting_SelectInvitationLanguage, "de-DE");
  setting(vn_Setting_AlternateHosts, texts({"ada@vorn.example"}));
  setting(vn_Setting_AlternateHosts, texts({"ada@vorn.example", "eve@vorn.example"}));
  setting(vn_Setting_AvailableDialinCountry, Value());
  setting(vn_Setting_AvailableDialinCountry,
          Value::dictionaryFromPairs({{vn_Setting_DialinCountry_SelectedCountries, texts({"DE", "US"})},
                                      {vn_Setting_DialinCountry_IncludeTollfree, false}}));
  setting(vn_Setting_AvailableDialinCountry,
          Value::dictionaryFromPairs({{vn_Setting_DialinCountry_SelectedCountries, texts({"DE", "FR"})},
                                      {vn_Setting_DialinCountry_IncludeTollfree, true}}));
  Value fields = Value::array();
  fields.append(trackingField("1", "south"));
  fields.append(trackingField("2", ""));
  setting(vn_Setting_TrackingFields, fields);

  for (const auto& [what, changed] : changes) {
    EXPECT_TRUE(vnMeetingDataMgr::isMeetingChanged(changed, meeting())) << what;
  }
  EXPECT_GE(changes.size(), 28u);
}

TEST_F(MeetingChanged, WhatNeverReachesTheServiceIsNotCompared) {
  Value fields = Value::array();
  fields.append(trackingField("2", ""));
  fields.append(trackingField("1", "north"));
  Value renamed = Value::array();
  renamed.append(trackingField("1", "north"));
  renamed.append(trackingField("9", ""));
  const std::pair<const char*, Value> rows[] = {
      {"location", with(vn_Outlook_ApptInfo, vn_ApptInfo_Location, "elsewhere")},
      {"a record without UUID", with(vn_Outlook_ApptInfo, vn_ApptInfo_OlApptUUID, Value())},
      {"order and case of hosts",
       with(vn_Setting, vn_Setting_AlternateHosts, texts({"BOB@vorn.example", "Ada@Vorn.Example"}))},
      {"order of tracking fields", with(vn_Setting, vn_Setting_TrackingFields, fields)},
      {"an empty field under another id", with(vn_Setting, vn_Setting_TrackingFields, renamed)},
      {"the text of an audio that is not chosen", with(vn_Setting, vn_Setting_ThirdPartyAudio, "bridge 2")},
      {"domains while nobody has to sign in", with(vn_Setting, vn_Setting_RestrictJoinDomains, "other.example")},
  };
  for (const auto& [what, changed] : rows) {
    EXPECT_FALSE(vnMeetingDataMgr::isMeetingChanged(changed, meeting())) << what;
  }
}

TEST_F(MeetingChanged, TheTextOfThirdPartyAudioCountsOnlyWhenItIsChosen) {
  const Value old = with(vn_Setting, vn_Setting_AudioOption, 3);
  Value settings = old[vn_Setting];
  settings.set(vn_Setting_ThirdPartyAudio, "bridge 2");
  Value changed = old;
  changed.set(vn_Setting, settings);
  EXPECT_TRUE(vnMeetingDataMgr::isMeetingChanged(changed, old));
}

TEST_F(MeetingChanged, APasscodeThatIsNoLongerWantedIsAChangeOnlyWhileTheMeetingHasOne) {
  const Value unwanted = with(vn_Setting, vn_Setting_RequiredMPW, false);
  EXPECT_TRUE(vnMeetingDataMgr::isMeetingChanged(unwanted, meeting()));
  EXPECT_FALSE(vnMeetingDataMgr::isMeetingChanged(unwanted, with(vn_Setting, vn_Setting_MeetingPassword, "")));
}

}  // namespace
}  // namespace vorn
