#pragma once

#include <string>
#include <utility>
#include <vector>

#include "data/vnGetScheduleForListHelper.h"
#include "tests/settings/PanelFixture.h"

namespace vorn {

inline constexpr const char* kDana = "dana@vorn.example";
inline constexpr const char* kBob = "bob@vorn.example";

// One of those whom the user may schedule for, as the service tells of them.
inline Value person(const char* email, const char* name, const char* pmi = "", bool isDisabled = false) {
  return Value::dictionaryFromPairs(
      {{vn_Boss_Email, email}, {vn_Boss_DisplayName, name}, {vn_Boss_PMI, pmi}, {vn_Boss_DisablePMI, isDisabled}});
}

// A panel whose client answers what is asked about meetings and the people whom the user schedules for.
class MeetingIdFixture : public SettingsPanelTest {
 protected:
  void typeDialInAndDomains() {
    turn("thirdPartyAudioButton", true);
    type("thirdPartyAudioTextField", "Dial 555");
    turn("onlySignedinWithSpecifiedDomains", true);
    click("viewEditButton");
    type("_domainsTextField", "acme.example");
    click("domains_SaveBtn");
  }
  void knowAccount(bool isDisabled = false, bool isLocked = false) {
    Account account = isDefaultPMI ? accountWith(UserOption3::isDefaultScheduleUsePMI) : Account();
    if (isLocked) account.MergeFrom(accountWith(UserOption4::isLockScheduleUsePMI));
    account.set_email("me@vorn.example");
    account.set_roommeetingid(5550142871);
    SettingsPanelTest::knowAccount(account, {{vn_Profile_IsDisablePMI, isDisabled}, {vn_Profile_Bosses, people}});
  }
  void knowAccountWithWords(int passcodeLength = 0, bool signsIn = true) {
    Account account = accountWith(UserOption::EnableThirdPartyAudio, UserOption3::isEnableRequirePassword);
    account.set_usertype(2);
    account.set_roommeetingid(5550142871);
    account.set_otherteleconfinfo("Dial 1");
    account.add_trackingfields()->set_id("1");
    const Value staff = Value::dictionaryFromPairs({{vn_Setting_MeetingAuth_AuthId, "a1"},
                                                    {vn_Setting_MeetingAuth_AuthType, 1},
                                                    {vn_Setting_MeetingAuth_AuthDomain, "corp.example"},
                                                    {vn_Setting_MeetingAuth_DefaultAuth, true}});
    SettingsPanelTest::knowAccount(account, {{vn_Profile_Bosses, people},
                                             {vn_Profile_PasswordMinLength, passcodeLength},
                                             {vn_Profile_SupportOnlyAuthUsersCanJoin, true},
                                             {vn_Profile_DefaultEnableOnlyAuthUsersCanJoin, signsIn},
                                             {vn_Profile_MeetingAuths, Value::Array{staff}}});
  }
  void knowList() {
    vnGetScheduleForListHelper::sharedInstance().setData(
        Value::dictionaryFromPairs({{vn_Profile_Bosses, people}}));
  }
  RecordingClient& client() { return static_cast<RecordingClient&>(Registry::shared<vSocketClientImpl>()); }
  void answer(const char* action, const std::string& content) {
    window->manager->apiMgr()->handleMessageRespose(
        Value::dictionaryFromPairs({{"actionId", action}, {"content", content}}));
  }
  void answerMeeting(const char* number, bool isHostVideoOn, const char* scheduleFor = "") {
    const Value meeting = Value::dictionaryFromPairs({{"meetingKey", number},
                                                      {vn_Setting_EnableHostVideo, isHostVideoOn},
                                                      {vn_Setting_ScheduleFor, scheduleFor},
                                                      {vn_Setting_IsPMI, true}});
    answer("4", std::string(13, ';') +
                    EncodeUtils::base64Encode(vnOLUtils::toJSONString(meeting).value_or("")).value_or(""));
  }
  // The meeting stands, Ann is its host, and only people of two companies may join.
  void knowMeetingOfAnn(Value meeting) {
    com::tidemar::webapp::proto::MeetingProto options;
    options.set_scheduleoptions(static_cast<std::int64_t>(ScheduleOptions::IsSignedInUsersMeetingOn));
    options.mutable_authproto()->set_authid("a1");
    options.mutable_authproto()->set_authtype(1);
    options.mutable_authproto()->set_authdomain("acme.example;beta.example");
    auto& host = *options.add_alternatehosts();
    host.set_id("ann");
    host.set_email("ann@vorn.example");
    auto& costCentre = *options.add_trackingfields();
    costCentre.set_id("1");
    costCentre.set_mtvalue("CC-1");
    window->manager->meetingDataMgr()->setMeetingKey("91234567890");
    meeting.set("meetingKey", "91234567890");
    vnGetMeetingHelper& helper = *window->manager->getMeetingHelper();
    helper.setMeetingData(meeting, false);
    helper.setPBMeetingData(EncodeUtils::base64Encode(options.SerializeAsString()));
  }
  // The panel is shown again with what was refused.
  void commitAndBeRefused() {
    view().onSettingsCommit(true);
    view().commitRefused();
    view().updateUIItemsForNextTime();
  }
  void answerList() {
    answer("11", vnOLUtils::toJSONString(Value::dictionaryFromPairs({{vn_Profile_Bosses, people}})).value_or(""));
  }
  std::vector<std::string> asked() {
    std::vector<std::string> all;
    for (const auto& [action, content] : client().requests) all.push_back(content.substr(0, content.find(";msO")));
    client().requests.clear();
    return all;
  }

  bool isDefaultPMI = false;
  Value people = Value::array();
};

}  // namespace vorn
