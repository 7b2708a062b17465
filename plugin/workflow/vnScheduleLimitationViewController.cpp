#include "workflow/vnScheduleLimitationViewController.h"

#include "data/NotAgainFlags.h"
#include "data/vnUserProfileHelper.h"
#include "licence/vnLicencePolicy.h"
#include "platform/Localization.h"
#include "platform/Registry.h"
#include "platform/Workspace.h"

namespace vorn {

using Kind = Control::Kind;

namespace {

constexpr const char* kView = "scheduleLimitationView";

// Of the user whose plan asks for the notice, who is known longer than the profile is.
SavedProfileFlag notAgainFlag() {
  return not_again::accountLimitation(vnUserProfileHelper::sharedInstance().lastKnownUserId());
}

}  // namespace

vnScheduleLimitationViewController::vnScheduleLimitationViewController(ControlSet& controls)
    : m_view(controls.add(Kind::box, kView)),
      m_message(controls.add(Kind::label, "scheduleLimitationText", kView)),
      m_upgradeButton(controls.add(Kind::link, "upgradeButton", kView)),
      m_notShowAgainButton(controls.add(Kind::checkBox, "notShowAgainButton", kView)) {
  m_view.hidden = true;
}

void vnScheduleLimitationViewController::initFields(bool isLongerThanPlanAllows) {
  m_view.hidden = m_isEmbedded && (!isLongerThanPlanAllows || notShowMessageAgain());
  m_message.text = formatText(localizedString("LN_Schedule_Limitation_Duration"),
                              {std::to_string(vnLicencePolicy::kLongestUnpaidMeetingMinutes)});
  m_upgradeButton.text = localizedString("LN_Schedule_Limitation_Upgrade");
  m_upgradeButton.hidden = !upgrade();
  m_notShowAgainButton.text = localizedString("LN_Schedule_Limitation_NotShowAgain");
  m_notShowAgainButton.on = notShowMessageAgain();
}

std::optional<Presenter::Link> vnScheduleLimitationViewController::upgrade() {
  const vnUserProfileHelper& account = vnUserProfileHelper::sharedInstance();
  const bool hasPage = account.isShowUpgradeLink();
  const std::string where = hasPage ? account.getUpgradeLink() : account.getUpgradeContactEmail();
  if (where.empty()) return std::nullopt;
  const std::string address = hasPage ? where : formatText("mailto:%@", {where});
  return Presenter::Link{localizedString("LN_Schedule_Limitation_Upgrade"), address, [address] {
                           // The alert may outlive this system.
                           if (Workspace* workspace = Registry::platform().workspace)
                             workspace->openWebPage(address);
                         }};
}

void vnScheduleLimitationViewController::userChanged(std::string_view key) const {
  if (key != m_upgradeButton.key) return;
  if (const auto link = upgrade()) link->follow();
}

std::optional<bool> vnScheduleLimitationViewController::wish() const {
  return m_view.hidden ? std::nullopt : std::optional(m_notShowAgainButton.on);
}

// A switch that says what is kept already makes no file.
void vnScheduleLimitationViewController::saveShowMessageAgainToUserProfile(std::optional<bool> wish) {
  if (wish && *wish != notShowMessageAgain()) notAgainFlag().set(*wish);
}

bool vnScheduleLimitationViewController::notShowMessageAgain() { return notAgainFlag().isSet(); }

}  // namespace vorn
