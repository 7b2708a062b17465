#include "settings/rules/TemplateRules.h"

#include <algorithm>

#include "data/vnSettingKeys.h"

namespace vorn::panel_rules {

namespace {

// None, the line and the heading.
constexpr int kHead = 3;

}  // namespace

MeetingTemplates templatesOf(const Value& meetingTemplates) {
  MeetingTemplates templates;
  templates.reserve(meetingTemplates.items().size());
  for (const Value& each : meetingTemplates.items()) {
    templates.push_back({each[vn_Setting_MeetingTemplate_TemplateId].stringValue(),
                         each[vn_Setting_MeetingTemplate_TemplateName].stringValue(),
                         each[vn_Setting_MeetingTemplate_TemplateType].integerValue()});
  }
  return templates;
}

MeetingTemplate templateOf(const MeetingOptions& record) {
  return {record.templateId.value_or(""), record.templateName.value_or(""), record.templateType};
}

bool hasTemplate(const MeetingTemplates& templates, const std::string& id) {
  return std::any_of(templates.begin(), templates.end(), [&](const auto& each) { return each.id == id; });
}

MeetingTemplates allTemplates(MeetingTemplates offered, const MeetingTemplate& chosen) {
  if (!chosen.id.empty() && !hasTemplate(offered, chosen.id)) offered.push_back(chosen);
  return offered;
}

std::vector<ControlItem> templateItems(const MeetingTemplates& templates, const TextSource& texts) {
  std::vector<ControlItem> items{ControlItem(texts("LN_Schedule_None_220900", {})), ControlItem::separator(),
                                 ControlItem::heading(texts("LN_Schedule_Template_AdminTemplates_220900", {}))};
  for (const MeetingTemplate& each : templates) {
    const ShownText shown = shownText(LongText::popupItem, each.name);
    items.emplace_back(shown.text, shown.toolTip);
  }
  return items;
}

int templateIndex(const MeetingTemplates& templates, const std::string& id) {
  if (id.empty()) return 0;
  const auto found =
      std::find_if(templates.rbegin(), templates.rend(), [&](const auto& each) { return each.id == id; });
  return found == templates.rend() ? 0 : static_cast<int>(templates.rend() - found) - 1 + kHead;
}

const MeetingTemplate* templateAt(const MeetingTemplates& templates, int index) {
  const auto place = static_cast<std::size_t>(index - kHead);
  return index < kHead || place >= templates.size() ? nullptr : &templates[place];
}

bool templateBoxIsHidden(const TemplateBoxFacts& facts) {
  if (facts.isPersonalMeeting || !facts.hasTemplates) return true;
  // A meeting that has a template keeps it on the screen until the account says that there are none.
  return !facts.isEnableAdminTemplate && (!facts.isUpdate || facts.isLockAdminTemplate);
}

TemplateTip templateTip(const MeetingTemplate& chosen, const TemplateCheck& check, const TextSource& texts) {
  if (chosen.id.empty()) return {};
  if (check.hasFailed) {
    return {.error = check.areOthersOffered
                         ? texts("LN_Schedule_Template_TemplateDisabledTip_220900", {chosen.name})
                         : texts("LN_Schedule_Template_TemplateOffTip_220900", {})};
  }
  return {.tipIsShown = true,
          .tip = shownText(LongText::templateTip, texts("LN_Schedule_Template_TemplatesTip_220900", {})),
          .link = shownText(LongText::templateLink, texts("LN_Schedule_Template_ViewTemplateDetails_220900", {}))};
}

}  // namespace vorn::panel_rules
