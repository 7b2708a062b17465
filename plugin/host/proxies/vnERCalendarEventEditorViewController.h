#pragma once

#include <memory>
#include <optional>
#include <string>

#include "host/proxies/vnDelegateBase.h"
#include "host/proxies/vnECCalendarEvent.h"
#include "host/proxies/vnOLWordMailEditor.h"

namespace vorn {

// The host's editor of one appointment. The bar keeps one for the life of its window; all others are short-lived.
class vnERCalendarEventEditorViewController : public vnDelegateBase {
 public:
  explicit vnERCalendarEventEditorViewController(const HostObject& delegate)
      : vnDelegateBase("ERCalendarEventEditorViewController", delegate) {}

  HostObject content() const { return object("content"); }
  HostObject currentEmailAccount() const { return object("currentEmailAccount"); }
  Value attendeeList() const { return getOLItemID("attendeeList"); }
  bool isDelegating() const { return flag("isDelegating"); }
  bool hasMultipleAccounts() const { return flag("hasMultipleAccounts"); }
  Value meetingOrganizer() const { return getOLItemID("meetingOrganizer"); }
  bool isCancelMode() const { return flag("isCancelMode"); }
  bool isOccurrenceOrException() const { return flag("isOccurrenceOrException"); }
  bool isDirty() const { return flag("isDirty"); }
  Value olmUCCapabilities() const { return getOLItemID("olmUCCapabilities"); }
  void reloadComposeView() const { getOLItemID("reloadComposeView"); }
  void contentDidChange() const { getOLItemID("contentDidChange"); }
  HostObject locationTextField() const { return object("locationTextField"); }
  void focusOnBody() const { getOLItemID("focusOnBody"); }
  OptionalText recurrenceStringForCurrentEvent() const { return text("recurrenceStringForCurrentEvent"); }
  Value olmUCInband() const { return getOLItemID("olmUCInband"); }
  Value olmConferenceInfo() const { return getOLItemID("olmConferenceInfo"); }
  void loadEventIntoWordMail() const { getOLItemID("loadEventIntoWordMail"); }
  HostObject view() const { return object("view"); }
  // The window of the view.
  HostObject window() const;
  // What the host delivers for the key items. The host's own forms fill what they are given; here the value comes
  // back as the result.
  Value getSubject() const { return getOLItemID("getSubject:", Value()); }
  Value getLocation() const { return getOLItemID("getLocation:", Value()); }
  Value getStartTime() const { return getOLItemID("getStartTime:andEndTime:", Value(), Value()); }

  void setOlmUCInband(const Value& record) const { getOLItemID("setOlmUCInband:", record); }
  void setLocation(const Value& location) const { getOLItemID("setLocation:", location); }
  void setOlmUCCapabilities(const Value& record) const { getOLItemID("setOlmUCCapabilities:", record); }
  void setOlmConferenceInfo(const Value& info) const { getOLItemID("setOlmConferenceInfo:", info); }

  // Marks the editor dirty or clean, and remembers that the settings were opened: that is how a settings click
  // is remembered.
  void setIsDirty(bool dirty);
  // The typed and unsaved values. Reading them counts as opening the settings, because the dirty mark is written
  // back afterwards by setIsDirty().
  Value uncommittedChanges();
  bool vnSettingOpened() const { return m_bVnSettingOpened; }

  // The proxy of the event that the editor shows now; null when it shows none. It stays this object's and is
  // valid until the editor shows another event.
  vnECCalendarEvent* ecCalendarEvent();
  void resetECCalendarEventInstance();

  // The event's plain form, with "onbehalfEmailAddress" when scheduling for somebody else.
  Value getVnMeetingData();
  // Whether a save has something to tell; true for every appointment that the host has stored.
  bool isVnMeetingItemsChanged();
  bool isOutlookAppointmentItemChanged();
  bool isOnBehalf();
  OptionalText onbehalfEmailAddress();
  // "" without an account.
  OptionalText currentEmailAddress() const;
  OptionalText curFromEmailAddress();
  bool isSupportedOwner();
  // True for the master of a series.
  bool currentIsRecurrence() const;
  bool canGetApptKeyInfoForCompareMeetingChanged() const;

  // The text of the location field; absent without a field.
  OptionalText getLocationFromUI() const;
  void updateLocationFieldFromUI(const Value& location) const;
  void saveVnDataToOLProperty(const Value& record) const;

  // The body editor of the editor's window; absent when none is known.
  std::optional<vnOLWordMailEditor> olWordMailEditor() const;
  HostObject olWordMailEditorContent() const;
  // The body as HTML; absent without a body editor.
  Value bodyContent() const;
  bool isCurrentEmailBodyEmpty() const;
  // False where the host shows no body, or none that can be read: nothing can be written into it then.
  bool knowsBody() const;
  bool isBodyContentEmpty(const Value& body) const;
  // Keep the typed body, or a given one, when it is not empty. Nobody here asks for it.
  void setInitBodyContent();
  void setInitBodyContent(const Value& body);
  const Value& initBodyContent() const { return m_initBodyContent; }
  void convertBodyContentFormat(bool toHTML);

  // Shows a body in the editor and puts it into the event.
  void displayEmailContent(const Value& content, bool isHTML);
  // Shows a body as HTML.
  void updateEmailBody(const Value& content);
  // Brings an invitation into the body; an empty one takes it out.
  void updateEmailBodyWithVornContent(const OptionalText& invitation, bool isHTML);
  // Adds the text of a personal audio conference to the body; nothing while the body is not known.
  void updateEmailBodyForPAC(const OptionalText& invitation, bool isHTML);

  const HostObject& getDelegate() const { return delegate(); }

 private:
  // The web document of the older compose view; absent in hosts that have none.
  HostObject composeDocument() const;
  // The typed and unsaved values as they stand, without any mark left.
  Value changesNow() const;

  HostObject m_pECCalendarEvent;
  std::unique_ptr<vnECCalendarEvent> m_ECCalendarEvent;
  bool m_bVnSettingOpened = false;
  Value m_initBodyContent;
};

}  // namespace vorn
