#include "tests/road/world/RoadWorld.h"

#include <filesystem>

#include "bundle/PluginLoad.h"
#include "platform/Registry.h"
#include "util/PropertyList.h"
#include "util/vnOLUtils.h"

namespace vorn {

namespace {

constexpr const char* kClientPath = "/SystemApplications/vornclient.app";
constexpr const char* kClientVersion = "5.12.3.9654";
constexpr const char* kClientIdentifier = "us.vorn.xos";
constexpr const char* kOutlookPath = "/SystemApplications/Microsoft Outlook.app";

vornlab::Service::Options seeded() {
  vornlab::Service::Options options;
  options.seed = 20261121;
  return options;
}

void installOutlook(TestPlatform& test) {
  const std::string path = test.surroundings.homeDirectory() + kOutlookPath;
  test.workspace.installed["com.microsoft.Outlook"] = path;
  test.workspace.propertyLists[path + "/Contents/Info.plist"] =
      Value::dictionaryFromPairs({{"CFBundleShortVersionString", "16.80"}});
}

void switchPanelOff(TestPlatform& test, const std::string& userId) {
  const std::string folder = test.surroundings.documentsDirectory() + "/VornOutlookPlugin";
  std::filesystem::create_directories(folder);
  Value text = Value::array();
  text.append("{\"notShowMeAgain\": true}");
  writePropertyList(text, folder + "/" + userId + ".txt");
}

}  // namespace

RoadWorld::RoadWorld(const std::string& calendarText, Channel channel,
                     const std::function<void(const std::string& home)>& beforeLoading)
    : service(vornlab::Account::plain(), seeded()),
      host(test.classRuntime, test.runLoop, test.notificationCenter, {}) {
  test.surroundings.resourceFolder = VORN_RESOURCES;
  installOutlook(test);
  installClientVersion(kClientVersion);
  test.workspace.running.insert(kClientIdentifier);
  switchPanelOff(test, service.account().userId);

  if (channel == Channel::inProcess) {
    auto made = std::make_unique<InProcessClient>(test.runLoop, service);
    client = made.get();
    Registry::install<vSocketClientImpl>(std::move(made));
  }
  if (beforeLoading) beforeLoading(test.surroundings.homeDirectory());

  host.defineClasses();
  attachPlugin();
  vornlab::IcsProblem problem;
  store.loadText(calendarText, problem);
  host.open(store);
}

RoadWorld::~RoadWorld() {
  for (const EditorId editor : host.editors()) abandon(editor);
}

void RoadWorld::installClientVersion(const std::string& version) {
  const std::string path = test.surroundings.homeDirectory() + kClientPath;
  std::filesystem::create_directories(path);
  test.workspace.filePackages.insert(path);
  test.workspace.executables[path] = path + "/Contents/MacOS/vornclient";
  test.workspace.propertyLists[path + "/Contents/Info.plist"] =
      Value::dictionaryFromPairs({{"CFBundleVersion", version}});
}

void RoadWorld::removeClient() {
  const std::string path = test.surroundings.homeDirectory() + kClientPath;
  std::filesystem::remove_all(path);
  test.workspace.filePackages.clear();
  test.workspace.executables.clear();
  quitClient();
}

void RoadWorld::quitClient() { test.workspace.running.clear(); }

void RoadWorld::bringClientBack() {
  installClientVersion(kClientVersion);
  test.workspace.running.insert(kClientIdentifier);
  if (client) client->heal();
}

void RoadWorld::setHostStores(bool stores) {
  if (stores == m_hostStores) return;
  m_hostStores = stores;
  constexpr const char* kRecord = "ECMutableCalendarEvent";
  constexpr const char* kRefusing = "saveRecordOnAFullDisk";
  if (!stores) {
    test.classRuntime.setInstanceMethod(kRecord, kRefusing, [](const HostObject&, const Arguments&) {
      constexpr int notStored = 1;
      return Value(notStored);
    });
  }
  // The host's own method stands under the name to which its hook moved it.
  const ClassRef record = test.classRuntime.NSClassFromString(kRecord);
  test.classRuntime.method_exchangeImplementations(
      test.classRuntime.class_getInstanceMethod(record, "vn_ECMutableCalendarEvent_saveRecord"),
      test.classRuntime.class_getInstanceMethod(record, kRefusing));
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

void RoadWorld::settle(double seconds) { test.runLoop.runFor(seconds); }

bool RoadWorld::barSays(EditorId editor, std::string_view question) {
  return test.classRuntime.send(host.barView(editor), question).boolValue();
}

bool RoadWorld::offersAdd(EditorId editor) {
  return host.barView(editor) && !barSays(editor, "isAddButtonHidden");
}

bool RoadWorld::showsMeeting(EditorId editor) {
  return host.barView(editor) && !barSays(editor, "isCancelButtonHidden");
}

std::string RoadWorld::lastAlert() const {
  return test.presenter.alerts.empty() ? std::string() : test.presenter.alerts.back().alert.message;
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
