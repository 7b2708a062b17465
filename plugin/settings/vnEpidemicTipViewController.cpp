#include "settings/vnEpidemicTipViewController.h"

#include "data/vnUserProfileHelper.h"
#include "settings/PanelParts.h"
#include "settings/rules/NoticeRules.h"

namespace vorn {

namespace {

constexpr const char* kEpidemicView = "epidemicTipView";

}  // namespace

vnEpidemicTipViewController::vnEpidemicTipViewController(ControlSet& controls)
    : m_view(controls.add(Control::Kind::box, kEpidemicView)),
      m_text(controls.add(Control::Kind::label, "epidemicTipText", kEpidemicView)) {}

void vnEpidemicTipViewController::initFields() {
  const vnUserProfileHelper& account = vnUserProfileHelper::sharedInstance();
  const panel_rules::Notices notices =
      panel_rules::noticesFor({.supportFeatureEnablePaidUserForCN = account.supportFeatureEnablePaidUserForCN(),
                               .isPaidUser = account.isPaidUser()});
  m_view.hidden = !notices.epidemicTip;
  m_text.text = panelText("LN_Schedule_Epidemic_Tip_199718");
}

}  // namespace vorn
