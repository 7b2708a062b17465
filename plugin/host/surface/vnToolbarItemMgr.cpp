#include "host/surface/vnToolbarItemMgr.h"

#include <functional>
#include <vector>

#include "channel/discovery/vnAppHelper.h"
#include "channel/discovery/vnPluginBuildMgr.h"
#include "host/proxies/HostViews.h"
#include "host/proxies/vnDelegateBase.h"
#include "host/surface/HostMenu.h"
#include "host/surface/MainWindowToolbar.h"
#include "host/surface/OwnClass.h"
#include "host/surface/vnCommandItemMgr.h"
#include "host/surface/vnPopupToolbarView.h"
#include "platform/Localization.h"
#include "platform/Registry.h"
#include "platform/RunLoop.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

namespace {

constexpr Rect kItemFrame{0, 0, 32, 32};

enum StartTag : std::int64_t { kWithVideo = 0, kWithoutVideo = 1 };
enum AccountTag : std::int64_t { kFirstAccount = 0, kSecondAccount = 1 };

vnToolbarItemMgr& shared() { return vnToolbarItemMgr::sharedInstance(); }

using Clicked = void (vnToolbarItemMgr::*)();
using ClickedWithSender = void (vnToolbarItemMgr::*)(const HostObject& sender);

template <Clicked Operation>
Value click(const HostObject&, const Arguments&) {
  (shared().*Operation)();
  return {};
}

template <ClickedWithSender Operation>
Value clickWithSender(const HostObject&, const Arguments& arguments) {
  (shared().*Operation)(arguments.empty() ? HostObject() : arguments.front().object());
  return {};
}

using Items = vnToolbarItemMgr;

constexpr OwnMethod kTargetMethods[] = {
    {"popupStartContextMenu:", "v@:@", clickWithSender<&Items::popupStartContextMenu>},
    {"popupSchedulePACContextMenu:", "v@:@", clickWithSender<&Items::popupSchedulePACContextMenu>},
    {"onContextMenuAction_Start:", "v@:@", clickWithSender<&Items::onContextMenuAction_Start>},
    {"onContextMenuAction_SchedulePAC:", "v@:@", clickWithSender<&Items::onContextMenuAction_SchedulePAC>},
    {"onClickScheduleVornMeeting:", "v@:@", click<&Items::onClickScheduleVornMeeting>},
    {"onClickOpenLogFolder:", "v@:@", click<&Items::onClickOpenLogFolder>},
};

// The toolkit asks the item whether it may be used now.
Value validate(const HostObject& item, const Arguments&) {
  vnAppHelper& helper = vnAppHelper::sharedInstance();
  askHost(item, "setEnabled:", {helper.isSupportedOutlookVersion()});
  if (!helper.isSupportedOSVersion()) askHost(item, "setToolTip:", {localizedString("OSVersionTooLow")});
  return {};
}

constexpr OwnMethod kItemMethods[] = {{"validate", "v@:", validate}};

std::int64_t tagOf(const HostObject& sender) {
  constexpr std::int64_t kNone = -1;
  const Value tag = askHost(sender, "tag");
  return tag.isNumber() ? tag.integerValue() : kNone;
}

// The host closes the menu first.
void whenTheMenuHasClosed(std::string_view selector, std::function<void()> work) {
  Registry::platform().runLoop->performAfter(0, &shared(), selector, std::move(work));
}

}  // namespace

struct vnToolbarItemMgr::Look {
  std::string_view identifier;
  std::string_view label;
  std::string_view toolTip;
  std::string_view image;
  std::string_view action;
};

vnToolbarItemMgr& vnToolbarItemMgr::sharedInstance() { return Registry::shared<vnToolbarItemMgr>(); }

bool vnToolbarItemMgr::supportStartWithoutVideo() {
  // The flavours of resellers that offer it too would stand here.
  return vnPluginBuildMgr::isBuildForVorn();
}

// -- The items ---------------------------------------------------------------------------------------------------

HostObject vnToolbarItemMgr::itemForIdentifier(std::string_view identifier) {
  if (identifier == m_instantMeetingItemIdentifier) return VNStartToolbarItem();
  if (identifier == m_scheduleMeetingItemIdentifier) return VNScheduleToolbarItem();
  if (identifier == m_schedulePACItemIdentifier) return vnSchedulePACToolbarItem();
  if (identifier == m_openLogFolderItemIdentifier) return VNOpenLogFolderToolbarItem();
  return {};
}

const HostObject& vnToolbarItemMgr::target() {
  if (!m_target) m_target = makeInHost(ownClass("vnToolbarItemMgr", "NSObject", kTargetMethods), "init");
  return m_target;
}

HostObject vnToolbarItemMgr::makeItem(const Look& look) {
  const ClassRef itemClass = ownClass("VnToolbarItem", "NSToolbarItem", kItemMethods);
  const HostObject item = makeInHost(itemClass, "initWithItemIdentifier:", {look.identifier});
  askHost(item, "setLabel:", {localizedString(look.label)});
  askHost(item, "setPaletteLabel:", {localizedString("VnPalletLabel")});
  askHost(item, "setToolTip:", {localizedString(look.toolTip)});
  askHost(item, "setImage:", {imageNamed(look.image)});
  askHost(item, "setTarget:", {target()});
  askHost(item, "setAction:", {look.action});
  return item;
}

