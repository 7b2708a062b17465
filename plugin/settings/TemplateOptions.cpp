#include "settings/TemplateOptions.h"

#include <utility>

#include "data/vnUserProfileHelper.h"
#include "platform/Registry.h"
#include "platform/Workspace.h"
#include "settings/SettingsFlags.h"
#include "settings/rules/ControlKeys.h"

namespace vorn {

using Kind = Control::Kind;
using namespace panel_rules;

namespace {

constexpr const char* kTemplateBox = "templateBox";
constexpr const char* kTemplateTip = "templateTipView";

void show(Control& control, const ShownText& shown) {
  control.text = shown.text;
  control.toolTip = shown.toolTip;
}

}  // namespace

TemplateOptions::TemplateOptions(const PanelParts& panel)
    : m_controls(panel.controls),
      m_record(panel.record),
      m_context(panel.context),
      m_steps(panel.steps),
      m_templateBox(m_controls.add(Kind::box, kTemplateBox)),
      m_templatePopup(m_controls.add(Kind::popup, "templatePopup", kTemplateBox)),
      m_templateTipView(m_controls.add(Kind::box, kTemplateTip, kTemplateBox)),
      m_templateTipText(m_controls.add(Kind::label, "templateTipText", kTemplateTip)),
      m_viewDetailsButton(m_controls.add(Kind::link, "viewDetailsButton", kTemplateTip)),
      // Outside the box: what holds Continue back is seen also when the account offers no templates any more.
      m_templateDeletedTipTextField(m_controls.add(Kind::label, control_key::templateDeletedTipTextField)) {
  m_templateBox.hidden = true;
  m_templateTipView.hidden = true;
  m_templateDeletedTipTextField.hidden = true;
}

void TemplateOptions::initWithLocalString() {
  m_templateBox.text = panelText("LN_Schedule_Section_Template");
  m_templatePopup.spoken = m_templateBox.text;
}

// -- Loading -----------------------------------------------------------------------------------------------------

MeetingTemplates TemplateOptions::offered() const {
  return templatesOf(SettingsContext::profile().getMeetingTemplates(m_steps.getUIScheduleForEmail()));
}

const MeetingTemplate* TemplateOptions::chosen() const { return templateAt(m_templates, m_templatePopup.index); }

void TemplateOptions::loadTemplateBox() {
  SettingsFlags::shared().isCheckedScheduleButtonForTemplate = false;
  initTemplateBox();
}

void TemplateOptions::initTemplateBox() { initTemplateBox(templateOf(m_record.options())); }

void TemplateOptions::initTemplateBox(const MeetingTemplate& chosen) {
  const std::string email = m_steps.getUIScheduleForEmail();
  int& lastIndex = SettingsFlags::shared().theLastTemplateSclectIndex;
  lastIndex = 0;
  m_templates = allTemplates(offered(), chosen);
  m_templateBox.hidden =
      templateBoxIsHidden({.isPersonalMeeting = m_controls.isShown(control_key::meetingIDBox) &&
                                                m_controls.isOn(control_key::buttonUsePMI),
                           .isUpdate = m_context.isForUpdateVornMeeting(),
                           .isEnableAdminTemplate = SettingsContext::profile().isEnableAdminTemplate(email),
                           .isLockAdminTemplate = SettingsContext::profile().isLockAdminTemplate(email),
                           .hasTemplates = !m_templates.empty()});
  if (!m_templateBox.hidden) {
    m_templatePopup.items = templateItems(m_templates, panelText);
    m_templatePopup.index = templateIndex(m_templates, chosen.id);
    lastIndex = m_templatePopup.index;
  }
  // What a hidden popup shows is no choice, and would hold Continue back for good.
  resetTemplateTipUI(m_templateBox.hidden ? templateOf(m_record.options()) : chosen);
}

void TemplateOptions::resetTemplateTipUI(const MeetingTemplate& chosen) {
  const TemplateTip tip = templateTip(chosen,
                                      {.hasFailed = SettingsFlags::shared().isCheckedScheduleButtonForTemplate,
                                       .areOthersOffered = !offered().empty()},
                                      panelText);
  m_templateTipView.hidden = !tip.tipIsShown;
  show(m_templateTipText, tip.tip);
  show(m_viewDetailsButton, tip.link);
  m_templateDeletedTipTextField.hidden = tip.error.empty();
  m_templateDeletedTipTextField.text = tip.error;
  m_steps.checkScheduleButton();
}

// -- Continue ----------------------------------------------------------------------------------------------------

bool TemplateOptions::checkIfDeletedTemplate() const {
  if (!SettingsContext::profile().knowsTemplates(m_steps.getUIScheduleForEmail())) return false;
  const MeetingTemplate* template_ = m_templateBox.hidden ? nullptr : chosen();
  return template_ && !template_->id.empty() && !hasTemplate(offered(), template_->id);
}

void TemplateOptions::resetTemplateBoxUI() {
  // The one that the user sees: the record may have another one still, which is not gone.
  const MeetingTemplate gone = chosen() ? *chosen() : templateOf(m_record.options());
  bool& isChecked = SettingsFlags::shared().isCheckedScheduleButtonForTemplate;
  isChecked = true;
  initTemplateBox(gone);
  isChecked = false;
}

// -- What the user does ------------------------------------------------------------------------------------------

void TemplateOptions::userChanged(std::string_view key) {
  if (key == m_templatePopup.key) return onClickTemplatePopup();
  if (key == m_viewDetailsButton.key) onClickViewDetailsButton();
}

void TemplateOptions::onClickTemplatePopup() {
  int& lastIndex = SettingsFlags::shared().theLastTemplateSclectIndex;
  if (std::exchange(lastIndex, m_templatePopup.index) == m_templatePopup.index) return;
  resetTemplateTipUI(chosen() ? *chosen() : MeetingTemplate{});
}

void TemplateOptions::onClickViewDetailsButton() {
  const std::string page =
      SettingsContext::profile().getMeetingTemplateLinkWithoutId(m_steps.getUIScheduleForEmail());
  Registry::platform().workspace->openWebPage(page + (chosen() ? chosen()->id : ""));
}

// -- Commit ------------------------------------------------------------------------------------------------------

void TemplateOptions::writeTemplate() {
  const MeetingTemplate none;
  const MeetingTemplate* written = m_templateBox.hidden ? &none : chosen();
  // Who chooses none keeps the template that the meeting has: the service takes none away.
  if (!written) return;
  m_record.setTemplateId(written->id);
  m_record.setTemplateName(written->name);
  m_record.setTemplateType(written->type);
}

}  // namespace vorn
