#include "host/surface/vnSettingsButton.h"

#include "host/proxies/HostViews.h"
#include "host/proxies/vnDelegateBase.h"
#include "host/surface/HostMenu.h"
#include "host/surface/OwnClass.h"

namespace vorn {

namespace {

// What an image button of the toolkit shows: an image to the left of its title, or above it.
constexpr std::int64_t kImageLeft = 2;
constexpr std::int64_t kImageAbove = 5;

// Opens the button's own menu, whether the mouse or the keyboard has pressed it.
Value popUpMenu(const HostObject& receiver, const Arguments&) {
  popUp(askHost(receiver, "menu").object(), receiver);
  return {};
}

constexpr OwnMethod kPopupMethods[] = {{"mouseDown:", "v@:@", popUpMenu}, {"popUpMenu:", "v@:@", popUpMenu}};

}  // namespace

void vnSettingsButton::create(const HostObject& superview, const HostObject& target, std::string_view action) {
  createOf(ownClass(kClass, "NSButton", {}), superview);
  askHost(m_button, "setTarget:", {target});
  askHost(m_button, "setAction:", {action});
}

void vnSettingsButton::createOf(ClassRef buttonClass, const HostObject& superview) {
  m_button = makeInHost(buttonClass, "initWithFrame:", {valueFromRect(frame)});
  askHost(m_button, "setImagePosition:", {isImageAbove ? kImageAbove : kImageLeft});
  draw();
  askHost(superview, "addSubview:", {m_button});
}

void vnSettingsButton::draw() const {
  askHost(m_button, "setTitle:", {title});
  if (!image.empty()) askHost(m_button, "setImage:", {imageNamed(image)});
  askHost(m_button, "setToolTip:", {toolTip.empty() ? Value() : Value(toolTip)});
  askHost(m_button, "setEnabled:", {enabled});
  askHost(m_button, "setHidden:", {hidden});
  setFrameOf(m_button, frame);
}

void vnPopupButton::create(const HostObject& superview, const HostObject& menu) {
  createOf(ownClass(kClass, "NSButton", kPopupMethods), superview);
  askHost(m_button, "setMenu:", {menu});
  askHost(m_button, "setTarget:", {m_button});
  askHost(m_button, "setAction:", {"popUpMenu:"});
}

}  // namespace vorn
