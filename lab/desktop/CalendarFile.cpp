#include "lab/desktop/CalendarFile.h"

#include <utility>

#include "lab/shell/LabError.h"

namespace vornlab {

namespace fs = std::filesystem;

CalendarFile::CalendarFile(const fs::path& file, CalendarStore& calendar, FilePerson& person)
    : m_calendar(calendar), m_person(person) {
  // What comes from a pipe or a device goes to a file of the person's choice.
  const fs::file_type type = file.empty() || file == "-" ? fs::file_type::none : fs::status(file).type();
  if (type == fs::file_type::regular || type == fs::file_type::not_found) lookAt(file);
  begin();
}

void CalendarFile::begin() { m_written = m_calendar.text(); }

// The store says changed for good as soon as something was, also when that has been written since.
bool CalendarFile::isChanged() const { return m_calendar.isChanged() && m_calendar.text() != m_written; }

void CalendarFile::lookAt(const fs::path& file) {
  m_output = std::make_unique<CalendarOutput>(file, std::vector<fs::path>());
  m_file = file;
}

void CalendarFile::write() {
  std::string text = m_calendar.text();
  m_output->write(text, m_file);
  m_written = std::move(text);
}

bool CalendarFile::save() {
  if (!m_output) return saveAs();
  while (true) {
    try {
      write();
      break;
    } catch (const LabError& error) {
      switch (m_person.tellThatNothingWasSaved(error.what(), !m_output->isAsBefore())) {
        case FilePerson::Answer::saveAs: return saveAs();
        case FilePerson::Answer::overwrite: break;
        default: return false;
      }
    }
    lookAgain();
  }
  lookAgain();
  return true;
}

void CalendarFile::lookAgain() {
  try {
    lookAt(m_file);
  } catch (const LabError&) {
    // It may not be written any more, which the next attempt tells.
  }
}

bool CalendarFile::saveAs() {
  const std::optional<fs::path> chosen = m_person.choosePlace(m_file);
  if (!chosen) return false;
  try {
    lookAt(*chosen);
  } catch (const LabError& error) {
    return m_person.tellThatNothingWasSaved(error.what(), false) == FilePerson::Answer::saveAs && saveAs();
  }
  return save();
}

bool CalendarFile::mayEnd() {
  if (!isChanged()) return true;
  switch (m_person.askAboutChanges(m_output != nullptr)) {
    case FilePerson::Answer::save: return save();
    case FilePerson::Answer::saveAs: return saveAs();
    case FilePerson::Answer::dontSave: return true;
    default: return false;
  }
}

}  // namespace vornlab
