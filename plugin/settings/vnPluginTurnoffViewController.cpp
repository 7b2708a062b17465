#include "settings/vnPluginTurnoffViewController.h"

#include "data/NotAgainFlags.h"
#include "platform/Registry.h"
#include "platform/Workspace.h"
#include "settings/HelpLinks.h"
#include "settings/PanelParts.h"
#include "settings/rules/NoticeRules.h"

namespace vorn {

using Kind = Control::Kind;
using namespace panel_rules;

namespace {

constexpr const char* kTurnoffView = "pluginTurnoffView";

void show(Control& control, const std::string& text) {
  control.text = text;
  control.hidden = text.empty();
}

}  // namespace

vnPluginTurnoffViewController::vnPluginTurnoffViewController(ControlSet& controls)
    : m_view(controls.add(Kind::box, kTurnoffView)),
      m_before(controls.add(Kind::label, "pluginTurnoffText", kTurnoffView)),
      m_link(controls.add(Kind::link, "pluginTurnoffLink", kTurnoffView)),
      m_after(controls.add(Kind::label, "pluginTurnoffTextAfterLink", kTurnoffView)),
      m_helperLink(controls.add(Kind::link, "pluginTurnoffHelperLink", kTurnoffView)),
      m_closeButton(controls.add(Kind::button, "pluginTurnoffCloseButton", kTurnoffView)) {}

void vnPluginTurnoffViewController::initFields() {
  const LinkedMessage message = pluginTurnoffMessage(panelText);
  show(m_before, message.before);
  show(m_link, message.link);
  show(m_after, message.after);
  show(m_helperLink, message.secondLink);
  m_closeButton.text = panelText("LN_Schedule_Tip_Close");
  updateCtrlPos();
}

void vnPluginTurnoffViewController::updateCtrlPos() {
  m_view.hidden = !noticesFor({.notShowPluginTurnoffMessage = not_again::pluginTurnoff().isSet()}).pluginTurnoff;
}

void vnPluginTurnoffViewController::userChanged(std::string_view key) {
  if (key == m_link.key) Registry::platform().workspace->openWebPage(MicrosoftInjectionBasedPlguinLink);
  if (key == m_helperLink.key) Registry::platform().workspace->openWebPage(VornAddinHelperLink);
  if (key != m_closeButton.key) return;
  not_again::pluginTurnoff().set(true);
  updateCtrlPos();
}

}  // namespace vorn
