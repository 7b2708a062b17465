#include "tests/commands/CommandWorld.h"

#include <algorithm>

#include "channel/discovery/vnClientConstants.h"
#include "channel/store/vnMeetingCommon.h"
#include "channel/transport/vnIPCConstants.h"
#include "data/vnUserProfileHelper.h"
#include "meeting.pb.h"
#include "util/EncodeUtils.h"
#include "util/vnOLUtils.h"

namespace vorn {

CommandWorld::CommandWorld() {
  vnMeetingCommon::setApptWindowDirectory(this);
  mgr = std::make_unique<vnAPIMgr>();
  mgr->setMeetingMgrInstance(&owner);
}

CommandWorld::~CommandWorld() { vnMeetingCommon::setApptWindowDirectory(nullptr); }

void CommandWorld::removeClient() { world.workspace.filePackages.clear(); }

void CommandWorld::runClient(bool runs) {
  world.workspace.running.clear();
  if (runs) world.workspace.running.insert(std::string(kVornusIdentify));
}

void CommandWorld::reply(const std::string& action, const Value& content) {
  Value envelope = Value::dictionary();
  envelope.set(VN_IPC_ACTION_ID, action);
  envelope.set(VN_IPC_CONTENT, content);
  world.notificationCenter.post(NOTI_HANDLE_SOCKET_GET_REQUEST_DONE_OLPLUGIN, nullptr, envelope);
}

std::size_t CommandWorld::activations() const {
  return static_cast<std::size_t>(
      std::count_if(world.distributedNotifications.posted.begin(), world.distributedNotifications.posted.end(),
                    [](const auto& posted) { return posted.name == kNoti_SilentActiveVornApplication; }));
}

std::vector<std::string> CommandWorld::alertTexts() const {
  std::vector<std::string> texts;
  for (const auto& shown : world.presenter.alerts()) texts.push_back(shown.alert.message);
  return texts;
}

void CommandWorld::runFor(double seconds) {
  world.runLoop.runUntil([] { return false; }, seconds);
}

void CommandWorld::setProfile(Value profile) { vnUserProfileHelper::sharedInstance().setData(profile); }

void CommandWorld::setProfileOptions(std::uint64_t userOption3, std::uint64_t userOption4) {
  com::tidemar::webapp::proto::UserProfile message;
  message.set_useroption3(static_cast<std::int64_t>(userOption3));
  message.set_useroption4(static_cast<std::int64_t>(userOption4));
  setProfile(Value::dictionaryFromPairs({{"proto", EncodeUtils::base64Encode(message.SerializeAsString())}}));
}

void CommandWorld::setTexts(const std::vector<std::pair<std::string, std::string>>& texts) {
  std::string table;
  for (const auto& [key, text] : texts) table += "\"" + key + "\" = \"" + text + "\";\n";
  world.surroundings.resources["Localizable.strings"] = table;
}

std::string meetingReply(const std::vector<std::string>& fields) {
  std::string text = "123456789;a;b;c;d;e;f;g;h;i;j;k;l";
  for (const std::string& field : fields) text += ";" + field;
  return text;
}

std::string packed(const Value& meeting) {
  return EncodeUtils::base64Encode(vnOLUtils::toJSONString(meeting)).value_or("");
}

}  // namespace vorn
