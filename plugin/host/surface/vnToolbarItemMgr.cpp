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

Value validate(const HostObject& item, const Arguments&) {
  shared().validate(item);
  return {};
}

constexpr OwnMethod kItemMethods[] = {{"validate", "v@:", validate}};

// A click on an item comes from the item, a press on its view from the view.
HostObject viewOf(const HostObject& sender) {
  const HostObject shown = askHost(sender, "view").object();
  return shown ? shown : sender;
}

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

vnToolbarItemMgr::~vnToolbarItemMgr() {
  // The host may keep all of it, and does not hold whom it sends to.
  if (!Registry::platform().classRuntime) return;
  for (const HostObject& item : {m_start, m_schedule, m_schedulePAC, m_openLogFolder}) {
    askHost(item, "setTarget:", {Value()});
  }
  forgetTarget(m_startMenu);
  forgetTarget(m_schedulePACMenu);
}

HostObject* vnToolbarItemMgr::keptItem(std::string_view identifier) {
  if (identifier == m_instantMeetingItemIdentifier) return &m_start;
  if (identifier == m_scheduleMeetingItemIdentifier) return &m_schedule;
  if (identifier == m_schedulePACItemIdentifier) return &m_schedulePAC;
  return identifier == m_openLogFolderItemIdentifier ? &m_openLogFolder : nullptr;
}

HostObject vnToolbarItemMgr::itemForIdentifier(std::string_view identifier, const HostObject& toolbar) {
  if (!keptItem(identifier)) return {};
  const HostObject& item = kept(identifier);
  const HostObject shownIn = askHost(item, "toolbar").object();
  return shownIn && shownIn != toolbar ? makeItemForIdentifier(identifier) : item;
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

// The toolkit shows an item that has a view by that view; a toolbar that shows words, or that has no room for it,
// shows the menu by the item's title.
HostObject vnToolbarItemMgr::makeItemWithMenu(const Look& look, const HostObject& menu) {
  const HostObject item = makeItem(look);
  const Value size = Value::dictionaryFromPairs({{"width", kItemFrame.width}, {"height", kItemFrame.height}});
  askHost(item, "setView:", {makePopupToolbarView(kItemFrame, look.image, menu)});
  askHost(item, "setMinSize:", {size});
  askHost(item, "setMaxSize:", {size});
  const HostObject inWords =
      makeInHost("NSMenuItem", "initWithTitle:action:keyEquivalent:", {localizedString(look.label), Value(), ""});
  askHost(inWords, "setSubmenu:", {menu});
  askHost(item, "setMenuFormRepresentation:", {inWords});
  return item;
}

HostObject vnToolbarItemMgr::makeItemForIdentifier(std::string_view identifier) {
  if (identifier == m_instantMeetingItemIdentifier) {
    return makeItemWithMenu({identifier, "InstantMeetingLabel", "InstantMeetingTooltip", "Start_Meeting_normal_32",
                             "popupStartContextMenu:"},
                            startMenu());
  }
  if (identifier == m_scheduleMeetingItemIdentifier) {
    return makeItem({identifier, "ScheduleMeetingLabel", "ScheduleMeetingTooltip", "Schedule_Meeting_normal_32",
                     "onClickScheduleVornMeeting:"});
  }
  if (identifier == m_schedulePACItemIdentifier) {
    return makeItemWithMenu({identifier, "SchedulePACMeetingLabel", "SchedulePACMeetingTooltip",
                             "Schedule_PACMeeting_32", "popupSchedulePACContextMenu:"},
                            schedulePACMenu());
  }
  return makeItem({identifier, "OpenLogFolderLabel", "OpenLogFolderTooltip", "OpenLogFolder_normal_32",
                   "onClickOpenLogFolder:"});
}

const HostObject& vnToolbarItemMgr::kept(std::string_view identifier) {
  HostObject& item = *keptItem(identifier);
  if (!item) item = makeItemForIdentifier(identifier);
  return item;
}

const HostObject& vnToolbarItemMgr::VNStartToolbarItem() { return kept(m_instantMeetingItemIdentifier); }
const HostObject& vnToolbarItemMgr::VNScheduleToolbarItem() { return kept(m_scheduleMeetingItemIdentifier); }
const HostObject& vnToolbarItemMgr::vnSchedulePACToolbarItem() { return kept(m_schedulePACItemIdentifier); }
const HostObject& vnToolbarItemMgr::VNOpenLogFolderToolbarItem() { return kept(m_openLogFolderItemIdentifier); }

void vnToolbarItemMgr::validate(const HostObject& item) {
  vnAppHelper& helper = vnAppHelper::sharedInstance();
  if (!m_isSupportedHost) m_isSupportedHost = helper.isSupportedOutlookVersion();
  if (!m_isSupportedSystem) m_isSupportedSystem = helper.isSupportedOSVersion();
  askHost(item, "setEnabled:", {*m_isSupportedHost});
  if (!*m_isSupportedSystem) askHost(item, "setToolTip:", {localizedString("OSVersionTooLow")});
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

void vnToolbarItemMgr::popupStartContextMenu(const HostObject& sender) { popUp(startMenu(), viewOf(sender)); }

void vnToolbarItemMgr::popupSchedulePACContextMenu(const HostObject& sender) {
  popUp(schedulePACMenu(), viewOf(sender));
}

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
