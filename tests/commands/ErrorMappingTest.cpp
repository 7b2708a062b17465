#include "channel/commands/vnAPIBase.h"
#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "data/vnSettingKeys.h"
#include "platform/Registry.h"
#include "tests/commands/CommandWorld.h"

namespace vorn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ErrorMapping : public CommandWorld {
 protected:
  ErrorMapping() { command.setMeetingMgr(&owner); }

  // The text of the one alert for a code.
  std::string shown(int code) {
    world.presenter.forgetAlerts();
    command.popupErrorMsg(window, code);
    return world.presenter.alerts().size() == 1 ? world.presenter.alerts()[0].alert.message : "not one alert";
  }

  vnAPIBase command;
};

TEST_F(ErrorMapping, EachReplyReadsAsItsCode) {
  const struct {
    const char* reply;
    int code;
    const char *words, *moreInfo;
  } cases[] = {
      {"0;Error 3001", 3001, "0;Error 3001", ""},
      {"0;Error 3018;third", 3001, "0;Error 3018", "third"},
      {"0;Error 1113", 1113, "0;Error 1113", "third"},  // the third field of the reply before
      {"0;Error 1114;a@b.c#x;rest", 1114, "0;Error 1114", "a@b.c#x"},
      {"0;Error 1115;", 1115, "0;Error 1115", ""},
      {"0;Error 2", 5003, "0;Error 2", ""},
      {"0;Error 3068", 3068, "0;Error 3068", ""},
      {"0;Error VornClientNotSignIn", 7, "0;Error VornClientNotSignIn", ""},
      {"0;Error 300", 9999, "0;Error 300", ""},
      {"0;error 3001", 0, "0;error 3001", ""},
      {"{\"a\":\"0;Error 3001\"}", 9999, "{\"a\":\"0;Error 3001\"}", ""},
      {"100;Error 3001", 9999, "100;Error 3001", ""},
      {"123456789;text;0;Error 3001", 0, "123456789;text", "0"},
      {"no separator", 0, "no separator", "0"},
      {"", 999, "", "0"},
      {";", 0, ";", "0"},
      {"0;", 0, "0;", "0"},
  };
  for (const auto& [reply, code, words, moreInfo] : cases) {
    command.parseFeedbackError(reply);
    EXPECT_EQ(command.errorCode(), code) << reply;
    EXPECT_EQ(command.errorCodeStr(), words) << reply;
    EXPECT_EQ(command.errorMoreInfo(), moreInfo) << reply;
    EXPECT_EQ(command.getAPIResult(), code == 0 ? "Success" : "Fail") << reply;
  }
  for (const int code : {1115, 3002, 3003, 3070, 3105, 3113, 3161, 3402, 3403, 5003}) {
    command.parseFeedbackError("0;Error " + std::to_string(code));
    EXPECT_EQ(command.errorCode(), code);
  }
}

TEST_F(ErrorMapping, WhatTheClientIsNowOutranksWhatItsReplySays) {
  const struct {
    std::function<void()> prepare;
    int status, code;
  } cases[] = {
      {[&] { runClient(false); }, 1, 5},  {[&] { installClient("3.5.1"); }, 1, 5},
      {[&] { runClient(); }, 2, 3001},    {[&] { installClient("3.4.99999"); }, 3, 6},
      {[&] { installClient(""); }, 3, 6}, {[&] { removeClient(); }, 0, 2},
  };
  for (const auto& [prepare, status, code] : cases) {
    prepare();
    EXPECT_EQ(vnAPIBase::GetVornCLientStatus(), status);
    command.parseFeedbackError("0;Error 3001");
    EXPECT_EQ(command.errorCode(), code);
  }
}

TEST_F(ErrorMapping, EachCodeShowsItsText) {
  setTexts({{"JBHPMIRequiredPassword", "%@ needs a passcode for %@"}});
  setProfile(Value::dictionaryFromPairs({{"roomMeetingId", "1234567890"}}));
  const std::pair<int, const char*> cases[] = {
      {4, ""},
      {7, "VornClientNotSignIn"},
      {999, "SystemError"},
      {3001, "MeetingNotFound"},
      {3068, " needs a passcode for 123 456 7890"},
      {3113, ""},
      {3403, ""},
  };
  for (const auto& [code, text] : cases) EXPECT_EQ(shown(code), text) << code;

  command.parseFeedbackError("0;Error of a new kind");
  EXPECT_EQ(shown(9999), "0;Error of a new kind");
  EXPECT_EQ(world.presenter.alerts()[0].window, window);
  EXPECT_EQ(world.presenter.alerts()[0].alert.buttons, std::vector<std::string>{"OK"});
  EXPECT_EQ(world.presenter.alerts()[0].alert.icon, "warning.png");
}

TEST_F(ErrorMapping, ASilentCommandKeepsErrorsToItselfButNotWarnings) {
  command.setSilentAPIError(true);
  command.parseFeedbackError("0;Error 1113;a@b.c#1");
  int refusedHosts = 0;
  const auto subscription = world.notificationCenter.observe(
      notify_Schedule_AlternateHostError, [&](const NotificationCenter::Notification&) { ++refusedHosts; });
  for (const int code : {2, 4, 5, 1113, 3105, 9999}) command.popupErrorMsg(window, code);
  EXPECT_THAT(alertTexts(), IsEmpty());
  EXPECT_EQ(refusedHosts, 0);
  command.popupWarnWithErrorMsg(window, "as it stands");
  EXPECT_THAT(alertTexts(), ElementsAre("as it stands"));
}

