#pragma once

// The meeting templates that an account offers, and what the box tells of the chosen one. Pure functions; time
// linear in the list.

#include <cstdint>
#include <string>
#include <vector>

#include "data/MeetingOptions.h"
#include "platform/controls/Control.h"
#include "settings/rules/LongTexts.h"
#include "settings/rules/TextSource.h"

namespace vorn::panel_rules {

struct MeetingTemplate {
  std::string id;
  std::string name{};
  std::int64_t type = 0;

  bool operator==(const MeetingTemplate&) const = default;
};

using MeetingTemplates = std::vector<MeetingTemplate>;

// As the client sends them.
MeetingTemplates templatesOf(const Value& meetingTemplates);
// The record's; its id is "" when it has none.
MeetingTemplate templateOf(const MeetingOptions& record);

bool hasTemplate(const MeetingTemplates& templates, const std::string& id);
// What the account offers, and behind it the chosen one when the account no longer does, so that it can still be
// chosen.
MeetingTemplates allTemplates(MeetingTemplates offered, const MeetingTemplate& chosen);

// -- The popup: none, a line and a heading, and then the templates.

std::vector<ControlItem> templateItems(const MeetingTemplates& templates, const TextSource& texts);
// The last of that id; 0 when there is none.
int templateIndex(const MeetingTemplates& templates, const std::string& id);
// Null for an index that is no template's.
const MeetingTemplate* templateAt(const MeetingTemplates& templates, int index);

struct TemplateBoxFacts {
  // The choice of the personal ID is on the screen and on.
  bool isPersonalMeeting = false;
  bool isUpdate = false;
  bool isEnableAdminTemplate = false;
  bool isLockAdminTemplate = false;
  bool hasTemplates = false;
};
bool templateBoxIsHidden(const TemplateBoxFacts& facts);

// -- What is told of the template with the id; of none nothing is.

struct TemplateTip {
  bool tipIsShown = false;
  ShownText tip{""};
  ShownText link{""};
  // "" for no error.
  std::string error{};

  bool operator==(const TemplateTip&) const = default;
};
// The template was found gone when it was checked, with the account offering others or none at all.
struct TemplateCheck {
  bool hasFailed = false;
  bool areOthersOffered = false;
};
TemplateTip templateTip(const MeetingTemplate& chosen, const TemplateCheck& check, const TextSource& texts);

}  // namespace vorn::panel_rules
