#pragma once

// The settings panel of one of the example accounts, as its user opens, uses and closes it.

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "fuzz/Fuzzing.h"
#include "lab/client/Account.h"
#include "lab/client/Replies.h"
#include "settings/SchSettingWndCtrlMgr.h"
#include "tests/support/FakeWindow.h"
#include "tests/support/RecordingClient.h"
#include "util/Utf16.h"
#include "util/vStringUtils.h"

namespace vorn::fuzzing {

// What a front end hands on of typed bytes: characters.
inline std::string typedText(std::string_view bytes) {
  std::string text;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t length = utf8SequenceLength(bytes, at);
    if (length > 1 || static_cast<unsigned char>(bytes[at]) < 0x80) text += bytes.substr(at, length);
    at += length;
  }
  return text;
}

class PanelWorld {
 public:
  using Use = PanelRecord::Use;

  // By number; any number is one. The meeting, if there is one, is that of the account's owner.
  PanelWorld(unsigned account, bool hasMeeting) {
    test.surroundings.resourceFolder = VORN_RESOURCES;
    defineWindowClasses(test.classRuntime);
    WorkflowDirectory::sharedInstance().install();
    RecordingClient::install(test);
    m_panels.install();
    m_window = std::make_unique<FakeWindow>(test);
    vnUserProfileHelper::sharedInstance().setData(profile(account));
    if (hasMeeting) {
      m_window->manager->meetingDataMgr()->setMeetingKey("91234567890");
      m_window->manager->getMeetingHelper()->setMeetingData(
          Value::dictionaryFromPairs({{"meetingKey", "91234567890"}, {vn_Setting_MeetingPassword, "abc123"}}),
          false);
    }
    open();
  }
  ~PanelWorld() { Registry::reset(); }
  PanelWorld(const PanelWorld&) = delete;
  PanelWorld& operator=(const PanelWorld&) = delete;

  void open() {
    m_panels.addSchSettingWindowToArray(id(), Value(), m_window->bar->ownWindow);
    m_panels.showSchSettingWindow(id());
  }
  void close() { m_panels.endSettingWindow(id()); }
  // Null when it has closed.
  const ControlSet* controls() const { return test.presenter.panels().on(m_window->bar->ownWindow); }
  PanelLayout layout() const { return test.presenter.panels().layout(m_window->bar->ownWindow); }
  Use use(const std::string& key, const std::function<void(Control&)>& change = nullptr) {
    return test.presenter.panels().use(m_window->bar->ownWindow, key, change);
  }
  // What is put off comes: the chips of a field, and where the keyboard goes.
  void wait() { test.runLoop.runFor(0.11); }
  Value settings() {
    const auto panel = m_panels.getSchSettingWindowInArray(id());
    return panel ? panel->getVnSettingsData() : Value();
  }

  TestPlatform test;

 private:
  std::string id() const { return m_window->bar->ownWindow.windowId(); }
  static const Value& profile(unsigned account) {
    static const auto all = [] {
      std::array<Value, 4> made;
      std::size_t at = 0;
      for (const char* name : {"everything-on", "everything-locked", "three-people", "plain"}) {
        const auto read = vornlab::Account::fromFile(std::string(VORN_ACCOUNTS) + "/" + name + ".json");
        made.at(at++) = vStringUtils::toArrayOrNSDictionary(vornlab::profileReply(read));
      }
      return made;
    }();
    return all.at(account % all.size());
  }

  SchSettingWndCtrlMgr& m_panels = SchSettingWndCtrlMgr::sharedInstance();
  std::unique_ptr<FakeWindow> m_window;
};

}  // namespace vorn::fuzzing
