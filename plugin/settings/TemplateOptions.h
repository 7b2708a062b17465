#pragma once

#include <string>
#include <string_view>

#include "settings/PanelParts.h"
#include "settings/rules/TemplateRules.h"

namespace vorn {

// The meeting template: those of the account's administrator, and the one that the meeting has. Main thread only.
class TemplateOptions {
 public:
  explicit TemplateOptions(const PanelParts& panel);

  void initWithLocalString();
  void initTemplateBox();
  // The same, and the check that Continue has made is over.
  void loadTemplateBox();

  // The template that is chosen is none that the account offers.
  bool checkIfDeletedTemplate() const;
  // Shows that it is gone.
  void resetTemplateBoxUI();

  // What the user has changed; nothing for a control that is not this group's.
  void userChanged(std::string_view key);

  // What a commit writes of it.
  void writeTemplate();

 private:
  panel_rules::MeetingTemplates offered() const;
  // Null when none is chosen.
  const panel_rules::MeetingTemplate* chosen() const;
  void initTemplateBox(const panel_rules::MeetingTemplate& chosen);
  void resetTemplateTipUI(const panel_rules::MeetingTemplate& chosen);
  void onClickTemplatePopup();
  void onClickViewDetailsButton();

  ControlSet& m_controls;
  vnSettingData& m_record;
  const SettingsContext& m_context;
  PanelSteps& m_steps;

  // Of the popup.
  panel_rules::MeetingTemplates m_templates;

  Control& m_templateBox;
  Control& m_templatePopup;
  Control& m_templateTipView;
  Control& m_templateTipText;
  Control& m_viewDetailsButton;
  Control& m_templateDeletedTipTextField;
};

}  // namespace vorn
