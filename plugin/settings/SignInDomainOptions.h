#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/NotificationCenter.h"
#include "settings/PanelParts.h"

namespace vorn {

class VNDomainsWindowController;

// Whether only signed-in users may join, in which way they sign in, and the domains that they may come from.
//
// The domains' window outlives it. Main thread only.
class SignInDomainOptions {
 public:
  SignInDomainOptions(const PanelParts& panel, VNDomainsWindowController& domainsWindow);
  SignInDomainOptions(const SignInDomainOptions&) = delete;
  SignInDomainOptions& operator=(const SignInDomainOptions&) = delete;

  void initWithLocalString();
  void initOnlySignedin();
  void initRestrictDomainsBox();
  // Another meeting is loaded next: where the account offers nothing, the list of the one before must not stay.
  void forgetOffered() { m_meetingAuths = Value::array(); }
  void checkAccountLocked();
  void hideRestrictDomainsBox() { m_restrictDomainsBox.hidden = true; }

  // What the user has changed; nothing for a control that is not this group's.
  void userChanged(std::string_view key);
  // A piece between two ";" is no domain.
  static bool checkDomainsError(const std::string& domains);

  // What a commit writes of it.
  void writeSignIn();
  // The panel has ended: from now on the record counts, and not what was chosen and edited.
  void forgetTyped();

 private:
  bool isLocked() const;
  // The choices as an array; absent when there is none. May give the record the account's id of its choice.
  Value getAllMeetingAuths();
  void takeEdits(Value& auths) const;
  struct Edits {
    // By the choice's id.
    std::map<std::string, Value, std::less<>> changed;
    OptionalText chosenId;
  };
  // Of the meeting that is shown; null when nothing was edited in it.
  const Edits* edits() const;
  Edits& ownEdits() { return m_editsOf[shownPerson(m_record, m_steps)]; }
  void chooseAtLoad();
  // Absent for an index that is no choice's.
  Value chosenAuth() const;
  void resetDomainTextAndButton(const Value& auth);
  void onClickAuthNamePopup();
  void onClickViewEditButton();
  void onUpdateMeetingAuthChanged(const Value& auth);
  void onClickOnlySignedinSpecifiedDomains();

  ControlSet& m_controls;
  vnSettingData& m_record;
  const SettingsContext& m_context;
  PanelSteps& m_steps;
  VNDomainsWindowController& m_domainsWindow;

  Value m_meetingAuths = Value::array();
  // What the user has done since the panel was opened: the switch and every load make the list anew, and it still
  // has to be there then. By whose personal meeting it was done for.
  std::map<OptionalText, Edits> m_editsOf;

  Control& m_restrictDomainsBox;
  Control& m_onlySignedinWithSpecifiedDomains;
  Control& m_authNamePopup;
  Control& m_domainText;
  Control& m_viewEditButton;
  Control& m_deleteDomainWarning;

  NotificationCenter::Subscription m_authDomainChanged;
};

}  // namespace vorn