// The toolkit shows an item that has a view by that view alone; its own action is for a toolbar that shows words.
HostObject vnToolbarItemMgr::makeItemWithMenu(const Look& look, const HostObject& menu) {
  const HostObject item = makeItem(look);
  askHost(item, "setView:", {makePopupToolbarView(kItemFrame, look.image, menu)});
  return item;
}

const HostObject& vnToolbarItemMgr::VNStartToolbarItem() {
  if (!m_start) {
    m_start = makeItemWithMenu({m_instantMeetingItemIdentifier, "InstantMeetingLabel", "InstantMeetingTooltip",
                                "Start_Meeting_normal_32", "popupStartContextMenu:"},
                               startMenu());
  }
  return m_start;
}

const HostObject& vnToolbarItemMgr::VNScheduleToolbarItem() {
  if (!m_schedule) {
    m_schedule = makeItem({m_scheduleMeetingItemIdentifier, "ScheduleMeetingLabel", "ScheduleMeetingTooltip",
                           "Schedule_Meeting_normal_32", "onClickScheduleVornMeeting:"});
  }
  return m_schedule;
}

const HostObject& vnToolbarItemMgr::vnSchedulePACToolbarItem() {
  if (!m_schedulePAC) {
    m_schedulePAC =
        makeItemWithMenu({m_schedulePACItemIdentifier, "SchedulePACMeetingLabel", "SchedulePACMeetingTooltip",
                          "Schedule_PACMeeting_32", "popupSchedulePACContextMenu:"},
                         schedulePACMenu());
  }
  return m_schedulePAC;
}

const HostObject& vnToolbarItemMgr::VNOpenLogFolderToolbarItem() {
  if (!m_openLogFolder) {
    m_openLogFolder = makeItem({m_openLogFolderItemIdentifier, "OpenLogFolderLabel", "OpenLogFolderTooltip",
                                "OpenLogFolder_normal_32", "onClickOpenLogFolder:"});
  }
  return m_openLogFolder;
}

// -- Their menus -------------------------------------------------------------------------------------------------

const HostObject& vnToolbarItemMgr::startMenu() {
  if (m_startMenu) return m_startMenu;
  constexpr std::string_view action = "onContextMenuAction_Start:";
  std::vector<MenuEntry> entries = {{localizedString("StartWithVideo"), action, kWithVideo}};
  if (supportStartWithoutVideo()) entries.push_back({localizedString("StartWithoutVideo"), action, kWithoutVideo});
  return m_startMenu = makeMenu("vnStartMeetingMenu", entries, target());
}

const HostObject& vnToolbarItemMgr::schedulePACMenu() {
  if (m_schedulePACMenu) return m_schedulePACMenu;
  constexpr std::string_view action = "onContextMenuAction_SchedulePAC:";
  const MenuEntry entries[] = {{localizedString("PACAccount1Label"), action, kFirstAccount},
                               {localizedString("PACAccount2Label"), action, kSecondAccount}};
  return m_schedulePACMenu = makeMenu("vnSchedulePACMeetingMenu", entries, target());
}

void vnToolbarItemMgr::popupStartContextMenu(const HostObject& view) { popUp(startMenu(), view); }

void vnToolbarItemMgr::popupSchedulePACContextMenu(const HostObject& view) { popUp(schedulePACMenu(), view); }

void vnToolbarItemMgr::onContextMenuAction_Start(const HostObject& sender) {
  const std::int64_t tag = tagOf(sender);
  if (tag == kWithVideo) {
    whenTheMenuHasClosed("onClickStartMeetingWithVideo:", [] { shared().onClickStartMeetingWithVideo(); });
  } else if (tag == kWithoutVideo) {
    whenTheMenuHasClosed("onClickStartMeetingWithoutVideo:", [] { shared().onClickStartMeetingWithoutVideo(); });
  }
}

void vnToolbarItemMgr::onContextMenuAction_SchedulePAC(const HostObject& sender) {
  const std::int64_t tag = tagOf(sender);
  if (tag != kFirstAccount && tag != kSecondAccount) return;
  const Value data = Value::dictionaryFromPairs({{vn_PAC_Setting_PACAccountNo, tag == kFirstAccount ? 1 : 2}});
  whenTheMenuHasClosed("onClickSchedulePersonalAudioMeeting:",
                       [data] { shared().onClickSchedulePersonalAudioMeeting(data); });
}

// -- What they do ------------------------------------------------------------------------------------------------

namespace {

void sendCommand(vnCommandItemMgr::Command command, const Value& data = {}) {
  vnCommandItemMgr::sharedInstance().SendToolbarItemCommand(command, data);
}

Value withVideo(const char* flag) { return Value::dictionaryFromPairs({{kPara_StartWithVideo, flag}}); }

}  // namespace

void vnToolbarItemMgr::onClickStartMeetingWithVideo() {
  sendCommand(vnCommandItemMgr::kStartInstantMeeting, withVideo("1"));
}
void vnToolbarItemMgr::onClickStartMeetingWithoutVideo() {
  sendCommand(vnCommandItemMgr::kStartInstantMeeting, withVideo("0"));
}
void vnToolbarItemMgr::onClickScheduleVornMeeting() { sendCommand(vnCommandItemMgr::kScheduleNewMeeting); }
void vnToolbarItemMgr::onClickSchedulePersonalAudioMeeting(const Value& data) {
  sendCommand(vnCommandItemMgr::kScheduleNewPACMeeting, data);
}
void vnToolbarItemMgr::onClickOpenLogFolder() { sendCommand(vnCommandItemMgr::kOpenLogFolder); }

}  // namespace vorn
