#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "lab/host/HostFace.h"
#include "lab/ics/CalendarStore.h"
#include "platform/NotificationCenter.h"
#include "platform/embedded/EmbeddedClassRuntime.h"
#include "platform/embedded/HostRunLoop.h"

namespace vornlab {

struct HostWorld;

// The stand-in host in a class runtime of our own: its classes, and a person at it. The classes answer as long as
// this object lives. Main thread only.
class OutlookHost final : public HostFace {
 public:
  OutlookHost(vorn::EmbeddedClassRuntime& runtime, vorn::HostRunLoop& runLoop, vorn::NotificationCenter& center,
              Options options);
  ~OutlookHost() override;

  // Defines the host's classes; to be called once, before a plug-in loads.
  void defineClasses();
  // Shows the calendar of the store, which outlives the host or the next open(). Editors that are open stay with
  // theirs.
  void open(CalendarStore& store);

  void openMainWindow() override;
  void closeMainWindow() override;
  void showMailPane() override;
  void showCalendarPane() override;
  void chooseRibbonTab(std::uint32_t tab) override;
  void rebuildRibbon() override;
  // The identifiers of the items that the main window's toolbar shows, from left to right.
  std::vector<std::string> toolbarItems() const;
  bool addToolbarItem(std::string_view identifier) override;
  Control ribbonControl(const ControlName& name) const override;
  bool clickRibbon(const ControlName& name) override;
  Control toolbarControl(const ControlName& name) const override;
  bool clickToolbar(const ControlName& name) override;

  // The editor of the first appointment with that name; 0 when there is none.
  EditorId openEditor(std::string_view uid, std::string_view recurrenceId = {});
  EditorId openEditorAt(std::size_t eventIndex) override;
  EditorId openCancellation(std::string_view uid, std::string_view recurrenceId = {}) override;
  EditorId openNew(double startSeconds) override;
  std::vector<EditorId> editors() const override;
  void typeSubject(EditorId editor, std::string_view text) override;
  void typeLocation(EditorId editor, std::string_view text) override;
  void typeBody(EditorId editor, std::string_view html) override;
  void typeTimes(EditorId editor, double startSeconds, double endSeconds) override;
  vorn::HostObject barView(EditorId editor) const override;
  Control barControl(EditorId editor, const ControlName& name) const override;
  bool clickBar(EditorId editor, const ControlName& name) override;
  void save(EditorId editor) override;
  void saveAndClose(EditorId editor) override;
  void saveAndCloseOrTell(EditorId editor) override;
  void send(EditorId editor) override;
  void closeWithoutSaving(EditorId editor) override;
  // Goes from an item of a series that is open to the whole series: by the menu, and by the answer to the question
  // whether the series is meant (1; 0 stays with the item). What was typed is dropped by a change.
  void switchToSeries(EditorId editor);
  void answerSeriesQuestion(EditorId editor, int returnCode);
  void changeFromField(EditorId editor) override;
  bool findsChangesForAttendees(EditorId editor) const override;
  bool isOpen(EditorId editor) const override;
  bool isDirty(EditorId editor) const override;
  bool hasAttendees(EditorId editor) const override;
  std::string subject(EditorId editor) const override;
  std::string location(EditorId editor) const override;
  std::string body(EditorId editor) const override;

  vorn::HostObject eventOnGrid(std::size_t eventIndex) const override;
  bool drag(std::string_view uid, std::string_view recurrenceId, double newStartSeconds) override;
  bool resize(std::string_view uid, std::string_view recurrenceId, double startSeconds,
              double durationSeconds) override;
  bool rename(std::string_view uid, std::string_view recurrenceId, std::string_view subject) override;
  bool deleteFromCalendar(std::string_view uid, std::string_view recurrenceId) override;
  bool cancelMeeting(std::string_view uid, std::string_view recurrenceId) override;

  // The objects behind an editor, absent when it has closed.
  vorn::HostObject event(EditorId editor) const;
  vorn::HostObject viewController(EditorId editor) const override;
  vorn::HostObject windowController(EditorId editor) const;
  vorn::HostObject window(EditorId editor) const override;
  vorn::HostObject headerView(EditorId editor) const;

  int sentCount() const override;
  // How often a record was stored since the host began.
  int storedCount() const;

 private:
  std::shared_ptr<HostWorld> m_world;
};

}  // namespace vornlab
