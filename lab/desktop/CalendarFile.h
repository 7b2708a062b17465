#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "lab/ics/CalendarStore.h"
#include "lab/shell/CalendarOutput.h"

namespace vornlab {

// The person who is asked about a calendar's file. Each question waits for its answer.
class FilePerson {
 public:
  enum class Answer { save, saveAs, overwrite, dontSave, cancel };

  virtual ~FilePerson() = default;
  // Before a calendar closes that has changes: save where it has a file, saveAs, dontSave or cancel.
  virtual Answer askAboutChanges(bool hasFile) = 0;
  // When it was not saved, for that reason: saveAs, cancel, or overwrite where that would help.
  virtual Answer tellThatNothingWasSaved(const std::string& reason, bool canOverwrite) = 0;
  // Where the calendar is to go; nothing for nowhere.
  virtual std::optional<std::filesystem::path> choosePlace(const std::filesystem::path& usual) = 0;
};

// The file of a calendar that somebody works on, written as often as they like. What somebody else has made of it
// meanwhile is overwritten only when they want that. Main thread only.
class CalendarFile {
 public:
  // Made before the calendar is read, since it remembers how the file was. "" for a calendar without one, which is
  // also what comes from a pipe, a device or the standard input. Throws
  // UsageError when nothing may be written there. The calendar and the person outlive it.
  CalendarFile(const std::filesystem::path& file, CalendarStore& calendar, FilePerson& person);

  // The calendar has just been read from the file.
  void begin();
  // Whether the calendar is another than the one in the file. Takes as long as writing its text.
  bool isChanged() const;
  // False when it was not written, which the person has been told, or did not want any more.
  bool save();
  // Of a person who has closed the calendar: false for one who wants to go on.
  bool mayEnd();

 private:
  using Path = std::filesystem::path;

  bool saveAs();
  // How the file is now is what it has to be still when it is written.
  void lookAt(const Path& file);
  void lookAgain();
  void write();

  Path m_file;
  CalendarStore& m_calendar;
  FilePerson& m_person;
  // Null without a file.
  std::unique_ptr<CalendarOutput> m_output;
  // What the file holds.
  std::string m_written;
};

}  // namespace vornlab
