#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vornlab {

// Where a changed calendar, or a changed body, goes: a plain file, which is replaced whole or not at all; a device
// or a pipe, which is written into; or standard output, called "-", and then whatever else is told goes to
// standard error.
class CalendarOutput {
 public:
  // Made before the calendar is read, since it remembers how the file was. Throws UsageError when nothing may be
  // written there, and when it is one of the files that the run needs for something else.
  CalendarOutput(std::filesystem::path output, const std::vector<std::filesystem::path>& otherFiles);
  ~CalendarOutput();
  CalendarOutput(const CalendarOutput&) = delete;
  CalendarOutput& operator=(const CalendarOutput&) = delete;

  const std::filesystem::path& path() const { return m_path; }

  // Whether so many bytes find room beside the file, which is better known before the service has made its
  // meetings. Throws LabError.
  void expectRoom(std::size_t bytes) const;
  // Whether the file is still the one that was there at the beginning, or there is still none.
  bool isAsBefore() const;
  // A file that is new here takes the mode of the model. Throws LabError, with nothing overwritten, when it cannot
  // be written or is not as it was at the beginning.
  void write(std::string_view text, const std::filesystem::path& model);
  // For a text that would be lost otherwise: writes it to a new file beside the output, with the mode of the file
  // that was there, else the model's, or, where that cannot be and for all that is no plain file, among the
  // temporary files, for its owner alone. Its name is like the output's where that can be told as it is.
  // Answers where it is; absent when it could not be written there either.
  std::optional<std::filesystem::path> writeElsewhere(std::string_view text,
                                                      const std::filesystem::path& model) const;

 private:
  bool isPlainFile() const { return m_descriptor < 0; }
  void requireAsBefore() const;

  std::filesystem::path m_path;
  // Where the plain file is, or will be, behind any links.
  std::filesystem::path m_folder;
  // Of the file that was there.
  std::optional<struct stat> m_before;
  // Of a device, a pipe or standard output; -1 for a plain file.
  int m_descriptor = -1;
};

}  // namespace vornlab
