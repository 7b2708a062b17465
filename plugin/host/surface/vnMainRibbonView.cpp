#include "host/surface/vnMainRibbonView.h"

#include <algorithm>
#include <vector>

#include "channel/transport/vnIPCChannel.h"
#include "channel/transport/vnIPCConstants.h"
#include "host/proxies/HostViews.h"
#include "host/proxies/vnERageMainWindowController.h"
#include "host/proxies/vnOUIRibbonChunkView.h"
#include "host/surface/HostMenu.h"
#include "host/surface/OwnClass.h"
#include "host/surface/vnToolbarItemMgr.h"
#include "platform/Localization.h"
#include "platform/Registry.h"
#include "util/vnOLUtils.h"

namespace vorn {

namespace {

constexpr Rect g_vnRibbonViewSize{0, 0, 60, 60};
constexpr const char* kChunkClass = "OUIRibbonChunkView";
constexpr std::string_view kAddinsTitle = "Add-ins";

template <void (vnMainRibbonView::*Operation)()>
Value click(const HostObject&, const Arguments&) {
  (vnMainRibbonView::sharedInstance().*Operation)();
  return {};
}

using Ribbon = vnMainRibbonView;

constexpr OwnMethod kRibbonMethods[] = {
    {"onClickScheduleMeeting:", "v@:@", click<&Ribbon::onClickScheduleMeeting>},
    {"onClickStartMeetingWithVideo:", "v@:@", click<&Ribbon::onClickStartMeetingWithVideo>},
    {"onClickStartMeetingWithoutVideo:", "v@:@", click<&Ribbon::onClickStartMeetingWithoutVideo>},
    {"onClickOpenLogFolder:", "v@:@", click<&Ribbon::onClickOpenLogFolder>},
    {"onClickAbout:", "v@:@", click<&Ribbon::onClickAbout>},
};

bool isOurs(const HostObject& view) { return isExactlyOfHostClass(view, vnPopupButton::kClass); }

double rightEdge(const HostObject& view) {
  const Rect frame = frameOf(view);
  return frame.x + frame.width;
}

}  // namespace

vnMainRibbonView& vnMainRibbonView::sharedInstance() { return Registry::shared<vnMainRibbonView>(); }

vnMainRibbonView::~vnMainRibbonView() {
  if (Registry::platform().classRuntime) forgetTarget(m_menu);
}

bool vnMainRibbonView::isHomeMailInboxTab() const {
  return olMainWindowActivedTab == vnERageMainWindowController::kMailTab;
}

void vnMainRibbonView::initWithOLRibbonChunkContainerView(const HostObject& container) {
  if (!container) return;
  m_idOLRibbonChunkContainerView = HostObject(container.address());
  const bool isWanted = !isHomeMailInboxTab() || isOfficeAddinsStoreEnable(container);
  if (!hasVnRibbonView()) {
    if (!isWanted) return;
    createVnRibbonButton();
  }
  // What was hidden on one tab is shown again on another, behind the chunks that this one has. It may be older
  // than this system's present start.
  askHost(vnRibbonButton(), "setMenu:", {menu()});
  askHost(vnRibbonButton(), "setHidden:", {!isWanted});
  if (isWanted) adjustVnRibbonButton();
}

bool vnMainRibbonView::hasVnRibbonView() const { return static_cast<bool>(vnRibbonButton()); }

HostObject vnMainRibbonView::vnRibbonButton() const {
  const std::vector<HostObject> views = subviewsOf(m_idOLRibbonChunkContainerView);
  const auto found = std::find_if(views.begin(), views.end(), isOurs);
  return found == views.end() ? HostObject() : *found;
}

const HostObject& vnMainRibbonView::menu() {
  if (m_menu) return m_menu;
  m_target = makeInHost(ownClass("vnMainRibbonView", "NSObject", kRibbonMethods), "init");
  const MenuEntry entries[] = {
      {localizedString("ScheduleMeetingLabel"), "onClickScheduleMeeting:"},
      {localizedString("StartWithVideo"), "onClickStartMeetingWithVideo:"},
      {localizedString("StartWithoutVideo"), "onClickStartMeetingWithoutVideo:"},
      {localizedString("LN_VornMenuItem_About_231668"), "onClickAbout:"},
  };
  return m_menu = makeMenu(localizedString("VnPalletLabel"), entries, m_target);
}

void vnMainRibbonView::createVnRibbonButton() {
  // The host's tree of views alone holds it from here on.
  vnPopupButton button;
  button.isImageAbove = true;
  button.hidden = false;
  button.image = "Start_Meeting_normal_32";
  button.title = localizedString("VnPalletLabel");
  button.toolTip = localizedString("MainVornButtonToolTip");
  button.frame = getVnRibbonViewFrame();
  button.create(m_idOLRibbonChunkContainerView, menu());
}

void vnMainRibbonView::hide() { askHost(vnRibbonButton(), "setHidden:", {true}); }

void vnMainRibbonView::adjustVnRibbonButton() {
  const HostObject button = vnRibbonButton();
  const Rect wanted = getVnRibbonViewFrame();
  // A view that is given its frame draws its superview anew, which would bring us here again.
  if (frameOf(button).x != wanted.x) setFrameOf(button, wanted);
}

HostObject vnMainRibbonView::getLastoneView() const {
  std::vector<HostObject> views = subviewsOf(m_idOLRibbonChunkContainerView);
  // A background or a separator is no chunk, and may reach as far as the container.
  std::erase_if(views, [](const HostObject& view) {
    return !isKindOfHostClass(view, kChunkClass) || booleanFromHost(askHost(view, "isHidden"));
  });
  const auto last = std::max_element(views.begin(), views.end(), [](const HostObject& a, const HostObject& b) {
    return rightEdge(a) < rightEdge(b);
  });
  return last == views.end() ? HostObject() : *last;
}

Rect vnMainRibbonView::getVnRibbonViewFrame() const {
  Rect frame = g_vnRibbonViewSize;
  if (const HostObject last = getLastoneView()) frame.x = rightEdge(last);
  return frame;
}

bool vnMainRibbonView::isOfficeAddinsStoreEnable(const HostObject& container) {
  std::vector<HostObject> chunks;
  vnOLUtils::GetSubViewOfKind(container, kChunkClass, chunks);
  return std::any_of(chunks.begin(), chunks.end(), [](const HostObject& chunk) {
    return isKindOfHostClass(chunk, kChunkClass) && getRibbonChunkViewTitle(chunk) == kAddinsTitle;
  });
}

OptionalText vnMainRibbonView::getRibbonChunkViewTitle(const HostObject& chunk) {
  const vnOUIRibbonChunkView proxy(chunk);
  const OptionalText styled = askHost(proxy.attributedTitle().object(), "string").optionalText();
  return styled && !styled->empty() ? styled : proxy.title();
}

// -- What its menu does ------------------------------------------------------------------------------------------

void vnMainRibbonView::onClickScheduleMeeting() {
  vnToolbarItemMgr::sharedInstance().onClickScheduleVornMeeting();
}
void vnMainRibbonView::onClickStartMeetingWithVideo() {
  vnToolbarItemMgr::sharedInstance().onClickStartMeetingWithVideo();
}
void vnMainRibbonView::onClickStartMeetingWithoutVideo() {
  vnToolbarItemMgr::sharedInstance().onClickStartMeetingWithoutVideo();
}
void vnMainRibbonView::onClickOpenLogFolder() { vnToolbarItemMgr::sharedInstance().onClickOpenLogFolder(); }
void vnMainRibbonView::onClickAbout() { vnIPCChannel::sendIPCMessageWithoutData(kIPCPluginOpenAboutDialog); }

}  // namespace vorn
