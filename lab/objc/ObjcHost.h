#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "lab/host/HostFace.h"

namespace vornlab {

class CalendarStore;

// The stand-in host of true Objective-C classes in this process, and a person at it, whatever toolkit the classes
// stand in. One in a process, for its classes share what they show. Main thread only.
class ObjcHost final : public HostFace {
 public:
  // The calendar outlives this.
  ObjcHost(CalendarStore& calendar, const HostOptions& options);
  ~ObjcHost() override;

  void openMainWindow() override;
  void closeMainWindow() override;
  void showMailPane() override;
  void showCalendarPane() override;
  void chooseRibbonTab(std::uint32_t tab) override;
  void rebuildRibbon() override;
  bool addToolbarItem(std::string_view identifier) override;
  Control ribbonControl(const ControlName& name) const override;
  bool clickRibbon(const ControlName& name) override;
  Control toolbarControl(const ControlName& name) const override;
  bool clickToolbar(const ControlName& name) override;

  EditorId openEditorAt(std::size_t eventIndex) override;
  EditorId openCancellation(std::string_view uid, std::string_view recurrenceId) override;
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

  vorn::HostObject viewController(EditorId editor) const override;
  vorn::HostObject window(EditorId editor) const override;
  int sentCount() const override;

  // The controller of the main window, an object of the host's class; null while none is open.
  void* mainWindowController() const { return m_mainWindowController; }

 private:
  // Retained.
  void* m_applicationDelegate = nullptr;
  void* m_mainWindowController = nullptr;
};

}  // namespace vornlab
