#include "tests/road/world/RoadWorld.h"

#include <filesystem>

#include "channel/transport/vnIPCChannel.h"
#include "util/PropertyList.h"
#include "util/vnOLUtils.h"

namespace vorn {

namespace {

vornlab::CalendarStore& loaded(vornlab::CalendarStore& store, const std::string& text) {
  vornlab::IcsProblem problem;
  store.loadText(text, problem);
  return store;
}

std::filesystem::path applicationIn(const vornlab::World& world) {
  return world.applications() / "vornclient.app";
}

}  // namespace

RoadWorld::RoadWorld(const std::string& calendarText) : session({}, loaded(store, calendarText), {}) {}

RoadWorld::~RoadWorld() {
  for (const EditorId editor : host.editors()) abandon(editor);
}

void RoadWorld::installClientVersion(const std::string& version) {
  const std::filesystem::path contents = applicationIn(session.world()) / "Contents";
  std::filesystem::create_directories(contents);
  writePropertyList(
      Value::dictionaryFromPairs({{"CFBundleIdentifier", "us.vorn.xos"}, {"CFBundleVersion", version}}),
      (contents / "Info.plist").string());
}

void RoadWorld::removeClient() {
  std::filesystem::remove_all(applicationIn(session.world()));
  quitClient();
}

void RoadWorld::bringClientBack() {
  installClientVersion("5.12.3.9654");
  client->setFaults("");
  session.restartClient();
  // A main window that closes gives the dead connection up, and any new window connects.
  host.closeMainWindow();
  host.openMainWindow();
  vnIPCChannel::initIPCChannel();
}

void RoadWorld::setHostStores(bool stores) {
  if (stores == m_hostStores) return;
  m_hostStores = stores;
  constexpr const char* kRecord = "ECMutableCalendarEvent";
  constexpr const char* kRefusing = "saveRecordOnAFullDisk";
  if (!stores) {
    runtime.setInstanceMethod(kRecord, kRefusing, [](const HostObject&, const Arguments&) {
      constexpr int notStored = 1;
      return Value(notStored);
    });
  }
  // The host's own method stands under the name to which its hook moved it.
  const ClassRef record = runtime.NSClassFromString(kRecord);
  runtime.method_exchangeImplementations(
      runtime.class_getInstanceMethod(record, "vn_ECMutableCalendarEvent_saveRecord"),
      runtime.class_getInstanceMethod(record, kRefusing));
}

RoadWorld::EditorId RoadWorld::openEditor(std::string_view uid, std::string_view recurrenceId) {
  const EditorId editor = host.openEditor(uid, recurrenceId);
  settle();
  return editor;
}

void RoadWorld::clickAdd(EditorId editor) {
  host.clickBar(editor, "onClickAddVornMeeting:");
  settle();
}

void RoadWorld::clickCancel(EditorId editor) {
  host.clickBar(editor, "onClickCancelVornMeeting:");
  settle();
}

void RoadWorld::saveAndClose(EditorId editor) {
  host.saveAndClose(editor);
  settle();
}

void RoadWorld::send(EditorId editor) {
  host.send(editor);
  settle();
}

void RoadWorld::abandon(EditorId editor) {
  host.closeWithoutSaving(editor);
  settle();
}

bool RoadWorld::offersAdd(EditorId editor) { return host.barControl(editor, "onClickAddVornMeeting:").isShown; }

bool RoadWorld::showsMeeting(EditorId editor) {
  return host.barControl(editor, "onClickCancelVornMeeting:").isShown;
}

std::string RoadWorld::lastAlert() const {
  return presenter.alerts().empty() ? std::string() : presenter.alerts().back().alert.message;
}

Value RoadWorld::record(std::string_view uid) {
  const auto event = store.find(uid);
  return event ? vnOLUtils::toArrayOrNSDictionary(event->olmUCInband()) : Value();
}

std::string calendarWith(const std::string& eventLines) {
  return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Example//Calendar//EN\r\nBEGIN:VEVENT\r\nUID:one\r\n"
         "DTSTAMP:20261101T080000Z\r\nDTSTART:20261123T090000Z\r\nDTEND:20261123T100000Z\r\n" +
         eventLines + "END:VEVENT\r\nEND:VCALENDAR\r\n";
}

}  // namespace vorn
