// The record in an appointment, which any program may have written: an appointment opens with it, or without a
// meeting, and a record of ours is read as it was written.

#include "data/vnSettingKeys.h"
#include "fuzz/PanelWorld.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "workflow/MeetingOpening.h"

namespace {

using vorn::Value;
using vorn::fuzzing::check;

struct Opened {
  vorn::OptionalText key;
  vorn::OptionalText joinUrl;
  vorn::OptionalText language;

  bool operator==(const Opened&) const = default;
};

Opened openWith(vorn::TestPlatform& test, const Value& record, bool isInOlderPlace) {
  vorn::FakeWindow shown(test);
  shown.set(shown.bar->event, isInOlderPlace ? "olmUCCapabilities" : "olmUCInband", record);
  vorn::MeetingWindow meetingWindow = vorn::MeetingWindow::ofBar(shown.bar);
  vorn::MeetingOpening opening(*shown.manager);
  opening.loadOIProperty(meetingWindow, shown.bar->event);
  vorn::vnMeetingDataMgr& read = *shown.manager->meetingDataMgr();
  read.setSavedApptInfo(Value::dictionaryFromPairs({{vorn::vn_ApptInfo_VnOIProperty, record}}));
  read.getOldJoinUrl();
  read.usedJoinUrlListWithPwd();
  const Value stored = read.getVnDataForOLProperty(Value::dictionaryFromPairs(
      {{vorn::vn_MeetingKey, read.meetingKey()}, {vorn::vn_Meeting_JoinUrl, read.joinUrl()}}));
  check(vorn::vStringUtils::toArrayOrNSDictionary(stored.optionalText()).isDictionary(),
        "a record can be made of it");
  return {read.meetingKey(), read.joinUrl(), read.selectInvitationLanguage()};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Value record(std::string(reinterpret_cast<const char*>(data), size));
  vorn::TestPlatform test;
  defineWindowClasses(test.classRuntime);
  vorn::WorkflowDirectory::sharedInstance().install();
  vorn::RecordingClient::install(test);
  check(openWith(test, record, false) == openWith(test, record, true), "both places are read the same way");
  return 0;
}