TEST_F(ErrorMapping, RefusedAlternateHostsAreNamedAndTakenOffThePanel) {
  const std::string before = "Remove the following users from the list of alternative hosts: ";
  const struct {
    const char* reply;
    std::string text;
    std::vector<std::string> emails;
  } cases[] = {
      {"0;Error 1113", "0;Error 1113", {}},
      {"0;Error 1113;ann@x.org#1#2", before + "ann@x.org", {"ann@x.org"}},
      {"0;Error 1114;ann@x.org#1,bob@x.org;more", before + "ann@x.org; bob@x.org", {"ann@x.org", "bob@x.org"}},
      // The same hosts again: a reply without a list leaves the old one.
      {"0;Error 1115", before + "ann@x.org; bob@x.org", {"ann@x.org", "bob@x.org"}},
  };
  for (const auto& [reply, text, emails] : cases) {
    Value told;
    const auto subscription = world.notificationCenter.observe(
        notify_Schedule_AlternateHostError,
        [&](const NotificationCenter::Notification& notification) { told = notification.userInfo; });
    command.parseFeedbackError(reply);
    EXPECT_EQ(shown(command.errorCode()), text) << reply;
    std::vector<std::string> toldEmails;
    for (const Value& email : told["emails"].items()) toldEmails.push_back(email.text());
    EXPECT_EQ(toldEmails, emails) << reply;
    EXPECT_EQ(told[keyApptWindowID].text(), emails.empty() ? "" : "abc") << reply;
  }
}

TEST_F(ErrorMapping, AnAlertIsTracedWithoutAddresses) {
  command.parseFeedbackError("0;Error 1113;ann@x.org#1");
  command.popupErrorMsg(window, 1113);
  const auto& step = world.trace.steps.back();
  EXPECT_EQ(step.step, "alert");
  EXPECT_EQ(step.facts["code"], Value(1113));
  EXPECT_EQ(step.facts["message"].text().find("ann"), std::string::npos);
  command.popupWarnWithErrorMsg(window, "as it stands");
  EXPECT_EQ(world.trace.steps.back().facts["code"], Value(0)) << "a warning has none";
}

TEST_F(ErrorMapping, ADisabledPersonalIdIsExplainedForEachSituation) {
  setTexts({{"LN_Schedule_MeetingID_OneTime_106192", "one-time"},
            {"LN_Schedule_MeetingID_OneTime_Edit_106192", "edit %@"},
            {"LN_Update_Meeting_Error_DisablePMI_153612", "update: %@"},
            {"LN_Update_Meeting_Error_DisablePMI_ScheduleForOther_153612", "update %@: %@"},
            {"LN_Update_Meeting_Error_DisablePMI_ScheduleForOtherWithSSuffix_153612", "update %@': %@"},
            {"LN_Schedule_DisablePMI_Message_153612", "hidden"},
            {"LN_Schedule_DisablePMI_Message_ScheduleForOther_153612", "hidden %@"},
            {"LN_Schedule_DisablePMI_Message_ScheduleForOtherWithSSuffix_153612", "hidden %@'"}});
  setProfile(Value::dictionaryFromPairs({{"userId", "user"}}));
  const JsonTextFile profileFile(vnCommon::getVnUserProfilePath("user"));
  const std::string other = "chris@x.org";
  const struct {
    const char* key;
    std::string otherHost;
    const char* name;
    bool isPMI, notShowMeAgain;
    const char* text;
  } cases[] = {
      {"987", "", "", true, false, "update: one-time"},
      {"987", "", "", false, true, "update: edit 987"},
      {"987", other, "Ann", true, false, "update Ann: one-time"},
      {"987", other, "Chris", true, false, "update Chris': one-time"},
      {"987", other, "Ann", false, true, "update Ann: edit 987"},
      {"987", other, "CHRIS", false, false, "update CHRIS: edit 987"},
      {"", "", "", true, true, "hidden"},
      {"", "", "", false, false, "update: one-time"},
      {"", other, "Ann", false, true, "hidden Ann"},
      {"", other, "Chris", false, true, "hidden Chris'"},
      {"", other, "Ann", false, false, "update Ann: one-time"},
      {"", other, "Chris", false, false, "update Chris': one-time"},
  };
  for (const auto& [key, otherHost, name, isPMI, notShowMeAgain, text] : cases) {
    owner.key = key;
    owner.otherHost = otherHost;
    owner.displayName = name;
    owner.siteMeeting = Value::dictionary();
    Value setting = Value::dictionaryFromPairs({{vn_Setting_IsPMI, isPMI}});
    owner.siteMeeting.set(vn_Setting, setting);
    profileFile.setKey(vn_Setting_NotShowMeAgain, notShowMeAgain);
    EXPECT_EQ(shown(3105), text);
  }
  command.setMeetingMgr(nullptr);
  EXPECT_EQ(shown(3105), "update: one-time");
}

}  // namespace
}  // namespace vorn
