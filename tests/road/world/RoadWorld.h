#pragma once

#include <string>

#include "lab/client/Service.h"
#include "lab/ics/CalendarStore.h"
#include "lab/inprocess/InProcessSession.h"
#include "lab/outlook/OutlookHost.h"

namespace vorn {

using vornlab::InProcessClient;
using vornlab::InProcessSession;

// A session in this process over a calendar of its own: what a person does at the host, and what stands in the
// calendar afterwards.
class RoadWorld {
 public:
  using EditorId = vornlab::OutlookHost::EditorId;

  // Loads the plug-in into a host that shows the calendar. The panel is switched off by the saved profile.
  explicit RoadWorld(const std::string& calendarText);
  ~RoadWorld();
  RoadWorld(const RoadWorld&) = delete;
  RoadWorld& operator=(const RoadWorld&) = delete;

  // The client as the plug-in finds it.
  void removeClient();
  void quitClient() { client->end(); }
  void installClientVersion(const std::string& version);
  // A client as at the beginning: installed, running, connected, and answering everything.
  void bringClientBack();
  // Whether the host can store a record at all, as on a disk that is full. It can at first.
  void setHostStores(bool stores);

  // Opens an editor and lets the bar settle.
  EditorId openEditor(std::string_view uid, std::string_view recurrenceId = {});
  void clickAdd(EditorId editor);
  void clickCancel(EditorId editor);
  void saveAndClose(EditorId editor);
  void send(EditorId editor);
  // Leaves the editor without saving and lets the window's end pass.
  void abandon(EditorId editor);
  // Runs the loop for a while, as long as nobody waits for sixty seconds.
  void settle(double seconds = 10) { session.runLoop().runFor(seconds); }

  // The add button can be clicked; the appointment shows a meeting.
  bool offersAdd(EditorId editor);
  bool showsMeeting(EditorId editor);
  bool showsProgress() const { return presenter.showsProgress(); }
  // The message of the last alert; "" without one.
  std::string lastAlert() const;
  std::string calendarText() const { return store.text(); }
  // The stored record of an event as a dictionary; absent without one.
  Value record(std::string_view uid);

  vornlab::CalendarStore store;
  InProcessSession session;
  vornlab::OutlookHost& host = session.host();
  EmbeddedClassRuntime& runtime = session.runtime();
  EmbeddedPresenter& presenter = session.presenter();
  InProcessClient* const client = &session.client();
  vornlab::Service& service = client->service();

 private:
  bool m_hostStores = true;
};

// A calendar with one appointment that has no meeting yet. Lines end in CRLF.
std::string calendarWith(const std::string& eventLines);

}  // namespace vorn
