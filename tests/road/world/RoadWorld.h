#pragma once

#include <functional>
#include <memory>
#include <string>

#include "lab/client/Service.h"
#include "lab/outlook/CalendarStore.h"
#include "lab/outlook/OutlookHost.h"
#include "tests/road/world/InProcessClient.h"
#include "tests/support/TestPlatform.h"

namespace vorn {

// Host, client and plug-in in one process, on the virtual clock: what a person does at the host, and what stands
// in the calendar afterwards.
class RoadWorld {
 public:
  using EditorId = vornlab::OutlookHost::EditorId;

  // How the plug-in reaches a client: the one in this process, or whoever listens on the socket in the home
  // folder.
  enum class Channel { inProcess, socket };

  // Loads the plug-in into a host that shows the calendar. The panel is switched off by the saved profile.
  explicit RoadWorld(const std::string& calendarText) : RoadWorld(calendarText, Channel::inProcess, nullptr) {}
  // With the socket, whoever is to listen there begins before the plug-in loads and connects.
  RoadWorld(const std::string& calendarText, Channel channel,
            const std::function<void(const std::string& home)>& beforeLoading);
  ~RoadWorld();
  RoadWorld(const RoadWorld&) = delete;
  RoadWorld& operator=(const RoadWorld&) = delete;

  // The client as the plug-in finds it.
  void removeClient();
  void quitClient();
  void installClientVersion(const std::string& version);
  // A client as at the beginning: installed, running, and answering everything.
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
  void settle(double seconds = 10);

  // The add button can be clicked; the appointment shows a meeting.
  bool offersAdd(EditorId editor);
  bool showsMeeting(EditorId editor);
  std::string lastAlert() const;
  std::string calendarText() const { return store.text(); }
  // The stored record of an event as a dictionary; absent without one.
  Value record(std::string_view uid);

  TestPlatform test;
  vornlab::Service service;
  vornlab::CalendarStore store;
  vornlab::OutlookHost host;
  // Null on the socket.
  InProcessClient* client = nullptr;

 private:
  bool barSays(EditorId editor, std::string_view question);

  bool m_hostStores = true;
};

// A calendar with one appointment that has no meeting yet. Lines end in CRLF.
std::string calendarWith(const std::string& eventLines);

}  // namespace vorn
