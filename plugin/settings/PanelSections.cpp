#include "settings/PanelSections.h"

#include <utility>

#include "settings/PanelParts.h"
#include "settings/rules/ControlKeys.h"

namespace vorn {

namespace {

using Place = PanelLayout::Place;
using Row = PanelLayout::Row;
using Section = PanelLayout::Section;

Row line(std::vector<Place> places, std::string label = {}) { return {std::move(places), std::move(label)}; }
// Belongs to the row above.
Row below(std::vector<Place> places) { return {std::move(places), "", 1}; }
// A box, before the rows with its members, or a text.
Row alone(std::string key) { return line({{std::move(key)}}); }

// What a person reads before the options.
Section notices() {
  return {
      "notices",
      "",
      {alone("pluginTurnoffView"),
       below({{"pluginTurnoffText"}, {"pluginTurnoffLink", "end of plug-ins"}, {"pluginTurnoffTextAfterLink"}}),
       below({{"pluginTurnoffHelperLink", "get the add-in"},
              {"pluginTurnoffCloseButton", "close the plug-in's notice"}}),
       alone("epidemicTipView"), below({{"epidemicTipText"}}), alone("userSettingTipView"),
       below({{"userSettingTipText"},
              {"userSettingTipChangeSettingsLink", "change settings"},
              {"userSettingTipCloseButton", "close the settings' tip"}}),
       alone("scheduleLimitationView"), below({{"scheduleLimitationText"}, {"upgradeButton", "upgrade"}}),
       below({{"notShowAgainButton", "not show the plan's notice again"}})}};
}

Section meetingId() {
  return {"meetingId",
          panelText("LN_Schedule_Section_MeetingID"),
          {alone("scheduleForBox"),
           line({{"scheduleForPopup", "schedule for"}}, panelText("LN_Schedule_Label_ScheduleFor")),
           alone(control_key::meetingIDBox), line({{control_key::buttonOneTimeMeeting, "one-time ID"}}),
           line({{control_key::buttonUsePMI, "personal ID"}}), alone("pmiDisableMessageView"),
           line({{"pmiDisableText"}, {"closePMIDisableMessageButton", "close the personal ID's message"}})}};
}

Section meetingTemplate() {
  return {"template",
          panelText("LN_Schedule_Section_Template"),
          {alone("templateBox"), line({{"templatePopup", "template"}}), alone("templateTipView"),
           below({{"templateTipText"}, {"viewDetailsButton", "template details"}}),
           below({{control_key::templateDeletedTipTextField}})}};
}

Section video() {
  return {"video",
          panelText("LN_Schedule_Section_Video"),
          {line({{"videoHostMatrix", "host video"}}), line({{"videoParticipantMatrix", "participants' video"}})}};
}

Section audio() {
  return {
      "audio",
      panelText("LN_Schedule_Section_Audio"),
      {alone(control_key::audioOptionsBox), line({{"telephonyButton", "telephone"}}),
       line({{"tspAccountButton", "provider's telephone"}}), line({{"voipButton", "computer audio"}}),
       line({{"bothButton", "telephone and computer audio"}}), below({{"tspAccountPopup", "provider's account"}}),
       line({{"thirdPartyAudioButton", "third-party audio"}}),
       below({{"thirdPartyAudioTextField", "third-party audio's text", true}}),
       line({{control_key::selectedCountriesField}, {"editCountriesButton", "edit the countries"}})}};
}

Section security() {
  return {"security",
          panelText("LN_Schedule_Section_Security"),
          {alone("meetingPasswordBox"),
           line({{control_key::requiredMeetingPswButton, "passcode"},
                 {control_key::passwordTextField, "passcode's text", true},
                 {"pswHelpButton"}}),
           below({{"passwordPrompt"}}), below({{control_key::pswFormatErrorTextField}}),
           line({{"enableWaitingRoom", "waiting room"}}), below({{"waitingRoomPrompt"}}), alone("securityTipView"),
           below({{"securityTipText"}, {"securityTipCloseButton", "close the waiting room's tip"}}),
           alone(control_key::restrictDomainsBox),
           line({{control_key::onlySignedinWithSpecifiedDomains, "signed-in users only"}}),
           below({{"authNamePopup", "way of signing in"}}),
           below({{"domainText"}, {"viewEditButton", "edit the domains"}}), below({{"deleteDomainWarning"}}),
           alone(control_key::securityErrorTextField),
           line({{control_key::enableJBHButton, "join before host"},
                 {"jbhLimitTimePopUp", "time before the start"},
                 {"jbhBeforeStartTime"}})}};
}

Section encryption() {
  return {"encryption",
          panelText("LN_Schedule_Encryption"),
          {alone("encryptionBox"), line({{"enhancedButton", "enhanced encryption"}, {"enhancedHelpButton"}}),
           line({{control_key::endtoendButton, "end-to-end encryption"}, {"endtoendHelpButton"}}),
           alone("encryptionTipView"),
           below({{"encryptionTipText"},
                  {"encryptionTipLearnMoreButton", "learn more about encryption"},
                  {"encryptionTipCloseButton", "close the encryption's tip"}})}};
}

Section recording() {
  return {"recording",
          panelText("LN_Schedule_Section_Recording"),
          {alone("autoRecordingBox"), line({{"autoRecordingButton", "automatic recording"}}),
           below({{"autoRecordingOptionMatrixLocal", "local recording"}}),
           below({{"autoRecordingOptionMatrixCloud", "cloud recording"}})}};
}

Section alternateHosts() {
  return {"alternateHosts",
          panelText("LN_Schedule_Section_AlternateHosts"),
          {alone(control_key::alternateHostBox),
           line({{"alternateHostLabel"}, {"alternateHostTextField", "alternate hosts"}})}};
}

Section advanced() {
  return {"advanced",
          panelText("LN_Schedule_Section_Advanced"),
          {alone("muteUponEntryBox"), line({{"muteParticipantUponEntry", "mute upon entry"}}),
           line({{"unmuteParticipantsButton", "unmute all"}}), line({{"audioWatermarkButton", "audio watermark"}}),
           alone("publicEventBox"),
           line({{"publicEventButton", "public event"}, {"publicEventListButton", "public event list"}}),
           line({{"selectLanguageText"}, {"selectLanguagePopup", "language"}}),
           line({{"forceIncludeJoinurlInLocation", "join link in the location"}}),
           line({{"putTheInvitationAtTheTopButton", "invitation at the top"}})}};
}

Section regions() {
  return {"regions",
          panelText("LN_Schedule_Section_Regions"),
          // Its centres come with the box, and so behind the switch that they belong to.
          {line({{control_key::enableDataCenterRegionsButton, "data centres"}}), alone("dataCenterBox"),
           below({{"dataCenterNotSelectTextField"}}), alone("dataCenterImpactCountriesTipView"),
           below({{"dataCenterImpactCountriesTipText"},
                  {"dataCenterImpactCountriesTipLink", "learn more about data centres"}}),
           alone("allowDenyBox"), line({{control_key::allowDenyButton, "join regions"}}),
           below({{"allowDenyText"}, {"allowDenyEditButton", "edit the join regions"}}),
           alone("allowDenyImpactCountriesTipView"), below({{"allowDenyImpactCountriesTipText"}})}};
}

Section trackingFields() {
  return {
      "trackingFields", panelText("LN_Schedule_Section_TrackingFields"), {alone(control_key::trackingFieldsBox)}};
}

Section buttons() {
  return {"buttons",
          "",
          {line({{"notShowMeAgain", "not show me again"}}),
           line({{control_key::buttonCancel, "cancel"}, {control_key::buttonContinue, "continue"}})}};
}

Section passwordRules() {
  return {"passwordRuleWindow",
          panelText("LN_Schedule_Section_PasscodeRules"),
          {alone("passwordRuleWindow"), alone("_passwordMust"), below({{"_PswRuleOnlyNumber"}}),
           below({{"_PswRuleMinLength"}}), below({{"_PswRuleHasAlphabet"}}), below({{"_PswRuleHasNumber"}}),
           below({{"_PswRuleHasSpecial"}}), below({{"_PswRuleIncludeUpperLower"}}), alone("_passwordMustNot"),
           below({{"_PswRuleContainConsecutive"}})}};
}

// Each list behind the fields by which it is searched, and before the buttons that end the window.
Section countries() {
  return {"editCountriesWindow",
          panelText("LN_Schedule_Section_Countries"),
          {line({{"_searchField", "search for a country"}, {"_selectBtn", "all countries"}}),
           alone("_displaySelectedLabel"), alone("editCountriesWindow"),
           line({{"_includeTollfreeNumberBtn", "toll-free numbers"}}), alone("_errorForNoSelectedField"),
           line({{"_cancelBtn", "cancel the countries"}, {"_doneBtn", "countries done"}})}};
}

Section domains() {
  return {"domainsWindow",
          panelText("LN_Schedule_Section_Domains"),
          {alone("domainsWindow"), line({{"_domainsTextField", "domains"}}), below({{"_domainsErrorLabel"}}),
           line({{"domains_cancelBtn", "cancel the domains"}, {"domains_SaveBtn", "save the domains"}})}};
}

Section joinRegions() {
  return {
      "allowDenyRCWindow",
      panelText("LN_Schedule_Section_JoinRegions"),
      {alone("allowDenyRCWindow"), line({{"allowDenyRCAllowButton", "allow regions"}}),
       line({{"allowDenyRCBlockButton", "block regions"}}),
       line({{"allowDenyRCRegionsLabel"}, {"allowDenyRCTextField", "regions"}}), alone("allowDenyRCLockedLabel"),
       alone("allowDenyRCSearchListWindow"), below({{"allowDenyRCSearchListWindowRows", "regions offered"}}),
       line({{"allowDenyRCCancelButton", "cancel the regions"}, {"allowDenyRCSaveButton", "save the regions"}})}};
}

Section alternateHostList() {
  return {"alternateHostSearchListWindow",
          panelText("LN_Schedule_Section_AlternateHosts"),
          {alone("alternateHostSearchListWindow"),
           below({{"alternateHostSearchListWindowRows", "alternate hosts offered"}})}};
}

}  // namespace

PanelLayout panelSections() {
  return {{notices(), meetingId(), meetingTemplate(), video(), audio(), security(), encryption(), recording(),
           alternateHosts(), advanced(), regions(), trackingFields(), buttons(), passwordRules(), domains(),
           alternateHostList(), joinRegions(), countries()}};
}

}  // namespace vorn
