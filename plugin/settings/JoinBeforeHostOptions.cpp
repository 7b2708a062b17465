#include "settings/JoinBeforeHostOptions.h"

#include "settings/rules/ControlKeys.h"
#include "settings/rules/JoinBeforeHost.h"
#include "settings/rules/LongTexts.h"

namespace vorn {

using Kind = Control::Kind;
using namespace panel_rules;

JoinBeforeHostOptions::JoinBeforeHostOptions(const PanelParts& panel)
    : m_record(panel.record),
      m_context(panel.context),
      m_steps(panel.steps),
      m_enableJBHButton(panel.controls.add(Kind::checkBox, control_key::enableJBHButton)),
      m_jbhLimitTimePopUp(panel.controls.add(Kind::popup, "jbhLimitTimePopUp")),
      m_jbhBeforeStartTime(panel.controls.add(Kind::label, "jbhBeforeStartTime")) {}

void JoinBeforeHostOptions::initJBHOptions() {
  const OptionFacts facts = m_context.facts(m_record);
  const JoinBeforeHost offer = joinBeforeHost({.usePMI = m_record.usePMI(),
                                               .isEnableRecurrence = m_context.isEnableRecurrence(),
                                               .jbhPriorTime = m_record.jbhPriorTime()},
                                              facts.account, facts.client, panelText);
  const ShownText title = shownText(LongText::joinBeforeHostLine, offer.title);
  m_enableJBHButton.hidden = false;
  m_enableJBHButton.on = m_record.enableJBH();
  m_enableJBHButton.text = title.text;
  m_enableJBHButton.toolTip = title.toolTip;
  m_jbhLimitTimePopUp.hidden = offer.popupIsHidden();
  m_jbhBeforeStartTime.hidden = offer.popupIsHidden();
  if (offer.popupIsHidden()) return;
  m_jbhLimitTimePopUp.items.assign(offer.items.begin(), offer.items.end());
  m_jbhLimitTimePopUp.index = offer.index;
  ShownText end{panelText("LN_Schedule_JBH_TimeLimit_Options_126364")};
  if (!fitInOneLine({title.text, offer.items[static_cast<std::size_t>(offer.index)], end.text})) {
    end = shownText(LongText::joinBeforeHostEnd, end.text);
  }
  m_jbhBeforeStartTime.text = end.text;
  m_jbhBeforeStartTime.toolTip = end.toolTip;
  checkJbhPriorTimeAccountLocked();
}

void JoinBeforeHostOptions::turnOffForEndToEnd() {
  m_enableJBHButton.on = false;
  m_enableJBHButton.enabled = false;
}

void JoinBeforeHostOptions::hideForEndToEnd() {
  m_enableJBHButton.hidden = true;
  m_jbhLimitTimePopUp.hidden = true;
  m_jbhBeforeStartTime.hidden = true;
}

void JoinBeforeHostOptions::checkE2eeAffectedAccountLocked() {
  m_enableJBHButton.enabled = !policyOf(vn_Setting_EnableJBH).isLocked(m_context.facts(m_record).account);
}

void JoinBeforeHostOptions::userChanged(std::string_view key) {
  if (key == m_enableJBHButton.key) onClickEnableJBHButton();
  // So that the choice outlasts the next load.
  if (key == m_jbhLimitTimePopUp.key) writeJoinBeforeHost();
}

void JoinBeforeHostOptions::onClickEnableJBHButton() {
  if (!m_jbhLimitTimePopUp.hidden) checkJbhPriorTimeAccountLocked();
  m_record.setEnableJBH(m_enableJBHButton.on);
  m_steps.updatePasswordStateWithJBHChanged();
}

void JoinBeforeHostOptions::checkJbhPriorTimeAccountLocked() {
  m_jbhLimitTimePopUp.enabled = joinTimeIsEnabled(m_enableJBHButton.on, m_context.facts(m_record).account);
}

void JoinBeforeHostOptions::writeJoinBeforeHost() {
  MeetingOptions options = m_record.options();
  commitJoinBeforeHost(options,
                       {.buttonIsHidden = m_enableJBHButton.hidden,
                        .buttonIsOn = m_enableJBHButton.on,
                        .popupIsHidden = m_jbhLimitTimePopUp.hidden,
                        .index = m_jbhLimitTimePopUp.index},
                       m_context.facts(m_record).account);
  m_record.setEnableJBH(options.enableJBH);
  m_record.setJbhPriorTime(options.jbhPriorTime);
}

}  // namespace vorn
